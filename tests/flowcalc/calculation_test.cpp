// The calculation driver and the fits together, one scenario per kind of fluid, from a filled
// store to the transmitter parameters. Published reference values come from IAPWS-IF97 (tables
// of the release's computer-program verification), AGA Report No. 8 examples and ISO 12213-3.

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "CalcFixture.h"
#include "Fits.h"
#include "FlowCoeff.h"
#include "ModUnit.h"
#include "MvConfig.h"
#include "PhysicalProp.h"
#include "SND.h"
#include "XmtrParams.h"

namespace qdf {
namespace {

using test::CalcFixture;

class Calculation : public CalcFixture {
  protected:
    int RunAll() {
        const int calc = RunCalculation(s);
        if (calc != 0) return calc;
        return RunFits(s);
    }
    // Every density of the grid reproduced by the fitted gas polynomial.
    void ExpectGasFitReproducesGrid(double rel) {
        for (int k = 0; k < s.Mgt_GasDensDiv; ++k) {
            const double rho = s.UI_DensStandard[k];
            EXPECT_NEAR(test::GasDensityPoly(s.Xmtr_DensCoeff, s.UI_DensTempStandard[k],
                                             s.UI_DensAbsPressStandard[k] / 1000.0),
                        rho, rel * std::fabs(rho))
                << "grid point " << k;
        }
    }
    void DetailGas() {
        // The AGA Report No. 8 example gas, in percent.
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
};

// Catches any break in the chain from range to transmitter parameters for the plainest
// request: orifice, "ETHANE", 3 x 4 density grid, 4 viscosities, 3 expansion points.
TEST_F(Calculation, EthaneFromRangeToTransmitterParameters) {
    const int32_t id = test::CatalogueId("ETHANE");
    Orifice(50.0, 100.0);
    Fluid(2, 6, "ETHANE", id);
    Range(300.0, 360.0, 500.0, 2000.0);
    s.UI_RangeTUnit = 32;  // shown in deg C
    s.UI_RangeT1 = 26.85;
    s.UI_RangeT2 = 86.85;
    Reference(288.15, 101325.0);
    s.Mgt_UserName = "a user name that runs past thirty-two characters";
    s.Mgt_ConfDate = "2024-05-06 07:08:09";
    s.Mgt_CfgSoftRev = "1.05.00";

    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);

    double mw = 0.0;
    ASSERT_EQ(SND::DprMw(id, mw), 0);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j) {
            const int k = i * 4 + j;
            const double T = 300.0 + 30.0 * i;
            const double P = 500e3 + 500e3 * j;
            EXPECT_DOUBLE_EQ(s.UI_DensTempStandard[k], T);
            EXPECT_DOUBLE_EQ(s.UI_DensAbsPressStandard[k], P);
            EXPECT_DOUBLE_EQ(s.UI_DensTemp[k], 26.85 + 30.0 * i);
            EXPECT_DOUBLE_EQ(s.UI_DensAbsPress[k], 500.0 + 500.0 * j);
            double vdn = 0.0;
            ASSERT_EQ(SND::DprVdn(id, T, P, vdn), 0);
            EXPECT_DOUBLE_EQ(s.UI_DensStandard[k], vdn * mw);
            EXPECT_EQ(s.UI_Dens[k], s.UI_DensStandard[k]);
        }
    }
    double vdnRef = 0.0;
    SND::DprVdn(id, 288.15, 101325.0, vdnRef);
    EXPECT_DOUBLE_EQ(s.UI_RefDensValue, vdnRef * mw);
    EXPECT_EQ(s.UI_RefDensValueStandard, s.UI_RefDensValue);

    // Isentropic exponent at the middle of the range, from the ideal gas heat capacity.
    double cp = 0.0;
    SND::DprIcp(id, 330.0, cp);
    EXPECT_DOUBLE_EQ(s.UI_IsenExpValue, cp / (cp - kGasConstant));

