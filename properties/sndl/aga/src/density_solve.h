// Density from temperature and pressure for any pressure equation p(D) at fixed T.
//
// The gas root is the first root on the branch that rises from D = 0. Newton steps from the
// ideal gas density are kept inside a bracket [lo, hi]: lo is the highest density known to
// lie on that branch below the target pressure, hi a density above the root or beyond the
// branch's maximum (dp/dD <= 0, or a pressure not above p(lo)). A step that leaves the
// bracket is replaced by bisection, so the solve cannot wander onto the dense branch while
// a gas root exists. When the bracket closes on the branch's maximum the gas root does not
// exist; the dense (liquid-like) root is returned instead, as Root::Dense.
//
// Convergence: the error after a Newton step is of the order of the step squared (times the
// relative curvature of p(D), which is of order one), so once a step falls below 1e-9
// relative the result after it is correct to machine precision.
#ifndef SNDL_AGA_DENSITY_SOLVE_H
#define SNDL_AGA_DENSITY_SOLVE_H

#include <cmath>

#include "aga_internal.h"

namespace sndl::aga {

namespace detail {

// A Newton step this small leaves an error of the order of its square: rounding level.
inline constexpr double kConverged = 1e-9;

// Newton with bisection safeguard on [lo, hi], where p(lo) < target < p(hi).
template <class Eval>
bool polishBracketed(const Eval& eval, double target, double lo, double hi, double& d) {
    d = 0.5 * (lo + hi);
    for (int it = 0; it < 200; ++it) {
        const PressureSlope ps = eval(d);
        if (ps.p < target) {
            lo = d;
        } else {
            hi = d;
        }
        double next = 0.5 * (lo + hi);
        bool newton = false;
        if (ps.dpdD > 0.0) {
            const double step = d + (target - ps.p) / ps.dpdD;
            if (step > lo && step < hi) {
                next = step;
                newton = true;
            }
        }
        if (newton && std::fabs(next - d) <= kConverged * d) {
            d = next;
            return true;
        }
        if (hi - lo <= 4e-16 * hi) {
            d = next;
            return true;
        }
        d = next;
    }
    return false;
}

}  // namespace detail

// First trial density: the root of Z = 1 + B D, from the ideal density dIdeal = p/(RT). Used
// only while that correction is moderate; the truncated series overshoots near the
// saturated states, where the ideal density is the safer start.
inline double virialStart(double dIdeal, double B) {
    const double disc = 1.0 + 4.0 * B * dIdeal;
    return disc >= 0.25 ? 2.0 * dIdeal / (1.0 + std::sqrt(disc)) : dIdeal;
}

// Solves p(D) = target (kPa) for D in (0, dMax]; dStart is the first trial density.
template <class Eval>
Root solveDensity(const Eval& eval, double target, double dStart, double dMax, double& d) {
    if (target <= 0.0) {
        d = 0.0;
        return Root::Gas;
    }
    double lo = 0.0;
    double pLo = 0.0;
    double hi = dMax;
    bool hiBeyondMaximum = false;
    d = dStart < dMax ? dStart : 0.5 * dMax;
    for (int it = 0; it < 200; ++it) {
        const PressureSlope ps = eval(d);
        if (!(ps.dpdD > 0.0) || !(ps.p > pLo)) {
            // Past the maximum of the gas branch (or numerically lost): shrink from above.
            hi = d;
            hiBeyondMaximum = true;
            if (hi - lo <= 1e-13 * hi) break;
            d = 0.5 * (lo + hi);
            continue;
        }
        if (ps.p < target) {
            lo = d;
            pLo = ps.p;
        } else {
            hi = d;
            hiBeyondMaximum = false;
        }
        double next = d + (target - ps.p) / ps.dpdD;
        if (next >= lo && next <= hi) {
            if (std::fabs(next - d) <= detail::kConverged * d) {
                d = next;
                return Root::Gas;
            }
        } else {
            next = 0.5 * (lo + hi);
        }
        if (hi - lo <= 4e-16 * hi && !hiBeyondMaximum) {
            d = next;
            return Root::Gas;
        }
        d = next;
    }
    if (!hiBeyondMaximum) return Root::None;

    // No gas root. The dense root is taken as the highest-density one: an equation of state
    // may oscillate between the spinodal and the liquid, and the last rising branch is the
    // physical one. March down from dMax until the pressure falls below the target.
    double above = dMax;
    if (!(eval(above).p > target)) return Root::None;
    for (;;) {
        const double trial = above / 1.25;
        if (trial <= hi) {
            return detail::polishBracketed(eval, target, hi, above, d) ? Root::Dense : Root::None;
        }
        if (eval(trial).p < target) {
            return detail::polishBracketed(eval, target, trial, above, d) ? Root::Dense
                                                                          : Root::None;
        }
        above = trial;
    }
}

}  // namespace sndl::aga

#endif
