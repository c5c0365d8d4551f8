// The calculation driver and the fits, one scenario per kind of fluid, from a filled store to
// the transmitter parameters. Reference values: IAPWS-IF97 verification tables, the AGA Report
// No. 8 example gas, ISO 12213-3 example gas 1.

#include <gtest/gtest.h>

#include <cmath>

#include "CalcFixture.h"
#include "Fits.h"
#include "MvConfig.h"
#include "PhysicalProp.h"
#include "XmtrParams.h"

namespace qdf {
namespace {

class Calculation : public test::CalcFixture {
  protected:
    int RunAll() { return RunCalculation(s) != 0 ? 1 : RunFits(s); }
    // The fitted gas polynomial at every grid point; saturated steam keeps plain lists.
    void ExpectGasFitReproducesGrid(bool lists = false) {
        for (int i = 0, k = 0; i < s.Mgt_GasDensTempDiv; ++i) {
            for (int j = 0; j < s.Mgt_GasDensPressDiv; ++j, ++k) {
                const double T = s.UI_DensTempStandard[lists ? i : k];
                const double p = s.UI_DensAbsPressStandard[lists ? j : k] / 1000.0;
                EXPECT_NEAR(test::GasDensityPoly(s.Xmtr_DensCoeff, T, p), s.UI_DensStandard[k],
                            1e-9 * s.UI_DensStandard[k]);
            }
        }
    }
    double Dippr(int32_t (*call)(int32_t, double, double&), int32_t id, double T) {
        double v = 0.0, mw = 1.0;
        EXPECT_EQ(call(id, T, v), 0);
        if (call == SND::DprLdn) SND::DprMw(id, mw);
        return v * mw;
    }
    double VapourDensity(int32_t id, double T, double P) {
        double vdn = 0.0, mw = 0.0;
        SND::DprVdn(id, T, P, vdn);
        SND::DprMw(id, mw);
        return vdn * mw;
    }
};

// Catches any break in the chain from range to transmitter for the plainest request: orifice,
// "ETHANE", 3 x 4 density grid, 4 viscosities, 3 expansion points, 12/4/3-term fits.
TEST_F(Calculation, EthaneFromRangeToTransmitterParameters) {
    const int32_t id = test::CatalogueId("ETHANE");
    Fluid(2, 6, "ETHANE", id);
    Range(300.0, 360.0, 500.0, 2000.0);
    s.UI_RangeTUnit = 32;
    s.UI_RangeT1 = 26.85;
    s.UI_RangeT2 = 86.85;
    s.Mgt_UserName = "a user name that runs past thirty-two characters";
    s.Mgt_ConfDate = "2024-05-06 07:08:09";
    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    for (int i = 0, k = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j, ++k) {
            const double T = 300.0 + 30.0 * i, P = 500e3 + 500e3 * j;
            EXPECT_DOUBLE_EQ(s.UI_DensTemp[k], 26.85 + 30.0 * i);
            EXPECT_DOUBLE_EQ(s.UI_DensAbsPress[k], 500.0 + 500.0 * j);
            EXPECT_DOUBLE_EQ(s.UI_DensStandard[k], VapourDensity(id, T, P));
            EXPECT_EQ(s.UI_Dens[k], s.UI_DensStandard[k]);
        }
    }
    EXPECT_DOUBLE_EQ(s.UI_RefDensValue, VapourDensity(id, 288.15, 101325.0));
    double cp = 0.0;
    SND::DprIcp(id, 330.0, cp);  // the middle of the range
    EXPECT_DOUBLE_EQ(s.UI_IsenExpValue, cp / (cp - kGasConstant));
    for (int i = 0; i < 4; ++i) {
        EXPECT_DOUBLE_EQ(s.UI_ViscStandard[i], Dippr(SND::DprVvs, id, 300.0 + 20.0 * i));
        EXPECT_EQ(s.UI_VisPress[i], 1250e3);
    }
    for (int i = 0; i < 3; ++i) EXPECT_DOUBLE_EQ(s.calc_DPP1Ratio[i], 0.125 * i);

