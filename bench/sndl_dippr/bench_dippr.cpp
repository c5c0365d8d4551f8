// Per-call cost of the operations a calculation grid makes most often.
#include <benchmark/benchmark.h>

#include <array>

#include "sndl/sndl_dippr.h"

namespace {

void BM_Vdn(benchmark::State& state, int32_t id, double T, double P) {
    double v = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(DprVdn(id, T, P, &v));
        benchmark::DoNotOptimize(v);
    }
}
// Methane goes through its reference equation of state.
BENCHMARK_CAPTURE(BM_Vdn, ReferenceEquation, 1, 288.15, 5e6);
// Methane near its saturation line: the dense root is searched too.
BENCHMARK_CAPTURE(BM_Vdn, ReferenceEquationSubcritical, 1, 170.0, 1e6);
// Ethylene goes through the cubic.
BENCHMARK_CAPTURE(BM_Vdn, Cubic, 201, 300.0, 2e6);

void BM_Vvs(benchmark::State& state) {
    double T = 300.0, v = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(DprVvs(1, T, &v));
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(BM_Vvs);

// The natural gas vector in Y21 order, by catalogue id.
void BM_MixVvs21(benchmark::State& state) {
    std::array<int32_t, 21> ids = {1, 905, 909, 2,  3,  1921, 1922, 902, 908, 901, 4,
                                   5, 8,   7,   11, 17, 27,   46,   56,  913, 914};
    std::array<double, 21> y{};
    y.fill(0.004);
    y[0] = 0.92;
    double T = 300.0, v = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(DprMixVvs(21, ids.data(), T, y.data(), &v));
        benchmark::DoNotOptimize(v);
    }
}
BENCHMARK(BM_MixVvs21);

}  // namespace
