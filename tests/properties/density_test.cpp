#include <gtest/gtest.h>

#include <filesystem>

#include "PhysicalProp.h"
#include "PropertyFixture.h"
#include "sndl/sndl_aga.h"
#include "sndl/sndl_dippr.h"

namespace qdf::test {
namespace {

constexpr int32_t kEthane = 2;
constexpr int32_t kHexane = 11;
constexpr int32_t kAirId = 915;

// The gas of the AGA8 property examples (mole per cent, Y21 order).
void SetExampleGas(clsExGlobalVars& s) {
    s.UI_DtlMethaneMole = 77.824;
    s.UI_DtlN2Mole = 2.0;
    s.UI_DtlCO2Mole = 6.0;
    s.UI_DtlEthaneMole = 8.0;
    s.UI_DtlPropaneMole = 3.0;
    s.UI_DtlWaterMole = 0.01;
    s.UI_DtlH2SMole = 0.25;
    s.UI_DtlH2Mole = 0.4;
    s.UI_DtlCOMole = 0.2;
    s.UI_DtlO2Mole = 0.5;
    s.UI_DtlIsobutaneMole = 0.15;
    s.UI_DtlButaneMole = 0.3;
    s.UI_DtlIsoPentaneMole = 0.05;
    s.UI_DtlPentaneMole = 0.165;
    s.UI_DtlHexaneMole = 0.215;
    s.UI_DtlHeptaneMole = 0.088;
    s.UI_DtlOctaneMole = 0.024;
    s.UI_DtlNonaneMole = 0.015;
    s.UI_DtlDecaneMole = 0.009;
    s.UI_DtlHe4Mole = 0.7;
    s.UI_DtlArMole = 0.1;
}

// ISO 12213-2 example gas 1 (mole per cent).
void SetIsoGas(clsExGlobalVars& s) {
    s.UI_DtlMethaneMole = 96.5;
    s.UI_DtlN2Mole = 0.3;
    s.UI_DtlCO2Mole = 0.6;
    s.UI_DtlEthaneMole = 1.8;
    s.UI_DtlPropaneMole = 0.45;
    s.UI_DtlIsobutaneMole = 0.1;
    s.UI_DtlButaneMole = 0.1;
    s.UI_DtlIsoPentaneMole = 0.05;
    s.UI_DtlPentaneMole = 0.03;
    s.UI_DtlHexaneMole = 0.07;
}

// Methane with 12 % propane, liquid-like at 150 K and 6 MPa.
constexpr double kRichT = 150.0, kRichP = 6e6;
void SetRichGas(clsExGlobalVars& s) {
    s.UI_DtlMethaneMole = 88.0;
    s.UI_DtlPropaneMole = 12.0;
}
// The library must call that point two-phase for the tests that need it.
void ExpectRichGasIsTwoPhase() {
    double y[21] = {0.88, 0, 0, 0, 0.12}, vdn = 0, mw = 0;
    ASSERT_EQ(AgaDtlVdnMw(kRichT, kRichP, y, &vdn, &mw), 5);
}

class DensityTest : public PropertyTest {
  protected:
    double Density(int type, int cat, const std::string& name, double T, double P,
                   int32_t* result = nullptr) {
        double d = -7.0;
        const int32_t r = GetDensity(store, type, cat, name, T, d, P);
        if (result) *result = r;
        return d;
    }
};

TEST_F(DensityTest, GeneralLiquidIgnoresPressureAndFailsWithoutValue) {
    // Catches pressure reaching the saturated-liquid density, a missing molecular weight
    // factor, or an output written after a failure.
    store.UI_FluidNameMethodCode = kHexane;
    double ldn = 0, mw = 0;
    ASSERT_EQ(DprLdn(kHexane, 300.0, &ldn), 0);
    ASSERT_EQ(DprMw(kHexane, &mw), 0);
    int32_t r = -1;
    const double d1 = Density(1, 1, "n-HEXANE", 300.0, 1e5, &r);
    EXPECT_EQ(r, 0);
    EXPECT_DOUBLE_EQ(d1, ldn * mw);
    EXPECT_NEAR(d1, 655.0, 10.0);
    EXPECT_EQ(Density(1, 1, "n-HEXANE", 300.0, 2e7), d1);

    EXPECT_EQ(Density(1, 1, "n-HEXANE", 100.0, 1e5, &r), -7.0);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 2);
    EXPECT_EQ(Fields(LogLines().at(0)).size(), 7u);
}

TEST_F(DensityTest, WaterUsesPressureAndPassesTwoPhasePoints) {
    // Catches water's pressure dropped, a two-phase point stopping the run, or an
    // out-of-range point passing. IF97 verification: region 1 at 300 K, 3 and 80 MPa.
    int32_t r = -1;
    EXPECT_NEAR(Density(1, 2, "Pressurised Water", 300.0, 3e6, &r), 1.0 / 0.00100215168, 1e-6);
    EXPECT_EQ(r, 0);
    EXPECT_NEAR(Density(1, 2, "Pressurised Water", 300.0, 80e6), 1.0 / 0.000971180894, 1e-6);
    EXPECT_FALSE(std::filesystem::exists(LogPath()));

    // Liquid asked above the boiling point at 1 bar: the metastable liquid stands.
    const double d = Density(1, 2, "Pressurised Water", 400.0, 1e5, &r);
    EXPECT_EQ(r, 0);
    EXPECT_NEAR(d, 937.0, 2.0);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 5);
    const auto f = Fields(LogLines().at(0));
    ASSERT_EQ(f.size(), 13u);
    EXPECT_EQ(f[7], "\"Dens (kg/m3)\"");

