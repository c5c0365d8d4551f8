// Discharge coefficient terms and expansion factors against the primary device standards, in
// the standard's own form with Re explicit (the flow check's reference equations).

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

#include "CodeTables.h"
#include "FlowCoeff.h"
#include "FlowEquation.h"
#include "MvConfig.h"
#include "clsExGlobalVars.h"

namespace qdf {
namespace {

using flowcheck::DeviceReynoldsExponents;
using flowcheck::StandardDischargeCoefficient;
using std::pow;

class DischargeByCode : public ::testing::TestWithParam<int> {};

// Catches a term or a power of 10^6 or 19000 that does not reproduce the device's standard.
TEST_P(DischargeByCode, DeviceFormMatchesTheStandard) {
    const int code = GetParam();
    for (auto [beta, D] : {std::pair{0.3, 50.0}, {0.5, 100.0}, {0.7, 250.0}, {0.6, 60.0}}) {
        clsExGlobalVars s;
        ASSERT_EQ(GetDischargeTerms(s, code, beta * D, D), 0);
        EXPECT_NEAR(s.calc_Beta, beta, 1e-15);
        for (double Re : {1e4, 1e5, 1e6, 1e7}) {
            double C = s.Xmtr_DisCoeff[0];
            for (int i = 0; i < 4; ++i)
                C += s.Xmtr_DisCoeff[i + 1] *
                     pow(Re, DeviceReynoldsExponents(code)[static_cast<std::size_t>(i)]);
            EXPECT_NEAR(C, StandardDischargeCoefficient(code, beta, D, Re), 1e-12)
                << beta << " " << D << " " << Re;
        }
    }
}
INSTANTIATE_TEST_SUITE_P(Codes, DischargeByCode, ::testing::Range(2, 21));

double C0(int code, double D, double b = 0.5) {
    clsExGlobalVars s;
    EXPECT_EQ(GetDischargeTerms(s, code, b * D, D), 0);
    return s.Xmtr_DisCoeff[0];
}

// Catches the two flange tap limits made equal, their strict and inclusive tests swapped, or
// the small-pipe terms applied at 71.12 mm.
TEST(DischargeTerms, PipeDiameterEdges) {
    const double b = 0.5, Q = pow(b, 4) / (1 - pow(b, 4));
    const auto flange = [&](double D, double tap) {
        return 0.5959 + 0.0312 * pow(b, 2.1) - 0.184 * pow(b, 8) + Q * tap -
               0.0337 * pow(b, 3) * 25.4 / D;
    };
    EXPECT_NEAR(C0(5, 50.0), flange(50.0, 0.039), 1e-15);
    EXPECT_NEAR(C0(5, 60.0), flange(60.0, 0.09 * 25.4 / 60.0), 1e-15);
    EXPECT_NEAR(C0(5, 58.62), flange(58.62, 0.039), 1e-15);
    EXPECT_NEAR(C0(5, 58.6), flange(58.6, 0.039), 1e-15);
    EXPECT_NEAR(C0(7, 58.6), flange(58.6, 0.09 * 25.4 / 58.6), 1e-15);
    EXPECT_NEAR(C0(7, 58.59), flange(58.59, 0.039), 1e-15);
    EXPECT_NEAR(C0(3, 71.12), StandardDischargeCoefficient(3, b, 80.0, 1e300), 1e-15);
    EXPECT_GT(std::fabs(C0(3, 71.0) - StandardDischargeCoefficient(3, b, 80.0, 1e300)), 1e-6);
}

// Catches a geometry the formulas cannot take writing half a set of terms or reporting,
// and a fixed-mode device reading the diameters.
TEST(DischargeTerms, FailuresKeepTheTermsAndFixedModeCopies) {
    for (auto [code, d, D] : {std::tuple{5, 100.0, 100.0},
                              {6, 100.0, 100.0},
                              {12, 50.0, 0.0},
                              {3, -50.0, 100.0},
                              {21, 50.0, 100.0}}) {
        clsExGlobalVars s;
        for (int i = 0; i < 5; ++i) s.Xmtr_DisCoeff[i] = 10.0 + i;
        s.UI_PEPrimaryDeviceCode = code;
        s.UI_PEDiameterStandard = d;
        s.UI_PEPipeDiameterStandard = D;
        EXPECT_EQ(CalcDischargeCoefficient(s), 1) << code;
        for (int i = 0; i < 5; ++i) EXPECT_EQ(s.Xmtr_DisCoeff[i], 10.0 + i) << code;
        EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    }
    clsExGlobalVars s;
    s.UI_PEDisCoeff = 0.6123;
    s.Xmtr_DisCoeff[1] = 7.0;
    ASSERT_EQ(GetDischargeTerms(s, 1, 100.0, 100.0), 0);
    EXPECT_EQ(s.Xmtr_DisCoeff[0], 0.6123);
    EXPECT_EQ(s.Xmtr_DisCoeff[1], 0.0);
    EXPECT_EQ(s.calc_Beta, 1.0);
}

// Catches the sub-kind of code 14 lost on lookup, or the AGA flange ratio limit of 0.2.
TEST(DeviceTables, LookupAndRatioLimits) {
    clsExGlobalVars s;
    int32_t code = -1;
    ASSERT_EQ(LookupPrimaryDeviceCode(
                  s, "ASME FLOW NOZZLES [ASME MFC-3M 1989] with throat tap flow nozzle", code),
              0);
    EXPECT_EQ(code * 10 + s.UI_PESubcode, 142);
    EXPECT_EQ(s.UI_PESubCodeName, "14c");
    EXPECT_EQ(LookupPrimaryDeviceCode(s, "Fixed  mode", code), 1);
    EXPECT_EQ(code, 14);
    EXPECT_EQ(SetDpP1RatioRange(s, 8) + s.calc_UpValDpP1Ratio, 0.2);
    EXPECT_EQ(SetDpP1RatioRange(s, 20) + s.calc_UpValDpP1Ratio, 0.25);
    EXPECT_EQ(SetDpP1RatioRange(s, 1) + s.calc_UpValDpP1Ratio, 1.25);
}

double Expansion(int code, double x, double k) {
    clsExGlobalVars s;
    EXPECT_EQ(GetExpansionFactor(s, code, x, k, 50.0, 100.0, 2), 0);
    return s.calc_GasExpFactor[2];
}

// Catches a family given the wrong formula, 1 - x confused with x, or x = 0 not exactly 1
// (the nozzle form is 0 / 0 there).
TEST(ExpansionFactor, FamiliesFollowTheirStandards) {
    const double b4 = pow(0.5, 4);
    for (double x : {0.0, 0.05, 0.25}) {
        for (double k : {1.3, 1.4}) {
            const double t = 1 - x, t2k = pow(t, 2 / k);
            const double nozzle = x == 0 ? 1.0
                                         : std::sqrt(k * t2k / (k - 1) * (1 - b4) / (1 - b4 * t2k) *
                                                     (1 - pow(t, (k - 1) / k)) / (1 - t));
            for (int code = 2; code <= 20; ++code) {
                double expected = nozzle;
                if (code <= 11 && code != 3 && code != 6 && code != 10)
                    expected = 1 - (0.41 + 0.35 * b4) * x / k;
                if (code == 3 || code == 6 || code == 10)
                    expected = 1 - (0.351 + 0.256 * b4 + 0.93 * b4 * b4) * (1 - pow(t, 1 / k));
                EXPECT_NEAR(Expansion(code, x, k), expected, 1e-14) << code << " " << x;
            }
        }
    }
    EXPECT_EQ(Expansion(12, 0.0, 1.0), 1.0);
}

// Catches k = 1 or a broken ratio leaving NaN in the table instead of failing quietly.
TEST(ExpansionFactor, FailuresLeaveTheTablePoint) {
    clsExGlobalVars s;
    s.calc_GasExpFactor[1] = 0.5;
    EXPECT_EQ(GetExpansionFactor(s, 16, 0.1, 1.0, 50.0, 100.0, 1), 1);
    EXPECT_EQ(GetExpansionFactor(s, 2, 0.1, 1.3, 50.0, 0.0, 1), 1);
    EXPECT_EQ(GetExpansionFactor(s, 2, 0.1, 1.3, 50.0, 100.0, 32), 1);
    EXPECT_EQ(GetExpansionFactor(s, 1, 0.1, 1.3, 50.0, 100.0, 1), 0);  // no formula: no change
    EXPECT_EQ(s.calc_GasExpFactor[1], 0.5);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
}

}  // namespace
}  // namespace qdf
