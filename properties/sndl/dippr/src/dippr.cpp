// Pure component operations of sndl_dippr.h: the catalogue list, the correlations with their
// ranges and the vapour density.

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <utility>

#include "cubic.hpp"
#include "gerg_pure.hpp"
#include "sndl/dippr_catalogue.hpp"
#include "sndl/sndl_dippr.h"

namespace sndl::dippr {

namespace {

// The vapour density of components without a reference equation: triple point to 1500 K, cut
// where the Peng-Robinson alpha function would start to rise again.
constexpr double kCubicTmax_K = 1500.0;
// GERG-2008 extended range, 60 K to 700 K, and never below the component's triple point, where
// the catalogue's vapour-pressure range begins.
constexpr double kGergTmin_K = 60.0;
constexpr double kGergTmax_K = 700.0;

bool BadTemperature(double T) {
    return !(T > 0.0) || !std::isfinite(T);
}

int32_t RangeStatus(double T, double tLow, double tHigh) {
    if (T < tLow) return SNDL_ERR_TUNDER;
    if (T > tHigh) return SNDL_ERR_TOVER;
    return SNDL_NORMAL;
}

// x / sinh(x) and x / cosh(x) through exp(-x), which cannot overflow for large x.
double XOverSinh(double x) {
    if (x == 0.0) return 1.0;
    return 2.0 * x * std::exp(-x) / -std::expm1(-2.0 * x);
}
double XOverCosh(double x) {
    return 2.0 * x * std::exp(-x) / (1.0 + std::exp(-2.0 * x));
}

// One correlation of one component at T: the status of the range test, the value always.
int32_t Correlate(int32_t id, double T, double* out, const Correlation Component::*which) {
    if (out == nullptr || BadTemperature(T)) return SNDL_ERR_XINVALID;
    const int pos = FindById(id);
    if (pos < 0) return SNDL_ERR_NOCOMP;
    const Component& c = kComponents[pos];
    const Correlation& k = c.*which;
    *out = Evaluate(k, T, c.tc_K);
    return RangeStatus(T, k.tmin_K, k.tmax_K);
}

int32_t Range(int32_t id, double* tLow, double* tHigh, const Correlation Component::*which) {
    if (tLow == nullptr || tHigh == nullptr) return SNDL_ERR_XINVALID;
    const int pos = FindById(id);
    if (pos < 0) return SNDL_ERR_NOCOMP;
    *tLow = (kComponents[pos].*which).tmin_K;
    *tHigh = (kComponents[pos].*which).tmax_K;
    return SNDL_NORMAL;
}

}  // namespace

namespace {

// Catalogue positions in order of id, built on first use: every call looks an id up, and the
// component tables look up all of them.
struct IdIndex {
    std::array<std::pair<int32_t, int>, kComponentCount> byId;
    IdIndex() {
        for (int i = 0; i < kComponentCount; ++i) byId[i] = {kComponents[i].id, i};
        std::sort(byId.begin(), byId.end());
    }
};

}  // namespace

int FindById(int32_t id) {
    static const IdIndex index;
    const auto& v = index.byId;
    const auto it = std::lower_bound(v.begin(), v.end(), std::make_pair(id, 0));
    return it != v.end() && it->first == id ? it->second : -1;
}

int FindByName(std::string_view name) {
    for (int i = 0; i < kComponentCount; ++i) {
        if (name == kComponents[i].name) return i;
    }
    return -1;
}

double Evaluate(const Correlation& k, double T, double tc) {
    switch (k.eq) {
        case 100:
            return k.a + T * (k.b + T * (k.c + T * (k.d + T * k.e)));
        case 101:
            // D is kept even when tiny (E = 10 gives D near 1e-25).
            return std::exp(k.a + k.b / T + k.c * std::log(T) + k.d * std::pow(T, k.e));
        case 102:
            return k.a * std::pow(T, k.b) / (1.0 + k.c / T + k.d / (T * T));
        case 105: {
            const double tau = T < k.c ? 1.0 - T / k.c : 0.0;
            return k.a / std::pow(k.b, 1.0 + std::pow(tau, k.d));
        }
        case 107: {
            const double s = XOverSinh(k.c / T);
            const double h = XOverCosh(k.e / T);
            return k.a + k.b * s * s + k.d * h * h;
        }
        case 116: {
            const double tau = T < tc ? 1.0 - T / tc : 0.0;
            return k.a + k.b * std::pow(tau, 0.35) + k.c * std::pow(tau, 2.0 / 3.0) + k.d * tau +
                   k.e * std::pow(tau, 4.0 / 3.0);
        }
        default:
            return std::nan("");
    }
}

void VdnRange(const Component& c, double& tLow, double& tHigh) {
    if (c.gerg >= 0) {
        tLow = std::fmax(kGergTmin_K, c.vp.tmin_K);
        tHigh = kGergTmax_K;
    } else {
        tLow = c.vp.tmin_K;
        tHigh = std::fmin(kCubicTmax_K, cubic::AlphaMinimumTemperature(c));
    }
}

namespace {

// Range statuses outrank the phase warning: outside the range the value is not to be trusted
// whatever the phase.
int32_t VdnStatus(const Component& c, double T, double P, bool liquidRegion) {
    double tLow, tHigh;
    VdnRange(c, tLow, tHigh);
    const int32_t st = RangeStatus(T, tLow, tHigh);
    if (st != SNDL_NORMAL) return st;
    if (P > kVdnPmax_Pa) return SNDL_ERR_POVER;
    return liquidRegion ? SNDL_ERR_PHASE : SNDL_NORMAL;
}

bool BadPoint(double T, double P) {
    return BadTemperature(T) || !(P > 0.0) || !std::isfinite(P);
}

}  // namespace

// The catalogue's vapour pressure and liquid density as hints to the density solve. Over
// the range of the reference equations their own saturation pressure is within 11 % of the
// catalogue's, so the gas is stable below 0.8 of it.
gerg::Hint GergHint(const Component& c, double T, double p_kPa) {
    gerg::Hint h;
    if (c.gerg < 0) return h;
    const double tc = gerg::kFluids[c.gerg].tc_K;
    if (T < std::fmax(kGergTmin_K, c.vp.tmin_K) || T > std::fmin(c.vp.tmax_K, tc)) return h;
    h.gasStableBelow_kPa = 0.8 * Evaluate(c.vp, T, c.tc_K) / 1000.0;
    if (p_kPa >= h.gasStableBelow_kPa && T >= c.ldn.tmin_K && T <= c.ldn.tmax_K) {
        h.liquid_mol_l = Evaluate(c.ldn, T, c.tc_K);
    }
    return h;
}

int32_t GergVdn(const Component& c, double T, double P, double* vdn) {
    if (vdn == nullptr || BadPoint(T, P)) return SNDL_ERR_XINVALID;
    if (c.gerg < 0) return SNDL_ERR_CALC;
    const gerg::Fluid& f = gerg::kFluids[c.gerg];
    const gerg::State s = gerg::Solve(f, T, P / 1000.0, GergHint(c, T, P / 1000.0));
    if (s.phase == gerg::Phase::BeyondRange) return SNDL_ERR_POVER;
    if (s.phase == gerg::Phase::Invalid) return SNDL_ERR_XINVALID;
    *vdn = s.rho_mol_l;
    const bool liquid = s.phase == gerg::Phase::MetastableGas || s.phase == gerg::Phase::Liquid;
    return VdnStatus(c, T, P, liquid);
}

int32_t CubicVdn(const Component& c, double T, double P, double* vdn) {
    if (vdn == nullptr || BadPoint(T, P)) return SNDL_ERR_XINVALID;
    cubic::Choice ch{};
    if (!cubic::Choose(cubic::PureParams(c, T), T, P, ch)) return SNDL_ERR_CALC;
    *vdn = P / (ch.z * cubic::kR * T);
    // The catalogue's vapour pressure marks the liquid region: it is closer to the measured
    // saturation line than the cubic's own. Where the cubic has no gas root, it is liquid too.
    const bool liquid = T < c.tc_K && (P > Evaluate(c.vp, T, c.tc_K) || !ch.gasLike);
    return VdnStatus(c, T, P, liquid);
}

}  // namespace sndl::dippr

