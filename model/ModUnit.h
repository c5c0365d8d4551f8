#pragma once
// Conversions between the units a user can pick and the internal units of the calculation
// (K, Pa absolute, mm, kg/m3, Pa s, MJ/m3), and a few small numeric helpers.
//
// The factors are the ones the device firmware and the older files were made with; in
// particular psi uses 6.894757 (seven figures) and 6894.757, not a more exact value, so that
// numbers round-trip with what is already out there. The order of the operations is kept as
// written below because it decides the last bit of the result.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "Value.h"

namespace qdf {

class IComponentList;

// ---- Pure conversions ----

double DegCToK(double v);       // v + 273.15
double KToDegC(double v);       // v - 273.15
double DegFToK(double v);       // (v - 32) x (5 / 9) + 273.15
double KToDegF(double v);       // (9 / 5) x (v - 273.15) + 32
double DegCToDegF(double v);    // (9 / 5) x v + 32
double PsiToKPa(double v);      // v x 6.894757
double KPaToPsi(double v);      // v / 6.894757
double BarToKPa(double v);      // v x 100
double KPaToBar(double v);      // v / 100
double PsiToPa(double v);       // v x 6894.757
double BarToPa(double v);       // v x 100000
double KPaToPa(double v);       // v x 1000
double InToMm(double v);        // v x 25.4
double MmToM(double v);         // v / 1000
double KgM3ToLbFt3(double v);   // v x 0.3048^3 / 0.45359237
double LbFt3ToKgM3(double v);   // v x 0.45359237 / 0.3048^3
double LbFtSToPaS(double v);    // v x (0.45359237 / 0.3048)
double PaSToLbFtS(double v);    // v x (0.3048 / 0.45359237)
double PaToKPa(double v);       // v x 0.001
double BtuFt3ToMJM3(double v);  // (1.055056 / 1000) x v / 0.3048^3

// ---- Unit lists of the pages, as their texts stand ----

inline constexpr std::array<std::string_view, 6> kPageOperatingPressureUnits = {
    "kPa abs", "bar abs", "psi abs", "kPa gauge", "bar gauge", "psi gauge"};
inline constexpr std::array<std::string_view, 3> kPageTemperatureUnits = {"deg C", "deg F",
                                                                          "Kelvin"};
inline constexpr std::array<std::string_view, 2> kPageDiameterUnits = {"mm", "in"};
inline constexpr std::array<std::string_view, 2> kPageDensityUnits = {"kg/m3", "lb/ft3"};
inline constexpr std::array<std::string_view, 2> kPageViscosityUnits = {"Pa sec", "lb/ft sec"};
inline constexpr std::array<std::string_view, 2> kPageHeatingValueUnits = {"MJ/m3", "BTU/ft3"};

// Device temperature codes (HART) and their Fieldbus counterparts.
inline constexpr int32_t kHartDegC = 32;
inline constexpr int32_t kHartDegF = 33;
inline constexpr int32_t kHartKelvin = 35;
inline constexpr int32_t kFfDegC = 1001;
inline constexpr int32_t kFfDegF = 1002;
inline constexpr int32_t kFfKelvin = 1000;

// ---- Entered values to standard values ----

// A pressure by the text of its unit to Pa absolute; gauge units add the atmospheric pressure
// (Pa). A text outside the six of the list gives the value as it stands.
double PressureToStandard(double v, std::string_view unitText, double atmPressStandard);
// The same by process pressure code 0 to 5 ("kPa abs" ... "psi gauge").
double PressureCodeToStandard(double v, int32_t unitCode, double atmPressStandard);
// A pressure by code to kPa for range tests. Gauge values stay as they stand, without the
// atmospheric pressure: the pages compare them that way against absolute limits.
double PressureCodeToKPa(double v, int32_t unitCode);
// True for the codes 3 to 5.
bool IsGaugePressureCode(int32_t unitCode);

// "deg C" and "deg F" convert to K; any other text ("Kelvin") is taken as it is.
double TemperatureToStandard(double v, std::string_view unitText);
// The same by code 32, 33, 35; any other code is taken as it is.
double TemperatureCodeToStandard(double v, int32_t unitCode);
// "in" converts to mm; any other text ("mm") is taken as it is.
double DiameterToStandard(double v, std::string_view unitText);

// ---- Device units ----

// From K to a device temperature unit: HART codes 32, 33, 35 in the first form, Fieldbus
// codes 1001, 1002, 1000 in the second. Any other code gives 0.
double ConvertTemperature(double kelvin, int32_t hartUnitCode);
double ConvertTemperatureFF(double kelvin, int32_t ffUnitCode);

// Fieldbus code of a device unit code used by the calculation: temperature 32, 33, 35,
// density 92, 94, length 45. Any other code gives 0.
int32_t FieldbusTempUnit(int32_t code);

// ---- Small numeric helpers ----

// out = a unless a is above b, then b.
void Smaller(double a, double b, double& out);
double Smaller(double a, double b);
// out = a unless a is below b, then b.
void Larger(double a, double b, double& out);
double Larger(double a, double b);

// The general numeric test (qdf::IsNumeric) on a text. For a value: numbers (and booleans)
// are numeric, a string by the text test, an empty cell is not.
bool IsNumericValue(std::string_view text);
bool IsNumericValue(const Value& value);
inline bool IsNumericValue(const char* text) {
    return IsNumericValue(std::string_view(text));
}
inline bool IsNumericValue(const std::string& text) {
    return IsNumericValue(std::string_view(text));
}

// A text starting with a double quote loses its first and last characters; any other text,
// the empty one included, stays as it is. A lone quote gives "".
std::string StripQuotes(std::string_view text);

// ---- Component limits ----

// Temperature limits (K) of a component's gas or liquid use, looked up by whole name in
// catalogue order. Returns 0 with the limits, or 1 with both outputs left alone.
int32_t FindGasLimits(const IComponentList& components, std::string_view name, double& low,
                      double& high);
int32_t FindLiquidLimits(const IComponentList& components, std::string_view name, double& low,
                         double& high);

}  // namespace qdf