    Density(1, 2, "Pressurised Water", 250.0, 1e5, &r);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
}

TEST_F(DensityTest, CustomFluidsGiveZeroWithoutLibrary) {
    // Catches a custom fluid reaching a library or keeping an old value.
    int32_t r = -1;
    EXPECT_EQ(Density(1, 3, "My liquid", 300.0, 1e5, &r), 0.0);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(Density(2, 7, "My gas", -5.0, -1.0, &r), 0.0);
    EXPECT_EQ(r, 0);
    EXPECT_FALSE(std::filesystem::exists(LogPath()));
}

TEST_F(DensityTest, UnknownNamesAndTypesLeaveTheOutput) {
    // Catches a fall-through into some library for a name no row matches.
    int32_t r = -1;
    EXPECT_EQ(Density(2, 4, "AGA8 Detail", 300.0, 5e6, &r), -7.0);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(Density(2, 5, "Steam", 500.0, 1e5, &r), -7.0);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(Density(3, 1, "n-HEXANE", 300.0, 1e5, &r), -7.0);
    EXPECT_EQ(r, 0);
}

TEST_F(DensityTest, NaturalGasByEachMethod) {
    // Catches a method calling the wrong library operation or mixing up heating value,
    // relative density and the gross vectors. Values: AGA8 property examples.
    SetExampleGas(store);
    const double T60F = 288.7055555556, P150psia = 1034213.5939752;
    int32_t r = -1;
    EXPECT_NEAR(Density(2, 4, kAga8Detail, 310.9277777778, 13789514.5863360, &r), 141.0197,
                141.0197 * 2e-5);
    EXPECT_EQ(r, 0);
    EXPECT_NEAR(store.Y21[0], 0.77824, 1e-15);
    EXPECT_NEAR(store.Y21[20], 0.001, 1e-15);
    EXPECT_NEAR(Density(2, 4, kAga8Detail, T60F, P150psia), 9.111927, 9.111927 * 2e-5);

    store.UI_VgHvStandard = 39.25453495;
    store.UI_RgRelDens = 0.710973;
    LoadGross1Vector(store, 6.0, 0.0, 0.0);
    EXPECT_NEAR(Density(2, 4, kAga8Gross1, T60F, P150psia, &r), 9.111879, 9.111879 * 2e-5);
    EXPECT_EQ(r, 0);
    LoadGross2Vector(store, 6.0, 0.0, 0.0, 2.0);
    EXPECT_NEAR(Density(2, 4, kAga8Gross2, T60F, P150psia, &r), 9.111879, 9.111879 * 1e-3);
    EXPECT_EQ(r, 0);

    // ISO 12213 example gas 1 at 6 MPa, 290 K (Z = 0.88007 by its physical properties). The
    // molar-composition method is the detail equation.
    clsExGlobalVars iso;
    SetIsoGas(iso);
    double isoMolar = -1;
    EXPECT_EQ(GetDensity(iso, 2, 4, kIsoMolar, 290.0, isoMolar, 6e6), 0);
    double detail = -1;
    EXPECT_EQ(GetDensity(iso, 2, 4, kAga8Detail, 290.0, detail, 6e6), 0);
    EXPECT_NEAR(isoMolar, detail, 1e-9 * detail);
    EXPECT_NEAR(isoMolar, 47.4838842, 47.4838842 * 3e-3);
    store.UI_VgHvStandard = 40.66;
    store.UI_RgRelDens = 0.581;
    LoadIsoVector(store, 0.6, 0.0);
    EXPECT_NEAR(Density(2, 4, kIsoPhysical, 290.0, 6e6, &r), 47.4838842, 47.4838842 * 1e-5);
    EXPECT_EQ(r, 0);
}

