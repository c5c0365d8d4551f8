#include "FlowCheck.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "PhysicalProp.h"
#include "ReferenceFlow.h"
#include "SND.h"
#include "clsExGlobalVars.h"

namespace qdf::flowcheck {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

bool Entered(double v) {
    return v != kNotEntered && std::isfinite(v);
}

std::vector<double> Axis(double a, double b, int n) {
    const double lo = std::min(a, b), hi = std::max(a, b);
    if (n < 2 || lo == hi) return {lo};
    std::vector<double> axis(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) axis[static_cast<std::size_t>(i)] = lo + (hi - lo) * i / (n - 1);
    return axis;
}

// The range page's limits in K and Pa absolute, converted here from what was entered rather
// than taken from the stored standard values, so a slip in either shows as a difference.
double EnteredTemperatureK(double v, int32_t unit) {
    switch (unit) {
        case 32:
            return v + 273.15;
        case 33:
            return (v - 32.0) * 5.0 / 9.0 + 273.15;
        case 35:
            return v;
        default:
            throw FlowCheckError("the range's temperature unit " + std::to_string(unit) +
                                 " is not known");
    }
}

double EnteredPressurePa(double v, int32_t unit, double atm) {
    static constexpr double kFactor[] = {1000.0, 1e5, 6894.757293168};
    if (unit < 0 || unit > 5)
        throw FlowCheckError("the range's pressure unit " + std::to_string(unit) + " is not known");
    return v * kFactor[unit % 3] + (unit >= 3 ? atm : 0.0);
}

std::string Number(double v, int digits = 4) {
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.*g", digits, v);
    return buf;
}

}  // namespace

const char* SourceName(Source s) {
    static constexpr const char* kNames[] = {"density fit", "viscosity fit", "discharge terms",
                                             "expansion polynomial", "thermal correction"};
    return kNames[static_cast<std::size_t>(s)];
}

const char* VerdictName(Verdict v) {
    return v == Verdict::Pass ? "pass" : v == Verdict::Warn ? "warn" : "FAIL";
}

std::string PercentText(double fraction) {
    char buf[48];
    std::snprintf(buf, sizeof buf, "%+.4f %%", fraction * 100.0);
    return buf;
}

std::string PointText(const CheckPoint& p) {
    return "DP " + Number(p.dpPa / 1000.0) + " kPa, SP " + Number(p.spPa / 1000.0) +
           " kPa abs, ET " + Number(p.etK, 5) + " K";
}

