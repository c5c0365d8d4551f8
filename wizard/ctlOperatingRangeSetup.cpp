#include "ctlOperatingRangeSetup.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <string_view>
#include <type_traits>
#include <utility>

#include "CodeTables.h"
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

constexpr const char* kEnterNumber = "Please enter a number";

// Validity ranges of the property methods: pressure in kPa abs, temperature in K, inclusive.
struct MethodRange {
    std::string_view name;
    double kPaLow, kPaHigh, kelvinLow, kelvinHigh;
};
constexpr MethodRange kWaterRange = {"Pressurised Water", 0.61121, 100000, 273.15, 2273.15};
constexpr MethodRange kMethodRanges[] = {
    {"Superheated and Saturated Steam", 0.61121, 100000, 273.15, 2273.15},
    {"AGA8 Detail Characterization Method", 0.0000005, 275000, 0, 10000},
    {"AGA8 Gross Characterization Method 1", 0.0000005, 12000, 263, 338},
    {"AGA8 Gross Characterization Method 2", 0.0000005, 12000, 263, 338},
    {"ISO12213 molar-composition analysis", 0.0000005, 65000, 225, 350},
    {"ISO12213 physical properties", 0.0000005, 12000, 250.15, 338.15},
};

constexpr std::int32_t kCategoryWater = 2;
constexpr std::int32_t kCategoryDippr = 6;
constexpr std::int32_t kCategoryCustomGas = 7;
constexpr std::int32_t kKgPerM3 = 92;

bool Inside(double v, const std::pair<double, double>& range) {
    return v >= range.first && v <= range.second;
}

bool IsPsi(std::int32_t code) {
    return code == 2 || code == 5;
}

// Runs a table routine under the numeric failure path.
}  // namespace

