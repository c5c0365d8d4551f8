// Input checks and result statuses that the detail, gross and SGERG-88 entry points share.
// Limits are inclusive; a small slack absorbs the rounding of a wizard value converted from
// another unit or from a percentage.
#ifndef SNDL_AGA_LIMITS_H
#define SNDL_AGA_LIMITS_H

#include <cmath>
#include <cstdint>

#include "aga_internal.h"
#include "sndl/sndl_aga.h"

namespace sndl::aga {

inline constexpr double kSlack = 1e-9;
// One BTU/ft3 in MJ/m3: the wizard's heating value limits are set in either unit.
inline constexpr double kBtuFt3 = 1.055056 / 1000.0 / (0.3048 * 0.3048 * 0.3048);

// Limits of temperature (K) and pressure (kPa) where a method's status is 0.
struct StateLimits {
    double tMin, tMax, pMax;
};

// A state the equations can be evaluated at at all.
inline bool validState(double T, double P) {
    return T > 0.0 && std::isfinite(T) && P >= 0.0 && std::isfinite(P);
}

inline int32_t heatingValueStatus(double hv, double lo, double hi) {
    if (!(hv <= hi * (1.0 + kSlack))) return SNDL_ERR_HOVER;
    if (!(hv >= lo * (1.0 - kSlack))) return SNDL_ERR_HUNDER;
    return SNDL_NORMAL;
}

inline int32_t relativeDensityStatus(double rd, double lo, double hi) {
    if (!(rd <= hi + kSlack)) return SNDL_ERR_GOVER;
    if (!(rd >= lo - kSlack)) return SNDL_ERR_GUNDER;
    return SNDL_NORMAL;
}

// The density and molar mass go out whenever a root was found, so that a caller can go on
// outside the range; the status then names the first limit crossed, or a dense root.
inline int32_t densityResult(Root root, double D, double M, double T, double pKpa,
                             const StateLimits& lim, double* vdn, double* mw) {
    if (root == Root::None) return SNDL_ERR_CALC;
    *vdn = D;
    *mw = M;
    if (T > lim.tMax) return SNDL_ERR_TOVER;
    if (T < lim.tMin) return SNDL_ERR_TUNDER;
    if (pKpa > lim.pMax) return SNDL_ERR_POVER;
    return root == Root::Gas ? SNDL_NORMAL : SNDL_ERR_PHASE;
}

// Density (mol/L) and molar mass of a characterized gross gas at T (K) and P (Pa).
inline int32_t grossVdnMw(const GrossGas& gas, double T, double P, const StateLimits& lim,
                          double* vdn, double* mw) {
    const double pKpa = P / 1000.0;
    double D = 0.0;
    const Root root = grossDensity(gas, T, pKpa, D);
    return densityResult(root, D, gas.M, T, pKpa, lim, vdn, mw);
}

}  // namespace sndl::aga

#endif
