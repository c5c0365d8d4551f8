// GERG-2008 pure-fluid equations of state (Kunz and Wagner, J. Chem. Eng. Data 57 (2012)
// 3032-3091), each of the 21 components taken alone: the mixture model reduces to these when
// one component is present. Only the residual Helmholtz energy is needed for density.
// Units: T in K, p in kPa, rho in mol/l (= kmol/m3), R = 8.314472 J/(mol K).
#ifndef SNDL_DIPPR_GERG_PURE_HPP
#define SNDL_DIPPR_GERG_PURE_HPP

namespace sndl::gerg {

// One residual term n * delta^d * tau^t * exp(-delta^c); c = 0 means no exponential.
struct Term {
    double n;
    int d;
    double t;
    int c;
};

struct Fluid {
    const char* name;
    const char* cas;
    double molarMass_g_mol;
    double tc_K;
    double rhoc_mol_l;
    const Term* terms;
    int termCount;
};

inline constexpr int kFluidCount = 21;
inline constexpr int kMaxTerms = 24;
inline constexpr double kR = 8.314472;
extern const Fluid kFluids[kFluidCount];

enum class Phase {
    Gas,            // stable gas below Tc
    Supercritical,  // one phase at or above Tc
    MetastableGas,  // gas root exists, but the liquid has the lower Gibbs energy
    Liquid,         // no gas root: only the dense root
    BeyondRange,    // no root up to the equation's density limit
    Invalid         // T or p not positive
};

struct State {
    Phase phase;
    double rho_mol_l;  // the gas root, or the dense root where there is no gas root
    int evaluations;   // pressure evaluations spent, for the benchmarks
};

// What the caller knows of the fluid at T, from outside the equation; zeros for nothing.
struct Hint {
    // Below this pressure (kPa) the liquid is not the stable phase: a gas root is returned
    // without looking for the dense one.
    double gasStableBelow_kPa = 0.0;
    // Saturated liquid density (mol/l): where the search for the dense root starts.
    double liquid_mol_l = 0.0;
};

// Density at (T, p): the gas root by Newton steps from the virial estimate, kept on the gas
// branch, the dense root from above, and the phase decided by comparing the Gibbs energies of
// the two roots.
State Solve(const Fluid& f, double T_K, double p_kPa, const Hint& hint = {});

// Pressure in kPa at (T, rho), for identities in tests.
double Pressure(const Fluid& f, double T_K, double rho_mol_l);

}  // namespace sndl::gerg

namespace sndl::dippr {
struct Component;
// The hints GergVdn gives the solve for a catalogue component with a reference equation (the
// liquid density only where the gas is not vouched for).
gerg::Hint GergHint(const Component& c, double T_K, double p_kPa);
}  // namespace sndl::dippr

#endif
