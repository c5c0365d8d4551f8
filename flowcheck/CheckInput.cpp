#include "CheckInput.h"

#include <cmath>
#include <fstream>

#include <nlohmann/json.hpp>

#include "ComponentTables.h"
#include "DeviceEquation.h"
#include "Fits.h"
#include "FlowCheck.h"
#include "ModBinary.h"
#include "ModDefaults.h"
#include "ModUnit.h"
#include "MvConfig.h"
#include "PropertyError.h"
#include "clsExGlobalVars.h"

namespace qdf::flowcheck {

namespace {

// A file keeps a custom fluid's tables as the physical property page shows them; the page puts
// them into internal units before it fits, and so does the check.
void EnteredTablesToStandard(clsExGlobalVars& s) {
    const bool gas = s.UI_FluidType == 2;
    const int nDens = gas ? s.Mgt_GasDensDiv : s.Mgt_LqdDensTempDiv;
    const int nVisc = gas ? s.Mgt_GasVisTempDiv : s.Mgt_LqdVisTempDiv;
    const double atm = s.UI_AtmPressStandard == kNotEntered ? 101325.0 : s.UI_AtmPressStandard;
    for (int k = 0; k < nDens; ++k) {
        s.UI_DensTempStandard[k] = TemperatureCodeToStandard(s.UI_DensTemp[k], s.UI_RangeTUnit);
        if (gas)
            s.UI_DensAbsPressStandard[k] =
                PressureCodeToStandard(s.UI_DensAbsPress[k], s.UI_RangePUnit, atm);
        s.UI_DensStandard[k] = s.UI_DensUnit == 94 ? LbFt3ToKgM3(s.UI_Dens[k]) : s.UI_Dens[k];
    }
    for (int k = 0; k < nVisc; ++k) {
        s.UI_ViscTempStandard[k] = TemperatureCodeToStandard(s.UI_ViscTemp[k], s.UI_RangeTUnit);
        s.UI_ViscStandard[k] = s.UI_ViscUnit == 1 ? LbFtSToPaS(s.UI_Visc[k]) : s.UI_Visc[k];
    }
}

}  // namespace

void LoadConfigurationForCheck(clsExGlobalVars& store, const std::string& path) {
    static const bool catalogue = [] {
        CompoundTables().Build();
        return true;
    }();
    (void)catalogue;
    InitializeDefaults(store);
    if (OpenBinaryFile(store, path) != 0)
        throw FlowCheckError(path + " cannot be loaded as a configuration");
    // The run's own failures are what the wizard would show; the check only needs the result.
    const QuietPropertyReports quiet;
    const bool custom = store.UI_FluidCat == 3 || store.UI_FluidCat == 7;
    if (custom) {
        EnteredTablesToStandard(store);
        // The stages that need no library; the exponent is the entered one.
        const int32_t expansion =
            store.UI_FluidType == 2 ? CalcGasExpansionGrid(store) : SetLiquidExpansionTerms(store);
        if (CalcDischargeCoefficient(store) != 0 || expansion != 0)
            throw FlowCheckError("the discharge and expansion terms of " + path + " fail");
    } else {
        if (RunCalculation(store) != 0)
            throw FlowCheckError("the calculation of " + path +
                                 " fails: " + store.Gbl_ErrorMessage);
        // As the liquid range pages do after the run: water's expansion table is computed but
        // the device gets the liquid's unit factor.
        if (store.UI_FluidType != 2) SetLiquidExpansionTerms(store);
    }
    if (RunFits(store) != 0)
        throw FlowCheckError("the fits of " + path + " fail: " + store.Gbl_ErrorMessage);
}

std::optional<double> DpToPa(double value, const std::string& unit) {
    static const std::map<std::string, double> kFactors{
        {"Pa", 1.0},
        {"kPa", 1000.0},
        {"MPa", 1e6},
        {"bar", 1e5},
        {"mbar", 100.0},
        {"hPa", 100.0},
        {"psi", 6894.757293168},
        {"inH2O", 249.08891},
        {"mmH2O", 9.80665},
    };
    const auto it = kFactors.find(unit);
    if (it == kFactors.end() || !std::isfinite(value)) return std::nullopt;
    return value * it->second;
}

DeviceData ReadDeviceData(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw FlowCheckError(path + " cannot be opened");
    nlohmann::json j;
    try {
        j = nlohmann::json::parse(in);
    } catch (const std::exception& e) {
        throw FlowCheckError(path + " is not a device description: " + e.what());
    }
    if (!j.is_object() || !j.contains("parameters") || !j["parameters"].is_array())
        throw FlowCheckError(path + " has no device parameters");
    DeviceData d;
    d.bus = j.value("bus", std::string("HART"));
    for (const auto& p : j["parameters"]) {
        if (!p.is_object() || !p.contains("name") || !p.contains("value")) continue;
        const auto& v = p["value"];
        if (v.is_number()) d.values[p["name"].get<std::string>()] = v.get<double>();
    }
    return d;
}

std::optional<double> DpUpperRangeOfDevice(const DeviceData& device) {
    if (device.bus != "HART") return std::nullopt;
    const auto urv = device.values.find("pressure_upper_range_value");
    const auto unit = device.values.find("pressure_units");
    if (urv == device.values.end() || unit == device.values.end()) return std::nullopt;
    const double pa = PressureUnitToPa(urv->second, static_cast<int32_t>(unit->second));
    if (!(pa > 0.0)) return std::nullopt;
    return pa;
}

}  // namespace qdf::flowcheck
