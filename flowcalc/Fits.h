#pragma once
// Reduction of the property tables to the polynomials the transmitter evaluates, by least
// squares (tolerance 1e-12, no constraint rows):
//
//   gas density, kg/m3:   sum over m = 0..3 of p^m (a[3m] + a[3m+1] / T + a[3m+2] / T^2),
//                         T in K, p in kPa absolute (12 terms)
//   liquid density:       a0 + a1 T + a2 T^2 + a3 T^3 (4 terms), T in K
//   viscosity, Pa s:      c0 + c1 T + c2 T^2 + c3 T^3
//   expansion factor:     c0 + c1 x + c2 x^2, x = dp/p1
//
// Each fit fills XLsqr, solves, and only on success writes its Y, c, Ycal and sigma back with
// the transmitter coefficients. A solver failure is reported (kind 4) and leaves the earlier
// coefficients; a numeric failure (one division, a table bound) returns 1 with no message.

#include <cstdint>
#include <string>

#include "clsExGlobalVars.h"

namespace qdf {

inline constexpr double kFitTolerance = 1e-12;

// The fits of the current tables, then AssembleTransmitterParameters. Returns 0 or 1.
int32_t RunFits(clsExGlobalVars& store);

// Temperatures in K, pressures in Pa absolute.
int32_t FitExpansionFactor(clsExGlobalVars& store, int32_t fluidType, int32_t deviceCode,
                           const std::string& name, double lowRatio, double highRatio,
                           int32_t divisions);
int32_t FitDensity(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                   const std::string& name, double t1, double t2, int32_t tDiv, double p1,
                   double p2, int32_t pDiv);
int32_t FitViscosity(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                     const std::string& name, double t1, double t2, int32_t tDiv);

}  // namespace qdf