    ASSERT_EQ(RunFits(s), 0);
    ExpectGasFitReproducesGrid();
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(test::Cubic(s.Xmtr_VisCoeff, 300.0 + 20.0 * i), s.UI_Visc[i],
                    1e-9 * s.UI_Visc[i]);
    for (int i = 0; i < 3; ++i) {
        const double x = s.calc_DPP1Ratio[i];
        EXPECT_NEAR(s.Xmtr_ExpFac[0] + s.Xmtr_ExpFac[1] * x + s.Xmtr_ExpFac[2] * x * x,
                    s.calc_GasExpFactor[i], 1e-12);
    }
    EXPECT_EQ(s.Xmtr_PDCode, 6);
    EXPECT_EQ(s.Xmtr_FluidTypeCode * 1000 + s.Xmtr_SimpleFluidTypeCode, 2002);
    EXPECT_EQ(s.Xmtr_DensUnitCode * 10000 + s.XmtrFF_FtbDensUnitCode, 921097);
    EXPECT_EQ(s.Xmtr_PDLenUnitCode * 10000 + s.XmtrFF_FtbLenUnitCode, 451010);
    EXPECT_DOUBLE_EQ(s.Xmtr_PriDevTherExpFac, 16.81e-6);  // 304 stainless steel
    EXPECT_DOUBLE_EQ(s.Xmtr_PipeTherExpFac, 11.48e-6);    // carbon steel
    EXPECT_EQ(s.Xmtr_Smalld, 0.05);
    EXPECT_EQ(s.Xmtr_BigD, 0.1);
    EXPECT_EQ(s.Xmtr_VolFlowBaseDens, s.UI_RefDensValue);
    EXPECT_EQ(s.Xmtr_CONFIG_WHO, "a user name that runs past thirt");
    EXPECT_EQ(s.Xmtr_CONFIG_DATE, "2024-05-06 07:08");
}

// Catches a natural gas method wired to the wrong library call or composition vector.
TEST_F(Calculation, NaturalGasByEachMethod) {
    const double aga[21] = {77.824, 2,    6,     8,     3,     0.01,  0.25,  0.4,   0.2, 0.5, 0.15,
                            0.3,    0.05, 0.165, 0.215, 0.088, 0.024, 0.015, 0.009, 0.7, 0.1};
    const auto y = s.DetailMoles();
    for (int i = 0; i < 21; ++i) *y[i] = aga[i];
    // AGA8 example sheet: 60 degF / 150 psia and 100 degF / 2000 psia.
    Fluid(2, 4, kAga8Detail);
    Range(288.7055555556, 310.9277777778, 1034.2135939752, 13789.5145863360);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 9.111927, 2e-5 * 9.11);
    EXPECT_NEAR(s.UI_DensStandard[11], 141.0197, 2e-5 * 141.0);
    ExpectGasFitReproducesGrid();
    EXPECT_EQ(s.UI_IsenExpValue, 1.3);  // the initial method choices
    EXPECT_EQ(s.UI_Visc[3], NaturalGasViscosity());

    // Gross method 1 over the same gas, within its range of 12 MPa.
    Range(288.7055555556, 310.9277777778, 1034.2135939752, 10000.0);
    Fluid(2, 4, kAga8Gross1);
    s.UI_VgHvStandard = 39.25453495;
    s.UI_RgRelDens = 0.710973;
    LoadGross1Vector(s, 6.0, 0.0, 0.0);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 9.111879, 2e-5 * 9.11);

    // The molar-composition method is the detail equation (pipeline gas, ISO 12213-2 gas 1).
    const double gas1[21] = {96.5, 0.3, 0.6, 1.8, 0.45, 0, 0, 0, 0, 0, 0.1, 0.1, 0.05, 0.03, 0.07};
    for (int i = 0; i < 21; ++i) *y[i] = gas1[i];
    Fluid(2, 4, kAga8Detail);
    ASSERT_EQ(RunAll(), 0);
    const auto pipeline = s.UI_DensStandard;
    Fluid(2, 4, kIsoMolar);
    s.Mgt_MtdGasVisCalc = 0;  // mixture viscosity: follows temperature
    ASSERT_EQ(RunAll(), 0);
    for (int k = 0; k < 12; ++k) EXPECT_NEAR(s.UI_DensStandard[k], pipeline[k], 1e-9 * pipeline[k]);
    EXPECT_GT(s.UI_Visc[3], s.UI_Visc[0]);

    // ISO 12213-3 example gas 1 at 6 MPa, 270 K and 330 K.
    Fluid(2, 4, kIsoPhysical);
    s.UI_VgHvStandard = 40.66;
    s.UI_RgRelDens = 0.581;
    LoadIsoVector(s, 0.6, 0.0);
    Range(270.0, 330.0, 6000.0, 12000.0);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 53.38070269, 1e-5 * 53.4);
    EXPECT_NEAR(s.UI_DensStandard[8], 39.48980352, 1e-5 * 39.5);
}