ctlOperatingRangeSetup::ctlOperatingRangeSetup(QWidget* parent) : ctlPage(parent) {
    setObjectName(QStringLiteral("ctlOperatingRangeSetup1"));
    auto* grid = new QGridLayout(this);
    AddAutoSequence(grid, 5, QStringLiteral("lblOperatingRange"));

    auto* right = new QVBoxLayout;
    auto* title = new QLabel(QStringLiteral("FLUID OPERATING RANGE SETUP"), this);
    title->setObjectName(QStringLiteral("lblTitle"));
    right->addWidget(title);

    auto* fluid = new QGridLayout;
    lblOperatingRangeCat = new QLabel(this);
    lblOperatingRangeCat->setObjectName(QStringLiteral("lblOperatingRangeCat"));
    lblOperatingRangeSetupMethod = new QLabel(this);
    lblOperatingRangeSetupMethod->setObjectName(QStringLiteral("lblOperatingRangeSetupMethod"));
    fluid->addWidget(Caption(this, "Fluid Category:"), 0, 0);
    fluid->addWidget(lblOperatingRangeCat, 0, 1);
    fluid->addWidget(Caption(this, "Fluid Name / Method:"), 1, 0);
    fluid->addWidget(lblOperatingRangeSetupMethod, 1, 1);
    fluid->setColumnStretch(1, 1);
    right->addLayout(fluid);

    auto* range = new QGroupBox(QStringLiteral("Range"), this);
    range->setObjectName(QStringLiteral("fraRange"));
    auto* r = new QGridLayout(range);
    txtPress1 = NumberBox(range, "txtPress1");
    txtPress2 = NumberBox(range, "txtPress2");
    cboPressUnit = UnitList(range, "cboPressUnit");
    txtAtmPress = NumberBox(range, "txtAtmPress");
    cboAtmPressUnit = UnitList(range, "cboAtmPressUnit");
    txtTemp1 = NumberBox(range, "txtTemp1");
    txtTemp2 = NumberBox(range, "txtTemp2");
    cboTempUnit = UnitList(range, "cboTempUnit");
    for (QLineEdit* box : {txtPress1, txtPress2, txtAtmPress, txtTemp1, txtTemp2})
        box->setMinimumWidth(90);
    r->addWidget(Caption(range, "Static Pressure:"), 0, 0);
    r->addWidget(txtPress1, 0, 1);
    r->addWidget(Caption(range, "to"), 0, 2, Qt::AlignCenter);
    r->addWidget(txtPress2, 0, 3);
    r->addWidget(cboPressUnit, 0, 4);
    r->addWidget(Caption(range, "Atmospheric Pressure"), 1, 0);
    r->addWidget(txtAtmPress, 1, 1);
    r->addWidget(cboAtmPressUnit, 1, 4);
    r->addWidget(Caption(range, "(valid only if gauge is selected)"), 2, 1, 1, 4);
    r->addWidget(Caption(range, "Temperature"), 3, 0);
    r->addWidget(txtTemp1, 3, 1);
    r->addWidget(Caption(range, "to"), 3, 2, Qt::AlignCenter);
    r->addWidget(txtTemp2, 3, 3);
    r->addWidget(cboTempUnit, 3, 4);
    r->setColumnStretch(5, 1);
    right->addWidget(range);

    auto* reference =
        new QGroupBox(QStringLiteral("Reference Conditions (Standard or Normal)"), this);
    reference->setObjectName(QStringLiteral("fraReference"));
    auto* f = new QGridLayout(reference);
    txtPressRef = NumberBox(reference, "txtPressRef");
    cboPressRefUnit = UnitList(reference, "cboPressRefUnit");
    txtTempRef = NumberBox(reference, "txtTempRef");
    cboTempRefUnit = UnitList(reference, "cboTempRefUnit");
    f->addWidget(Caption(reference, "Pressure:"), 0, 0);
    f->addWidget(txtPressRef, 0, 1);
    f->addWidget(cboPressRefUnit, 0, 2);
    f->addWidget(Caption(reference, "Temperature:"), 1, 0);
    f->addWidget(txtTempRef, 1, 1);
    f->addWidget(cboTempRefUnit, 1, 2);
    txtPressRef->setMinimumWidth(90);
    txtTempRef->setMinimumWidth(90);
    f->setColumnStretch(3, 1);
    right->addWidget(reference);
    right->addStretch();
    grid->addLayout(right, 0, 1);
    grid->setColumnStretch(1, 1);

    cmdNext = AddPageButtons(grid, QStringLiteral("cmdNext"), QStringLiteral("Next >"),
                             [this] { cmdNext_Click(); });
}

qdf::clsExGlobalVars* ctlOperatingRangeSetup::Initialize(qdf::clsExGlobalVars* store) {
    ctlPage::Initialize(store);
    if (!store_) return store_;
    ShowLabels();
    LoadStaticLists();
    LoadFromStore();
    return store_;
}

void ctlOperatingRangeSetup::UpdateImportedVars() {
    if (!store_) return;
    ShowLabels();
    LoadFromStore();
    StartBlink();
}

void ctlOperatingRangeSetup::ClearLists() {
    for (QComboBox* list :
         {cboPressUnit, cboAtmPressUnit, cboTempUnit, cboPressRefUnit, cboTempRefUnit})
        list->clear();
}

void ctlOperatingRangeSetup::ShowLabels() {
    lblOperatingRangeSetupMethod->setText(
        QString::fromStdString(store_->Gbl_OperatingRangeSetupMethod));
    lblOperatingRangeCat->setText(QString::fromStdString(store_->Gbl_OperatingRangeSetupCategory));
}

void ctlOperatingRangeSetup::LoadStaticLists() {
    const std::string& location = store_->strCorvanePCLocation;
    FillUnitList(cboPressUnit, kProcessPressureUnitList, location);
    // Atmospheric and reference pressure are always absolute.
    FillUnitList(cboAtmPressUnit, kAbsolutePressureUnitList, location);
    FillUnitList(cboPressRefUnit, kAbsolutePressureUnitList, location);
    FillUnitList(cboTempUnit, kTemperatureUnitList, location);
    FillUnitList(cboTempRefUnit, kTemperatureUnitList, location);
}

