#pragma once
// Writing named parameters into the frame's device data, and the unit codes of the two buses.

#include <cstdint>
#include <string>

#include "SDKFrame.h"
#include "Value.h"

namespace qdf::host {

// Writes one parameter of one menu (parameter group). A menu or parameter that the device
// description lacks is skipped without a word; a failing frame call throws SDKError
// and the remaining steps of this write do not run. Each of the five writer calls gets a fresh
// writer from the manager, as some frames hand out single-use writers.
void WriteParameter(ISDKManager& manager, const std::string& menu, const std::string& parameter,
                    const qdf::Value& value);

// Temperature units of the two buses.
inline constexpr std::int32_t kHartDegC = 32;
inline constexpr std::int32_t kHartDegF = 33;
inline constexpr std::int32_t kHartKelvin = 35;
inline constexpr std::int32_t kFFKelvin = 1000;
inline constexpr std::int32_t kFFDegC = 1001;
inline constexpr std::int32_t kFFDegF = 1002;

// A temperature in Kelvin expressed in the device unit; an unknown code gives 0.
double ConvertTemperature(double kelvin, std::int32_t hartUnitCode);
double ConvertTemperatureFF(double kelvin, std::int32_t ffUnitCode);

// The HART temperature code of an FF one and back; an unknown code gives 0.
std::int32_t HartTempUnitFromFF(std::int32_t ffUnitCode);
std::int32_t FFTempUnitFromHart(std::int32_t hartUnitCode);

// An FF static pressure code read from the device, as the HART code the store works in, with
// the reference pressure rescaled where the HART list lacks the FF scale (GPa becomes MPa, mPa
// and uPa become Pa). An unknown code gives code 0 and leaves the value as it was.
struct HartPressure {
    std::int32_t code = 0;
    double value = 0.0;
};
HartPressure HartPressUnitFromFF(std::int32_t ffUnitCode, double refStaticPress);

// The FF code written back for a HART pressure code; an unknown code gives 0.
std::int32_t FFPressUnitFromHart(std::int32_t hartUnitCode);

}  // namespace qdf::host
