// Cost per call of the water and steam operations, region selection included.
#include <benchmark/benchmark.h>

#include "water_cases.h"

using water::BM_IapwsTs;
using water::BM_Op;
using water::kRegion1;
using water::kRegion2;
using water::kRegion3;

BENCHMARK(BM_Op<IapwsLdnw, kRegion1>)->Name("IapwsLdnw/region1");
BENCHMARK(BM_Op<IapwsVdnw, kRegion2>)->Name("IapwsVdnw/region2");
BENCHMARK(BM_Op<IapwsVdnw, kRegion3>)->Name("IapwsVdnw/region3");
BENCHMARK(BM_Op<IapwsLvs, kRegion1>)->Name("IapwsLvs/region1");
BENCHMARK(BM_Op<IapwsVvs, kRegion2>)->Name("IapwsVvs/region2");
BENCHMARK(BM_Op<IapwsVkap, kRegion2>)->Name("IapwsVkap/region2");
BENCHMARK(BM_IapwsTs)->Name("IapwsTs");
