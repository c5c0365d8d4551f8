#include "gerg_pure.hpp"

#include <algorithm>
#include <cmath>

namespace sndl::gerg {

namespace {

// The isotherm P(delta) at fixed T. The tau powers do not change along it, so each term's
// n * tau^t is computed once per call.
class Isotherm {
  public:
    struct Point {
        double P;   // kPa
        double dP;  // dP/d(delta), kPa
        double A;   // alpha_r
        double Ad;  // delta * d(alpha_r)/d(delta)
    };

    Isotherm(const Fluid& f, double T) : f_(f), rt_(f.rhoc_mol_l * kR * T) {
        const double lnTau = std::log(f.tc_K / T);
        for (int k = 0; k < f.termCount; ++k) {
            const Term& term = f.terms[k];
            coef_[k] = term.t == 0.0 ? term.n : term.n * std::exp(term.t * lnTau);
        }
    }

    Point At(double delta) const {
        ++evaluations_;
        // d <= 7 and c <= 6 for every term of these equations.
        double pw[8];
        pw[0] = 1.0;
        for (int i = 1; i < 8; ++i) pw[i] = pw[i - 1] * delta;
        double expc[8] = {1.0, 0, 0, 0, 0, 0, 0, 0};
        for (int c = 1; c < 7; ++c) expc[c] = std::exp(-pw[c]);
        double A = 0.0, Ad = 0.0, Add = 0.0;
        for (int k = 0; k < f_.termCount; ++k) {
            const Term& term = f_.terms[k];
            const double v = coef_[k] * pw[term.d] * expc[term.c];
            const double u = term.c * pw[term.c];
            const double dmu = term.d - u;
            A += v;
            Ad += v * dmu;
            Add += v * (dmu * (dmu - 1.0) - term.c * u);
        }
        return {rt_ * delta * (1.0 + Ad), rt_ * (1.0 + 2.0 * Ad + Add), A, Ad};
    }

    double ReducedPressureScale() const { return rt_; }
    int Evaluations() const { return evaluations_; }

