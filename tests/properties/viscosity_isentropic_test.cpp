#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <vector>

#include "PhysicalProp.h"
#include "PropertyFixture.h"
#include "sndl/sndl_dippr.h"
#include "sndl/sndl_iapws.h"

namespace qdf::test {
namespace {

constexpr int32_t kEthane = 2;
constexpr int32_t kHexane = 11;
constexpr double kOld = 7.0;

// Library ids of the Y21 components, by name: methane, nitrogen, CO2, ethane, propane, water,
// H2S, hydrogen, CO, oxygen, isobutane, n-butane, isopentane, n-pentane, n-hexane, n-heptane,
// n-octane, n-nonane, n-decane, helium, argon.
int32_t Y21Ids[21] = {1, 905, 909, 2,  3,  1921, 1922, 902, 908, 901, 4,
                      5, 8,   7,   11, 17, 27,   46,   56,  913, 914};

void SetGas(clsExGlobalVars& s) {
    s.UI_DtlMethaneMole = 90.0;
    s.UI_DtlN2Mole = 3.0;
    s.UI_DtlCO2Mole = 2.0;
    s.UI_DtlEthaneMole = 4.0;
    s.UI_DtlPropaneMole = 1.0;
}

class ViscosityTest : public PropertyTest {
  protected:
    void SetUp() override {
        PropertyTest::SetUp();
        store.UI_Visc.fill(kOld);
    }
    int32_t Visc(int type, int cat, const std::string& name, double T, int i, double P) {
        return GetViscosity(store, type, cat, name, T, i, P);
    }
};

TEST_F(ViscosityTest, CorrelationsWriteTheirPointOrKeepTheOldValue) {
    // Catches the wrong correlation per type, a value taken from a failed call, or a
    // neighbouring element written.
    store.UI_FluidNameMethodCode = kHexane;
    double lvs = 0;
    ASSERT_EQ(DprLvs(kHexane, 300.0, &lvs), 0);
    EXPECT_EQ(Visc(1, 1, "n-HEXANE", 300.0, 3, 1e5), 0);
    EXPECT_EQ(store.UI_Visc[3], lvs);
    EXPECT_EQ(store.UI_Visc[2], kOld);
    EXPECT_EQ(store.UI_Visc[4], kOld);
    EXPECT_EQ(Visc(1, 1, "n-HEXANE", 100.0, 5, 1e5), 1);
    EXPECT_EQ(store.UI_Visc[5], kOld);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 2);

