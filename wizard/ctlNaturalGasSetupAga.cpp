#include "ctlNaturalGasSetupAga.h"

#include <algorithm>

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "NumberText.h"
#include "PageSupport.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

namespace {

constexpr const char* kIsoMolarMethod = "ISO12213 molar-composition analysis";

struct Component {
    const char* name;
    double agaHigh;
    const char* agaText;
    double isoLow;
    double isoHigh;
    const char* isoText;
};

// In Y21 order. The AGA8 column is the standard's expanded range, the ISO column its normal
// range; every lower AGA8 limit is 0. The dew point rows of AGA8 test 0 to 100.
constexpr Component kComponents[21] = {
    {"Methane (CH4)", 100, "The value of Methane mole (CH4) should be between 0-100%", 50, 100,
     "The value of Methane mole (CH4) should be between 50-100%"},
    {"Nitrogen (N2)", 100, "The value of Nitrogen mole (N2) should be between 0-100%", 0, 50,
     "The value of Nitrogen mole (N2) should be between 0-50%"},
    {"Carbon Dioxide (CO2)", 100, "The value of Carbondioxide mole (CO2) should be between 0-100%",
     0, 30, "The value of Carbon dioxide mole (CO2) should be between 0-30%"},
    {"Ethane (C2H6)", 100, "The value of Ethane mole (C2H6) should be between 0-100%", 0, 20,
     "The value of Ethane mole (C2H6) should be between 0-20%"},
    {"Propane (C3H8)", 12, "The value of Propane mole (C3H8) should be between 0-12%", 0, 5,
     "The value of Propane mole (C3H8) should be between 0-5%"},
    {"Water (H20)", 100, "The value of Water mole (H20) should be between 0-100%", 0, 0.015,
     "The value of Water mole (H20) should be between 0-0.015%"},
    {"Hydrogen Sulfide (H2S)", 100,
     "The value of Hydrogen Sulfide mole (H2S) should be between 0-100%", 0, 0.02,
     "The value of Hydrogen Sulfide mole (H2S) should be between 0-0.02%"},
    {"Hydrogen (H2)", 100, "The value of Hydrogen mole (H2) should be between 0-100%", 0, 10,
     "The value of Hydrogen mole (H2) should be between 0-10%"},
    {"Carbon Monoxide (CO)", 3, "The value of Carbon Monoxide mole (CO) should be between 0-3%", 0,
     3, "The value of Carbon Monoxide mole (CO) should be between 0-3%"},
    {"Oxygen (O2)", 21, "The value of Oxygen mole (O2) should be between 0-21%", 0, 0.02,
     "The value of Oxygen mole (O2) should be between 0-0.02%"},
    {"Iso Butane (C4H10)", 6, "The value of Iso Butane mole (C4H10) should be between 0-6%", 0, 1.5,
     "The value of Iso Butane mole (C4H10) should be between 0-1.5%"},
    {"n-Butane (C4H10)", 6, "The value of n-Butane mole (C4H10) should be between 0-6%", 0, 1.5,
     "The value of n-Butane mole (C4H10) should be between 0-1.5%"},
    {"Iso Pentane (C5H12)", 4, "The value of Iso Pentane mole (C5H12) should be between 0-4%", 0,
     0.5, "The value of Iso Pentane mole (C5H12) should be between 0-0.5%"},
    {"n-Pentane (C5H12)", 4, "The value of n-Pentane mole (C5H12) should be between 0-4%", 0, 0.5,
     "The value of n-Pentane mole (C5H12) should be between 0-0.5%"},
    {"n-Hexane (C6H14)", 100, "The value of Hexane mole (C6H14) should be between 0-dewpoint%", 0,
     0.1, "The value of Hexane mole (C6H14) should be between 0-0.1%"},
    {"n-Heptane (C7H16)", 100, "The value of Heptane mole (C7H16) should be between 0-dew point%",
     0, 0.05, "The value of Heptane mole (C7H16) should be between 0-0.05%"},
    {"n-Octane (C8H18)", 100, "The value of n-Octane mole (C8H18) should be between 0-dew point%",
     0, 0.05, "The value of n-Octane mole (C8H18) should be between 0-0.05%"},
    {"n-Nonane (C9H20)", 100, "The value of n-Nonane mole (C9H20) should be between 0-dew point%",
     0, 0.05, "The value of n-Nonane mole (C9H20) should be between 0-0.05%"},
    {"n-Decane (C10H22)", 100, "The value of n-Decane mole (C10H22) should be between 0-dewpoint%",
     0, 0.05, "The value of n-Decane mole (C10H22) should be between 0-0.05%"},
    {"Helium-4 (He)", 3, "The value of Helium mole (He) should be between 0-3%", 0, 0.5,
     "The value of Helium mole (He) should be between 0-0.5%"},
    {"Argon (Ar)", 1, "The value of Argon mole (Ar) should be between 0-1%", 0, 0.02,
     "The value of Argon mole (Ar) should be between 0-0.02%"},
};

// A pair whose sum has its own limit, tested at its second member.
struct SumRule {
    int second;
    double agaLimit;
    const char* agaText;
    double isoLimit;
    const char* isoText;
};
constexpr SumRule kSums[] = {
    {11, 6, "The sum of Iso Butane and n-butane shouldn't exceed 6%. The current value is ", 1.5,
     "The sum of Iso Butane and n-butane shouldn't exceed 1.5%. The current value is "},
    {13, 4, "The sum of Iso Pentane and n-Pentane shouldn't exceed 4%. The current value is ", 0.5,
     "The sum of Iso Pentane and n-Pentane shouldn't exceed 0.5%. The current value is "},
};

constexpr int kFirstGroupRows = 11;
constexpr int kValueColumn1 = 2;
constexpr int kValueColumn2 = 5;

// The component of a value cell, or -1 for any other cell.
int IndexOfCell(int row, int column) {
    if (column == kValueColumn1 && row >= 1 && row <= kFirstGroupRows) return row - 1;
    if (column == kValueColumn2 && row >= 1 && row <= 21 - kFirstGroupRows)
        return kFirstGroupRows + row - 1;
    return -1;
}

std::pair<int, int> CellOfIndex(int index) {
    if (index < kFirstGroupRows) return {index + 1, kValueColumn1};
    return {index - kFirstGroupRows + 1, kValueColumn2};
}

QString Text(const std::string& s) {
    return QString::fromStdString(s);
}

bool HasPoint(double v) {
    return qdf::NumToText(v).find('.') != std::string::npos;
}

// A value as the grid shows it: with a fraction by the grid's pattern, otherwise plainly.
QString CellText(double v) {
    return Text(HasPoint(v) ? qdf::FormatNumber(v, "##0.########") : qdf::NumToText(v));
}

double RoundBy(double v, const char* pattern) {
    return qdf::ParseNumber(qdf::FormatNumber(v, pattern)).value_or(0.0);
}

double StoredPercent(double v) {
    return v == qdf::kNotEntered ? 0.0 : v;
}

// Accepts only what an unsigned decimal needs: backspace, comma, full stop and digits.
bool IsCellKey(QChar c) {
    return c == QChar('\b') || c == QChar(',') || c == QChar('.') || (c >= '0' && c <= '9');
}

QTableWidgetItem* FixedItem(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setFlags(Qt::ItemIsEnabled);
    return item;
}

}  // namespace

