#pragma once
// The flow equation shared by both sides of the flow check, and the primary device standards in
// their own published form, Re explicit:
//
//   qm = C / sqrt(1 - b^4) x eps x pi / 4 x d^2 x sqrt(2 dp rho)      (kg/s, SI throughout)
//   Re = 4 qm / (pi mu D)
//
// C depends on Re, so the flow is solved together with it. The device side feeds its five
// terms and fixed powers of Re; the reference side the full equation at the point's geometry.

#include <array>
#include <cstdint>

namespace qdf::flowcheck {

// The standard's full discharge coefficient for a device code 2 to 20 at diameter ratio b,
// pipe diameter D (mm) and pipe Reynolds number Re. Code 1 and unknown codes give NaN.
double StandardDischargeCoefficient(int32_t code, double b, double D, double Re);

// The powers of Re by which the transmitter multiplies its terms C1 to C4.
std::array<double, 4> DeviceReynoldsExponents(int32_t code);

// The transmitter's discharge coefficient from its five terms.
double DeviceDischargeCoefficient(int32_t code, const std::array<double, 5>& terms, double Re);

// The standard's expansibility at x = dp/p1, isentropic exponent kappa and ratio b, by code.
// NaN for code 1 and unknown codes.
double StandardExpansibility(int32_t code, double x, double kappa, double b);

// A Reynolds-dependent discharge coefficient: the device's terms or the standard's equation.
struct DischargeLaw {
    enum class Kind { DeviceTerms, Standard, Fixed } kind = Kind::Fixed;
    int32_t code = 1;
    std::array<double, 5> terms{};  // DeviceTerms
    double beta = 0.0;              // Standard: at the point
    double pipeMm = 0.0;            // Standard: at the point
    double fixed = 0.0;             // Fixed
    double At(double Re) const;
};

struct FlowInputs {
    double dpPa = 0.0;
    double density = 0.0;    // kg/m3, upstream
    double viscosity = 0.0;  // Pa s
    double expansion = 1.0;
    double boreM = 0.0;  // at the flowing temperature
    double pipeM = 0.0;
    DischargeLaw discharge;
};

struct FlowSolution {
    double massFlow = 0.0;  // kg/s; NaN when it cannot be solved
    double reynolds = 0.0;
    double discharge = 0.0;
    int iterations = 0;
};

// Fixed-point on C(Re): C changes slowly with Re, so a handful of steps settles it to the last
// bits. NaN flow for inputs without a physical flow (non-positive density, d >= D, ...).
FlowSolution SolveMassFlow(const FlowInputs& in);

}  // namespace qdf::flowcheck
