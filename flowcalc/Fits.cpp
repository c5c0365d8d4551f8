#include "Fits.h"

#include <algorithm>
#include <exception>
#include <span>
#include <vector>

#include "Numeric.h"
#include "PhysicalProp.h"
#include "PropertyError.h"
#include "SND.h"
#include "XmtrParams.h"

namespace qdf {

namespace {

using numeric::AscendingAxis;
using numeric::Checked;

constexpr int32_t kGasDensityTerms = 12;
constexpr int32_t kCubicTerms = 4;
constexpr int32_t kExpansionTerms = 3;

// A basis table beyond this many rows comes only from corrupt division counts; refuse it
// before it is allocated.
constexpr std::int64_t kMaxRows = 1 << 16;

int32_t CheckedRows(std::int64_t rows) {
    if (rows < 1 || rows > kMaxRows) throw numeric::NumericFailure();
    return static_cast<int32_t>(rows);
}

// Where a fit's results go in the store.
struct FitOutputs {
    std::span<double> y;
    std::span<double> yCal;
    double& sigma;
};

// Solves over XLsqr as filled by the caller. The solver works on copies so that a failure
// leaves Y, c, Ycal and sigma exactly as they were.
int32_t Solve(clsExGlobalVars& store, const FitOutputs& out, int32_t nData, int32_t nTerm) {
    std::vector<double> y(out.y.begin(), out.y.end());
    std::vector<double> yCal(out.yCal.begin(), out.yCal.end());
    std::vector<double> c = store.c.copy();
    double sigma = out.sigma;
    const int32_t status =
        SND::RunLeastSquares(store, y, nData, 0, nTerm, c, yCal, sigma, kFitTolerance);
    if (status != 0) {
        ReportPropertyError(store, status, kReportOther, 0.0, 0.0, 0.0);
        return 1;
    }
    for (int32_t i = 0; i < nTerm; ++i) Checked(c[static_cast<std::size_t>(i)]);
    for (int32_t i = 0; i < nData; ++i) Checked(yCal.at(static_cast<std::size_t>(i)));
    Checked(sigma);
    std::copy(y.begin(), y.end(), out.y.begin());
    std::copy(yCal.begin(), yCal.end(), out.yCal.begin());
    store.Setc(c);
    out.sigma = sigma;
    return 0;
}

template <std::size_t N>
void CopyCoefficients(const clsExGlobalVars& store, BoundedArray<double, N>& target,
                      int32_t count) {
    for (int32_t i = 0; i < count; ++i) target.at(i) = store.c.at(i);
}

// Fills XLsqr with rows of T^0 .. T^(nTerm-1).
void FillPowerRows(clsExGlobalVars& store, int32_t nRows, int32_t nTerm,
                   const auto& temperatureOfRow) {
    store.XLsqr.ReDim(nTerm - 1, CheckedRows(nRows) - 1);
    for (int32_t i = 0; i < nRows; ++i) {
        const double T = temperatureOfRow(i);
        for (int32_t j = 0; j < nTerm; ++j) store.XLsqr.at(j, i) = numeric::Pow(T, j);
    }
}

int32_t FitGasDensity(clsExGlobalVars& store, double t1, double t2, int32_t tDiv, double p1,
                      double p2, int32_t pDiv) {
    const numeric::Axis t = AscendingAxis(t1, t2, tDiv);
    // The device's gas form takes kPa absolute.
    const numeric::Axis p = AscendingAxis(p1 / 1000.0, p2 / 1000.0, pDiv);
    store.XLsqr.ReDim(kGasDensityTerms - 1,
                      CheckedRows(static_cast<std::int64_t>(tDiv) * pDiv) - 1);
    int32_t row = 0;
    for (int32_t i = 0; i < tDiv; ++i) {
        const double u = numeric::Div(1.0, t.start + i * t.step);
        for (int32_t j = 0; j < pDiv; ++j) {
            const double pk = p.start + j * p.step;
            double pm = 1.0;
            for (int32_t m = 0; m < 4; ++m) {
                store.XLsqr.at(3 * m, row) = pm;
                store.XLsqr.at(3 * m + 1, row) = Checked(pm * u);
                store.XLsqr.at(3 * m + 2, row) = Checked(pm * u * u);
                pm = Checked(pm * pk);
            }
            ++row;
        }
    }
    FitOutputs out{SND::AsSpan(store.UI_DensStandard), SND::AsSpan(store.calc_DensityYcal),
                   store.calc_DensitySigma};
    if (Solve(store, out, store.Mgt_GasDensDiv, kGasDensityTerms) != 0) return 1;
    CopyCoefficients(store, store.Xmtr_DensCoeff, kGasDensityTerms);
    return 0;
}

// Also taken for water, whose table was filled in flat grid order: the first rows of that table
// are fitted against this temperature list, as the devices configured so far were.
int32_t FitLiquidDensity(clsExGlobalVars& store, double t1, double t2, int32_t tDiv) {
    const numeric::Axis t = AscendingAxis(t1, t2, tDiv);
    const int32_t rows = store.Mgt_LqdDensTempDiv;
    FillPowerRows(store, rows, kCubicTerms, [&](int32_t i) { return t.start + i * t.step; });
    FitOutputs out{SND::AsSpan(store.UI_DensStandard), SND::AsSpan(store.calc_DensityYcal),
                   store.calc_DensitySigma};
    if (Solve(store, out, rows, kCubicTerms) != 0) return 1;
    // Elements 4 to 11 keep what a gas fit left there.
    CopyCoefficients(store, store.Xmtr_DensCoeff, kCubicTerms);
    return 0;
}

}  // namespace

int32_t FitDensity(clsExGlobalVars& store, int32_t fluidType, int32_t /*fluidCat*/,
                   const std::string& /*name*/, double t1, double t2, int32_t tDiv, double p1,
                   double p2, int32_t pDiv) {
    try {
        if (fluidType == 2) return FitGasDensity(store, t1, t2, tDiv, p1, p2, pDiv);
        return FitLiquidDensity(store, t1, t2, tDiv);
    } catch (const std::exception&) {
        return 1;
    }
}

int32_t FitViscosity(clsExGlobalVars& store, int32_t fluidType, int32_t /*fluidCat*/,
                     const std::string& name, double t1, double t2, int32_t tDiv) {
    try {
        int32_t rows = tDiv;
        if (fluidType == 2 && name == kSteamSaturated) {
            // The saturated table stands on the temperatures the grid stage stored.
            FillPowerRows(store, rows, kCubicTerms,
                          [&](int32_t i) { return store.UI_ViscTempStandard.at(i); });
        } else {
            if (fluidType != 2) rows = store.Mgt_LqdVisTempDiv;
            const numeric::Axis t = AscendingAxis(t1, t2, rows);
            FillPowerRows(store, rows, kCubicTerms,
                          [&](int32_t i) { return t.start + i * t.step; });
        }
        FitOutputs out{SND::AsSpan(store.UI_ViscStandard), SND::AsSpan(store.calc_ViscosityYcal),
                       store.calc_ViscositySigma};
        if (Solve(store, out, rows, kCubicTerms) != 0) return 1;
        CopyCoefficients(store, store.Xmtr_VisCoeff, kCubicTerms);
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

int32_t FitExpansionFactor(clsExGlobalVars& store, int32_t /*fluidType*/, int32_t deviceCode,
                           const std::string& /*name*/, double lowRatio, double highRatio,
                           int32_t divisions) {
    try {
        if (deviceCode == 1) {
            store.Xmtr_ExpFac[0] = store.UI_PEGasExpFac;
            store.Xmtr_ExpFac[1] = 0.0;
            store.Xmtr_ExpFac[2] = 0.0;
            return 0;
        }
        const double step =
            numeric::Div(std::fabs(highRatio - lowRatio), static_cast<double>(divisions) - 1.0);
        for (int32_t i = 0; i < store.Mgt_GasExpFacDiv; ++i)
            store.calc_DPP1Ratio.at(i) = lowRatio + i * step;
        FillPowerRows(store, divisions, kExpansionTerms,
                      [&](int32_t i) { return store.calc_DPP1Ratio.at(i); });
        FitOutputs out{SND::AsSpan(store.calc_GasExpFactor),
                       SND::AsSpan(store.calc_GasExpFactorYcal), store.calc_GasExpFactorSigma};
        if (Solve(store, out, divisions, kExpansionTerms) != 0) return 1;
        CopyCoefficients(store, store.Xmtr_ExpFac, kExpansionTerms);
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

int32_t RunFits(clsExGlobalVars& store) {
    const int32_t type = store.UI_FluidType;
    if (type == 2 && store.UI_PEPrimaryDeviceCode != 1) {
        if (FitExpansionFactor(store, type, store.UI_PEPrimaryDeviceCode, store.UI_FluidName,
                               store.calc_LowValDpP1Ratio, store.calc_UpValDpP1Ratio,
                               store.Mgt_GasExpFacDiv) != 0)
            return 1;
    }
    const int32_t tDiv = type == 2 ? store.Mgt_GasDensTempDiv : store.Mgt_LqdDensTempDiv;
    if (FitDensity(store, type, store.UI_FluidCat, store.UI_FluidName, store.UI_RangeT1Standard,
                   store.UI_RangeT2Standard, tDiv, store.UI_RangeP1Standard,
                   store.UI_RangeP2Standard, store.Mgt_GasDensPressDiv) != 0)
        return 1;
    if (FitViscosity(store, type, store.UI_FluidCat, store.UI_FluidName, store.UI_RangeT1Standard,
                     store.UI_RangeT2Standard, store.Mgt_GasVisTempDiv) != 0)
        return 1;
    if (AssembleTransmitterParameters(store) != 0) return 1;
    return 0;
}

}  // namespace qdf
