// Peng-Robinson equation of state (Peng and Robinson 1976, with the 1978 acentric-factor
// function for omega above 0.49), for pure components and for mixtures with the van der Waals
// one-fluid rules and no binary interaction parameters. Units: T in K, P in Pa, v in m3/kmol.
#ifndef SNDL_DIPPR_CUBIC_HPP
#define SNDL_DIPPR_CUBIC_HPP

#include "sndl/dippr_catalogue.hpp"

namespace sndl::dippr::cubic {

inline constexpr double kR = 8314.462618;  // J/(kmol K)

struct Params {
    double a;  // Pa m6/kmol2, temperature dependent
    double b;  // m3/kmol
};

Params PureParams(const Component& c, double T_K);

// Highest temperature at which the alpha function still falls with T; beyond it the attraction
// would grow again, which is unphysical.
double AlphaMinimumTemperature(const Component& c);

// Roots in Z above B, ascending.
struct Roots {
    int count;
    double z[3];
};
Roots SolveZ(double A, double B);

// ln of the fugacity coefficient of a pure fluid (or a mixture taken as one pseudo-fluid).
double LnPhi(double Z, double A, double B);

// Root choice at (T, P) for given a and b. `gasLike` tells whether the returned root lies on
// the gas branch; `liquidStable` whether a liquid-like root exists with the lower Gibbs energy.
struct Choice {
    double z;
    bool gasLike;
    bool liquidStable;
};
// False when the equation has no root (not for positive a, b, T and P).
bool Choose(const Params& p, double T_K, double P_Pa, Choice& out);

}  // namespace sndl::dippr::cubic

#endif
