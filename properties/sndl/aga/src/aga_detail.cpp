// Detail characterization method of AGA Report No. 8 (1994): compressibility of a natural
// gas from its full analysis, and ISO 12213-2, which adopts the same equation (AGA8-92DC)
// with its own ranges of composition, temperature and pressure.
//
// Equation: Z = 1 + B(T) D - Dr sum_{n=13..18} C_n + sum_{n=13..58} C_n (b_n - c_n k_n Dr^k_n)
// Dr^b_n exp(-c_n Dr^k_n), with Dr = K^3 D, C_n = a_n U^u_n G^g_n Q^2q_n F^f_n T^-u_n and
// B(T) the double sum over component pairs of the first 18 terms.
//
// Speed: a call pays for one composition and one temperature, so everything that depends on
// neither is built once (tables below), and a call with the composition (and temperature) of
// the thread's previous call pays for neither. The pair sum of B is split into a separable part,
// which is a square of sums over components, and corrections for the few pairs whose
// binary parameters differ from 1. Terms 13..58 are gathered by their density shape (b, k)
// before the density solve, which then evaluates some twenty shapes and four exponentials.
#include <cmath>
#include <cstring>

#include "aga_internal.h"
#include "aga_limits.h"
#include "density_solve.h"
#include "sndl/sndl_aga.h"

namespace sndl::aga {

namespace {

constexpr int kDensityTerms = kTerms - 12;  // terms 13..58

// T^-u for u a multiple of 1/2, from a table of integer powers of 1/T and its square root.
struct HalfPower {
    int whole;  // floor(u)
    bool half;  // u - floor(u) == 1/2
};

HalfPower splitExponent(double u) {
    const double w = std::floor(u);
    return {static_cast<int>(w), u - w > 0.25};
}

// Terms 1..18 without the quadrupole, high-temperature, dipole and association factors are
// "plain": every component contributes to them. The others concern four components only.
constexpr int kPlain = 10;
constexpr int kMaxSparse = 32;

// Two doubles per operation: the plain-term sums are the bulk of a call's arithmetic.
using Lanes = double __attribute__((vector_size(16)));
constexpr int kLanes = kPlain / 2;

struct Tables {
    // E_i^(u_n/2) K_i^(3/2) (times the Q, F, S, W factors of term n): without binary
    // corrections, B*_n of a mixture is a_n (sum_i x_i phi_in)^2, or for the orientation
    // terms the product of that sum with the G-weighted one.
    int plainTerm[kPlain];
    int plainG[kPlain];  // index into the G-weighted sums, or -1
    Lanes phi[kComponents][kLanes];
    int gCount;
    double phiG[kComponents][kPlain];
    struct Sparse {
        int a, b;  // component (or pair) and term
        double v;
    };
    Sparse special[kMaxSparse];  // non-plain phi of the few components that have one
    int specialCount;
    double K25[kComponents], E25[kComponents];

    struct Pair {
        int i, j;
        double dK5, dU5, dG;
        bool hasB;
    };
    Pair pairs[kDetailBinaryCount];
    // 2 a_n (pair term - separable part) of the plain terms, both orders counted.
    Lanes pairB[kDetailBinaryCount][kLanes];
    Sparse specialPairs[kMaxSparse];  // the same for non-plain terms, by pair index
    int specialPairCount;

