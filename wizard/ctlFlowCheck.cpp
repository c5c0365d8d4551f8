#include "ctlFlowCheck.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "CheckInput.h"
#include "DeviceEquation.h"
#include "FlowCheckReport.h"
#include "WizardServices.h"
#include "clsExGlobalVars.h"

using qdf::flowcheck::FlowCheckResult;

namespace {

QString Q(const std::string& s) {
    return QString::fromStdString(s);
}

QTableWidget* Table(QWidget* parent, const char* name, const QStringList& headers) {
    auto* t = new QTableWidget(0, static_cast<int>(headers.size()), parent);
    t->setObjectName(QLatin1String(name));
    t->setHorizontalHeaderLabels(headers);
    t->verticalHeader()->hide();
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->setSelectionMode(QAbstractItemView::NoSelection);
    t->verticalHeader()->setDefaultSectionSize(t->fontMetrics().height() + 4);
    return t;
}

void SetCell(QTableWidget* t, int row, int col, const QString& text,
             const QColor& colour = Qt::black) {
    auto* item = new QTableWidgetItem(text);
    item->setForeground(colour);
    t->setItem(row, col, item);
}

}  // namespace

FlowCheckMap::FlowCheckMap(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picMap"));
    setMinimumSize(330, 230);
}

void FlowCheckMap::Show(const FlowCheckResult* result, std::size_t et) {
    result_ = result;
    et_ = et;
    update();
}

void FlowCheckMap::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().window());
    if (!result_) return;
    qdf::wizard::DrawErrorMap(p, rect(), *result_, et_);
}

ctlFlowCheck::ctlFlowCheck(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ctlFlowCheck"));
    setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->setSpacing(4);

    lblTitle = new QLabel(QStringLiteral("Flow Check"), this);
    lblTitle->setObjectName(QStringLiteral("lblTitle"));
    QFont big = lblTitle->font();
    big.setBold(true);
    big.setPointSizeF(big.pointSizeF() * 1.2);
    lblTitle->setFont(big);
    layout->addWidget(lblTitle);

    auto* inputs = new QHBoxLayout;
    inputs->addWidget(new QLabel(QStringLiteral("DP upper range value"), this));
    txtDpMax = new QLineEdit(QStringLiteral("25"), this);
    txtDpMax->setObjectName(QStringLiteral("txtDpMax"));
    txtDpMax->setMaximumWidth(70);
    inputs->addWidget(txtDpMax);
    cboDpUnit = new QComboBox(this);
    cboDpUnit->setObjectName(QStringLiteral("cboDpUnit"));
    cboDpUnit->addItems({"kPa", "Pa", "MPa", "bar", "mbar", "psi", "inH2O", "mmH2O"});
    inputs->addWidget(cboDpUnit);
    inputs->addSpacing(12);
    inputs->addWidget(new QLabel(QStringLiteral("Threshold, % of flow"), this));
    txtThreshold = new QLineEdit(QStringLiteral("0.1"), this);
    txtThreshold->setObjectName(QStringLiteral("txtThreshold"));
    txtThreshold->setMaximumWidth(50);
    inputs->addWidget(txtThreshold);
    cmdCheck = new QPushButton(QStringLiteral("Check"), this);
    cmdCheck->setObjectName(QStringLiteral("cmdCheck"));
    inputs->addWidget(cmdCheck);
    inputs->addStretch(1);
    layout->addLayout(inputs);

    auto* middle = new QHBoxLayout;
    auto* left = new QVBoxLayout;
    auto* etRow = new QHBoxLayout;
    etRow->addWidget(new QLabel(QStringLiteral("Error over DP x SP at ET"), this));
    cboET = new QComboBox(this);
    cboET->setObjectName(QStringLiteral("cboET"));
    etRow->addWidget(cboET, 1);
    left->addLayout(etRow);
    picMap = new FlowCheckMap(this);
    left->addWidget(picMap, 1);
    middle->addLayout(left, 5);

    auto* right = new QVBoxLayout;
    lblVerdict = new QLabel(this);
    lblVerdict->setObjectName(QStringLiteral("lblVerdict"));
    lblVerdict->setWordWrap(true);
    QFont bold = lblVerdict->font();
    bold.setBold(true);
    lblVerdict->setFont(bold);
    right->addWidget(lblVerdict);
    lblWorst = new QLabel(this);
    lblWorst->setObjectName(QStringLiteral("lblWorst"));
    lblWorst->setWordWrap(true);
    right->addWidget(lblWorst);
    grdSources = Table(this, "grdSources", {"Source", "Largest", "At worst"});
    grdSources->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    grdSources->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    grdSources->horizontalHeader()->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    grdSources->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    right->addWidget(grdSources, 1);
    middle->addLayout(right, 4);
    layout->addLayout(middle, 5);

    grdApplicability = Table(this, "grdApplicability", {"", "Applicability", "Limit", "Value"});
    auto* head = grdApplicability->horizontalHeader();
    head->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    head->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    head->setSectionResizeMode(2, QHeaderView::ResizeToContents);
    head->setStretchLastSection(true);
    layout->addWidget(grdApplicability, 3);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    cmdSavePdf = new QPushButton(QStringLiteral("Save PDF..."), this);
    cmdSavePdf->setObjectName(QStringLiteral("cmdSavePdf"));
    cmdSavePdf->setEnabled(false);
    buttons->addWidget(cmdSavePdf);
    cmdClose = new QPushButton(QStringLiteral("Close"), this);
    cmdClose->setObjectName(QStringLiteral("cmdClose"));
    buttons->addWidget(cmdClose);
    layout->addLayout(buttons);

    connect(cmdCheck, &QPushButton::clicked, this, [this] { cmdCheck_Click(); });
    connect(cmdSavePdf, &QPushButton::clicked, this, [this] { cmdSavePdf_Click(); });
    connect(cmdClose, &QPushButton::clicked, this, [this] { hide(); });
    connect(cboET, &QComboBox::currentIndexChanged, this, [this] { cboET_Click(); });
}

