// Cost per call of each property operation that a calculation grid makes, and its ratio to
// the natural gas detail call with a new composition, measured in the same run: ratios can be
// compared across machines where nanoseconds cannot. Each benchmark walks a small set of
// points so that branch prediction does not see a single point.
//
// After the usual output a table gives, per operation, the median (or only) time per call and
// the ratio; the reference-equation vapour density also reports the pressure evaluations of
// its density solve per call ("evals").
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "../sndl_iapws/water_cases.h"
#include "gerg_pure.hpp"
#include "sndl/dippr_catalogue.hpp"
#include "sndl/sndl_aga.h"
#include "sndl/sndl_dippr.h"
#include "sndl/sndl_iapws.h"

namespace {

using Y21 = std::array<double, 21>;

// A 13-component natural gas in the detail method's order, inside the ISO ranges too.
constexpr Y21 kGas = {0.89375, 0.0080, 0.0160, 0.0500, 0.0180, 0, 0, 0, 0,      0,      0.0040,
                      0.0050,  0.0015, 0.0020, 0.0008, 0.0004, 0, 0, 0, 0.0004, 0.00015};

constexpr int kGases = 256;

// The gas above with each minor fraction varied by up to 20 percent, methane the balance.
std::vector<Y21> Gases() {
    std::vector<Y21> out(kGases, kGas);
    uint32_t seed = 12345;
    for (auto& y : out) {
        double rest = 0.0;
        for (int i = 1; i < 21; ++i) {
            seed = seed * 1664525u + 1013904223u;
            y[i] *= 0.8 + 0.4 * (seed >> 8) / double(1u << 24);
            rest += y[i];
        }
        y[0] = 1.0 - rest;
    }
    return out;
}

// The wizard's natural gas grid range: four temperatures by four pressures.
constexpr double kGridT[] = {263.15, 288.15, 313.15, 338.15};
constexpr double kGridP[] = {0.5e6, 2e6, 6e6, 12e6};

void BM_AgaDtlNewGas(benchmark::State& state) {
    const auto gases = Gases();
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        Y21 y = gases[k % kGases];
        benchmark::DoNotOptimize(
            AgaDtlVdnMw(kGridT[(k / 4) % 4], kGridP[k % 4], y.data(), &vdn, &mw));
        benchmark::DoNotOptimize(vdn);
        ++k;
    }
}

template <int32_t (*Op)(double, double, double*, double*, double*)>
void BM_DetailSameGas(benchmark::State& state) {
    Y21 y = kGas;
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Op(kGridT[(k / 4) % 4], kGridP[k % 4], y.data(), &vdn, &mw));
        benchmark::DoNotOptimize(vdn);
        ++k;
    }
}

void BM_AgaGr1(benchmark::State& state) {
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        double x[4] = {0.0, 0.016, 0.0, 0.0};
        benchmark::DoNotOptimize(
            AgaGr1VdnMw(kGridT[(k / 4) % 4], kGridP[k % 4], 40.0, 0.62, x, 4, &vdn, &mw));
        ++k;
    }
}

void BM_AgaGr2(benchmark::State& state) {
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        double x[4] = {0.008, 0.016, 0.0, 0.0};
        benchmark::DoNotOptimize(
            AgaGr2VdnMw(kGridT[(k / 4) % 4], kGridP[k % 4], 0.62, x, 4, &vdn, &mw));
        ++k;
    }
}

void BM_IsoPpm(benchmark::State& state) {
    size_t k = 0;
    double vdn = 0, mw = 0;
    for (auto _ : state) {
        double x[4] = {0.0, 0.016, 0.0, 0.0};
        benchmark::DoNotOptimize(
            IsoPpmVdnMw(kGridT[(k / 4) % 4], kGridP[k % 4], 41.0, 0.63, x, 0, &vdn, &mw));
        ++k;
    }
}

struct Point {
    double T, P;
};

