// Cost of one natural gas property call with the gas changing from call to call, as when the
// wizard's grids are recomputed for edited analyses. Compositions are prepared beforehand.
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <vector>

#include "sndl/sndl_aga.h"

namespace {

constexpr int kGases = 256;

// A 21-component gas with every fraction present (the costliest case), varied by up to
// 20 percent per component, methane taking up the balance.
std::vector<std::array<double, 21>> analyses() {
    const std::array<double, 21> base = {0.77824, 0.02,    0.06,    0.08,    0.03,  0.0001, 0.0025,
                                         0.004,   0.002,   0.005,   0.0015,  0.003, 0.0005, 0.00165,
                                         0.00215, 0.00088, 0.00024, 0.00015, 9e-05, 0.007,  0.001};
    std::vector<std::array<double, 21>> out(kGases);
    uint32_t seed = 12345;
    for (auto& y : out) {
        double rest = 0.0;
        for (int i = 1; i < 21; ++i) {
            seed = seed * 1664525u + 1013904223u;
            y[i] = base[i] * (0.8 + 0.4 * (seed >> 8) / double(1u << 24));
            rest += y[i];
        }
        y[0] = 1.0 - rest;
    }
    return out;
}

void BM_AgaDtlVdnMw(benchmark::State& state) {
    auto gases = analyses();
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        auto& y = gases[k++ % kGases];
        benchmark::DoNotOptimize(AgaDtlVdnMw(300.0, 6e6, y.data(), &vdn, &mw));
        benchmark::DoNotOptimize(vdn);
    }
}
BENCHMARK(BM_AgaDtlVdnMw);

// Pressure and temperature changing too, over the wizard's grid range.
void BM_AgaDtlVdnMwGrid(benchmark::State& state) {
    auto gases = analyses();
    const double T[] = {263.15, 288.15, 313.15, 338.15};
    const double P[] = {0.1e6, 2e6, 6e6, 12e6};
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        auto& y = gases[k % kGases];
        benchmark::DoNotOptimize(AgaDtlVdnMw(T[k % 4], P[(k / 4) % 4], y.data(), &vdn, &mw));
        ++k;
    }
}
BENCHMARK(BM_AgaDtlVdnMwGrid);

void BM_AgaDtlVdnMwFixedGas(benchmark::State& state) {
    auto y = analyses().front();
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(AgaDtlVdnMw(300.0, 6e6, y.data(), &vdn, &mw));
    }
}
BENCHMARK(BM_AgaDtlVdnMwFixedGas);

void BM_AgaGr1VdnMw(benchmark::State& state) {
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        const double f = (k++ % kGases) / double(kGases);
        double x[4] = {0.0, 0.005 + 0.01 * f, 0.0, 0.0};
        benchmark::DoNotOptimize(
            AgaGr1VdnMw(300.0, 6e6, 38.0 + 2.0 * f, 0.58 + 0.05 * f, x, 4, &vdn, &mw));
    }
}
BENCHMARK(BM_AgaGr1VdnMw);

void BM_IsoPpmVdnMw(benchmark::State& state) {
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        const double f = (k++ % kGases) / double(kGases);
        double x[4] = {0.0, 0.005 + 0.01 * f, 0.02 * f, 0.0};
        benchmark::DoNotOptimize(
            IsoPpmVdnMw(300.0, 6e6, 38.0 + 2.0 * f, 0.60 + 0.05 * f, x, 0, &vdn, &mw));
    }
}
BENCHMARK(BM_IsoPpmVdnMw);

}  // namespace
