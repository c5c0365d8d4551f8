#pragma once
// The calculation driver: from what the pages left in the store to the property tables over
// the operating range, ready for the fits (RunFits in Fits.h, run by the callers afterwards).
//
// RunCalculation computes the discharge terms, then takes one of two branches:
//   liquid (type 1, except water): unit expansion terms, density and viscosity over
//     temperature only, reference density at pressure 0;
//   gas and water (type 2, or category 2, since water's density depends on pressure):
//     isentropic exponent at the range midpoint, expansion table (or the fixed terms of a
//     fixed-mode device), density over the temperature x pressure grid (temperature outermost),
//     reference density, viscosity over temperature at the mean pressure.
// Grids ascend from the smaller limit, except the saturated steam temperatures, which run from
// the saturation temperature of the first pressure limit to that of the second.
//
// Every routine returns 0 on success. A property failure returns non-zero with the report left
// in the store's error members; a numeric failure (a division count of 1, a table bound, a
// non-finite value) returns 1 with no message. A two-phase point is only a warning: the run
// goes on and Gbl_ErrorCode holds 890 afterwards.

#include <cstdint>

#include "clsExGlobalVars.h"

namespace qdf {

int32_t RunCalculation(clsExGlobalVars& store);

// A configuration read from a file, calculated as the pages leave it before the fits: the gross
// methods' vector from the stored gas; for a custom data table fluid the entered tables in
// internal units and the discharge and expansion stages (no library is asked); the calculation
// driver otherwise, with a liquid's expansion terms as the liquid pages set them. 0 on success,
// 1 with the store's error members set.
int32_t CalculateSavedConfiguration(clsExGlobalVars& store);
// A custom fluid's entered tables (as the physical property page shows them, in the range's
// and the lists' units) into the internal units the fits read.
void EnteredTablesToStandard(clsExGlobalVars& store);

// The stages, also called alone by the range pages after a successful run.
int32_t CalcDischargeCoefficient(clsExGlobalVars& store);
int32_t CalcIsentropicExponent(clsExGlobalVars& store);
int32_t CalcGasExpansionGrid(clsExGlobalVars& store);
int32_t SetFixedExpansionTerms(clsExGlobalVars& store);
int32_t SetLiquidExpansionTerms(clsExGlobalVars& store);
int32_t CalcGasDensityGrid(clsExGlobalVars& store);
int32_t CalcLiquidDensityGrid(clsExGlobalVars& store);
int32_t CalcGasReferenceDensity(clsExGlobalVars& store);
int32_t CalcLiquidReferenceDensity(clsExGlobalVars& store);
int32_t CalcGasViscosityGrid(clsExGlobalVars& store);
int32_t CalcLiquidViscosityGrid(clsExGlobalVars& store);

}  // namespace qdf
