// One calculation as a page runs it: RunCalculation then RunFits on a filled store.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "Fits.h"
#include "ModDefaults.h"
#include "MvConfig.h"
#include "PhysicalProp.h"
#include "SND.h"
#include "clsExGlobalVars.h"

namespace {

using qdf::clsExGlobalVars;

void Common(clsExGlobalVars& s) {
    qdf::InitializeDefaults(s);
    s.UI_PEName = "Orifice Flange Taps [ISO5167-2 2003]";
    s.UI_PEPrimaryDeviceCode = 6;
    s.UI_PEDiameterStandard = 50.0;
    s.UI_PEPipeDiameterStandard = 100.0;
    s.UI_RangeTUnit = 35;
    s.UI_TempRefStandard = 288.15;
    s.UI_PressRefStandard = 101325.0;
}

void Range(clsExGlobalVars& s, double t1, double t2, double p1, double p2) {
    s.UI_RangeT1 = s.UI_RangeT1Standard = t1;
    s.UI_RangeT2 = s.UI_RangeT2Standard = t2;
    s.UI_RangeP1 = p1 / 1000.0;
    s.UI_RangeP2 = p2 / 1000.0;
    s.UI_RangeP1Standard = p1;
    s.UI_RangeP2Standard = p2;
}

void Run(benchmark::State& state, clsExGlobalVars& s) {
    for (auto _ : state) {
        int r = qdf::RunCalculation(s);
        r |= qdf::RunFits(s);
        if (r != 0) state.SkipWithError("calculation failed");
        benchmark::DoNotOptimize(s.Xmtr_DensCoeff[0]);
    }
}

void BM_Ethane3x4(benchmark::State& state) {
    clsExGlobalVars s;
    Common(s);
    std::vector<std::string> names;
    std::vector<int32_t> ids;
    qdf::SND::DprGetClist(names, ids);
    for (std::size_t i = 0; i < names.size(); ++i)
        if (names[i] == "ETHANE") s.UI_FluidNameMethodCode = ids[i];
    s.UI_FluidType = 2;
    s.UI_FluidCat = 6;
    s.UI_FluidName = "ETHANE";
    Range(s, 300.0, 360.0, 500e3, 2000e3);
    Run(state, s);
}
BENCHMARK(BM_Ethane3x4)->Unit(benchmark::kMicrosecond);

void BM_Aga8Detail7x9(benchmark::State& state) {
    clsExGlobalVars s;
    Common(s);
    s.UI_FluidType = 2;
    s.UI_FluidCat = 4;
    s.UI_FluidName = qdf::kAga8Detail;
    // ISO 12213-2 example gas 1, in percent.
    s.UI_DtlMethaneMole = 96.5;
    s.UI_DtlN2Mole = 0.3;
    s.UI_DtlCO2Mole = 0.6;
    s.UI_DtlEthaneMole = 1.8;
    s.UI_DtlPropaneMole = 0.45;
    s.UI_DtlIsobutaneMole = s.UI_DtlButaneMole = 0.1;
    s.UI_DtlIsoPentaneMole = 0.05;
    s.UI_DtlPentaneMole = 0.03;
    s.UI_DtlHexaneMole = 0.07;
    s.Mgt_GasDensTempDiv = 7;
    s.Mgt_GasDensPressDiv = 9;
    s.Mgt_GasDensDiv = 63;
    Range(s, 270.0, 330.0, 1e6, 10e6);
    Run(state, s);
}
BENCHMARK(BM_Aga8Detail7x9)->Unit(benchmark::kMicrosecond);

}  // namespace
