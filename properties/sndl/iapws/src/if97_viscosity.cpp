// Viscosity of water and steam, IAPWS R12-08 in its industrial form: mu = mu0(T) mu1(T, rho),
// with the critical enhancement mu2 taken as 1 as the release allows for industrial use (it
// matters only within about a kelvin and 100 kg/m3 of the critical point).
#include <cmath>

#include "if97.h"
#include "if97_tables.h"
#include "if97_term.h"

namespace sndl::if97 {
namespace {
constexpr double kTStar = 647.096;
constexpr double kRhoStar = 322.0;
constexpr double kMuStar = 1e-6;
constexpr auto kH1 = AsArray(kViscH1);
}  // namespace

double Viscosity(double T, double rho) {
    const double tr = T / kTStar;
    const double rr = rho / kRhoStar;
    const double it = 1.0 / tr;
    const double mu0 = 100.0 * std::sqrt(tr) /
                       (kViscH0[0] + it * (kViscH0[1] + it * (kViscH0[2] + it * kViscH0[3])));
    const Powers<0, 5> a(it - 1.0);
    const Powers<0, 6> b(rr - 1.0);
    const double mu1 = std::exp(rr * Sum(kH1, a.zero(), b.zero()));
    return kMuStar * mu0 * mu1;
}

}  // namespace sndl::if97
