#include "SND.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>

#include "sndl/sndl_aga.h"
#include "sndl/sndl_dippr.h"
#include "sndl/sndl_iapws.h"
#include "sndl/sndl_math.h"

namespace qdf::SND {

static_assert(kClistNameBytes == SNDL_DPR_NAMES_BYTES && kClistNameWidth == SNDL_DPR_NAME_WIDTH &&
                  kClistIds == SNDL_DPR_IDS,
              "catalogue buffer sizes disagree with the library");

namespace {

void Require(bool ok, const char* what) {
    if (!ok) throw std::out_of_range(what);
}

void RequireSize(std::size_t have, std::int64_t need, const char* what) {
    Require(need >= 0 && static_cast<std::int64_t>(have) >= need, what);
}

// A working copy of a store vector for a library that may write into it; no heap in the
// property calls of a grid.
template <std::size_t N>
std::array<double, N> Copy(const BoundedArray<double, N>& a) {
    std::array<double, N> out;
    std::copy(a.begin(), a.end(), out.begin());
    return out;
}

// Runs `call` on a working copy of the vector and hands the store back what the library left
// in it.
template <std::size_t N, class Call>
int32_t OnCopy(BoundedArray<double, N>& vector, Call call) {
    auto copy = Copy(vector);
    const int32_t status = call(copy.data());
    vector.assign(copy);
    return status;
}

}  // namespace

int32_t DprGetClist(std::vector<std::string>& names, std::vector<int32_t>& ids) {
    std::string buffer(kClistNameBytes, ' ');
    std::array<int32_t, kClistIds> idBuffer{};
    const int32_t count = ::DprGetClist(buffer.data(), idBuffer.data());
    if (count < 1) return count;
    Require(count <= kClistIds, "catalogue count above the id array");

    std::vector<int32_t> outIds(idBuffer.begin(), idBuffer.begin() + count);
    std::vector<std::string> outNames = SplitClistNames(buffer, count);
    names = std::move(outNames);
    ids = std::move(outIds);
    return count;
}

std::vector<std::string> SplitClistNames(std::string_view buffer, int32_t count) {
    std::vector<std::string> names;
    for (int32_t i = 0; i < count; ++i) {
        // A field that would reach past the buffer keeps what the buffer holds of it.
        const std::size_t start = static_cast<std::size_t>(i) * kClistNameWidth;
        std::string_view field;
        if (start < buffer.size())
            field =
                buffer.substr(start, std::min<std::size_t>(kClistNameWidth, buffer.size() - start));
        names.emplace_back(field.substr(0, field.find('\0')));
    }
    return names;
}

int32_t DprMw(int32_t id, double& mw) {
    return ::DprMw(id, &mw);
}
int32_t DprIcp(int32_t id, double T, double& cp) {
    return ::DprIcp(id, T, &cp);
}
int32_t DprVdn(int32_t id, double T, double P, double& vdn) {
    return ::DprVdn(id, T, P, &vdn);
}
int32_t DprLdn(int32_t id, double T, double& ldn) {
    return ::DprLdn(id, T, &ldn);
}
int32_t DprVvs(int32_t id, double T, double& vis) {
    return ::DprVvs(id, T, &vis);
}
int32_t DprLvs(int32_t id, double T, double& vis) {
    return ::DprLvs(id, T, &vis);
}

int32_t DprMixVdn(int32_t n, std::span<int32_t> ids, double T, double P, std::span<double> y,
                  double& vdn) {
    RequireSize(ids.size(), n, "mixture ids shorter than n");
    RequireSize(y.size(), n, "mixture fractions shorter than n");
    return ::DprMixVdn(n, ids.data(), T, P, y.data(), &vdn);
}

int32_t DprMixIcp(clsExGlobalVars& store, std::span<int32_t> ids, double T, double& cp) {
    const int32_t n = store.Y21.upper() + 1;
    RequireSize(ids.size(), n, "mixture ids shorter than Y21");
    return OnCopy(store.Y21, [&](double* y) { return ::DprMixIcp(n, ids.data(), T, y, &cp); });
}

int32_t DprMixVvs(clsExGlobalVars& store, std::span<int32_t> ids, double T, double& vis) {
    const int32_t n = store.Y21.upper() + 1;
    RequireSize(ids.size(), n, "mixture ids shorter than Y21");
    return OnCopy(store.Y21, [&](double* y) { return ::DprMixVvs(n, ids.data(), T, y, &vis); });
}

int32_t DprIcpRng(int32_t id, double& tLow, double& tHigh) {
    return ::DprIcpRng(id, &tLow, &tHigh);
}
int32_t DprVdnRng(int32_t id, double& tLow, double& tHigh) {
    return ::DprVdnRng(id, &tLow, &tHigh);
}
int32_t DprVvsRng(int32_t id, double& tLow, double& tHigh) {
    return ::DprVvsRng(id, &tLow, &tHigh);
}
int32_t DprLdnRng(int32_t id, double& tLow, double& tHigh) {
    return ::DprLdnRng(id, &tLow, &tHigh);
}
int32_t DprLvsRng(int32_t id, double& tLow, double& tHigh) {
    return ::DprLvsRng(id, &tLow, &tHigh);
}
int32_t DprVpRng(int32_t id, double& tLow, double& tHigh) {
    return ::DprVpRng(id, &tLow, &tHigh);
}

int32_t IapwsVdnw(double T, double P, double& d) {
    return ::IapwsVdnw(T, P, &d);
}
int32_t IapwsLdnw(double T, double P, double& d) {
    return ::IapwsLdnw(T, P, &d);
}
int32_t IapwsVvs(double T, double P, double& vis) {
    return ::IapwsVvs(T, P, &vis);
}
int32_t IapwsLvs(double T, double P, double& vis) {
    return ::IapwsLvs(T, P, &vis);
}
int32_t IapwsVkap(double T, double P, double& kappa) {
    return ::IapwsVkap(T, P, &kappa);
}
int32_t IapwsTs(double P, double& T) {
    return ::IapwsTs(P, &T);
}

int32_t AgaDtlVdnMw(clsExGlobalVars& store, double T, double P, double& vdn, double& mw) {
    return OnCopy(store.Y21, [&](double* y) { return ::AgaDtlVdnMw(T, P, y, &vdn, &mw); });
}

int32_t AgaGr1VdnMw(clsExGlobalVars& store, double T, double P, double hv, double rd, int32_t n,
                    double& vdn, double& mw) {
    RequireSize(store.XAga.size(), n, "XAga shorter than n");
    return OnCopy(store.XAga,
                  [&](double* x) { return ::AgaGr1VdnMw(T, P, hv, rd, x, n, &vdn, &mw); });
}

int32_t AgaGr2VdnMw(clsExGlobalVars& store, double T, double P, double rd, int32_t n, double& vdn,
                    double& mw) {
    RequireSize(store.XAga.size(), n, "XAga shorter than n");
    return OnCopy(store.XAga, [&](double* x) { return ::AgaGr2VdnMw(T, P, rd, x, n, &vdn, &mw); });
}

int32_t IsoMcaVdnMw(clsExGlobalVars& store, double T, double P, double& vdn, double& mw) {
    return OnCopy(store.Y21, [&](double* y) { return ::IsoMcaVdnMw(T, P, y, &vdn, &mw); });
}

int32_t IsoPpmVdnMw(clsExGlobalVars& store, double T, double P, double hv, double rd, int32_t n,
                    double& vdn, double& mw) {
    RequireSize(store.XAga.size(), n, "XAga shorter than n");
    return OnCopy(store.XAga,
                  [&](double* x) { return ::IsoPpmVdnMw(T, P, hv, rd, x, n, &vdn, &mw); });
}

int32_t RunLeastSquares(clsExGlobalVars& store, std::span<double> Y, int32_t nData, int32_t nCons,
                        int32_t nTerm, std::span<double> c, std::span<double> yCal, double& sigma,
                        double tol) {
    Require(nData >= 0 && nCons >= 0 && nTerm >= 0, "negative least-squares size");
    RequireSize(Y.size(), nData, "Y shorter than nData");
    RequireSize(c.size(), nTerm, "c shorter than nTerm");
    RequireSize(yCal.size(), nData, "yCal shorter than nData");

    const int32_t nRows = nData + nCons;
    std::vector<double> flat(static_cast<std::size_t>(nRows) * static_cast<std::size_t>(nTerm));
    for (int32_t row = 0; row < nRows; ++row)
        for (int32_t term = 0; term < nTerm; ++term)
            flat[static_cast<std::size_t>(row) * nTerm + term] = store.XLsqr.at(term, row);

    // An empty table still needs a valid address for the solver.
    double none = 0.0;
    double* X = flat.empty() ? &none : flat.data();
    const int32_t status =
        ::SolveLsqr(X, Y.data(), nData, nCons, nTerm, nTerm, c.data(), yCal.data(), &sigma, tol);

    for (int32_t row = 0; row < nRows; ++row)
        for (int32_t term = 0; term < nTerm; ++term)
            store.XLsqr.at(term, row) = flat[static_cast<std::size_t>(row) * nTerm + term];
    return status;
}

}  // namespace qdf::SND
