#include "ctlOperatingRangeSatSteam.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ModUnit.h"
#include "NumberText.h"
#include "PageSupport.h"
#include "TVRQDFFCWMain.h"
#include "clsExGlobalVars.h"

using namespace qdf::wizard;

namespace {

// The validity range of the steam tables, kPa absolute.
constexpr double kLowKPa = 0.61121;
constexpr double kHighKPa = 100000.0;

enum Step { kLower, kUpper, kReference };

constexpr const char* kKeepValue = ". Do you still want to use this value?";

std::string UnitText(std::int32_t code) {
    for (const UnitEntry& e : kProcessPressureUnitList)
        if (e.code == code) return std::string(e.text);
    return std::string();
}

// This page's range questions print the limits at full precision, and word them by step: the
// upper bound names a gauge unit by its absolute twin, and the reference question runs "bar"
// straight onto the second number.
std::string RangeQuestion(Step step, std::int32_t code) {
    const bool psi = code == 2 || code == 5;
    std::string before;
    std::string unit;
    std::string blank = " ";
    switch (step) {
        case kLower:
            before = psi ? "The valid range of lower bound pressure value is between  "
                         : "The valid range of lower bound pressure value is between ";
            unit = UnitText(code);
            break;
        case kUpper:
            before = "The valid range of upper bound pressure value is between ";
            unit = UnitText(code % 3);
            break;
        case kReference:
            before = "The valid range of reference pressure value is between ";
            unit = UnitText(code % 3);
            if (code == 1) blank.clear();
            break;
    }
    return before + qdf::NumToText(KPaToPressureUnit(kLowKPa, code)) + " and " +
           qdf::NumToText(KPaToPressureUnit(kHighKPa, code)) + blank + unit + kKeepValue;
}

}  // namespace

ctlOperatingRangeSatSteam::ctlOperatingRangeSatSteam(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlOperatingRangeSatSteam1"));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 5, QStringLiteral("lblOperatingRange"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("FLUID OPERATING RANGE SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);

    // Saturated steam is the only fluid of this page.
    auto* fluid = new QGridLayout;
    lblOperatingRangeCat = new QLabel(QStringLiteral("Steam"), this);
    lblOperatingRangeCat->setObjectName(QStringLiteral("lblOperatingRangeCat"));
    lblOperatingRangeSetupMethod = new QLabel(QStringLiteral("Saturated Steam"), this);
    lblOperatingRangeSetupMethod->setObjectName(QStringLiteral("lblOperatingRangeSetupMethod"));
    fluid->addWidget(Caption(this, "Category:"), 0, 0);
    fluid->addWidget(lblOperatingRangeCat, 0, 1);
    fluid->addWidget(Caption(this, "Name/Method:"), 1, 0);
    fluid->addWidget(lblOperatingRangeSetupMethod, 1, 1);
    fluid->setColumnStretch(1, 1);
    right->addLayout(fluid);

    auto* range = new QGroupBox(QStringLiteral("Range"), this);
    range->setObjectName(QStringLiteral("fraRange"));
    auto* rangeGrid = new QGridLayout(range);
    txtPress1 = NumberBox(range, "txtPress1");
    txtPress2 = NumberBox(range, "txtPress2");
    cboPressUnit = UnitList(range, "cboPressUnit");
    txtAtmPress = NumberBox(range, "txtAtmPress");
    cboAtmPressUnit = UnitList(range, "cboAtmPressUnit");
    rangeGrid->addWidget(Caption(range, "Static Pressure:"), 0, 0);
    rangeGrid->addWidget(txtPress1, 0, 1);
    rangeGrid->addWidget(Caption(range, "to"), 0, 2);
    rangeGrid->addWidget(txtPress2, 0, 3);
    rangeGrid->addWidget(cboPressUnit, 0, 4);
    rangeGrid->addWidget(Caption(range, "Atmospheric Pressure"), 1, 0);
    rangeGrid->addWidget(txtAtmPress, 1, 1);
    rangeGrid->addWidget(cboAtmPressUnit, 1, 2, 1, 2, Qt::AlignLeft);
    rangeGrid->addWidget(Caption(range, "(valid only if gauge is selected)"), 2, 1, 1, 4);
    right->addWidget(range);

    auto* reference =
        new QGroupBox(QStringLiteral("Reference Conditions (Standard or Normal)"), this);
    reference->setObjectName(QStringLiteral("fraReference"));
    auto* refGrid = new QGridLayout(reference);
    txtPressRef = NumberBox(reference, "txtPressRef");
    cboPressRefUnit = UnitList(reference, "cboPressRefUnit");
    txtTempRef = NumberBox(reference, "txtTempRef");
    cboTempRefUnit = UnitList(reference, "cboTempRefUnit");
    refGrid->addWidget(Caption(reference, "Pressure:"), 0, 0);
    refGrid->addWidget(txtPressRef, 0, 1);
    refGrid->addWidget(cboPressRefUnit, 0, 2);
    refGrid->addWidget(Caption(reference, "Temperature:"), 1, 0);
    refGrid->addWidget(txtTempRef, 1, 1);
    refGrid->addWidget(cboTempRefUnit, 1, 2);
    refGrid->setColumnStretch(3, 1);
    right->addWidget(reference);
    right->addStretch();
    grid->addLayout(right, 0, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });
}

qdf::clsExGlobalVars* ctlOperatingRangeSatSteam::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    LoadStaticLists();
    LoadFromStore();
    return store_;
}

