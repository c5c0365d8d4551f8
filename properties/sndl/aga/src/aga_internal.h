// Internal C++ interface of the natural gas library: the detail equation of state of
// AGA Report No. 8 (1994), which ISO 12213-2 adopts unchanged, the gross characterization
// methods of the same report, and SGERG-88 of ISO 12213-3. The C entry points in sndl_aga.h
// are thin shells over these functions; the tests reach the intermediate results here.
//
// Units inside: T in K, p in kPa, molar density in mol/L (= kmol/m3), molar mass in g/mol
// (= kg/kmol), heating values in kJ/mol and MJ/m3 (= kJ/L).
#ifndef SNDL_AGA_INTERNAL_H
#define SNDL_AGA_INTERNAL_H

#include <cstdint>

namespace sndl::aga {

inline constexpr int kComponents = 21;
inline constexpr int kTerms = 58;
inline constexpr int kVirialTerms = 18;  // terms 1..18 build the second virial coefficient
inline constexpr int kDetailBinaryCount = 61;
// Molar gas constant of the 1994 report, J/(mol K) = kPa L/(mol K); both methods use it.
inline constexpr double kR = 8.31451;

// Component order of the composition vector (the wizard's Y21).
enum Component {
    kMethane,
    kNitrogen,
    kCO2,
    kEthane,
    kPropane,
    kWater,
    kH2S,
    kHydrogen,
    kCO,
    kOxygen,
    kIsobutane,
    kButane,
    kIsopentane,
    kPentane,
    kHexane,
    kHeptane,
    kOctane,
    kNonane,
    kDecane,
    kHelium,
    kArgon
};

struct DetailComponent {
    double M, E, K, G, Q, F, S, W;
};
struct DetailBinary {
    int i, j;
    double E, U, K, G;
};
struct DetailTerm {
    double a;
    int b, k;
    double u;
    int g, q, f, s, w;
};
struct IdealGasParams {
    double n3, n4, n5, n6, n7, th4, th5, th6, th7;
};

extern const DetailComponent kDetailComponents[kComponents];
extern const DetailBinary kDetailBinaries[kDetailBinaryCount];
extern const DetailTerm kDetailTerms[kTerms];
extern const IdealGasParams kIdealGas[kComponents];

// ---- Detail equation -------------------------------------------------------------------

// Composition-only quantities of the detail equation.
struct DetailMix {
    double M;                    // molar mass, g/mol
    double K3;                   // cube of the mixture size parameter, L/mol
    double U;                    // mixture energy parameter, K
    double G, Q, F;              // orientation, quadrupole, high-temperature parameters
    double Bstar[kVirialTerms];  // B*_n, L/mol without the T^-u_n factor
};

// The pressure equation at one composition and temperature: B(T) and the density terms
// gathered by their shape (the density exponent b and the exponential exponent k).
inline constexpr int kMaxShapes = 32;
struct DetailState {
    double T, RT;
    double B;      // second virial coefficient at T, L/mol
    double K3;     // L/mol
    double C1318;  // sum of C*_n T^-u_n over terms 13..18 (their virial part leaves the sum)
    double shapeCoef[kMaxShapes];
    double M;
};

struct PressureSlope {
    double p;     // kPa
    double dpdD;  // kPa per mol/L
};

void detailMix(const double* x, DetailMix& mix);
void detailState(const DetailMix& mix, double T, DetailState& st);
PressureSlope detailPressure(const DetailState& st, double D);

// Full property set at (T, D) from the term-by-term Helmholtz form; not on the fast path.
struct DetailProps {
    double P, Z, dPdD, dPdT, cv, cp, w, kappa;
};
void detailProps(const double* x, double T, double D, DetailProps& out);

// ---- Density solve shared by the three equations ---------------------------------------

enum class Root { Gas, Dense, None };

// ---- Gross characterization and SGERG-88 -----------------------------------------------

// Pseudo-component data shared by the gross methods and SGERG-88: the equivalent
// hydrocarbon's molar mass M_CH = G1 + G2 H_CH (g/mol, H_CH in kJ/mol), molar masses (g/mol)
// and molar gross heating values at 25 degC (kJ/mol).
inline constexpr double kG1 = -2.709328;
inline constexpr double kG2 = 0.021062199;
inline constexpr double kMassN2 = 28.0135;
inline constexpr double kMassCO2 = 44.01;
inline constexpr double kMassH2 = 2.0159;
inline constexpr double kMassCO = 28.01;
inline constexpr double kHeatH2 = 285.83;
inline constexpr double kHeatCO = 282.98;

// The five pseudo-components of the gross virial model: an equivalent hydrocarbon,
// nitrogen, carbon dioxide, hydrogen, carbon monoxide.
struct GrossGas {
    double xCH, xN2, xCO2, xH2, xCO;
    double HCH;  // molar gross heating value of the equivalent hydrocarbon, kJ/mol at 25 degC
    double M;    // molar mass of the gas, g/mol
};

// Second and third virial coefficients of the mixture (L/mol, L^2/mol^2); false where a
// combining rule would need a root of a negative number.
bool grossVirial(const GrossGas& gas, double T, double& B, double& C);
bool grossSecondVirial(const GrossGas& gas, double T, double& B);

// Gross density at (T, p): the gas root of Z = 1 + B D + C D^2.
Root grossDensity(const GrossGas& gas, double T, double p_kPa, double& D);

// Reference conditions of the gross inputs: combustion temperature of the heating value,
// temperature and pressure of the metering and of the relative density.
struct GrossReference {
    double Th, Td, Pd;  // K, K, kPa
};
// 60 degF and 14.73 psia, the conditions of the wizard's gross inputs.
inline constexpr GrossReference kGross60F{288.705555555555556, 288.705555555555556,
                                          14.73 * 6.894757293168361};

// Method 1: from the volumetric heating value hv (MJ/m3), relative density rd and the CO2,
// H2 and CO fractions. Method 2: from rd and the N2, CO2, H2, CO fractions; hvOut receives
// the heating value the result implies. Both return 0 or 12 (inputs that no gas matches).
int32_t grossMethod1(double hv, double rd, double xCO2, double xH2, double xCO,
                     const GrossReference& ref, GrossGas& gas);
int32_t grossMethod2(double rd, double xN2, double xCO2, double xH2, double xCO,
                     const GrossReference& ref, GrossGas& gas, double* hvOut);

// SGERG-88 step 1: the equivalent hydrocarbon from Hs (MJ/m3, 25 degC combustion, metered at
// 0 degC and 101.325 kPa), d (0 degC, 101.325 kPa), xCO2 and xH2. Returns 0 or a status.
int32_t sgergCharacterize(double Hs, double d, double xCO2, double xH2, GrossGas& gas);

}  // namespace sndl::aga

#endif
