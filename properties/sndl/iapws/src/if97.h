// IAPWS-IF97 water and steam, internal interface of sndl_iapws.
//
// Source: IAPWS R7-97(2012), Revised Release on the IAPWS Industrial Formulation 1997 for the
// Thermodynamic Properties of Water and Steam; region 3 backward equations v(T, p) from IAPWS
// SR5-05(2016); viscosity from IAPWS R12-08, industrial form (critical enhancement taken as 1).
//
// Equations: regions 1, 2 and 5 are Gibbs functions g(pi, tau); region 3 is a Helmholtz
// function f(delta, tau), inverted for density by the backward equations and Newton steps on
// p(rho, T); region 4 is the saturation line ps(T) and its inverse Ts(p); B23 separates regions
// 2 and 3 above 623.15 K.
//
// Validity: 273.15 K to 1073.15 K for p up to 100 MPa, 1073.15 K to 2273.15 K for p up to
// 50 MPa. The functions here compute outside it too (extrapolation); the C interface decides
// what is in range.
//
// Units: T in K, p in Pa, rho in kg/m3, energies per kg, w in m/s, viscosity in Pa s.
// Verification: the IAPWS computer-program check values (tests/sndl_iapws).
#ifndef SNDL_IAPWS_IF97_H
#define SNDL_IAPWS_IF97_H

#include <cmath>

#include "if97_tables.h"

namespace sndl::if97 {

inline constexpr double kR = 461.526;  // J/(kg K), all regions
inline constexpr double kTc = 647.096;
inline constexpr double kPc = 22.064e6;
inline constexpr double kRhoc = 322.0;
inline constexpr double kTmin = 273.15;
inline constexpr double kT13 = 623.15;      // regions 1/3 and start of B23
inline constexpr double kTB23Max = 863.15;  // B23 reaches 100 MPa
inline constexpr double kTmax = 1073.15;    // regions 1-3 end, region 5 begins
inline constexpr double kTmax5 = 2273.15;   // region 5 ends
inline constexpr double kPmax = 100e6;      // up to kTmax
inline constexpr double kPmax5 = 50e6;      // region 5
inline constexpr double kPtriple = 611.657;

// Properties at one state. cv, cp and w diverge at the critical point.
struct State {
    double rho_kgm3;
    double h_Jkg;
    double u_Jkg;
    double s_JkgK;
    double cp_JkgK;
    double cv_JkgK;
    double w_ms;
    double dpdrho_T;  // (dp/drho) at constant T, Pa m3/kg; <= 0 means mechanically unstable
};

double Region1Density(double T_K, double p_Pa);
State Region1(double T_K, double p_Pa);
double Region2Density(double T_K, double p_Pa);
State Region2(double T_K, double p_Pa);
double Region5Density(double T_K, double p_Pa);
State Region5(double T_K, double p_Pa);

// Region 3 from density.
double Region3Pressure(double rho_kgm3, double T_K);
State Region3(double rho_kgm3, double T_K);

// Which side of the saturation line a region 3 density is wanted for, when (T, p) lies on it.
enum class Side { kLiquid, kVapour };

// Subregion letter 'a'..'z' of the backward equations for (T, p) in region 3.
char Region3Subregion(double T_K, double p_Pa, Side onLine);
// Backward equation of one subregion, m3/kg.
double Region3BackwardVolume(char subregion, double T_K, double p_Pa);
// Subregion boundary line T(p), by its two letters ("ab", "cd", ...), K.
double Region3BoundaryT(const char* name, double p_Pa);
// Density from (T, p): backward equation, then Newton on p(rho, T) to 1e-12 relative.
double Region3Density(double T_K, double p_Pa, Side onLine);

// Saturation line (R7-97(2012) section 8) and B23 (section 4), inline: they sit in every
// region decision.
inline double SaturationPressure(double T) {
    const double* n = kSaturation;
    const double th = T + n[8] / (T - n[9]);
    const double A = (th + n[0]) * th + n[1];
    const double B = (n[2] * th + n[3]) * th + n[4];
    const double C = (n[5] * th + n[6]) * th + n[7];
    const double x = 2.0 * C / (-B + std::sqrt(B * B - 4.0 * A * C));
    const double x2 = x * x;
    return 1e6 * x2 * x2;
}

inline double SaturationTemperature(double p) {
    const double* n = kSaturation;
    const double beta = std::sqrt(std::sqrt(p / 1e6));
    const double E = (beta + n[2]) * beta + n[5];
    const double F = (n[0] * beta + n[3]) * beta + n[6];
    const double G = (n[1] * beta + n[4]) * beta + n[7];
    const double D = 2.0 * G / (-F - std::sqrt(F * F - 4.0 * E * G));
    const double a = n[9] + D;
    return 0.5 * (a - std::sqrt(a * a - 4.0 * (n[8] + n[9] * D)));
}

inline double B23Pressure(double T) {
    return 1e6 * (kB23[0] + (kB23[1] + kB23[2] * T) * T);
}

inline double B23Temperature(double p) {
    return kB23[3] + std::sqrt((p / 1e6 - kB23[4]) / kB23[2]);
}

// Viscosity at (T, rho), Pa s.
double Viscosity(double T_K, double rho_kgm3);

}  // namespace sndl::if97

#endif
