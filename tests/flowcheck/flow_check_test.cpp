// The flow check: the device equation against the reference, the split of the error into its
// sources, read-back from device data, the applicability list and the examples' worst errors.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <map>
#include <sstream>
#include <string>

#include "CheckInput.h"
#include "DeviceEquation.h"
#include "FlowCheck.h"
#include "FlowEquation.h"
#include "ReferenceFlow.h"
#include "clsExGlobalVars.h"

namespace qdf::flowcheck {
namespace {

std::string Example(const std::string& name) {
    return std::string(QDF_SOURCE_DIR) + "/examples/" + name + ".qmv";
}

// The HART parameters a download of the store writes (reference temperatures in K).
std::map<std::string, double> HartValues(const clsExGlobalVars& s) {
    std::map<std::string, double> v;
    char name[32];
    for (int i = 0; i < 5; ++i) v["discharge_coef_" + std::to_string(i)] = s.Xmtr_DisCoeff[i];
    for (int i = 0; i < 3; ++i) v["expansion_fact_coef_" + std::to_string(i)] = s.Xmtr_ExpFac[i];
    for (int i = 0; i < 4; ++i) v["viscosity_coef_" + std::to_string(i)] = s.Xmtr_VisCoeff[i];
    for (int i = 0; i < 12; ++i) {
        std::snprintf(name, sizeof name, "density_coef_%02d", i);
        v[name] = s.Xmtr_DensCoeff[i];
    }
    v["primary_device"] = s.Xmtr_PDCode;
    v["fluid_type"] = s.Xmtr_FluidTypeCode;
    v["density_unit"] = s.Xmtr_DensUnitCode;
    v["length_units"] = s.Xmtr_LenUnitCode;
    v["et_units"] = 35;
    v["factor_alpha_small_d"] = s.Xmtr_PriDevTherExpFac;
    v["factor_alpha_large_d"] = s.Xmtr_PipeTherExpFac;
    v["small_d_r"] = s.Xmtr_Smalld;
    v["large_d_r"] = s.Xmtr_BigD;
    v["t_small_d_r"] = s.UI_PETempStandard;
    v["t_large_d_r"] = s.UI_PEPipeTempStandard;
    return v;
}

class FlowCheckTest : public ::testing::Test {
  protected:
    void SetUp() override {
        logDir_ = std::filesystem::temp_directory_path() /
                  ("qdf_flowcheck_" + std::to_string(::getpid()));
        std::filesystem::create_directories(logDir_);
        ::setenv("QDF_LOG_DIR", logDir_.c_str(), 1);
    }
    void TearDown() override {
        std::error_code ec;
        std::filesystem::remove_all(logDir_, ec);
    }
    FlowCheckResult Check(const DeviceParameters& p, double dpMaxKPa = 25.0) {
        FlowCheckOptions o;
        o.dpMaxPa = dpMaxKPa * 1000.0;
        return RunFlowCheck(s, p, o);
    }
    void Load(const std::string& name) { LoadConfigurationForCheck(s, Example(name)); }