using namespace sndl::dippr;

extern "C" {

int32_t DprGetClist(char* names, int32_t* ids) {
    for (int i = 0; i < kComponentCount; ++i) {
        if (names != nullptr) {
            char* field = names + static_cast<size_t>(i) * SNDL_DPR_NAME_WIDTH;
            std::memset(field, 0, SNDL_DPR_NAME_WIDTH);
            std::strncpy(field, kComponents[i].name, SNDL_DPR_NAME_WIDTH - 1);
        }
        if (ids != nullptr) ids[i] = kComponents[i].id;
    }
    return kComponentCount;
}

int32_t DprMw(int32_t id, double* mw) {
    if (mw == nullptr) return SNDL_ERR_XINVALID;
    const int pos = FindById(id);
    if (pos < 0) return SNDL_ERR_NOCOMP;
    *mw = kComponents[pos].mw_kg_kmol;
    return SNDL_NORMAL;
}

int32_t DprIcp(int32_t id, double T, double* cp) {
    return Correlate(id, T, cp, &Component::icp);
}
int32_t DprLdn(int32_t id, double T, double* ldn) {
    return Correlate(id, T, ldn, &Component::ldn);
}
int32_t DprVvs(int32_t id, double T, double* vis) {
    return Correlate(id, T, vis, &Component::vvs);
}
int32_t DprLvs(int32_t id, double T, double* vis) {
    return Correlate(id, T, vis, &Component::lvs);
}

int32_t DprVdn(int32_t id, double T, double P, double* vdn) {
    if (vdn == nullptr) return SNDL_ERR_XINVALID;
    const int pos = FindById(id);
    if (pos < 0) return SNDL_ERR_NOCOMP;
    const Component& c = kComponents[pos];
    return c.gerg >= 0 ? GergVdn(c, T, P, vdn) : CubicVdn(c, T, P, vdn);
}

int32_t DprIcpRng(int32_t id, double* tLow, double* tHigh) {
    return Range(id, tLow, tHigh, &Component::icp);
}
int32_t DprVvsRng(int32_t id, double* tLow, double* tHigh) {
    return Range(id, tLow, tHigh, &Component::vvs);
}
int32_t DprLdnRng(int32_t id, double* tLow, double* tHigh) {
    return Range(id, tLow, tHigh, &Component::ldn);
}
int32_t DprLvsRng(int32_t id, double* tLow, double* tHigh) {
    return Range(id, tLow, tHigh, &Component::lvs);
}
int32_t DprVpRng(int32_t id, double* tLow, double* tHigh) {
    return Range(id, tLow, tHigh, &Component::vp);
}

int32_t DprVdnRng(int32_t id, double* tLow, double* tHigh) {
    if (tLow == nullptr || tHigh == nullptr) return SNDL_ERR_XINVALID;
    const int pos = FindById(id);
    if (pos < 0) return SNDL_ERR_NOCOMP;
    VdnRange(kComponents[pos], *tLow, *tHigh);
    return SNDL_NORMAL;
}

}  // extern "C"
