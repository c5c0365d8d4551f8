#include "ReferenceFlow.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "CodeTables.h"
#include "PhysicalProp.h"
#include "PropertyError.h"
#include "clsExGlobalVars.h"

namespace qdf::flowcheck {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// Linear interpolation on an ascending axis, extended beyond its ends.
double Interpolate(const double* x, const double* y, int n, double at) {
    if (n < 2) return n == 1 ? y[0] : kNaN;
    int i = 0;
    while (i < n - 2 && at > x[i + 1]) ++i;
    const double span = x[i + 1] - x[i];
    if (span == 0.0) return y[i];
    return y[i] + (y[i + 1] - y[i]) * (at - x[i]) / span;
}

}  // namespace

ReferenceModel::ReferenceModel(const clsExGlobalVars& s)
    : source_(s), scratch_(std::make_unique<clsExGlobalVars>()) {
    clsExGlobalVars& w = *scratch_;
    // What the property engine reads for a point.
    w.BusID = s.BusID;
    w.tag = s.tag;
    w.UI_FluidType = s.UI_FluidType;
    w.UI_FluidCat = s.UI_FluidCat;
    w.UI_FluidName = s.UI_FluidName;
    w.UI_FluidNameMethodCode = s.UI_FluidNameMethodCode;
    // DetailMoles has no const form; it is only read here.
    const auto from = const_cast<clsExGlobalVars&>(s).DetailMoles();
    const auto to = w.DetailMoles();
    for (std::size_t k = 0; k < from.size(); ++k) *to[k] = *from[k];
    for (int k = 0; k < 6; ++k) w.XAga[k] = s.XAga[k];
    w.UI_VgHvStandard = s.UI_VgHvStandard;
    w.UI_RgRelDens = s.UI_RgRelDens;
    w.UI_MolWeight = s.UI_MolWeight;
    w.UI_IsenExpValue = s.UI_IsenExpValue;
    w.Mgt_MtdGasVisCalc = s.Mgt_MtdGasVisCalc;
    w.Mgt_MtdIsenExpCalc = s.Mgt_MtdIsenExpCalc;
    w.Mgt_MtdAirGasDensityCalculation = s.Mgt_MtdAirGasDensityCalculation;

    code_ = s.UI_PEPrimaryDeviceCode;
    liquid_ = s.UI_FluidType != 2;
    custom_ = s.UI_FluidCat == 3 || s.UI_FluidCat == 7;
    fixedC_ = s.UI_PEDisCoeff;
    fixedEps_ = s.UI_PEGasExpFac;
    boreMm_ = s.UI_PEDiameterStandard;
    pipeMm_ = s.UI_PEPipeDiameterStandard;
    boreT_ = s.UI_PETempStandard;
    pipeT_ = s.UI_PEPipeTempStandard;
    alphaBore_ = MaterialExpansionRate(s.UI_PEMaterial);
    alphaPipe_ = MaterialExpansionRate(s.UI_PipeMaterial);
}

ReferenceModel::~ReferenceModel() = default;

ReferenceProperties ReferenceModel::Properties(double tempK, double pressPa) {
    ReferenceProperties r;
    if (custom_) {
        r.density = TableDensity(tempK, pressPa);
        r.viscosity = TableViscosity(tempK);
        r.kappa = source_.UI_IsenExpValue;
        r.ok = std::isfinite(r.density) && std::isfinite(r.viscosity);
        if (!r.ok) r.what = "entered table";
        return r;
    }
    clsExGlobalVars& w = *scratch_;
    const QuietPropertyReports quiet;
    const int32_t type = w.UI_FluidType, cat = w.UI_FluidCat;
    const std::string& name = w.UI_FluidName;
    // A call that fails stops here; a two-phase point is remembered and goes on.
    const auto call = [&](const char* what, auto&& fn) {
        w.Gbl_ErrorCode = kNotEntered;
        w.Gbl_ErrorSubCode = kNotEntered;
        const int32_t result = fn();
        if (result != 0) {
            r.ok = false;
            r.what = what;
            r.status = w.Gbl_ErrorSubCode == kNotEntered ? -1 : w.Gbl_ErrorSubCode;
            return false;
        }
        if (IsTwoPhaseWarning(w)) r.status = 5;
        return true;
    };
    if (!call("density", [&] { return GetDensity(w, type, cat, name, tempK, r.density, pressPa); }))
        return r;
    w.UI_Visc[0] = kNaN;
    if (!call("viscosity", [&] { return GetViscosity(w, type, cat, name, tempK, 0, pressPa); }))
        return r;
    r.viscosity = w.UI_Visc[0];
    if (!liquid_) {
        w.UI_IsenExpValue = source_.UI_IsenExpValue;
        if (!call("isentropic exponent",
                  [&] { return GetIsentropicExponent(w, type, cat, name, tempK, pressPa); }))
            return r;
        r.kappa = w.UI_IsenExpValue;
    }
    if (!std::isfinite(r.viscosity) || !(r.density > 0.0)) {
        r.ok = false;
        r.what = !(r.density > 0.0) ? "density" : "viscosity";
    }
    return r;
}

