#include "ctlOperatingRangeLiquid.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <exception>

#include "ComponentTables.h"
#include "ModUnit.h"
#include "MvConfig.h"
#include "NumberText.h"
#include "Numeric.h"
#include "PageSupport.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

namespace {

constexpr std::int32_t kCustomLiquid = 3;

enum Step { kLower, kUpper, kReference };

// The lower bound names Kelvin by its short symbol, the others in full; all put two blanks
// after "and".
std::string RangeNotice(Step step, double lowK, double highK, std::int32_t code) {
    const char* before =
        step == kLower   ? "The valid range of lower bound temperature value is between "
        : step == kUpper ? "The valid range of upper bound temperature value is between "
                         : "The valid range of reference temperature value is between ";
    const char* after = code == qdf::kHartDegC   ? " deg C"
                        : code == qdf::kHartDegF ? " deg F"
                        : step == kLower         ? " K"
                                                 : " Kelvin";
    return RangeText(before, KelvinToTemperatureUnit(lowK, code), " and  ",
                     KelvinToTemperatureUnit(highK, code), after);
}

}  // namespace

ctlOperatingRangeLiquid::ctlOperatingRangeLiquid(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlOperatingRangeLiquid1"));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 5, QStringLiteral("lblOperatingRange"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("FLUID OPERATING RANGE SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);

    auto* fluid = new QGridLayout;
    lblOperatingRangeCategory = new QLabel(this);
    lblOperatingRangeCategory->setObjectName(QStringLiteral("lblOperatingRangeCategory"));
    lblOperatingRangeLiquidMethod = new QLabel(this);
    lblOperatingRangeLiquidMethod->setObjectName(QStringLiteral("lblOperatingRangeLiquidMethod"));
    fluid->addWidget(Caption(this, "Category:"), 0, 0);
    fluid->addWidget(lblOperatingRangeCategory, 0, 1);
    fluid->addWidget(Caption(this, "Name/Method:"), 1, 0);
    fluid->addWidget(lblOperatingRangeLiquidMethod, 1, 1);
    fluid->setColumnStretch(1, 1);
    right->addLayout(fluid);

    auto* range = new QGroupBox(QStringLiteral("Range"), this);
    range->setObjectName(QStringLiteral("fraRange"));
    auto* rangeGrid = new QGridLayout(range);
    txtTemp1 = NumberBox(range, "txtTemp1");
    txtTemp2 = NumberBox(range, "txtTemp2");
    cboTempUnit = UnitList(range, "cboTempUnit");
    rangeGrid->addWidget(Caption(range, "Temperature"), 0, 0);
    rangeGrid->addWidget(txtTemp1, 0, 1);
    rangeGrid->addWidget(Caption(range, "to"), 0, 2);
    rangeGrid->addWidget(txtTemp2, 0, 3);
    rangeGrid->addWidget(cboTempUnit, 0, 4);
    right->addWidget(range);

    auto* reference =
        new QGroupBox(QStringLiteral("Reference Conditions (Standard or Normal)"), this);
    reference->setObjectName(QStringLiteral("fraReference"));
    auto* refGrid = new QGridLayout(reference);
    txtTempRef = NumberBox(reference, "txtTempRef");
    cboTempRefUnit = UnitList(reference, "cboTempRefUnit");
    refGrid->addWidget(Caption(reference, "Temperature:"), 0, 0);
    refGrid->addWidget(txtTempRef, 0, 1);
    refGrid->addWidget(cboTempRefUnit, 0, 2);
    refGrid->setColumnStretch(3, 1);
    right->addWidget(reference);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });
}

qdf::clsExGlobalVars* ctlOperatingRangeLiquid::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    ShowLabels();
    LoadStaticLists();
    LoadFromStore();
    return store_;
}

void ctlOperatingRangeLiquid::UpdateImportedVars() {
    ShowLabels();
    // The lists are refilled as well, so the page reads right after ClearLists.
    LoadStaticLists();
    LoadFromStore();
    StartBlink();
}

void ctlOperatingRangeLiquid::ClearLists() {
    cboTempUnit->clear();
    cboTempRefUnit->clear();
}

void ctlOperatingRangeLiquid::ShowLabels() {
    if (!store_) return;
    lblOperatingRangeLiquidMethod->setText(
        QString::fromStdString(store_->Gbl_OperatingRangeSetupLiquid));
    lblOperatingRangeCategory->setText(
        QString::fromStdString(store_->Gbl_OperatingRangeSetupLiquidCategory));
}

void ctlOperatingRangeLiquid::LoadStaticLists() {
    if (!store_) return;
    FillUnitList(cboTempUnit, kTemperatureUnitList, store_->strCorvanePCLocation);
    FillUnitList(cboTempRefUnit, kTemperatureUnitList, store_->strCorvanePCLocation);
}

void ctlOperatingRangeLiquid::LoadFromStore() {
    if (!store_) return;
    const qdf::clsExGlobalVars& s = *store_;
    ShowNumber(txtTemp1, s.UI_RangeT1);
    ShowNumber(txtTemp2, s.UI_RangeT2);
    ShowNumber(txtTempRef, s.UI_TempRef);
    SelectUnit(cboTempUnit, s.UI_RangeTUnit);
    SelectUnit(cboTempRefUnit, s.UI_TempRefUnit);
}

