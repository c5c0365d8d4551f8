#include "ctlSetupMode.h"

#include <algorithm>

#include <QButtonGroup>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "ModDeviceParams.h"
#include "NumberText.h"
#include "PageSupport.h"
#include "SDKFrame.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

namespace {

std::string Left(const std::string& s, std::size_t n) {
    return s.substr(0, std::min(n, s.size()));
}

}  // namespace

ctlSetupMode::ctlSetupMode(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlSetupMode1"));
    auto* grid = new QGridLayout(this);

    std::vector<QLabel*> steps;
    auto* frame =
        SequenceFrame(this, QStringLiteral("frameBasic"), BasicSequenceSteps(QString()), &steps);
    grid->addWidget(frame, 0, 0, 2, 1);
    BlinkTimer = new qdf::wizard::BlinkTimer(QStringLiteral("BlinkTimer"), steps.at(1), this);

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("BASIC MODE SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);

    auto* fluid = new QGroupBox(QStringLiteral("Fluid Type"), this);
    fluid->setObjectName(QStringLiteral("fraFluidType"));
    auto* fluidLayout = new QHBoxLayout(fluid);
    optLiquid = new QRadioButton(QStringLiteral("Liquid"), fluid);
    optLiquid->setObjectName(QStringLiteral("optLiquid"));
    optGas = new QRadioButton(QStringLiteral("Gas"), fluid);
    optGas->setObjectName(QStringLiteral("optGas"));
    fluidLayout->addWidget(optLiquid);
    fluidLayout->addWidget(optGas);
    right->addWidget(fluid);

    auto* form = new QGridLayout;
    // A minus sign is dropped here, unlike on the Auto Compensation pages.
    txtRefTemp = NumberBox(this, "txtRefTemp", false);
    cboRefTemp = UnitList(this, "cboRefTemp");
    txtRefStPress = NumberBox(this, "txtRefStPress", false);
    cboRefStPres = UnitList(this, "cboRefStPres");
    txtKFactor = NumberBox(this, "txtKFactor", false);
    txtTempK1 = NumberBox(this, "txtTempK1", false);
    form->addWidget(new QLabel(QStringLiteral("Reference temperature (Tb):"), this), 0, 0);
    form->addWidget(txtRefTemp, 0, 1);
    form->addWidget(cboRefTemp, 0, 2);
    form->addWidget(new QLabel(QStringLiteral("Reference static pressure (SPb):"), this), 1, 0);
    form->addWidget(txtRefStPress, 1, 1);
    form->addWidget(cboRefStPres, 1, 2);
    form->addWidget(new QLabel(QStringLiteral("K factor: "), this), 2, 0);
    form->addWidget(txtKFactor, 2, 1);
    form->addWidget(new QLabel(QStringLiteral("Temp K1:"), this), 3, 0);
    form->addWidget(txtTempK1, 3, 1);
    right->addLayout(form);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });

    connect(optGas, &QRadioButton::clicked, this, [this] { SetTempK1Open(false); });
    connect(optLiquid, &QRadioButton::clicked, this, [this] { SetTempK1Open(true); });
}

qdf::clsExGlobalVars* ctlSetupMode::Initialize(qdf::clsExGlobalVars* store) {
    return ctlPage::Initialize(store);
}

void ctlSetupMode::ClearLists() {
    cboRefTemp->clear();
    cboRefStPres->clear();
}

void ctlSetupMode::SetTempK1Open(bool open) {
    if (!open) txtTempK1->clear();
    txtTempK1->setReadOnly(!open);
    // The disabled look of the system for a closed box.
    txtTempK1->setEnabled(open);
}