void ctlOperatingRangeSetup::LoadFromStore() {
    // A gauge reference pressure from an older configuration is refused and cleared first, so
    // the box below shows what is left.
    if (Main()) Main()->CheckCompatible();
    const qdf::clsExGlobalVars& s = *store_;
    ShowNumber(txtPress1, s.UI_RangeP1);
    ShowNumber(txtPress2, s.UI_RangeP2);
    ShowNumber(txtTemp1, s.UI_RangeT1);
    ShowNumber(txtTemp2, s.UI_RangeT2);
    ShowNumber(txtPressRef, s.UI_PressRef);
    ShowNumber(txtTempRef, s.UI_TempRef);
    txtAtmPress->setText(QString::fromStdString(qdf::NumToText(s.UI_AtmPress)));
    SelectUnit(cboPressUnit, s.UI_RangePUnit);
    SelectUnit(cboAtmPressUnit, s.UI_AtmPressUnit);
    SelectUnit(cboTempUnit, s.UI_RangeTUnit);
    SelectUnit(cboPressRefUnit, s.UI_PressRefUnit);
    SelectUnit(cboTempRefUnit, s.UI_TempRefUnit);
}

ctlOperatingRangeSetup::Limits ctlOperatingRangeSetup::MethodLimits() const {
    const qdf::clsExGlobalVars& s = *store_;
    Limits limits;
    if (s.UI_FluidCat == kCategoryCustomGas) return limits;
    if (s.UI_FluidCat == kCategoryDippr) {
        limits.dippr = true;
        double low = 0.0, high = 0.0;
        // The fluid page offers only names of the table; one that is not there has no limit.
        if (qdf::CompoundTables().FindGasLimits(s.UI_FluidName, low, high))
            limits.kelvin = std::pair(low, high);
        return limits;
    }
    const MethodRange* method = nullptr;
    if (s.UI_FluidCat == kCategoryWater) {
        method = &kWaterRange;
    } else {
        for (const MethodRange& m : kMethodRanges)
            if (m.name == s.UI_FluidName) method = &m;
    }
    if (method) {
        limits.kPa = std::pair(method->kPaLow, method->kPaHigh);
        limits.kelvin = std::pair(method->kelvinLow, method->kelvinHigh);
    }
    return limits;
}

std::string ctlOperatingRangeSetup::PressureRangeText(Bound bound, std::int32_t code,
                                                      const std::pair<double, double>& kPa) {
    std::string_view before;
    switch (bound) {
        case Bound::Lower:
            before = IsPsi(code) ? "The valid range of lower bound pressure value is between  "
                                 : "The valid range of lower bound pressure value is between ";
            break;
        case Bound::Upper:
            before = "The valid range of upper bound pressure value is between ";
            break;
        default:
            before = "The valid range of reference pressure value is between ";
            break;
    }
    const std::string after = " " + qdf::CodeToText(qdf::kProcessPressureUnits, code) +
                              ". Do you still want to use this value?";
    return RangeText(before, KPaToPressureUnit(kPa.first, code), " and ",
                     KPaToPressureUnit(kPa.second, code), after);
}

std::string ctlOperatingRangeSetup::TemperatureRangeText(Bound bound, std::int32_t code,
                                                         const std::pair<double, double>& kelvin,
                                                         bool dippr) {
    std::string_view before;
    switch (bound) {
        case Bound::Lower:
            before = "The valid range of lower bound temperature value is between ";
            break;
        case Bound::Upper:
            before = "The valid range of upper bound temperature value is between ";
            break;
        default:
            before = "The valid range of reference temperature value is between ";
            break;
    }
    const bool degC = code == qdf::kHartDegC;
    const std::string_view between = dippr || (degC && bound != Bound::Upper) ? " and  " : " and ";
    std::string_view after = " Kelvin";
    if (degC)
        after = " deg C";
    else if (code == qdf::kHartDegF)
        after = " deg F";
    else if (bound == Bound::Reference)
        after = " K";
    return RangeText(before, KelvinToTemperatureUnit(kelvin.first, code), between,
                     KelvinToTemperatureUnit(kelvin.second, code), after);
}

