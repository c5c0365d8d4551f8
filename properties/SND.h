#pragma once
// Thin wrappers over the four property libraries. They move values, lay arrays out for the C
// interfaces and pass the library's status on unchanged; they never report. Units are those of
// the libraries: T in K, P in Pa absolute, molar densities in kmol/m3, molecular weights in
// kg/kmol, viscosities in Pa s, ideal gas heat capacities in J/(kmol K).
//
// An array too short for what the library will write throws std::out_of_range before the call,
// so the caller's numeric failure path takes it instead of memory being overrun.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "clsExGlobalVars.h"

namespace qdf::SND {

// A store array as the span the wrappers take.
template <std::size_t N>
std::span<double> AsSpan(BoundedArray<double, N>& a) {
    return std::span<double>(a.data(), N);
}

// Size of the name buffer handed to the catalogue call, the width of one name and the number
// of ids it has room for.
inline constexpr int kClistNameBytes = 10016;
inline constexpr int kClistNameWidth = 50;
inline constexpr int kClistIds = 217;

// The catalogue in list order. Returns the library's count; with a count of at least 1 the two
// vectors are resized to exactly that count, below 1 they are left alone.
int32_t DprGetClist(std::vector<std::string>& names, std::vector<int32_t>& ids);
// The first `count` names of a catalogue buffer: name i is the kClistNameWidth bytes from
// i x kClistNameWidth, cut at its first NUL (a name that fills its field has none).
std::vector<std::string> SplitClistNames(std::string_view buffer, int32_t count);

int32_t DprMw(int32_t id, double& mw);
int32_t DprIcp(int32_t id, double T, double& cp);
int32_t DprVdn(int32_t id, double T, double P, double& vdn);
int32_t DprLdn(int32_t id, double T, double& ldn);
int32_t DprVvs(int32_t id, double T, double& vis);
int32_t DprLvs(int32_t id, double T, double& vis);
// Mixture of n components; ids and y from the caller, each at least n long.
int32_t DprMixVdn(int32_t n, std::span<int32_t> ids, double T, double P, std::span<double> y,
                  double& vdn);
// Mixtures over Y21 of the store (n = 21); ids from the caller, at least 21 long. Y21 is
// written back after the call, as the library may change it.
int32_t DprMixIcp(clsExGlobalVars& store, std::span<int32_t> ids, double T, double& cp);
int32_t DprMixVvs(clsExGlobalVars& store, std::span<int32_t> ids, double T, double& vis);
int32_t DprIcpRng(int32_t id, double& tLow, double& tHigh);
int32_t DprVdnRng(int32_t id, double& tLow, double& tHigh);
int32_t DprVvsRng(int32_t id, double& tLow, double& tHigh);
int32_t DprLdnRng(int32_t id, double& tLow, double& tHigh);
int32_t DprLvsRng(int32_t id, double& tLow, double& tHigh);
int32_t DprVpRng(int32_t id, double& tLow, double& tHigh);

int32_t IapwsVdnw(double T, double P, double& d);
int32_t IapwsLdnw(double T, double P, double& d);
int32_t IapwsVvs(double T, double P, double& vis);
int32_t IapwsLvs(double T, double P, double& vis);
int32_t IapwsVkap(double T, double P, double& kappa);
int32_t IapwsTs(double P, double& T);

// Natural gas. The composition comes from the store (Y21 for the detail and molar methods,
// XAga for the gross and physical-property methods) and is written back after the call.
int32_t AgaDtlVdnMw(clsExGlobalVars& store, double T, double P, double& vdn, double& mw);
int32_t AgaGr1VdnMw(clsExGlobalVars& store, double T, double P, double hv, double rd, int32_t n,
                    double& vdn, double& mw);
int32_t AgaGr2VdnMw(clsExGlobalVars& store, double T, double P, double rd, int32_t n, double& vdn,
                    double& mw);
int32_t IsoMcaVdnMw(clsExGlobalVars& store, double T, double P, double& vdn, double& mw);
int32_t IsoPpmVdnMw(clsExGlobalVars& store, double T, double P, double hv, double rd, int32_t n,
                    double& vdn, double& mw);

// Least squares over the store's basis table XLsqr, indexed (term, row): it is laid out row
// after row (element row x nTerm + term) for the solver, with nTerm as the column count, and
// copied back afterwards since the solver may overwrite it. Y needs nData values, c nTerm
// and yCal nData places. XLsqr smaller than nTerm x (nData + nCons) throws std::out_of_range.
int32_t RunLeastSquares(clsExGlobalVars& store, std::span<double> Y, int32_t nData, int32_t nCons,
                        int32_t nTerm, std::span<double> c, std::span<double> yCal, double& sigma,
                        double tol);

}  // namespace qdf::SND
