// The cost the failure guard adds to every delivered event: entering and leaving one guard.
#include <benchmark/benchmark.h>

#include "failure/FailureGuard.h"

namespace {

void BM_GuardAroundEmptyWork(benchmark::State& state) {
    curvemill::installFaultTranslation();
    int counter = 0;
    for (auto _ : state) {
        auto failure = curvemill::catchFailure(curvemill::kProcMainWindow, [&] { ++counter; });
        benchmark::DoNotOptimize(failure);
    }
    benchmark::DoNotOptimize(counter);
}
BENCHMARK(BM_GuardAroundEmptyWork);

}  // namespace
