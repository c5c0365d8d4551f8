#include "ctlPrimaryElementSetup.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "CodeTables.h"
#include "ModUnit.h"
#include "NumberText.h"
#include "PageSupport.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

namespace {

constexpr int kTypeFix = 3;

// The warnings speak of the limits in fixed words, not in converted numbers: a millimetre and
// an inch wording per limit. Code 8 has no inch wording of its own.
struct BoreWords {
    double limit;
    const char* mm;
    const char* other;
};
constexpr BoreWords kBoreWords[] = {
    {12.5, "12.5 mm", "0.492 inch"}, {11.4, "11.4 mm", "11.4 mm"}, {50.0, "50 mm", "1.968 inch"}};

// Two rows read oddly on purpose and must stay so: the 900 mm row gives a millimetre user the
// inch words of the 1000 mm row, and the 800 mm row's inch words lack their second unit.
struct PipeWords {
    double from;
    double to;
    const char* mm;
    const char* other;
};
constexpr PipeWords kPipeWords[] = {
    {50, 1000, "50 mm and 1000 mm", "1.968 inch and 39.37 inch"},
    {50, 900, "1.968 inch and 39.37 inch", "1.968 inch and 35.43 inch"},
    {50, 500, "50 mm and 500 mm", "1.968 inch and 19.68 inch"},
    {50, 630, "50 mm and 630 mm", "1.968 inch and 24.803 inch"},
    {100, 750, "100 mm and 750 mm", "3.937 inch and 29.527 inch"},
    {65, 500, "65 mm and 500 mm", "2.56 inch and 19.685 inch"},
    {100, 800, "100 mm and 800 mm", "3.937 inch and 31.496"},
    {100, 1200, "100 mm and 1200 mm", "3.937 inch and 47.244 inch"},
    {50, 250, "50 mm and 250 mm", "1.968 inch and 9.842 inch"},
    {200, 1200, "200 mm and 1200 mm", "7.87 inch and 47.244 inch"},
};

std::string BoreQuestion(double limit, bool mm) {
    for (const BoreWords& w : kBoreWords)
        if (w.limit == limit)
            return std::string(
                       "The recommended primary device diameter  value shouldn't be less "
                       "than ") +
                   (mm ? w.mm : w.other) + ". Do you still want to use this value?";
    return {};
}

std::string PipeQuestion(double from, double to, bool mm) {
    for (const PipeWords& w : kPipeWords)
        if (w.from == from && w.to == to)
            return std::string("The recommended pipe diameter value should be between ") +
                   (mm ? w.mm : w.other) + ". Do you still want to use this value?";
    return {};
}

std::string BetaQuestion(double beta, double low, double high) {
    return "Currently beta is " + qdf::NumToText(beta) +
           ". The recommended Beta (Primary element diameter / pipe diameter) value should be "
           "between " +
           qdf::NumToText(low) + " and " + qdf::NumToText(high) +
           ". Do you still want to use this value?";
}

std::string ListText(const QComboBox* box) {
    return box->currentText().toStdString();
}

bool ListEmpty(const QComboBox* box) {
    return box->currentIndex() < 0;
}

// A sentinel leaves the box as it is: the load writes only what the store holds.
void ShowIfEntered(QLineEdit* box, double value) {
    if (value != qdf::kNotEntered) box->setText(QString::fromStdString(qdf::NumToText(value)));
}

void SelectPosition(QComboBox* box, int position) {
    box->setCurrentIndex(position >= 0 && position < box->count() ? position : -1);
}

QLabel* Label(const char* text, QWidget* parent) {
    return new QLabel(QString::fromLatin1(text), parent);
}

QComboBox* List(QWidget* parent, const char* name) {
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

// Diameter, unit, "at", temperature, unit on one row of a frame's grid.
void AddMeasureRow(QGridLayout* g, int row, const char* label, QLineEdit* value, QComboBox* unit,
                   QLineEdit* temp, QComboBox* tempUnit, QWidget* parent) {
    g->addWidget(Label(label, parent), row, 0);
    g->addWidget(value, row, 1);
    g->addWidget(unit, row, 2);
    g->addWidget(Label("at", parent), row, 3, Qt::AlignCenter);
    g->addWidget(temp, row, 4);
    g->addWidget(tempUnit, row, 5);
}

}  // namespace

ctlPrimaryElementSetup::ctlPrimaryElementSetup(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlPrimaryElementSetup1"));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 2, QStringLiteral("lblPrimaryElement"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("PRIMARY DEVICE AND PIPE SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);

