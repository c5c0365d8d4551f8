#pragma once
// Primary device formulas. The transmitter evaluates the discharge coefficient itself from the
// Reynolds number, so each published equation is reduced here to five geometry terms C0 to C4
// that the device multiplies by fixed powers of Re selected by the device code:
//
//   codes 1, 15 to 20       C0
//   codes 2, 4, 5, 7, 9, 11 C0 + C1 Re^-0.75                                   (Stolz form)
//   codes 3, 6, 10          C0 + C1 Re^-0.8 + C2 Re^-0.7 + C3 Re^-0.3 + C4 Re^-1.1
//   code 8                  C0 + C1 Re^-0.8 + C2 Re^-0.7 + C3 Re^-0.35 + C4 Re^-1.15
//   code 12                 C0 + C1 Re^-1.15
//   codes 13, 14            C0 + C1 Re^-0.5
//
// The gas expansion factor is evaluated at dp/p1 ratios and fitted afterwards.
// Diameters are in mm.

#include <cstdint>
#include <string>

#include "CodeTables.h"
#include "clsExGlobalVars.h"

namespace qdf {

// LookupPrimaryDeviceCode lives with the device table in CodeTables.h: the primary element
// page uses the same lookup.

// Fills Xmtr_DisCoeff (C0 to C4) and calc_Beta = d / D. Returns 0, or 1 for a code outside 1
// to 20 with the terms unchanged. A geometry the formulas cannot take (D = 0, d = D, a
// negative ratio) throws numeric::NumericFailure and leaves Xmtr_DisCoeff as it was; the
// calling stage turns that into its failure.
int32_t GetDischargeTerms(clsExGlobalVars& store, int32_t code, double d, double D);

// calc_LowValDpP1Ratio and calc_UpValDpP1Ratio of the device's expansion table. Returns 0, or
// 1 with both unchanged for a code without limits.
int32_t SetDpP1RatioRange(clsExGlobalVars& store, int32_t code);

// calc_GasExpFactor(index) at dp/p1 ratio x and isentropic exponent kappa. An unknown code
// leaves the element. Returns 0, or 1 with no message when the formula fails (kappa = 1 for
// nozzles and venturis, d = D, an index off the table).
int32_t GetExpansionFactor(clsExGlobalVars& store, int32_t code, double x, double kappa, double d,
                           double D, int32_t index);

double Largest(double a, double b);

}  // namespace qdf
