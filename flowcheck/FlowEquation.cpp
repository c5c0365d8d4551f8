#include "FlowEquation.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace qdf::flowcheck {

namespace {

using std::exp;
using std::pow;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// ISO 5167-1 (1991) and ASME MFC-3M (1989) after Stolz; 0.039 replaces 0.09 L1 where
// L1 >= 0.4333. The ASME D and D/2 taps print 0.01584 b^3 for the downstream term.
double Stolz(double b, double Re, double L1, double L2, double down = -1) {
    const double tap = L1 >= 0.4333 ? 0.039 : 0.09 * L1;
    return 0.5959 + 0.0312 * pow(b, 2.1) - 0.184 * pow(b, 8) +
           0.0029 * pow(b, 2.5) * pow(1e6 / Re, 0.75) + tap * pow(b, 4) / (1 - pow(b, 4)) -
           (down < 0 ? 0.0337 * L2 : down) * pow(b, 3);
}

// ISO 5167-2 (2003), Reader-Harris/Gallagher.
double ReaderHarrisGallagher(double b, double D, double Re, double L1, double L2) {
    const double A = pow(19000 * b / Re, 0.8), M2 = 2 * L2 / (1 - b);
    return 0.5961 + 0.0261 * b * b - 0.216 * pow(b, 8) + 0.000521 * pow(1e6 * b / Re, 0.7) +
           (0.0188 + 0.0063 * A) * pow(b, 3.5) * pow(1e6 / Re, 0.3) +
           (0.043 + 0.080 * exp(-10 * L1) - 0.123 * exp(-7 * L1)) * (1 - 0.11 * A) * pow(b, 4) /
               (1 - pow(b, 4)) -
           0.031 * (M2 - 0.8 * pow(M2, 1.1)) * pow(b, 1.3) +
           (D < 71.12 ? 0.011 * (0.75 - b) * (2.8 - D / 25.4) : 0.0);
}

// AGA Report No. 3 (1992), flange taps.
double Aga3(double b, double D, double Re) {
    const double L = 25.4 / D, M2 = 2 * L / (1 - b), A = pow(19000 * b / Re, 0.8);
    const double B = pow(b, 4) / (1 - pow(b, 4));
    return 0.5961 + 0.0291 * b * b - 0.229 * pow(b, 8) +
           0.003 * (1 - b) * std::max(2.8 - D / 25.4, 0.0) +
           (0.0433 + 0.0712 * exp(-8.5 * L) - 0.1145 * exp(-6.0 * L)) * (1 - 0.23 * A) * B -
           0.0116 * (M2 - 0.52 * pow(M2, 1.3)) * pow(b, 1.1) * (1 - 0.14 * A) +
           0.000511 * pow(1e6 * b / Re, 0.7) +
           (0.021 + 0.0049 * A) * pow(b, 4) * pow(1e6 / Re, 0.35);
}

}  // namespace

// clang-format off
double StandardDischargeCoefficient(int32_t code, double b, double D, double Re) {
    const double L = 25.4 / D, r = 1e6 / Re;
    switch (code) {
        case 2: case 4: return Stolz(b, Re, 0, 0);
        case 5: case 7: return Stolz(b, Re, L, L);
        case 9: return Stolz(b, Re, 1, 0.47);
        case 11: return Stolz(b, Re, 1, 0, 0.01584);
        case 3: return ReaderHarrisGallagher(b, D, Re, 0, 0);
        case 6: return ReaderHarrisGallagher(b, D, Re, L, L);
        case 10: return ReaderHarrisGallagher(b, D, Re, 1, 0.47);
        case 8: return Aga3(b, D, Re);
        case 12: return 0.99 - 0.2262 * pow(b, 4.1) -
                        (0.00175 * b * b - 0.0033 * pow(b, 4.15)) * pow(r, 1.15);  // ISA 1932
        case 13: return 0.9965 - 0.00653 * pow(b * r, 0.5);  // long radius
        case 14: return 0.9975 - 0.00653 * pow(b * r, 0.5);  // ASME flow nozzles
        case 15: return 0.9858 - 0.196 * pow(b, 4.5);        // venturi nozzle
        case 16: case 17: return 0.984;                      // classical venturi tubes
        case 18: case 19: return 0.995;
        case 20: return 0.985;
        default: return kNaN;
    }
}