    auto* device = new QGroupBox(QStringLiteral("Primary Device"), this);
    device->setObjectName(QStringLiteral("fraPrimaryDevice"));
    auto* d = new QGridLayout(device);
    cboType = List(device, "cboType");
    cboDesc = List(device, "cboDesc");
    // The descriptions are longer than the page is wide: the closed list shows their start,
    // its popup and tooltip show them whole.
    cboDesc->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboDesc->setMinimumContentsLength(16);
    connect(cboDesc, &QComboBox::currentTextChanged, cboDesc, &QComboBox::setToolTip);
    txtElementDesc = new QLineEdit(device);
    txtElementDesc->setObjectName(QStringLiteral("txtElementDesc"));
    txtPEDisCoeff = NumberBox(device, "txtPEDisCoeff");
    txtPEGasExpFactor = NumberBox(device, "txtPEGasExpFactor");
    txtPEDiameter = NumberBox(device, "txtPEDiameter");
    cboPEDiameterUnit = UnitList(device, "cboPEDiameterUnit");
    txtPETemp = NumberBox(device, "txtPETemp");
    cboPETempUnit = UnitList(device, "cboPETempUnit");
    cboPEMaterial = List(device, "cboPEMaterial");
    d->addWidget(Label("Type:", device), 0, 0);
    d->addWidget(cboType, 0, 1, 1, 2);
    d->addWidget(Label("Description:", device), 1, 0);
    d->addWidget(cboDesc, 1, 1, 1, 5);
    d->addWidget(txtElementDesc, 2, 1, 1, 5);
    d->addWidget(Label("Discharge coefficient:", device), 3, 0);
    d->addWidget(txtPEDisCoeff, 3, 1);
    d->addWidget(Label("Gas expansion factor:", device), 4, 0);
    d->addWidget(txtPEGasExpFactor, 4, 1);
    AddMeasureRow(d, 5, "Diameter (d):", txtPEDiameter, cboPEDiameterUnit, txtPETemp, cboPETempUnit,
                  device);
    d->addWidget(Label("Material:", device), 6, 0);
    d->addWidget(cboPEMaterial, 6, 1, 1, 2);
    right->addWidget(device);

    auto* pipe = new QGroupBox(QStringLiteral("Pipe"), this);
    pipe->setObjectName(QStringLiteral("fraPipe"));
    auto* p = new QGridLayout(pipe);
    txtPipeDiameter = NumberBox(pipe, "txtPipeDiameter");
    cboPipeDiameterUnit = UnitList(pipe, "cboPipeDiameterUnit");
    txtPipeTemp = NumberBox(pipe, "txtPipeTemp");
    cboPipeTempUnit = UnitList(pipe, "cboPipeTempUnit");
    cboPipeMaterial = List(pipe, "cboPipeMaterial");
    AddMeasureRow(p, 0, "Diameter (D):", txtPipeDiameter, cboPipeDiameterUnit, txtPipeTemp,
                  cboPipeTempUnit, pipe);
    p->addWidget(Label("Material:", pipe), 1, 0);
    p->addWidget(cboPipeMaterial, 1, 1, 1, 2);
    // Both frames' columns line up: the labels' column is as wide in each.
    const int labelWidth =
        fontMetrics().horizontalAdvance(QStringLiteral("Discharge coefficient:"));
    const int unitWidth = cboPETempUnit->sizeHint().width();
    for (QGridLayout* g : {d, p}) {
        g->setColumnMinimumWidth(0, labelWidth + 4);
        g->setColumnMinimumWidth(2, unitWidth);
        g->setColumnMinimumWidth(5, unitWidth);
        g->setColumnStretch(1, 1);
        g->setColumnStretch(4, 1);
    }
    right->addWidget(pipe);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });

    connect(cboType, &QComboBox::currentIndexChanged, this, [this] { cboType_Click(); });
    connect(cboDesc, &QComboBox::currentIndexChanged, this,
            [this] { ApplyFixedCoefficientRule(); });
    connect(cboDesc, &QComboBox::currentTextChanged, this, [this] { ApplyFixedCoefficientRule(); });
}

