#pragma once
// What the flow check starts from outside the wizard: a saved configuration brought to the state
// Apply would write it in, a DP given with its unit, and a device's parameter values from the
// reference frame's device description.

#include <map>
#include <optional>
#include <string>

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::flowcheck {

// Loads FILE.qmv into `store` (fresh defaults first) and runs the calculation and the fits, so
// the Xmtr_ set is the one Apply would write. A custom fluid keeps the tables the file carries:
// there is no library to recompute them from. Throws FlowCheckError when the file cannot be
// loaded or the run fails.
void LoadConfigurationForCheck(clsExGlobalVars& store, const std::string& path);

// A DP with its unit ("Pa", "kPa", "MPa", "bar", "mbar", "psi", "inH2O", "mmH2O") in Pa;
// nullopt for another unit.
std::optional<double> DpToPa(double value, const std::string& unit);

struct DeviceData {
    std::string bus;                       // "HART" or "FFH1"
    std::map<std::string, double> values;  // numeric parameters by name
};

// A device description of data/devices/*.json (or a frame project's device). Throws
// FlowCheckError when it cannot be read.
DeviceData ReadDeviceData(const std::string& path);

// The DP upper range value a device holds, in Pa; nullopt when it holds none the check can use.
std::optional<double> DpUpperRangeOfDevice(const DeviceData& device);

}  // namespace qdf::flowcheck