bool ctlOperatingRangeSetup::TestPressure(const Limits& limits, Bound bound, QLineEdit* box,
                                          double value, const QComboBox* unitList,
                                          double& standard) {
    const auto unit = SelectedUnit(unitList);
    if (!unit) return true;
    // A gauge value is compared as it stands against the absolute limits.
    if (!limits.kPa || Inside(qdf::PressureCodeToKPa(value, *unit), *limits.kPa)) {
        standard = qdf::PressureCodeToStandard(value, *unit, store_->UI_AtmPressStandard);
        return true;
    }
    // Yes keeps the entry but not its standard value: the one of an earlier Next stays.
    return AskToKeep(PressureRangeText(bound, *unit, *limits.kPa), box);
}

bool ctlOperatingRangeSetup::TestTemperature(const Limits& limits, Bound bound, QLineEdit* box,
                                             double value, const QComboBox* unitList,
                                             double& standard) {
    const auto unit = SelectedUnit(unitList);
    if (!unit) return true;
    const double kelvin = qdf::TemperatureCodeToStandard(value, *unit);
    if (!limits.kelvin || Inside(kelvin, *limits.kelvin)) {
        standard = kelvin;
        return true;
    }
    RefuseSelecting(TemperatureRangeText(bound, *unit, *limits.kelvin, limits.dippr), box);
    return false;
}

std::optional<ctlOperatingRangeSetup::Entries> ctlOperatingRangeSetup::Validate(
    const Limits& limits) {
    qdf::clsExGlobalVars& s = *store_;
    Entries e{};

    const auto atm = RequireNumber(txtAtmPress, "Please fill out atmospheric pressure value",
                                   kEnterNumber, true);
    if (!atm) return std::nullopt;
    e.atm = *atm;
    if (const auto unit = SelectedUnit(cboAtmPressUnit))
        s.UI_AtmPressStandard = qdf::PressureCodeToStandard(e.atm, *unit, 0.0);

    const auto p1 =
        RequireNumber(txtPress1, "Please fill out minimum pressure value", kEnterNumber, true);
    if (!p1) return std::nullopt;
    e.p1 = *p1;
    if (!TestPressure(limits, Bound::Lower, txtPress1, e.p1, cboPressUnit, s.UI_RangeP1Standard))
        return std::nullopt;

    // An empty maximum gets the same words as a bad one.
    if (!BoxIsNumber(txtPress2)) {
        RefuseSelecting(kEnterNumber, txtPress2);
        return std::nullopt;
    }
    e.p2 = BoxNumber(txtPress2);
    if (!(e.p2 > e.p1)) {
        RefuseSelecting(
            "The value of minimum pressure value must be less than the maximum pressure value",
            txtPress1);
        return std::nullopt;
    }
    if (!TestPressure(limits, Bound::Upper, txtPress2, e.p2, cboPressUnit, s.UI_RangeP2Standard))
        return std::nullopt;

    const auto t1 =
        RequireNumber(txtTemp1, "Please fill out minimum temperature value", kEnterNumber, true);
    if (!t1) return std::nullopt;
    e.t1 = *t1;
    if (!TestTemperature(limits, Bound::Lower, txtTemp1, e.t1, cboTempUnit, s.UI_RangeT1Standard))
        return std::nullopt;

    if (!BoxIsNumber(txtTemp2)) {
        RefuseSelecting(kEnterNumber, txtTemp2);
        return std::nullopt;
    }
    e.t2 = BoxNumber(txtTemp2);
    if (!(e.t2 > e.t1)) {
        RefuseSelecting(
            "The value of minimum temperature value must be less than the maximum "
            "temperature value",
            txtTemp1);
        return std::nullopt;
    }
    if (!TestTemperature(limits, Bound::Upper, txtTemp2, e.t2, cboTempUnit, s.UI_RangeT2Standard))
        return std::nullopt;

    const auto pRef =
        RequireNumber(txtPressRef, "Please fill out reference pressure value", kEnterNumber, true);
    if (!pRef) return std::nullopt;
    e.pRef = *pRef;
    if (!TestPressure(limits, Bound::Reference, txtPressRef, e.pRef, cboPressRefUnit,
                      s.UI_PressRefStandard))
        return std::nullopt;

    const auto tRef = RequireNumber(txtTempRef, "Please fill out reference temperature value",
                                    kEnterNumber, true);
    if (!tRef) return std::nullopt;
    e.tRef = *tRef;
    if (!TestTemperature(limits, Bound::Reference, txtTempRef, e.tRef, cboTempRefUnit,
                         s.UI_TempRefStandard))
        return std::nullopt;
    return e;
}