    for (int i = 0; i < 4; ++i) {
        double vis = 0.0;
        SND::DprVvs(id, 300.0 + 20.0 * i, vis);
        EXPECT_DOUBLE_EQ(s.UI_ViscTempStandard[i], 300.0 + 20.0 * i);
        EXPECT_DOUBLE_EQ(s.UI_Visc[i], vis);
        EXPECT_EQ(s.UI_ViscStandard[i], s.UI_Visc[i]);
        EXPECT_EQ(s.UI_VisPress[i], 1250e3);
    }
    for (int i = 0; i < 3; ++i) {
        const double x = 0.125 * i;
        EXPECT_DOUBLE_EQ(s.calc_DPP1Ratio[i], x);
        // ISO 5167-2 expansibility at beta 0.5.
        const double eps = 1 - (0.351 + 0.256 * std::pow(0.5, 4) + 0.93 * std::pow(0.5, 8)) *
                                   (1 - std::pow(1 - x, 1 / s.UI_IsenExpValue));
        EXPECT_NEAR(s.calc_GasExpFactor[i], eps, 1e-15);
    }

    ASSERT_EQ(RunFits(s), 0);
    ExpectGasFitReproducesGrid(1e-9);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(test::Cubic(s.Xmtr_VisCoeff, s.UI_ViscTempStandard[i]), s.UI_Visc[i],
                    1e-9 * s.UI_Visc[i]);
    for (int i = 0; i < 3; ++i) {
        const double x = s.calc_DPP1Ratio[i];
        EXPECT_NEAR(s.Xmtr_ExpFac[0] + s.Xmtr_ExpFac[1] * x + s.Xmtr_ExpFac[2] * x * x,
                    s.calc_GasExpFactor[i], 1e-12);
    }

    EXPECT_EQ(s.Xmtr_PDCode, 6);
    EXPECT_EQ(s.Xmtr_FluidTypeCode, 2);
    EXPECT_EQ(s.Xmtr_SimpleFluidTypeCode, 2);
    EXPECT_EQ(s.Xmtr_DensUnitCode, 92);
    EXPECT_EQ(s.XmtrFF_FtbDensUnitCode, 1097);
    EXPECT_EQ(s.Xmtr_PDLenUnitCode, 45);
    EXPECT_EQ(s.Xmtr_LenUnitCode, 45);
    EXPECT_EQ(s.XmtrFF_FtbLenUnitCode, 1010);
    EXPECT_DOUBLE_EQ(s.Xmtr_PriDevTherExpFac, 16.81e-6);  // 304 stainless steel
    EXPECT_DOUBLE_EQ(s.Xmtr_PipeTherExpFac, 11.48e-6);    // carbon steel
    EXPECT_EQ(s.Xmtr_Smalld, 0.05);
    EXPECT_EQ(s.Xmtr_BigD, 0.1);
    EXPECT_EQ(s.Xmtr_RefDensUnitCode, 92);
    EXPECT_EQ(s.Xmtr_VolFlowBaseDens, s.UI_RefDensValue);
    EXPECT_EQ(s.Xmtr_CONFIG_WHO, "a user name that runs past thirt");
    EXPECT_EQ(s.Xmtr_CONFIG_DATE, "2024-05-06 07:08");
    EXPECT_EQ(s.Xmtr_CONFIG_SOFT_REV, "1.05.00");
}

// Catches the grids built from the first limit instead of the smaller one.
TEST_F(Calculation, LimitsEnteredHighFirstGiveTheSameGrids) {
    const int32_t id = test::CatalogueId("ETHANE");
    Orifice();
    Fluid(2, 6, "ETHANE", id);
    Range(300.0, 360.0, 500.0, 2000.0);
    ASSERT_EQ(RunCalculation(s), 0);
    const auto dens = s.UI_DensStandard;
    const auto visc = s.UI_ViscTempStandard;
    Range(360.0, 300.0, 2000.0, 500.0);
    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_EQ(s.UI_DensStandard, dens);
    EXPECT_EQ(s.UI_ViscTempStandard, visc);

    const int32_t benzene = test::CatalogueId("BENZENE");
    Fluid(1, 1, "BENZENE", benzene);
    Range(340.0, 300.0, 100.0, 100.0);
    ASSERT_EQ(RunCalculation(s), 0);
    for (int i = 0; i < 4; ++i) EXPECT_DOUBLE_EQ(s.UI_DensTempStandard[i], 300.0 + 40.0 * i / 3);
}