ctlNaturalGasSetupAga::ctlNaturalGasSetupAga(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlNaturalGasSetupAga1"));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 4, QStringLiteral("lblNaturalGas"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("NATURAL GAS SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);
    lblAgaDetail = new QLabel(this);
    lblAgaDetail->setObjectName(QStringLiteral("lblAgaDetail"));
    QFont bold = lblAgaDetail->font();
    bold.setBold(true);
    lblAgaDetail->setFont(bold);
    right->addWidget(lblAgaDetail);

    FlexDensity = new QTableWidget(12, 6, this);
    FlexDensity->setObjectName(QStringLiteral("FlexDensity"));
    // Row 0 is the grid's own header row, so rows and columns count as the cell model does.
    FlexDensity->horizontalHeader()->hide();
    FlexDensity->verticalHeader()->hide();
    FlexDensity->setEditTriggers(QAbstractItemView::NoEditTriggers);
    FlexDensity->setSelectionMode(QAbstractItemView::SingleSelection);
    FlexDensity->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    FlexDensity->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    FlexDensity->setWordWrap(false);
    FlexDensity->verticalHeader()->setDefaultSectionSize(22);
    // A point smaller than the page, so two groups with full 8-decimal values fit side by side.
    QFont gridFont = FlexDensity->font();
    gridFont.setPointSizeF(gridFont.pointSizeF() - 1);
    FlexDensity->setFont(gridFont);
    FillGrid(false);
    // Columns as wide as their longest text, the value columns as wide as a full 8-decimal
    // value, and the grid exactly as large as its cells: it never scrolls.
    FlexDensity->resizeColumnsToContents();
    const int valueWidth =
        FlexDensity->fontMetrics().horizontalAdvance(QStringLiteral("100.00000000")) + 8;
    int width = 2 * FlexDensity->frameWidth();
    for (int c = 0; c < 6; ++c) {
        if (c % 3 == 2)
            FlexDensity->setColumnWidth(c, std::max(FlexDensity->columnWidth(c), valueWidth));
        width += FlexDensity->columnWidth(c);
    }
    FlexDensity->setFixedSize(width, 12 * 22 + 2 * FlexDensity->frameWidth());
    FlexDensity->installEventFilter(this);
    right->addWidget(FlexDensity);

    txtDataEntry = new QLineEdit(FlexDensity->viewport());
    txtDataEntry->setObjectName(QStringLiteral("txtDataEntry"));
    txtDataEntry->setAlignment(Qt::AlignRight);
    txtDataEntry->hide();
    txtDataEntry->installEventFilter(this);
    // Pasted text keeps only the characters a key could have typed.
    connect(txtDataEntry, &QLineEdit::textEdited, this, [this](const QString& t) {
        QString kept;
        for (QChar c : t)
            if (IsCellKey(c)) kept.append(c);
        if (kept != t) txtDataEntry->setText(kept);
    });

    auto* totals = new QHBoxLayout;
    totals->addWidget(new QLabel(QStringLiteral("Total mole (%):"), this));
    txtTotalMole = new QLineEdit(this);
    txtTotalMole->setObjectName(QStringLiteral("txtTotalMole"));
    txtTotalMole->setReadOnly(true);
    txtTotalMole->setFixedWidth(110);
    totals->addWidget(txtTotalMole);
    totals->addStretch();
    cmdNormalize = new QPushButton(QStringLiteral("Standardize"), this);
    cmdNormalize->setObjectName(QStringLiteral("cmdNormalize"));
    cmdReset = new QPushButton(QStringLiteral("Reset"), this);
    cmdReset->setObjectName(QStringLiteral("cmdReset"));
    totals->addWidget(cmdNormalize);
    totals->addWidget(cmdReset);
    right->addLayout(totals);

    txtMessage = new QLineEdit(this);
    txtMessage->setObjectName(QStringLiteral("txtMessage"));
    txtMessage->setReadOnly(true);
    txtMessage->setFocusPolicy(Qt::NoFocus);
    QPalette red = txtMessage->palette();
    red.setColor(QPalette::Text, Qt::red);
    txtMessage->setPalette(red);
    right->addWidget(txtMessage);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });

    connect(FlexDensity, &QTableWidget::cellClicked, this, &ctlNaturalGasSetupAga::EditCell);
    connect(FlexDensity, &QTableWidget::cellChanged, this, &ctlNaturalGasSetupAga::OnItemChanged);
    connect(cmdNormalize, &QPushButton::clicked, this, [this] { cmdNormalize_Click(); });
    connect(cmdReset, &QPushButton::clicked, this, [this] { cmdReset_Click(); });
}

