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

QLineEdit* NumberBox(QWidget* parent, const char* name) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(QString::fromLatin1(name));
    // A minus sign is dropped here, unlike on the Auto Compensation pages.
    box->installEventFilter(new NumberKeyFilter(false, box));
    return box;
}

QComboBox* UnitList(QWidget* parent, const char* name) {
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    return box;
}

std::string Left(const std::string& s, std::size_t n) {
    return s.substr(0, std::min(n, s.size()));
}

// Position of a text in a unit list, or -1.
int Position(const qdf::DynArray<std::string>& texts, const QString& text) {
    const std::string t = text.toStdString();
    for (std::int64_t i = 0; i < static_cast<std::int64_t>(texts.size()); ++i)
        if (texts[i] == t) return static_cast<int>(i);
    return -1;
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
    txtRefTemp = NumberBox(this, "txtRefTemp");
    cboRefTemp = UnitList(this, "cboRefTemp");
    txtRefStPress = NumberBox(this, "txtRefStPress");
    cboRefStPres = UnitList(this, "cboRefStPres");
    txtKFactor = NumberBox(this, "txtKFactor");
    txtTempK1 = NumberBox(this, "txtTempK1");
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

void ctlSetupMode::StopBlink() {
    BlinkTimer->Stop();
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
    ClearLists();
    FillList(cboRefTemp, store_->temp_units.copy());
    FillList(cboRefStPres, store_->press_units.copy());

    const bool liquid = store_->Xmtr_SimpleFluidTypeCode == 1;
    optLiquid->setChecked(liquid);
    optGas->setChecked(!liquid);
    SetTempK1Open(liquid);

    ShowNumber(txtRefTemp, store_->Xmtr_SimpleRefTemp);
    ShowNumber(txtRefStPress, store_->Xmtr_SimpleRefStaticPress);
    ShowNumber(txtKFactor, store_->Xmtr_SimpleFlowCalcFixedVar);
    if (liquid) ShowNumber(txtTempK1, store_->Xmtr_SimpleTempK1ForLqdVar);

    const std::string& location = store_->strCorvanePCLocation;
    const int t = TempUnitIndex(store_->Xmtr_SimpleTempUnit, location);
    cboRefTemp->setCurrentIndex(t < cboRefTemp->count() ? t : -1);
    const int p = PressUnitIndex(store_->Xmtr_SimpleStaticPressUnit, location);
    cboRefStPres->setCurrentIndex(p < cboRefStPres->count() ? p : -1);

    BlinkTimer->start();
}

void ctlSetupMode::Refuse(const char* text, QWidget* focus) {
    ShowMessage(kTitleWizard, text, 2, 2, 4);
    if (focus) focus->setFocus();
}

void ctlSetupMode::cmdNext_Click() {
    if (!store_) return;
    const bool liquid = optLiquid->isChecked();
    if (!liquid && !optGas->isChecked()) return Refuse("Please select fluid type", nullptr);

    struct Box {
        QLineEdit* box;
        const char* empty;
        const char* bad;
    };
    auto check = [this](const Box& b) {
        const std::string text = b.box->text().toStdString();
        if (text.empty()) {
            Refuse(b.empty, b.box);
            return false;
        }
        if (!qdf::IsNumeric(text)) {
            Refuse(b.bad, b.box);
            return false;
        }
        return true;
    };
    if (!check({txtRefTemp, "Please fill out reference temperature ",
                "Please enter a correct number for reference temperature!"}))
        return;
    if (cboRefTemp->currentIndex() < 0 || cboRefTemp->currentText().isEmpty())
        return Refuse("Please make a selection for reference temperature unit", cboRefTemp);
    if (!check({txtRefStPress, "Please fill out reference static pressure ",
                "Please enter a correct number for reference static pressure!"}))
        return;
    if (cboRefStPres->currentIndex() < 0 || cboRefStPres->currentText().isEmpty())
        return Refuse("Please make a selection for reference static pressure unit", cboRefStPres);
    if (!check({txtKFactor, "Please fill out K factor ",
                "Please enter a correct number for K factor!"}))
        return;
    if (liquid && !check({txtTempK1, "Please fill out temperature K1 ",
                          "Please enter a correct number for temp K1!"}))
        return;

    qdf::clsExGlobalVars& s = *store_;
    const std::int32_t fluid = liquid ? 1 : 2;
    s.Xmtr_SimpleFluidTypeCode = fluid;
    s.Xmtr_FluidTypeCode = fluid;
    s.Xmtr_SimpleDensityBase = 0.0;
    s.Xmtr_SimpleRefTemp = *qdf::ParseNumber(txtRefTemp->text().toStdString());
    const int ti = Position(s.temp_units, cboRefTemp->currentText());
    if (ti >= 0 && ti < static_cast<int>(s.temp_units_index.size()))
        s.Xmtr_SimpleTempUnit = s.temp_units_index[ti];
    s.Xmtr_SimpleRefStaticPress = *qdf::ParseNumber(txtRefStPress->text().toStdString());
    const int pi = Position(s.press_units, cboRefStPres->currentText());
    if (pi >= 0 && pi < static_cast<int>(s.press_units_index.size()))
        s.Xmtr_SimpleStaticPressUnit = s.press_units_index[pi];
    if (s.BusID == "FFH1") {
        s.XmtrFF_FtbTempUnitCode = qdf::host::FFTempUnitFromHart(s.Xmtr_SimpleTempUnit);
        s.XmtrFF_FtbStaticPressUnit = qdf::host::FFPressUnitFromHart(s.Xmtr_SimpleStaticPressUnit);
    }
    s.Xmtr_CONFIG_SOFT_REV = Left(s.Mgt_CfgSoftRev, 16);
    s.Xmtr_CONFIG_DATE = Left(s.Mgt_ConfDate, 16);
    s.Xmtr_CONFIG_WHO = Left(s.Mgt_UserName, 32);
    s.Xmtr_SimpleFlowCalcFixedVar = *qdf::ParseNumber(txtKFactor->text().toStdString());
    s.Xmtr_SimpleTempK1ForLqdVar =
        liquid ? *qdf::ParseNumber(txtTempK1->text().toStdString()) : 0.0;

    PushPageList("ctlSetupMode", "ctlSaveAndDownload");
    if (Main()) Main()->SwitchToSaveAndDownload();
}

void ctlSetupMode::cmdBack_Click() {
    // Back stores nothing: edits on this page are dropped.
    if (Main()) Main()->SwitchToModeSelection();
}