void ctlSetupMode::UpdateImportedVars() {
    if (!store_) return;
    const std::string& location = store_->strCorvanePCLocation;
    // The device's own lists, selected by code: positions differ from device to device.
    FillDeviceUnitList(cboRefTemp, store_->temp_units.copy(), store_->temp_units_index.copy(),
                       false, location);
    FillDeviceUnitList(cboRefStPres, store_->press_units.copy(), store_->press_units_index.copy(),
                       true, location);

    const bool liquid = store_->Xmtr_SimpleFluidTypeCode == 1;
    optLiquid->setChecked(liquid);
    optGas->setChecked(!liquid);
    SetTempK1Open(liquid);

    ShowNumber(txtRefTemp, store_->Xmtr_SimpleRefTemp);
    ShowNumber(txtRefStPress, store_->Xmtr_SimpleRefStaticPress);
    ShowNumber(txtKFactor, store_->Xmtr_SimpleFlowCalcFixedVar);
    if (liquid) ShowNumber(txtTempK1, store_->Xmtr_SimpleTempK1ForLqdVar);

    SelectUnit(cboRefTemp, store_->Xmtr_SimpleTempUnit);
    SelectUnit(cboRefStPres, store_->Xmtr_SimpleStaticPressUnit);

    StartBlink();
}

void ctlSetupMode::cmdNext_Click() {
    if (!store_) return;
    const bool liquid = optLiquid->isChecked();
    if (!liquid && !optGas->isChecked()) return Refuse("Please select fluid type", nullptr);

    const auto refTemp = RequireNumber(txtRefTemp, "Please fill out reference temperature ",
                                       "Please enter a correct number for reference temperature!");
    if (!refTemp) return;
    const auto tempUnit = SelectedUnit(cboRefTemp);
    if (!tempUnit)
        return Refuse("Please make a selection for reference temperature unit", cboRefTemp);
    const auto refPress =
        RequireNumber(txtRefStPress, "Please fill out reference static pressure ",
                      "Please enter a correct number for reference static pressure!");
    if (!refPress) return;
    const auto pressUnit = SelectedUnit(cboRefStPres);
    if (!pressUnit)
        return Refuse("Please make a selection for reference static pressure unit", cboRefStPres);
    const auto kFactor = RequireNumber(txtKFactor, "Please fill out K factor ",
                                       "Please enter a correct number for K factor!");
    if (!kFactor) return;
    std::optional<double> tempK1;
    if (liquid) {
        tempK1 = RequireNumber(txtTempK1, "Please fill out temperature K1 ",
                               "Please enter a correct number for temp K1!");
        if (!tempK1) return;
    }

    qdf::clsExGlobalVars& s = *store_;
    const std::int32_t fluid = liquid ? 1 : 2;
    s.Xmtr_SimpleFluidTypeCode = fluid;
    s.Xmtr_FluidTypeCode = fluid;
    s.Xmtr_SimpleDensityBase = 0.0;
    s.Xmtr_SimpleRefTemp = *refTemp;
    s.Xmtr_SimpleTempUnit = *tempUnit;
    s.Xmtr_SimpleRefStaticPress = *refPress;
    s.Xmtr_SimpleStaticPressUnit = *pressUnit;
    if (s.BusID == "FFH1") {
        s.XmtrFF_FtbTempUnitCode = qdf::host::FFTempUnitFromHart(s.Xmtr_SimpleTempUnit);
        s.XmtrFF_FtbStaticPressUnit = qdf::host::FFPressUnitFromHart(s.Xmtr_SimpleStaticPressUnit);
    }
    s.Xmtr_CONFIG_SOFT_REV = Left(s.Mgt_CfgSoftRev, 16);
    s.Xmtr_CONFIG_DATE = Left(s.Mgt_ConfDate, 16);
    s.Xmtr_CONFIG_WHO = Left(s.Mgt_UserName, 32);
    s.Xmtr_SimpleFlowCalcFixedVar = *kFactor;
    s.Xmtr_SimpleTempK1ForLqdVar = liquid ? *tempK1 : 0.0;

    GoForward("ctlSetupMode", "ctlSaveAndDownload");
}

void ctlSetupMode::cmdBack_Click() {
    // Back stores nothing: edits on this page are dropped.
    if (Main()) Main()->SwitchToModeSelection();
}
