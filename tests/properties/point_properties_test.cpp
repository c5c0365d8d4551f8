#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "../common/DataTable.h"
#include "PhysicalProp.h"
#include "PropertyFixture.h"
#include "sndl/sndl_aga.h"
#include "sndl/sndl_dippr.h"
#include "sndl/sndl_iapws.h"

namespace qdf::test {
namespace {

namespace testdata = qdf::testdata;

constexpr double kAny = std::numeric_limits<double>::quiet_NaN();  // value not checked
constexpr double kOld = -7.0;  // what the output held before the call

// One dispatch row of data/point_cases.csv: the fluid, the point, and what the user gets: the
// result, the error code left in the store and the value (within tol, relative).
struct Case {
    std::string label;
    int type, cat;
    std::string name;
    int32_t id;
    int option;  // Mgt_MtdAirGasDensityCalculation, Mgt_MtdGasVisCalc or Mgt_MtdIsenExpCalc
    double T, P;
    int32_t result, error;
    double value, tol;
};

void PrintTo(const Case& c, std::ostream* os) {
    *os << c.label;
}

std::vector<Case> Cases(const std::string& property) {
    std::vector<Case> out;
    for (const testdata::Row& r : testdata::Load("tests/properties/data/point_cases.csv")) {
        if (r.text("property") != property) continue;
        const std::string& v = r.text("value");
        const double value = v == "any"            ? kAny
                             : v == "old"          ? kOld
                             : v.starts_with("1/") ? 1 / std::stod(v.substr(2))
                                                   : r.num("value");
        out.push_back(
            {r.text("label"), r.integer("type"), r.integer("cat"), r.text("name"), r.integer("id"),
             r.integer("option"), r.num("T"), r.num("P"), r.integer("result"),
             r.text("error") == "none" ? kNotEntered : r.integer("error"), value, r.num("tol")});
    }
    return out;
}

std::string CaseName(const ::testing::TestParamInfo<Case>& info) {
    std::string n = info.param.label;
    for (char& ch : n)
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
    return n;
}

void ExpectValue(double got, const Case& c) {
    if (std::isnan(c.value)) return;
    EXPECT_NEAR(got, c.value, c.tol * std::fabs(c.value) + 1e-300) << c.label;
}

class PointTest : public PropertyTest, public ::testing::WithParamInterface<Case> {};

using DensityCase = PointTest;
TEST_P(DensityCase, Dispatch) {
    // Catches a row reaching the wrong library call, a two-phase or range failure handled
    // against its row's rule, or an output written where it must be left alone.
    const Case& c = GetParam();
    store.UI_FluidNameMethodCode = c.id;
    store.Mgt_MtdAirGasDensityCalculation = c.option;
    double d = kOld;
    EXPECT_EQ(GetDensity(store, c.type, c.cat, c.name.c_str(), c.T, d, c.P), c.result);
    EXPECT_EQ(store.Gbl_ErrorCode, c.error);
    ExpectValue(d, c);
}
INSTANTIATE_TEST_SUITE_P(Rows, DensityCase, ::testing::ValuesIn(Cases("density")), CaseName);

using ViscosityCase = PointTest;
TEST_P(ViscosityCase, Dispatch) {
    // Catches a row reaching the wrong call (liquid for steam, the caller's temperature on
    // the saturation line), a failed point not keeping its old value, or a neighbour written.
    const Case& c = GetParam();
    store.UI_FluidNameMethodCode = c.id;
    store.Mgt_MtdGasVisCalc = c.option;
    store.UI_Visc.fill(kOld);
    EXPECT_EQ(GetViscosity(store, c.type, c.cat, c.name.c_str(), c.T, 3, c.P), c.result);
    EXPECT_EQ(store.Gbl_ErrorCode, c.error);
    ExpectValue(store.UI_Visc[3], c);
    EXPECT_EQ(store.UI_Visc[2], kOld);
    EXPECT_EQ(store.UI_Visc[4], kOld);
}
INSTANTIATE_TEST_SUITE_P(Rows, ViscosityCase, ::testing::ValuesIn(Cases("viscosity")), CaseName);

using IsentropicCase = PointTest;
TEST_P(IsentropicCase, Dispatch) {
    // Catches an entered exponent overwritten for liquids or custom gases, the constant
    // missing for gross methods, or a wrong gas constant.
    const Case& c = GetParam();
    store.UI_FluidNameMethodCode = c.id;
    store.Mgt_MtdIsenExpCalc = c.option;
    store.UI_IsenExpValue = kOld;
    EXPECT_EQ(GetIsentropicExponent(store, c.type, c.cat, c.name.c_str(), c.T, c.P), c.result);
    EXPECT_EQ(store.Gbl_ErrorCode, c.error);
    ExpectValue(store.UI_IsenExpValue, c);
}
INSTANTIATE_TEST_SUITE_P(Rows, IsentropicCase, ::testing::ValuesIn(Cases("isentropic")), CaseName);

// The gas of the AGA8 property examples, mole per cent in Y21 order.
constexpr double kExampleGas[21] = {77.824, 2.0,   6.0,   8.0,   3.0,   0.01, 0.25,
                                    0.4,    0.2,   0.5,   0.15,  0.3,   0.05, 0.165,
                                    0.215,  0.088, 0.024, 0.015, 0.009, 0.7,  0.1};
// ISO 12213 example gas 1.
constexpr double kIsoGas[21] = {96.5, 0.3,  0.6,  1.8,  0.45, 0, 0, 0, 0, 0, 0.1,
                                0.1,  0.05, 0.03, 0.07, 0,    0, 0, 0, 0, 0};

void SetComposition(clsExGlobalVars& s, const double (&percent)[21]) {
    const auto members = s.DetailMoles();
    for (int k = 0; k < 21; ++k) *members[k] = percent[k];
}

using NaturalGasTest = PropertyTest;

TEST_F(NaturalGasTest, EachMethodReproducesPublishedDensities) {
    // Catches a method calling the wrong operation or mixing up heating value, relative
    // density and the gross vectors. Values: AGA8 property examples, ISO 12213 example gas 1.
    SetComposition(store, kExampleGas);
    const double T60F = 288.7055555556, P150psia = 1034213.5939752;
    double d = 0, mw = 0;
    EXPECT_EQ(GetDensity(store, 2, 4, kAga8Detail, 310.9277777778, d, 13789514.586336), 0);
    EXPECT_NEAR(d, 141.0197, 141.0197 * 2e-5);
    EXPECT_NEAR(store.Y21[0], 0.77824, 1e-15);
    EXPECT_EQ(GetMolecularWeight(store, 2, 4, kAga8Detail, mw, 300, 5e6), 0);
    EXPECT_NEAR(mw, 20.54333051, 1e-6);

    store.UI_VgHvStandard = 39.25453495;
    store.UI_RgRelDens = 0.710973;
    LoadGross1Vector(store, 6.0, 0.0, 0.0);
    EXPECT_EQ(GetDensity(store, 2, 4, kAga8Gross1, T60F, d, P150psia), 0);
    EXPECT_NEAR(d, 9.111879, 9.111879 * 2e-5);
    EXPECT_EQ(GetMolecularWeight(store, 2, 4, kAga8Gross1, mw, T60F, P150psia), 0);
    EXPECT_NEAR(mw, 20.5424, 1e-3);
    LoadGross2Vector(store, 6.0, 0.0, 0.0, 2.0);
    EXPECT_EQ(GetDensity(store, 2, 4, kAga8Gross2, T60F, d, P150psia), 0);
    EXPECT_NEAR(d, 9.111879, 9.111879 * 1e-3);

    clsExGlobalVars iso;
    SetComposition(iso, kIsoGas);
    iso.UI_VgHvStandard = 40.66;
    iso.UI_RgRelDens = 0.581;
    LoadIsoVector(iso, 0.6, 0.0);
    EXPECT_EQ(GetDensity(iso, 2, 4, kIsoPhysical, 290.0, d, 6e6), 0);
    EXPECT_NEAR(d, 47.4838842, 47.4838842 * 1e-5);
    // The molar-composition method is the detail equation under other limits.
    double detail = 0;
    EXPECT_EQ(GetDensity(iso, 2, 4, kIsoMolar, 290.0, d, 6e6), 0);
    EXPECT_EQ(GetDensity(iso, 2, 4, kAga8Detail, 290.0, detail, 6e6), 0);
    EXPECT_NEAR(d, detail, 1e-9 * detail);
    EXPECT_NEAR(d, 47.4838842, 47.4838842 * 3e-3);
}

TEST_F(NaturalGasTest, AnyFailureStopsTheRunTwoPhaseIncluded) {
    // Catches the two-phase pass of steam and gases leaking into natural gas, and the report
    // kinds (density kind for the molecular weight of the detail method, other for density).
    double y[21] = {0.88, 0, 0, 0, 0.12}, vdn = 0, mw = 0;
    ASSERT_EQ(AgaDtlVdnMw(150.0, 6e6, y, &vdn, &mw), 5);
    store.UI_DtlMethaneMole = 88.0;
    store.UI_DtlPropaneMole = 12.0;
    double d = kOld;
    EXPECT_EQ(GetDensity(store, 2, 4, kAga8Detail, 150.0, d, 6e6), 1);
    EXPECT_EQ(d, kOld);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(Fields(LogLines().at(0)).at(7), "\"IsenExp\"");
    EXPECT_EQ(GetMolecularWeight(store, 2, 4, kAga8Detail, mw, 150.0, 6e6), 1);
    EXPECT_EQ(Fields(LogLines().at(1)).at(7), "\"Dens (kg/m3)\"");

    store.UI_VgHvStandard = 39.25;
    store.UI_RgRelDens = 0.9;  // above the gross methods' range
    LoadGross1Vector(store, 6.0, 0.0, 0.0);
    EXPECT_EQ(GetDensity(store, 2, 4, kAga8Gross1, 300.0, d, 5e6), 1);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 15);
}

// Library ids of the Y21 components by name (methane, nitrogen, CO2, ethane, propane, water,
// H2S, hydrogen, CO, oxygen, isobutane, n-butane, isopentane, n-pentane, n-hexane, n-heptane,
// n-octane, n-nonane, n-decane, helium, argon).
int32_t kY21Ids[21] = {1, 905, 909, 2,  3,  1921, 1922, 902, 908, 901, 4,
                       5, 8,   7,   11, 17, 27,   46,   56,  913, 914};

TEST_F(NaturalGasTest, MixturesPairFractionsWithTheirOwnIds) {
    // Catches the viscosity mixture given the first 21 catalogue ids, or the heat capacity
    // mixture "fixed" to the Y21 components: it keeps the catalogue's first 21 as they come.
    store.UI_DtlMethaneMole = 90.0;
    store.UI_DtlN2Mole = 3.0;
    store.UI_DtlCO2Mole = 2.0;
    store.UI_DtlEthaneMole = 4.0;
    store.UI_DtlPropaneMole = 1.0;
    store.Mgt_MtdGasVisCalc = 0;
    store.Mgt_MtdIsenExpCalc = 0;
    double y[21] = {0.9, 0.03, 0.02, 0.04, 0.01}, vis = 0, cp = 0;
    char names[SNDL_DPR_NAMES_BYTES];
    int32_t listIds[SNDL_DPR_IDS];
    ASSERT_GE(DprGetClist(names, listIds), 21);
    ASSERT_EQ(DprMixVvs(21, kY21Ids, 300.0, y, &vis), 0);
    ASSERT_EQ(DprMixIcp(21, listIds, 300.0, y, &cp), 0);

    EXPECT_EQ(GetViscosity(store, 2, 4, kIsoMolar, 300.0, 0, 5e6), 0);
    EXPECT_DOUBLE_EQ(store.UI_Visc[0], vis);
    EXPECT_EQ(GetIsentropicExponent(store, 2, 4, kAga8Detail, 300.0, 5e6), 0);
    EXPECT_DOUBLE_EQ(store.UI_IsenExpValue, cp / (cp - 8314.3));

    // A failed mixture leaves its point and the exponent alone.
    store.UI_Visc[1] = kOld;
    store.UI_IsenExpValue = kOld;
    EXPECT_EQ(GetViscosity(store, 2, 4, kAga8Detail, 20.0, 1, 5e6), 1);
    EXPECT_EQ(GetIsentropicExponent(store, 2, 4, kIsoMolar, 10.0, 5e6), 1);
    EXPECT_EQ(store.UI_Visc[1], kOld);
    EXPECT_EQ(store.UI_IsenExpValue, kOld);
}

TEST_F(PropertyTest, AirMixtureKeepsItsFixedFractions) {
    // Catches the argon fraction "corrected" to 0.0093 (the fractions add up to 1.0837) or
    // the molecular weight taken from the components instead of air.
    store.UI_FluidNameMethodCode = 915;
    store.Mgt_MtdAirGasDensityCalculation = 1;
    int32_t ids[4] = {905, 901, 914, 909};
    double y[4] = {0.7809, 0.2095, 0.093, 0.0003}, vdn = 0, mw = 0, d = 0;
    ASSERT_EQ(DprMixVdn(4, ids, 300.0, 1e5, y, &vdn), 0);
    ASSERT_EQ(DprMw(915, &mw), 0);
    EXPECT_EQ(GetDensity(store, 2, 6, "AIR", 300.0, d, 1e5), 0);
    EXPECT_DOUBLE_EQ(d, vdn * mw);
}

TEST_F(PropertyTest, SaturatedSteamUsesTheSaturationTemperature) {
    // Catches the caller's temperature used on the saturation line.
    double tSat = 0, vis = 0, kappa = 0;
    ASSERT_EQ(IapwsTs(1e6, &tSat), 0);
    IapwsVvs(tSat, 1e6, &vis);
    IapwsVkap(tSat, 1e6, &kappa);
    EXPECT_EQ(GetViscosity(store, 2, 5, kSteamSaturated, 1000.0, 0, 1e6), 0);
    EXPECT_EQ(store.UI_Visc[0], vis);
    EXPECT_EQ(GetIsentropicExponent(store, 2, 5, kSteamSaturated, 1000.0, 1e6), 0);
    EXPECT_EQ(store.UI_IsenExpValue, kappa);
}

TEST_F(PropertyTest, QuietNumericFailures) {
    // Catches a bounds overrun or a lost log entry passing as success: both end the routine
    // with 1 and nothing in the log.
    EXPECT_EQ(GetViscosity(store, 2, 7, "Mix", 300.0, 32, 1e5), 1);
    EXPECT_EQ(GetViscosity(store, 2, 7, "Mix", 300.0, -1, 1e5), 1);
    ::setenv("QDF_LOG_DIR", (dir_ / "absent").string().c_str(), 1);
    double d = 0;
    EXPECT_EQ(GetDensity(store, 2, 5, kSteamSuperheated, 350.0, d, 1e5), 1);
    EXPECT_EQ(store.Gbl_ErrorCode, kNotEntered);
    EXPECT_EQ(GetDensity(store, 2, 5, kSteamSuperheated, 400.0, d, 1e5), 0);
    EXPECT_FALSE(std::filesystem::exists(LogPath()));
}

TEST_F(PropertyTest, MolecularWeightByCategory) {
    // Catches a category mapped to the wrong source.
    double mw = 0;
    store.UI_FluidNameMethodCode = 2;
    store.UI_MolWeight = 42.5;
    const struct {
        int type, cat;
        double expected;
    } rows[] = {{2, 6, 30.069},    {1, 1, 30.069}, {2, 5, 18.015268},
                {1, 2, 18.015268}, {1, 3, 42.5},   {2, 7, 42.5}};
    for (const auto& r : rows) {
        EXPECT_EQ(GetMolecularWeight(store, r.type, r.cat, "ETHANE", mw, 300, 1e5), 0);
        EXPECT_EQ(mw, r.expected) << r.cat;
    }
    store.UI_FluidNameMethodCode = 123456;
    EXPECT_EQ(GetMolecularWeight(store, 2, 6, "NOTHING", mw, 300, 1e5), 1);
    EXPECT_EQ(mw, 42.5);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 6);
}

