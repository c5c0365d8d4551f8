// Gross characterization methods 1 and 2 (AGA Report No. 8, 1994) against check values, and
// against the detail method on gases whose full analysis is known.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "../common/DataTable.h"
#include "aga_internal.h"
#include "sndl/sndl_aga.h"

using namespace sndl::aga;

namespace {

using qdf::testdata::Row;

const std::vector<Row>& grossCases() {
    static const std::vector<Row> rows =
        qdf::testdata::Load("tests/sndl_aga/data/aga8_gross_cases.csv");
    return rows;
}

void expectRelative(const Row& row, const char* column, double got, double tol) {
    if (!row.has(column)) return;
    const double want = row.num(column);
    EXPECT_NEAR(got, want, tol * std::fabs(want)) << column;
}

bool atSixtyFahrenheit(const GrossReference& ref) {
    return std::fabs(ref.Th - kGross60F.Th) < 1e-6 && std::fabs(ref.Td - kGross60F.Td) < 1e-6 &&
           std::fabs(ref.Pd - kGross60F.Pd) < 1e-6;
}

class GrossCase : public ::testing::TestWithParam<Row> {};

TEST_P(GrossCase, ReproducesCheckValues) {
    // Catches a wrong pseudo-component coefficient, combining rule, reference-state slip or
    // heating value conversion in either method.
    const Row& row = GetParam();
    const GrossReference ref{row.num("Th_K"), row.num("Td_K"), row.num("Pd_kPa")};
    const double T = row.num("T_K"), P = row.num("P_kPa");
    // The published rows stop the reference-state Z iteration once it changes by less than
    // 1e-7, so what scales with the molar mass carries up to that error; this solve converges.
    const double tol = std::max(row.num("rel_tol"), 2e-7);
    const double rd = row.num("rd"), xCO2 = row.num("xCO2");
    const bool method1 = row.text("method") == "1";
    GrossGas gas{};
    double hv = 0.0;
    if (method1) {
        ASSERT_EQ(grossMethod1(row.num("hv_in"), rd, xCO2, 0, 0, ref, gas), SNDL_NORMAL);
        if (row.has("xN2_out")) {
            EXPECT_NEAR(gas.xN2, row.num("xN2_out"), tol);
        }
    } else {
        ASSERT_EQ(grossMethod2(rd, row.num("xN2"), xCO2, 0, 0, ref, gas, &hv), SNDL_NORMAL);
        expectRelative(row, "hv", hv, tol);
    }
    expectRelative(row, "xCH", gas.xCH, tol);
    expectRelative(row, "HCH", gas.HCH, tol);
    expectRelative(row, "M", gas.M, tol);
    double D = 0.0;
    ASSERT_EQ(grossDensity(gas, T, P, D), Root::Gas);
    expectRelative(row, "D", D, tol);
    expectRelative(row, "Z", P / (D * kR * T), tol);
    expectRelative(row, "rho", D * gas.M, tol);

    if (!atSixtyFahrenheit(ref)) return;
    // The wizard's entry points take these inputs at 60 degF and 14.73 psia, in SI units.
    double x[4] = {method1 ? 0.0 : row.num("xN2"), xCO2, 0.0, 0.0};
    double vdn = 0, mw = 0;
    const int32_t status = method1
                               ? AgaGr1VdnMw(T, P * 1000.0, row.num("hv_in"), rd, x, 4, &vdn, &mw)
                               : AgaGr2VdnMw(T, P * 1000.0, rd, x, 4, &vdn, &mw);
    ASSERT_EQ(status, SNDL_NORMAL);
    EXPECT_NEAR(vdn, D, 1e-12 * D);
    EXPECT_NEAR(mw, gas.M, 1e-12 * gas.M);
}

INSTANTIATE_TEST_SUITE_P(Aga8, GrossCase, ::testing::ValuesIn(grossCases()),
                         qdf::testdata::RowName);

TEST(GrossComposition, KnownHydrocarbonGivesTestProgramDensity) {
    // Catches an error in the virial mixture sums with N2 and CO2 present, independent of
    // the characterization: the report's test program gas with its hydrocarbon given.
    const GrossGas gas{0.92, 0.02, 0.06, 0, 0, 1004.738236956522, 20.54333051};
    double D = 0;
    ASSERT_EQ(grossDensity(gas, 300, 10000, D), Root::Gas);
    EXPECT_NEAR(D, 5.117641317088482, 1e-10 * D);
    EXPECT_NEAR(10000 / (D * kR * 300), 0.7833795701012788, 1e-10);
    // Volumetric heating value at 0 degC, 101.325 kPa, combustion at 25 degC.
    double D0 = 0;
    ASSERT_EQ(grossDensity(gas, 273.15, 101.325, D0), Root::Gas);
    EXPECT_NEAR(gas.xCH * gas.HCH * D0, 41.37676728724603, 1e-9 * 41.4);
}

// Relative density at 60 degF, 14.73 psia from the detail method: the real gas density over
// that of air (28.9625 g/mol, second virial coefficient of the 1994 report).
double relativeDensity(double* y) {
    const GrossReference& ref = kGross60F;
    double D = 0, M = 0;
    EXPECT_EQ(AgaDtlVdnMw(ref.Td, ref.Pd * 1000.0, y, &D, &M), SNDL_NORMAL);
    const double bAir = -0.12527 + ref.Td * (5.91e-4 - 6.62e-7 * ref.Td);
    const double dAir = ref.Pd / (kR * ref.Td * (1.0 + bAir * ref.Pd / (kR * ref.Td)));
    return D * M / (dAir * 28.9625);
}

TEST(GrossRoundTrip, MethodTwoFromAnalysisAgreesWithDetail) {
    // Catches gross and detail methods drifting apart beyond the 0.1 percent the report states
    // for pipeline gas, and missing hydrogen and carbon monoxide terms (which alone would put
    // the hydrogen gas 0.9 percent off at 273 K, 8 MPa).
    struct Gas {
        const char* name;
        double tolerance;
        double y[kComponents];
    } gases[] = {
        {"Gulf Coast",
         1e-3,
         {0.965222, 0.002595, 0.005956, 0.018186, 0.004596, 0, 0, 0, 0, 0, 0.000977, 0.001007,
          0.000473, 0.000324, 0.000664}},
        {"High N2",
         1e-3,
         {0.81441, 0.13465, 0.00985, 0.033, 0.00605, 0, 0, 0, 0, 0, 0.001, 0.00104}},
        // 4 % hydrogen and 1 % CO: at the edge of the method, agreement within 0.25 percent.
        {"Hydrogen", 2.5e-3, {0.85, 0.03, 0.02, 0.04, 0.01, 0, 0, 0.04, 0.01}},
    };
    for (Gas& g : gases) {
        const double rd = relativeDensity(g.y);
        double x[4] = {g.y[kNitrogen], g.y[kCO2], g.y[kHydrogen], g.y[kCO]};
        for (double T : {273.15, 300.0, 330.0}) {
            for (double P : {1e6, 5e6, 8e6}) {
                double dDet = 0, mDet = 0, dGr = 0, mGr = 0;
                ASSERT_EQ(AgaDtlVdnMw(T, P, g.y, &dDet, &mDet), SNDL_NORMAL);
                ASSERT_EQ(AgaGr2VdnMw(T, P, rd, x, 4, &dGr, &mGr), SNDL_NORMAL) << g.name;
                EXPECT_NEAR(mGr, mDet, 1e-5 * mDet) << g.name;  // the two reference-state Z differ
                EXPECT_NEAR(dGr * mGr, dDet * mDet, g.tolerance * dDet * mDet)
                    << g.name << " " << T << " K " << P << " Pa";
            }
        }
    }
}

}  // namespace
