// ISO 12213-3: compression factor from physical properties, the SGERG-88 method.
//
// Inputs: superior calorific value Hs (MJ/m3, combustion at 25 degC, metered at 0 degC and
// 101.325 kPa), relative density d (gas over air, both at 0 degC and 101.325 kPa), and the
// CO2 and H2 fractions; the CO fraction follows from H2 as xCO = 0.0964 xH2. Step 1 finds the
// equivalent hydrocarbon (its heating value H and fraction) and the N2 fraction so that the
// five-component virial gas matches Hs and d at the metering state; the compression factor
// at (T, p) then follows from the same virial equation as the gross methods (aga_gross.cpp).
//
// Step 1 here is exact where the standard's procedure is iterative: at a fixed metering
// density n0 the mass density is linear in the hydrocarbon fraction, so the inner search is
// a closed form, and only the fixed point on n0 = 1/(Vm0 + B(T0)) iterates, to rounding.
#include <cmath>

#include "aga_internal.h"
#include "aga_limits.h"
#include "sndl/sndl_aga.h"

namespace sndl::aga {

namespace {

constexpr double kT0 = 273.15;         // K, metering temperature
constexpr double kVm0 = 22.414097;     // L/mol, ideal molar volume at 0 degC, 101.325 kPa
constexpr double kRhoAir0 = 1.292923;  // kg/m3, dry air at 0 degC, 101.325 kPa
constexpr double kCOPerH2 = 0.0964;
constexpr double kBStart = -0.065;  // L/mol, first estimate of B(T0)

// Inclusive limits of the method; the calorific value's are the wizard's in either unit,
// whichever is wider.
constexpr double kHsMin = 536.78 * kBtuFt3, kHsMax = 48.0;
constexpr double kDMin = 0.55, kDMax = 0.90;
constexpr StateLimits kSgergState = {250.15, 338.15, 12000.0};

}  // namespace

int32_t sgergCharacterize(double Hs, double d, double xCO2, double xH2, GrossGas& gas) {
    // Hydrogen lowers and CO2 raises the lightest possible gas; below it no mixture fits.
    if (d < 0.55 + 0.97 * xCO2 - 0.45 * xH2) return SNDL_ERR_XINVALID;
    const double xCO = kCOPerH2 * xH2;
    const double rhoTarget = d * kRhoAir0;
    const double rest = 1.0 - xCO2 - xH2 - xCO;  // x_CH + x_N2
    const double others = xCO2 * kMassCO2 + xH2 * kMassH2 + xCO * kMassCO;
    const double inertHeat = xH2 * kHeatH2 + xCO * kHeatCO;
    double n0 = 1.0 / (kVm0 + kBStart);
    bool converged = false;
    for (int it = 0; it < 60 && !converged; ++it) {
        const double hHC = Hs / n0 - inertHeat;  // x_CH H
        // rho0 / n0 = x_CH (MCH_a + MCH_b H) + (rest - x_CH) M_N2 + others.
        const double xCH = (rhoTarget / n0 - kG2 * hHC - rest * kMassN2 - others) / (kG1 - kMassN2);
        if (!(xCH > 0.0) || !(hHC > 0.0)) return SNDL_ERR_XINVALID;
        gas = {xCH, rest - xCH, xCO2, xH2, xCO, hHC / xCH, 0.0};
        double B = 0.0;
        if (!grossSecondVirial(gas, kT0, B)) return SNDL_ERR_XINVALID;
        const double n0New = 1.0 / (kVm0 + B);
        const double change = std::fabs(n0New - n0);
        converged = change <= 1e-15 * n0 || (it == 59 && change <= 1e-10 * n0);
        n0 = n0New;
    }
    if (!converged) return SNDL_ERR_XINVALID;
    const double xN2 = gas.xN2;
    // A slightly negative nitrogen fraction is the method's tolerance for real hydrocarbons
    // lying off the M_CH(H) line; beyond these bounds Hs and d contradict each other.
    if (xN2 < -0.01 || xN2 > 0.5 || xN2 + xCO2 > 0.5) return SNDL_ERR_XINVALID;
    if (d < 0.55 + 0.4 * xN2 + 0.97 * xCO2 - 0.45 * xH2) return SNDL_ERR_XINVALID;
    gas.M = gas.xCH * (kG1 + kG2 * gas.HCH) + xN2 * kMassN2 + others;
    return SNDL_NORMAL;
}

}  // namespace sndl::aga

int32_t IsoPpmVdnMw(double T, double P, double hv, double rd, double* x, int32_t n, double* vdn,
                    double* mw) {
    using namespace sndl::aga;
    (void)n;  // the vector always holds four entries: (unused, CO2, H2, unused)
    if (x == nullptr || vdn == nullptr || mw == nullptr) return SNDL_ERR_XINVALID;
    if (!validState(T, P)) return SNDL_ERR_XINVALID;
    const double xCO2 = x[1], xH2 = x[2];
    if (!(xCO2 >= 0.0 && xCO2 <= 0.3 + kSlack) || !(xH2 >= 0.0 && xH2 <= 0.1 + kSlack)) {
        return SNDL_ERR_YRANGE;
    }
    int32_t status = heatingValueStatus(hv, kHsMin, kHsMax);
    if (status == SNDL_NORMAL) status = relativeDensityStatus(rd, kDMin, kDMax);
    if (status != SNDL_NORMAL) return status;

    GrossGas gas{};
    status = sgergCharacterize(hv, rd, xCO2, xH2, gas);
    if (status != SNDL_NORMAL) return status;
    return grossVdnMw(gas, T, P, kSgergState, vdn, mw);
}