TEST_F(DensityTest, NaturalGasStopsOnAnyFailureTwoPhaseIncluded) {
    // Catches the two-phase pass of steam and gases leaking into natural gas.
    ExpectRichGasIsTwoPhase();
    SetRichGas(store);
    int32_t r = -1;
    EXPECT_EQ(Density(2, 4, kAga8Detail, kRichT, kRichP, &r), -7.0);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    // Kind 4: the long entry's value is labelled as the isentropic exponent.
    EXPECT_EQ(Fields(LogLines().at(0)).at(7), "\"IsenExp\"");

    store.UI_VgHvStandard = 39.25;
    store.UI_RgRelDens = 0.9;  // above the gross methods' range
    LoadGross1Vector(store, 6.0, 0.0, 0.0);
    Density(2, 4, kAga8Gross1, 300.0, 5e6, &r);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 15);
}

TEST_F(DensityTest, SteamBothNamesPassTwoPhaseAndFailOutOfRange) {
    // Catches steam asking for the liquid, a two-phase point stopping the run, or a range
    // failure passing. IF97 verification: region 2 at 300 K and 3.5 kPa.
    int32_t r = -1;
    EXPECT_NEAR(Density(2, 5, kSteamSuperheated, 300.0, 3500.0, &r), 1.0 / 39.4913866, 1e-10);
    EXPECT_EQ(r, 0);
    EXPECT_NEAR(Density(2, 5, kSteamSaturated, 300.0, 3500.0, &r), 1.0 / 39.4913866, 1e-10);
    EXPECT_EQ(r, 0);

    const double d = Density(2, 5, kSteamSaturated, 350.0, 1e5, &r);
    EXPECT_EQ(r, 0);
    EXPECT_NEAR(d, 0.62, 0.05);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);

    Density(2, 5, kSteamSuperheated, 2500.0, 1e5, &r);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 1);
}

TEST_F(DensityTest, GeneralGasPureComponent) {
    // Catches a missing molecular weight, the two-phase pass missing for a general gas, or
    // an upper-range failure passing for a gas other than "AIR".
    store.UI_FluidNameMethodCode = kEthane;
    double vdn = 0, mw = 0;
    ASSERT_EQ(DprVdn(kEthane, 300.0, 1e6, &vdn), 0);
    ASSERT_EQ(DprMw(kEthane, &mw), 0);
    int32_t r = -1;
    EXPECT_DOUBLE_EQ(Density(2, 6, "ETHANE", 300.0, 1e6, &r), vdn * mw);
    EXPECT_EQ(r, 0);

    EXPECT_NEAR(Density(2, 6, "ETHANE", 250.0, 3e6, &r), 453.0, 50.0);
    EXPECT_EQ(r, 0);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);

    EXPECT_EQ(Density(2, 6, "ETHANE", 800.0, 1e6, &r), -7.0);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 1);
}

TEST_F(DensityTest, AirPassesAboveItsCorrelationOnly) {
    // Catches the upper-limit pass missing for "AIR" or extended to its lower limit.
    store.UI_FluidNameMethodCode = kAirId;
    store.Mgt_MtdAirGasDensityCalculation = 0;
    double lo = 0, hi = 0;
    ASSERT_EQ(DprVdnRng(kAirId, &lo, &hi), 0);
    int32_t r = -1;
    const double above = Density(2, 6, "AIR", hi + 20.0, 1e5, &r);
    EXPECT_EQ(r, 0);
    EXPECT_NEAR(above, 1e5 * 28.96 / (8314.3 * (hi + 20.0)), 0.01 * above);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 1);

    EXPECT_EQ(Density(2, 6, "AIR", lo - 5.0, 1e5, &r), -7.0);
    EXPECT_EQ(r, 1);
}

TEST_F(DensityTest, AirMixtureUsesItsFixedFractions) {
    // Catches the argon fraction "corrected" to 0.0093, the mixture's molecular weight taken
    // from the components instead of air, and a failure returning 1 instead of the code.
    store.UI_FluidNameMethodCode = kAirId;
    store.Mgt_MtdAirGasDensityCalculation = 1;
    int32_t ids[4] = {905, 901, 914, 909};
    double y[4] = {0.7809, 0.2095, 0.093, 0.0003};
    double vdn = 0, mw = 0;
    ASSERT_EQ(DprMixVdn(4, ids, 300.0, 1e5, y, &vdn), 0);
    ASSERT_EQ(DprMw(kAirId, &mw), 0);
    int32_t r = -1;
    EXPECT_DOUBLE_EQ(Density(2, 6, "AIR", 300.0, 1e5, &r), vdn * mw);
    EXPECT_EQ(r, 0);

    Density(2, 6, "AIR", 50.0, 1e5, &r);
    EXPECT_EQ(r, 2);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
}

