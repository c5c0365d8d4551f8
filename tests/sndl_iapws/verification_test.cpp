// IAPWS computer-program verification values: IF97 (R7-97(2012)) for regions 1, 2, 3 and 5,
// the saturation line and B23; SR5-05(2016) for the region 3 boundary lines and backward
// equations; R12-08 for viscosity. Each value is compared to the digits printed there.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "if97.h"
#include "sndl/sndl_iapws.h"

namespace {

using namespace sndl::if97;

struct Row {
    const char* what;
    const char* region;
    double T;  // K, 0 where not an input
    double x;  // p in Pa, or density in kg/m3 for the (T, rho) rows
    const char* quantity;
    const char* value;  // as printed
};

const Row kRows[] = {
    {"R1_forward_T_p", "1", 300, 3000000, "v_m3_kg", "1.00215168e-03"},
    {"R1_forward_T_p", "1", 300, 3000000, "h_J_kg", "1.15331273e+05"},
    {"R1_forward_T_p", "1", 300, 3000000, "u_J_kg", "1.12324818e+05"},
    {"R1_forward_T_p", "1", 300, 3000000, "s_J_kgK", "3.92294792e+02"},
    {"R1_forward_T_p", "1", 300, 3000000, "cp_J_kgK", "4.17301218e+03"},
    {"R1_forward_T_p", "1", 300, 3000000, "w_m_s", "1.50773921e+03"},
    {"R1_forward_T_p", "1", 500, 3000000, "v_m3_kg", "1.202418e-03"},
    {"R1_forward_T_p", "1", 500, 3000000, "h_J_kg", "9.75542239e+05"},
    {"R1_forward_T_p", "1", 500, 3000000, "u_J_kg", "9.71934985e+05"},
    {"R1_forward_T_p", "1", 500, 3000000, "s_J_kgK", "2.58041912e+03"},
    {"R1_forward_T_p", "1", 500, 3000000, "cp_J_kgK", "4.65580682e+03"},
    {"R1_forward_T_p", "1", 500, 3000000, "w_m_s", "1.24071337e+03"},
    {"R2_forward_T_p", "2", 300, 3500, "v_m3_kg", "3.94913866e+01"},
    {"R2_forward_T_p", "2", 300, 3500, "h_J_kg", "2.54991145e+06"},
    {"R2_forward_T_p", "2", 300, 3500, "u_J_kg", "2.4116916e+06"},
    {"R2_forward_T_p", "2", 300, 3500, "s_J_kgK", "8.52238967e+03"},
    {"R2_forward_T_p", "2", 300, 3500, "cp_J_kgK", "1.91300162e+03"},
    {"R2_forward_T_p", "2", 300, 3500, "w_m_s", "4.27920172e+02"},
    {"R3_forward_T_rho", "3", 650, 200, "p_Pa", "2.22930643e+07"},
    {"R3_forward_T_rho", "3", 650, 200, "h_J_kg", "2.37512401e+06"},
    {"R3_forward_T_rho", "3", 650, 200, "u_J_kg", "2.26365868e+06"},
    {"R3_forward_T_rho", "3", 650, 200, "s_J_kgK", "4.85438792e+03"},
    {"R3_forward_T_rho", "3", 650, 200, "cp_J_kgK", "4.46579342e+04"},
    {"R3_forward_T_rho", "3", 650, 200, "w_m_s", "3.83444594e+02"},
    {"R5_forward_T_p", "5", 1500, 500000, "v_m3_kg", "1.3845509e+00"},
    {"R5_forward_T_p", "5", 1500, 500000, "h_J_kg", "5.21976855e+06"},
    {"R5_forward_T_p", "5", 1500, 500000, "u_J_kg", "4.5274931e+06"},
    {"R5_forward_T_p", "5", 1500, 500000, "s_J_kgK", "9.65408875e+03"},
    {"R5_forward_T_p", "5", 1500, 500000, "cp_J_kgK", "2.61609445e+03"},
    {"R5_forward_T_p", "5", 1500, 500000, "w_m_s", "9.1706869e+02"},
    {"R5_forward_T_p", "5", 2000, 30000000, "v_m3_kg", "3.11385219e-02"},
    {"R5_forward_T_p", "5", 2000, 30000000, "h_J_kg", "6.57122604e+06"},
    {"R5_forward_T_p", "5", 2000, 30000000, "u_J_kg", "5.63707038e+06"},
    {"R5_forward_T_p", "5", 2000, 30000000, "s_J_kgK", "8.53640523e+03"},
    {"R5_forward_T_p", "5", 2000, 30000000, "cp_J_kgK", "2.88569882e+03"},
    {"R5_forward_T_p", "5", 2000, 30000000, "w_m_s", "1.06736948e+03"},
    {"R4_psat_of_T", "4", 300, 0, "psat_Pa", "3.53658941e+03"},
    {"R4_Tsat_of_p", "4", 0, 1000000, "Tsat_K", "4.53035632e+02"},
    {"R4_psat_of_T", "4", 600, 0, "psat_Pa", "1.23443146e+07"},
    {"B23_p_of_T", "B23", 623.15, 0, "p_Pa", "1.65291643e+07"},
    {"R3_backward_boundary_T_of_p", "3ab", 0, 40000000, "T_K", "6.930341408e+02"},
    {"R3_backward_boundary_T_of_p", "3ef", 0, 40000000, "T_K", "7.139593992e+02"},
    {"R3_backward_boundary_T_of_p", "3ij", 0, 23000000, "T_K", "6.515778091e+02"},
    {"R3_backward_boundary_T_of_p", "3mn", 0, 22800000, "T_K", "6.496054133e+02"},
    {"R3_backward_boundary_T_of_p", "3qu", 0, 22000000, "T_K", "6.456355027e+02"},
    {"R3_backward_boundary_T_of_p", "3uv", 0, 22300000, "T_K", "6.477996121e+02"},
    {"R3_backward_v_of_T_p", "3a", 630, 50000000, "v_m3_kg", "1.4708531e-03"},
    {"R3_backward_v_of_T_p", "3b", 710, 50000000, "v_m3_kg", "2.204728587e-03"},
    {"R3_backward_v_of_T_p", "3c", 630, 20000000, "v_m3_kg", "1.761696406e-03"},
    {"R3_backward_v_of_T_p", "3d", 656, 26000000, "v_m3_kg", "2.24558772e-03"},
    {"R3_backward_v_of_T_p", "3e", 661, 26000000, "v_m3_kg", "2.970225962e-03"},
    {"R3_backward_v_of_T_p", "3f", 671, 26000000, "v_m3_kg", "5.019029401e-03"},
    {"R3_backward_v_of_T_p", "3g", 649, 23600000, "v_m3_kg", "2.163198378e-03"},
    {"R3_backward_v_of_T_p", "3h", 652, 23600000, "v_m3_kg", "2.651081407e-03"},
    {"R3_backward_v_of_T_p", "3i", 653, 23600000, "v_m3_kg", "3.273916816e-03"},
    {"R3_backward_v_of_T_p", "3j", 655, 23500000, "v_m3_kg", "4.545001142e-03"},
    {"R3_backward_v_of_T_p", "3k", 660, 23000000, "v_m3_kg", "6.109525997e-03"},
    {"R3_backward_v_of_T_p", "3l", 646, 22600000, "v_m3_kg", "2.117860851e-03"},
    {"R3_backward_v_of_T_p", "3m", 648.6, 22600000, "v_m3_kg", "2.53306378e-03"},
    {"R3_backward_v_of_T_p", "3n", 649, 22600000, "v_m3_kg", "2.923432711e-03"},
    {"R3_backward_v_of_T_p", "3o", 649.1, 22600000, "v_m3_kg", "3.131208996e-03"},
    {"R3_backward_v_of_T_p", "3p", 649.4, 22600000, "v_m3_kg", "3.715596186e-03"},
    {"R3_backward_v_of_T_p", "3q", 640, 21100000, "v_m3_kg", "1.970999272e-03"},
    {"R3_backward_v_of_T_p", "3r", 644, 21100000, "v_m3_kg", "5.251009921e-03"},
    {"R3_backward_v_of_T_p", "3s", 635, 19100000, "v_m3_kg", "1.932829079e-03"},
    {"R3_backward_v_of_T_p", "3t", 626, 17000000, "v_m3_kg", "8.483262001e-03"},
    {"R3_backward_v_of_T_p", "3u", 644.6, 21500000, "v_m3_kg", "2.268366647e-03"},
    {"R3_backward_v_of_T_p", "3v", 648.6, 22500000, "v_m3_kg", "2.83237326e-03"},
    {"R3_backward_v_of_T_p", "3w", 647.5, 22150000, "v_m3_kg", "3.694032281e-03"},
    {"R3_backward_v_of_T_p", "3x", 648, 22110000, "v_m3_kg", "4.528072649e-03"},
    {"R3_backward_v_of_T_p", "3y", 646.84, 22000000, "v_m3_kg", "2.698354719e-03"},
    {"R3_backward_v_of_T_p", "3z", 646.89, 22000000, "v_m3_kg", "3.798732962e-03"},
    {"viscosity_T_rho", "any", 298.15, 998, "mu_Pa_s", "8.897351e-04"},
    {"viscosity_T_rho", "any", 373.15, 1000, "mu_Pa_s", "3.07883622e-04"},
    {"viscosity_T_rho", "any", 433.15, 1000, "mu_Pa_s", "2.17685358e-04"},
    {"viscosity_T_rho", "any", 873.15, 100, "mu_Pa_s", "3.5802262e-05"},
    {"viscosity_T_rho", "any", 1173.15, 1, "mu_Pa_s", "4.4217245e-05"},
    {"viscosity_T_rho", "any", 1173.15, 400, "mu_Pa_s", "6.4154608e-05"},
    {"viscosity_T_rho_with_critical_enhancement", "any", 647.35, 222, "mu_Pa_s", "3.1337589e-05"},
    {"viscosity_T_rho_with_critical_enhancement", "any", 647.35, 322, "mu_Pa_s", "4.2961579e-05"},
    {"viscosity_T_rho_with_critical_enhancement", "any", 647.35, 422, "mu_Pa_s", "4.9436256e-05"},
};

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

double Compute(const Row& r) {
    const std::string what = r.what;
    const std::string q = r.quantity;
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
    if (what == "R3_backward_boundary_T_of_p") return Region3BoundaryT(r.region + 1, r.x);
    if (what == "R3_backward_v_of_T_p") {
        // The point lies in the named subregion, so the selection is checked too.
        if (Region3Subregion(r.T, r.x, SideOf(r.T, r.x)) != r.region[1]) return NAN;
        return Region3BackwardVolume(r.region[1], r.T, r.x);
    }
    if (what == "viscosity_T_rho") return Viscosity(r.T, r.x);
    return NAN;
}

std::string RowName(const testing::TestParamInfo<Row>& info) {
    std::string n = std::string(info.param.what) + "_" + info.param.region + "_" +
                    std::to_string(info.index) + "_" + info.param.quantity;
    for (char& c : n)
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    return n;
}

class Verification : public testing::TestWithParam<Row> {};

// Catches a wrong coefficient, sign convention, derivative or subregion choice in any equation.
TEST_P(Verification, ReproducesPrintedDigits) {
    const Row& r = GetParam();
    const double expected = std::stod(r.value);
    const double got = Compute(r);
    if (std::strcmp(r.what, "viscosity_T_rho_with_critical_enhancement") == 0) {
        // Without the critical enhancement the value is lower by at most 8.4 %.
        const double mu = Viscosity(r.T, r.x);
        EXPECT_LT(mu, expected);
        EXPECT_GT(mu, expected * (1.0 - 0.085));
        return;
    }
    EXPECT_NEAR(got, expected, HalfUlpOfText(r.value)) << r.what << " " << r.quantity;
}

INSTANTIATE_TEST_SUITE_P(Iapws, Verification, testing::ValuesIn(kRows), RowName);

}  // namespace
