// Regions 1, 2 and 5 of IF97: Gibbs functions in (pi, tau) (R7-97(2012), sections 5, 6, 9).
#include <cmath>

#include "if97.h"
#include "if97_tables.h"
#include "if97_term.h"

namespace sndl::if97 {
namespace {

// Dimensionless Gibbs function and its derivatives at one point.
struct Gibbs {
    double g, gp, gpp, gt, gtt, gpt;
};

// Turns g and its derivatives into properties (formulas of IF97 Table 3 and its twins).
State FromGibbs(const Gibbs& g, double T, double pi, double tau, double pStar) {
    State s{};
    const double RT = kR * T;
    const double v = RT / pStar * g.gp;
    s.rho_kgm3 = 1.0 / v;
    s.h_Jkg = RT * tau * g.gt;
    s.u_Jkg = RT * (tau * g.gt - pi * g.gp);
    s.s_JkgK = kR * (tau * g.gt - g.g);
    s.cp_JkgK = -kR * tau * tau * g.gtt;
    const double x = g.gp - tau * g.gpt;
    s.cv_JkgK = kR * (-tau * tau * g.gtt + x * x / g.gpp);
    s.w_ms = std::sqrt(RT * g.gp * g.gp / (x * x / (tau * tau * g.gtt) - g.gpp));
    s.dpdrho_T = -pStar * pStar / (s.rho_kgm3 * s.rho_kgm3 * RT * g.gpp);
    return s;
}

// ---- Region 1: terms n (7.1 - pi)^I (tau - 1.222)^J; d/dpi = -d/dA.
constexpr double kP1 = 16.53e6;
constexpr double kT1 = 1386.0;
constexpr auto kR1 = DeriveAll(kRegion1);
constexpr int kR1Jlo = MinJ(kR1.bb);
constexpr int kR1Jhi = MaxJ(kR1.f);

}  // namespace

double Region1Density(double T, double p) {
    const double pi = p / kP1;
    const double tau = kT1 / T;
    const Powers<MinI(kR1.a), MaxI(kR1.a)> a(7.1 - pi);
    const Powers<MinJ(kR1.a), MaxJ(kR1.a)> b(tau - 1.222);
    const double gp = -Sum(kR1.a, a.zero(), b.zero());
    return kP1 / (kR * T * gp);
}

State Region1(double T, double p) {
    const double pi = p / kP1;
    const double tau = kT1 / T;
    const Powers<0, MaxI(kR1.f)> a(7.1 - pi);
    const Powers<kR1Jlo, kR1Jhi> b(tau - 1.222);
    Gibbs g{};
    g.g = Sum(kR1.f, a.zero(), b.zero());
    g.gp = -Sum(kR1.a, a.zero(), b.zero());
    g.gpp = Sum(kR1.aa, a.zero(), b.zero());
    g.gt = Sum(kR1.b, a.zero(), b.zero());
    g.gtt = Sum(kR1.bb, a.zero(), b.zero());
    g.gpt = -Sum(kR1.ab, a.zero(), b.zero());
    return FromGibbs(g, T, pi, tau, kP1);
}

namespace {

// ---- Regions 2 and 5: ln pi + sum n0 tau^J0 plus a residual n pi^I (tau - shift)^J.
template <std::size_t N>
constexpr std::array<Term, N> IdealAsTerms(const IdealTerm (&t)[N]) {
    std::array<Term, N> a{};
    for (std::size_t i = 0; i < N; ++i) a[i] = Term{0, t[i].J, t[i].n};
    return a;
}
template <std::size_t N>
constexpr std::array<Term, N> DeriveJ(const std::array<Term, N>& t, int b) {
    std::array<Term, N> d{};
    for (std::size_t i = 0; i < N; ++i) {
        double c = t[i].n;
        int J = t[i].J;
        for (int k = 0; k < b; ++k) c *= J--;
        d[i] = c == 0.0 ? Term{0, 0, 0.0} : Term{0, J, c};
    }
    return d;
}

template <std::size_t NI, std::size_t NR>
struct GasRegion {
    std::array<Term, NI> o, oT, oTT;
    DerivedTerms<NR> r;
};

template <std::size_t NI, std::size_t NR>
constexpr GasRegion<NI, NR> MakeGasRegion(const IdealTerm (&ideal)[NI], const Term (&res)[NR]) {
    const auto o = IdealAsTerms(ideal);
    return {o, DeriveJ(o, 1), DeriveJ(o, 2), DeriveAll(res)};
}

constexpr auto kGas2 = MakeGasRegion(kRegion2Ideal, kRegion2Residual);
constexpr auto kGas5 = MakeGasRegion(kRegion5Ideal, kRegion5Residual);

// Density needs only the residual pi-derivative: v = RT/p (1 + pi gr_pi).
template <const auto& G>
double GasDensity(double T, double p, double tStar, double shift) {
    const double pi = p / 1e6;
    const double tau = tStar / T;
    const Powers<0, MaxI(G.r.a)> a(pi);
    const Powers<MinJ(G.r.a), MaxJ(G.r.a)> b(tau - shift);
    const double grp = Sum(G.r.a, a.zero(), b.zero());
    return p / (kR * T * (1.0 + pi * grp));
}

template <const auto& G>
State GasState(double T, double p, double tStar, double shift) {
    const double pi = p / 1e6;
    const double tau = tStar / T;
    const Powers<0, MaxI(G.r.f)> a(pi);
    const Powers<MinJ(G.r.bb), MaxJ(G.r.f)> b(tau - shift);
    const Powers<MinJ(G.oTT), MaxJ(G.o)> c(tau);
    const double one = 1.0;
    Gibbs g{};
    g.g = std::log(pi) + Sum(G.o, &one, c.zero()) + Sum(G.r.f, a.zero(), b.zero());
    g.gp = 1.0 / pi + Sum(G.r.a, a.zero(), b.zero());
    g.gpp = -1.0 / (pi * pi) + Sum(G.r.aa, a.zero(), b.zero());
    g.gt = Sum(G.oT, &one, c.zero()) + Sum(G.r.b, a.zero(), b.zero());
    g.gtt = Sum(G.oTT, &one, c.zero()) + Sum(G.r.bb, a.zero(), b.zero());
    g.gpt = Sum(G.r.ab, a.zero(), b.zero());
    return FromGibbs(g, T, pi, tau, 1e6);
}

}  // namespace

double Region2Density(double T, double p) {
    return GasDensity<kGas2>(T, p, 540.0, 0.5);
}
State Region2(double T, double p) {
    return GasState<kGas2>(T, p, 540.0, 0.5);
}
double Region5Density(double T, double p) {
    return GasDensity<kGas5>(T, p, 1000.0, 0.0);
}
State Region5(double T, double p) {
    return GasState<kGas5>(T, p, 1000.0, 0.0);
}

}  // namespace sndl::if97