// Pressure evaluations per call of the reference-equation solve over the points.
double EvaluationsPerCall(int32_t id, const std::vector<Point>& pts) {
    const auto& c = sndl::dippr::kComponents[sndl::dippr::FindById(id)];
    if (c.gerg < 0) return 0.0;
    long n = 0;
    for (const Point& p : pts)
        n += sndl::gerg::Solve(sndl::gerg::kFluids[c.gerg], p.T, p.P / 1000.0,
                               sndl::dippr::GergHint(c, p.T, p.P / 1000.0))
                 .evaluations;
    return double(n) / double(pts.size());
}

void RunVdn(benchmark::State& state, int32_t id, const std::vector<Point>& pts) {
    size_t k = 0;
    double v = 0;
    for (auto _ : state) {
        const Point& p = pts[k++ % pts.size()];
        benchmark::DoNotOptimize(DprVdn(id, p.T, p.P, &v));
        benchmark::DoNotOptimize(v);
    }
    state.counters["evals"] = EvaluationsPerCall(id, pts);
}

void BM_VdnPoint(benchmark::State& state, int32_t id, double T, double P) {
    RunVdn(state, id, {{T, P}});
}

// A gas grid of 63 points: 7 temperatures by 9 pressures, with both ends inclusive.
std::vector<Point> Grid(double t0, double t1, double p0, double p1) {
    std::vector<Point> pts;
    for (int i = 0; i < 7; ++i) {
        for (int j = 0; j < 9; ++j)
            pts.push_back({t0 + (t1 - t0) * i / 6.0, p0 + (p1 - p0) * j / 8.0});
    }
    return pts;
}

void BM_VdnGrid(benchmark::State& state, int32_t id, double t0, double t1, double p0, double p1) {
    RunVdn(state, id, Grid(t0, t1, p0, p1));
}

template <int32_t (*Op)(int32_t, double, double*)>
void BM_Correlation(benchmark::State& state) {
    constexpr double kT[] = {250.0, 300.0, 350.0, 400.0};
    size_t k = 0;
    double v = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Op(905, kT[k++ & 3], &v));
        benchmark::DoNotOptimize(v);
    }
}

void BM_DprMw(benchmark::State& state) {
    double v = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(DprMw(905, &v));
        benchmark::DoNotOptimize(v);
    }
}

// The natural gas vector by catalogue id, as the wizard passes a mixture.
constexpr std::array<int32_t, 21> kIds = {1, 905, 909, 2,  3,  1921, 1922, 902, 908, 901, 4,
                                          5, 8,   7,   11, 17, 27,   46,   56,  913, 914};

void BM_MixVdn(benchmark::State& state) {
    auto ids = kIds;
    Y21 y = kGas;
    size_t k = 0;
    double v = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            DprMixVdn(21, ids.data(), kGridT[(k / 4) % 4], kGridP[k % 4], y.data(), &v));
        ++k;
    }
}

template <int32_t (*Op)(int32_t, int32_t*, double, double*, double*)>
void BM_Mix(benchmark::State& state) {
    auto ids = kIds;
    Y21 y = kGas;
    size_t k = 0;
    double v = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Op(21, ids.data(), kGridT[k++ & 3], y.data(), &v));
    }
}

using water::BM_IapwsTs;
using water::kRegion1;
using water::kRegion2;

constexpr const char* kReference = "AgaDtlVdnMw/new_gas";

// Names in registration order, for the summary table.
std::vector<std::string>& Names() {
    static std::vector<std::string> names;
    return names;
}

template <class... Args>
void Add(const char* name, Args&&... args) {
    Names().push_back(name);
    benchmark::RegisterBenchmark(name, std::forward<Args>(args)...);
}

