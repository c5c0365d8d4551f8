#include "DeviceEquation.h"

#include <cmath>
#include <cstdio>
#include <limits>

#include "clsExGlobalVars.h"

namespace qdf::flowcheck {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kLbFt3 = 0.45359237 / (0.3048 * 0.3048 * 0.3048);

// Fieldbus unit codes as the HART codes the equation works in; any other code is kept, so an
// unknown one still shows as unknown.
int32_t FromFieldbus(int32_t code) {
    switch (code) {
        case 1097:
            return 92;
        case 1100:
            return 91;
        case 1105:
            return 97;
        case 1107:
            return 94;
        case 1010:
            return 45;
        case 1012:
            return 48;
        case 1013:
            return 49;
        case 1018:
            return 44;
        case 1019:
            return 47;
        case 1000:
            return 35;
        case 1001:
            return 32;
        case 1002:
            return 33;
        case 1003:
            return 34;
        default:
            return code;
    }
}

std::string Hart2(const char* stem, int i) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%s%02d", stem, i);
    return buf;
}

}  // namespace

double DensityUnitToKgM3(int32_t code) {
    switch (code) {
        case 91:
            return 1000.0;  // g/cm3
        case 92:
            return 1.0;
        case 94:
            return kLbFt3;
        case 97:
            return 1.0;  // g/l
        default:
            return 0.0;
    }
}

double LengthUnitToM(int32_t code) {
    switch (code) {
        case 44:
            return 0.3048;
        case 45:
            return 1.0;
        case 47:
            return 0.0254;
        case 48:
            return 0.01;
        case 49:
            return 0.001;
        default:
            return 0.0;
    }
}

double TemperatureUnitToK(double value, int32_t code) {
    switch (code) {
        case 32:
            return value + 273.15;
        case 33:
            return (value - 32.0) * 5.0 / 9.0 + 273.15;
        case 34:
            return value * 5.0 / 9.0;
        case 35:
            return value;
        default:
            return kNaN;
    }
}

double PressureUnitToPa(double value, int32_t code) {
    switch (code) {
        case 1:
            return value * 248.84;  // inH2O at 68 degF
        case 2:
            return value * 3386.389;  // inHg
        case 3:
            return value * 2986.08;  // ftH2O at 68 degF
        case 4:
            return value * 9.79706;  // mmH2O at 68 degF
        case 5:
        case 13:
            return value * 133.322368;
        case 6:
        case 1141:
            return value * 6894.757293168;
        case 7:
        case 1137:
            return value * 1e5;
        case 8:
        case 1138:
            return value * 100.0;
        case 9:
            return value * 98.0665;
        case 10:
            return value * 98066.5;
        case 11:
        case 1130:
            return value;
        case 12:
        case 1133:
            return value * 1000.0;
        case 14:
            return value * 101325.0;
        case 237:
        case 1132:
            return value * 1e6;
        case 238:
            return value * 249.08891;  // inH2O at 4 degC
        case 239:
            return value * 9.80665;
        case 240:
            return value * 2989.0669;
        case 241:
            return value * 100.0;
        default:
            return kNaN;
    }
}

DeviceParameters ParametersFromStore(const clsExGlobalVars& s) {
    DeviceParameters p;
    p.pdCode = s.Xmtr_PDCode;
    p.fluidType = s.Xmtr_FluidTypeCode;
    p.densUnitCode = s.Xmtr_DensUnitCode;
    p.lenUnitCode = s.Xmtr_LenUnitCode;
    p.tempUnitCode = 35;
    for (int i = 0; i < 5; ++i) p.disCoeff[static_cast<std::size_t>(i)] = s.Xmtr_DisCoeff[i];
    for (int i = 0; i < 3; ++i) p.expFac[static_cast<std::size_t>(i)] = s.Xmtr_ExpFac[i];
    for (int i = 0; i < 12; ++i) p.densCoeff[static_cast<std::size_t>(i)] = s.Xmtr_DensCoeff[i];
    for (int i = 0; i < 4; ++i) p.visCoeff[static_cast<std::size_t>(i)] = s.Xmtr_VisCoeff[i];
    p.smalld = s.Xmtr_Smalld;
    p.bigD = s.Xmtr_BigD;
    p.alphaSmall = s.Xmtr_PriDevTherExpFac;
    p.alphaBig = s.Xmtr_PipeTherExpFac;
    p.tSmallD = s.UI_PETempStandard;
    p.tBigD = s.UI_PEPipeTempStandard;
    return p;
}