// Catches a natural gas method wired to the wrong library call or composition vector.
TEST_F(Calculation, NaturalGasByEachMethodAgainstPublishedValues) {
    Orifice();
    // AGA8 detail at 60 degF / 150 psia and 100 degF / 2000 psia (AGA8 example sheet).
    DetailGas();
    Fluid(2, 4, kAga8Detail);
    Range(288.7055555556, 310.9277777778, 1034.2135939752, 13789.5145863360);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 9.111927, 2e-5 * 9.111927);
    EXPECT_NEAR(s.UI_DensStandard[11], 141.0197, 2e-5 * 141.0197);
    ExpectGasFitReproducesGrid(1e-9);
    // Method choices of the initial values: fixed exponent and viscosity.
    EXPECT_EQ(s.UI_IsenExpValue, 1.3);
    EXPECT_EQ(s.UI_Visc[3], NaturalGasViscosity());

    // AGA8 gross method 1, same gas by heating value, relative density and CO2 (its range
    // ends at 12 MPa).
    Range(288.7055555556, 310.9277777778, 1034.2135939752, 10000.0);
    ASSERT_EQ(RunAll(), 0);
    const auto detail = s.UI_DensStandard;
    Fluid(2, 4, kAga8Gross1);
    s.UI_VgHvStandard = 39.25453495;
    s.UI_RgRelDens = 0.710973;
    LoadGross1Vector(s, 6.0, 0.0, 0.0);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 9.111879, 2e-5 * 9.111879);
    // The gross characterisation stays within one percent of the detailed one.
    for (int k = 0; k < 12; ++k) EXPECT_NEAR(s.UI_DensStandard[k], detail[k], 1e-2 * detail[k]);

    // AGA8 gross method 2: the same gas by relative density, nitrogen and CO2; hydrogen,
    // helium and the sulphur compound are lumped into the hydrocarbon, hence the wider margin.
    Fluid(2, 4, kAga8Gross2);
    LoadGross2Vector(s, 6.0, 0.0, 0.0, 2.0);
    ASSERT_EQ(RunAll(), 0);
    for (int k = 0; k < 12; ++k) EXPECT_NEAR(s.UI_DensStandard[k], detail[k], 2.5e-2 * detail[k]);
    EXPECT_NE(s.UI_DensStandard[11], detail[11]);

    // The molar-composition method is the detail equation: same table for a pipeline gas
    // (ISO 12213-2 example gas 1).
    const double gas1[21] = {96.5, 0.3,  0.6,  1.8,  0.45, 0, 0, 0, 0, 0, 0.1,
                             0.1,  0.05, 0.03, 0.07, 0,    0, 0, 0, 0, 0};
    double* dtl[21] = {&s.UI_DtlMethaneMole,    &s.UI_DtlN2Mole,        &s.UI_DtlCO2Mole,
                       &s.UI_DtlEthaneMole,     &s.UI_DtlPropaneMole,   &s.UI_DtlWaterMole,
                       &s.UI_DtlH2SMole,        &s.UI_DtlH2Mole,        &s.UI_DtlCOMole,
                       &s.UI_DtlO2Mole,         &s.UI_DtlIsobutaneMole, &s.UI_DtlButaneMole,
                       &s.UI_DtlIsoPentaneMole, &s.UI_DtlPentaneMole,   &s.UI_DtlHexaneMole,
                       &s.UI_DtlHeptaneMole,    &s.UI_DtlOctaneMole,    &s.UI_DtlNonaneMole,
                       &s.UI_DtlDecaneMole,     &s.UI_DtlHe4Mole,       &s.UI_DtlArMole};
    for (int i = 0; i < 21; ++i) *dtl[i] = gas1[i];
    Fluid(2, 4, kAga8Detail);
    ASSERT_EQ(RunAll(), 0);
    const auto pipeline = s.UI_DensStandard;
    Fluid(2, 4, kIsoMolar);
    ASSERT_EQ(RunAll(), 0);
    for (int k = 0; k < 12; ++k) EXPECT_NEAR(s.UI_DensStandard[k], pipeline[k], 1e-9 * pipeline[k]);

    // With the mixture viscosity the table follows temperature.
    s.Mgt_MtdGasVisCalc = 0;
    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_GT(s.UI_Visc[3], s.UI_Visc[0]);

    // ISO 12213-3 example gas 1 at 270 K and 330 K, 6 MPa.
    Fluid(2, 4, kIsoPhysical);
    s.UI_VgHvStandard = 40.66;
    s.UI_RgRelDens = 0.581;
    LoadIsoVector(s, 0.6, 0.0);
    Range(270.0, 330.0, 6000.0, 12000.0);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 53.38070269, 1e-5 * 53.38);
    EXPECT_NEAR(s.UI_DensStandard[8], 39.48980352, 1e-5 * 39.49);
    ExpectGasFitReproducesGrid(1e-9);
}