double ReferenceModel::TableDensity(double tempK, double pressPa) const {
    const clsExGlobalVars& s = source_;
    if (s.UI_FluidType != 2) {
        const int n = std::min(s.Mgt_LqdDensTempDiv, 257);
        return Interpolate(s.UI_DensTempStandard.data(), s.UI_DensStandard.data(), n, tempK);
    }
    // Flat grid, temperature outermost: interpolate in pressure on each temperature row, then
    // between the rows in 1 / T, as a gas's density goes.
    const int nt = s.Mgt_GasDensTempDiv, np = s.Mgt_GasDensPressDiv;
    if (nt < 1 || np < 1 || nt * np > 257) return kNaN;
    double temps[257], rows[257];
    for (int i = 0; i < nt; ++i) {
        temps[i] = -1.0 / s.UI_DensTempStandard[i * np];
        rows[i] = Interpolate(s.UI_DensAbsPressStandard.data() + i * np,
                              s.UI_DensStandard.data() + i * np, np, pressPa);
    }
    return Interpolate(temps, rows, nt, -1.0 / tempK);
}

double ReferenceModel::TableViscosity(double tempK) const {
    const clsExGlobalVars& s = source_;
    const int n = std::min(s.UI_FluidType == 2 ? s.Mgt_GasVisTempDiv : s.Mgt_LqdVisTempDiv, 257);
    return Interpolate(s.UI_ViscTempStandard.data(), s.UI_ViscStandard.data(), n, tempK);
}

double ReferenceModel::Bore(double tempK) const {
    return boreMm_ / 1000.0 * (1.0 + alphaBore_ * (tempK - boreT_));
}

double ReferenceModel::Pipe(double tempK) const {
    return pipeMm_ / 1000.0 * (1.0 + alphaPipe_ * (tempK - pipeT_));
}

DischargeLaw ReferenceModel::Discharge(double tempK) const {
    DischargeLaw law;
    law.code = code_;
    if (code_ == 1) {
        law.kind = DischargeLaw::Kind::Fixed;
        law.fixed = fixedC_;
        return law;
    }
    law.kind = DischargeLaw::Kind::Standard;
    law.beta = Bore(tempK) / Pipe(tempK);
    law.pipeMm = Pipe(tempK) * 1000.0;
    return law;
}

double ReferenceModel::Expansion(double x, double kappa, double tempK) const {
    if (liquid_) return 1.0;
    if (code_ == 1) return fixedEps_;
    return StandardExpansibility(code_, x, kappa, Bore(tempK) / Pipe(tempK));
}

FlowSolution ReferenceModel::Flow(double dpPa, double pressPa, double tempK) {
    const ReferenceProperties props = Properties(tempK, pressPa);
    FlowInputs in;
    in.dpPa = dpPa;
    in.density = props.ok ? props.density : kNaN;
    in.viscosity = props.viscosity;
    in.expansion = Expansion(dpPa / pressPa, props.kappa, tempK);
    in.boreM = Bore(tempK);
    in.pipeM = Pipe(tempK);
    in.discharge = Discharge(tempK);
    return SolveMassFlow(in);
}

}  // namespace qdf::flowcheck