TEST(CompositionVectorTest, PercentagesBecomeFractionsAndBlanksZero) {
    // Catches a vector element filled from the wrong member, or -999999 passed on.
    clsExGlobalVars s;
    s.UI_DtlH2SMole = 1.5;
    s.UI_DtlArMole = 2.0;
    LoadMoleVector(s);
    EXPECT_DOUBLE_EQ(s.Y21[6], 0.015);
    EXPECT_DOUBLE_EQ(s.Y21[20], 0.02);
    EXPECT_EQ(s.Y21[0], 0.0);
    s.XAga.fill(9.0);
    LoadGross1Vector(s, 3.0, 2.0, 1.0);
    EXPECT_EQ(s.GetXAga(), (std::vector<double>{0.0, 0.03, 0.02, 0.01, 9.0, 9.0}));
    LoadGross2Vector(s, 3.0, kNotEntered, 1.0, 10.0);
    EXPECT_EQ(s.GetXAga(), (std::vector<double>{0.1, 0.03, 0.0, 0.01, 9.0, 9.0}));
    LoadIsoVector(s, 3.0, 2.0);
    EXPECT_EQ(s.GetXAga(), (std::vector<double>{0.0, 0.03, 0.02, 0.0, 9.0, 9.0}));
}

}  // namespace
}  // namespace qdf::test