    HalfPower virialPow[kVirialTerms];
    HalfPower densityPow[kDensityTerms];
    double densityA[kDensityTerms];
    int densityFactor[kDensityTerms];  // 0 none, 1 G, 2 Q^2, 3 F: no term carries two
    int shapeOf[kDensityTerms];
    int shapeCount;
    int shapeB[kMaxShapes], shapeK[kMaxShapes];
};

bool isPlain(const DetailTerm& term) {
    return !term.q && !term.f && !term.s && !term.w;
}

// x^e for e a multiple of 1/4 (every exponent of the tables is): a whole power times a
// square root or a fourth root, so that building the tables costs no pow per entry.
double quarterPower(double x, double e) {
    const double q4 = 4.0 * e;
    const int q = static_cast<int>(q4);
    if (q != q4) return std::pow(x, e);
    if (x == 1.0) return 1.0;  // most binary parameters
    const int n = q < 0 ? -q : q;
    double w = 1.0, base = x;
    for (int k = n / 4; k > 0; k >>= 1) {
        if (k & 1) w *= base;
        base *= base;
    }
    if (n % 4 != 0) {
        const double r2 = std::sqrt(x);
        const double r4 = std::sqrt(r2);
        w *= n % 4 == 1 ? r4 : n % 4 == 2 ? r2 : r2 * r4;
    }
    return q < 0 ? 1.0 / w : w;
}

double phiOf(const DetailComponent& c, const DetailTerm& term) {
    double v = quarterPower(c.E, 0.5 * term.u) * quarterPower(c.K, 1.5);
    if (term.q) v *= c.Q;
    if (term.f) v *= c.F;
    if (term.s) v *= c.S;
    if (term.w) v *= c.W;
    return v;
}

Tables buildTables() {
    Tables t{};
    int plain = 0;
    for (int n = 0; n < kVirialTerms; ++n) {
        if (!isPlain(kDetailTerms[n])) continue;
        t.plainTerm[plain] = n;
        t.plainG[plain] = kDetailTerms[n].g ? t.gCount++ : -1;
        ++plain;
    }
    // phi of every component and virial term, once: the pair corrections reuse them.
    double phiAll[kComponents][kVirialTerms];
    for (int i = 0; i < kComponents; ++i) {
        for (int n = 0; n < kVirialTerms; ++n) {
            phiAll[i][n] = phiOf(kDetailComponents[i], kDetailTerms[n]);
        }
    }
    for (int i = 0; i < kComponents; ++i) {
        const DetailComponent& c = kDetailComponents[i];
        t.K25[i] = quarterPower(c.K, 2.5);
        t.E25[i] = quarterPower(c.E, 2.5);
        for (int k = 0; k < kPlain; ++k) {
            const double v = phiAll[i][t.plainTerm[k]];
            t.phi[i][k / 2][k % 2] = v;
            if (t.plainG[k] >= 0) t.phiG[i][t.plainG[k]] = v * c.G;
        }
        for (int n = 0; n < kVirialTerms; ++n) {
            const double v = isPlain(kDetailTerms[n]) ? 0.0 : phiAll[i][n];
            if (v != 0.0) t.special[t.specialCount++] = {i, n, v};
        }
    }
    for (int p = 0; p < kDetailBinaryCount; ++p) {
        const DetailBinary& b = kDetailBinaries[p];
        const DetailComponent& ci = kDetailComponents[b.i];
        const DetailComponent& cj = kDetailComponents[b.j];
        Tables::Pair& pr = t.pairs[p];
        pr.i = b.i;
        pr.j = b.j;
        pr.dK5 = 2.0 * (quarterPower(b.K, 5.0) - 1.0) * quarterPower(ci.K * cj.K, 2.5);
        pr.dU5 = 2.0 * (quarterPower(b.U, 5.0) - 1.0) * quarterPower(ci.E * cj.E, 2.5);
        pr.dG = (b.G - 1.0) * (ci.G + cj.G);
        for (int n = 0; n < kVirialTerms; ++n) {
            const DetailTerm& term = kDetailTerms[n];
            const double base = phiAll[b.i][n] * phiAll[b.j][n];
            const double gMean = 0.5 * (ci.G + cj.G);
            const double actual = quarterPower(b.E, term.u) * base * (term.g ? b.G * gMean : 1.0);
            const double separable = base * (term.g ? gMean : 1.0);
            const double dB = 2.0 * term.a * (actual - separable);
            if (dB == 0.0) continue;
            if (isPlain(term)) {
                for (int k = 0; k < kPlain; ++k) {
                    if (t.plainTerm[k] == n) t.pairB[p][k / 2][k % 2] = dB;
                }
                pr.hasB = true;
            } else {
                t.specialPairs[t.specialPairCount++] = {p, n, dB};
            }
        }
    }
    for (int n = 0; n < kVirialTerms; ++n) t.virialPow[n] = splitExponent(kDetailTerms[n].u);
    t.shapeCount = 0;
    for (int n = 0; n < kDensityTerms; ++n) {
        const DetailTerm& term = kDetailTerms[n + 12];
        t.densityPow[n] = splitExponent(term.u);
        t.densityA[n] = term.a;
        t.densityFactor[n] = term.g ? 1 : term.q ? 2 : term.f ? 3 : 0;
        int s = 0;
        while (s < t.shapeCount && (t.shapeB[s] != term.b || t.shapeK[s] != term.k)) ++s;
        if (s == t.shapeCount) {
            t.shapeB[s] = term.b;
            t.shapeK[s] = term.k;
            ++t.shapeCount;
        }
        t.shapeOf[n] = s;
    }
    return t;
}

const Tables& tables() {
    static const Tables t = buildTables();
    return t;
}

// Integer powers r^lo .. r^hi of r, stored from index 0. Each power is the product of two
// lower ones, so the dependency chains stay a few multiplications long.
template <int Lo, int Hi>
struct PowerTable {
    double v[Hi - Lo + 1];
    explicit PowerTable(double r) {
        double* pos = v - Lo;  // pos[k] = r^k
        pos[0] = 1.0;
        pos[1] = r;
        for (int k = 2; k <= Hi; ++k) pos[k] = pos[k / 2] * pos[k - k / 2];
        if constexpr (Lo < 0) {
            const double inv = 1.0 / r;
            double neg[1 - Lo];
            neg[0] = 1.0;
            neg[1] = inv;
            for (int k = 2; k <= -Lo; ++k) neg[k] = neg[k / 2] * neg[k - k / 2];
            for (int k = 1; k <= -Lo; ++k) pos[-k] = neg[k];
        }
    }
    double operator()(HalfPower e, double sqrtR) const {
        const double w = v[e.whole - Lo];
        return e.half ? w * sqrtR : w;
    }
};

}  // namespace

void detailMix(const double* x, DetailMix& mix) {
    const Tables& t = tables();
    double M = 0.0, sumK = 0.0, sumU = 0.0, G = 0.0, Q = 0.0, F = 0.0;
    Lanes s0 = {}, s1 = {}, s2 = {}, s3 = {}, s4 = {};
    double sG[kPlain] = {};
    for (int i = 0; i < kComponents; ++i) {
        const double xi = x[i];
        if (xi == 0.0) continue;
        const DetailComponent& c = kDetailComponents[i];
        M += xi * c.M;
        sumK += xi * t.K25[i];
        sumU += xi * t.E25[i];
        G += xi * c.G;
        Q += xi * c.Q;
        F += xi * xi * c.F;
        const Lanes* ph = t.phi[i];
        s0 += xi * ph[0];
        s1 += xi * ph[1];
        s2 += xi * ph[2];
        s3 += xi * ph[3];
        s4 += xi * ph[4];
        for (int g = 0; g < t.gCount; ++g) sG[g] += xi * t.phiG[i][g];
    }
    double sSpecial[kVirialTerms] = {};
    for (int e = 0; e < t.specialCount; ++e) {
        sSpecial[t.special[e].b] += x[t.special[e].a] * t.special[e].v;
    }
    double K5 = sumK * sumK;
    double U5 = sumU * sumU;
    static_assert(kLanes == 5, "the sums below are written out for five lanes");
    Lanes c0 = {}, c1 = {}, c2 = {}, c3 = {}, c4 = {};
    for (int q = 0; q < kDetailBinaryCount; ++q) {
        const Tables::Pair& p = t.pairs[q];
        const double xx = x[p.i] * x[p.j];
        if (xx == 0.0) continue;
        K5 += xx * p.dK5;
        U5 += xx * p.dU5;
        G += xx * p.dG;
        if (p.hasB) {
            // Written out: accumulators in registers, not in a stack array.
            const Lanes* b = t.pairB[q];
            c0 += xx * b[0];
            c1 += xx * b[1];
            c2 += xx * b[2];
            c3 += xx * b[3];
            c4 += xx * b[4];
        }
    }
    // Non-plain terms carry no orientation factor, so the plain square applies to them too.
    for (int n = 0; n < kVirialTerms; ++n) {
        mix.Bstar[n] = kDetailTerms[n].a * sSpecial[n] * sSpecial[n];
    }
    for (int e = 0; e < t.specialPairCount; ++e) {
        const Tables::Pair& p = t.pairs[t.specialPairs[e].a];
        mix.Bstar[t.specialPairs[e].b] += x[p.i] * x[p.j] * t.specialPairs[e].v;
    }
    const Lanes s[kLanes] = {s0, s1, s2, s3, s4};
    const Lanes corr[kLanes] = {c0, c1, c2, c3, c4};
    for (int k = 0; k < kPlain; ++k) {
        const int n = t.plainTerm[k];
        const double a = kDetailTerms[n].a;
        const int g = t.plainG[k];
        const double sk = s[k / 2][k % 2];
        mix.Bstar[n] = a * (g >= 0 ? sk * sG[g] : sk * sk) + corr[k / 2][k % 2];
    }
    mix.M = M;
    mix.K3 = std::pow(K5, 0.6);
    mix.U = std::pow(U5, 0.2);
    mix.G = G;
    mix.Q = Q;
    mix.F = F;
}

void detailState(const DetailMix& mix, double T, DetailState& st) {
    const Tables& t = tables();
    st.T = T;
    st.RT = kR * T;
    st.K3 = mix.K3;
    st.M = mix.M;

    const double tInv = 1.0 / T;
    const PowerTable<-6, 12> tp(tInv);
    const double sqrtTInv = std::sqrt(tInv);
    double B = 0.0;
    for (int n = 0; n < kVirialTerms; ++n) B += mix.Bstar[n] * tp(t.virialPow[n], sqrtTInv);
    st.B = B;

    const double r = mix.U * tInv;
    const PowerTable<-13, 23> rp(r);
    const double sqrtR = std::sqrt(r);
    const double factor[4] = {1.0, mix.G, mix.Q * mix.Q, mix.F};
    for (int s = 0; s < t.shapeCount; ++s) st.shapeCoef[s] = 0.0;
    double c1318 = 0.0;
    for (int n = 0; n < kDensityTerms; ++n) {
        const double c = t.densityA[n] * rp(t.densityPow[n], sqrtR) * factor[t.densityFactor[n]];
        st.shapeCoef[t.shapeOf[n]] += c;
        if (n < kVirialTerms - 12) c1318 += c;
    }
    st.C1318 = c1318;
}

PressureSlope detailPressure(const DetailState& st, double D) {
    const Tables& t = tables();
    const double Dr = st.K3 * D;
    double pw[10];
    pw[0] = 1.0;
    for (int k = 1; k < 10; ++k) pw[k] = pw[k - 1] * Dr;
    const double ex[5] = {1.0, std::exp(-pw[1]), std::exp(-pw[2]), std::exp(-pw[3]),
                          std::exp(-pw[4])};
    // a1 = D d(alpha_r)/dD, a2 = D^2 d2(alpha_r)/dD2 of the reduced residual Helmholtz energy.
    double a1 = st.B * D - Dr * st.C1318;
    double a2 = 0.0;
    for (int s = 0; s < t.shapeCount; ++s) {
        const int b = t.shapeB[s];
        const int k = t.shapeK[s];
        const double dk = pw[k] * k;  // k Dr^k, zero for the plain power terms
        const double term = st.shapeCoef[s] * pw[b] * ex[k];
        const double e = b - dk;
        a1 += term * e;
        a2 += term * (e * (e - 1.0) - k * dk);
    }
    return {D * st.RT * (1.0 + a1), st.RT * (1.0 + 2.0 * a1 + a2)};
}

void detailProps(const double* x, double T, double D, DetailProps& out) {
    DetailMix mix;
    detailMix(x, mix);
    const double Dr = mix.K3 * D;
    double a1 = 0.0, a2 = 0.0, a20 = 0.0, a11 = 0.0;
    for (int n = 0; n < kTerms; ++n) {
        const DetailTerm& term = kDetailTerms[n];
        const double Tu = std::pow(T, -term.u);
        double Cn = 0.0;
        if (n >= 12) {
            Cn = term.a * std::pow(mix.U, term.u) * Tu;
            if (term.g) Cn *= mix.G;
            if (term.q) Cn *= mix.Q * mix.Q;
            if (term.f) Cn *= mix.F;
        }
        double sB = 0.0;
        if (n < kVirialTerms) sB = mix.Bstar[n] * Tu * D - (n >= 12 ? Cn * Dr : 0.0);
        double s0 = 0.0, e = 0.0, ck = 0.0;
        if (n >= 12) {
            const double c = term.k > 0 ? 1.0 : 0.0;
            const double drk = std::pow(Dr, term.k);
            s0 = Cn * std::pow(Dr, term.b) * std::exp(-c * drk);
            e = term.b - c * term.k * drk;
            ck = c * term.k * term.k * drk;
        }
        a1 += sB + s0 * e;
        a2 += s0 * (e * (e - 1.0) - ck);
        a20 += (term.u - 1.0) * term.u * (sB + s0);
        a11 -= (term.u - 1.0) * (sB + s0 * e);
    }
    // Ideal gas isochoric heat capacity over R.
    double cv0 = 0.0;
    for (int i = 0; i < kComponents; ++i) {
        if (x[i] == 0.0) continue;
        const IdealGasParams& g = kIdealGas[i];
        double c = g.n3 - 1.0;
        auto sinhTerm = [T](double n, double th) {
            if (th == 0.0) return 0.0;
            const double tau = th / T;
            const double r = tau / std::sinh(tau);
            return n * r * r;
        };
        auto coshTerm = [T](double n, double th) {
            if (th == 0.0) return 0.0;
            const double tau = th / T;
            const double r = tau / std::cosh(tau);
            return n * r * r;
        };
        c += sinhTerm(g.n4, g.th4) + coshTerm(g.n5, g.th5) + sinhTerm(g.n6, g.th6) +
             coshTerm(g.n7, g.th7);
        cv0 += x[i] * c;
    }
    const double RT = kR * T;
    out.Z = 1.0 + a1;
    out.P = D * RT * out.Z;
    out.dPdD = RT * (1.0 + 2.0 * a1 + a2);
    out.dPdT = D * kR * (1.0 + a11);
    out.cv = kR * (cv0 - a20);
    out.cp = D > 0.0 ? out.cv + T * out.dPdT * out.dPdT / (D * D * out.dPdD) : out.cv + kR;
    // dP/dD in kPa L/mol = J/mol; M in g/mol, hence the factor 1000 to reach m2/s2.
    out.w = std::sqrt(1000.0 * out.cp / out.cv * out.dPdD / mix.M);
    out.kappa = out.w * out.w * mix.M / (1000.0 * RT * out.Z);
}

namespace {

// Mole fraction limits of a method, inclusive.
struct FractionLimits {
    double lo[kComponents];
    double hi[kComponents];
    double butanes;   // isobutane + n-butane
    double pentanes;  // isopentane + n-pentane
};

// The detail method takes any composition; each fraction must be a fraction.
constexpr FractionLimits kDetailLimits = {
    {0}, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}, 1, 1};

// ISO 12213-2, range of application of the molar composition method.
constexpr FractionLimits kIsoLimits = {
    {0.5},
    {1.0,   0.5,   0.3,   0.2,   0.05,   0.00015, 0.0002, 0.1,    0.03,  0.0002, 0.015,
     0.015, 0.005, 0.005, 0.001, 0.0005, 0.0005,  0.0005, 0.0005, 0.005, 0.0002},
    0.015,
    0.005};

// Rounding of a sum of 21 fractions published to 8 or 9 decimals stays well inside this;
// the fractions are used as given, not rescaled.
constexpr double kSumTolerance = 1e-6;

// Detail: the expanded range of the 1994 report, -200 to 760 degF and up to 40000 psia.
constexpr StateLimits kDetailState = {(-200.0 - 32.0) / 1.8 + 273.15, (760.0 - 32.0) / 1.8 + 273.15,
                                      40000.0 * 6.894757293168361};
// ISO 12213-2: 225 to 350 K, up to 65 MPa.
constexpr StateLimits kIsoState = {225.0, 350.0, 65000.0};

// Limits are inclusive; the slack absorbs the rounding of a percentage turned into a fraction.
constexpr double kUp = 1.0 + 1e-9;
constexpr double kDown = 1.0 - 1e-9;

int32_t checkFractions(const double* y, const FractionLimits& lim) {
    double sum = 0.0;
    for (int i = 0; i < kComponents; ++i) {
        if (!(y[i] >= lim.lo[i] * kDown && y[i] <= lim.hi[i] * kUp)) return SNDL_ERR_YRANGE;
        sum += y[i];
    }
    if (y[kIsobutane] + y[kButane] > lim.butanes * kUp) return SNDL_ERR_YRANGE;
    if (y[kIsopentane] + y[kPentane] > lim.pentanes * kUp) return SNDL_ERR_YRANGE;
    if (!(std::fabs(sum - 1.0) <= kSumTolerance)) return SNDL_ERR_YSUM;
    return SNDL_NORMAL;
}

int32_t detailVdnMw(double T, double P, const double* y, double* vdn, double* mw,
                    const FractionLimits& fractions, const StateLimits& state) {
    if (y == nullptr || vdn == nullptr || mw == nullptr) return SNDL_ERR_XINVALID;
    if (!validState(T, P)) return SNDL_ERR_XINVALID;
    const int32_t comp = checkFractions(y, fractions);
    if (comp != SNDL_NORMAL) return comp;

    // A calculation grid calls with one composition at many points, often several pressures
    // at one temperature: each thread keeps the composition terms and the temperature terms
    // of its last call. The key is the exact bits of the fractions.
    struct Cache {
        bool mixValid = false, stateValid = false;
        double y[kComponents];
        DetailMix mix;
        DetailState st;
    };
    thread_local Cache cache;
    if (!cache.mixValid || std::memcmp(cache.y, y, sizeof cache.y) != 0) {
        std::memcpy(cache.y, y, sizeof cache.y);
        detailMix(y, cache.mix);
        cache.mixValid = true;
        cache.stateValid = false;
    }
    if (!cache.stateValid || std::memcmp(&cache.st.T, &T, sizeof T) != 0) {
        detailState(cache.mix, T, cache.st);
        cache.stateValid = true;
    }
    const DetailMix& mix = cache.mix;
    const DetailState& st = cache.st;
    const double pKpa = P / 1000.0;
    double D = 0.0;
    // Reduced densities beyond about 4 are solid-like for every component; 12 is a safe cap.
    const Root root = solveDensity([&st](double d) { return detailPressure(st, d); }, pKpa,
                                   virialStart(pKpa / st.RT, st.B), 12.0 / st.K3, D);
    return densityResult(root, D, mix.M, T, pKpa, state, vdn, mw);
}

}  // namespace

}  // namespace sndl::aga

int32_t AgaDtlVdnMw(double T, double P, double* y, double* vdn, double* mw) {
    using namespace sndl::aga;
    return detailVdnMw(T, P, y, vdn, mw, kDetailLimits, kDetailState);
}

int32_t IsoMcaVdnMw(double T, double P, double* y, double* vdn, double* mw) {
    using namespace sndl::aga;
    return detailVdnMw(T, P, y, vdn, mw, kIsoLimits, kIsoState);
}