void ctlOperatingRangeSatSteam::UpdateImportedVars() {
    // The lists are refilled as well, so the page reads right after ClearLists.
    LoadStaticLists();
    LoadFromStore();
    StartBlink();
}

void ctlOperatingRangeSatSteam::ClearLists() {
    cboPressRefUnit->clear();
    cboPressUnit->clear();
    cboTempRefUnit->clear();
    cboAtmPressUnit->clear();
}

void ctlOperatingRangeSatSteam::LoadStaticLists() {
    if (!store_) return;
    const std::string& location = store_->strCorvanePCLocation;
    FillUnitList(cboPressUnit, kProcessPressureUnitList, location);
    FillUnitList(cboAtmPressUnit, kAbsolutePressureUnitList, location);
    FillUnitList(cboPressRefUnit, kAbsolutePressureUnitList, location);
    FillUnitList(cboTempRefUnit, kTemperatureUnitList, location);
}

void ctlOperatingRangeSatSteam::LoadFromStore() {
    if (!store_) return;
    const qdf::clsExGlobalVars& s = *store_;
    ShowNumber(txtPress1, s.UI_RangeP1);
    ShowNumber(txtPress2, s.UI_RangeP2);
    ShowNumber(txtPressRef, s.UI_PressRef);
    ShowNumber(txtAtmPress, s.UI_AtmPress);
    SelectUnit(cboPressUnit, s.UI_RangePUnit);
    SelectUnit(cboAtmPressUnit, s.UI_AtmPressUnit);
    SelectUnit(cboPressRefUnit, s.UI_PressRefUnit);
}

bool ctlOperatingRangeSatSteam::TestPressure(int step, QLineEdit* box, QComboBox* unitList,
                                             double& standard) {
    // Without a unit there is nothing to compare: the standard value stays, and the missing
    // selection is refused after the calculation.
    const auto unit = SelectedUnit(unitList);
    if (!unit) return true;
    const double value = BoxNumber(box);
    // A gauge value is compared as it stands, without the atmospheric pressure.
    const double kPa = qdf::PressureCodeToKPa(value, *unit);
    if (kPa >= kLowKPa && kPa <= kHighKPa) {
        standard = qdf::PressureCodeToStandard(value, *unit, store_->UI_AtmPressStandard);
        return true;
    }
    const bool kPaLower = step == kLower && (*unit == 0 || *unit == 3);
    return AskToKeep(RangeQuestion(static_cast<Step>(step), *unit), box,
                     kPaLower ? qdf::kAskDefaultYes : qdf::kAskDefaultNo);
}

void ctlOperatingRangeSatSteam::cmdNext_Click() {
    if (!store_) return;
    qdf::clsExGlobalVars& s = *store_;
    const std::string kNotANumber = "Please enter a number";

    const auto atm =
        RequireNumber(txtAtmPress, "Please fill out atmospheric pressure value", kNotANumber, true);
    if (!atm) return;
    if (const auto unit = SelectedUnit(cboAtmPressUnit))
        s.UI_AtmPressStandard = qdf::PressureCodeToStandard(*atm, *unit, 0.0);

    const auto p1 =
        RequireNumber(txtPress1, "Please fill out minimum pressure value", kNotANumber, true);
    if (!p1) return;
    if (!TestPressure(kLower, txtPress1, cboPressUnit, s.UI_RangeP1Standard)) return;

    const auto p2 = RequireNumber(txtPress2, kNotANumber, kNotANumber, true);
    if (!p2) return;
    if (!(*p2 > *p1))
        return RefuseSelecting(
            "The value of minimum pressure value must be less than the maximum pressure value",
            txtPress1);
    if (!TestPressure(kUpper, txtPress2, cboPressUnit, s.UI_RangeP2Standard)) return;

    const auto pRef =
        RequireNumber(txtPressRef, "Please fill out reference pressure value", kNotANumber, true);
    if (!pRef) return;
    if (!TestPressure(kReference, txtPressRef, cboPressRefUnit, s.UI_PressRefStandard)) return;

    // A list without a selection keeps its stored code; it is refused below.
    s.UI_RangeP1 = *p1;
    s.UI_RangeP2 = *p2;
    s.UI_AtmPress = *atm;
    if (const auto u = SelectedUnit(cboAtmPressUnit)) s.UI_AtmPressUnit = *u;
    if (const auto u = SelectedUnit(cboPressUnit)) s.UI_RangePUnit = *u;
    s.UI_PressRef = *pRef;
    if (const auto u = SelectedUnit(cboPressRefUnit)) s.UI_PressRefUnit = *u;

    const bool calculated = RunRangeCalculation(
        s, kTitleWarning,
        [this](const std::string& title, const std::string& text) { Notify(title, text); });
    if (!calculated) return;

    // The lists are tested after the calculation on purpose: it has run by the time they refuse.
    if (!SelectedUnit(cboPressUnit))
        return Refuse("Please make a selection for static pressure unit", cboPressUnit);
    if (!SelectedUnit(cboAtmPressUnit))
        return Refuse("Please make a selection for atmospheric pressure unit", cboAtmPressUnit);
    if (!SelectedUnit(cboPressRefUnit))
        return Refuse("Please make a selection for reference static pressure unit",
                      cboPressRefUnit);

    GoForward("ctlOperatingRangeSatSteam", "ctlPhysicalPropertySetup");
}

void ctlOperatingRangeSatSteam::cmdBack_Click() {
    // The page was entered without a stack entry, so Back goes straight to the fluid page.
    if (Main()) Main()->SwitchToFluidSetup();
}