// Catches steam routed to the liquid equation or its grid points mixed up.
TEST_F(Calculation, SuperheatedSteamAgainstIf97) {
    Orifice();
    Fluid(2, 5, kSteamSuperheated);
    // IF97 region 2 verification points: 700 K at 0.0035 MPa and at 30 MPa.
    Range(700.0, 800.0, 3.5, 30000.0);
    Reference(400.0, 101325.0);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 1 / 92.3015898, 1e-8 / 92.3);
    EXPECT_NEAR(s.UI_DensStandard[3], 1 / 0.00542946619, 1e-8 / 0.0054);
    EXPECT_GT(s.UI_IsenExpValue, 1.0);
    EXPECT_LT(s.UI_IsenExpValue, 1.4);
    EXPECT_GT(s.UI_Visc[3], s.UI_Visc[0]);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);

    // A grid reaching below the saturation line is a warning, not a failure.
    Range(373.15, 473.15, 100.0, 1000.0);
    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_EQ(s.Gbl_ErrorCode, 890);
    EXPECT_EQ(s.Gbl_ErrorSubCode, 5);
}

// Catches saturated steam taking its temperatures from the range instead of the pressures,
// or its list sorted where it must follow the order entered.
TEST_F(Calculation, SaturatedSteamTemperaturesFollowThePressures) {
    Orifice();
    Fluid(2, 5, kSteamSaturated);
    Range(0.0, 0.0, 100.0, 1000.0);
    s.UI_RangeTUnit = 32;
    s.UI_DensTempStandard[256] = 400.0;
    Reference(0.0, 101325.0);
    ASSERT_EQ(RunAll(), 0);
    // IF97 saturation temperatures at 0.1 MPa and 1 MPa.
    EXPECT_NEAR(s.UI_RangeT1Standard, 372.755919, 1e-6);
    EXPECT_NEAR(s.UI_RangeT2Standard, 453.035632, 1e-6);
    EXPECT_NEAR(s.UI_TempRefStandard, 373.124, 1e-3);
    for (int i = 0; i < 3; ++i) {
        const double T =
            s.UI_RangeT1Standard + i * (s.UI_RangeT2Standard - s.UI_RangeT1Standard) / 2;
        EXPECT_DOUBLE_EQ(s.UI_DensTempStandard[i], T);
        EXPECT_DOUBLE_EQ(s.UI_DensTemp[i], T - 273.15);
        for (int j = 0; j < 4; ++j) {
            double rho = 0.0;
            SND::IapwsVdnw(T, 100e3 + 300e3 * j, rho);
            EXPECT_DOUBLE_EQ(s.UI_DensStandard[i * 4 + j], rho);
        }
    }
    // Every one of the 257 display places is converted, used or not.
    EXPECT_DOUBLE_EQ(s.UI_DensTemp[256], 400.0 - 273.15);
    // Viscosity starts at the first saturation temperature, shown in the reference unit.
    EXPECT_DOUBLE_EQ(s.UI_ViscTempStandard[0], s.UI_RangeT1Standard);
    EXPECT_DOUBLE_EQ(s.UI_ViscTemp[3], s.UI_ViscTempStandard[3] - 273.15);
    // Points below the saturation line at the higher pressures: a warning.
    EXPECT_EQ(s.Gbl_ErrorCode, 890);
    // The fit over the temperature list times the pressure list.
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 4; ++j) {
            const double rho = s.UI_DensStandard[i * 4 + j];
            EXPECT_NEAR(test::GasDensityPoly(s.Xmtr_DensCoeff, s.UI_DensTempStandard[i],
                                             s.UI_DensAbsPressStandard[j] / 1000.0),
                        rho, 1e-9 * rho);
        }
    }

    Range(0.0, 0.0, 1000.0, 100.0);
    ASSERT_EQ(RunCalculation(s), 0);
    EXPECT_NEAR(s.UI_DensTempStandard[0], 453.035632, 1e-6);
    EXPECT_NEAR(s.UI_DensTempStandard[2], 372.755919, 1e-6);
}