    store.UI_FluidNameMethodCode = kEthane;
    double vvs = 0;
    ASSERT_EQ(DprVvs(kEthane, 300.0, &vvs), 0);
    EXPECT_EQ(Visc(2, 6, "ETHANE", 300.0, 0, 1e5), 0);
    EXPECT_EQ(store.UI_Visc[0], vvs);
    EXPECT_NEAR(vvs, 9.4e-6, 0.5e-6);
}

TEST_F(ViscosityTest, WaterAndSteamStoreTheLibraryValueAtTwoPhasePoints) {
    // Catches liquid and steam calls swapped, or a two-phase point failing the run.
    double expected = 0;
    ASSERT_EQ(IapwsLvs(300.0, 1e6, &expected), 0);
    EXPECT_EQ(Visc(1, 2, "Pressurised Water", 300.0, 1, 1e6), 0);
    EXPECT_EQ(store.UI_Visc[1], expected);
    EXPECT_NEAR(expected, 8.5e-4, 0.2e-4);

    ASSERT_EQ(IapwsVvs(350.0, 1e5, &expected), 5);
    EXPECT_EQ(Visc(2, 5, kSteamSuperheated, 350.0, 2, 1e5), 0);
    EXPECT_EQ(store.UI_Visc[2], expected);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(Fields(LogLines().at(0)).at(7), "\"Visc (Pa sec)\"");

    // Out of range: the value the library gave is still stored.
    ASSERT_EQ(IapwsVvs(2500.0, 1e5, &expected), 1);
    EXPECT_EQ(Visc(2, 5, kSteamSuperheated, 2500.0, 4, 1e5), 1);
    EXPECT_EQ(store.UI_Visc[4], expected);
}

TEST_F(ViscosityTest, SaturatedSteamTakesTheSaturationTemperature) {
    // Catches the caller's temperature used on the saturation line, and a failure of the
    // saturation temperature alone stopping the run.
    double tSat = 0, expected = 0;
    ASSERT_EQ(IapwsTs(1e6, &tSat), 0);
    ASSERT_EQ(IapwsVvs(tSat, 1e6, &expected), 0);
    EXPECT_EQ(Visc(2, 5, kSteamSaturated, 1000.0, 0, 1e6), 0);
    EXPECT_EQ(store.UI_Visc[0], expected);

    // Above the critical pressure there is no saturation line, but the steam call succeeds.
    ASSERT_NE(IapwsTs(23e6, &tSat), 0);
    ASSERT_EQ(IapwsVvs(tSat, 23e6, &expected), 0);
    EXPECT_EQ(Visc(2, 5, kSteamSaturated, 300.0, 1, 23e6), 0);
    EXPECT_EQ(store.UI_Visc[1], expected);
    EXPECT_FALSE(std::filesystem::exists(LogPath()));
}

TEST_F(ViscosityTest, CustomAndUnknownLeaveTheTable) {
    // Catches a custom table overwritten by a library value.
    EXPECT_EQ(Visc(1, 3, "My liquid", 300.0, 0, 1e5), 0);
    EXPECT_EQ(Visc(2, 7, "My gas", 300.0, 1, 1e5), 0);
    EXPECT_EQ(Visc(2, 5, "Steam", 300.0, 2, 1e5), 0);
    EXPECT_EQ(Visc(2, 4, "AGA8", 300.0, 3, 1e5), 0);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(store.UI_Visc[i], kOld);
}

TEST_F(ViscosityTest, NaturalGasConstantForGrossMethodsAndByOption) {
    // Catches a wrong lb/(ft s) conversion or the option ignored for the molar methods.
    const double ng = 6.9e-6 * 0.45359237 / 0.3048;
    EXPECT_NEAR(NaturalGasViscosity(), 1.0268e-5, 1e-9);
    for (const char* name : {kAga8Gross1, kAga8Gross2, kIsoPhysical}) {
        store.UI_Visc.fill(kOld);
        for (int i = 0; i < 3; ++i) EXPECT_EQ(Visc(2, 4, name, 250.0 + 20 * i, i, 1e6), 0);
        for (int i = 0; i < 3; ++i) EXPECT_DOUBLE_EQ(store.UI_Visc[i], ng) << name;
    }
    store.Mgt_MtdGasVisCalc = 1;
    EXPECT_EQ(Visc(2, 4, kAga8Detail, 300.0, 5, 1e6), 0);
    EXPECT_DOUBLE_EQ(store.UI_Visc[5], ng);
    store.Mgt_MtdGasVisCalc = 2;
    EXPECT_EQ(Visc(2, 4, kIsoMolar, 300.0, 6, 1e6), 0);
    EXPECT_DOUBLE_EQ(store.UI_Visc[6], ng);
}

TEST_F(ViscosityTest, NaturalGasMixturePicksComponentsByPosition) {
    // Catches the mixture viscosity given the catalogue's first 21 ids instead of the
    // components of Y21, and a failed mixture call writing its point.
    SetGas(store);
    store.Mgt_MtdGasVisCalc = 0;
    double y[21] = {0.9, 0.03, 0.02, 0.04, 0.01};
    double expected = 0;
    ASSERT_EQ(DprMixVvs(21, Y21Ids, 300.0, y, &expected), 0);
    EXPECT_EQ(Visc(2, 4, kAga8Detail, 300.0, 0, 5e6), 0);
    EXPECT_DOUBLE_EQ(store.UI_Visc[0], expected);
    EXPECT_NEAR(expected, 1.1e-5, 0.2e-5);
    EXPECT_EQ(Visc(2, 4, kIsoMolar, 300.0, 1, 5e6), 0);
    EXPECT_DOUBLE_EQ(store.UI_Visc[1], expected);

    EXPECT_EQ(Visc(2, 4, kAga8Detail, 20.0, 2, 5e6), 1);
    EXPECT_EQ(store.UI_Visc[2], kOld);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
}

TEST_F(ViscosityTest, IndexBeyondTheTableFailsQuietly) {
    // Catches a bounds overrun instead of the quiet numeric failure.
    EXPECT_EQ(Visc(2, 7, "My gas", 300.0, 32, 1e5), 1);
    EXPECT_EQ(Visc(2, 7, "My gas", 300.0, -1, 1e5), 1);
    EXPECT_FALSE(std::filesystem::exists(LogPath()));
}

class IsentropicTest : public PropertyTest {
  protected:
    void SetUp() override {
        PropertyTest::SetUp();
        store.UI_IsenExpValue = 1.25;
    }
    int32_t Kappa(int type, int cat, const std::string& name, double T, double P) {
        return GetIsentropicExponent(store, type, cat, name, T, P);
    }
};

TEST_F(IsentropicTest, LiquidsAndCustomGasKeepTheEnteredValue) {
    // Catches a liquid (water included) or a custom gas getting a computed exponent.
    EXPECT_EQ(Kappa(1, 2, "Pressurised Water", 300.0, 1e6), 0);
    EXPECT_EQ(Kappa(1, 1, "n-HEXANE", 300.0, 1e6), 0);
    EXPECT_EQ(Kappa(2, 7, "My gas", 300.0, 1e6), 0);
    EXPECT_EQ(store.UI_IsenExpValue, 1.25);
}

TEST_F(IsentropicTest, NaturalGasConstantOverwritesTheEntry) {
    // Catches gross methods keeping the entered value or the option read the wrong way.
    for (const char* name : {kAga8Gross1, kAga8Gross2, kIsoPhysical}) {
        store.UI_IsenExpValue = 1.25;
        EXPECT_EQ(Kappa(2, 4, name, 300.0, 5e6), 0);
        EXPECT_EQ(store.UI_IsenExpValue, 1.3) << name;
    }
    store.UI_IsenExpValue = 1.25;
    store.Mgt_MtdIsenExpCalc = 1;
    EXPECT_EQ(Kappa(2, 4, kAga8Detail, 300.0, 5e6), 0);
    EXPECT_EQ(store.UI_IsenExpValue, 1.3);
}

TEST_F(IsentropicTest, MixtureTakesTheFirstCatalogueIds) {
    // Catches the heat capacity mixture "fixed" to the Y21 components: it pairs the
    // fractions with the catalogue's first 21 ids as they come.
    SetGas(store);
    store.Mgt_MtdIsenExpCalc = 0;
    char names[SNDL_DPR_NAMES_BYTES];
    int32_t ids[SNDL_DPR_IDS];
    ASSERT_GE(DprGetClist(names, ids), 21);
    double y[21] = {0.9, 0.03, 0.02, 0.04, 0.01};
    double cp = 0;
    ASSERT_EQ(DprMixIcp(21, ids, 300.0, y, &cp), 0);
    EXPECT_EQ(Kappa(2, 4, kIsoMolar, 300.0, 5e6), 0);
    EXPECT_DOUBLE_EQ(store.UI_IsenExpValue, cp / (cp - 8314.3));

    double cpByName = 0;
    ASSERT_EQ(DprMixIcp(21, Y21Ids, 300.0, y, &cpByName), 0);
    EXPECT_GT(std::abs(cp - cpByName), 1.0);

    store.UI_IsenExpValue = 1.25;
    EXPECT_EQ(Kappa(2, 4, kAga8Detail, 10.0, 5e6), 1);
    EXPECT_EQ(store.UI_IsenExpValue, 1.25);
}

TEST_F(IsentropicTest, SteamFromTheLibraryTwoPhaseIncluded) {
    // Catches the steam exponent not taken from the library or a two-phase point failing.
    double expected = 0;
    ASSERT_EQ(IapwsVkap(500.0, 1e6, &expected), 0);
    EXPECT_EQ(Kappa(2, 5, kSteamSuperheated, 500.0, 1e6), 0);
    EXPECT_EQ(store.UI_IsenExpValue, expected);
    EXPECT_NEAR(expected, 1.30, 0.02);

    ASSERT_EQ(IapwsVkap(350.0, 1e5, &expected), 5);
    EXPECT_EQ(Kappa(2, 5, kSteamSuperheated, 350.0, 1e5), 0);
    EXPECT_EQ(store.UI_IsenExpValue, expected);
    EXPECT_EQ(store.Gbl_ErrorCode, 890);
    EXPECT_EQ(Fields(LogLines().at(0)).at(7), "\"IsenExp\"");

    ASSERT_EQ(IapwsVkap(2500.0, 1e5, &expected), 1);
    EXPECT_EQ(Kappa(2, 5, kSteamSuperheated, 2500.0, 1e5), 1);
    EXPECT_EQ(store.UI_IsenExpValue, expected);
}

TEST_F(IsentropicTest, SaturatedSteamStopsWhenTheSaturationLineFails) {
    // Catches the caller's temperature used on the saturation line, or a failed saturation
    // temperature going on unreported.
    double tSat = 0, expected = 0;
    ASSERT_EQ(IapwsTs(1e6, &tSat), 0);
    IapwsVkap(tSat, 1e6, &expected);
    EXPECT_EQ(Kappa(2, 5, kSteamSaturated, 1000.0, 1e6), 0);
    EXPECT_EQ(store.UI_IsenExpValue, expected);

    store.UI_IsenExpValue = 1.25;
    EXPECT_EQ(Kappa(2, 5, kSteamSaturated, 300.0, 23e6), 1);
    EXPECT_EQ(store.UI_IsenExpValue, 1.25);
    EXPECT_EQ(store.Gbl_ErrorCode, 600);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 3);
}

TEST_F(IsentropicTest, GeneralGasFromIdealHeatCapacity) {
    // Catches a wrong gas constant or the ratio inverted.
    store.UI_FluidNameMethodCode = kEthane;
    double cp = 0;
    ASSERT_EQ(DprIcp(kEthane, 300.0, &cp), 0);
    EXPECT_EQ(Kappa(2, 6, "ETHANE", 300.0, 1e5), 0);
    EXPECT_DOUBLE_EQ(store.UI_IsenExpValue, cp / (cp - 8314.3));
    EXPECT_NEAR(store.UI_IsenExpValue, 1.19, 0.01);

    store.UI_IsenExpValue = 1.25;
    EXPECT_EQ(Kappa(2, 6, "ETHANE", 10.0, 1e5), 1);
    EXPECT_EQ(store.UI_IsenExpValue, 1.25);
    EXPECT_EQ(store.Gbl_ErrorSubCode, 2);
}

}  // namespace
}  // namespace qdf::test
