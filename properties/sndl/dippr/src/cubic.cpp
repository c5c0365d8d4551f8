#include "cubic.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace sndl::dippr::cubic {

namespace {

constexpr double kOmegaA = 0.45723553;
constexpr double kOmegaB = 0.07779607;
// Critical compressibility of the equation; v_c / b separates the gas branch from the liquid
// branch of a subcritical isotherm, since both spinodals lie on either side of it.
constexpr double kZc = 0.30740131;
constexpr double kVcOverB = kZc / kOmegaB;
constexpr double kSqrt2 = 1.4142135623730951;

double Kappa(double omega) {
    if (omega <= 0.49) return 0.37464 + omega * (1.54226 - 0.26992 * omega);
    return 0.379642 + omega * (1.48503 + omega * (-0.164423 + 0.016666 * omega));
}

double Polish(double z, double c2, double c1, double c0) {
    for (int i = 0; i < 3; ++i) {
        const double f = ((z + c2) * z + c1) * z + c0;
        const double df = (3.0 * z + 2.0 * c2) * z + c1;
        if (df == 0.0) break;
        const double step = f / df;
        z -= step;
        if (std::fabs(step) <= 1e-15 * std::fabs(z)) break;
    }
    return z;
}

}  // namespace

Params PureParams(const Component& c, double T) {
    const double rtc = kR * c.tc_K;
    const double s = 1.0 + Kappa(c.omega) * (1.0 - std::sqrt(T / c.tc_K));
    return {kOmegaA * rtc * rtc / c.pc_Pa * s * s, kOmegaB * rtc / c.pc_Pa};
}

double AlphaMinimumTemperature(const Component& c) {
    const double m = Kappa(c.omega);
    if (m <= 0.0) return std::numeric_limits<double>::infinity();
    const double r = 1.0 + 1.0 / m;
    return c.tc_K * r * r;
}

Roots SolveZ(double A, double B) {
    const double c2 = -(1.0 - B);
    const double c1 = A - 3.0 * B * B - 2.0 * B;
    const double c0 = -(A * B - B * B - B * B * B);
    const double shift = c2 / 3.0;
    const double p = c1 - c2 * shift;
    const double q = 2.0 * c2 * c2 * c2 / 27.0 - c2 * c1 / 3.0 + c0;
    const double disc = 0.25 * q * q + p * p * p / 27.0;
    double raw[3];
    int n = 0;
    if (disc > 0.0) {
        // One real root; the sign choice avoids cancellation between the two cube roots.
        const double w = -0.5 * q - std::copysign(std::sqrt(disc), q);
        const double u = std::cbrt(w);
        raw[n++] = (u != 0.0 ? u - p / (3.0 * u) : 0.0) - shift;
    } else {
        const double r = std::sqrt(-p / 3.0);
        const double arg = r > 0.0 ? std::clamp(-0.5 * q / (r * r * r), -1.0, 1.0) : 0.0;
        const double phi = std::acos(arg);
        for (int k = 0; k < 3; ++k) {
            raw[n++] = 2.0 * r * std::cos((phi - 2.0 * M_PI * k) / 3.0) - shift;
        }
    }
    Roots out{0, {0, 0, 0}};
    for (int i = 0; i < n; ++i) {
        const double z = Polish(raw[i], c2, c1, c0);
        if (!(z > B)) continue;
        bool dup = false;
        for (int j = 0; j < out.count; ++j) dup = dup || std::fabs(out.z[j] - z) <= 1e-12 * z;
        if (!dup) out.z[out.count++] = z;
    }
    // At most three roots: an insertion sort by hand.
    for (int i = 1; i < out.count; ++i) {
        for (int j = i; j > 0 && out.z[j] < out.z[j - 1]; --j) std::swap(out.z[j], out.z[j - 1]);
    }
    return out;
}

double LnPhi(double Z, double A, double B) {
    return Z - 1.0 - std::log(Z - B) -
           A / (2.0 * kSqrt2 * B) * std::log((Z + (1.0 + kSqrt2) * B) / (Z + (1.0 - kSqrt2) * B));
}

bool Choose(const Params& prm, double T, double P, Choice& out) {
    const double rt = kR * T;
    const double A = prm.a * P / (rt * rt);
    const double B = prm.b * P / rt;
    const Roots r = SolveZ(A, B);
    if (r.count == 0) return false;
    const double zHigh = r.z[r.count - 1];
    const double zLow = r.z[0];
    const bool gasRoot = zHigh > kVcOverB * B;
    const bool liquidRoot = zLow < kVcOverB * B;
    if (gasRoot && liquidRoot) {
        out = {zHigh, true, LnPhi(zLow, A, B) < LnPhi(zHigh, A, B)};
    } else if (gasRoot) {
        out = {zHigh, true, false};
    } else {
        out = {zLow, false, true};
    }
    return true;
}

}  // namespace sndl::dippr::cubic
