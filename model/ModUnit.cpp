#include "ModUnit.h"

#include <cmath>

#include "ComponentList.h"
#include "NumberText.h"

namespace qdf {

namespace {

constexpr double kPsiToKPa = 6.894757;
constexpr double kPsiToPa = 6894.757;
constexpr double kLb = 0.45359237;
constexpr double kFt = 0.3048;

// Computed each time as a power rather than held as a rounded constant, so the result matches
// the way the published tables were produced.
double CubicFoot() {
    return std::pow(kFt, 3);
}

}  // namespace

double DegCToK(double v) {
    return v + 273.15;
}
double KToDegC(double v) {
    return v - 273.15;
}
double DegFToK(double v) {
    return (v - 32.0) * (5.0 / 9.0) + 273.15;
}
double KToDegF(double v) {
    return (9.0 / 5.0) * (v - 273.15) + 32.0;
}
double DegCToDegF(double v) {
    return (9.0 / 5.0) * v + 32.0;
}
double PsiToKPa(double v) {
    return v * kPsiToKPa;
}
double KPaToPsi(double v) {
    return v / kPsiToKPa;
}
double BarToKPa(double v) {
    return v * 100.0;
}
double KPaToBar(double v) {
    return v / 100.0;
}
double PsiToPa(double v) {
    return v * kPsiToPa;
}
double BarToPa(double v) {
    return v * 100000.0;
}
double KPaToPa(double v) {
    return v * 1000.0;
}
double InToMm(double v) {
    return v * 25.4;
}
double MmToM(double v) {
    return v / 1000.0;
}
double KgM3ToLbFt3(double v) {
    return v * CubicFoot() / kLb;
}
double LbFt3ToKgM3(double v) {
    return v * kLb / CubicFoot();
}
double LbFtSToPaS(double v) {
    return v * (kLb / kFt);
}
double PaSToLbFtS(double v) {
    return v * (kFt / kLb);
}
double PaToKPa(double v) {
    return v * 0.001;
}
double BtuFt3ToMJM3(double v) {
    return (1.055056 / 1000.0) * v / CubicFoot();
}

double PressureToStandard(double v, std::string_view unitText, double atmPressStandard) {
    if (unitText == "kPa abs") return v * 1000.0;
    if (unitText == "bar abs") return v * 100000.0;
    if (unitText == "psi abs") return v * kPsiToPa;
    if (unitText == "kPa gauge") return v * 1000.0 + atmPressStandard;
    if (unitText == "bar gauge") return v * 100000.0 + atmPressStandard;
    if (unitText == "psi gauge") return v * kPsiToPa + atmPressStandard;
    return v;
}

double PressureCodeToStandard(double v, int32_t unitCode, double atmPressStandard) {
    if (unitCode < 0 || unitCode >= static_cast<int32_t>(kPageOperatingPressureUnits.size())) {
        return v;
    }
    return PressureToStandard(v, kPageOperatingPressureUnits[static_cast<size_t>(unitCode)],
                              atmPressStandard);
}

double PressureCodeToKPa(double v, int32_t unitCode) {
    switch (unitCode) {
        case 1:
        case 4:
            return BarToKPa(v);
        case 2:
        case 5:
            return PsiToKPa(v);
        default:
            return v;
    }
}

bool IsGaugePressureCode(int32_t unitCode) {
    return unitCode >= 3 && unitCode <= 5;
}

double TemperatureToStandard(double v, std::string_view unitText) {
    if (unitText == "deg C") return DegCToK(v);
    if (unitText == "deg F") return DegFToK(v);
    return v;
}

double TemperatureCodeToStandard(double v, int32_t unitCode) {
    switch (unitCode) {
        case kHartDegC:
            return DegCToK(v);
        case kHartDegF:
            return DegFToK(v);
        default:
            return v;
    }
}

double DiameterToStandard(double v, std::string_view unitText) {
    return unitText == "in" ? InToMm(v) : v;
}

double ConvertTemperature(double kelvin, int32_t hartUnitCode) {
    switch (hartUnitCode) {
        case kHartDegC:
            return kelvin - 273.15;
        case kHartDegF:
            return (kelvin - 273.15) * (9.0 / 5.0) + 32.0;
        case kHartKelvin:
            return kelvin;
        default:
            return 0.0;
    }
}

double ConvertTemperatureFF(double kelvin, int32_t ffUnitCode) {
    switch (ffUnitCode) {
        case kFfDegC:
            return ConvertTemperature(kelvin, kHartDegC);
        case kFfDegF:
            return ConvertTemperature(kelvin, kHartDegF);
        case kFfKelvin:
            return ConvertTemperature(kelvin, kHartKelvin);
        default:
            return 0.0;
    }
}

int32_t FieldbusTempUnit(int32_t code) {
    switch (code) {
        case kHartDegC:
            return kFfDegC;
        case kHartDegF:
            return kFfDegF;
        case kHartKelvin:
            return kFfKelvin;
        case 92:
            return 1097;
        case 94:
            return 1107;
        case 45:
            return 1010;
        default:
            return 0;
    }
}

void Smaller(double a, double b, double& out) {
    out = (a > b) ? b : a;
}
double Smaller(double a, double b) {
    double out = 0.0;
    Smaller(a, b, out);
    return out;
}
void Larger(double a, double b, double& out) {
    out = (a < b) ? b : a;
}
double Larger(double a, double b) {
    double out = 0.0;
    Larger(a, b, out);
    return out;
}

bool IsNumericValue(std::string_view text) {
    return IsNumeric(text);
}

bool IsNumericValue(const Value& value) {
    if (value.isString()) return IsNumeric(value.str());
    return value.isNumber();
}

std::string StripQuotes(std::string_view text) {
    if (text.empty() || text.front() != '"') return std::string(text);
    if (text.size() < 2) return {};
    return std::string(text.substr(1, text.size() - 2));
}

int32_t FindGasLimits(const IComponentList& components, std::string_view name, double& low,
                      double& high) {
    double lo = low, hi = high;
    if (!components.FindGasLimits(std::string(name), lo, hi)) return 1;
    low = lo;
    high = hi;
    return 0;
}

int32_t FindLiquidLimits(const IComponentList& components, std::string_view name, double& low,
                         double& high) {
    double lo = low, hi = high;
    if (!components.FindLiquidLimits(std::string(name), lo, hi)) return 1;
    low = lo;
    high = hi;
    return 0;
}

}  // namespace qdf