// Catches steam routed to the liquid equation, saturated temperatures taken from the range or
// sorted, or a two-phase point stopping the run.
TEST_F(Calculation, SteamSuperheatedAndSaturated) {
    Fluid(2, 5, kSteamSuperheated);
    Range(700.0, 800.0, 3.5, 30000.0);  // IF97 region 2: 700 K at 0.0035 and 30 MPa
    s.UI_TempRefStandard = 400.0;
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 1 / 92.3015898, 1e-8 / 92.3);
    EXPECT_NEAR(s.UI_DensStandard[3], 1 / 0.00542946619, 1e-8 / 0.00543);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);

    Fluid(2, 5, kSteamSaturated);
    Range(0.0, 0.0, 100.0, 1000.0);
    s.UI_RangeTUnit = 32;
    s.UI_DensTempStandard[256] = 400.0;
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_RangeT1Standard, 372.755919, 1e-6);  // IF97 saturation temperatures
    EXPECT_NEAR(s.UI_RangeT2Standard, 453.035632, 1e-6);
    EXPECT_NEAR(s.UI_TempRefStandard, 373.124, 1e-3);
    for (int i = 0; i < 3; ++i) {
        const double T = 372.755919 + i * (453.035632 - 372.755919) / 2;
        EXPECT_NEAR(s.UI_DensTempStandard[i], T, 1e-6);
        EXPECT_DOUBLE_EQ(s.UI_DensTemp[i], s.UI_DensTempStandard[i] - 273.15);
        double rho = 0.0;
        SND::IapwsVdnw(s.UI_DensTempStandard[i], 1000e3, rho);
        EXPECT_DOUBLE_EQ(s.UI_DensStandard[i * 4 + 3], rho);
    }
    EXPECT_DOUBLE_EQ(s.UI_DensTemp[256], 400.0 - 273.15);  // all 257 places converted
    EXPECT_DOUBLE_EQ(s.UI_ViscTempStandard[0], s.UI_RangeT1Standard);
    EXPECT_EQ(s.Gbl_ErrorCode * 10 + s.Gbl_ErrorSubCode, 8905);  // steam below saturation
    ExpectGasFitReproducesGrid(true);
    Range(0.0, 0.0, 1000.0, 100.0);
    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_NEAR(s.UI_DensTempStandard[0], 453.035632, 1e-6);
}

