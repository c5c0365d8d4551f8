#pragma once
// The calculation stages were written for a runtime that stops on a division by zero, an
// overflow or an invalid power. Here those give inf or NaN silently, so every value that could
// go bad passes through Checked, which turns it into the same stop: an exception that the
// stage's catch-all ends with result 1.

#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace qdf::numeric {

struct NumericFailure : std::range_error {
    NumericFailure() : std::range_error("non-finite intermediate result") {}
};

inline double Checked(double v) {
    if (!std::isfinite(v)) throw NumericFailure();
    return v;
}

// A power that fails where the original runtime would: a negative base to a fractional
// exponent, 0 to a negative exponent, an overflow.
inline double Pow(double base, double exponent) {
    return Checked(std::pow(base, exponent));
}

inline double Div(double num, double den) {
    return Checked(num / den);
}

// One axis of a grid: points ascend from the smaller limit in equal steps. The division count
// is taken as a double, so one division divides by zero and fails.
struct Axis {
    double start;
    double step;
};

inline Axis AscendingAxis(double limit1, double limit2, int32_t divisions) {
    const double step = Div(std::fabs(limit2 - limit1), static_cast<double>(divisions) - 1.0);
    return {Checked(std::fmin(limit1, limit2)), step};
}

}  // namespace qdf::numeric
