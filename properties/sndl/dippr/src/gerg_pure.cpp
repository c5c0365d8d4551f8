#include "gerg_pure.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace sndl::gerg {

namespace {

// What the evaluations of a fluid's terms need beyond the published numbers, worked out once
// for all fluids: tau^t as a whole power of tau times a power of its eighth root (every t of
// these equations is a multiple of 1/8 up to 30), the exponents as doubles, the largest c,
// and which terms give the two low-density virial coefficients.
struct Prepared {
    int whole[kMaxTerms];   // floor(t); -1 where t is not a multiple of 1/8 up to 30
    int eighth[kMaxTerms];  // 8 (t - floor(t))
    double d[kMaxTerms], c[kMaxTerms];
    double bSign[kMaxTerms];   // 1 for terms linear in delta
    double c2Sign[kMaxTerms];  // 1 for quadratic terms, -1 for linear ones with exp(-delta)
    int maxWhole, maxC;
};

constexpr int kMaxWholePower = 30;

Prepared Prepare(const Fluid& f) {
    Prepared pr{};
    for (int k = 0; k < f.termCount; ++k) {
        const Term& term = f.terms[k];
        const double e = term.t * 8.0;
        const int whole8 = static_cast<int>(e);
        const bool exact = whole8 == e && whole8 >= 0 && whole8 <= 8 * kMaxWholePower;
        pr.whole[k] = exact ? whole8 >> 3 : -1;
        pr.eighth[k] = exact ? whole8 & 7 : 0;
        pr.maxWhole = std::max(pr.maxWhole, pr.whole[k]);
        pr.d[k] = term.d;
        pr.c[k] = term.c;
        pr.maxC = std::max(pr.maxC, term.c);
        // alpha_r = b delta + c2 delta^2 + ... near zero density: exp(-delta) of a term
        // linear in delta gives it a quadratic part.
        pr.bSign[k] = term.d == 1 ? 1.0 : 0.0;
        pr.c2Sign[k] = term.d == 2 ? 1.0 : term.d == 1 && term.c == 1 ? -1.0 : 0.0;
    }
    return pr;
}

const Prepared& PreparedFor(const Fluid& f, Prepared& local) {
    static const auto all = [] {
        std::array<Prepared, kFluidCount> a{};
        for (int i = 0; i < kFluidCount; ++i) a[i] = Prepare(kFluids[i]);
        return a;
    }();
    for (int i = 0; i < kFluidCount; ++i) {
        if (&f == &kFluids[i]) return all[i];
    }
    local = Prepare(f);
    return local;
}

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

    Isotherm(const Fluid& f, double T)
        : f_(f), pr_(PreparedFor(f, local_)), rt_(f.rhoc_mol_l * kR * T) {
        const double tau = f.tc_K / T;
        double whole[kMaxWholePower + 1];
        whole[0] = 1.0;
        for (int k = 1; k <= pr_.maxWhole; ++k) whole[k] = whole[k - 1] * tau;
        const double r2 = std::sqrt(tau), r4 = std::sqrt(r2), r8 = std::sqrt(r4);
        const double eighth[8] = {1.0, r8, r4, r4 * r8, r2, r2 * r8, r2 * r4, r2 * r4 * r8};
        for (int k = 0; k < f.termCount; ++k) {
            const Term& term = f.terms[k];
            const int w = pr_.whole[k];
            coef_[k] =
                w >= 0 ? term.n * whole[w] * eighth[pr_.eighth[k]] : term.n * std::pow(tau, term.t);
            b_ += pr_.bSign[k] * coef_[k];
            c2_ += pr_.c2Sign[k] * coef_[k];
        }
    }

    Point At(double delta) const {
        ++evaluations_;
        // d <= 7 and c <= 6 for every term of these equations.
        double pw[8];
        pw[0] = 1.0;
        for (int i = 1; i < 8; ++i) pw[i] = pw[i - 1] * delta;
        double expc[8] = {1.0, 0, 0, 0, 0, 0, 0, 0};
        for (int c = 1; c <= pr_.maxC; ++c) expc[c] = std::exp(-pw[c]);
        double A = 0.0, Ad = 0.0, Add = 0.0;
        for (int k = 0; k < f_.termCount; ++k) {
            const Term& term = f_.terms[k];
            const double c = pr_.c[k];
            const double v = coef_[k] * pw[term.d] * expc[term.c];
            const double u = c * pw[term.c];
            const double dmu = pr_.d[k] - u;
            A += v;
            Ad += v * dmu;
            Add += v * (dmu * (dmu - 1.0) - c * u);
        }
        return {rt_ * delta * (1.0 + Ad), rt_ * (1.0 + 2.0 * Ad + Add), A, Ad};
    }

