#pragma once
// Water and steam operations timed over a small set of points each, so that branch prediction
// does not see one point only; shared by the library's own benchmark and the grid benchmark.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "sndl/sndl_iapws.h"

namespace water {

struct Point {
    double T, p;
};

// Compressed liquid (region 1), superheated steam (region 2), dense fluid (region 3).
constexpr Point kRegion1[] = {{300, 1e6}, {350, 5e6}, {400, 20e6}, {500, 50e6}};
constexpr Point kRegion2[] = {{400, 1e5}, {500, 1e6}, {700, 10e6}, {900, 50e6}};
constexpr Point kRegion3[] = {{650, 25e6}, {700, 50e6}, {640, 21e6}, {750, 80e6}};

template <int32_t (*Op)(double, double, double*), const Point (&Points)[4]>
void BM_Op(benchmark::State& state) {
    double v = 0.0;
    int i = 0;
    for (auto _ : state) {
        const Point& pt = Points[i++ & 3];
        benchmark::DoNotOptimize(Op(pt.T, pt.p, &v));
        benchmark::DoNotOptimize(v);
    }
}

inline void BM_IapwsTs(benchmark::State& state) {
    constexpr double kP[] = {1e3, 1e5, 1e6, 20e6};
    double T = 0.0;
    int i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(IapwsTs(kP[i++ & 3], &T));
        benchmark::DoNotOptimize(T);
    }
}

}  // namespace water