// Catches water sent down the liquid branch (no pressure dependence) or fitted as a gas.
TEST_F(Calculation, PressurisedWaterOnTheFullGrid) {
    Orifice();
    Fluid(1, 2, "Pressurised Water");
    // IF97 region 1 verification: 300 K at 3 and 80 MPa, 500 K at 3 MPa.
    Range(300.0, 500.0, 3000.0, 80000.0);
    Reference(288.15, 101325.0);
    s.UI_IsenExpValue = 1.3;
    ASSERT_EQ(SetLiquidExpansionTerms(s), 0);
    ASSERT_EQ(RunAll(), 0);
    EXPECT_NEAR(s.UI_DensStandard[0], 1 / 0.00100215168, 1e-8 / 0.001);
    EXPECT_NEAR(s.UI_DensStandard[3], 1 / 0.000971180894, 1e-8 / 0.00097);
    EXPECT_NEAR(s.UI_DensStandard[8], 1 / 0.00120241800, 1e-8 / 0.0012);
    EXPECT_EQ(s.UI_IsenExpValue, 1.3);
    // The expansion table is computed but the liquid terms stand.
    EXPECT_LT(s.calc_GasExpFactor[2], 1.0);
    EXPECT_EQ(s.Xmtr_ExpFac[0], 1.0);
    EXPECT_EQ(s.Xmtr_ExpFac[1], 0.0);
    EXPECT_EQ(s.Xmtr_FluidTypeCode, 1);
    // Liquid form over the first rows of the flat grid.
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(test::Cubic(s.Xmtr_DensCoeff, 300.0 + i * 200.0 / 3), s.UI_DensStandard[i],
                    1e-9 * 1000);
}

// Catches a liquid evaluated at pressure, given gas expansion terms, or the display step
// computed from its own count.
TEST_F(Calculation, DipprLiquid) {
    const int32_t id = test::CatalogueId("BENZENE");
    Orifice();
    Fluid(1, 1, "BENZENE", id);
    Range(300.0, 345.0, 200.0, 400.0);
    s.UI_RangeTUnit = 32;
    s.UI_RangeT1 = 26.85;
    s.UI_RangeT2 = 71.85;
    s.Mgt_GasVisTempDiv = 3;
    Reference(293.15, 101325.0);
    for (int i = 0; i < 7; ++i) s.Xmtr_ExpFac[i] = 9.0;
    ASSERT_EQ(RunAll(), 0);
    double mw = 0.0;
    SND::DprMw(id, mw);
    for (int i = 0; i < 4; ++i) {
        const double T = 300.0 + 15.0 * i;
        double ldn = 0.0, vis = 0.0;
        SND::DprLdn(id, T, ldn);
        SND::DprLvs(id, T, vis);
        EXPECT_DOUBLE_EQ(s.UI_DensStandard[i], ldn * mw);
        EXPECT_DOUBLE_EQ(s.UI_Visc[i], vis);
        EXPECT_NEAR(test::Cubic(s.Xmtr_DensCoeff, T), ldn * mw, 1e-9 * ldn * mw);
        EXPECT_NEAR(test::Cubic(s.Xmtr_VisCoeff, T), vis, 1e-9 * vis);
        // Display step from the gas count of 3: 22.5 degrees.
        EXPECT_DOUBLE_EQ(s.UI_ViscTemp[i], 26.85 + 22.5 * i);
        EXPECT_EQ(s.UI_VisPress[i], 300e3);
    }
    double ldnRef = 0.0;
    SND::DprLdn(id, 293.15, ldnRef);
    EXPECT_DOUBLE_EQ(s.UI_RefDensValue, ldnRef * mw);
    const double expected[7] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0, 9.0};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(s.Xmtr_ExpFac[i], expected[i]);
    EXPECT_EQ(s.Xmtr_FluidTypeCode, 1);
}

