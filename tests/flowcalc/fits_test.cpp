// Least-squares reduction of tables to the transmitter's polynomials.

#include <gtest/gtest.h>

#include "CalcFixture.h"
#include "Fits.h"

namespace qdf {
namespace {

// A density surface of exactly the transmitter's 12-term form.
BoundedArray<double, 19> Surface() {
    const double a[12] = {1.5,   -900.0, 2.0e5, 0.02,  1.1,   -40.0,
                          -1e-6, 2e-3,   -0.3,  1e-10, -2e-8, 5e-6};
    BoundedArray<double, 19> s;
    for (int i = 0; i < 12; ++i) s[i] = a[i];
    return s;
}

class FitTest : public test::CalcFixture {
  protected:
    // T 280..320 K, p 1000..4000 kPa, in grid order; limits passed in either order.
    int FitGrid(int tDiv, int pDiv, double t1 = 280.0, double t2 = 320.0) {
        s.Mgt_GasDensTempDiv = tDiv;
        s.Mgt_GasDensPressDiv = pDiv;
        s.Mgt_GasDensDiv = tDiv * pDiv;
        for (int i = 0, k = 0; i < tDiv; ++i)
            for (int j = 0; j < pDiv; ++j, ++k)
                s.UI_DensStandard[k] = test::GasDensityPoly(
                    Surface(), 280.0 + i * 40.0 / (tDiv - 1), 1000.0 + j * 3000.0 / (pDiv - 1));
        return FitDensity(s, 2, 6, "ETHANE", t1, t2, tDiv, 1e6, 4e6, pDiv);
    }
};

// Catches a basis term out of order, pressure not in kPa, u = T instead of 1 / T, or limits
// taken in the order entered: any of them misses a surface of the transmitter's own form.
TEST_F(FitTest, GasSurfaceIsReproducedOnAndOffTheGrid) {
    for (auto [tDiv, pDiv, t1, t2] : {std::tuple{3, 4, 280.0, 320.0}, {7, 9, 320.0, 280.0}}) {
        ASSERT_EQ(FitGrid(tDiv, pDiv, t1, t2), 0);
        for (double T : {280.0, 293.3, 320.0})
            for (double p : {1000.0, 2500.0, 4000.0})
                EXPECT_NEAR(test::GasDensityPoly(s.Xmtr_DensCoeff, T, p),
                            test::GasDensityPoly(Surface(), T, p), 1e-7);
        EXPECT_NEAR(s.calc_DensityYcal[5], s.UI_DensStandard[5], 1e-9);
        EXPECT_LT(s.calc_DensitySigma, 1e-8);
    }
}

// Catches a solver failure that still overwrites results, or goes unreported.
TEST_F(FitTest, RankFailureIsReportedAndWritesNothing) {
    s.Xmtr_DensCoeff[11] = 111.0;
    s.c[0] = 42.0;
    s.calc_DensityYcal[0] = 43.0;
    s.calc_DensitySigma = 44.0;
    ASSERT_EQ(FitGrid(3, 4, 300.0, 300.0), 1);  // one temperature: 1/T repeats the constant
    EXPECT_EQ(s.Gbl_ErrorCode, 600);
    EXPECT_EQ(s.Gbl_ErrorSubCode, 8);
    EXPECT_TRUE(Logged());
    EXPECT_EQ(s.Xmtr_DensCoeff[11], 111.0);
    EXPECT_EQ(s.c[0], 42.0);
    EXPECT_EQ(s.calc_DensityYcal[0], 43.0);
    EXPECT_EQ(s.calc_DensitySigma, 44.0);
}

// Catches a one-point grid or a count beyond a table reaching the solver or the log.
TEST_F(FitTest, NumericFailuresAreQuiet) {
    EXPECT_EQ(FitDensity(s, 2, 6, "ETHANE", 280.0, 320.0, 1, 1e6, 4e6, 4), 1);
    s.Mgt_GasDensDiv = 13;  // more data rows than the 3 x 4 basis table
    EXPECT_EQ(FitDensity(s, 2, 6, "ETHANE", 280.0, 320.0, 3, 1e6, 4e6, 4), 1);
    EXPECT_EQ(FitViscosity(s, 2, 6, "ETHANE", 280.0, 320.0, 1), 1);
    s.Mgt_GasExpFacDiv = 33;
    EXPECT_EQ(FitExpansionFactor(s, 2, 6, "ETHANE", 0.0, 0.25, 33), 1);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    EXPECT_FALSE(Logged());
}

// Catches the liquid cubic clearing the gas-only coefficients, or a liquid viscosity fit using
// the gas count of rows.
TEST_F(FitTest, LiquidFitsKeepTheirOwnCounts) {
    for (int i = 0; i < 19; ++i) s.Xmtr_DensCoeff[i] = -1.0;
    for (int i = 0; i < 5; ++i) {
        const double T = 300.0 + i * 20.0;
        s.UI_DensStandard[i] = 1200.0 - 0.5 * T - 1e-4 * T * T + 2e-7 * T * T * T;
        s.UI_ViscStandard[i] = 1e-3 / (1 + i);
    }
    ASSERT_EQ(FitDensity(s, 1, 1, "BENZENE", 360.0, 300.0, 4, 0.0, 0.0, 4), 0);
    EXPECT_NEAR(s.Xmtr_DensCoeff[1], -0.5, 1e-8);
    EXPECT_NEAR(s.Xmtr_DensCoeff[3], 2e-7, 1e-15);
    EXPECT_EQ(s.Xmtr_DensCoeff[4], -1.0);
    s.Mgt_LqdVisTempDiv = 5;
    ASSERT_EQ(FitViscosity(s, 1, 1, "BENZENE", 300.0, 380.0, 4), 0);
    EXPECT_GT(s.calc_ViscositySigma, 0.0);  // five rows for four terms
    EXPECT_NEAR(s.calc_ViscosityYcal[4], test::Cubic(s.Xmtr_VisCoeff, 380.0), 1e-15);
}

}  // namespace
}  // namespace qdf
