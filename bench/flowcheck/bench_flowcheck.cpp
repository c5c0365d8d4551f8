// The flow check as the view opens it: 10 x 10 x 10 points of a natural gas by the AGA8 detail
// method, both sides and the split into sources, on a configuration already calculated.

#include <benchmark/benchmark.h>

#include <string>

#include "CheckInput.h"
#include "DeviceEquation.h"
#include "FlowCheck.h"
#include "clsExGlobalVars.h"

namespace {

void BM_NaturalGasDetail10x10x10(benchmark::State& state) {
    qdf::clsExGlobalVars s;
    qdf::flowcheck::LoadConfigurationForCheck(
        s, std::string(QDF_SOURCE_DIR) + "/examples/natural_gas_aga8_detail.qmv");
    const qdf::flowcheck::DeviceParameters params = qdf::flowcheck::ParametersFromStore(s);
    qdf::flowcheck::FlowCheckOptions options;
    options.dpMaxPa = 25000.0;
    for (auto _ : state) {
        const auto r = qdf::flowcheck::RunFlowCheck(s, params, options);
        if (r.points.size() != 1000) state.SkipWithError("not a 10 x 10 x 10 grid");
        benchmark::DoNotOptimize(r.worstError);
    }
}
BENCHMARK(BM_NaturalGasDetail10x10x10)->Unit(benchmark::kMillisecond);

}  // namespace
