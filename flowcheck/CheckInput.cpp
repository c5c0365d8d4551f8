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
    if (CalculateSavedConfiguration(store) != 0)
        throw FlowCheckError("the calculation of " + path + " fails: " + store.Gbl_ErrorMessage);
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