qdf::clsExGlobalVars* ctlNaturalGasSetupAga::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    if (!store_) return store_;
    lblAgaDetail->setText(Text(store_->Gbl_Aga8DetailMethodName));
    LoadFromStore();
    editRow_ = editColumn_ = -1;
    return store_;
}

void ctlNaturalGasSetupAga::UpdateImportedVars() {
    if (!store_) return;
    lblAgaDetail->setText(Text(store_->Gbl_Aga8DetailMethodName));
    LoadFromStore();
    editRow_ = editColumn_ = -1;
    StartBlink();
}

void ctlNaturalGasSetupAga::LoadFromStore() {
    qdf::clsExGlobalVars& s = *store_;
    const auto moles = s.DetailMoles();
    double sum = 0.0;
    for (int k = 0; k < 21; ++k) {
        s.Y21[k] = StoredPercent(*moles[static_cast<std::size_t>(k)]);
        sum += s.Y21[k];
    }
    m_TotalMole = RoundBy(sum, "##0.#######");
    ShowTotal();
    FillGrid(s.NewAgaSetup == qdf::kFalse);
    txtDataEntry->hide();
}

void ctlNaturalGasSetupAga::FillGrid(bool withValues) {
    filling_ = true;
    const QString headers[3] = {QStringLiteral("No"), QStringLiteral("Component"),
                                QStringLiteral("Mole (%)")};
    QFont bold = FlexDensity->font();
    bold.setBold(true);
    for (int c = 0; c < 6; ++c) {
        QTableWidgetItem* item = FixedItem(headers[c % 3]);
        item->setFont(bold);
        item->setBackground(palette().button());
        item->setTextAlignment(Qt::AlignCenter);
        FlexDensity->setItem(0, c, item);
    }
    for (int row = 1; row <= kFirstGroupRows; ++row)
        for (int c = 0; c < 6; ++c) FlexDensity->setItem(row, c, FixedItem(QString()));
    for (int k = 0; k < 21; ++k) {
        const auto [row, column] = CellOfIndex(k);
        QTableWidgetItem* number = FlexDensity->item(row, column - 2);
        number->setText(QString::number(k + 1));
        number->setTextAlignment(Qt::AlignCenter);
        number->setBackground(palette().button());
        FlexDensity->item(row, column - 1)->setText(QString::fromLatin1(kComponents[k].name));
        auto* value = new QTableWidgetItem;
        value->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        FlexDensity->setItem(row, column, value);
        shown_[k].clear();
        if (withValues && store_) ShowValue(k, CellText(store_->Y21[k]));
    }
    // The second group has one row fewer: its last row stays blank.
    for (int c = 3; c < 6; ++c)
        FlexDensity->item(kFirstGroupRows, c)->setBackground(palette().window());
    filling_ = false;
}