    double ReducedPressureScale() const { return rt_; }
    int Evaluations() const { return evaluations_; }

    // Root of the virial series cut after the third coefficient, delta + b delta^2 +
    // 2 c2 delta^3 = deltaIg, on its rising branch from zero; 0 where there is none.
    double VirialDelta(double deltaIg) const {
        double d = deltaIg;
        for (int it = 0; it < 8; ++it) {
            const double g = d * (1.0 + d * (b_ + 2.0 * c2_ * d)) - deltaIg;
            const double dg = 1.0 + d * (2.0 * b_ + 6.0 * c2_ * d);
            if (!(dg > 0.0)) return 0.0;
            const double next = d - g / dg;
            if (!(next > 0.0)) return 0.0;
            if (std::fabs(next - d) <= 1e-9 * d) return next;
            d = next;
        }
        return 0.0;
    }

    double ClimbStart(double deltaIg) const {
        const double low = std::min(deltaIg / 2.0, 0.001);
        return b_ < 0.0 ? std::max(low, std::min(deltaIg / 2.0, -0.1 / b_)) : low;
    }

  private:
    const Fluid& f_;
    Prepared local_;  // for a fluid outside the table only
    const Prepared& pr_;
    double rt_;
    double coef_[kMaxTerms];
    double b_ = 0.0, c2_ = 0.0;
    mutable int evaluations_ = 0;
};

constexpr double kRelTol = 1e-15;
constexpr double kLastStep = 1e-9;
constexpr int kMaxIter = 400;

// A root and the isotherm at it (the last evaluation, within a rounding of the root).
struct Root {
    double delta;  // negative: none (-2: beyond the equation's range above Tc)
    Isotherm::Point at;
};

// Gas root: Newton steps from the virial estimate, kept in a bracket. Below Tc the two
// spinodals lie on either side of the critical density, so on delta < 1 a rising isotherm is
// the gas branch, and it is concave there: a tangent from below that passes the unstable
// bound proves that the gas branch never reaches p.
Root GasRoot(const Isotherm& iso, double T, double tc, double p) {
    const double deltaIg = p / iso.ReducedPressureScale();
    const double cap = T < tc ? 1.0 : 5.0;
    double lo = 0.0, hi = cap;
    bool hiUnstable = false;
    bool bracketed = false;
    // Where the series has no root, the climb starts where it still holds well (Z near 0.9).
    const double virial = iso.VirialDelta(deltaIg);
    double delta = virial > 0.0 && virial < 0.9 * cap ? virial : iso.ClimbStart(deltaIg);
    double loP = 0.0, loSlope = 0.0;  // the isotherm and its slope at lo
    Isotherm::Point e{};
    for (int it = 0; it < kMaxIter; ++it) {
        e = iso.At(delta);
        double next;
        if (e.dP <= 0.0) {
            // The tangent at lo lies above the gas branch: if it is still below p here, the
            // branch turns down before reaching p.
            if (lo > 0.0 && loP + loSlope * (delta - lo) <= p) return {-1.0, e};
            hi = delta;
            hiUnstable = true;
            bracketed = true;
            next = lo > 0.0 ? lo + (p - loP) / loSlope : 0.5 * hi;
        } else {
            if (e.P < p) {
                lo = delta;
                loP = e.P;
                loSlope = e.dP;
            } else {
                hi = delta;
                hiUnstable = false;
                bracketed = true;
            }
            if (std::fabs(e.P - p) <= kRelTol * p) return {delta, e};
            next = delta - (e.P - p) / e.dP;
            // Newton converges quadratically here: after a step this short the next one
            // would be below the rounding of delta.
            if (std::fabs(next - delta) <= kLastStep * delta && next > lo && next < hi) {
                return {next, e};
            }
            if (!bracketed) {
                // Still below the root: grow by at most 1.25 as long as nothing bounds it.
                next = std::min(next, 1.25 * delta);
                if (next >= cap) {
                    if (T < tc) return {-1.0, e};  // the tangent passes delta = 1
                    const Isotherm::Point top = iso.At(cap);
                    if (top.P < p) return {-2.0, top};
                    hi = cap;
                    bracketed = true;
                    next = 0.5 * (lo + hi);
                }
            } else if (next > lo && next < hi) {
                // Only a Newton step may end the search: a short bisection proves nothing.
                if (std::fabs(next - delta) <= 4.0 * kRelTol * delta) return {next, e};
            } else if (e.P < p && hiUnstable && next >= hi) {
                return {-1.0, e};
            } else {
                next = 0.5 * (lo + hi);
            }
        }
        if (bracketed && hi - lo <= 4.0 * kRelTol * hi) {
            return {hiUnstable ? -1.0 : 0.5 * (lo + hi), e};
        }
        delta = next;
    }
    return {hiUnstable || !bracketed ? -1.0 : 0.5 * (lo + hi), e};
}