// Catches water sent down the liquid branch or fitted as a gas, and a DIPPR liquid evaluated
// at pressure, given gas expansion terms or its display step from its own count.
TEST_F(Calculation, WaterAndDipprLiquid) {
    Fluid(1, 2, "Pressurised Water");
    Range(300.0, 500.0, 3000.0, 80000.0);  // IF97 region 1: 300 K at 3 and 80 MPa, 500 K at 3
    s.UI_IsenExpValue = 1.3;
    SetLiquidExpansionTerms(s);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 1 / 0.00100215168, 1e-8 / 0.001);
    EXPECT_NEAR(s.UI_DensStandard[3], 1 / 0.000971180894, 1e-8 / 0.00097);
    EXPECT_NEAR(s.UI_DensStandard[8], 1 / 0.00120241800, 1e-8 / 0.0012);
    EXPECT_LT(s.calc_GasExpFactor[2], 1.0);
    EXPECT_EQ(s.Xmtr_ExpFac[0] + s.Xmtr_ExpFac[1], 1.0);  // computed, not fitted
    for (int i = 0; i < 4; ++i)  // liquid form over the first entries of the flat grid
        EXPECT_NEAR(test::Cubic(s.Xmtr_DensCoeff, 300.0 + i * 200.0 / 3), s.UI_DensStandard[i],
                    1e-6);

    const int32_t id = test::CatalogueId("BENZENE");
    Fluid(1, 1, "BENZENE", id);
    Range(345.0, 300.0, 200.0, 400.0);
    s.UI_RangeTUnit = 32;
    s.UI_RangeT1 = 71.85;
    s.UI_RangeT2 = 26.85;
    s.Mgt_GasVisTempDiv = 3;
    s.Xmtr_ExpFac[6] = s.Xmtr_ExpFac[2] = 9.0;
    ASSERT_EQ(RunAll(), 0);
    for (int i = 0; i < 4; ++i) {
        const double T = 300.0 + 15.0 * i;
        EXPECT_DOUBLE_EQ(s.UI_DensStandard[i], Dippr(SND::DprLdn, id, T));
        EXPECT_DOUBLE_EQ(s.UI_Visc[i], Dippr(SND::DprLvs, id, T));
        EXPECT_NEAR(test::Cubic(s.Xmtr_DensCoeff, T), s.UI_DensStandard[i], 1e-9 * 900);
        EXPECT_NEAR(test::Cubic(s.Xmtr_VisCoeff, T), s.UI_Visc[i], 1e-9 * s.UI_Visc[i]);
        EXPECT_DOUBLE_EQ(s.UI_ViscTemp[i], 26.85 + 22.5 * i);
    }
    EXPECT_DOUBLE_EQ(s.UI_RefDensValue, Dippr(SND::DprLdn, id, 288.15));
    EXPECT_EQ(s.Xmtr_ExpFac[2] + s.Xmtr_ExpFac[6], 9.0);  // 1, 0 to element 5 only
    EXPECT_EQ(s.Xmtr_FluidTypeCode, 1);
}

// Catches the air density method switch ignored, and custom tables overwritten by the
// calculation or not fitted as entered.
TEST_F(Calculation, AirAndCustomTables) {
    Fluid(2, 6, "AIR", test::CatalogueId("AIR"));
    Range(280.0, 340.0, 100.0, 1000.0);
    ASSERT_EQ(RunAll(), 0);
    const auto pure = s.UI_DensStandard;
    EXPECT_NEAR(pure[0], 100e3 * 28.96 / (8314.46 * 280.0), 0.01 * pure[0]);
    s.Mgt_MtdAirGasDensityCalculation = 1;
    ASSERT_EQ(RunAll(), 0);
    for (int k = 0; k < 12; ++k) EXPECT_GT(std::fabs(s.UI_DensStandard[k] / pure[k] - 1), 1e-6);

    for (auto [type, cat, rows] : {std::tuple{2, 7, 12}, {1, 3, 4}}) {
        Fluid(type, cat, "custom");
        for (int i = 0; i < 4; ++i) s.UI_Visc[i] = 1e-5 + i * 1e-7;
        ASSERT_EQ(RunCalculation(s), 0);
        for (int k = 0; k < rows; ++k) EXPECT_EQ(s.UI_Dens[k] + s.UI_DensStandard[k], 0.0);
        EXPECT_EQ(s.UI_RefDensValue + s.UI_RefDensValueStandard, 0.0);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(s.UI_Visc[i], 1e-5 + i * 1e-7);
        for (int k = 0; k < rows; ++k) s.UI_DensStandard[k] = 900.0 - k;
        ASSERT_EQ(RunFits(s), 0);
        if (type == 2) ExpectGasFitReproducesGrid();
    }
}

