#include "PhysicalProp.h"

#include <array>
#include <cmath>
#include <exception>
#include <vector>

#include "ModUnit.h"
#include "PropertyError.h"
#include "SND.h"

namespace qdf {

namespace {

constexpr const char* kAir = "AIR";

// Air as a fixed mixture of nitrogen, oxygen, argon and carbon dioxide. The argon fraction is
// 0.093, not 0.0093: the fractions add up to 1.0837, and the device data made so far relies on
// exactly these densities.
constexpr std::array<int32_t, 4> kAirIds{905, 901, 914, 909};
constexpr std::array<double, 4> kAirFractions{0.7809, 0.2095, 0.093, 0.0003};

// Catalogue position of each Y21 component, in Y21 order; the mixture viscosity picks its
// components by these positions.
constexpr std::array<int, 21> kY21CataloguePosition{13, 14, 3,  6,  16, 18, 10, 9,  4, 15, 11,
                                                    19, 12, 25, 22, 21, 24, 23, 20, 8, 2};

// Natural gas viscosity and isentropic exponent of the gross methods.
constexpr double kNaturalGasViscosityLbFtS = 6.9e-6;
constexpr double kNaturalGasIsentropic = 1.3;

double Fraction(double percent) {
    return percent == kNotEntered ? 0.0 : percent / 100.0;
}

bool IsMolarMethod(const std::string& name) {
    return name == kAga8Detail || name == kIsoMolar;
}

bool IsGrossMethod(const std::string& name) {
    return name == kAga8Gross1 || name == kAga8Gross2 || name == kIsoPhysical;
}

// A failed library call is reported, and the point fails.
bool Reported(clsExGlobalVars& store, int32_t status, int32_t kind, double tempK, double pressPa,
              double value) {
    if (status == 0) return false;
    ReportPropertyError(store, status, kind, tempK, pressPa, value);
    return true;
}

// A result that is not a finite number fails the point and leaves the old value standing.
int32_t KeepFinite(double value, double& target, int32_t result = 0) {
    if (!std::isfinite(value)) return 1;
    target = value;
    return result;
}

// Reports a failed IAPWS call and decides whether the value stands: it does at a two-phase
// point, and of course when the library succeeded.
int32_t PassUnlessFailed(clsExGlobalVars& store, int32_t status, int32_t kind, double tempK,
                         double pressPa, double value) {
    if (!Reported(store, status, kind, tempK, pressPa, value)) return 0;
    return IsTwoPhaseWarning(store) ? 0 : 1;
}

// Water or steam density of one phase; the call starts from the point's old value.
int32_t IapwsDensity(clsExGlobalVars& store, int32_t (*call)(double, double, double&), double tempK,
                     double pressPa, double& density) {
    double d = density;
    const int32_t status = call(tempK, pressPa, d);
    const int32_t result = PassUnlessFailed(store, status, kReportDensity, tempK, pressPa, d);
    return KeepFinite(d, density, result);
}

// One natural gas library call for the method `name`; false when the name is none of the five.
bool NaturalGasCall(clsExGlobalVars& store, const std::string& name, double tempK, double pressPa,
                    int32_t& status, double& vdn, double& mw) {
    if (name == kAga8Detail) {
        LoadMoleVector(store);
        status = SND::AgaDtlVdnMw(store, tempK, pressPa, vdn, mw);
    } else if (name == kAga8Gross1) {
        status = SND::AgaGr1VdnMw(store, tempK, pressPa, store.UI_VgHvStandard, store.UI_RgRelDens,
                                  4, vdn, mw);
    } else if (name == kAga8Gross2) {
        status = SND::AgaGr2VdnMw(store, tempK, pressPa, store.UI_RgRelDens, 4, vdn, mw);
    } else if (name == kIsoMolar) {
        LoadMoleVector(store);
        status = SND::IsoMcaVdnMw(store, tempK, pressPa, vdn, mw);
    } else if (name == kIsoPhysical) {
        status = SND::IsoPpmVdnMw(store, tempK, pressPa, store.UI_VgHvStandard, store.UI_RgRelDens,
                                  0, vdn, mw);
    } else {
        return false;
    }
    return true;
}

int32_t AirMixtureDensity(clsExGlobalVars& store, double tempK, double pressPa, double& density) {
    std::array<int32_t, 4> ids = kAirIds;
    std::array<double, 4> y = kAirFractions;
    double vdn = 0.0;
    int32_t status = SND::DprMixVdn(4, ids, tempK, pressPa, y, vdn);
    if (status != 0) {
        ReportPropertyError(store, status, kReportDensity, tempK, pressPa, vdn);
        return status;
    }
    double mw = 0.0;
    status = SND::DprMw(store.UI_FluidNameMethodCode, mw);
    if (status != 0) {
        ReportPropertyError(store, status, kReportDensity, tempK, pressPa, vdn * mw);
        return status;
    }
    return KeepFinite(vdn * mw, density);
}

int32_t PureComponentDensity(clsExGlobalVars& store, int32_t fluidType, const std::string& name,
                             double tempK, double pressPa, double& density, bool twoPhasePasses) {
    const int32_t id = store.UI_FluidNameMethodCode;
    double vdn = 0.0;
    double mw = 0.0;
    int32_t status = SND::DprVdn(id, tempK, pressPa, vdn);
    const int32_t mwStatus = SND::DprMw(id, mw);
    if (status == 0) status = mwStatus;
    const double value = vdn * mw;
    if (status != 0) {
        ReportPropertyError(store, status, kReportDensity, tempK, pressPa, value);
        // Air's limits are set by hand above the correlation's upper limit, so a temperature
        // above the range goes on with the value returned.
        const bool airAboveRange = store.Gbl_ErrorCode == kErrPropertyLib &&
                                   store.Gbl_ErrorSubCode == 1 && fluidType == 2 && name == kAir;
        if (!airAboveRange && !(twoPhasePasses && IsTwoPhaseWarning(store))) return 1;
    }
    return KeepFinite(value, density);
}

int32_t LiquidDensity(clsExGlobalVars& store, int32_t fluidCat, double tempK, double pressPa,
                      double& density) {
    switch (fluidCat) {
        case 1: {
            // Saturated liquid: pressure plays no part.
            const int32_t id = store.UI_FluidNameMethodCode;
            double ldn = 0.0;
            double mw = 0.0;
            int32_t status = SND::DprLdn(id, tempK, ldn);
            if (status == 0) status = SND::DprMw(id, mw);
            if (Reported(store, status, kReportOther, tempK, pressPa, ldn * mw)) return 1;
            return KeepFinite(ldn * mw, density);
        }
        case 2:
            return IapwsDensity(store, SND::IapwsLdnw, tempK, pressPa, density);
        case 3:
            density = 0.0;
            return 0;
        default:
            return 0;
    }
}

int32_t GasDensity(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                   const std::string& name, double tempK, double pressPa, double& density) {
    switch (fluidCat) {
        case 4: {
            int32_t status = 0;
            double vdn = 0.0;
            double mw = 0.0;
            if (!NaturalGasCall(store, name, tempK, pressPa, status, vdn, mw)) return 0;
            // Any failure stops the run here, a two-phase point included.
            if (Reported(store, status, kReportOther, tempK, pressPa, vdn * mw)) return 1;
            return KeepFinite(vdn * mw, density);
        }
        case 5:
            if (name != kSteamSuperheated && name != kSteamSaturated) return 0;
            return IapwsDensity(store, SND::IapwsVdnw, tempK, pressPa, density);
        case 6:
            if (name == kAir && store.Mgt_MtdAirGasDensityCalculation == 1)
                return AirMixtureDensity(store, tempK, pressPa, density);
            return PureComponentDensity(store, fluidType, name, tempK, pressPa, density,
                                        name != kAir);
        case 7:
            density = 0.0;
            return 0;
        default:
            return 0;
    }
}

// The catalogue's ids; an empty or short catalogue fails on the first missing position.
std::vector<int32_t> CatalogueIds() {
    std::vector<std::string> names;
    std::vector<int32_t> ids;
    SND::DprGetClist(names, ids);
    return ids;
}

int32_t MixtureViscosity(clsExGlobalVars& store, double tempK, double pressPa, double& vis) {
    LoadMoleVector(store);
    const std::vector<int32_t> ids = CatalogueIds();
    std::array<int32_t, 21> mixIds{};
    for (std::size_t k = 0; k < mixIds.size(); ++k)
        mixIds[k] = ids.at(static_cast<std::size_t>(kY21CataloguePosition[k]));
    double value = 0.0;
    const int32_t status = SND::DprMixVvs(store, mixIds, tempK, value);
    if (Reported(store, status, kReportOther, tempK, pressPa, value)) return 1;
    vis = value;
    return 0;
}

// A DIPPR correlation of viscosity: on failure the point keeps its old value.
template <class Call>
int32_t CorrelatedViscosity(clsExGlobalVars& store, Call call, double tempK, double pressPa,
                            double& vis) {
    double value = 0.0;
    const int32_t status = call(store.UI_FluidNameMethodCode, tempK, value);
    if (Reported(store, status, kReportOther, tempK, pressPa, value)) return 1;
    vis = value;
    return 0;
}

int32_t MixtureIsentropicExponent(clsExGlobalVars& store, double tempK, double pressPa,
                                  double& kappa) {
    LoadMoleVector(store);
    const std::vector<int32_t> ids = CatalogueIds();
    // The first 21 catalogue ids in list order, not rearranged to the Y21 components as the
    // mixture viscosity does: the exponents in use were made this way.
    std::array<int32_t, 21> mixIds{};
    for (std::size_t k = 0; k < mixIds.size(); ++k) mixIds[k] = ids.at(k);
    double cp = 0.0;
    const int32_t status = SND::DprMixIcp(store, mixIds, tempK, cp);
    if (Reported(store, status, kReportOther, tempK, pressPa, cp)) return 1;
    kappa = cp / (cp - kGasConstant);
    return 0;
}

}  // namespace

double NaturalGasViscosity() {
    return LbFtSToPaS(kNaturalGasViscosityLbFtS);
}

int32_t GetDensity(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                   const std::string& name, double tempK, double& density, double pressPa) {
    try {
        if (fluidType == 1) return LiquidDensity(store, fluidCat, tempK, pressPa, density);
        if (fluidType == 2)
            return GasDensity(store, fluidType, fluidCat, name, tempK, pressPa, density);
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

int32_t GetMolecularWeight(clsExGlobalVars& store, int32_t /*fluidType*/, int32_t fluidCat,
                           const std::string& name, double& mw, double tempK, double pressPa) {
    try {
        switch (fluidCat) {
            case 1:
            case 6: {
                double value = 0.0;
                const int32_t status = SND::DprMw(store.UI_FluidNameMethodCode, value);
                if (Reported(store, status, kReportOther, tempK, pressPa, value)) return 1;
                mw = value;
                return 0;
            }
            case 2:
            case 5:
                mw = 18.015268;
                return 0;
            case 3:
            case 7:
                mw = store.UI_MolWeight;
                return 0;
            case 4: {
                int32_t status = 0;
                double vdn = 0.0;
                double value = 0.0;
                if (!NaturalGasCall(store, name, tempK, pressPa, status, vdn, value)) return 0;
                if (status != 0) {
                    // Reported as a density failure, except for the two AGA8 gross methods.
                    const bool aga8Gross = name == kAga8Gross1 || name == kAga8Gross2;
                    const int32_t kind = aga8Gross ? kReportOther : kReportDensity;
                    ReportPropertyError(store, status, kind, tempK, pressPa, value);
                    return 1;
                }
                return KeepFinite(value, mw);
            }
            default:
                return 0;
        }
    } catch (const std::exception&) {
        return 1;
    }
}

void LoadMoleVector(clsExGlobalVars& store) {
    const auto percent = store.DetailMoles();
    for (std::size_t k = 0; k < percent.size(); ++k)
        store.Y21[static_cast<std::int64_t>(k)] = Fraction(*percent[k]);
}

void LoadGross1Vector(clsExGlobalVars& store, double co2, double h2, double co) {
    store.XAga[0] = 0.0;
    store.XAga[1] = Fraction(co2);
    store.XAga[2] = Fraction(h2);
    store.XAga[3] = Fraction(co);
}

void LoadGross2Vector(clsExGlobalVars& store, double co2, double h2, double co, double n2) {
    store.XAga[0] = Fraction(n2);
    store.XAga[1] = Fraction(co2);
    store.XAga[2] = Fraction(h2);
    store.XAga[3] = Fraction(co);
}

void LoadIsoVector(clsExGlobalVars& store, double co2, double h2) {
    store.XAga[0] = 0.0;
    store.XAga[1] = Fraction(co2);
    store.XAga[2] = Fraction(h2);
    store.XAga[3] = 0.0;
}

void LoadNaturalGasVector(clsExGlobalVars& s) {
    if (s.UI_FluidName == "AGA8 Gross Characterization Method 1")
        LoadGross1Vector(s, s.UI_CO2Mole, s.UI_H2Mole, s.UI_COMole);
    else if (s.UI_FluidName == "AGA8 Gross Characterization Method 2")
        LoadGross2Vector(s, s.UI_CO2Mole, s.UI_H2Mole, s.UI_COMole, s.UI_N2Mole);
    else if (s.UI_FluidName == "ISO12213 physical properties")
        LoadIsoVector(s, s.UI_CO2Mole, s.UI_H2Mole);
}

int32_t GetViscosity(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                     const std::string& name, double tempK, int32_t index, double pressPa) {
    try {
        double vis = store.UI_Visc.at(index);
        int32_t result = 0;
        if (fluidType == 1) {
            if (fluidCat == 1) {
                result = CorrelatedViscosity(store, SND::DprLvs, tempK, pressPa, vis);
            } else if (fluidCat == 2) {
                const int32_t status = SND::IapwsLvs(tempK, pressPa, vis);
                result = PassUnlessFailed(store, status, kReportViscosity, tempK, pressPa, vis);
            }
        } else if (fluidType == 2) {
            if (fluidCat == 4) {
                if (IsMolarMethod(name) && store.Mgt_MtdGasVisCalc == 0) {
                    if (MixtureViscosity(store, tempK, pressPa, vis) != 0) return 1;
                } else if (IsMolarMethod(name) || IsGrossMethod(name)) {
                    vis = NaturalGasViscosity();
                }
            } else if (fluidCat == 5) {
                if (name == kSteamSuperheated) {
                    const int32_t status = SND::IapwsVvs(tempK, pressPa, vis);
                    result = PassUnlessFailed(store, status, kReportViscosity, tempK, pressPa, vis);
                } else if (name == kSteamSaturated) {
                    // Steam on the saturation line at this pressure; a failure of the
                    // saturation temperature alone shows only through the viscosity call.
                    double tSat = 0.0;
                    SND::IapwsTs(pressPa, tSat);
                    const int32_t status = SND::IapwsVvs(tSat, pressPa, vis);
                    result = PassUnlessFailed(store, status, kReportViscosity, tSat, pressPa, vis);
                }
            } else if (fluidCat == 6) {
                result = CorrelatedViscosity(store, SND::DprVvs, tempK, pressPa, vis);
            }
        }
        return KeepFinite(vis, store.UI_Visc.at(index), result);
    } catch (const std::exception&) {
        return 1;
    }
}

int32_t GetIsentropicExponent(clsExGlobalVars& store, int32_t fluidType, int32_t fluidCat,
                              const std::string& name, double tempK, double pressPa) {
    try {
        double kappa = store.UI_IsenExpValue;
        int32_t result = 0;
        if (fluidType != 2) return 0;
        if (fluidCat == 4) {
            if (IsMolarMethod(name) && store.Mgt_MtdIsenExpCalc != 1) {
                if (MixtureIsentropicExponent(store, tempK, pressPa, kappa) != 0) return 1;
            } else if (IsMolarMethod(name) || IsGrossMethod(name)) {
                kappa = kNaturalGasIsentropic;
            }
        } else if (fluidCat == 5) {
            double tSteam = tempK;
            bool known = true;
            if (name == kSteamSaturated) {
                tSteam = 0.0;
                const int32_t status = SND::IapwsTs(pressPa, tSteam);
                if (Reported(store, status, kReportOther, tSteam, pressPa, kappa)) return 1;
            } else if (name != kSteamSuperheated) {
                known = false;
            }
            if (known) {
                const int32_t status = SND::IapwsVkap(tSteam, pressPa, kappa);
                result = PassUnlessFailed(store, status, kReportIsentropic, tSteam, pressPa, kappa);
            }
        } else if (fluidCat == 6) {
            double cp = 0.0;
            const int32_t status = SND::DprIcp(store.UI_FluidNameMethodCode, tempK, cp);
            if (Reported(store, status, kReportOther, tempK, pressPa, cp)) return 1;
            kappa = cp / (cp - kGasConstant);
        }
        return KeepFinite(kappa, store.UI_IsenExpValue, result);
    } catch (const std::exception&) {
        return 1;
    }
}

}  // namespace qdf