void ctlNaturalGasSetupAga::ShowValue(int index, const QString& text) {
    const auto [row, column] = CellOfIndex(index);
    const bool wasFilling = filling_;
    filling_ = true;
    FlexDensity->item(row, column)->setText(text);
    filling_ = wasFilling;
    shown_[index] = text;
}

void ctlNaturalGasSetupAga::ShowTotal() {
    txtTotalMole->setText(Text(qdf::NumToText(m_TotalMole)));
}

void ctlNaturalGasSetupAga::EditCell(int row, int column) {
    CommitEdit();
    if (IndexOfCell(row, column) < 0) return;
    QTableWidgetItem* item = FlexDensity->item(row, column);
    editRow_ = row;
    editColumn_ = column;
    FlexDensity->setCurrentCell(row, column);
    txtDataEntry->setGeometry(FlexDensity->visualItemRect(item));
    txtDataEntry->setText(item->text());
    txtDataEntry->show();
    txtDataEntry->selectAll();
    txtDataEntry->setFocus();
}

void ctlNaturalGasSetupAga::CommitEdit() {
    if (committing_ || editRow_ < 0) return;
    committing_ = true;
    const int index = IndexOfCell(editRow_, editColumn_);
    const QString text = txtDataEntry->text();
    editRow_ = editColumn_ = -1;
    txtDataEntry->hide();
    if (index >= 0) CommitCell(index, text);
    committing_ = false;
}

void ctlNaturalGasSetupAga::CommitCell(int index, const QString& text) {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    const double old = s.Y21[index];
    if (text.isEmpty()) {
        s.Y21[index] = 0.0;
        m_TotalMole -= old;
        ShowValue(index, QString());
        ShowTotal();
        return;
    }
    const std::string typed = text.toStdString();
    if (!qdf::IsNumeric(typed)) {
        ShowValue(index, shown_[index]);
        Refuse("Please enter a number");
        return;
    }
    double value = qdf::ParseNumber(typed).value_or(0.0);
    m_TotalMole -= old;
    if (old != 0.0 && HasPoint(old)) value = RoundBy(value, "##0.########");
    s.Y21[index] = value;
    m_TotalMole += value;
    ShowValue(index, CellText(value));
    ShowTotal();
}

void ctlNaturalGasSetupAga::OnItemChanged(int row, int column) {
    // A cell written from outside the edit box (a script) commits like a typed one.
    if (filling_) return;
    const int index = IndexOfCell(row, column);
    if (index >= 0) CommitCell(index, FlexDensity->item(row, column)->text());
}

void ctlNaturalGasSetupAga::EditNextCell(int row, int column) {
    ++row;
    if (IndexOfCell(row, column) < 0) {
        row = 1;
        column = column == kValueColumn1 ? kValueColumn2 : kValueColumn1;
    }
    EditCell(row, column);
}

bool ctlNaturalGasSetupAga::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtDataEntry) {
        if (event->type() == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
                const int row = editRow_, column = editColumn_;
                CommitEdit();
                EditNextCell(row, column);
                return true;
            }
            const QString t = key->text();
            const bool shortcut =
                key->modifiers() & (Qt::ControlModifier | Qt::MetaModifier | Qt::AltModifier);
            if (!shortcut && !t.isEmpty() && t.at(0).isPrint() && !IsCellKey(t.at(0))) return true;
        } else if (event->type() == QEvent::FocusOut) {
            CommitEdit();
        }
    } else if (watched == FlexDensity && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const int row = FlexDensity->currentRow(), column = FlexDensity->currentColumn();
        if (IndexOfCell(row, column) >= 0) {
            if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
                EditCell(row, column);
                return true;
            }
            // Typing on a value cell starts its edit with the key.
            const QString t = key->text();
            if (!t.isEmpty() && IsCellKey(t.at(0)) && t.at(0) != QChar('\b')) {
                EditCell(row, column);
                txtDataEntry->setText(t);
                return true;
            }
        }
    }
    return ctlPage::eventFilter(watched, event);
}