// Catches a fixed-mode device computing an expansion table, a loaded grid rebuilt from the
// range, or a loaded gas viscosity table recomputed.
TEST_F(Calculation, FixedModeAndLoadedTables) {
    const int32_t id = test::CatalogueId("ETHANE");
    s.UI_PEName = "Fixed mode";
    s.UI_PEPrimaryDeviceCode = 1;
    s.UI_PEGasExpFac = 0.98;
    Fluid(2, 6, "ETHANE", id);
    Range(300.0, 360.0, 500.0, 2000.0);
    s.calc_DPP1Ratio[1] = s.calc_GasExpFactor[1] = -2.0;
    ASSERT_EQ(RunAll(), 0);
    EXPECT_EQ(s.calc_DPP1Ratio[1] + s.calc_GasExpFactor[1], -4.0);
    EXPECT_EQ(s.Xmtr_ExpFac[0] + s.Xmtr_ExpFac[1], 0.98);
    EXPECT_EQ(s.Xmtr_PDCode, 1);

    s.Gbl_ReadFromFile = kTrue;
    s.UI_DensTempStandard[4] = 400.0;
    s.UI_DensTemp[4] = -1.0;
    for (int i = 0; i < 4; ++i) s.UI_Visc[i] = s.UI_ViscTempStandard[i] = 310.0;
    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_DOUBLE_EQ(s.UI_DensStandard[4], VapourDensity(id, 400.0, s.UI_DensAbsPressStandard[4]));
    EXPECT_EQ(s.UI_DensTemp[4], -1.0);
    EXPECT_EQ(s.UI_Visc[2], 310.0);
    const int32_t benzene = test::CatalogueId("BENZENE");
    Fluid(1, 1, "BENZENE", benzene);
    ASSERT_EQ(RunCalculation(s), 0);  // a liquid's viscosities are evaluated again
    EXPECT_DOUBLE_EQ(s.UI_Visc[2], Dippr(SND::DprLvs, benzene, 310.0));
}

// Catches numeric failures reported or partly written instead of ending the run quietly,
// and library failures not reported.
TEST_F(Calculation, FailuresEndTheRun) {
    Fluid(2, 6, "ETHANE", test::CatalogueId("ETHANE"));
    Range(300.0, 360.0, 500.0, 2000.0);
    Orifice(100.0, 100.0);
    s.UI_DensStandard[0] = -3.0;
    EXPECT_EQ(RunCalculation(s), 1);
    EXPECT_EQ(s.UI_DensStandard[0], -3.0);
    Orifice(50.0, 100.0);
    for (int32_t* div : {&s.Mgt_GasDensTempDiv, &s.Mgt_GasExpFacDiv, &s.Mgt_GasVisTempDiv}) {
        const int32_t keep = *div;
        *div = div == &s.Mgt_GasVisTempDiv ? 40 : 1;  // 40: beyond the viscosity table
        EXPECT_EQ(RunCalculation(s), 1);
        *div = keep;
    }
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    EXPECT_FALSE(Logged());
    Range(300.0, 360.0, 500.0, 200000.0);  // beyond the equation of state
    EXPECT_NE(RunCalculation(s), 0);
    EXPECT_EQ(s.Gbl_ErrorCode, 600);
    EXPECT_TRUE(Logged());
}

// Catches the Fieldbus density unit overwritten without a counterpart, an unknown device name
// resetting the code, or a name cut through a character.
TEST_F(Calculation, TransmitterParameterEdges) {
    s.UI_PEName = "no such device";
    s.Xmtr_PDCode = 12;
    s.UI_DensUnit = 94;
    s.UI_PEMaterial = "Monel";
    s.UI_PipeMaterial = "Brass";
    s.Mgt_UserName = std::string(31, 'a') + "\xC3\xA9" + "tail";
    ASSERT_EQ(AssembleTransmitterParameters(s), 0);
    EXPECT_EQ(s.Xmtr_PDCode, 12);
    EXPECT_EQ(s.XmtrFF_FtbDensUnitCode, 1107);
    EXPECT_DOUBLE_EQ(s.Xmtr_PriDevTherExpFac, 14.11e-6);
    EXPECT_EQ(s.Xmtr_PipeTherExpFac, 0.0);
    EXPECT_EQ(s.Xmtr_CONFIG_WHO, std::string(31, 'a') + "\xC3\xA9");
    s.UI_DensUnit = 93;
    ASSERT_EQ(AssembleTransmitterParameters(s), 0);
    EXPECT_EQ(s.Xmtr_DensUnitCode * 10000 + s.XmtrFF_FtbDensUnitCode, 931107);
}

}  // namespace
}  // namespace qdf