void ctlFlowCheck::Run(const qdf::clsExGlobalVars& store) {
    store_ = &store;
    params_.reset();
    cmdCheck_Click();
}

void ctlFlowCheck::RunWithParameters(const qdf::clsExGlobalVars& store,
                                     const qdf::flowcheck::DeviceParameters& params) {
    store_ = &store;
    params_ = params;
    cmdCheck_Click();
}

void ctlFlowCheck::cmdCheck_Click() {
    result_.reset();
    cmdSavePdf->setEnabled(false);
    if (!store_) return;
    bool okDp = false, okThreshold = false;
    const double dp = txtDpMax->text().toDouble(&okDp);
    const double threshold = txtThreshold->text().toDouble(&okThreshold);
    const auto dpPa = qdf::flowcheck::DpToPa(dp, cboDpUnit->currentText().toStdString());
    try {
        if (!okDp || !dpPa || !(*dpPa > 0.0))
            throw qdf::flowcheck::FlowCheckError("the DP upper range value must be above 0");
        if (!okThreshold || !(threshold > 0.0))
            throw qdf::flowcheck::FlowCheckError("the threshold must be above 0");
        qdf::flowcheck::FlowCheckOptions options;
        options.dpMaxPa = *dpPa;
        options.thresholdPercent = threshold;
        result_ = qdf::flowcheck::RunFlowCheck(
            *store_, params_ ? *params_ : qdf::flowcheck::ParametersFromStore(*store_), options);
    } catch (const qdf::flowcheck::FlowCheckError& e) {
        lblVerdict->setText(QStringLiteral("No check: ") + Q(e.what()));
        lblVerdict->setStyleSheet(QStringLiteral("color: rgb(180, 0, 0)"));
        lblWorst->clear();
    }
    Show();
}