FlowCheckResult RunFlowCheck(const clsExGlobalVars& s, const DeviceParameters& params,
                             const FlowCheckOptions& options) {
    if (s.UI_PEPrimaryDeviceCode < 1 || s.UI_PEPrimaryDeviceCode > 20)
        throw FlowCheckError("the configuration has no primary device (Auto Compensation only)");
    if (!(options.dpMaxPa > 0.0) || !std::isfinite(options.dpMaxPa))
        throw FlowCheckError("no DP upper range value: give one");
    if (!Entered(s.UI_RangeT1) || !Entered(s.UI_RangeT2))
        if (s.UI_FluidName != kSteamSaturated)
            throw FlowCheckError("the operating range has no temperature limits");

    FlowCheckResult r;
    r.deviceName = s.UI_PEName;
    r.fluidName = s.UI_FluidName;
    r.thresholdPercent = options.thresholdPercent;
    r.saturated = s.UI_FluidName == kSteamSaturated;
    const double atm = Entered(s.UI_AtmPressStandard) ? s.UI_AtmPressStandard : 101325.0;

    r.dpAxis.resize(static_cast<std::size_t>(std::max(options.dpPoints, 1)));
    for (std::size_t i = 0; i < r.dpAxis.size(); ++i)
        r.dpAxis[i] = options.dpMaxPa * (r.dpAxis.size() < 2
                                             ? 1.0
                                             : 0.01 + 0.99 * static_cast<double>(i) /
                                                          static_cast<double>(r.dpAxis.size() - 1));
    if (Entered(s.UI_RangeP1) && Entered(s.UI_RangeP2))
        r.spAxis = Axis(EnteredPressurePa(s.UI_RangeP1, s.UI_RangePUnit, atm),
                        EnteredPressurePa(s.UI_RangeP2, s.UI_RangePUnit, atm), options.spPoints);
    else if (s.UI_FluidType != 2)
        r.spAxis = {atm};  // a liquid without a pressure range: its density ignores pressure
    else
        throw FlowCheckError("the operating range has no pressure limits");
    if (r.saturated) {
        double t = 0.0;
        SND::IapwsTs(r.spAxis.front(), t);
        r.etAxis = {t};
    } else {
        r.etAxis = Axis(EnteredTemperatureK(s.UI_RangeT1, s.UI_RangeTUnit),
                        EnteredTemperatureK(s.UI_RangeT2, s.UI_RangeTUnit), options.etPoints);
    }

    const DeviceEquation dev(params);
    ReferenceModel ref(s);
    const std::size_t nDp = r.dpAxis.size(), nSp = r.spAxis.size(), nEt = r.etAxis.size();
    r.points.resize(nDp * nSp * nEt);
    std::string firstFailure;
    for (std::size_t ie = 0; ie < nEt; ++ie) {
        for (std::size_t is = 0; is < nSp; ++is) {
            const double sp = r.spAxis[is];
            double t = r.etAxis[ie];
            if (r.saturated) SND::IapwsTs(sp, t);
            const ReferenceProperties props = ref.Properties(t, sp);
            if (!props.ok && firstFailure.empty())
                firstFailure = props.what + " at " + Number(sp / 1000.0) + " kPa abs, " +
                               Number(t, 5) + " K (status " + std::to_string(props.status) + ")";
            FlowInputs refIn, devIn;
            refIn.density = props.ok ? props.density : kNaN;
            refIn.viscosity = props.viscosity;
            refIn.boreM = ref.Bore(t);
            refIn.pipeM = ref.Pipe(t);
            refIn.discharge = ref.Discharge(t);
            devIn.density = dev.Density(t, sp);
            devIn.viscosity = dev.Viscosity(t);
            devIn.boreM = dev.Bore(t);
            devIn.pipeM = dev.Pipe(t);
            devIn.discharge = dev.Discharge();
            for (std::size_t id = 0; id < nDp; ++id) {
                CheckPoint& p = r.points[(ie * nSp + is) * nDp + id];
                p.dpPa = r.dpAxis[id];
                p.spPa = sp;
                p.etK = t;
                p.status = props.status;
                p.ratio = p.dpPa / sp;
                refIn.dpPa = devIn.dpPa = p.dpPa;
                refIn.expansion = ref.Expansion(p.ratio, props.kappa, t);
                devIn.expansion = dev.Expansion(p.ratio);
                const FlowSolution q = SolveMassFlow(refIn);
                const FlowSolution d = SolveMassFlow(devIn);
                p.reference = q.massFlow;
                p.device = d.massFlow;
                p.reynolds = q.reynolds;
                p.error = d.massFlow / q.massFlow - 1.0;
                p.ok = std::isfinite(p.error);
                if (!p.ok) {
                    ++r.failedPoints;
                    continue;
                }
                for (std::size_t k = 0; k < kSourceCount; ++k) {
                    FlowInputs mixed = refIn;
                    switch (static_cast<Source>(k)) {
                        case Source::Density:
                            mixed.density = devIn.density;
                            break;
                        case Source::Viscosity:
                            mixed.viscosity = devIn.viscosity;
                            break;
                        case Source::Discharge:
                            mixed.discharge = devIn.discharge;
                            break;
                        case Source::Expansion:
                            mixed.expansion = devIn.expansion;
                            break;
                        case Source::Thermal:
                            mixed.boreM = devIn.boreM;
                            mixed.pipeM = devIn.pipeM;
                            break;
                    }
                    p.parts[k] = SolveMassFlow(mixed).massFlow / q.massFlow - 1.0;
                }
            }
        }
    }
    if (r.failedPoints == r.points.size())
        throw FlowCheckError("no point of the envelope could be computed" +
                             (firstFailure.empty()
                                  ? std::string(": the device equation gives no flow")
                                  : ": " + firstFailure));

    bool first = true;
    for (std::size_t i = 0; i < r.points.size(); ++i) {
        const CheckPoint& p = r.points[i];
        if (!p.ok) continue;
        if (first || std::fabs(p.error) > std::fabs(r.worstError)) {
            r.worst = i;
            r.worstError = p.error;
            first = false;
        }
        for (std::size_t k = 0; k < kSourceCount; ++k)
            r.worstBySource[k] = std::max(r.worstBySource[k], std::fabs(p.parts[k]));
    }
    const CheckPoint& w = r.points[r.worst];
    std::size_t main = 0;
    for (std::size_t k = 1; k < kSourceCount; ++k)
        if (std::fabs(w.parts[k]) > std::fabs(w.parts[main])) main = k;
    r.mainSource = static_cast<Source>(main);
    r.within = std::fabs(r.worstError) * 100.0 <= options.thresholdPercent;
    r.applicability = CheckApplicability(s, params, r);
    return r;
}

