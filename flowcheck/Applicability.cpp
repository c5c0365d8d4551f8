// Where the standards and libraries behind the check hold: geometry against the device table,
// the pipe Reynolds number against the device's standard and edition, dp/p1 against the
// expansibility equation, superheat, natural gas composition ranges, flagged grid points, and
// the parameter set itself (range conversion, read-back).

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>

#include "CodeTables.h"
#include "FlowCheck.h"
#include "PhysicalProp.h"
#include "SND.h"
#include "clsExGlobalVars.h"

namespace qdf::flowcheck {

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();

std::string Num(double v, int digits = 4) {
    char buf[48];
    std::snprintf(buf, sizeof buf, "%.*g", digits, v);
    return buf;
}

std::string Between(double lo, double hi, int digits = 4) {
    if (hi == kInf) return ">= " + Num(lo, digits);
    return Num(lo, digits) + " to " + Num(hi, digits);
}

ApplicabilityItem Range(const std::string& item, double lo, double hi, double value,
                        Verdict outside = Verdict::Fail, int digits = 4) {
    const bool in = value >= lo && value <= hi;
    return {item, in ? Verdict::Pass : outside, Between(lo, hi, digits), Num(value, digits)};
}

// The lowest and highest pipe Reynolds number for which the device's standard and edition
// state its discharge coefficient (D in mm).
void ReynoldsLimits(int32_t code, double b, double D, double& lo, double& hi) {
    hi = 1e8;
    switch (code) {
        case 2:
        case 4:
        case 9:
        case 11:  // corner and D-D/2 taps, 1991 and ASME 1989
            lo = b <= 0.45 ? 5000.0 : 10000.0;
            break;
        case 5:
        case 7:  // flange taps, 1991 and ASME 1989
            lo = std::max(5000.0, 1260.0 * b * b * D);
            break;
        case 3:
        case 10:  // 2003
            lo = b <= 0.56 ? 5000.0 : 16000.0 * b * b;
            break;
        case 6:
            lo = std::max(5000.0, 170.0 * b * b * D);
            break;
        case 8:
            lo = 4000.0;
            hi = kInf;
            break;
        case 12:
            lo = b < 0.44 ? 7e4 : 2e4;
            hi = 1e7;
            break;
        case 13:
        case 14:
            lo = 1e4;
            hi = 1e7;
            break;
        case 15:
            lo = 1.5e5;
            hi = 2e6;
            break;
        case 18:
        case 19:
            lo = 2e5;
            hi = 1e6;
            break;
        default:  // 16, 17, 20
            lo = 2e5;
            hi = 2e6;
            break;
    }
}

struct Component {
    const char* name;
    std::vector<int> y21;  // positions in the detail composition
    double hi;             // mole %, normal range of the detail method
    double lo = 0.0;
};

void NaturalGasItems(const clsExGlobalVars& s, std::vector<ApplicabilityItem>& out) {
    const std::string& m = s.UI_FluidName;
    if (m == kAga8Detail || m == kIsoMolar) {
        const auto moles = const_cast<clsExGlobalVars&>(s).DetailMoles();
        const auto pct = [&](int i) {
            const double v = *moles[static_cast<std::size_t>(i)];
            return v == kNotEntered ? 0.0 : v;
        };
        const Component limits[] = {
            {"methane", {0}, 100.0, 45.0},   {"nitrogen", {1}, 50.0},
            {"carbon dioxide", {2}, 30.0},   {"ethane", {3}, 10.0},
            {"propane", {4}, 3.5},           {"water", {5}, 0.05},
            {"hydrogen sulfide", {6}, 0.02}, {"hydrogen", {7}, 10.0},
            {"carbon monoxide", {8}, 3.0},   {"butanes", {10, 11}, 1.5},
            {"pentanes", {12, 13}, 0.5},     {"hexanes plus", {14, 15, 16, 17, 18}, 0.1},
            {"helium", {19}, 0.2},
        };
        std::string outside, values;
        for (const Component& c : limits) {
            double v = 0.0;
            for (int i : c.y21) v += pct(i);
            if (v < c.lo || v > c.hi) {
                outside += (outside.empty() ? "" : ", ") + std::string(c.name);
                values += (values.empty() ? "" : ", ") + std::string(c.name) + " " + Num(v) + " %";
            }
        }
        out.push_back({"Composition (normal range of the method)",
                       outside.empty() ? Verdict::Pass : Verdict::Warn,
                       "methane 45 to 100 %, nitrogen <= 50 %, ...",
                       outside.empty() ? "all components within" : values});
    } else if (m == kAga8Gross1 || m == kAga8Gross2 || m == kIsoPhysical) {
        const bool iso = m == kIsoPhysical;
        if (m != kAga8Gross2)
            out.push_back(Range("Heating value, MJ/m3", iso ? 30.0 : 18.7, 45.0, s.UI_VgHvStandard,
                                Verdict::Warn));
        out.push_back(Range("Relative density", iso ? 0.55 : 0.554, iso ? 0.8 : 0.87,
                            s.UI_RgRelDens, Verdict::Warn));
    }
}

}  // namespace