void ctlOperatingRangeSetup::StoreEntries(const Entries& e) {
    qdf::clsExGlobalVars& s = *store_;
    // A list without a selection leaves its code alone; the refusal for it follows the
    // calculation.
    auto storeUnit = [](const QComboBox* list, auto& member) {
        if (const auto code = SelectedUnit(list))
            member = static_cast<std::remove_reference_t<decltype(member)>>(*code);
    };
    s.UI_RangeP1 = e.p1;
    s.UI_RangeP2 = e.p2;
    s.UI_AtmPress = e.atm;
    storeUnit(cboAtmPressUnit, s.UI_AtmPressUnit);
    s.UI_RangeT1 = e.t1;
    s.UI_RangeT2 = e.t2;
    storeUnit(cboPressUnit, s.UI_RangePUnit);
    storeUnit(cboTempUnit, s.UI_RangeTUnit);
    s.UI_PressRef = e.pRef;
    s.UI_TempRef = e.tRef;
    storeUnit(cboPressRefUnit, s.UI_PressRefUnit);
    storeUnit(cboTempRefUnit, s.UI_TempRefUnit);
}

bool ctlOperatingRangeSetup::Calculate() {
    qdf::clsExGlobalVars& s = *store_;
    if (!s.UI_ChemID.empty()) {
        // Custom tables: no driver. The stages' results are not asked for; the user's own
        // tables on the next page are what gets fitted.
        qdf::CalcDischargeCoefficient(s);
        qdf::CalcGasExpansionGrid(s);
        PrepareDensityGrid(s);
        PrepareViscosityTemperatures(s);
        ConvertDensityGrid(s);
        ConvertReferenceDensity(s);
        ConvertViscosityTable(s);
        return true;
    }
    if (qdf::RunCalculation(s) != 0) {
        Notify(qdf::kTitleInformation,
               "There exists calculation error with the given input of pressure and temperature. "
               "Please fill out another value");
        return false;
    }
    if (s.Gbl_ErrorCode == 890 && s.Gbl_ErrorSubCode == 5) {
        // A two-phase point is a warning only: the tables stand.
        Notify(qdf::kTitleInformation, s.Gbl_ErrorMessage);
        s.Gbl_ErrorCode = qdf::kNotEntered;
        s.Gbl_ErrorSubCode = qdf::kNotEntered;
    }
    if (s.Gbl_ErrorCode == 600 && s.Gbl_ErrorSubCode == 1) {
        s.Gbl_ErrorCode = qdf::kNotEntered;
        s.Gbl_ErrorSubCode = qdf::kNotEntered;
    }
    return true;
}

bool ctlOperatingRangeSetup::UnitsSelected() {
    const std::pair<QComboBox*, const char*> lists[] = {
        {cboPressUnit, "Please make a selection for static pressure unit"},
        {cboAtmPressUnit, "Please make a selection for atmospheric pressure unit"},
        {cboTempUnit, "Please make a selection for temperature unit"},
        {cboPressRefUnit, "Please make a selection for reference static pressure unit"},
        {cboTempRefUnit, "Please make a selection for reference temperature unit"},
    };
    for (const auto& [list, text] : lists) {
        if (!SelectedUnit(list)) {
            Refuse(text, list);
            return false;
        }
    }
    return true;
}