std::string SummaryText(const FlowCheckResult& r) {
    std::string out;
    const auto line = [&](const std::string& s) { out += s + "\n"; };
    const auto range = [](const std::vector<double>& a, double scale, const char* unit) {
        return Number(a.front() / scale) + " to " + Number(a.back() / scale) + " " + unit + " (" +
               std::to_string(a.size()) + " points)";
    };
    line("Flow check of " + r.deviceName + ", " + r.fluidName);
    line("Envelope: DP " + range(r.dpAxis, 1000.0, "kPa") + ", SP " +
         range(r.spAxis, 1000.0, "kPa abs") + ", ET " +
         (r.saturated ? std::string("at saturation") : range(r.etAxis, 1.0, "K")));
    const CheckPoint& w = r.points[r.worst];
    line("Worst error: " + PercentText(r.worstError) + " at " + PointText(w));
    line("Main source: " + std::string(SourceName(r.mainSource)) + " (" +
         PercentText(w.parts[static_cast<std::size_t>(r.mainSource)]) + " at that point)");
    line("Largest error by source over the envelope:");
    for (std::size_t k = 0; k < kSourceCount; ++k) {
        char buf[96];
        std::snprintf(buf, sizeof buf, "  %-22s %.4f %%", SourceName(static_cast<Source>(k)),
                      r.worstBySource[k] * 100.0);
        line(buf);
    }
    if (r.failedPoints)
        line("Points not computed: " + std::to_string(r.failedPoints) + " of " +
             std::to_string(r.points.size()));
    line("Verdict: " + std::string(r.within ? "within" : "ABOVE") + " the threshold of " +
         Number(r.thresholdPercent) + " % of flow");
    line("Applicability:");
    for (const ApplicabilityItem& a : r.applicability) {
        char buf[256];
        std::snprintf(buf, sizeof buf, "  %-4s  %-42s limit %-30s value %s", VerdictName(a.verdict),
                      a.item.c_str(), a.limit.c_str(), a.value.c_str());
        line(buf);
    }
    return out;
}

void WriteCheckCsv(std::ostream& out, const FlowCheckResult& r) {
    out << "et_K,sp_Pa_abs,dp_Pa,reference_kg_s,device_kg_s,error_percent";
    for (std::size_t k = 0; k < kSourceCount; ++k) {
        std::string name = SourceName(static_cast<Source>(k));
        std::replace(name.begin(), name.end(), ' ', '_');
        out << "," << name << "_percent";
    }
    out << ",reynolds,dp_p1,status,computed\n";
    char buf[64];
    const auto num = [&](double v) {
        std::snprintf(buf, sizeof buf, "%.17g", v);
        return std::string(buf);
    };
    for (const CheckPoint& p : r.points) {
        out << num(p.etK) << "," << num(p.spPa) << "," << num(p.dpPa) << "," << num(p.reference)
            << "," << num(p.device) << "," << num(p.error * 100.0);
        for (double part : p.parts) out << "," << num(part * 100.0);
        out << "," << num(p.reynolds) << "," << num(p.ratio) << "," << p.status << ","
            << (p.ok ? 1 : 0) << "\n";
    }
}

}  // namespace qdf::flowcheck
