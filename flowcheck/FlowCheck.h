#pragma once
// The flow check: the transmitter's own equation with the parameters it is about to get (or
// holds), against the full reference calculation, over the operating envelope. DP runs from 1 %
// to 100 % of the DP upper range value, SP and ET over the range as entered (converted here
// independently of the stored standard values). The error at each point is split into its
// sources by putting one device quantity at a time into the reference point.

#include <array>
#include <cstdint>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "DeviceEquation.h"

namespace qdf {
class clsExGlobalVars;
}

namespace qdf::flowcheck {

enum class Source { Density, Viscosity, Discharge, Expansion, Thermal };
inline constexpr std::size_t kSourceCount = 5;
// "density fit", "viscosity fit", "discharge terms", "expansion polynomial", "thermal correction"
const char* SourceName(Source s);

enum class Verdict { Pass, Warn, Fail };
const char* VerdictName(Verdict v);  // "pass", "warn", "FAIL"

struct ApplicabilityItem {
    std::string item;
    Verdict verdict = Verdict::Pass;
    std::string limit;
    std::string value;
};

struct FlowCheckOptions {
    double dpMaxPa = 0.0;  // DP upper range value
    int dpPoints = 10;
    int spPoints = 10;
    int etPoints = 10;
    double thresholdPercent = 0.1;
};

struct CheckPoint {
    double dpPa = 0.0, spPa = 0.0, etK = 0.0;
    double reference = 0.0;  // kg/s
    double device = 0.0;
    double error = 0.0;  // device / reference - 1
    std::array<double, kSourceCount> parts{};
    double reynolds = 0.0;
    double ratio = 0.0;  // dp / p1
    int32_t status = 0;  // library status of the reference properties (0, 5 or a failure)
    bool ok = false;     // both flows computed
};

struct FlowCheckResult {
    std::string deviceName, fluidName;
    std::vector<double> dpAxis, spAxis, etAxis;  // Pa, Pa, K
    bool saturated = false;                      // ET follows SP (saturated steam)
    // ET outermost, then SP, DP innermost: points[(iEt * nSp + iSp) * nDp + iDp].
    std::vector<CheckPoint> points;
    std::size_t worst = 0;  // index of the largest |error|
    double worstError = 0.0;
    std::array<double, kSourceCount> worstBySource{};  // largest |part| over the grid
    Source mainSource = Source::Density;               // the largest part at the worst point
    double thresholdPercent = 0.1;
    bool within = true;
    std::size_t failedPoints = 0;
    std::vector<ApplicabilityItem> applicability;

    const CheckPoint& At(std::size_t iEt, std::size_t iSp, std::size_t iDp) const {
        return points[(iEt * spAxis.size() + iSp) * dpAxis.size() + iDp];
    }
};

// Bad input: a configuration that is not an Auto Compensation one, no range, no DP range.
struct FlowCheckError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// `params` is the set the device gets or holds (ParametersFromStore or ParametersFromDevice);
// the store supplies device, fluid, method, composition and range.
FlowCheckResult RunFlowCheck(const clsExGlobalVars& store, const DeviceParameters& params,
                             const FlowCheckOptions& options);

// The applicability list of a computed grid (RunFlowCheck fills it).
std::vector<ApplicabilityItem> CheckApplicability(const clsExGlobalVars& store,
                                                  const DeviceParameters& params,
                                                  const FlowCheckResult& grid);

// The summary as the command prints it, lines ending in "\n".
std::string SummaryText(const FlowCheckResult& r);
// Every grid point, a header line first.
void WriteCheckCsv(std::ostream& out, const FlowCheckResult& r);

// Display helpers shared by the command, the view and the PDF.
std::string PercentText(double fraction);    // "+0.0123 %"
std::string PointText(const CheckPoint& p);  // "DP 25 kPa, SP 1000 kPa abs, ET 300 K"

}  // namespace qdf::flowcheck