qdf::clsExGlobalVars* ctlPrimaryElementSetup::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    if (!store_) return store_;
    store_->Gbl_ReadyToSave = qdf::kFalse;
    DisableFixedCoefficients();
    LoadStaticLists();
    LoadFromStore();
    return store_;
}

void ctlPrimaryElementSetup::UpdateImportedVars() {
    if (!store_) return;
    store_->Gbl_ReadyToSave = qdf::kFalse;
    DisableFixedCoefficients();
    LoadFromStore();
    StartBlink();
}

void ctlPrimaryElementSetup::ClearLists() {
    for (QComboBox* box : {cboDesc, cboPEDiameterUnit, cboPEMaterial, cboPETempUnit,
                           cboPipeDiameterUnit, cboPipeMaterial, cboPipeTempUnit, cboType})
        box->clear();
}

void ctlPrimaryElementSetup::LoadStaticLists() {
    const std::string& location = store_->strCorvanePCLocation;
    {
        const QSignalBlocker block(cboType);
        cboType->clear();
        for (const qdf::CodeText& t : qdf::kPrimaryDeviceTypes)
            cboType->addItem(
                QString::fromUtf8(t.text.data(), static_cast<qsizetype>(t.text.size())));
        cboType->setCurrentIndex(-1);
    }
    for (QComboBox* box : {cboPEMaterial, cboPipeMaterial}) {
        box->clear();
        for (const qdf::MaterialRow& m : qdf::kMaterials)
            box->addItem(QString::fromUtf8(m.name.data(), static_cast<qsizetype>(m.name.size())));
        box->setCurrentIndex(-1);
    }
    FillUnitList(cboPEDiameterUnit, kDiameterUnitList, location);
    FillUnitList(cboPipeDiameterUnit, kDiameterUnitList, location);
    FillUnitList(cboPETempUnit, kTemperatureUnitList, location);
    FillUnitList(cboPipeTempUnit, kTemperatureUnitList, location);
}

void ctlPrimaryElementSetup::cboType_Click() {
    {
        // One run of the coefficient rule after the list is whole, not one per row added.
        const QSignalBlocker block(cboDesc);
        cboDesc->clear();
        const int type = cboType->currentIndex();
        for (const qdf::PrimaryDeviceRow& row : qdf::kPrimaryDevices)
            if (type >= 0 && row.type == type)
                cboDesc->addItem(
                    QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size())));
        cboDesc->setCurrentIndex(-1);
        cboDesc->view()->setMinimumWidth(cboDesc->view()->sizeHintForColumn(0));
    }
    ApplyFixedCoefficientRule();
}

void ctlPrimaryElementSetup::SelectType(int position) {
    {
        const QSignalBlocker block(cboType);
        SelectPosition(cboType, position);
    }
    cboType_Click();
}

bool ctlPrimaryElementSetup::FixedModeChosen() const {
    return cboType->currentText() == QLatin1String("Fix") &&
           cboDesc->currentText() == QLatin1String("Fixed mode");
}

void ctlPrimaryElementSetup::ApplyFixedCoefficientRule() {
    if (FixedModeChosen())
        EnableFixedCoefficients();
    else
        DisableFixedCoefficients();
}

void ctlPrimaryElementSetup::EnableFixedCoefficients() {
    SetFixedCoefficientsOpen(true);
}

void ctlPrimaryElementSetup::DisableFixedCoefficients() {
    SetFixedCoefficientsOpen(false);
    txtPEDisCoeff->clear();
    txtPEGasExpFactor->clear();
}

void ctlPrimaryElementSetup::SetFixedCoefficientsOpen(bool open) {
    // Disabled as well as read-only: the closed box takes no focus and shows the inactive
    // background of the style.
    for (QLineEdit* box : {txtPEDisCoeff, txtPEGasExpFactor}) {
        box->setReadOnly(!open);
        box->setEnabled(open);
    }
}

