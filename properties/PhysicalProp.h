#pragma once
// Fluid properties at one point for whatever fluid the store describes: density, molecular
// weight, viscosity and isentropic exponent, each dispatched by fluid type (1 liquid, 2 gas),
// category (1 general liquid, 2 water, 3 custom liquid, 4 natural gas, 5 steam, 6 general gas,
// 7 custom gas) and the fluid or method name.
//
// Routines return 0 or non-zero; a non-zero result stops the calculation run. Library failures
// are reported through ReportPropertyError. A two-phase point (status 5) of water, steam or a
// general gas is a warning: the library's value stands and the result is 0, with 890 left in
// Gbl_ErrorCode. Numeric failures (a bound overrun, a non-finite value, a log that cannot be
// written) end a routine with 1 and no report.

#include <cstdint>
#include <string>

#include "clsExGlobalVars.h"

namespace qdf {

// Names of the natural gas methods and steam tables as they stand in UI_FluidName.
inline constexpr const char* kAga8Detail = "AGA8 Detail Characterization Method";
inline constexpr const char* kAga8Gross1 = "AGA8 Gross Characterization Method 1";
inline constexpr const char* kAga8Gross2 = "AGA8 Gross Characterization Method 2";
inline constexpr const char* kIsoMolar = "ISO12213 molar-composition analysis";
inline constexpr const char* kIsoPhysical = "ISO12213 physical properties";
inline constexpr const char* kSteamSuperheated = "Superheated and Saturated Steam";
inline constexpr const char* kSteamSaturated = "Saturated steam";

// Ideal gas constant in the units of the heat capacity calls, J/(kmol K).
inline constexpr double kGasConstant = 8314.3;
// Viscosity of natural gas by the gross methods: 6.9e-6 lb/(ft s) in Pa s.
double NaturalGasViscosity();

// Density in kg/m3 at tempK (K) and pressPa (Pa absolute). Note the argument order: the
// result stands between temperature and pressure.
int32_t GetDensity(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                   const std::string& name, double tempK, double& density, double pressPa);

// Molecular weight in kg/kmol; natural gas methods need the point as well.
int32_t GetMolecularWeight(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                           const std::string& name, double& mw, double tempK, double pressPa);

// Y21 from the 21 detail composition percentages (not entered counts as 0).
void LoadMoleVector(clsExGlobalVars& store);
// XAga (nitrogen, CO2, hydrogen, CO fractions) from percentages of the gross and ISO pages.
void LoadGross1Vector(clsExGlobalVars& store, double co2, double h2, double co);
void LoadGross2Vector(clsExGlobalVars& store, double co2, double h2, double co, double n2);
void LoadIsoVector(clsExGlobalVars& store, double co2, double h2);
// XAga from the stored gas of a gross or ISO method, as that method's page fills it on Next:
// a configuration read from a file needs it before it is calculated away from the pages.
// Other fluids leave XAga as it is.
void LoadNaturalGasVector(clsExGlobalVars& store);

// Viscosity in Pa s at one point of the viscosity table, written to UI_Visc(index). A case
// that computes nothing writes the element's old value back.
int32_t GetViscosity(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                     const std::string& name, double tempK, int32_t index, double pressPa);

// Sets UI_IsenExpValue at the given point; liquids and custom gases keep the entered value.
int32_t GetIsentropicExponent(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                              const std::string& name, double tempK, double pressPa);

}  // namespace qdf
