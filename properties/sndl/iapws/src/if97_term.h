// Building blocks for the IF97 sums: a term n x^I y^J, power tables, and the derived term lists
// of partial derivatives, computed once at compile time.
#ifndef SNDL_IAPWS_IF97_TERM_H
#define SNDL_IAPWS_IF97_TERM_H

#include <array>
#include <cstddef>

namespace sndl::if97 {

struct Term {
    int I;
    int J;
    double n;
};

struct IdealTerm {
    int J;
    double n;
};

// out[k - lo] = x^k for lo <= k <= hi (lo <= 0 <= hi). Two interleaved chains halve the
// dependency depth; the error stays at a few ulp even for the 41st power.
inline void FillPowers(double x, int lo, int hi, double* out) {
    double* z = out - lo;
    z[0] = 1.0;
    if (hi >= 1) z[1] = x;
    const double x2 = x * x;
    for (int k = 2; k <= hi; ++k) z[k] = z[k - 2] * x2;
    if (lo <= -1) {
        const double r = 1.0 / x;
        z[-1] = r;
        const double r2 = r * r;
        for (int k = -2; k >= lo; --k) z[k] = z[k + 2] * r2;
    }
}

// Powers x^Lo .. x^Hi on the stack, indexed by the exponent.
template <int Lo, int Hi>
struct Powers {
    static_assert(Lo <= 0 && Hi >= 0);
    double v[Hi - Lo + 1];
    explicit Powers(double x) { FillPowers(x, Lo, Hi, v); }
    const double* zero() const { return v - Lo; }
};

// Derivative of a term list: d/dx^a d/dy^b applied to n x^I y^J gives c x^(I-a) y^(J-b).
// A term that vanishes keeps exponent 0, so that a zero coefficient never meets 1/0.
template <std::size_t N>
constexpr std::array<Term, N> Derive(const Term (&t)[N], int a, int b) {
    std::array<Term, N> d{};
    for (std::size_t i = 0; i < N; ++i) {
        double c = t[i].n;
        int I = t[i].I;
        int J = t[i].J;
        for (int k = 0; k < a; ++k) c *= I--;
        for (int k = 0; k < b; ++k) c *= J--;
        d[i] = c == 0.0 ? Term{0, 0, 0.0} : Term{I, J, c};
    }
    return d;
}

// Lowest or highest exponent of a term list, never beyond 0: the range a power table covers.
template <std::size_t N>
constexpr int ExponentBound(const std::array<Term, N>& t, int Term::*exponent, bool lowest) {
    int m = 0;
    for (const Term& x : t) {
        const int e = x.*exponent;
        m = (lowest ? e < m : e > m) ? e : m;
    }
    return m;
}
template <std::size_t N>
constexpr int MinI(const std::array<Term, N>& t) {
    return ExponentBound(t, &Term::I, true);
}
template <std::size_t N>
constexpr int MaxI(const std::array<Term, N>& t) {
    return ExponentBound(t, &Term::I, false);
}
template <std::size_t N>
constexpr int MinJ(const std::array<Term, N>& t) {
    return ExponentBound(t, &Term::J, true);
}
template <std::size_t N>
constexpr int MaxJ(const std::array<Term, N>& t) {
    return ExponentBound(t, &Term::J, false);
}

// Sum of c x^I y^J over a term list, with xp[k] = x^k and yp[k] = y^k. Four partial sums keep
// the floating-point adds from forming one long dependency chain.
template <std::size_t N>
inline double Sum(const std::array<Term, N>& t, const double* xp, const double* yp) {
    double s0 = 0.0, s1 = 0.0, s2 = 0.0, s3 = 0.0;
    std::size_t i = 0;
    for (; i + 4 <= N; i += 4) {
        s0 += t[i].n * xp[t[i].I] * yp[t[i].J];
        s1 += t[i + 1].n * xp[t[i + 1].I] * yp[t[i + 1].J];
        s2 += t[i + 2].n * xp[t[i + 2].I] * yp[t[i + 2].J];
        s3 += t[i + 3].n * xp[t[i + 3].I] * yp[t[i + 3].J];
    }
    for (; i < N; ++i) s0 += t[i].n * xp[t[i].I] * yp[t[i].J];
    return (s0 + s1) + (s2 + s3);
}

template <std::size_t N>
constexpr std::array<Term, N> AsArray(const Term (&t)[N]) {
    std::array<Term, N> a{};
    for (std::size_t i = 0; i < N; ++i) a[i] = t[i];
    return a;
}

// A term list with its partial derivatives up to the second order; a is the first variable
// (pi or delta), b the second (tau).
template <std::size_t N>
struct DerivedTerms {
    std::array<Term, N> f, a, aa, b, bb, ab;
};

template <std::size_t N>
constexpr DerivedTerms<N> DeriveAll(const Term (&t)[N]) {
    return {AsArray(t),      Derive(t, 1, 0), Derive(t, 2, 0),
            Derive(t, 0, 1), Derive(t, 0, 2), Derive(t, 1, 1)};
}

}  // namespace sndl::if97

#endif
