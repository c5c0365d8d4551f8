// Discharge coefficient terms and expansion factors against the primary device standards,
// each equation written out here in the standard's own form with Re explicit.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "CodeTables.h"
#include "FlowCoeff.h"
#include "MvConfig.h"
#include "clsExGlobalVars.h"

namespace qdf {
namespace {

// ---- The standards ----------------------------------------------------------------------

// ISO 5167-1 (1991) orifice after Stolz, tap spacings L1 and L2'. Where L1 >= 0.4333 the
// standard uses 0.039 for 0.09 L1. ASME MFC-3M (1989) D and D/2 taps print 0.01584 b^3 in
// place of 0.0337 L2' b^3.
double Stolz(double b, double Re, double L1, double L2, bool asmeDD2 = false) {
    const double tap = L1 >= 0.4333 ? 0.039 : 0.09 * L1;
    const double down = asmeDD2 ? 0.01584 * std::pow(b, 3) : 0.0337 * L2 * std::pow(b, 3);
    return 0.5959 + 0.0312 * std::pow(b, 2.1) - 0.184 * std::pow(b, 8) +
           0.0029 * std::pow(b, 2.5) * std::pow(1e6 / Re, 0.75) +
           tap * std::pow(b, 4) / (1 - std::pow(b, 4)) - down;
}

// ISO 5167-2 (2003), Reader-Harris/Gallagher.
double Rhg2003(double b, double D, double Re, double L1, double L2) {
    const double A = std::pow(19000 * b / Re, 0.8);
    const double M2 = 2 * L2 / (1 - b);
    double C = 0.5961 + 0.0261 * b * b - 0.216 * std::pow(b, 8) +
               0.000521 * std::pow(1e6 * b / Re, 0.7) +
               (0.0188 + 0.0063 * A) * std::pow(b, 3.5) * std::pow(1e6 / Re, 0.3) +
               (0.043 + 0.080 * std::exp(-10 * L1) - 0.123 * std::exp(-7 * L1)) * (1 - 0.11 * A) *
                   std::pow(b, 4) / (1 - std::pow(b, 4)) -
               0.031 * (M2 - 0.8 * std::pow(M2, 1.1)) * std::pow(b, 1.3);
    if (D < 71.12) C += 0.011 * (0.75 - b) * (2.8 - D / 25.4);
    return C;
}

// AGA Report No. 3 (1992), flange taps: Ci(CT) + tap term + Re dependent terms.
double Aga3(double b, double D, double Re) {
    const double L = 25.4 / D;
    const double M1 = std::max(2.8 - D / 25.4, 0.0);
    const double M2 = 2 * L / (1 - b);
    const double A = std::pow(19000 * b / Re, 0.8);
    const double B = std::pow(b, 4) / (1 - std::pow(b, 4));
    const double ciCT = 0.5961 + 0.0291 * b * b - 0.229 * std::pow(b, 8) + 0.003 * (1 - b) * M1;
    const double up =
        (0.0433 + 0.0712 * std::exp(-8.5 * L) - 0.1145 * std::exp(-6.0 * L)) * (1 - 0.23 * A) * B;
    const double down =
        -0.0116 * (M2 - 0.52 * std::pow(M2, 1.3)) * std::pow(b, 1.1) * (1 - 0.14 * A);
    return ciCT + up + down + 0.000511 * std::pow(1e6 * b / Re, 0.7) +
           (0.021 + 0.0049 * A) * std::pow(b, 4) * std::pow(1e6 / Re, 0.35);
}

double Standard(int code, double b, double D, double Re) {
    const double L = 25.4 / D;
    switch (code) {
        case 2:
        case 4:
            return Stolz(b, Re, 0, 0);
        case 5:
        case 7:
            return Stolz(b, Re, L, L);
        case 9:
            return Stolz(b, Re, 1, 0.47);
        case 11:
            return Stolz(b, Re, 1, 0, true);
        case 3:
            return Rhg2003(b, D, Re, 0, 0);
        case 6:
            return Rhg2003(b, D, Re, L, L);
        case 10:
            return Rhg2003(b, D, Re, 1, 0.47);
        case 8:
            return Aga3(b, D, Re);
        case 12:  // ISA 1932 nozzle
            return 0.99 - 0.2262 * std::pow(b, 4.1) -
                   (0.00175 * b * b - 0.0033 * std::pow(b, 4.15)) * std::pow(1e6 / Re, 1.15);
        case 13:  // long radius nozzle
            return 0.9965 - 0.00653 * std::sqrt(b) * std::sqrt(1e6 / Re);
        case 14:  // ASME flow nozzle
            return 0.9975 - 0.00653 * std::sqrt(b) * std::sqrt(1e6 / Re);
        case 15:  // venturi nozzle
            return 0.9858 - 0.196 * std::pow(b, 4.5);
        case 16:
        case 17:
            return 0.984;
        case 18:
        case 19:
            return 0.995;
        default:
            return 0.985;
    }
}

// What the device computes from the five terms, by device code.
double DeviceForm(int code, const BoundedArray<double, 7>& c, double Re) {
    switch (code) {
        case 2:
        case 4:
        case 5:
        case 7:
        case 9:
        case 11:
            return c[0] + c[1] * std::pow(Re, -0.75);
        case 3:
        case 6:
        case 10:
            return c[0] + c[1] * std::pow(Re, -0.8) + c[2] * std::pow(Re, -0.7) +
                   c[3] * std::pow(Re, -0.3) + c[4] * std::pow(Re, -1.1);
        case 8:
            return c[0] + c[1] * std::pow(Re, -0.8) + c[2] * std::pow(Re, -0.7) +
                   c[3] * std::pow(Re, -0.35) + c[4] * std::pow(Re, -1.15);
        case 12:
            return c[0] + c[1] * std::pow(Re, -1.15);
        case 13:
        case 14:
            return c[0] + c[1] * std::pow(Re, -0.5);
        default:
            return c[0];
    }
}

struct Geometry {
    double beta;
    double D;
};

// Pipes away from the tap-term edges, small enough for the small-pipe terms and large enough
// to be without them.
const Geometry kGeometries[] = {{0.3, 50.0}, {0.5, 100.0}, {0.7, 250.0}, {0.6, 60.0}};
const double kReynolds[] = {1e4, 1e5, 1e6, 1e7};

class DischargeByCode : public ::testing::TestWithParam<int> {};

// Catches a term or exponent that does not reproduce the published equation of the device.
TEST_P(DischargeByCode, DeviceFormMatchesTheStandard) {
    const int code = GetParam();
    for (const Geometry& g : kGeometries) {
        clsExGlobalVars s;
        ASSERT_EQ(GetDischargeTerms(s, code, g.beta * g.D, g.D), 0);
        EXPECT_NEAR(s.calc_Beta, g.beta, 1e-15);
        for (double Re : kReynolds) {
            EXPECT_NEAR(DeviceForm(code, s.Xmtr_DisCoeff, Re), Standard(code, g.beta, g.D, Re),
                        1e-12)
                << "code " << code << " beta " << g.beta << " D " << g.D << " Re " << Re;
        }
        // The device reads exactly five terms; nothing may spill into the margin.
        EXPECT_EQ(s.Xmtr_DisCoeff[5], 0.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Codes2To20, DischargeByCode, ::testing::Range(2, 21),
                         [](const auto& info) { return "code" + std::to_string(info.param); });

double C0(int code, double d, double D) {
    clsExGlobalVars s;
    EXPECT_EQ(GetDischargeTerms(s, code, d, D), 0);
    return s.Xmtr_DisCoeff[0];
}

double Q(double b) {
    return std::pow(b, 4) / (1 - std::pow(b, 4));
}

// Catches the flange tap limits made equal, or strict and inclusive tests swapped.
TEST(DischargeTerms, FlangeTapLimitsDifferBetweenEditions) {
    const double b = 0.5;
    struct Row {
        const char* name;
        int code;
        double D;
        bool lengthTerm;
    };
    const Row rows[] = {
        {"code 5 at 50 mm: fixed 0.039", 5, 50.0, false},
        {"code 5 at 60 mm: 0.09 L", 5, 60.0, true},
        {"code 5 at 58.62 mm: strict, still 0.039", 5, 58.62, false},
        {"code 5 at 58.6 mm: 0.039", 5, 58.6, false},
        {"code 7 at 58.6 mm: inclusive, 0.09 L", 7, 58.6, true},
        {"code 7 at 58.59 mm: 0.039", 7, 58.59, false},
    };
    for (const Row& r : rows) {
        const double L = 25.4 / r.D;
        const double tap = r.lengthTerm ? 0.09 * L : 0.039;
        const double expected = 0.5959 + 0.0312 * std::pow(b, 2.1) - 0.184 * std::pow(b, 8) +
                                Q(b) * tap - 0.0337 * std::pow(b, 3) * L;
        EXPECT_NEAR(C0(r.code, b * r.D, r.D), expected, 1e-14) << r.name;
    }
}

// Catches the small-pipe term of the 2003 orifice equation applied at 71.12 mm, or the AGA
// pipe term N not clipped at zero.
TEST(DischargeTerms, SmallPipeTermsEndAt7112mm) {
    const double b = 0.5;
    const double withoutE = Rhg2003(b, 80.0, 1e300, 0, 0);  // no E above the limit
    clsExGlobalVars s;
    ASSERT_EQ(GetDischargeTerms(s, 3, b * 71.12, 71.12), 0);
    EXPECT_NEAR(s.Xmtr_DisCoeff[0], withoutE, 1e-14);
    EXPECT_NE(C0(3, b * 71.0, 71.0), withoutE);

    // Code 8 with D above 71.12: N = 0, so C0 no longer depends on D through N.
    const double L = 25.4 / 100.0;
    const double M = 2 * L / (1 - b);
    const double H = 0.0712 * std::exp(-8.5 * L) + 0.0433 - 0.1145 * std::exp(-6 * L);
    const double V = -0.0116 * (M - 0.52 * std::pow(M, 1.3)) * std::pow(b, 1.1);
    EXPECT_NEAR(C0(8, b * 100.0, 100.0),
                0.5961 + 0.0291 * b * b - 0.229 * std::pow(b, 8) + Q(b) * H + V, 1e-14);
}

// Catches a fixed-mode device reading the diameters, or calc_Beta left unset for it.
TEST(DischargeTerms, FixedModeCopiesTheEnteredCoefficient) {
    clsExGlobalVars s;
    s.UI_PEDisCoeff = 0.6123;
    s.Xmtr_DisCoeff[1] = 7.0;
    ASSERT_EQ(GetDischargeTerms(s, 1, 50.0, 100.0), 0);
    EXPECT_EQ(s.Xmtr_DisCoeff[0], 0.6123);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(s.Xmtr_DisCoeff[i], 0.0);
    EXPECT_EQ(s.calc_Beta, 0.5);
    // d = D breaks every orifice formula but not the fixed mode.
    EXPECT_EQ(GetDischargeTerms(s, 1, 100.0, 100.0), 0);
}

// Catches a broken geometry writing half a set of terms, or failing loudly instead of quietly.
TEST(DischargeTerms, ImpossibleGeometryFailsTheStageAndKeepsTheTerms) {
    struct Row {
        const char* name;
        int code;
        double d, D;
    };
    const Row rows[] = {{"b = 1, flange taps", 5, 100.0, 100.0},
                        {"b = 1, 2003 orifice", 6, 100.0, 100.0},
                        {"D = 0", 12, 50.0, 0.0},
                        {"negative ratio", 3, -50.0, 100.0}};
    for (const Row& r : rows) {
        clsExGlobalVars s;
        for (int i = 0; i < 5; ++i) s.Xmtr_DisCoeff[i] = 10.0 + i;
        s.UI_PEPrimaryDeviceCode = r.code;
        s.UI_PEDiameterStandard = r.d;
        s.UI_PEPipeDiameterStandard = r.D;
        EXPECT_EQ(CalcDischargeCoefficient(s), 1) << r.name;
        for (int i = 0; i < 5; ++i) EXPECT_EQ(s.Xmtr_DisCoeff[i], 10.0 + i) << r.name;
        EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered) << r.name;
    }
    clsExGlobalVars s;
    s.Xmtr_DisCoeff[0] = 3.0;
    EXPECT_EQ(GetDischargeTerms(s, 21, 50.0, 100.0), 1);
    EXPECT_EQ(s.Xmtr_DisCoeff[0], 3.0);
}

// Catches a name matched loosely, or the sub-kind of code 14 not carried along.
TEST(DeviceLookup, NamesMatchExactlyAndSetTheSubKind) {
    for (const PrimaryDeviceRow& row : kPrimaryDevices) {
        clsExGlobalVars s;
        s.UI_PESubCodeName = "stale";
        int32_t code = -1;
        ASSERT_EQ(LookupPrimaryDeviceCode(s, std::string(row.name), code), 0) << row.name;
        EXPECT_EQ(code, row.code);
        EXPECT_EQ(s.UI_PESubCodeName, row.subcodeName);
        if (row.code == 14) {
            EXPECT_EQ(s.UI_PESubcode, row.subcode);
        }
    }
    clsExGlobalVars s;
    int32_t code = 9;
    // Code 18 with its four inner blanks reduced to one is another name.
    const std::string squeezed =
        "Classical Venturi tube with a machined convergent section [ISO5167-1 1991/ ISO5167-4 "
        "2003]";
    EXPECT_EQ(LookupPrimaryDeviceCode(s, squeezed, code), 1);
    EXPECT_EQ(LookupPrimaryDeviceCode(s, "fixed mode", code), 1);
    EXPECT_EQ(code, 9);
}

// Catches the AGA flange limit of 0.2 lost, or limits invented for codes without a table.
TEST(ExpansionRange, LimitsByCode) {
    for (int code = 2; code <= 20; ++code) {
        clsExGlobalVars s;
        ASSERT_EQ(SetDpP1RatioRange(s, code), 0);
        EXPECT_EQ(s.calc_LowValDpP1Ratio, 0.0);
        EXPECT_EQ(s.calc_UpValDpP1Ratio, code == 8 ? 0.2 : 0.25) << code;
    }
    for (int code : {1, 0, 21}) {
        clsExGlobalVars s;
        s.calc_UpValDpP1Ratio = 0.7;
        EXPECT_EQ(SetDpP1RatioRange(s, code), 1);
        EXPECT_EQ(s.calc_UpValDpP1Ratio, 0.7);
    }
}

// ---- Expansion factor ---------------------------------------------------------------------

// ISO 5167-2 (2003) orifice expansibility, p2/p1 = 1 - x.
double EpsOrifice2003(double b, double x, double k) {
    return 1 -
           (0.351 + 0.256 * std::pow(b, 4) + 0.93 * std::pow(b, 8)) * (1 - std::pow(1 - x, 1 / k));
}
// ISO 5167-1 (1991) orifice expansibility.
double EpsOrifice1991(double b, double x, double k) {
    return 1 - (0.41 + 0.35 * std::pow(b, 4)) * x / k;
}
// ISO 5167-3/4 nozzles and venturis: isentropic expansion, tau = p2/p1.
double EpsNozzle(double b, double x, double k) {
    const double tau = 1 - x;
    const double b4 = std::pow(b, 4);
    return std::sqrt((k * std::pow(tau, 2 / k) / (k - 1)) *
                     ((1 - b4) / (1 - b4 * std::pow(tau, 2 / k))) *
                     ((1 - std::pow(tau, (k - 1) / k)) / (1 - tau)));
}

double Expansion(int code, double x, double k, double b = 0.5) {
    clsExGlobalVars s;
    s.calc_GasExpFactor[2] = -5.0;
    EXPECT_EQ(GetExpansionFactor(s, code, x, k, b * 100.0, 100.0, 2), 0);
    return s.calc_GasExpFactor[2];
}

// Catches a family given the wrong formula, or 1 - x used where p2/p1 belongs.
TEST(ExpansionFactor, FamiliesFollowTheirStandards) {
    for (double x : {0.05, 0.15, 0.25}) {
        for (double k : {1.3, 1.4}) {
            for (int code : {2, 4, 5, 7, 8, 9, 11})
                EXPECT_NEAR(Expansion(code, x, k), EpsOrifice1991(0.5, x, k), 1e-14) << code;
            for (int code : {3, 6, 10})
                EXPECT_NEAR(Expansion(code, x, k), EpsOrifice2003(0.5, x, k), 1e-14) << code;
            for (int code = 12; code <= 20; ++code)
                EXPECT_NEAR(Expansion(code, x, k), EpsNozzle(0.5, x, k), 1e-13) << code;
        }
    }
    // Nozzle expansibility falls below the orifice one at the same ratio.
    EXPECT_LT(Expansion(12, 0.2, 1.3), Expansion(6, 0.2, 1.3));
}

// Catches x = 0 not giving exactly 1 (the nozzle form is 0/0 there and must be taken apart).
TEST(ExpansionFactor, NoPressureDropGivesOne) {
    for (int code = 2; code <= 20; ++code) {
        EXPECT_EQ(Expansion(code, 0.0, 1.3), 1.0) << code;
        EXPECT_EQ(Expansion(code, 0.0, 1.0), 1.0) << code;
    }
}

// Catches k = 1 or a broken ratio producing NaN in the table instead of failing quietly.
TEST(ExpansionFactor, FailuresLeaveTheTablePoint) {
    clsExGlobalVars s;
    s.calc_GasExpFactor[1] = 0.5;
    for (int code : {12, 16, 20})
        EXPECT_EQ(GetExpansionFactor(s, code, 0.1, 1.0, 50.0, 100.0, 1), 1) << code;
    EXPECT_EQ(GetExpansionFactor(s, 2, 0.1, 1.3, 50.0, 0.0, 1), 1);
    EXPECT_EQ(GetExpansionFactor(s, 2, 0.1, 0.0, 50.0, 100.0, 1), 1);
    EXPECT_EQ(s.calc_GasExpFactor[1], 0.5);
    EXPECT_EQ(s.Gbl_ErrorCode, kNotEntered);
    // Beyond the table's 32 places.
    EXPECT_EQ(GetExpansionFactor(s, 2, 0.1, 1.3, 50.0, 100.0, 32), 1);
    // An unknown code computes nothing and is no failure.
    EXPECT_EQ(GetExpansionFactor(s, 1, 0.1, 1.3, 50.0, 100.0, 1), 0);
    EXPECT_EQ(s.calc_GasExpFactor[1], 0.5);
}

}  // namespace
}  // namespace qdf
