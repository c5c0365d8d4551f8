// Least-squares reduction of the property tables to the transmitter's polynomials.

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <iterator>

#include "CalcFixture.h"
#include "Fits.h"

namespace qdf {
namespace {

using test::CalcFixture;

// A smooth density surface that the 12-term form holds exactly.
const double kSurface[12] = {1.5,   -900.0, 2.0e5, 0.02,  1.1,   -40.0,
                             -1e-6, 2e-3,   -0.3,  1e-10, -2e-8, 5e-6};

class FitTest : public CalcFixture {
  protected:
    // T 280..320 K, p 1000..4000 kPa, densities from kSurface in grid order.
    void GasGrid(int tDiv, int pDiv, double t1 = 280.0, double t2 = 320.0) {
        s.UI_FluidType = 2;
        s.Mgt_GasDensTempDiv = tDiv;
        s.Mgt_GasDensPressDiv = pDiv;
        s.Mgt_GasDensDiv = tDiv * pDiv;
        BoundedArray<double, 19> a;
        for (int i = 0; i < 12; ++i) a[i] = kSurface[i];
        int k = 0;
        const double tLow = std::min(t1, t2);
        for (int i = 0; i < tDiv; ++i)
            for (int j = 0; j < pDiv; ++j)
                s.UI_DensStandard[k++] =
                    test::GasDensityPoly(a, tLow + i * std::fabs(t2 - t1) / (tDiv - 1),
                                         1000.0 + j * 3000.0 / (pDiv - 1));
    }
    int FitGas(double t1 = 280.0, double t2 = 320.0) {
        return FitDensity(s, 2, 6, "ETHANE", t1, t2, s.Mgt_GasDensTempDiv, 1.0e6, 4.0e6,
                          s.Mgt_GasDensPressDiv);
    }
};

// Catches a basis term out of order, pressure not scaled to kPa, or u = T instead of 1 / T:
// any of them fails to reproduce a surface of exactly the transmitter's form.
TEST_F(FitTest, GasDensitySurfaceIsReproducedOnAndOffTheGrid) {
    for (auto [tDiv, pDiv] : {std::pair{3, 4}, std::pair{7, 9}}) {
        GasGrid(tDiv, pDiv);
        ASSERT_EQ(FitGas(), 0);
        BoundedArray<double, 19> a;
        for (int i = 0; i < 12; ++i) a[i] = kSurface[i];
        for (double T : {280.0, 293.3, 320.0})
            for (double p : {1000.0, 2500.0, 4000.0})
                EXPECT_NEAR(test::GasDensityPoly(s.Xmtr_DensCoeff, T, p),
                            test::GasDensityPoly(a, T, p), 1e-7)
                    << tDiv << "x" << pDiv << " at " << T << " K " << p << " kPa";
        for (int k = 0; k < tDiv * pDiv; ++k)
            EXPECT_NEAR(s.calc_DensityYcal[k], s.UI_DensStandard[k], 1e-9);
        EXPECT_LT(s.calc_DensitySigma, 1e-8);
        for (int i = 0; i < 12; ++i) EXPECT_EQ(s.Xmtr_DensCoeff[i], s.c[i]);
    }
}

// Catches the grid start taken from the first limit instead of the smaller one.
TEST_F(FitTest, LimitsInEitherOrderGiveTheSameFit) {
    GasGrid(3, 4);
    ASSERT_EQ(FitGas(280.0, 320.0), 0);
    const auto forward = s.Xmtr_DensCoeff;
    ASSERT_EQ(FitGas(320.0, 280.0), 0);
    EXPECT_EQ(s.Xmtr_DensCoeff, forward);
}

// Catches a solver failure that still overwrites coefficients, or goes unreported.
TEST_F(FitTest, RankFailureIsReportedAndWritesNothing) {
    GasGrid(3, 4);
    for (int i = 0; i < 19; ++i) s.Xmtr_DensCoeff[i] = 100.0 + i;
    s.c[0] = 42.0;
    s.calc_DensityYcal[0] = 43.0;
    s.calc_DensitySigma = 44.0;
    // All temperatures equal: the 1/T columns repeat the constant one.
    ASSERT_EQ(FitGas(300.0, 300.0), 1);
    EXPECT_EQ(s.Gbl_ErrorCode, 600);
    EXPECT_EQ(s.Gbl_ErrorSubCode, 8);
    EXPECT_EQ(s.Xmtr_DensCoeff[0], 100.0);
    EXPECT_EQ(s.Xmtr_DensCoeff[11], 111.0);
    EXPECT_EQ(s.c[0], 42.0);
    EXPECT_EQ(s.calc_DensityYcal[0], 43.0);
    EXPECT_EQ(s.calc_DensitySigma, 44.0);
    std::ifstream log(LogFile(), std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(log)), {});
    EXPECT_NE(text.find("Physical Calc lib Error"), std::string::npos);
}

// Catches a division count of 1 or a count beyond the table reaching the solver or the log.
TEST_F(FitTest, NumericFailuresAreQuiet) {
    GasGrid(3, 4);
    s.Mgt_GasDensTempDiv = 1;
    EXPECT_EQ(FitGas(), 1);
    GasGrid(3, 4);
    s.Mgt_GasDensDiv = 13;  // more data rows than the basis table has
    EXPECT_EQ(FitGas(), 1);
    EXPECT_EQ(FitViscosity(s, 2, 6, "ETHANE", 280.0, 320.0, 1), 1);
    s.Mgt_GasExpFacDiv = 33;
    EXPECT_EQ(FitExpansionFactor(s, 2, 6, "ETHANE", 0.0, 0.25, 33), 1);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    EXPECT_FALSE(std::filesystem::exists(LogFile()));
}

// Catches the liquid cubic fitted on the wrong rows or clearing the gas-only coefficients.
TEST_F(FitTest, LiquidCubicKeepsTheUpperCoefficients) {
    s.Mgt_LqdDensTempDiv = 4;
    for (int i = 0; i < 19; ++i) s.Xmtr_DensCoeff[i] = -1.0;
    for (int i = 0; i < 4; ++i) {
        const double T = 300.0 + i * 20.0;
        s.UI_DensStandard[i] = 1200.0 - 0.5 * T - 1e-4 * T * T + 2e-7 * T * T * T;
    }
    ASSERT_EQ(FitDensity(s, 1, 1, "BENZENE", 360.0, 300.0, 4, 0.0, 0.0, 4), 0);
    EXPECT_NEAR(s.Xmtr_DensCoeff[0], 1200.0, 1e-6);
    EXPECT_NEAR(s.Xmtr_DensCoeff[1], -0.5, 1e-8);
    EXPECT_NEAR(s.Xmtr_DensCoeff[3], 2e-7, 1e-15);
    for (int i = 4; i < 12; ++i) EXPECT_EQ(s.Xmtr_DensCoeff[i], -1.0);
}

// Catches water's liquid form reading its flat gas grid in any other way than the first rows.
TEST_F(FitTest, WaterFitsTheFirstRowsOfItsFlatGrid) {
    s.Mgt_LqdDensTempDiv = 4;
    const double table[6] = {1000.1, 1000.4, 1000.9, 1001.2, 980.0, 980.3};
    for (int k = 0; k < 6; ++k) s.UI_DensStandard[k] = table[k];
    ASSERT_EQ(FitDensity(s, 1, 2, "WATER", 300.0, 360.0, 4, 1e6, 4e6, 4), 0);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(test::Cubic(s.Xmtr_DensCoeff, 300.0 + 20.0 * i), table[i], 1e-8);
}

// Catches the saturated steam fit ignoring its stored temperatures, or a liquid fit using the
// gas count of rows.
TEST_F(FitTest, ViscosityRowsByFluid) {
    const double vis[5] = {1.1e-5, 1.2e-5, 1.35e-5, 1.5e-5, 1.7e-5};
    for (int i = 0; i < 5; ++i) s.UI_ViscStandard[i] = vis[i];
    const double tSat[4] = {425.0, 440.0, 447.0, 453.0};
    for (int i = 0; i < 4; ++i) s.UI_ViscTempStandard[i] = tSat[i];
    ASSERT_EQ(FitViscosity(s, 2, 5, "Saturated steam", 0.0, 1.0, 4), 0);
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(test::Cubic(s.Xmtr_VisCoeff, tSat[i]), vis[i], 1e-14);

    ASSERT_EQ(FitViscosity(s, 2, 6, "ETHANE", 330.0, 300.0, 4), 0);
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(test::Cubic(s.Xmtr_VisCoeff, 300.0 + 10.0 * i), vis[i], 1e-14);

    // A liquid takes its own count of rows, whatever tDiv says.
    s.Mgt_LqdVisTempDiv = 5;
    ASSERT_EQ(FitViscosity(s, 1, 1, "BENZENE", 300.0, 340.0, 4), 0);
    EXPECT_GT(s.calc_ViscositySigma, 0.0);  // five rows for four terms
    EXPECT_NEAR(s.calc_ViscosityYcal[4], test::Cubic(s.Xmtr_VisCoeff, 340.0), 1e-15);
}

// Catches the fixed-mode terms overwritten by a fit, or the ratio list not rebuilt.
TEST_F(FitTest, ExpansionFactorQuadratic) {
    s.UI_PEGasExpFac = 0.97;
    ASSERT_EQ(FitExpansionFactor(s, 2, 1, "ETHANE", 0.0, 0.25, 3), 0);
    EXPECT_EQ(s.Xmtr_ExpFac[0], 0.97);
    EXPECT_EQ(s.Xmtr_ExpFac[1], 0.0);

    s.Mgt_GasExpFacDiv = 3;
    s.calc_DPP1Ratio[1] = 9.0;
    for (int i = 0; i < 3; ++i) {
        const double x = 0.1 * i;
        s.calc_GasExpFactor[i] = 1.0 - 0.3 * x + 0.05 * x * x;
    }
    ASSERT_EQ(FitExpansionFactor(s, 2, 6, "ETHANE", 0.0, 0.2, 3), 0);
    EXPECT_EQ(s.calc_DPP1Ratio[1], 0.1);
    EXPECT_NEAR(s.Xmtr_ExpFac[0], 1.0, 1e-13);
    EXPECT_NEAR(s.Xmtr_ExpFac[1], -0.3, 1e-12);
    EXPECT_NEAR(s.Xmtr_ExpFac[2], 0.05, 1e-11);
}

}  // namespace
}  // namespace qdf