DeviceParameters ParametersFromDevice(const std::map<std::string, double>& values,
                                      const std::string& bus) {
    DeviceParameters p;
    const bool hart = bus == "HART";
    const auto get = [&](const std::string& name) {
        const std::string key = hart ? name : "FLOW_TRANSDUCER_BLOCK.0." + name;
        const auto it = values.find(key);
        if (it == values.end() || !std::isfinite(it->second)) {
            p.missing.push_back(key);
            return 0.0;
        }
        return it->second;
    };
    const auto code = [&](const std::string& name) {
        return FromFieldbus(static_cast<int32_t>(std::lround(get(name))));
    };
    if (hart) {
        p.pdCode = code("primary_device");
        p.fluidType = code("fluid_type");
        p.densUnitCode = code("density_unit");
        p.lenUnitCode = code("length_units");
        p.tempUnitCode = code("et_units");
        for (int i = 0; i < 5; ++i)
            p.disCoeff[static_cast<std::size_t>(i)] = get("discharge_coef_" + std::to_string(i));
        for (int i = 0; i < 3; ++i)
            p.expFac[static_cast<std::size_t>(i)] = get("expansion_fact_coef_" + std::to_string(i));
        for (int i = 0; i < 12; ++i)
            p.densCoeff[static_cast<std::size_t>(i)] = get(Hart2("density_coef_", i));
        for (int i = 0; i < 4; ++i)
            p.visCoeff[static_cast<std::size_t>(i)] = get("viscosity_coef_" + std::to_string(i));
        p.smalld = get("small_d_r");
        p.bigD = get("large_d_r");
        p.alphaSmall = get("factor_alpha_small_d");
        p.alphaBig = get("factor_alpha_large_d");
        p.tSmallD = get("t_small_d_r");
        p.tBigD = get("t_large_d_r");
    } else {
        p.pdCode = code("PRIMARY_DEVICE_CODE");
        p.fluidType = code("FLUID_TYPE_CODE");
        p.densUnitCode = code("DENSITY_UNIT_CODE");
        p.lenUnitCode = code("LENGTH_UNIT_CODE");
        p.tempUnitCode = code("EXT_TEMPERATURE_UNIT");
        const auto entry = [&](int block, int i) {
            return get("FLOW_CONFIG" + std::to_string(block) + ".ENTRY" + std::to_string(i + 1));
        };
        for (int i = 0; i < 5; ++i) p.disCoeff[static_cast<std::size_t>(i)] = entry(1, i);
        for (int i = 0; i < 3; ++i) p.expFac[static_cast<std::size_t>(i)] = entry(2, i);
        for (int i = 0; i < 12; ++i) p.densCoeff[static_cast<std::size_t>(i)] = entry(3, i);
        for (int i = 0; i < 4; ++i) p.visCoeff[static_cast<std::size_t>(i)] = entry(4, i);
        p.smalld = get("PRIMARY_DEVICE_DIAMETER");
        p.bigD = get("PIPE_DIAMETER");
        p.alphaSmall = get("PRIMARY_DEVICE_EXPANSION_COEF");
        p.alphaBig = get("PIPE_EXPANSION_COEF");
        p.tSmallD = get("PRIMARY_DEVICE_REF_TEMPERATURE");
        p.tBigD = get("PIPE_REF_TEMPERATURE");
    }
    return p;
}

DeviceEquation::DeviceEquation(const DeviceParameters& p) : p_(p) {}

double DeviceEquation::Density(double tempK, double pressPa) const {
    const auto& a = p_.densCoeff;
    double rho = 0.0;
    if (p_.fluidType == 2) {
        const double p = pressPa / 1000.0, u = 1.0 / tempK;
        double pm = 1.0;
        for (std::size_t m = 0; m < 4; ++m, pm *= p)
            rho += pm * (a[3 * m] + a[3 * m + 1] * u + a[3 * m + 2] * u * u);
    } else {
        rho = a[0] + tempK * (a[1] + tempK * (a[2] + tempK * a[3]));
    }
    return rho * DensityUnitToKgM3(p_.densUnitCode);
}

double DeviceEquation::Viscosity(double tempK) const {
    const auto& c = p_.visCoeff;
    return c[0] + tempK * (c[1] + tempK * (c[2] + tempK * c[3]));
}

double DeviceEquation::Bore(double tempK) const {
    return p_.smalld * LengthUnitToM(p_.lenUnitCode) *
           (1.0 + p_.alphaSmall * (tempK - TemperatureUnitToK(p_.tSmallD, p_.tempUnitCode)));
}

double DeviceEquation::Pipe(double tempK) const {
    return p_.bigD * LengthUnitToM(p_.lenUnitCode) *
           (1.0 + p_.alphaBig * (tempK - TemperatureUnitToK(p_.tBigD, p_.tempUnitCode)));
}

double DeviceEquation::Expansion(double x) const {
    return p_.expFac[0] + x * (p_.expFac[1] + x * p_.expFac[2]);
}

DischargeLaw DeviceEquation::Discharge() const {
    DischargeLaw law;
    law.kind = DischargeLaw::Kind::DeviceTerms;
    law.code = p_.pdCode;
    law.terms = p_.disCoeff;
    return law;
}

FlowSolution DeviceEquation::Flow(double dpPa, double pressPa, double tempK) const {
    FlowInputs in;
    in.dpPa = dpPa;
    in.density = Density(tempK, pressPa);
    in.viscosity = Viscosity(tempK);
    in.expansion = Expansion(dpPa / pressPa);
    in.boreM = Bore(tempK);
    in.pipeM = Pipe(tempK);
    in.discharge = Discharge();
    return SolveMassFlow(in);
}

}  // namespace qdf::flowcheck
