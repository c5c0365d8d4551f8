// The C operations of sndl_iapws: range and phase decisions over the IF97 regions.
#include "sndl/sndl_iapws.h"

#include <cmath>

#include "if97.h"

namespace {

using namespace sndl::if97;

enum class Phase { kLiquid, kVapour };

// A point this close to the saturation pressure (relative) is on the line: it takes the phase
// the operation names. Ts(p) and ps(T) invert each other to ~1e-15, so a saturated grid built
// from IapwsTs stays free of phase warnings.
constexpr double kOnLine = 1e-9;

int32_t RangeStatus(double T, double p) {
    if (!(p > 0.0)) return SNDL_ERR_PUNDER;
    if (p > kPmax) return SNDL_ERR_POVER;
    if (!(T >= kTmin)) return SNDL_ERR_TUNDER;
    if (T > (p <= kPmax5 ? kTmax5 : kTmax)) return SNDL_ERR_TOVER;
    return SNDL_NORMAL;
}

bool Computable(double T, double p) {
    return T > 0.0 && p > 0.0 && std::isfinite(T) && std::isfinite(p);
}

// Where a (T, p) point is evaluated for the phase an operation names.
struct Point {
    int region;       // 1, 2, 3 or 5
    Side side;        // the phase the point has (region 3 subregion choice)
    bool otherPhase;  // the point lies on the other side of the saturation line
};

bool Usable(const State& s) {
    return s.rho_kgm3 > 0.0 && std::isfinite(s.rho_kgm3) && s.dpdrho_T > 0.0 &&
           std::isfinite(s.w_ms);
}

Point Locate(double T, double p, Phase want) {
    const Side wanted = want == Phase::kLiquid ? Side::kLiquid : Side::kVapour;
    if (T > kTmax) {
        // Above every saturation temperature; below the critical pressure it counts as steam.
        return {p <= kPmax5 ? 5 : 2, Side::kVapour, want == Phase::kLiquid && p < kPc};
    }
    if (T >= kTc) {
        const int region = T <= kTB23Max && p > B23Pressure(T) ? 3 : 2;
        return {region, Side::kVapour, want == Phase::kLiquid && p < kPc};
    }
    const double ps = SaturationPressure(T);
    Side side = wanted;
    if (std::fabs(p - ps) > kOnLine * ps) side = p > ps ? Side::kLiquid : Side::kVapour;
    const bool other = side != wanted;
    if (T > kT13) return {p > B23Pressure(T) ? 3 : 2, side, other};
    // Regions 1 and 2 continue past the saturation line: use the named phase's metastable
    // state while it is mechanically stable, else the stable phase.
    const int stable = side == Side::kLiquid ? 1 : 2;
    if (!other) return {stable, side, false};
    const int meta = want == Phase::kLiquid ? 1 : 2;
    const State s = meta == 1 ? Region1(T, p) : Region2(T, p);
    return {Usable(s) ? meta : stable, side, true};
}

double DensityIn(const Point& pt, double T, double p) {
    switch (pt.region) {
        case 1:
            return Region1Density(T, p);
        case 2:
            return Region2Density(T, p);
        case 3:
            return Region3Density(T, p, pt.side);
        default:
            return Region5Density(T, p);
    }
}

State StateIn(const Point& pt, double T, double p) {
    switch (pt.region) {
        case 1:
            return Region1(T, p);
        case 2:
            return Region2(T, p);
        case 3:
            return Region3(Region3Density(T, p, pt.side), T);
        default:
            return Region5(T, p);
    }
}

// Common frame of the (T, p) operations: range status, region, value, phase status.
template <class F>
int32_t Evaluate(double T, double p, Phase want, double* out, F value) {
    if (out == nullptr) return SNDL_ERR_XINVALID;
    int32_t status = RangeStatus(T, p);
    if (!Computable(T, p)) {
        *out = NAN;
        return status != SNDL_NORMAL ? status : SNDL_ERR_CALC;
    }
    const Point pt = Locate(T, p, want);
    *out = value(pt);
    if (!std::isfinite(*out)) return status != SNDL_NORMAL ? status : SNDL_ERR_CALC;
    if (status == SNDL_NORMAL && pt.otherPhase) status = SNDL_ERR_PHASE;
    return status;
}

int32_t Density(double T, double p, Phase want, double* d) {
    return Evaluate(T, p, want, d, [&](const Point& pt) { return DensityIn(pt, T, p); });
}

int32_t ViscosityOf(double T, double p, Phase want, double* vis) {
    return Evaluate(T, p, want, vis,
                    [&](const Point& pt) { return sndl::if97::Viscosity(T, DensityIn(pt, T, p)); });
}

}  // namespace

extern "C" {

int32_t IapwsVdnw(double T, double P, double* d) {
    return Density(T, P, Phase::kVapour, d);
}

int32_t IapwsLdnw(double T, double P, double* d) {
    return Density(T, P, Phase::kLiquid, d);
}

int32_t IapwsVvs(double T, double P, double* vis) {
    return ViscosityOf(T, P, Phase::kVapour, vis);
}

int32_t IapwsLvs(double T, double P, double* vis) {
    return ViscosityOf(T, P, Phase::kLiquid, vis);
}

int32_t IapwsVkap(double T, double P, double* kappa) {
    return Evaluate(T, P, Phase::kVapour, kappa, [&](const Point& pt) {
        const State s = StateIn(pt, T, P);
        return s.w_ms * s.w_ms * s.rho_kgm3 / P;
    });
}

int32_t IapwsTs(double P, double* T) {
    if (T == nullptr) return SNDL_ERR_XINVALID;
    if (!(P > 0.0) || !std::isfinite(P)) {
        *T = NAN;
        return SNDL_ERR_PUNDER;
    }
    *T = SaturationTemperature(P);
    if (P < kPtriple) return SNDL_ERR_PUNDER;
    if (P > kPc) return SNDL_ERR_POVER;
    return std::isfinite(*T) ? SNDL_NORMAL : SNDL_ERR_CALC;
}

}  // extern "C"