void ctlOperatingRangeSetup::cmdNext_Click() {
    if (!store_) return;
    const auto entries = Validate(MethodLimits());
    if (!entries) return;
    StoreEntries(*entries);
    if (!Calculate()) return;
    // The units are asked for after the calculation, which has run with whatever was stored.
    if (!UnitsSelected()) return;
    GoForward("ctlOperatingRangeSetup", "ctlPhysicalPropertySetup");
}

void ctlOperatingRangeSetup::cmdBack_Click() {
    GoBack({"ctlNaturalGasSetupAga", "ctlNaturalGasSetupGross1", "ctlNaturalGasSetupGross2",
            "ctlNaturalGasSetupISO", "ctlFluidSetup"});
}

// ---- Tables for custom data ----

std::int32_t ctlOperatingRangeSetup::PrepareDensityGrid(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        const std::int32_t nT = s.Mgt_GasDensTempDiv;
        const std::int32_t nP = s.Mgt_GasDensPressDiv;
        const auto t = qdf::numeric::AscendingAxis(s.UI_RangeT1, s.UI_RangeT2, nT);
        const auto p = qdf::numeric::AscendingAxis(s.UI_RangeP1, s.UI_RangeP2, nP);
        std::int32_t k = 0;
        for (std::int32_t i = 0; i < nT; ++i) {
            for (std::int32_t j = 0; j < nP; ++j, ++k) {
                const double press = p.start + j * p.step;
                s.UI_DensAbsPress[k] = press;
                s.UI_DensAbsPressStandard[k] =
                    qdf::PressureCodeToStandard(press, s.UI_RangePUnit, s.UI_AtmPressStandard);
                s.UI_DensTemp[k] = t.start + i * t.step;
            }
        }
    });
}

std::int32_t ctlOperatingRangeSetup::PrepareViscosityTemperatures(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        // The step comes from the gas count and the loop from the liquid count, as the tables
        // in use were made.
        const auto t = qdf::numeric::AscendingAxis(s.UI_RangeT1, s.UI_RangeT2, s.Mgt_GasVisTempDiv);
        for (std::int32_t i = 0; i < s.Mgt_LqdVisTempDiv; ++i)
            s.UI_ViscTemp[i] = t.start + i * t.step;
    });
}

std::int32_t ctlOperatingRangeSetup::ConvertDensityGrid(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        const std::int32_t n = s.Mgt_GasDensTempDiv * s.Mgt_GasDensPressDiv;
        for (std::int32_t k = 0; k < n; ++k) {
            if (s.UI_DensUnit == kKgPerM3) {
                s.UI_DensStandard[k] = s.UI_Dens[k];
                continue;
            }
            double value = qdf::numeric::Checked(qdf::LbFt3ToKgM3(s.UI_Dens[k]));
            // Only an entry of exactly 1 goes through the rounding format; the others stay
            // unrounded.
            if (value == 1.0)
                value =
                    qdf::ParseNumber(qdf::FormatNumber(value, "####0.########")).value_or(value);
            s.UI_DensStandard[k] = value;
        }
    });
}

std::int32_t ctlOperatingRangeSetup::ConvertReferenceDensity(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        if (s.UI_RefDensValue == qdf::kNotEntered) return;
        if (s.UI_DensUnit == kKgPerM3) {
            s.UI_RefDensValueStandard = s.UI_RefDensValue;
            return;
        }
        const double value = qdf::numeric::Checked(qdf::LbFt3ToKgM3(s.UI_RefDensValue));
        s.UI_RefDensValueStandard =
            qdf::ParseNumber(qdf::FormatNumber(value, "###0.########")).value_or(value);
    });
}

std::int32_t ctlOperatingRangeSetup::ConvertViscosityTable(qdf::clsExGlobalVars& s) {
    return Guarded([&] {
        for (std::int32_t i = 0; i < s.Mgt_GasVisTempDiv; ++i)
            s.UI_ViscStandard[i] =
                s.UI_ViscUnit == 0 ? s.UI_Visc[i] : qdf::LbFtSToPaS(s.UI_Visc[i]);
    });
}