void ctlPrimaryElementSetup::LoadFromStore() {
    const qdf::clsExGlobalVars& s = *store_;
    const std::int32_t code = s.UI_PEPrimaryDeviceCode;
    switch (s.UI_PEType) {
        case 0:
            SelectType(0);
            SelectPosition(cboDesc, code - 2);
            break;
        case 1: {
            SelectType(1);
            int position = -1;
            if (code == 12 || code == 13)
                position = code - 12;
            else if (code == 14 && s.UI_PESubcode >= 0 && s.UI_PESubcode <= 2)
                position = 2 + s.UI_PESubcode;
            SelectPosition(cboDesc, position);
            if (position < 0)
                Notify(qdf::kTitleInformation,
                       "Primary element description is not supported by this software version");
            break;
        }
        case 2:
            SelectType(2);
            SelectPosition(cboDesc, code - 15);
            break;
        case kTypeFix:
            SelectType(kTypeFix);
            if (code == 1) {
                SelectPosition(cboDesc, 0);
                ShowNumber(txtPEDisCoeff, s.UI_PEDisCoeff);
                ShowNumber(txtPEGasExpFactor, s.UI_PEGasExpFac);
            } else {
                SelectPosition(cboDesc, code - 2);
            }
            break;
        default:
            SelectType(-1);
            break;
    }

    ShowIfEntered(txtPEDiameter, s.UI_PEDiameter);
    SelectUnit(cboPEDiameterUnit, s.UI_PEDiameterUnit);
    ShowIfEntered(txtPETemp, s.UI_PETemp);
    SelectUnit(cboPETempUnit, s.UI_PETempUnit);
    SelectText(cboPEMaterial, s.UI_PEMaterial);
    ShowIfEntered(txtPipeDiameter, s.UI_PEPipeDiameter);
    SelectUnit(cboPipeDiameterUnit, s.UI_PEPipeDiameterUnit);
    // No sentinel test on this one box: an unentered pipe temperature shows as its number.
    txtPipeTemp->setText(QString::fromStdString(qdf::NumToText(s.UI_PipeTemperature)));
    SelectUnit(cboPipeTempUnit, s.UI_PipeTemperatureUnit);
    SelectText(cboPipeMaterial, s.UI_PipeMaterial);

    ApplyFixedCoefficientRule();
}