std::array<double, 4> DeviceReynoldsExponents(int32_t code) {
    switch (code) {
        case 2: case 4: case 5: case 7: case 9: case 11: return {-0.75, 0, 0, 0};
        case 3: case 6: case 10: return {-0.8, -0.7, -0.3, -1.1};
        case 8: return {-0.8, -0.7, -0.35, -1.15};
        case 12: return {-1.15, 0, 0, 0};
        case 13: case 14: return {-0.5, 0, 0, 0};
        default: return {0, 0, 0, 0};
    }
}
// clang-format on

double DeviceDischargeCoefficient(int32_t code, const std::array<double, 5>& terms, double Re) {
    const auto e = DeviceReynoldsExponents(code);
    double c = terms[0];
    for (std::size_t i = 0; i < e.size(); ++i)
        if (e[i] != 0.0) c += terms[i + 1] * pow(Re, e[i]);
    return c;
}

double StandardExpansibility(int32_t code, double x, double kappa, double b) {
    const double b4 = pow(b, 4);
    switch (code) {
        case 2:
        case 4:
        case 5:
        case 7:
        case 8:
        case 9:
        case 11:
            return 1 - (0.41 + 0.35 * b4) * x / kappa;
        case 3:
        case 6:
        case 10:
            return 1 - (0.351 + 0.256 * b4 + 0.93 * b4 * b4) * (1 - pow(1 - x, 1 / kappa));
        default:
            break;
    }
    if (code < 12 || code > 20) return kNaN;
    // Isentropic expansion through a nozzle or venturi throat; 0 / 0 at x = 0.
    if (x == 0.0) return 1.0;
    const double t = 1 - x, t2k = pow(t, 2 / kappa);
    return std::sqrt(kappa * t2k / (kappa - 1) * (1 - b4) / (1 - b4 * t2k) *
                     (1 - pow(t, (kappa - 1) / kappa)) / (1 - t));
}

double DischargeLaw::At(double Re) const {
    switch (kind) {
        case Kind::DeviceTerms:
            return DeviceDischargeCoefficient(code, terms, Re);
        case Kind::Standard:
            return StandardDischargeCoefficient(code, beta, pipeMm, Re);
        case Kind::Fixed:
            break;
    }
    return fixed;
}

FlowSolution SolveMassFlow(const FlowInputs& in) {
    FlowSolution out;
    const double b = in.boreM / in.pipeM;
    if (!(in.density > 0.0) || !(in.dpPa > 0.0) || !(in.viscosity > 0.0) || !(b > 0.0) ||
        !(b < 1.0) || !std::isfinite(in.expansion)) {
        out.massFlow = kNaN;
        return out;
    }
    // Everything but C: qm = C x k.
    const double k = in.expansion * std::numbers::pi / 4.0 * in.boreM * in.boreM *
                     std::sqrt(2.0 * in.dpPa * in.density / (1.0 - pow(b, 4)));
    const double reynoldsPerFlow = 4.0 / (std::numbers::pi * in.viscosity * in.pipeM);
    if (k == 0.0) {
        // An expansion factor of zero: the equation gives no flow at all, a -100 % error.
        out.massFlow = 0.0;
        return out;
    }
    double c = in.discharge.At(1e6);
    for (out.iterations = 1; out.iterations <= 100; ++out.iterations) {
        const double re = c * k * reynoldsPerFlow;
        const double next = in.discharge.At(re);
        const bool settled = std::fabs(next - c) <= 1e-15 * std::fabs(next);
        c = next;
        if (settled || !std::isfinite(c)) break;
    }
    out.discharge = c;
    out.massFlow = c * k;
    out.reynolds = out.massFlow * reynoldsPerFlow;
    if (!std::isfinite(out.massFlow)) out.massFlow = kNaN;
    return out;
}

}  // namespace qdf::flowcheck
