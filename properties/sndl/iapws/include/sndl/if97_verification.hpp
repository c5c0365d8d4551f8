/* The value of one row of the IAPWS computer-program verification tables (IF97 R7-97(2012)
 * regions 1, 2, 3 and 5, the saturation line and B23; SR5-05(2016) region 3 boundary lines and
 * backward equations; R12-08 viscosity), computed by the equation the row names: the forward
 * and backward equations directly, below the (T, P) operations. The unit tests and the
 * program's self-test compare these against the printed values. */
#ifndef SNDL_IF97_VERIFICATION_HPP
#define SNDL_IF97_VERIFICATION_HPP

#include <string_view>

namespace sndl::if97 {

// `what` and `region` as the table's columns name them; x is p in Pa, or the density in kg/m3
// for the (T, rho) rows; `quantity` one of v_m3_kg, h_J_kg, u_J_kg, s_J_kgK, cp_J_kgK, w_m_s,
// p_Pa (region 3), T_K, mu_Pa_s. NaN for a row the tables do not define, or a backward row whose
// point the subregion selection places elsewhere.
double VerificationValue(std::string_view what, std::string_view region, double T, double x,
                         std::string_view quantity);

}  // namespace sndl::if97

#endif