    clsExGlobalVars s;
    std::filesystem::path logDir_;
};

// Catches a device equation that reads its diameters, reference temperatures or units other
// than the reference does: fed the reference's own density, viscosity, C and eps, the device
// side must give the reference flow to the last bits.
TEST_F(FlowCheckTest, DeviceEquationIsTheReferenceWhenFedItsQuantities) {
    Load("ethane_orifice");
    const DeviceEquation dev(ParametersFromStore(s));
    ReferenceModel ref(s);
    for (double t : {300.0, 331.0, 360.0}) {
        for (double p : {5e5, 1.2e6, 2e6}) {
            const ReferenceProperties props = ref.Properties(t, p);
            ASSERT_TRUE(props.ok);
            for (double dp : {250.0, 25000.0}) {
                FlowInputs in;
                in.dpPa = dp;
                in.density = props.density;
                in.viscosity = props.viscosity;
                in.expansion = ref.Expansion(dp / p, props.kappa, t);
                in.boreM = dev.Bore(t);
                in.pipeM = dev.Pipe(t);
                in.discharge = ref.Discharge(t);
                const double q = ref.Flow(dp, p, t).massFlow;
                EXPECT_NEAR(SolveMassFlow(in).massFlow / q - 1.0, 0.0, 1e-13) << t << " " << p;
            }
        }
    }
    // The fits pass through the calculation's nodes; the device's own forms must too.
    for (int k = 0; k < s.Mgt_GasDensDiv; ++k)
        EXPECT_NEAR(dev.Density(s.UI_DensTempStandard[k], s.UI_DensAbsPressStandard[k]) /
                        s.UI_DensStandard[k],
                    1.0, 1e-9)
            << k;
    for (int k = 0; k < s.Mgt_GasVisTempDiv; ++k)
        EXPECT_NEAR(dev.Viscosity(s.UI_ViscTempStandard[k]) / s.UI_ViscStandard[k], 1.0, 1e-9);
}

// Catches a flow solved at the wrong Re: the solution must satisfy its own equation.
TEST(SolveMassFlow, FlowAndReynoldsAreConsistent) {
    FlowInputs in;
    in.dpPa = 1000.0;
    in.density = 10.0;
    in.viscosity = 1e-5;
    in.boreM = 0.05;
    in.pipeM = 0.1;
    in.discharge.kind = DischargeLaw::Kind::Standard;
    in.discharge.code = 3;
    in.discharge.beta = 0.5;
    in.discharge.pipeMm = 100.0;
    const FlowSolution f = SolveMassFlow(in);
    const double pi = 3.14159265358979323846;
    EXPECT_NEAR(f.reynolds, 4 * f.massFlow / (pi * 1e-5 * 0.1), 1e-6 * f.reynolds);
    const double c = StandardDischargeCoefficient(3, 0.5, 100.0, f.reynolds);
    EXPECT_NEAR(f.massFlow,
                c / std::sqrt(1 - 0.0625) * pi / 4 * 0.0025 * std::sqrt(2 * 1000.0 * 10.0), 1e-14);
    in.density = -1.0;
    EXPECT_TRUE(std::isnan(SolveMassFlow(in).massFlow));
}

struct Injection {
    const char* name;
    std::function<void(std::map<std::string, double>&)> change;
    Source source;
    double lowest;  // the smallest |worst error| the change must cause
};

// Catches a source of error blamed on the wrong part, or one that goes unnoticed: each change
// alone must raise the worst error and be named the main source.
TEST_F(FlowCheckTest, EachInjectedErrorIsFoundAndAttributed) {
    Load("ethane_orifice");
    const FlowCheckResult base = Check(ParametersFromDevice(HartValues(s), "HART"));
    const Injection cases[] = {
        {"density coefficients +0.3 %",
         [](auto& v) {
             for (auto& [name, value] : v)
                 if (name.starts_with("density_coef_")) value *= 1.003;
         },
         Source::Density, 0.001},
        {"dropped discharge term C2", [](auto& v) { v["discharge_coef_2"] = 0.0; },
         Source::Discharge, 0.001},
        {"density unit lb/ft3", [](auto& v) { v["density_unit"] = 94; }, Source::Density, 2.0},
        {"length unit mm", [](auto& v) { v["length_units"] = 49; }, Source::Thermal, 0.9},
        {"reference temperatures read in deg C", [](auto& v) { v["et_units"] = 32; },
         Source::Thermal, 0.005},
        {"viscosity ten times",
         [](auto& v) {
             for (int i = 0; i < 4; ++i) v["viscosity_coef_" + std::to_string(i)] *= 10.0;
         },
         Source::Viscosity, 0.001},
        {"expansion slope dropped", [](auto& v) { v["expansion_fact_coef_1"] = 0.0; },
         Source::Expansion, 0.001},
    };
    for (const Injection& c : cases) {
        auto values = HartValues(s);
        c.change(values);
        const FlowCheckResult r = Check(ParametersFromDevice(values, "HART"));
        EXPECT_GT(std::fabs(r.worstError), c.lowest) << c.name;
        EXPECT_EQ(r.mainSource, c.source) << c.name << ": " << SourceName(r.mainSource);
        const auto k = static_cast<std::size_t>(c.source);
        EXPECT_GT(r.worstBySource[k], base.worstBySource[k] + c.lowest / 2) << c.name;
    }
}

// Catches a parameter that was never written passing silently, and a read-back that differs
// from the set the store would write.
TEST_F(FlowCheckTest, ReadBackMatchesTheStoreAndMissingParametersFail) {
    Load("ethane_orifice");
    const FlowCheckResult fromStore = Check(ParametersFromStore(s));
    const FlowCheckResult fromHart = Check(ParametersFromDevice(HartValues(s), "HART"));
    EXPECT_EQ(fromStore.worstError, fromHart.worstError);

    std::map<std::string, double> ff;
    for (const auto& [name, value] : HartValues(s)) ff[name] = value;
    std::map<std::string, double> block;
    const std::string pre = "FLOW_TRANSDUCER_BLOCK.0.";
    for (int i = 0; i < 5; ++i)
        block[pre + "FLOW_CONFIG1.ENTRY" + std::to_string(i + 1)] = s.Xmtr_DisCoeff[i];
    for (int i = 0; i < 3; ++i)
        block[pre + "FLOW_CONFIG2.ENTRY" + std::to_string(i + 1)] = s.Xmtr_ExpFac[i];
    for (int i = 0; i < 12; ++i)
        block[pre + "FLOW_CONFIG3.ENTRY" + std::to_string(i + 1)] = s.Xmtr_DensCoeff[i];
    for (int i = 0; i < 4; ++i)
        block[pre + "FLOW_CONFIG4.ENTRY" + std::to_string(i + 1)] = s.Xmtr_VisCoeff[i];
    block[pre + "PRIMARY_DEVICE_CODE"] = 6;
    block[pre + "FLUID_TYPE_CODE"] = 2;
    block[pre + "DENSITY_UNIT_CODE"] = 1097;
    block[pre + "LENGTH_UNIT_CODE"] = 1010;
    block[pre + "EXT_TEMPERATURE_UNIT"] = 1001;
    block[pre + "PRIMARY_DEVICE_DIAMETER"] = s.Xmtr_Smalld;
    block[pre + "PIPE_DIAMETER"] = s.Xmtr_BigD;
    block[pre + "PRIMARY_DEVICE_EXPANSION_COEF"] = s.Xmtr_PriDevTherExpFac;
    block[pre + "PIPE_EXPANSION_COEF"] = s.Xmtr_PipeTherExpFac;
    block[pre + "PRIMARY_DEVICE_REF_TEMPERATURE"] = s.UI_PETempStandard - 273.15;
    block[pre + "PIPE_REF_TEMPERATURE"] = s.UI_PEPipeTempStandard - 273.15;
    const FlowCheckResult fromFf = Check(ParametersFromDevice(block, "FFH1"));
    EXPECT_NEAR(fromFf.worstError, fromStore.worstError, 1e-12);

    auto values = HartValues(s);
    values.erase("density_coef_07");
    const FlowCheckResult r = Check(ParametersFromDevice(values, "HART"));
    ASSERT_FALSE(r.applicability.empty());
    EXPECT_EQ(r.applicability.front().item, "Parameters in the device data");
    EXPECT_EQ(r.applicability.front().verdict, Verdict::Fail);
    EXPECT_EQ(r.applicability.front().value, "1 missing: density_coef_07");
}

struct ExampleCase {
    const char* file;
    double worstPercent;  // the worst error of a 25 kPa DP range, % of flow
    double tolerance;     // in percentage points
    Source main;
};

// The examples' worst errors as the check states them: a change in a fit, a formula or the
// envelope moves them. The natural gas grid of 3 x 4 points is too coarse for 1 to 14 MPa, and
// pressurised water, which takes the gas branch but no expansion fit, leaves the device an
// expansion polynomial of zero: no flow at all.
TEST_F(FlowCheckTest, ExamplesWorstErrors) {
    const ExampleCase cases[] = {
        {"ethane_orifice", 0.0482, 0.0005, Source::Density},
        {"natural_gas_aga8_detail", -1.1609, 0.005, Source::Density},
        {"superheated_steam_venturi", 0.0310, 0.0005, Source::Expansion},
        {"water_orifice", -100.0, 0.005, Source::Expansion},
        {"custom_gas", 0.0015, 0.0005, Source::Expansion},
    };
    for (const ExampleCase& c : cases) {
        clsExGlobalVars store;
        LoadConfigurationForCheck(store, Example(c.file));
        FlowCheckOptions o;
        o.dpMaxPa = 25000.0;
        const FlowCheckResult r = RunFlowCheck(store, ParametersFromStore(store), o);
        EXPECT_NEAR(r.worstError * 100.0, c.worstPercent, c.tolerance) << c.file;
        EXPECT_EQ(r.mainSource, c.main) << c.file << ": " << SourceName(r.mainSource);
        EXPECT_EQ(r.points.size(), 1000u);
        EXPECT_EQ(r.within, std::fabs(c.worstPercent) <= 0.1) << c.file;
    }
}

const ApplicabilityItem* Item(const FlowCheckResult& r, const std::string& name) {
    for (const ApplicabilityItem& a : r.applicability)
        if (a.item == name) return &a;
    return nullptr;
}

// Catches limits that never trip: each change moves its item to warn or fail with the value
// shown.
TEST_F(FlowCheckTest, ApplicabilityItemsTrip) {
    struct Case {
        const char* item;
        std::function<void(clsExGlobalVars&)> change;
        double dpMaxKPa;
        Verdict verdict;
        const char* value;
    };
    const Case cases[] = {
        {"Diameter ratio beta", [](auto&) {}, 25.0, Verdict::Pass, "0.5"},
        {"dp/p1", [](auto&) {}, 150.0, Verdict::Fail, "up to 0.3"},
        {"Temperature range, entered vs stored", [](auto& st) { st.UI_RangeT1Standard = 301.0; },
         25.0, Verdict::Fail, "300 to 360 K entered"},
        {"Pipe Reynolds number Re_D", [](auto&) {}, 0.05, Verdict::Warn, "3.34e+03 to 8.94e+04"},
    };
    for (const Case& c : cases) {
        clsExGlobalVars store;
        LoadConfigurationForCheck(store, Example("ethane_orifice"));
        c.change(store);
        FlowCheckOptions o;
        o.dpMaxPa = c.dpMaxKPa * 1000.0;
        const FlowCheckResult r = RunFlowCheck(store, ParametersFromStore(store), o);
        const ApplicabilityItem* a = Item(r, c.item);
        ASSERT_NE(a, nullptr) << c.item;
        EXPECT_EQ(a->verdict, c.verdict) << c.item;
        EXPECT_EQ(a->value, c.value) << c.item;
    }
}

// Catches saturation margins and composition ranges that are never looked at.
TEST_F(FlowCheckTest, SteamMarginAndGasComposition) {
    Load("superheated_steam_venturi");
    s.UI_RangeT1 = 480.0;  // below saturation at 4 MPa (523 K)
    FlowCheckResult r = Check(ParametersFromStore(s));
    const ApplicabilityItem* margin = Item(r, "Superheat (smallest over the envelope), K");
    ASSERT_NE(margin, nullptr);
    EXPECT_EQ(margin->verdict, Verdict::Fail);
    EXPECT_EQ(Item(r, "Grid points flagged by the libraries")->verdict, Verdict::Warn);

    clsExGlobalVars gas;
    LoadConfigurationForCheck(gas, Example("natural_gas_aga8_detail"));
    FlowCheckOptions o;
    o.dpMaxPa = 25000.0;
    r = RunFlowCheck(gas, ParametersFromStore(gas), o);
    const ApplicabilityItem* comp = Item(r, "Composition (normal range of the method)");
    ASSERT_NE(comp, nullptr);
    EXPECT_EQ(comp->verdict, Verdict::Warn);
    EXPECT_EQ(comp->value, "hydrogen sulfide 0.25 %, hexanes plus 0.351 %, helium 0.7 %");
}

// Catches bad input running on with a meaningless envelope.
TEST_F(FlowCheckTest, BadInputIsRefused) {
    Load("ethane_orifice");
    EXPECT_THROW(Check(ParametersFromStore(s), 0.0), FlowCheckError);
    s.UI_RangeTUnit = 7;
    EXPECT_THROW(Check(ParametersFromStore(s)), FlowCheckError);
    clsExGlobalVars fresh;
    EXPECT_THROW(RunFlowCheck(fresh, ParametersFromStore(fresh), {25000.0}), FlowCheckError);
    EXPECT_THROW(LoadConfigurationForCheck(fresh, Example("missing")), FlowCheckError);
    EXPECT_EQ(DpToPa(25.0, "kPa").value(), 25000.0);
    EXPECT_FALSE(DpToPa(25.0, "furlong").has_value());
}

// Catches a CSV whose rows drift from the grid order or the header.
TEST_F(FlowCheckTest, CsvHasAHeaderAndARowPerPoint) {
    Load("ethane_orifice");
    const FlowCheckResult r = Check(ParametersFromStore(s));
    std::ostringstream out;
    WriteCheckCsv(out, r);
    std::istringstream in(out.str());
    std::string header, first;
    std::getline(in, header);
    std::getline(in, first);
    EXPECT_EQ(header,
              "et_K,sp_Pa_abs,dp_Pa,reference_kg_s,device_kg_s,error_percent,density_fit_percent,"
              "viscosity_fit_percent,discharge_terms_percent,expansion_polynomial_percent,"
              "thermal_correction_percent,reynolds,dp_p1,status,computed");
    EXPECT_EQ(first.substr(0, 21), "300,500000,250,0.0688");
    std::size_t rows = 1;
    for (std::string line; std::getline(in, line);) ++rows;
    EXPECT_EQ(rows, 1000u);
}

}  // namespace
}  // namespace qdf::flowcheck
