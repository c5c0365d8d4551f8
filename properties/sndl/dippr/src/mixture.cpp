// Mixture operations of sndl_dippr.h. Mole fractions that do not sum to 1 are scaled to do so;
// a negative fraction (10), a zero sum (11) or a count outside 1..kMaxMix (12) is refused.
// Components with a zero fraction take no part, so their ranges do not matter.

#include <cmath>

#include "cubic.hpp"
#include "sndl/dippr_catalogue.hpp"
#include "sndl/sndl_dippr.h"

namespace sndl::dippr {

namespace {

constexpr int kMaxMix = SNDL_DPR_IDS;

struct Mix {
    int n = 0;
    int pos[kMaxMix];
    double y[kMaxMix];
};

// Resolves the ids and normalises the fractions, dropping zero ones.
int32_t Prepare(int32_t n, const int32_t* ids, const double* y, Mix& m) {
    if (n < 1 || n > kMaxMix || ids == nullptr || y == nullptr) return SNDL_ERR_XINVALID;
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        if (!(y[i] >= 0.0) || !std::isfinite(y[i])) return SNDL_ERR_YRANGE;
        sum += y[i];
    }
    if (!(sum > 0.0)) return SNDL_ERR_YSUM;
    for (int i = 0; i < n; ++i) {
        if (y[i] == 0.0) continue;
        const int pos = FindById(ids[i]);
        if (pos < 0) return SNDL_ERR_NOCOMP;
        m.pos[m.n] = pos;
        m.y[m.n] = y[i] / sum;
        ++m.n;
    }
    return SNDL_NORMAL;
}

// First non-zero status of the components, so that a range failure is not lost.
void Keep(int32_t& status, int32_t st) {
    if (status == SNDL_NORMAL) status = st;
}

}  // namespace

}  // namespace sndl::dippr

using namespace sndl::dippr;

extern "C" {

// Mole-fraction average of the pure ideal gas heat capacities (exact for ideal gases).
int32_t DprMixIcp(int32_t n, int32_t* ids, double T, double* y, double* cp) {
    if (cp == nullptr || !(T > 0.0) || !std::isfinite(T)) return SNDL_ERR_XINVALID;
    Mix m;
    const int32_t prep = Prepare(n, ids, y, m);
    if (prep != SNDL_NORMAL) return prep;
    int32_t status = SNDL_NORMAL;
    double sum = 0.0;
    for (int i = 0; i < m.n; ++i) {
        double v = 0.0;
        Keep(status, DprIcp(kComponents[m.pos[i]].id, T, &v));
        sum += m.y[i] * v;
    }
    *cp = sum;
    return status;
}

// Wilke's rule (1950) over the low-pressure pure vapour viscosities:
// mu = sum_i y_i mu_i / sum_j y_j phi_ij,
// phi_ij = (1 + (mu_i/mu_j)^(1/2) (M_j/M_i)^(1/4))^2 / (8 (1 + M_i/M_j))^(1/2).
int32_t DprMixVvs(int32_t n, int32_t* ids, double T, double* y, double* vis) {
    if (vis == nullptr || !(T > 0.0) || !std::isfinite(T)) return SNDL_ERR_XINVALID;
    Mix m;
    const int32_t prep = Prepare(n, ids, y, m);
    if (prep != SNDL_NORMAL) return prep;
    int32_t status = SNDL_NORMAL;
    double mu[kMaxMix], sqrtMu[kMaxMix], mw[kMaxMix], qMw[kMaxMix];
    for (int i = 0; i < m.n; ++i) {
        const Component& c = kComponents[m.pos[i]];
        Keep(status, DprVvs(c.id, T, &mu[i]));
        sqrtMu[i] = std::sqrt(mu[i]);
        mw[i] = c.mw_kg_kmol;
        qMw[i] = std::sqrt(std::sqrt(mw[i]));
    }
    double sum = 0.0;
    for (int i = 0; i < m.n; ++i) {
        double den = 0.0;
        for (int j = 0; j < m.n; ++j) {
            const double t = 1.0 + sqrtMu[i] / sqrtMu[j] * qMw[j] / qMw[i];
            den += m.y[j] * t * t / std::sqrt(8.0 * (1.0 + mw[i] / mw[j]));
        }
        sum += m.y[i] * mu[i] / den;
    }
    *vis = sum;
    return status;
}

// A single component (after dropping zero fractions) goes to DprVdn and its reference
// equation. Otherwise Peng-Robinson with the van der Waals one-fluid rules, a = sum y_i y_j
// (a_i a_j)^(1/2) and b = sum y_i b_i, no binary parameters. The phase test treats the mixture
// as one pseudo-fluid: status 5 below Kay's pseudo-critical temperature (sum y_i Tc_i) when
// the liquid-like root is the more stable one or the only one. It does not find the dew
// point of a real two-phase envelope.
int32_t DprMixVdn(int32_t n, int32_t* ids, double T, double P, double* y, double* vdn) {
    if (vdn == nullptr || !(T > 0.0) || !std::isfinite(T) || !(P > 0.0) || !std::isfinite(P)) {
        return SNDL_ERR_XINVALID;
    }
    Mix m;
    const int32_t prep = Prepare(n, ids, y, m);
    if (prep != SNDL_NORMAL) return prep;
    if (m.n == 1) return DprVdn(kComponents[m.pos[0]].id, T, P, vdn);

    int32_t status = SNDL_NORMAL;
    double b = 0.0, sqrtAMix = 0.0, tpc = 0.0;
    for (int i = 0; i < m.n; ++i) {
        const Component& c = kComponents[m.pos[i]];
        double tLow, tHigh;
        VdnRange(c, tLow, tHigh);
        if (T < tLow) Keep(status, SNDL_ERR_TUNDER);
        if (T > tHigh) Keep(status, SNDL_ERR_TOVER);
        const cubic::Params p = cubic::PureParams(c, T);
        sqrtAMix += m.y[i] * std::sqrt(p.a);
        b += m.y[i] * p.b;
        tpc += m.y[i] * c.tc_K;
    }
    // With no binary parameters the double sum factorises into a square.
    const cubic::Params mix{sqrtAMix * sqrtAMix, b};
    cubic::Choice ch{};
    if (!cubic::Choose(mix, T, P, ch)) return SNDL_ERR_CALC;
    *vdn = P / (ch.z * cubic::kR * T);
    if (P > kVdnPmax_Pa) Keep(status, SNDL_ERR_POVER);
    if (T < tpc && ch.liquidStable) Keep(status, SNDL_ERR_PHASE);
    return status;
}

}  // extern "C"