// Catches the air density method switch ignored.
TEST_F(Calculation, AirByBothDensityMethods) {
    Orifice();
    Fluid(2, 6, "AIR", test::CatalogueId("AIR"));
    Range(280.0, 340.0, 100.0, 1000.0);
    s.Mgt_MtdAirGasDensityCalculation = 0;
    ASSERT_EQ(RunAll(), 0);
    const auto pure = s.UI_DensStandard;
    // Near ideal at 280 K, 100 kPa: p M / (R T) with M = 28.96.
    EXPECT_NEAR(pure[0], 100e3 * 28.96 / (8314.46 * 280.0), 0.01 * pure[0]);
    s.Mgt_MtdAirGasDensityCalculation = 1;
    ASSERT_EQ(RunAll(), 0);
    for (int k = 0; k < 12; ++k) {
        EXPECT_GT(s.UI_DensStandard[k], 0.0);
        EXPECT_GT(std::fabs(s.UI_DensStandard[k] - pure[k]), 1e-6 * pure[k]) << k;
    }
    ExpectGasFitReproducesGrid(1e-9);
}

// Catches custom tables overwritten by the calculation or not fitted as entered.
TEST_F(Calculation, CustomTablesComeFromThePropertyPage) {
    Orifice();
    for (auto [type, cat] : {std::pair{2, 7}, std::pair{1, 3}}) {
        Fluid(type, cat, "custom");
        Range(280.0, 340.0, 100.0, 1000.0);
        Reference(288.15, 101325.0);
        for (int i = 0; i < 32; ++i) s.UI_Visc[i] = 1e-5 + i * 1e-7;
        s.UI_DensStandard[0] = 5.0;
        ASSERT_EQ(RunCalculation(s), 0);
        for (int k = 0; k < (type == 2 ? 12 : 4); ++k) {
            EXPECT_EQ(s.UI_DensStandard[k], 0.0);
            EXPECT_EQ(s.UI_Dens[k], 0.0);
        }
        EXPECT_EQ(s.UI_RefDensValue, 0.0);
        EXPECT_EQ(s.UI_RefDensValueStandard, 0.0);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(s.UI_Visc[i], 1e-5 + i * 1e-7);

        // The user's table, then the fits alone.
        for (int k = 0; k < 12; ++k) s.UI_DensStandard[k] = 900.0 - k;
        for (int i = 0; i < 4; ++i) s.UI_ViscStandard[i] = 1e-3 / (1 + i);
        ASSERT_EQ(RunFits(s), 0) << cat;
        for (int i = 0; i < 4; ++i)
            EXPECT_NEAR(test::Cubic(s.Xmtr_VisCoeff, 280.0 + 20.0 * i), 1e-3 / (1 + i), 1e-12);
        if (type == 2) ExpectGasFitReproducesGrid(1e-9);
    }
}

// Catches a fixed-mode device computing an expansion table anyway.
TEST_F(Calculation, FixedModeLeavesTheExpansionTable) {
    const int32_t id = test::CatalogueId("ETHANE");
    s.UI_PEName = "Fixed mode";
    s.UI_PEPrimaryDeviceCode = 1;
    s.UI_PEDisCoeff = 0.6;
    s.UI_PEGasExpFac = 0.98;
    Fluid(2, 6, "ETHANE", id);
    Range(300.0, 360.0, 500.0, 2000.0);
    for (int i = 0; i < 32; ++i) s.calc_DPP1Ratio[i] = s.calc_GasExpFactor[i] = -2.0;
    ASSERT_EQ(RunAll(), 0);
    for (int i = 0; i < 32; ++i) {
        EXPECT_EQ(s.calc_DPP1Ratio[i], -2.0);
        EXPECT_EQ(s.calc_GasExpFactor[i], -2.0);
    }
    EXPECT_EQ(s.Xmtr_ExpFac[0], 0.98);
    EXPECT_EQ(s.Xmtr_ExpFac[1], 0.0);
    EXPECT_EQ(s.Xmtr_DisCoeff[0], 0.6);
    EXPECT_EQ(s.Xmtr_PDCode, 1);
}