void Register() {
    Add(kReference, BM_AgaDtlNewGas);
    Add("AgaDtlVdnMw/same_gas", BM_DetailSameGas<AgaDtlVdnMw>);
    Add("IsoMcaVdnMw/same_gas", BM_DetailSameGas<IsoMcaVdnMw>);
    Add("AgaGr1VdnMw", BM_AgaGr1);
    Add("AgaGr2VdnMw", BM_AgaGr2);
    Add("IsoPpmVdnMw", BM_IsoPpm);
    // Reference equations: methane well above Tc; ethane (Tc 305.3 K) and carbon dioxide
    // (Tc 304.1 K) below and above their critical temperatures.
    Add("DprVdn/methane_288K_5MPa", BM_VdnPoint, 1, 288.15, 5e6);
    Add("DprVdn/methane_170K_1MPa", BM_VdnPoint, 1, 170.0, 1e6);
    Add("DprVdn/ethane_280K_2MPa", BM_VdnPoint, 2, 280.0, 2e6);
    Add("DprVdn/ethane_330K_5MPa", BM_VdnPoint, 2, 330.0, 5e6);
    Add("DprVdn/co2_280K_3MPa", BM_VdnPoint, 909, 280.0, 3e6);
    Add("DprVdn/co2_320K_8MPa", BM_VdnPoint, 909, 320.0, 8e6);
    Add("DprVdn/methane_grid63", BM_VdnGrid, 1, 250.0, 350.0, 0.1e6, 10e6);
    Add("DprVdn/ethane_grid63", BM_VdnGrid, 2, 280.0, 380.0, 0.1e6, 4e6);
    Add("DprVdn/co2_grid63", BM_VdnGrid, 909, 260.0, 360.0, 0.1e6, 3e6);
    Add("DprVdn/cubic_ethylene", BM_VdnPoint, 201, 300.0, 2e6);
    Add("DprIcp", BM_Correlation<DprIcp>);
    Add("DprVvs", BM_Correlation<DprVvs>);
    Add("DprLdn", BM_Correlation<DprLdn>);
    Add("DprLvs", BM_Correlation<DprLvs>);
    Add("DprMw", BM_DprMw);
    Add("DprMixVdn/21", BM_MixVdn);
    Add("DprMixIcp/21", BM_Mix<DprMixIcp>);
    Add("DprMixVvs/21", BM_Mix<DprMixVvs>);
    Add("IapwsVdnw", water::BM_Op<IapwsVdnw, kRegion2>);
    Add("IapwsLdnw", water::BM_Op<IapwsLdnw, kRegion1>);
    Add("IapwsVvs", water::BM_Op<IapwsVvs, kRegion2>);
    Add("IapwsLvs", water::BM_Op<IapwsLvs, kRegion1>);
    Add("IapwsVkap", water::BM_Op<IapwsVkap, kRegion2>);
    Add("IapwsTs", BM_IapwsTs);
}

// The console output as usual, then the summary table: the median of repetitions where there
// are some, the single run otherwise.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& r : runs) {
            if (r.error_occurred) continue;
            const bool median = r.run_type == Run::RT_Aggregate && r.aggregate_name == "median";
            const std::string name = r.run_name.function_name + r.run_name.args;
            if (r.run_type == Run::RT_Aggregate && !median) continue;
            if (!median && medians_.count(name)) continue;  // a repetition: wait for the median
            Row& row = rows_[name];
            row.ns = r.GetAdjustedRealTime() * Scale(r.time_unit);
            auto it = r.counters.find("evals");
            row.evals = it == r.counters.end() ? -1.0 : double(it->second);
            if (median) medians_[name] = true;
        }
    }

    void Finalize() override {
        ConsoleReporter::Finalize();
        const auto ref = rows_.find(kReference);
        const double refNs = ref == rows_.end() ? 0.0 : ref->second.ns;
        std::printf("\n%-28s %12s %10s %8s\n", "operation", "ns/call", "ratio", "evals");
        for (const auto& name : Names()) {
            const auto it = rows_.find(name);
            if (it == rows_.end()) continue;  // filtered out
            const Row& row = it->second;
            std::printf("%-28s %12.1f %10.3f", name.c_str(), row.ns,
                        refNs > 0 ? row.ns / refNs : 0.0);
            if (row.evals >= 0) std::printf(" %8.2f", row.evals);
            std::printf("\n");
        }
    }

  private:
    struct Row {
        double ns = 0.0;
        double evals = -1.0;
    };
    static double Scale(benchmark::TimeUnit u) {
        switch (u) {
            case benchmark::kSecond:
                return 1e9;
            case benchmark::kMillisecond:
                return 1e6;
            case benchmark::kMicrosecond:
                return 1e3;
            default:
                return 1.0;
        }
    }
    std::map<std::string, Row> rows_;
    std::map<std::string, bool> medians_;
};

}  // namespace

int main(int argc, char** argv) {
    Register();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