void ctlNaturalGasSetupAga::cmdNormalize_Click() {
    if (!store_) return;
    CommitEdit();
    const double total = m_TotalMole;
    txtMessage->clear();
    if (total == 0.0) return;
    qdf::clsExGlobalVars& s = *store_;
    double sum = 0.0;
    for (int k = 0; k < 21; ++k) sum += s.Y21[k];
    m_TotalMole = 0.0;
    for (int k = 0; k < 21; ++k) {
        s.Y21[k] = RoundBy(s.Y21[k] / sum * 100.0, "####0.########");
        m_TotalMole += s.Y21[k];
        ShowValue(k, CellText(s.Y21[k]));
    }
    ShowTotal();
}

void ctlNaturalGasSetupAga::cmdReset_Click() {
    if (!store_) return;
    editRow_ = editColumn_ = -1;
    txtDataEntry->hide();
    for (int k = 0; k < 21; ++k) store_->Y21[k] = 0.0;
    m_TotalMole = 0.0;
    txtTotalMole->setText(QStringLiteral("0"));
    txtDataEntry->setText(QStringLiteral("0.000"));
    txtMessage->clear();
    for (int k = 0; k < 21; ++k) ShowValue(k, CellText(0.0));
}

void ctlNaturalGasSetupAga::SetUIAgasetup() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    for (int k = 0; k < 21; ++k) {
        const auto [row, column] = CellOfIndex(k);
        s.Y21[k] =
            qdf::ParseNumber(FlexDensity->item(row, column)->text().toStdString()).value_or(0.0);
    }
    s.UI_DtlTotalMole =
        m_TotalMole == 0.0 ? 0.0 : RoundBy(m_TotalMole * 100000000.0, "########") / 100000000.0;
    const auto moles = s.DetailMoles();
    for (int k = 0; k < 21; ++k) *moles[static_cast<std::size_t>(k)] = s.Y21[k];
}

void ctlNaturalGasSetupAga::cmdNext_Click() {
    if (!store_) return;
    CommitEdit();
    qdf::clsExGlobalVars& s = *store_;
    txtMessage->clear();
    auto fault = [this](const std::string& text) { txtMessage->setText(Text(text)); };
    if (m_TotalMole > 100.0)
        return fault("The total mole value shouldn't exceed 100%. Current total mole is " +
                     qdf::NumToText(m_TotalMole));
    if (m_TotalMole >= 0.0 && m_TotalMole < 100.0)
        return fault("The total mole should exactly be 100%");
    // A negative total, which only the running sum can reach, is stored untested.
    if (m_TotalMole == 100.0) {
        const bool iso = s.UI_FluidName == kIsoMolarMethod;
        for (int k = 0; k < 21; ++k) {
            const Component& c = kComponents[k];
            const auto [row, column] = CellOfIndex(k);
            const double v = qdf::ParseNumber(FlexDensity->item(row, column)->text().toStdString())
                                 .value_or(0.0);
            const double low = iso ? c.isoLow : 0.0;
            const double high = iso ? c.isoHigh : c.agaHigh;
            if (v < low || v > high) return fault(iso ? c.isoText : c.agaText);
            s.Y21[k] = v;
            for (const SumRule& rule : kSums) {
                if (rule.second != k) continue;
                const double sum = s.Y21[k - 1] + s.Y21[k];
                if (sum > (iso ? rule.isoLimit : rule.agaLimit))
                    return fault((iso ? rule.isoText : rule.agaText) + qdf::NumToText(sum));
            }
        }
    }
    s.UI_DtlTotalMole = m_TotalMole;
    const auto moles = s.DetailMoles();
    for (int k = 0; k < 21; ++k) *moles[static_cast<std::size_t>(k)] = s.Y21[k];
    s.NewAgaSetup = qdf::kFalse;
    GoForward("ctlNaturalGasSetupAga", "ctlOperatingRangeSetup");
}

void ctlNaturalGasSetupAga::cmdBack_Click() {
    if (!store_) return;
    editRow_ = editColumn_ = -1;
    txtDataEntry->hide();
    store_->NewAgaSetup = qdf::kFalse;
    if (Main()) Main()->SwitchToFluidSetup();
}