void ctlPrimaryElementSetup::cmdNext_Click() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;

    if (FixedModeChosen()) {
        if (!RequireNumber(
                txtPEDisCoeff, "Please fill out discharge coefficient value",
                "Please enter a correct number for primary device discharge coefficient"))
            return;
        if (!RequireNumber(txtPEGasExpFactor, "Please fill out gas expansion factor value",
                           "Please enter a correct number for primary device gas expansion factor"))
            return;
    }
    if (ListEmpty(cboType))
        return Refuse("Please make a selection for primary element type", cboType);
    if (ListEmpty(cboDesc))
        return Refuse("Please make a selection for primary element description", cboDesc);

    const auto bore = RequireNumber(txtPEDiameter, "Please fill out primary element diameter",
                                    "Please enter a correct number for primary element diameter!");
    if (!bore) return;
    // The standard values go to the store as soon as they are known, ahead of later refusals.
    if (!ListEmpty(cboPEDiameterUnit))
        s.UI_PEDiameterStandard = qdf::DiameterToStandard(*bore, ListText(cboPEDiameterUnit));

    std::int32_t code = 0;
    qdf::LookupPrimaryDeviceCode(s, ListText(cboDesc), code);
    // The fixed mode and an unknown text have no limits to warn about.
    const qdf::PrimaryDeviceRow* limits =
        code >= 2 && code <= 20 ? qdf::PrimaryDeviceLimitsRow(code, s.UI_PESubCodeName) : nullptr;
    if (limits && s.UI_PEDiameterStandard < limits->boreMin &&
        !AskToKeep(BoreQuestion(limits->boreMin, ListText(cboPEDiameterUnit) == "mm"),
                   txtPEDiameter))
        return;

    const auto boreUnit = SelectedUnit(cboPEDiameterUnit);
    if (!boreUnit)
        return Refuse("Please make a selection for primary diameter unit", cboPEDiameterUnit);

    const auto boreTemp =
        RequireNumber(txtPETemp, "Please fill out primary element temperature",
                      "Please enter a correct number for primary element temperature!");
    if (!boreTemp) return;
    if (!ListEmpty(cboPETempUnit))
        s.UI_PETempStandard = qdf::TemperatureToStandard(*boreTemp, ListText(cboPETempUnit));
    const auto boreTempUnit = SelectedUnit(cboPETempUnit);
    if (!boreTempUnit)
        return Refuse("Please make a selection for primary temperature unit", cboPETempUnit);
    if (ListEmpty(cboPEMaterial))
        return Refuse("Please make a selection for primary element material", cboPEMaterial);

    const auto pipe = RequireNumber(txtPipeDiameter, "Please fill out pipe diameter",
                                    "Please enter a correct number for pipe diameter!");
    if (!pipe) return;
    if (!ListEmpty(cboPipeDiameterUnit))
        s.UI_PEPipeDiameterStandard = qdf::DiameterToStandard(*pipe, ListText(cboPipeDiameterUnit));
    if (limits &&
        (s.UI_PEPipeDiameterStandard < limits->pipeMin ||
         s.UI_PEPipeDiameterStandard > limits->pipeMax) &&
        !AskToKeep(
            PipeQuestion(limits->pipeMin, limits->pipeMax, ListText(cboPipeDiameterUnit) == "mm"),
            txtPipeDiameter))
        return;
    const auto pipeUnit = SelectedUnit(cboPipeDiameterUnit);
    if (!pipeUnit)
        return Refuse("Please make a selection for pipe diameter unit", cboPipeDiameterUnit);

    // Code 14's limits are those of the sub-kind name the lookup has just written, so beta is
    // always judged by the row the list shows. The pipe box takes the focus, also when the bore
    // is the entry at fault.
    if (*pipe != 0.0 && limits) {
        const double beta = s.UI_PEDiameterStandard / s.UI_PEPipeDiameterStandard;
        if ((beta < limits->betaMin || beta > limits->betaMax) &&
            !AskToKeep(BetaQuestion(beta, limits->betaMin, limits->betaMax), txtPipeDiameter))
            return;
    }

    const auto pipeTemp = RequireNumber(txtPipeTemp, "Please fill out pipe temperature",
                                        "Please enter a correct number for pipe temperature!");
    if (!pipeTemp) return;
    if (!ListEmpty(cboPipeTempUnit))
        s.UI_PEPipeTempStandard = qdf::TemperatureToStandard(*pipeTemp, ListText(cboPipeTempUnit));
    const auto pipeTempUnit = SelectedUnit(cboPipeTempUnit);
    if (!pipeTempUnit)
        return Refuse("Please make a selection for pipe temperature unit", cboPipeTempUnit);
    if (ListEmpty(cboPipeMaterial))
        return Refuse("Please make a selection for pipe material", cboPipeMaterial);

    s.UI_PEType = cboType->currentIndex();
    s.UI_PEName = ListText(cboDesc);
    s.UI_PEPrimaryDeviceCode = code;
    // Closed boxes are empty: the coefficients of an earlier fixed mode stay in the store.
    if (!txtPEDisCoeff->text().isEmpty()) s.UI_PEDisCoeff = BoxNumber(txtPEDisCoeff);
    if (!txtPEGasExpFactor->text().isEmpty()) s.UI_PEGasExpFac = BoxNumber(txtPEGasExpFactor);
    s.UI_PEDiameter = *bore;
    s.UI_PEDiameterUnit = *boreUnit;
    s.UI_PETemp = *boreTemp;
    s.UI_PETempUnit = *boreTempUnit;
    s.UI_PEMaterial = ListText(cboPEMaterial);
    s.UI_PEPipeDiameter = *pipe;
    s.UI_PEPipeDiameterUnit = *pipeUnit;
    s.UI_PipeTemperature = *pipeTemp;
    s.UI_PipeTemperatureUnit = *pipeTempUnit;
    s.UI_PipeMaterial = ListText(cboPipeMaterial);

    GoForward("ctlPrimaryElementSetup", "ctlFluidSetup");
}

void ctlPrimaryElementSetup::cmdBack_Click() {
    // Back stores nothing: edits on this page are dropped.
    if (Main()) Main()->SwitchToModeSelection();
}
