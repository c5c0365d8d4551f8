// Region 3 of IF97: Helmholtz function f(delta, tau) (R7-97(2012), section 7), its inversion
// for density by the backward equations v(T, p) of SR5-05(2016) and Newton steps.
#include <cmath>
#include <cstring>

#include "if97.h"
#include "if97_backward_tables.h"
#include "if97_tables.h"
#include "if97_term.h"

namespace sndl::if97 {
namespace {

constexpr double kLog = kRegion3LogCoeff;  // coefficient of ln(delta)
constexpr auto kF = DeriveAll(kRegion3);   // a: delta, b: tau
constexpr int kImax = MaxI(kF.f);
constexpr int kJmax = MaxJ(kF.f);

}  // namespace

// The terms of delta f_delta reach tens while their sum can be 0.1 on the liquid side, so the
// pressure is summed in extended precision; in double it would carry noise of about 1e-12.
double Region3Pressure(double rho, double T) {
    const double delta = rho / kRhoc;
    const Powers<0, kImax> d(delta);
    const Powers<0, kJmax> t(kTc / T);
    long double dfd = kLog;
    for (const Term& term : kF.a)
        dfd += static_cast<long double>(term.n) * d.zero()[term.I] * t.zero()[term.J] * delta;
    return static_cast<double>(rho * kR * T * dfd);
}

State Region3(double rho, double T) {
    const double delta = rho / kRhoc;
    const double tau = kTc / T;
    const Powers<-2, kImax> d(delta);
    const Powers<-2, kJmax> t(tau);
    const double f = kLog * std::log(delta) + Sum(kF.f, d.zero(), t.zero());
    const double fd = kLog / delta + Sum(kF.a, d.zero(), t.zero());
    const double fdd = -kLog / (delta * delta) + Sum(kF.aa, d.zero(), t.zero());
    const double ft = Sum(kF.b, d.zero(), t.zero());
    const double ftt = Sum(kF.bb, d.zero(), t.zero());
    const double fdt = Sum(kF.ab, d.zero(), t.zero());

    const double RT = kR * T;
    const double dfd = delta * fd;
    const double stiff = 2.0 * dfd + delta * delta * fdd;  // (dp/drho)_T / RT
    const double x = dfd - delta * tau * fdt;
    State s{};
    s.rho_kgm3 = rho;
    s.u_Jkg = RT * tau * ft;
    s.s_JkgK = kR * (tau * ft - f);
    s.h_Jkg = RT * (tau * ft + dfd);
    s.cv_JkgK = -kR * tau * tau * ftt;
    s.cp_JkgK = kR * (-tau * tau * ftt + x * x / stiff);
    s.w_ms = std::sqrt(RT * (stiff - x * x / (tau * tau * ftt)));
    s.dpdrho_T = RT * stiff;
    return s;
}

// ---- Backward equations.

namespace {

double Poly(const double* n, int count, double x) {
    double s = n[count - 1];
    for (int i = count - 2; i >= 0; --i) s = s * x + n[i];
    return s;
}
// (ln pi)^0, ^1, ^2, ^-1, ^-2
double LogForm(const double (&n)[5], double pi) {
    const double l = std::log(pi);
    return n[0] + l * (n[1] + l * n[2]) + (n[3] + n[4] / l) / l;
}

double Tab(double pi) {
    return LogForm(kLineAB, pi);
}
double Tcd(double pi) {
    return Poly(kLineCD, 4, pi);
}
double Tef(double pi) {
    return 3.727888004 * (pi - 22.064) + 647.096;
}
double Tgh(double pi) {
    return Poly(kLineGH, 5, pi);
}
double Tij(double pi) {
    return Poly(kLineIJ, 5, pi);
}
double Tjk(double pi) {
    return Poly(kLineJK, 5, pi);
}
double Tmn(double pi) {
    return Poly(kLineMN, 4, pi);
}
double Top(double pi) {
    return LogForm(kLineOP, pi);
}
double Tqu(double pi) {
    return Poly(kLineQU, 4, pi);
}
double Trx(double pi) {
    return Poly(kLineRX, 4, pi);
}
double Tuv(double pi) {
    return Poly(kLineUV, 4, pi);
}
double Twx(double pi) {
    return LogForm(kLineWX, pi);
}

// Subregions of the near-critical part, T_qu < T <= T_rx and 21.04336732 < p <= 22.5 MPa.
char NearCritical(double T, double pi, Side side) {
    if (pi > 22.11) {
        if (T <= Tuv(pi)) return 'u';
        if (T <= Tef(pi)) return 'v';
        if (T <= Twx(pi)) return 'w';
        return 'x';
    }
    if (pi > 22.064) {
        if (T <= Tuv(pi)) return 'u';
        if (T <= Tef(pi)) return 'y';
        if (T <= Twx(pi)) return 'z';
        return 'x';
    }
    if (side == Side::kLiquid) {
        if (pi > 21.93161551) return T <= Tuv(pi) ? 'u' : 'y';
        return 'u';
    }
    if (pi > 21.90096265) return T <= Twx(pi) ? 'z' : 'x';
    return 'x';
}

}  // namespace

// The pressure bands and boundary lines of SR5-05 Table 2 and 3. "side" stands for the test
// T <= Ts(p), so that a point on the saturation line gets the phase the caller asks for.
char Region3Subregion(double T, double p, Side side) {
    const double pi = p / 1e6;
    const bool liquid = side == Side::kLiquid;
    if (pi > 40.0) return T <= Tab(pi) ? 'a' : 'b';
    if (pi > 25.0) {
        if (T <= Tcd(pi)) return 'c';
        if (T <= Tab(pi)) return 'd';
        if (T <= Tef(pi)) return 'e';
        return 'f';
    }
    if (pi > 23.0) {
        if (T <= Tcd(pi)) return 'c';
        if (T <= Tgh(pi)) return pi > 23.5 ? 'g' : 'l';
        if (T <= Tef(pi)) return 'h';
        if (T <= Tij(pi)) return 'i';
        if (T <= Tjk(pi)) return 'j';
        return 'k';
    }
    if (pi > 22.5) {
        if (T <= Tcd(pi)) return 'c';
        if (T <= Tgh(pi)) return 'l';
        if (T <= Tmn(pi)) return 'm';
        if (T <= Tef(pi)) return 'n';
        if (T <= Top(pi)) return 'o';
        if (T <= Tij(pi)) return 'p';
        if (T <= Tjk(pi)) return 'j';
        return 'k';
    }
    if (pi > 21.04336732) {
        if (T <= Tcd(pi)) return 'c';
        if (T <= Tqu(pi)) return 'q';
        if (T <= Trx(pi)) return NearCritical(T, pi, side);
        if (T <= Tjk(pi)) return 'r';
        return 'k';
    }
    if (pi > 20.5) {
        if (T <= Tcd(pi)) return 'c';
        if (liquid) return 's';
        if (T <= Tjk(pi)) return 'r';
        return 'k';
    }
    if (pi > 19.00881189173929) {
        if (T <= Tcd(pi)) return 'c';
        return liquid ? 's' : 't';
    }
    return liquid ? 'c' : 't';
}

double Region3BoundaryT(const char* name, double p) {
    const double pi = p / 1e6;
    struct Line {
        const char* name;
        double (*f)(double);
    };
    static constexpr Line kLines[] = {{"ab", Tab}, {"cd", Tcd}, {"ef", Tef}, {"gh", Tgh},
                                      {"ij", Tij}, {"jk", Tjk}, {"mn", Tmn}, {"op", Top},
                                      {"qu", Tqu}, {"rx", Trx}, {"uv", Tuv}, {"wx", Twx}};
    for (const Line& l : kLines)
        if (std::strcmp(l.name, name) == 0) return l.f(pi);
    return NAN;
}

double Region3BackwardVolume(char subregion, double T, double p) {
    if (subregion < 'a' || subregion > 'z') return NAN;
    const Subregion& s = kSubregions[subregion - 'a'];
    double x = p / s.pStar - s.a;
    double y = T / s.TStar - s.b;
    if (s.rootP == 2) x = std::sqrt(x);
    if (s.rootT == 4) y = std::sqrt(std::sqrt(y));
    // Exponents span at most -12 .. 36.
    double xp[49];
    double yp[49];
    const int iLo = s.iMin < 0 ? s.iMin : 0;
    const int jLo = s.jMin < 0 ? s.jMin : 0;
    FillPowers(x, iLo, s.iMax > 0 ? s.iMax : 0, xp);
    FillPowers(y, jLo, s.jMax > 0 ? s.jMax : 0, yp);
    const double* xz = xp - iLo;
    const double* yz = yp - jLo;
    double s0 = 0.0, s1 = 0.0;
    const Term* t = kBackwardTerms + s.first;
    int i = 0;
    for (; i + 2 <= s.count; i += 2) {
        s0 += t[i].n * xz[t[i].I] * yz[t[i].J];
        s1 += t[i + 1].n * xz[t[i + 1].I] * yz[t[i + 1].J];
    }
    if (i < s.count) s0 += t[i].n * xz[t[i].I] * yz[t[i].J];
    const double sum = s0 + s1;
    if (s.exponential) return s.vStar * std::exp(sum);
    if (s.e == 4) {
        const double s2 = sum * sum;
        return s.vStar * s2 * s2;
    }
    return s.vStar * sum;
}

double Region3Density(double T, double p, Side side) {
    double rho = 1.0 / Region3BackwardVolume(Region3Subregion(T, p, side), T, p);
    if (!(rho > 0.0) || !std::isfinite(rho)) return NAN;

    // At fixed T, delta f_delta is a polynomial in delta: group the terms by I once. The
    // residual is summed in extended precision (see Region3Pressure) so that the root is found
    // to the last bit rather than to the noise of the sum.
    const Powers<0, kJmax> t(kTc / T);
    long double c[kImax + 1] = {};
    for (const Term& term : kF.f) c[term.I] += static_cast<long double>(term.n) * t.zero()[term.J];
    long double a1[kImax + 1];  // I c_I: delta f_delta = kLog + sum a1 delta^I
    double a2[kImax + 1];       // I (I - 1) c_I: delta^2 f_deltadelta = -kLog + sum a2 delta^I
    for (int i = 0; i <= kImax; ++i) {
        a1[i] = i * c[i];
        a2[i] = static_cast<double>(i * (i - 1) * c[i]);
    }

    const double RT = kR * T;
    for (int it = 0; it < 50; ++it) {
        const double delta = rho / kRhoc;
        long double s1 = a1[kImax];
        double s2 = a2[kImax];
        for (int i = kImax - 1; i >= 1; --i) {
            s1 = s1 * delta + a1[i];
            s2 = s2 * delta + a2[i];
        }
        const long double dfdl = kLog + s1 * delta;
        const double dfd = static_cast<double>(dfdl);
        const double d2fdd = -kLog + s2 * delta;
        const double r = static_cast<double>(p - rho * RT * dfdl);
        if (std::fabs(r) <= 1e-15 * p) break;
        const double slope = RT * (2.0 * dfd + d2fdd);
        if (!(slope > 0.0)) break;  // at or beyond a spinodal: keep the last density
        double step = r / slope;
        // Near the critical point the slope vanishes; keep each step modest.
        const double limit = 0.05 * rho;
        if (step > limit) step = limit;
        if (step < -limit) step = -limit;
        rho += step;
        if (std::fabs(step) <= 1e-13 * rho) break;  // quadratic: the next error is nil
    }
    return rho;
}

}  // namespace sndl::if97
