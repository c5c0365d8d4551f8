#include "MvConfig.h"

#include <cmath>
#include <exception>
#include <string>

#include "FlowCoeff.h"
#include "ModUnit.h"
#include "Numeric.h"
#include "PhysicalProp.h"
#include "PropertyError.h"
#include "SND.h"

namespace qdf {

namespace {

using numeric::AscendingAxis;
using numeric::Axis;
using numeric::Checked;

// Display tables are converted over all their places, whatever the divisions.
constexpr int32_t kDensityTablePlaces = 257;

bool ReadFromFile(const clsExGlobalVars& store) {
    return store.Gbl_ReadFromFile != kFalse;
}

bool IsSaturatedSteam(const clsExGlobalVars& store) {
    return store.UI_FluidName == kSteamSaturated;
}

// Runs a stage body under the numeric failure path.
template <class Body>
int32_t Stage(Body body) {
    try {
        return body();
    } catch (const std::exception&) {
        return 1;
    }
}

// A temperature in K as the page shows it, by device temperature code; an unknown code leaves
// the display value alone.
void ToDisplayTemperature(double kelvin, int32_t unitCode, double& display) {
    switch (unitCode) {
        case kHartDegC:
            display = KToDegC(kelvin);
            break;
        case kHartDegF:
            display = KToDegF(kelvin);
            break;
        case kHartKelvin:
            display = kelvin;
            break;
        default:
            break;
    }
}

// Density at one point through the property engine; `density` carries over between calls, as
// a method that computes nothing returns the previous value.
int32_t DensityAt(clsExGlobalVars& store, double tempK, double pressPa, double& density) {
    return GetDensity(store, store.UI_FluidType, store.UI_FluidCat, store.UI_FluidName, tempK,
                      density, pressPa);
}

// Saturation temperature of a pressure limit into `target`. What the library returned is
// stored before its status is looked at, so a failure still leaves it there.
int32_t SaturationLimit(clsExGlobalVars& store, double pressPa, double& target) {
    double t = target;
    const int32_t status = SND::IapwsTs(pressPa, t);
    target = t;
    if (status == 0) return 0;
    ReportPropertyError(store, status, kReportOther, t, pressPa, t);
    return 1;
}

// One density point into the display and the internal table.
void StoreDensity(clsExGlobalVars& store, int32_t k, double density) {
    store.UI_Dens.at(k) = Checked(density);
    store.UI_DensStandard.at(k) = density;
}

// The reference density at the reference temperature and `pressPa`.
int32_t StoreReferenceDensity(clsExGlobalVars& store, double pressPa) {
    double density = 0.0;
    if (DensityAt(store, store.UI_TempRefStandard, pressPa, density) != 0) return 1;
    store.UI_RefDensValue = Checked(density);
    store.UI_RefDensValueStandard = density;
    return 0;
}

// An evenly spaced temperature list over the range, in the range's unit and in K. The display
// list is spaced for `displayPoints`, which a table may take from another count.
template <class Display, class Standard>
void FillRangeTemperatures(const clsExGlobalVars& store, int32_t points, int32_t displayPoints,
                           Display& display, Standard& standard) {
    const Axis t = AscendingAxis(store.UI_RangeT1, store.UI_RangeT2, displayPoints);
    const Axis ts = AscendingAxis(store.UI_RangeT1Standard, store.UI_RangeT2Standard, points);
    for (int32_t i = 0; i < points; ++i) {
        display.at(i) = t.start + i * t.step;
        standard.at(i) = ts.start + i * ts.step;
    }
}

void FillViscosityPressures(clsExGlobalVars& store, int32_t points) {
    const double mean = std::fabs(store.UI_RangeP1Standard + store.UI_RangeP2Standard) / 2.0;
    for (int32_t i = 0; i < points; ++i) store.UI_VisPress.at(i) = Checked(mean);
}

int32_t EvaluateViscosities(clsExGlobalVars& store, int32_t points) {
    for (int32_t i = 0; i < points; ++i) {
        if (GetViscosity(store, store.UI_FluidType, store.UI_FluidCat, store.UI_FluidName,
                         store.UI_ViscTempStandard.at(i), i, store.UI_VisPress.at(i)) != 0)
            return 1;
    }
    for (int32_t i = 0; i < points; ++i) store.UI_ViscStandard.at(i) = store.UI_Visc.at(i);
    return 0;
}

}  // namespace

int32_t CalcDischargeCoefficient(clsExGlobalVars& store) {
    return Stage([&] {
        return GetDischargeTerms(store, store.UI_PEPrimaryDeviceCode, store.UI_PEDiameterStandard,
                                 store.UI_PEPipeDiameterStandard);
    });
}

int32_t CalcIsentropicExponent(clsExGlobalVars& store) {
    return Stage([&] {
        const double T = Checked((store.UI_RangeT1Standard + store.UI_RangeT2Standard) / 2.0);
        const double P = Checked((store.UI_RangeP1Standard + store.UI_RangeP2Standard) / 2.0);
        return GetIsentropicExponent(store, store.UI_FluidType, store.UI_FluidCat,
                                     store.UI_FluidName, T, P);
    });
}

int32_t SetLiquidExpansionTerms(clsExGlobalVars& store) {
    return Stage([&] {
        store.Xmtr_ExpFac[0] = 1.0;
        for (int32_t i = 1; i <= 5; ++i) store.Xmtr_ExpFac[i] = 0.0;
        return 0;
    });
}

int32_t SetFixedExpansionTerms(clsExGlobalVars& store) {
    return Stage([&] {
        store.Xmtr_ExpFac[0] = store.UI_PEGasExpFac;
        store.Xmtr_ExpFac[1] = 0.0;
        store.Xmtr_ExpFac[2] = 0.0;
        return 0;
    });
}

int32_t CalcGasExpansionGrid(clsExGlobalVars& store) {
    return Stage([&] {
        const int32_t code = store.UI_PEPrimaryDeviceCode;
        if (code == 1) return SetFixedExpansionTerms(store);
        if (SetDpP1RatioRange(store, code) != 0) return 1;
        // Always from the low limit: the ratio range is the device's own, never entered.
        const double low = store.calc_LowValDpP1Ratio;
        const double step = numeric::Div(std::fabs(store.calc_UpValDpP1Ratio - low),
                                         static_cast<double>(store.Mgt_GasExpFacDiv) - 1.0);
        for (int32_t i = 0; i < store.Mgt_GasExpFacDiv; ++i)
            store.calc_DPP1Ratio.at(i) = low + i * step;
        for (int32_t i = 0; i < store.Mgt_GasExpFacDiv; ++i) {
            if (GetExpansionFactor(store, code, store.calc_DPP1Ratio.at(i), store.UI_IsenExpValue,
                                   store.UI_PEDiameterStandard, store.UI_PEPipeDiameterStandard,
                                   i) != 0)
                return 1;
        }
        return 0;
    });
}

int32_t CalcGasDensityGrid(clsExGlobalVars& store) {
    return Stage([&] {
        const int32_t tDiv = store.Mgt_GasDensTempDiv;
        const int32_t pDiv = store.Mgt_GasDensPressDiv;
        const bool saturated = IsSaturatedSteam(store);
        if (!ReadFromFile(store)) {
            const Axis t = AscendingAxis(store.UI_RangeT1, store.UI_RangeT2, tDiv);
            const Axis p = AscendingAxis(store.UI_RangeP1, store.UI_RangeP2, pDiv);
            int32_t k = 0;
            for (int32_t i = 0; i < tDiv; ++i) {
                for (int32_t j = 0; j < pDiv; ++j) {
                    store.UI_DensAbsPress.at(k) = p.start + j * p.step;
                    store.UI_DensTemp.at(k) = t.start + i * t.step;
                    ++k;
                }
            }
            const Axis ts = AscendingAxis(store.UI_RangeT1Standard, store.UI_RangeT2Standard, tDiv);
            const Axis ps = AscendingAxis(store.UI_RangeP1Standard, store.UI_RangeP2Standard, pDiv);
            // Saturated steam keeps a plain pressure list; its temperatures follow from it.
            if (saturated) {
                for (int32_t j = 0; j < pDiv; ++j)
                    store.UI_DensAbsPressStandard.at(j) = ps.start + j * ps.step;
            }
            k = 0;
            for (int32_t i = 0; i < tDiv; ++i) {
                for (int32_t j = 0; j < pDiv; ++j) {
                    if (!saturated) store.UI_DensAbsPressStandard.at(k) = ps.start + j * ps.step;
                    store.UI_DensTempStandard.at(k) = ts.start + i * ts.step;
                    ++k;
                }
            }
        }

        double density = 0.0;
        if (!saturated) {
            for (int32_t k = 0; k < store.Mgt_GasDensDiv; ++k) {
                if (DensityAt(store, store.UI_DensTempStandard.at(k),
                              store.UI_DensAbsPressStandard.at(k), density) != 0)
                    return 1;
                StoreDensity(store, k, density);
            }
            return 0;
        }

        if (SaturationLimit(store, store.UI_RangeP1Standard, store.UI_RangeT1Standard) != 0)
            return 1;
        if (SaturationLimit(store, store.UI_RangeP2Standard, store.UI_RangeT2Standard) != 0)
            return 1;
        // In the order entered: the list runs from the first limit's temperature to the second's.
        const double t1 = store.UI_RangeT1Standard;
        const double step =
            numeric::Div(store.UI_RangeT2Standard - t1, static_cast<double>(tDiv) - 1.0);
        for (int32_t i = 0; i < tDiv; ++i) store.UI_DensTempStandard.at(i) = t1 + i * step;
        for (int32_t i = 0; i < kDensityTablePlaces; ++i)
            ToDisplayTemperature(store.UI_DensTempStandard.at(i), store.UI_RangeTUnit,
                                 store.UI_DensTemp.at(i));
        int32_t k = 0;
        for (int32_t i = 0; i < tDiv; ++i) {
            for (int32_t j = 0; j < pDiv; ++j) {
                if (DensityAt(store, store.UI_DensTempStandard.at(i),
                              store.UI_DensAbsPressStandard.at(j), density) != 0)
                    return 1;
                StoreDensity(store, k++, density);
            }
        }
        return 0;
    });
}

int32_t CalcLiquidDensityGrid(clsExGlobalVars& store) {
    return Stage([&] {
        const int32_t n = store.Mgt_LqdDensTempDiv;
        if (!ReadFromFile(store))
            FillRangeTemperatures(store, n, n, store.UI_DensTemp, store.UI_DensTempStandard);
        // A liquid's density is taken on its saturation line: pressure plays no part.
        double density = 0.0;
        for (int32_t i = 0; i < n; ++i) {
            if (DensityAt(store, store.UI_DensTempStandard.at(i), 0.0, density) != 0) return 1;
            StoreDensity(store, i, density);
        }
        return 0;
    });
}

int32_t CalcGasReferenceDensity(clsExGlobalVars& store) {
    return Stage([&] {
        if (IsSaturatedSteam(store)) {
            double t = store.UI_TempRefStandard;
            const int32_t status = SND::IapwsTs(store.UI_PressRefStandard, t);
            store.UI_TempRefStandard = t;
            if (status != 0) return 1;
        }
        return StoreReferenceDensity(store, store.UI_PressRefStandard);
    });
}

int32_t CalcLiquidReferenceDensity(clsExGlobalVars& store) {
    return Stage([&] { return StoreReferenceDensity(store, 0.0); });
}

int32_t CalcGasViscosityGrid(clsExGlobalVars& store) {
    return Stage([&] {
        // A loaded viscosity table stands as it was loaded; nothing is evaluated again.
        if (ReadFromFile(store)) return 0;
        const int32_t n = store.Mgt_GasVisTempDiv;
        if (!IsSaturatedSteam(store)) {
            FillRangeTemperatures(store, n, n, store.UI_ViscTemp, store.UI_ViscTempStandard);
        } else {
            // Starts at the density grid's first saturation temperature, so the density stage
            // must have run; shown in the reference temperature unit.
            const double step =
                numeric::Div(std::fabs(store.UI_RangeT2Standard - store.UI_RangeT1Standard),
                             static_cast<double>(n) - 1.0);
            const double start = store.UI_DensTempStandard.at(0);
            for (int32_t i = 0; i < n; ++i) {
                store.UI_ViscTempStandard.at(i) = start + i * step;
                ToDisplayTemperature(store.UI_ViscTempStandard.at(i), store.UI_TempRefUnit,
                                     store.UI_ViscTemp.at(i));
            }
        }
        FillViscosityPressures(store, n);
        return EvaluateViscosities(store, n);
    });
}

int32_t CalcLiquidViscosityGrid(clsExGlobalVars& store) {
    return Stage([&] {
        const int32_t n = store.Mgt_LqdVisTempDiv;
        if (!ReadFromFile(store)) {
            // The display step is taken from the gas count, as the tables in use were made;
            // the standard table, which is fitted, uses the liquid count throughout.
            FillRangeTemperatures(store, n, store.Mgt_GasVisTempDiv, store.UI_ViscTemp,
                                  store.UI_ViscTempStandard);
        }
        FillViscosityPressures(store, n);
        return EvaluateViscosities(store, n);
    });
}

int32_t RunCalculation(clsExGlobalVars& store) {
    if (int32_t r = CalcDischargeCoefficient(store); r != 0) return r;
    const int32_t type = store.UI_FluidType;
    const int32_t cat = store.UI_FluidCat;
    if (cat != 2 && type != 2) {
        if (int32_t r = SetLiquidExpansionTerms(store); r != 0) return r;
        if (int32_t r = CalcLiquidDensityGrid(store); r != 0) return r;
        if (int32_t r = CalcLiquidReferenceDensity(store); r != 0) return r;
        return CalcLiquidViscosityGrid(store);
    }
    // Water joins the gas branch: its density depends on pressure.
    if (int32_t r = CalcIsentropicExponent(store); r != 0) return r;
    const int32_t expansion = store.UI_PEPrimaryDeviceCode == 1 ? SetFixedExpansionTerms(store)
                                                                : CalcGasExpansionGrid(store);
    if (expansion != 0) return expansion;
    if (int32_t r = CalcGasDensityGrid(store); r != 0) return r;
    if (int32_t r = CalcGasReferenceDensity(store); r != 0) return r;
    return CalcGasViscosityGrid(store);
}

}  // namespace qdf

namespace qdf {

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

int32_t CalculateSavedConfiguration(clsExGlobalVars& s) {
    LoadNaturalGasVector(s);
    if (s.UI_FluidCat == 3 || s.UI_FluidCat == 7) {
        EnteredTablesToStandard(s);
        const int32_t expansion =
            s.UI_FluidType == 2 ? CalcGasExpansionGrid(s) : SetLiquidExpansionTerms(s);
        return CalcDischargeCoefficient(s) != 0 || expansion != 0 ? 1 : 0;
    }
    if (RunCalculation(s) != 0) return 1;
    // The liquid range page follows the run with the liquid's expansion terms.
    if (s.UI_FluidType != 2 && s.UI_FluidCat == 1) SetLiquidExpansionTerms(s);
    return 0;
}

}  // namespace qdf