// Catches a loaded grid rebuilt from the range, or a loaded gas viscosity table recomputed.
TEST_F(Calculation, LoadedTablesAreEvaluatedAgainAtTheirPoints) {
    const int32_t id = test::CatalogueId("ETHANE");
    Orifice();
    Fluid(2, 6, "ETHANE", id);
    Range(300.0, 360.0, 500.0, 2000.0);
    s.Gbl_ReadFromFile = kTrue;
    for (int k = 0; k < 12; ++k) {
        s.UI_DensTempStandard[k] = 400.0;
        s.UI_DensAbsPressStandard[k] = 100e3 * (k + 1);
        s.UI_DensTemp[k] = -1.0;
    }
    for (int i = 0; i < 4; ++i) s.UI_Visc[i] = s.UI_ViscTempStandard[i] = 7.0;
    ASSERT_EQ(RunCalculation(s), 0);
    double mw = 0.0, vdn = 0.0;
    SND::DprMw(id, mw);
    SND::DprVdn(id, 400.0, 500e3, vdn);
    EXPECT_DOUBLE_EQ(s.UI_DensStandard[4], vdn * mw);
    EXPECT_EQ(s.UI_DensTemp[4], -1.0);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(s.UI_Visc[i], 7.0);

    const int32_t benzene = test::CatalogueId("BENZENE");
    Fluid(1, 1, "BENZENE", benzene);
    for (int i = 0; i < 4; ++i) s.UI_DensTempStandard[i] = s.UI_ViscTempStandard[i] = 310.0;
    ASSERT_EQ(RunCalculation(s), 0);
    double vis = 0.0;
    SND::DprLvs(benzene, 310.0, vis);
    EXPECT_DOUBLE_EQ(s.UI_Visc[2], vis);
}

// Catches a one-point grid or a broken geometry reported or partly written instead of ending
// the run quietly.
TEST_F(Calculation, NumericFailuresEndTheRunQuietly) {
    const int32_t id = test::CatalogueId("ETHANE");
    Fluid(2, 6, "ETHANE", id);
    Range(300.0, 360.0, 500.0, 2000.0);
    Orifice(100.0, 100.0);
    s.UI_DensStandard[0] = -3.0;
    EXPECT_EQ(RunCalculation(s), 1);
    EXPECT_EQ(s.UI_DensStandard[0], -3.0);

    Orifice();
    s.Mgt_GasDensTempDiv = 1;
    EXPECT_EQ(RunCalculation(s), 1);
    s.Mgt_GasDensTempDiv = 3;
    s.Mgt_GasExpFacDiv = 1;
    EXPECT_EQ(RunCalculation(s), 1);
    s.Mgt_GasExpFacDiv = 3;
    s.Mgt_GasVisTempDiv = 40;  // beyond the 32 places of the viscosity table
    EXPECT_EQ(RunCalculation(s), 1);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    EXPECT_FALSE(std::filesystem::exists(LogFile()));

    // A library failure, by contrast, is reported.
    s.Mgt_GasVisTempDiv = 4;
    Range(300.0, 360.0, 500.0, 200000.0);  // ethane far above its equation's pressure range
    EXPECT_NE(RunCalculation(s), 0);
    EXPECT_EQ(s.Gbl_ErrorCode, 600);
    EXPECT_TRUE(std::filesystem::exists(LogFile()));
}

// Catches the Fieldbus density unit overwritten for a code it has no counterpart for, an
// unknown device name resetting the code, or a name cut through a character.
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
    s.UI_PEName = "ASME FLOW NOZZLES [ASME MFC-3M 1989] with low beta ratio";
    ASSERT_EQ(AssembleTransmitterParameters(s), 0);
    EXPECT_EQ(s.Xmtr_DensUnitCode, 93);
    EXPECT_EQ(s.XmtrFF_FtbDensUnitCode, 1107);
    EXPECT_EQ(s.Xmtr_PDCode, 14);
    EXPECT_EQ(s.UI_PESubCodeName, "14b");
}

}  // namespace
}  // namespace qdf
