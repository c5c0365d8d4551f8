// Gross characterization methods 1 and 2 of AGA Report No. 8 (1994).
//
// The gas is five pseudo-components (equivalent hydrocarbon, N2, CO2, H2, CO) in a virial
// equation truncated after the third coefficient, Z = 1 + B D + C D^2. The hydrocarbon's
// coefficients are quadratics in its molar heating value H_CH and in T.
//
// Coefficients: the hydrocarbon, nitrogen and carbon dioxide terms are the report's. The
// report carries hydrogen and carbon monoxide as further components, but its published
// tables stop at N2 and CO2; the H2 and CO terms are therefore those of SGERG-88
// (ISO 12213-3, the same virial model from the same source), together with its combining
// rule for C(CH, CH, H2). SGERG-88 shares this model, so its characterization lives in
// sgerg88.cpp on top of grossVirial and grossDensity.
#include <cmath>

#include "aga_internal.h"
#include "aga_limits.h"
#include "density_solve.h"
#include "sndl/sndl_aga.h"

namespace sndl::aga {

namespace {

struct Quadratic {
    double a0, a1, a2;
    double at(double T) const { return a0 + T * (a1 + T * a2); }
};

// Equivalent hydrocarbon, one row per power of H_CH (kJ/mol): B in L/mol, C in L^2/mol^2.
constexpr Quadratic kB11[3] = {{-0.425468, 2.865e-3, -4.62073e-6},
                               {8.77118e-4, -5.56281e-6, 8.8151e-9},
                               {-8.24747e-7, 4.31436e-9, -6.08319e-12}};
constexpr Quadratic kC111[3] = {{-0.302488, 1.95861e-3, -3.16302e-6},
                                {6.46422e-4, -4.22876e-6, 6.88157e-9},
                                {-3.32805e-7, 2.2316e-9, -3.67713e-12}};
// Indexes: 1 CH, 2 N2, 3 CO2, 4 H2, 5 CO.
constexpr Quadratic kB22{-0.1446, 7.4091e-4, -9.1195e-7};
constexpr Quadratic kB23{-0.339693, 1.61176e-3, -2.04429e-6};
constexpr Quadratic kB33{-0.86834, 4.0376e-3, -5.1657e-6};
constexpr Quadratic kC222{7.8498e-3, -3.9895e-5, 6.1187e-8};
constexpr Quadratic kC223{5.52066e-3, -1.68609e-5, 1.57169e-8};
constexpr Quadratic kC233{3.58783e-3, 8.06674e-6, -3.25798e-8};
constexpr Quadratic kC333{2.0513e-3, 3.4888e-5, -8.3703e-8};
// Hydrogen and carbon monoxide terms, from SGERG-88.
constexpr Quadratic kB14{-0.052128, 2.7157e-4, -2.5e-7};
constexpr Quadratic kB15{-0.068729, -2.39381e-6, 5.18195e-7};
constexpr Quadratic kB44{-1.10596e-3, 8.13385e-5, -9.8722e-8};
constexpr Quadratic kB55{-0.13082, 6.0254e-4, -6.443e-7};
constexpr Quadratic kB24{0.012, 0.0, 0.0};
constexpr Quadratic kC444{1.04711e-3, -3.64887e-6, 4.67095e-9};
constexpr Quadratic kC115{7.36748e-3, -2.76578e-5, 3.43051e-8};

// Second virial coefficient of air, L/mol, for the reference density of relative density.
constexpr Quadratic kBAir{-0.12527, 5.91e-4, -6.62e-7};
constexpr double kMAir = 28.9625;  // g/mol

// Converting a heating value for combustion at Th to 25 degC.
double combustionFactor(double Th) {
    return 1.0 + 0.0001027 * (Th - 298.15);
}

double zAir(const GrossReference& ref) {
    return 1.0 + kBAir.at(ref.Td) * ref.Pd / (kR * ref.Td);
}

// The heating value of H2 and CO in the gas, kJ/mol.
double inertHeat(double xH2, double xCO) {
    return xH2 * kHeatH2 + xCO * kHeatCO;
}
// Molar mass of all but the hydrocarbon and N2, g/mol.
double otherMass(double xCO2, double xH2, double xCO) {
    return xCO2 * kMassCO2 + xH2 * kMassH2 + xCO * kMassCO;
}

// Fixed point on the reference compressibility: the characterization at a trial Z gives the
// second virial coefficient at the reference state and so a new Z. Converged far below the
// report's 1e-7, so the two methods agree to rounding with the detail characterization.
template <class Characterize>
int32_t iterateReferenceZ(const GrossReference& ref, GrossGas& gas, double& Z,
                          const Characterize& characterize) {
    Z = 1.0;
    for (int it = 0; it < 60; ++it) {
        if (!characterize(Z, gas)) return SNDL_ERR_XINVALID;
        double B = 0.0;
        if (!grossSecondVirial(gas, ref.Td, B)) return SNDL_ERR_XINVALID;
        const double zNew = 1.0 + B * ref.Pd / (kR * ref.Td);
        const double change = std::fabs(zNew - Z);
        if (change <= 1e-14) return SNDL_NORMAL;
        Z = zNew;
        if (it == 59 && change <= 1e-10) return SNDL_NORMAL;
    }
    return SNDL_ERR_XINVALID;
}

}  // namespace

bool grossSecondVirial(const GrossGas& gas, double T, double& B) {
    const double H = gas.HCH;
    const double B11 = kB11[0].at(T) + H * (kB11[1].at(T) + H * kB11[2].at(T));
    const double B22 = kB22.at(T), B33 = kB33.at(T);
    // The CH-CO2 combining rule takes a square root of this product.
    if (B11 * B33 < 0.0) return false;
    const double dT = 320.0 - T;
    const double B12 = (0.72 + 1.875e-5 * dT * dT) * 0.5 * (B11 + B22);
    const double B13 = -0.865 * std::sqrt(B11 * B33);
    const double x1 = gas.xCH, x2 = gas.xN2, x3 = gas.xCO2, x4 = gas.xH2, x5 = gas.xCO;
    B = x1 * (x1 * B11 + 2.0 * (x2 * B12 + x3 * B13 + x4 * kB14.at(T) + x5 * kB15.at(T))) +
        x2 * (x2 * B22 + 2.0 * (x3 * kB23.at(T) + x4 * kB24.at(T))) + x3 * x3 * B33 +
        x4 * x4 * kB44.at(T) + x5 * x5 * kB55.at(T);
    return true;
}

bool grossVirial(const GrossGas& gas, double T, double& B, double& C) {
    if (!grossSecondVirial(gas, T, B)) return false;
    const double H = gas.HCH;
    const double C111 = kC111[0].at(T) + H * (kC111[1].at(T) + H * kC111[2].at(T));
    const double C222 = kC222.at(T), C333 = kC333.at(T), C444 = kC444.at(T);
    // The combining rules take cube roots; no gas gives these a negative sign.
    if (C111 < 0.0 || C222 < 0.0 || C333 < 0.0 || C444 < 0.0) return false;
    const double y12 = 0.92 + 0.0013 * (T - 270.0);
    const double c1 = std::cbrt(C111), c2 = std::cbrt(C222), c3 = std::cbrt(C333);
    const double c4 = std::cbrt(C444);
    const double C112 = y12 * c1 * c1 * c2;
    const double C122 = y12 * c1 * c2 * c2;
    const double C113 = 0.92 * c1 * c1 * c3;
    const double C133 = 0.92 * c1 * c3 * c3;
    const double C123 = 1.1 * c1 * c2 * c3;
    const double C114 = 1.2 * c1 * c1 * c4;
    const double x1 = gas.xCH, x2 = gas.xN2, x3 = gas.xCO2, x4 = gas.xH2, x5 = gas.xCO;
    C = x1 * x1 * (x1 * C111 + 3.0 * (x2 * C112 + x3 * C113 + x4 * C114 + x5 * kC115.at(T))) +
        x1 * (3.0 * x2 * x2 * C122 + 6.0 * x2 * x3 * C123 + 3.0 * x3 * x3 * C133) +
        x2 * x2 * (x2 * C222 + 3.0 * x3 * kC223.at(T)) + 3.0 * x2 * x3 * x3 * kC233.at(T) +
        x3 * x3 * x3 * C333 + x4 * x4 * x4 * C444;
    return true;
}

Root grossDensity(const GrossGas& gas, double T, double p_kPa, double& D) {
    double B = 0.0, C = 0.0;
    if (!grossVirial(gas, T, B, C)) return Root::None;
    const double RT = kR * T;
    auto eval = [RT, B, C](double d) {
        return PressureSlope{RT * d * (1.0 + d * (B + d * C)),
                             RT * (1.0 + d * (2.0 * B + 3.0 * d * C))};
    };
    // 100 mol/L lies far beyond any liquid hydrocarbon density.
    return solveDensity(eval, p_kPa, virialStart(p_kPa / RT, B), 100.0, D);
}

int32_t grossMethod1(double hv, double rd, double xCO2, double xH2, double xCO,
                     const GrossReference& ref, GrossGas& gas) {
    if (!(hv > 0.0) || !(rd > 0.0)) return SNDL_ERR_XINVALID;
    const double zA = zAir(ref);
    const double vIdeal = kR * ref.Td / ref.Pd;  // L/mol
    const double rest = 1.0 - xCO2 - xH2 - xCO;
    auto characterize = [&](double Z, GrossGas& g) {
        const double HN = Z * vIdeal * hv * combustionFactor(ref.Th);
        const double M = rd * Z * kMAir / zA;
        const double hHC = HN - inertHeat(xH2, xCO);  // x_CH H_CH
        // M = x_CH (G1 + G2 H_CH) + x_N2 M_N2 + others, with x_N2 = rest - x_CH.
        const double xCH =
            (M - kG2 * hHC - rest * kMassN2 - otherMass(xCO2, xH2, xCO)) / (kG1 - kMassN2);
        g = {xCH, rest - xCH, xCO2, xH2, xCO, hHC / xCH, M};
        return xCH > 0.0 && g.xN2 >= 0.0 && g.HCH > 0.0;
    };
    double Z = 1.0;
    return iterateReferenceZ(ref, gas, Z, characterize);
}

int32_t grossMethod2(double rd, double xN2, double xCO2, double xH2, double xCO,
                     const GrossReference& ref, GrossGas& gas, double* hvOut) {
    if (!(rd > 0.0)) return SNDL_ERR_XINVALID;
    const double xCH = 1.0 - xN2 - xCO2 - xH2 - xCO;
    if (!(xCH > 0.0)) return SNDL_ERR_XINVALID;
    const double zA = zAir(ref);
    auto characterize = [&](double Z, GrossGas& g) {
        const double M = rd * Z * kMAir / zA;
        const double MCH = (M - xN2 * kMassN2 - otherMass(xCO2, xH2, xCO)) / xCH;
        g = {xCH, xN2, xCO2, xH2, xCO, (MCH - kG1) / kG2, M};
        return g.HCH > 0.0;
    };
    double Z = 1.0;
    const int32_t status = iterateReferenceZ(ref, gas, Z, characterize);
    if (status == SNDL_NORMAL && hvOut != nullptr) {
        const double HN = gas.xCH * gas.HCH + inertHeat(xH2, xCO);
        *hvOut = HN * ref.Pd / (Z * kR * ref.Td) / combustionFactor(ref.Th);
    }
    return status;
}

namespace {

// Wizard limits of the gross methods, inclusive. The heating value bounds are the page's in
// either unit, whichever is wider, so that a value accepted there is accepted here.
constexpr double kHvMin = 476.66 * kBtuFt3;
constexpr double kHvMax = 42.87;
constexpr double kRdMin = 0.554, kRdMax = 0.87;
// Operating range: 263 to 338 K, up to 12 MPa.
constexpr StateLimits kGrossState = {263.0, 338.0, 12000.0};

bool within(double v, double lo, double hi) {
    return v >= lo - kSlack * std::fabs(lo) && v <= hi + kSlack * std::fabs(hi);
}

// Checks shared by both methods: x = (N2, CO2, H2, CO).
int32_t checkGrossInputs(double T, double P, const double* x, int32_t n, const double* vdn,
                         const double* mw, bool withN2) {
    if (x == nullptr || vdn == nullptr || mw == nullptr || n < 4) return SNDL_ERR_XINVALID;
    if (!validState(T, P)) return SNDL_ERR_XINVALID;
    if (withN2 && !within(x[0], 0.0, 0.5)) return SNDL_ERR_YRANGE;
    if (!within(x[1], 0.0, 0.3) || !within(x[2], 0.0, 0.1) || !within(x[3], 0.0, 0.03)) {
        return SNDL_ERR_YRANGE;
    }
    return SNDL_NORMAL;
}

}  // namespace

}  // namespace sndl::aga

