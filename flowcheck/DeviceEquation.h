#pragma once
// The transmitter's side of the flow check: the parameter set it holds and its own evaluation
// of the flow from it, with nothing from the property libraries.
//
//   density    gas:    sum over m = 0..3 of p^m (a[3m] + a[3m+1] / T + a[3m+2] / T^2), p in kPa
//              liquid: a0 + a1 T + a2 T^2 + a3 T^3; either read in the density unit code
//   viscosity  c0 + c1 T + c2 T^2 + c3 T^3, Pa s
//   diameters  d = d_r (1 + alpha_d (T - T_d)), D likewise, in the length unit code, the
//              reference temperatures in the temperature unit code
//   C          the five terms at fixed powers of Re by device code
//   eps        e0 + e1 x + e2 x^2, x = dp / p1

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "FlowEquation.h"

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::flowcheck {

struct DeviceParameters {
    int32_t pdCode = 0;
    int32_t fluidType = 0;
    int32_t densUnitCode = 92;  // HART codes; Fieldbus codes are mapped on reading
    int32_t lenUnitCode = 45;
    int32_t tempUnitCode = 35;
    std::array<double, 5> disCoeff{};
    std::array<double, 3> expFac{};
    std::array<double, 12> densCoeff{};
    std::array<double, 4> visCoeff{};
    double smalld = 0.0;  // in lenUnitCode
    double bigD = 0.0;
    double alphaSmall = 0.0;  // 1/K
    double alphaBig = 0.0;
    double tSmallD = 0.0;  // in tempUnitCode
    double tBigD = 0.0;
    // Names of the device data that were missing or not numbers; their values stay 0.
    std::vector<std::string> missing;
};

// The set as Apply writes it from the store: the Xmtr_ members, the reference temperatures of
// the diameters in K as the download derives them.
DeviceParameters ParametersFromStore(const clsExGlobalVars& store);

// The set as a device holds it, from its parameter values by name: the HART names
// ("discharge_coef_0", "small_d_r", ...) or the Fieldbus block names
// ("FLOW_TRANSDUCER_BLOCK.0.FLOW_CONFIG1.ENTRY1", ...), whichever `bus` says ("HART", "FFH1").
DeviceParameters ParametersFromDevice(const std::map<std::string, double>& values,
                                      const std::string& bus);

// SI factors of the device's unit codes; 0 for a code the device does not know.
double DensityUnitToKgM3(int32_t code);
double LengthUnitToM(int32_t code);
// K from a temperature in a unit code; NaN for an unknown code.
double TemperatureUnitToK(double value, int32_t code);
// Pa from a DP range in a device pressure unit code (HART or Fieldbus); NaN when unknown.
double PressureUnitToPa(double value, int32_t code);

class DeviceEquation {
  public:
    explicit DeviceEquation(const DeviceParameters& p);
    const DeviceParameters& Parameters() const { return p_; }

    double Density(double tempK, double pressPa) const;  // kg/m3
    double Viscosity(double tempK) const;                // Pa s
    double Bore(double tempK) const;                     // m
    double Pipe(double tempK) const;                     // m
    double Expansion(double x) const;
    DischargeLaw Discharge() const;

    FlowSolution Flow(double dpPa, double pressPa, double tempK) const;

  private:
    DeviceParameters p_;
};

}  // namespace qdf::flowcheck