bool ctlOperatingRangeLiquid::TestTemperature(int step, QLineEdit* box, QComboBox* unitList,
                                              double& standard) {
    // Without a unit there is nothing to convert: the standard value stays, and the missing
    // selection is refused after the calculation.
    const auto unit = SelectedUnit(unitList);
    if (!unit) return true;
    const double kelvin = qdf::TemperatureCodeToStandard(BoxNumber(box), *unit);
    if (!withLimits_ || (kelvin >= lowK_ && kelvin <= highK_)) {
        standard = kelvin;
        return true;
    }
    // A temperature outside the correlations can't be overruled.
    RefuseSelecting(RangeNotice(static_cast<Step>(step), lowK_, highK_, *unit), box);
    return false;
}

void ctlOperatingRangeLiquid::cmdNext_Click() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    const std::string kNotANumber = "Please enter a number";

    // A custom liquid has no correlations and so no limits. A name missing from the component
    // table leaves the limits at zero, which refuses every temperature.
    withLimits_ = s.UI_FluidCat != kCustomLiquid;
    lowK_ = 0.0;
    highK_ = 0.0;
    if (withLimits_) qdf::CompoundTables().FindLiquidLimits(s.UI_FluidName, lowK_, highK_);

    const auto t1 =
        RequireNumber(txtTemp1, "Please fill out minimum temperature value", kNotANumber, true);
    if (!t1) return;
    if (!TestTemperature(kLower, txtTemp1, cboTempUnit, s.UI_RangeT1Standard)) return;

    const auto t2 = RequireNumber(txtTemp2, kNotANumber, kNotANumber, true);
    if (!t2) return;
    if (!(*t2 > *t1))
        return RefuseSelecting(
            "The value of minimum temperature value must be less than the "
            "maximum temperature value",
            txtTemp1);
    if (!TestTemperature(kUpper, txtTemp2, cboTempUnit, s.UI_RangeT2Standard)) return;

    const auto tRef =
        RequireNumber(txtTempRef, "Please fill out reference temperature value", kNotANumber, true);
    if (!tRef) return;
    if (!TestTemperature(kReference, txtTempRef, cboTempRefUnit, s.UI_TempRefStandard)) return;

    // A list without a selection keeps its stored code; it is refused below.
    s.UI_RangeT1 = *t1;
    s.UI_RangeT2 = *t2;
    if (const auto u = SelectedUnit(cboTempUnit)) s.UI_RangeTUnit = static_cast<std::int16_t>(*u);
    s.UI_TempRef = *tRef;
    if (const auto u = SelectedUnit(cboTempRefUnit)) s.UI_TempRefUnit = *u;

    if (s.UI_ChemID.empty()) {
        const bool calculated = RunRangeCalculation(
            s, kTitleWarning,
            [this](const std::string& title, const std::string& text) { Notify(title, text); });
        if (!calculated) return;
    } else {
        // The user's own tables replace the library: only the device terms are computed, and
        // the entered tables are brought to the range and to internal units.
        qdf::CalcDischargeCoefficient(s);
        qdf::SetLiquidExpansionTerms(s);
        PrepareCustomTables();
    }

    if (!SelectedUnit(cboTempUnit))
        return Refuse("Please make a selection for temperature unit", cboTempUnit);
    if (!SelectedUnit(cboTempRefUnit))
        return Refuse("Please make a selection for reference temperature unit", cboTempRefUnit);

    GoForward("ctlOperatingRangeLiquid", "ctlPhysicalPropertySetup");
}

void ctlOperatingRangeLiquid::PrepareCustomTables() {
    qdf::clsExGlobalVars& s = *store_;
    if (PrepareLiquidDensityTemperatures(s) != 0) return;
    if (PrepareLiquidViscosityTemperatures(s) != 0) return;
    if (ConvertLiquidDensityTable(s) != 0) return;
    ConvertReferenceDensity(s);
    ConvertLiquidViscosityTable(s);
}

std::int32_t ctlOperatingRangeLiquid::PrepareLiquidDensityTemperatures(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        // Spaced for the density count, filled for the viscosity count: the two counts are
        // equal by default, and tables made with them stay as they were.
        const auto t =
            qdf::numeric::AscendingAxis(s.UI_RangeT1, s.UI_RangeT2, s.Mgt_LqdDensTempDiv);
        for (std::int32_t i = 0; i < s.Mgt_LqdVisTempDiv; ++i)
            s.UI_DensTemp.at(i) = t.start + i * t.step;
    });
}

std::int32_t ctlOperatingRangeLiquid::PrepareLiquidViscosityTemperatures(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        const auto t = qdf::numeric::AscendingAxis(s.UI_RangeT1, s.UI_RangeT2, s.Mgt_LqdVisTempDiv);
        for (std::int32_t i = 0; i < s.Mgt_LqdVisTempDiv; ++i)
            s.UI_ViscTemp.at(i) = t.start + i * t.step;
    });
}

std::int32_t ctlOperatingRangeLiquid::ConvertLiquidDensityTable(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        for (std::int32_t i = 0; i < s.Mgt_LqdDensTempDiv; ++i) {
            double v = DensityToStandard(s.UI_Dens.at(i), s.UI_DensUnit);
            // Only an entry of exactly 1 goes through the rounding format.
            if (v == 1.0) v = qdf::ParseNumber(qdf::FormatNumber(v, "####0.########")).value_or(v);
            s.UI_DensStandard.at(i) = v;
        }
    });
}

std::int32_t ctlOperatingRangeLiquid::ConvertLiquidViscosityTable(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        for (std::int32_t i = 0; i < s.Mgt_LqdVisTempDiv; ++i)
            s.UI_ViscStandard.at(i) = ViscosityToStandard(s.UI_Visc.at(i), s.UI_ViscUnit);
    });
}

void ctlOperatingRangeLiquid::cmdBack_Click() {
    // The page was entered without a stack entry, so Back goes straight to the fluid page.
    if (Main()) Main()->SwitchToFluidSetup();
}