  private:
    const Fluid& f_;
    double rt_;
    double coef_[kMaxTerms];
    mutable int evaluations_ = 0;
};

constexpr double kRelTol = 1e-15;
constexpr int kMaxIter = 400;

// Gas root: walk up the gas branch with Newton steps that grow delta by at most 1.25, which is
// smaller than the narrowest unstable stretch below delta = 1, then refine in the bracket.
// Returns a negative value when there is no gas root, or -2 when the pressure is beyond the
// equation's range above Tc.
double GasRoot(const Isotherm& iso, double T, double tc, double p) {
    const double deltaIg = p / iso.ReducedPressureScale();
    const double cap = T < tc ? 1.0 : 5.0;
    double lo = 0.0, hi = 0.0;
    bool hiUnstable = false;
    double delta = std::min(deltaIg / 2.0, 0.001);
    bool bracketed = false;
    for (int it = 0; it < kMaxIter; ++it) {
        const Isotherm::Point e = iso.At(delta);
        if (e.dP <= 0.0) {
            hi = delta;
            hiUnstable = true;
            bracketed = true;
            break;
        }
        if (e.P >= p) {
            hi = delta;
            bracketed = true;
            break;
        }
        lo = delta;
        const double next = std::min(delta - (e.P - p) / e.dP, 1.25 * delta);
        if (next >= cap) {
            if (T < tc) {
                hi = 1.0;  // never on the gas branch below Tc
                hiUnstable = true;
            } else {
                if (iso.At(cap).P < p) return -2.0;
                hi = cap;
            }
            bracketed = true;
            break;
        }
        delta = next;
    }
    if (!bracketed) return -1.0;

    delta = 0.5 * (lo + hi);
    for (int it = 0; it < kMaxIter; ++it) {
        const Isotherm::Point e = iso.At(delta);
        double next;
        if (e.dP <= 0.0) {
            hi = delta;
            hiUnstable = true;
            next = 0.5 * (lo + hi);
        } else {
            if (e.P < p) {
                lo = delta;
            } else {
                hi = delta;
                hiUnstable = false;
            }
            if (std::fabs(e.P - p) <= kRelTol * p) return delta;
            next = delta - (e.P - p) / e.dP;
            if (next > lo && next < hi) {
                // Only a Newton step may end the search: a short bisection proves nothing.
                if (std::fabs(next - delta) <= 4.0 * kRelTol * delta) return next;
            } else {
                next = 0.5 * (lo + hi);
            }
        }
        if (hi - lo <= 4.0 * kRelTol * hi) return hiUnstable ? -1.0 : 0.5 * (lo + hi);
        delta = next;
    }
    return hiUnstable ? -1.0 : 0.5 * (lo + hi);
}

// Dense root, searched for from above: on the liquid branch P rises and curves upward, so
// Newton from above does not overshoot. Negative when there is none.
double DenseRoot(const Isotherm& iso, double p) {
    double delta = 2.0;
    double hi = 0.0;
    for (;;) {
        const Isotherm::Point e = iso.At(delta);
        if (e.dP > 0.0 && e.P >= p) {
            hi = delta;
            break;
        }
        delta *= 1.1;
        if (delta > 6.0) return -1.0;
    }
    double lo = 0.0;
    bool loUnstable = false;
    for (int it = 0; it < kMaxIter; ++it) {
        const Isotherm::Point e = iso.At(delta);
        double next;
        if (e.dP <= 0.0 || e.P < p) {
            lo = delta;
            loUnstable = e.dP <= 0.0;
            next = 0.5 * (lo + hi);
        } else {
            hi = delta;
            if (std::fabs(e.P - p) <= kRelTol * p) return delta;
            next = std::max(delta - (e.P - p) / e.dP, delta / 1.25);
            if (next <= lo) {
                next = 0.5 * (lo + hi);
            } else if (std::fabs(next - delta) <= 4.0 * kRelTol * delta) {
                return next;
            }
        }
        if (hi - lo <= 4.0 * kRelTol * hi) return loUnstable ? -1.0 : hi;
        delta = next;
    }
    return loUnstable ? -1.0 : hi;
}

}  // namespace

double Pressure(const Fluid& f, double T_K, double rho_mol_l) {
    return Isotherm(f, T_K).At(rho_mol_l / f.rhoc_mol_l).P;
}

State Solve(const Fluid& f, double T, double p) {
    if (!(T > 0.0) || !(p > 0.0) || !std::isfinite(T) || !std::isfinite(p)) {
        return {Phase::Invalid, 0.0, 0};
    }
    const Isotherm iso(f, T);
    const double tc = f.tc_K;
    const double gas = GasRoot(iso, T, tc, p);
    if (gas == -2.0) return {Phase::BeyondRange, 0.0, iso.Evaluations()};
    const bool nearOrBelowTc = T < 1.01 * tc;
    const double dense = nearOrBelowTc ? DenseRoot(iso, p) : -1.0;
    const Phase onePhase = T < tc ? Phase::Gas : Phase::Supercritical;

    if (gas > 0.0 && (dense <= 0.0 || std::fabs(dense - gas) <= 1e-9 * dense)) {
        return {onePhase, gas * f.rhoc_mol_l, iso.Evaluations()};
    }
    if (gas > 0.0) {
        // Gibbs energy difference of the two roots at equal T and p; the ideal-gas terms that
        // depend on T only cancel.
        const Isotherm::Point g = iso.At(gas);
        const Isotherm::Point d = iso.At(dense);
        const double dg = std::log(dense / gas) + d.A - g.A + d.Ad - g.Ad;
        if (dg >= 0.0) return {onePhase, gas * f.rhoc_mol_l, iso.Evaluations()};
        if (T < tc) return {Phase::MetastableGas, gas * f.rhoc_mol_l, iso.Evaluations()};
        return {Phase::Supercritical, dense * f.rhoc_mol_l, iso.Evaluations()};
    }
    if (dense > 0.0) {
        return {T < tc ? Phase::Liquid : Phase::Supercritical, dense * f.rhoc_mol_l,
                iso.Evaluations()};
    }
    return {Phase::BeyondRange, 0.0, iso.Evaluations()};
}

}  // namespace sndl::gerg
