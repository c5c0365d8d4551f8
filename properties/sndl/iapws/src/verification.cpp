#include <cmath>
#include <string>

#include "if97.h"
#include "sndl/if97_verification.hpp"
#include "sndl/sndl_iapws.h"

namespace sndl::if97 {

namespace {

double Quantity(const State& s, std::string_view q) {
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

}  // namespace

double VerificationValue(std::string_view what, std::string_view region, double T, double x,
                         std::string_view q) {
    if (what == "R1_forward_T_p") return Quantity(Region1(T, x), q);
    if (what == "R2_forward_T_p") return Quantity(Region2(T, x), q);
    if (what == "R5_forward_T_p") return Quantity(Region5(T, x), q);
    if (what == "R3_forward_T_rho")
        return q == "p_Pa" ? Region3Pressure(x, T) : Quantity(Region3(x, T), q);
    if (what == "R4_psat_of_T") return SaturationPressure(T);
    if (what == "R4_Tsat_of_p") {
        double Ts = 0.0;
        return IapwsTs(x, &Ts) == SNDL_NORMAL ? Ts : NAN;
    }
    if (what == "B23_p_of_T") return B23Pressure(T);
    if (region.size() < 2) return NAN;
    if (what == "R3_backward_boundary_T_of_p")
        return Region3BoundaryT(std::string(region.substr(1)).c_str(), x);
    if (what == "R3_backward_v_of_T_p") {
        // The point lies in the named subregion, so the selection is checked too.
        if (Region3Subregion(T, x, SideOf(T, x)) != region[1]) return NAN;
        return Region3BackwardVolume(region[1], T, x);
    }
    if (what == "viscosity_T_rho") return Viscosity(T, x);
    return NAN;
}

}  // namespace sndl::if97