int32_t AgaGr1VdnMw(double T, double P, double hv, double rd, double* x, int32_t n, double* vdn,
                    double* mw) {
    using namespace sndl::aga;
    int32_t status = checkGrossInputs(T, P, x, n, vdn, mw, false);
    if (status != SNDL_NORMAL) return status;
    if ((status = heatingValueStatus(hv, kHvMin, kHvMax)) != SNDL_NORMAL) return status;
    if ((status = relativeDensityStatus(rd, kRdMin, kRdMax)) != SNDL_NORMAL) return status;
    GrossGas gas{};
    status = grossMethod1(hv, rd, x[1], x[2], x[3], kGross60F, gas);
    if (status != SNDL_NORMAL) return status;
    return grossVdnMw(gas, T, P, kGrossState, vdn, mw);
}

int32_t AgaGr2VdnMw(double T, double P, double rd, double* x, int32_t n, double* vdn, double* mw) {
    using namespace sndl::aga;
    int32_t status = checkGrossInputs(T, P, x, n, vdn, mw, true);
    if (status != SNDL_NORMAL) return status;
    if ((status = relativeDensityStatus(rd, kRdMin, kRdMax)) != SNDL_NORMAL) return status;
    GrossGas gas{};
    status = grossMethod2(rd, x[0], x[1], x[2], x[3], kGross60F, gas, nullptr);
    if (status != SNDL_NORMAL) return status;
    return grossVdnMw(gas, T, P, kGrossState, vdn, mw);
}
