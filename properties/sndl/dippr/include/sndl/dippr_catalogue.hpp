// C++ view of the pure component catalogue behind sndl_dippr.h, for code that needs the
// numbers themselves (tests, the component-list lookup). The C header stays the contract.
//
// Catalogue: 200 components, in list order. Positions 0 to 25 are fixed because callers pick
// natural gas components by position; the rest follow in ASCII order of their names.
// Data: DIPPR 801 correlation coefficients as printed in Perry's Chemical Engineers' Handbook,
// 8th edition, completed from the ChemSep database 8.32 (see catalogue_data.cpp).
#ifndef SNDL_DIPPR_CATALOGUE_HPP
#define SNDL_DIPPR_CATALOGUE_HPP

#include <cstdint>
#include <string_view>

namespace sndl::dippr {

// One temperature correlation: the DIPPR equation number, its coefficients (0 where the form
// has none) and the temperature range of the fit in K.
struct Correlation {
    int32_t eq;
    double a, b, c, d, e;
    double tmin_K, tmax_K;
};

struct Component {
    const char* name;
    int32_t id;
    const char* cas;
    double mw_kg_kmol;
    double tc_K;
    double pc_Pa;
    double vc_m3_kmol;
    double zc;
    double omega;
    double tb_K;
    int32_t gerg;     // index of its GERG-2008 pure-fluid equation, -1 for none
    Correlation vp;   // vapour pressure, Pa
    Correlation ldn;  // saturated liquid molar density, kmol/m3
    Correlation lvs;  // liquid viscosity, Pa s
    Correlation vvs;  // low-pressure vapour viscosity, Pa s
    Correlation icp;  // ideal gas heat capacity, J/(kmol K)
};

inline constexpr int kComponentCount = 200;
extern const Component kComponents[kComponentCount];

// Position of the component with this id, or -1.
int FindById(int32_t id);
// Position of the component whose name equals `name` exactly (no case folding), or -1.
int FindByName(std::string_view name);

// Value of a correlation at T, with no range test. `tc_K` is used by equation 116 only.
// Above the critical temperature of equations 105 and 116 the critical value is returned.
double Evaluate(const Correlation& c, double T_K, double tc_K);

// Pressure limit of the vapour density, Pa (the extended range of GERG-2008).
inline constexpr double kVdnPmax_Pa = 70.0e6;

// Temperature range of the vapour density for this component (see DprVdnRng).
void VdnRange(const Component& c, double& tLow_K, double& tHigh_K);

// Vapour molar density in kmol/m3 from the Peng-Robinson equation with the catalogue's Tc, Pc
// and acentric factor, whatever equation DprVdn uses for the component; same statuses as
// DprVdn. Exposed so that the cubic can be checked against reference equations.
int32_t CubicVdn(const Component& c, double T_K, double P_Pa, double* vdn);

// Vapour molar density in kmol/m3 from the component's GERG-2008 pure-fluid equation; -1 (no
// value) for a component without one.
int32_t GergVdn(const Component& c, double T_K, double P_Pa, double* vdn);

}  // namespace sndl::dippr

#endif
