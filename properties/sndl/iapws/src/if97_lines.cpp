// Region 4 saturation line (R7-97(2012), section 8) and the region 2/3 boundary B23 (section 4).
#include <cmath>

#include "if97.h"
#include "if97_tables.h"

namespace sndl::if97 {

double SaturationPressure(double T) {
    const double* n = kSaturation;
    const double th = T + n[8] / (T - n[9]);
    const double A = (th + n[0]) * th + n[1];
    const double B = (n[2] * th + n[3]) * th + n[4];
    const double C = (n[5] * th + n[6]) * th + n[7];
    const double x = 2.0 * C / (-B + std::sqrt(B * B - 4.0 * A * C));
    const double x2 = x * x;
    return 1e6 * x2 * x2;
}

double SaturationTemperature(double p) {
    const double* n = kSaturation;
    const double beta = std::sqrt(std::sqrt(p / 1e6));
    const double E = (beta + n[2]) * beta + n[5];
    const double F = (n[0] * beta + n[3]) * beta + n[6];
    const double G = (n[1] * beta + n[4]) * beta + n[7];
    const double D = 2.0 * G / (-F - std::sqrt(F * F - 4.0 * E * G));
    const double a = n[9] + D;
    return 0.5 * (a - std::sqrt(a * a - 4.0 * (n[8] + n[9] * D)));
}

double B23Pressure(double T) {
    return 1e6 * (kB23[0] + (kB23[1] + kB23[2] * T) * T);
}

double B23Temperature(double p) {
    return kB23[3] + std::sqrt((p / 1e6 - kB23[4]) / kB23[2]);
}

}  // namespace sndl::if97