TEST_F(DensityTest, UnwritableLogStopsTheRun) {
    // Catches a lost log entry passing as success: without the log folder even a two-phase
    // warning ends the stage.
    const auto missing = dir_ / "absent";
    ::setenv("QDF_LOG_DIR", missing.string().c_str(), 1);
    int32_t r = -1;
    Density(2, 5, kSteamSuperheated, 350.0, 1e5, &r);
    EXPECT_EQ(r, 1);
    EXPECT_EQ(store.Gbl_ErrorCode, kNotEntered);
    // Without a failure the log is not needed.
    Density(2, 5, kSteamSuperheated, 400.0, 1e5, &r);
    EXPECT_EQ(r, 0);
}

TEST_F(PropertyTest, MolecularWeightByCategory) {
    // Catches a category mapped to the wrong source or natural gas failures passing.
    double mw = -1;
    store.UI_FluidNameMethodCode = kEthane;
    EXPECT_EQ(GetMolecularWeight(store, 2, 6, "ETHANE", mw, 300, 1e5), 0);
    EXPECT_EQ(mw, 30.069);
    EXPECT_EQ(GetMolecularWeight(store, 1, 1, "ETHANE", mw, 300, 1e5), 0);
    EXPECT_EQ(mw, 30.069);
    EXPECT_EQ(GetMolecularWeight(store, 2, 5, kSteamSaturated, mw, 300, 1e5), 0);
    EXPECT_EQ(mw, 18.015268);
    EXPECT_EQ(GetMolecularWeight(store, 1, 2, "Pressurised Water", mw, 300, 1e5), 0);
    EXPECT_EQ(mw, 18.015268);
    store.UI_MolWeight = 42.5;
    EXPECT_EQ(GetMolecularWeight(store, 1, 3, "x", mw, 300, 1e5), 0);
    EXPECT_EQ(mw, 42.5);
    EXPECT_EQ(GetMolecularWeight(store, 2, 7, "x", mw, 300, 1e5), 0);
    EXPECT_EQ(mw, 42.5);

    SetExampleGas(store);
    EXPECT_EQ(GetMolecularWeight(store, 2, 4, kAga8Detail, mw, 300, 5e6), 0);
    EXPECT_NEAR(mw, 20.54333051, 1e-6);
    store.UI_VgHvStandard = 39.25453495;
    store.UI_RgRelDens = 0.710973;
    LoadGross1Vector(store, 6.0, 0.0, 0.0);
    EXPECT_EQ(GetMolecularWeight(store, 2, 4, kAga8Gross1, mw, 288.7055555556, 1034213.59), 0);
    EXPECT_NEAR(mw, 20.5424, 1e-3);

    mw = -1;
    store.UI_FluidNameMethodCode = 123456;
    EXPECT_EQ(GetMolecularWeight(store, 2, 6, "NOTHING", mw, 300, 1e5), 1);
    EXPECT_EQ(mw, -1);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 6);

    // Detail failures are reported as density failures.
    ExpectRichGasIsTwoPhase();
    clsExGlobalVars rich;
    rich.tag = "FT-101";
    SetRichGas(rich);
    EXPECT_EQ(GetMolecularWeight(rich, 2, 4, kAga8Detail, mw, kRichT, kRichP), 1);
    EXPECT_EQ(Fields(LogLines().back()).at(7), "\"Dens (kg/m3)\"");
}

TEST(CompositionVectorTest, PercentagesBecomeFractionsAndBlanksZero) {
    // Catches a vector element filled from the wrong member, or -999999 passed on.
    clsExGlobalVars s;
    s.UI_DtlMethaneMole = 90.0;
    s.UI_DtlH2SMole = 1.5;
    s.UI_DtlHe4Mole = 0.25;
    s.UI_DtlArMole = 2.0;
    LoadMoleVector(s);
    EXPECT_DOUBLE_EQ(s.Y21[0], 0.9);
    EXPECT_DOUBLE_EQ(s.Y21[6], 0.015);
    EXPECT_DOUBLE_EQ(s.Y21[19], 0.0025);
    EXPECT_DOUBLE_EQ(s.Y21[20], 0.02);
    EXPECT_EQ(s.Y21[1], 0.0);

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