// Dense root, searched for from above: on the liquid branch P rises and curves upward, so
// Newton from above does not overshoot, and one Newton step from below lands above the root.
// Negative when there is none.
Root DenseRoot(const Isotherm& iso, double p, double liquidDelta) {
    double delta = liquidDelta > 1.0 ? liquidDelta : 2.0;
    double hi = 0.0;
    double lo = 0.0;
    bool loUnstable = false;
    Isotherm::Point e{};
    for (;;) {
        e = iso.At(delta);
        if (e.dP > 0.0 && e.P >= p) {
            hi = delta;
            break;
        }
        lo = delta;
        loUnstable = e.dP <= 0.0;
        delta = loUnstable ? 1.1 * delta : std::min(delta - (e.P - p) / e.dP, 1.5 * delta);
        if (delta > 6.0) return {-1.0, e};
    }
    for (int it = 0; it < kMaxIter; ++it) {
        if (it > 0) e = iso.At(delta);
        double next;
        if (e.dP <= 0.0 || e.P < p) {
            lo = delta;
            loUnstable = e.dP <= 0.0;
            next = 0.5 * (lo + hi);
        } else {
            hi = delta;
            if (std::fabs(e.P - p) <= kRelTol * p) return {delta, e};
            next = std::max(delta - (e.P - p) / e.dP, delta / 1.25);
            if (next > lo && std::fabs(next - delta) <= kLastStep * delta) return {next, e};
            if (next <= lo) {
                next = 0.5 * (lo + hi);
            } else if (std::fabs(next - delta) <= 4.0 * kRelTol * delta) {
                return {next, e};
            }
        }
        if (hi - lo <= 4.0 * kRelTol * hi) return {loUnstable ? -1.0 : hi, e};
        delta = next;
    }
    return {loUnstable ? -1.0 : hi, e};
}

}  // namespace

double Pressure(const Fluid& f, double T_K, double rho_mol_l) {
    return Isotherm(f, T_K).At(rho_mol_l / f.rhoc_mol_l).P;
}

State Solve(const Fluid& f, double T, double p, const Hint& hint) {
    if (!(T > 0.0) || !(p > 0.0) || !std::isfinite(T) || !std::isfinite(p)) {
        return {Phase::Invalid, 0.0, 0};
    }
    const Isotherm iso(f, T);
    const double tc = f.tc_K;
    const Root gas = GasRoot(iso, T, tc, p);
    if (gas.delta == -2.0) return {Phase::BeyondRange, 0.0, iso.Evaluations()};
    const bool nearOrBelowTc = T < 1.01 * tc;
    const bool gasStable = gas.delta > 0.0 && p < hint.gasStableBelow_kPa;
    const Root dense = nearOrBelowTc && !gasStable
                           ? DenseRoot(iso, p, hint.liquid_mol_l / f.rhoc_mol_l)
                           : Root{-1.0, {}};
    const Phase onePhase = T < tc ? Phase::Gas : Phase::Supercritical;

    if (gas.delta > 0.0 &&
        (dense.delta <= 0.0 || std::fabs(dense.delta - gas.delta) <= 1e-9 * dense.delta)) {
        return {onePhase, gas.delta * f.rhoc_mol_l, iso.Evaluations()};
    }
    if (gas.delta > 0.0) {
        // Gibbs energy difference of the two roots at equal T and p; the ideal-gas terms that
        // depend on T only cancel.
        const Isotherm::Point& g = gas.at;
        const Isotherm::Point& d = dense.at;
        const double dg = std::log(dense.delta / gas.delta) + d.A - g.A + d.Ad - g.Ad;
        if (dg >= 0.0) return {onePhase, gas.delta * f.rhoc_mol_l, iso.Evaluations()};
        if (T < tc) return {Phase::MetastableGas, gas.delta * f.rhoc_mol_l, iso.Evaluations()};
        return {Phase::Supercritical, dense.delta * f.rhoc_mol_l, iso.Evaluations()};
    }
    if (dense.delta > 0.0) {
        return {T < tc ? Phase::Liquid : Phase::Supercritical, dense.delta * f.rhoc_mol_l,
                iso.Evaluations()};
    }
    return {Phase::BeyondRange, 0.0, iso.Evaluations()};
}

}  // namespace sndl::gerg
