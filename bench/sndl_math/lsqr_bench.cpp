// Cost of the two density fits: the square 12 x 12 grid and the 63-point overdetermined one.
#include <benchmark/benchmark.h>

#include <vector>

#include "sndl/sndl_math.h"

namespace {

void Fill(int nT, int nP, std::vector<double>& X, std::vector<double>& Y) {
    X.resize(12 * nT * nP);
    Y.resize(nT * nP);
    int k = 0;
    for (int i = 0; i < nT; ++i)
        for (int j = 0; j < nP; ++j, ++k) {
            const double u = 1.0 / (400.0 + 20.0 * i), p = 100.0 + 100.0 * j;
            double pm = 1.0;
            for (int m = 0; m < 4; ++m, pm *= p) {
                X[12 * k + 3 * m] = pm;
                X[12 * k + 3 * m + 1] = pm * u;
                X[12 * k + 3 * m + 2] = pm * u * u;
            }
            Y[k] = p * 1e3 * u / 461.5;
        }
}

void BM_SolveLsqr(benchmark::State& state) {
    const int nT = static_cast<int>(state.range(0)), nP = static_cast<int>(state.range(1));
    std::vector<double> X0, Y, X, c(12), yCal(nT * nP);
    Fill(nT, nP, X0, Y);
    double sigma = 0.0;
    for (auto _ : state) {
        X = X0;  // the solver scales X in place
        benchmark::DoNotOptimize(SolveLsqr(X.data(), Y.data(), nT * nP, 0, 12, 12, c.data(),
                                           yCal.data(), &sigma, 1e-12));
        benchmark::DoNotOptimize(c.data());
    }
}

}  // namespace

BENCHMARK(BM_SolveLsqr)->Args({3, 4})->Name("SolveLsqr/12x12");
BENCHMARK(BM_SolveLsqr)->Args({7, 9})->Name("SolveLsqr/63x12");