void ctlFlowCheck::Show() {
    const QSignalBlocker block(cboET);
    cboET->clear();
    grdSources->setRowCount(0);
    grdApplicability->setRowCount(0);
    if (!result_) {
        picMap->Show(nullptr, 0);
        return;
    }
    const FlowCheckResult& r = *result_;
    const std::size_t perEt = r.dpAxis.size() * r.spAxis.size();
    for (double t : r.etAxis) cboET->addItem(QString::number(t, 'f', 2) + " K");
    cboET->setCurrentIndex(static_cast<int>(r.worst / perEt));
    cboET->setEnabled(!r.saturated);

    lblVerdict->setText(QStringLiteral("Worst error %1: %2 the threshold of %3 %")
                            .arg(Q(qdf::flowcheck::PercentText(r.worstError)),
                                 r.within ? QStringLiteral("within") : QStringLiteral("above"))
                            .arg(r.thresholdPercent));
    lblVerdict->setStyleSheet(r.within ? QStringLiteral("color: rgb(0, 110, 0)")
                                       : QStringLiteral("color: rgb(180, 0, 0)"));
    QString worst = QStringLiteral("At ") + Q(qdf::flowcheck::PointText(r.points[r.worst])) +
                    QStringLiteral(".\nMain source: ") +
                    Q(qdf::flowcheck::SourceName(r.mainSource)) + QStringLiteral(".");
    if (r.failedPoints)
        worst += QStringLiteral("\n%1 of %2 points not computed.")
                     .arg(r.failedPoints)
                     .arg(r.points.size());
    lblWorst->setText(worst);

    grdSources->setRowCount(static_cast<int>(qdf::flowcheck::kSourceCount));
    for (std::size_t k = 0; k < qdf::flowcheck::kSourceCount; ++k) {
        const int row = static_cast<int>(k);
        const QColor c =
            k == static_cast<std::size_t>(r.mainSource) ? QColor(180, 0, 0) : QColor(Qt::black);
        SetCell(grdSources, row, 0,
                Q(qdf::flowcheck::SourceName(static_cast<qdf::flowcheck::Source>(k))), c);
        SetCell(grdSources, row, 1, QString::number(r.worstBySource[k] * 100.0, 'f', 4) + " %", c);
        SetCell(grdSources, row, 2, Q(qdf::flowcheck::PercentText(r.points[r.worst].parts[k])), c);
    }
    grdApplicability->setRowCount(static_cast<int>(r.applicability.size()));
    for (std::size_t i = 0; i < r.applicability.size(); ++i) {
        const auto& a = r.applicability[i];
        const QColor c = a.verdict == qdf::flowcheck::Verdict::Fail   ? QColor(180, 0, 0)
                         : a.verdict == qdf::flowcheck::Verdict::Warn ? QColor(150, 90, 0)
                                                                      : QColor(Qt::black);
        const int row = static_cast<int>(i);
        SetCell(grdApplicability, row, 0, Q(qdf::flowcheck::VerdictName(a.verdict)), c);
        SetCell(grdApplicability, row, 1, Q(a.item), c);
        SetCell(grdApplicability, row, 2, Q(a.limit), c);
        SetCell(grdApplicability, row, 3, Q(a.value), c);
    }
    cmdSavePdf->setEnabled(true);
    cboET_Click();
}

void ctlFlowCheck::cboET_Click() {
    if (!result_ || cboET->currentIndex() < 0) return;
    picMap->Show(&*result_, static_cast<std::size_t>(cboET->currentIndex()));
}

void ctlFlowCheck::cmdSavePdf_Click() {
    using namespace qdf::wizard;
    if (!result_) return;
    QtDialogService desktop;
    IDialogService& dialogs = WizardServices().dialogs ? *WizardServices().dialogs : desktop;
    const FileDialogResult file = dialogs.SaveFile("PDF File (*.PDF) | *.PDF", "FlowCheck.pdf");
    if (file.path.empty()) return;
    QString error;
    if (WriteFlowCheckPdf(QString::fromStdString(file.path), *result_, &error)) return;
    lblWorst->setText(QStringLiteral("The PDF was not written: ") + error);
}

// Compiled with the view rather than with the wizard's other meta-objects, so that a program
// showing only this view (the frame) pulls in nothing else of the wizard.
#include "moc_ctlFlowCheck.cpp"