std::vector<ApplicabilityItem> CheckApplicability(const clsExGlobalVars& s,
                                                  const DeviceParameters& params,
                                                  const FlowCheckResult& grid) {
    std::vector<ApplicabilityItem> out;
    const int32_t code = s.UI_PEPrimaryDeviceCode;
    const double d = s.UI_PEDiameterStandard, D = s.UI_PEPipeDiameterStandard, b = d / D;

    // The parameter set itself.
    if (!params.missing.empty()) {
        std::string names;
        for (const std::string& n : params.missing) names += (names.empty() ? "" : ", ") + n;
        out.push_back({"Parameters in the device data", Verdict::Fail, "all present",
                       std::to_string(params.missing.size()) + " missing: " + names});
    }
    if (params.pdCode != code)
        out.push_back({"Primary device code", Verdict::Fail, std::to_string(code),
                       std::to_string(params.pdCode)});
    if (params.fluidType != s.UI_FluidType)
        out.push_back({"Fluid type code", Verdict::Fail, std::to_string(s.UI_FluidType),
                       std::to_string(params.fluidType)});
    const auto unit = [&](const char* item, bool known, int32_t v) {
        out.push_back({item, known ? Verdict::Pass : Verdict::Fail, "a code the device knows",
                       std::to_string(v)});
    };
    unit("Density unit code", DensityUnitToKgM3(params.densUnitCode) > 0.0, params.densUnitCode);
    unit("Length unit code", LengthUnitToM(params.lenUnitCode) > 0.0, params.lenUnitCode);
    unit("Temperature unit code", std::isfinite(TemperatureUnitToK(0.0, params.tempUnitCode)),
         params.tempUnitCode);

    // The range as entered against the stored standard values.
    const auto same = [](double a, double b2) { return std::fabs(a - b2) <= 1e-6 * std::fabs(b2); };
    if (!grid.saturated) {
        const double lo = std::min(s.UI_RangeT1Standard, s.UI_RangeT2Standard);
        const double hi = std::max(s.UI_RangeT1Standard, s.UI_RangeT2Standard);
        const bool ok = same(grid.etAxis.front(), lo) && same(grid.etAxis.back(), hi);
        out.push_back({"Temperature range, entered vs stored", ok ? Verdict::Pass : Verdict::Fail,
                       Between(lo, hi, 7) + " K stored",
                       Between(grid.etAxis.front(), grid.etAxis.back(), 7) + " K entered"});
    }
    if (grid.spAxis.size() > 1 || s.UI_FluidType == 2) {
        const double lo = std::min(s.UI_RangeP1Standard, s.UI_RangeP2Standard);
        const double hi = std::max(s.UI_RangeP1Standard, s.UI_RangeP2Standard);
        const bool ok = same(grid.spAxis.front(), lo) && same(grid.spAxis.back(), hi);
        out.push_back({"Pressure range, entered vs stored", ok ? Verdict::Pass : Verdict::Fail,
                       Between(lo / 1000.0, hi / 1000.0, 7) + " kPa stored",
                       Between(grid.spAxis.front() / 1000.0, grid.spAxis.back() / 1000.0, 7) +
                           " kPa entered"});
    }

    // Geometry against the device table.
    if (const PrimaryDeviceRow* row = PrimaryDeviceLimitsRow(code, s.UI_PESubCodeName);
        row && code != 1) {
        out.push_back(Range("Diameter ratio beta", row->betaMin, row->betaMax, b));
        out.push_back(Range("Bore d, mm", row->boreMin, kInf, d));
        out.push_back(Range("Pipe D, mm", row->pipeMin, row->pipeMax, D));
    } else {
        out.push_back({"Geometry", Verdict::Warn, "none (fixed mode)", Num(b)});
    }

    // Over the envelope.
    double reLo = kInf, reHi = 0.0, xHi = 0.0;
    std::size_t twoPhase = 0, failed = 0;
    for (const CheckPoint& p : grid.points) {
        if (p.ok) {
            reLo = std::min(reLo, p.reynolds);
            reHi = std::max(reHi, p.reynolds);
            xHi = std::max(xHi, p.ratio);
        }
        if (p.status == 5) ++twoPhase;
        if (!p.ok) ++failed;
    }
    if (code != 1) {
        double lo = 0.0, hi = 0.0;
        ReynoldsLimits(code, b, D, lo, hi);
        const bool below = reLo<lo, above = reHi> hi;
        out.push_back({"Pipe Reynolds number Re_D", below || above ? Verdict::Warn : Verdict::Pass,
                       Between(lo, hi, 3), Between(reLo, reHi, 3)});
    }
    if (s.UI_FluidType == 2 && code != 1) {
        const double limit = code == 8 ? 0.2 : 0.25;
        out.push_back({"dp/p1", xHi <= limit ? Verdict::Pass : Verdict::Fail,
                       "<= " + Num(limit) + " (expansibility equation)", "up to " + Num(xHi)});
    }
    if (s.UI_FluidCat == 5 && s.UI_FluidName == kSteamSuperheated) {
        double margin = kInf;
        for (const CheckPoint& p : grid.points) {
            double ts = 0.0;
            if (SND::IapwsTs(p.spPa, ts) == 0) margin = std::min(margin, p.etK - ts);
        }
        out.push_back({"Superheat (smallest over the envelope), K",
                       margin < 0.0   ? Verdict::Fail
                       : margin < 5.0 ? Verdict::Warn
                                      : Verdict::Pass,
                       ">= 5", Num(margin)});
    }
    if (s.UI_FluidCat == 4) NaturalGasItems(s, out);
    if (s.UI_FluidCat == 3 || s.UI_FluidCat == 7)
        out.push_back({"Reference properties", Verdict::Warn, "a property library",
                       "the entered tables, interpolated"});
    out.push_back({"Grid points flagged by the libraries",
                   failed     ? Verdict::Fail
                   : twoPhase ? Verdict::Warn
                              : Verdict::Pass,
                   "none",
                   std::to_string(failed) + " failed, " + std::to_string(twoPhase) +
                       " two-phase (status 5) of " + std::to_string(grid.points.size())});
    return out;
}

}  // namespace qdf::flowcheck
