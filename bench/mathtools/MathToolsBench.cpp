// Speed of the math tools on the largest curve the Function dialog allows.
#include <benchmark/benchmark.h>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "mathtools/Integral.h"
#include "mathtools/IntegralCurve.h"
#include "mathtools/PreciseIntegral.h"
#include "mathtools/RootScan.h"

namespace curvemill {
namespace {

constexpr int kPoints = 400000;

// sin(x)/x*80 over [-10, 10] at 400,000 points, ready to integrate over the whole range.
struct IntegralSetup {
    Formula formula;
    TwoDGraph graph;
    IntegralState state;

    IntegralSetup() {
        prepareFormula(formula, "sin(x)/x*80", FormulaMode::Function);
        graph.xBegin = -10.0;
        graph.xEnd = 10.0;
        graph.pointsPerRun = kPoints;
        sampleCurve(graph, formula, {});
        state.begin = -10.0;
        state.end = 10.0;
        canIntegrate(graph.main, formula, state);
    }
};

void BM_IntegrateQuick(benchmark::State& bench) {
    IntegralSetup s;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(integrateQuick(s.graph.main, s.formula, s.state));
    }
    bench.counters["records"] = s.graph.main.pointCount;
    bench.SetLabel(s.state.resultText);
}

void BM_IntegratePrecise(benchmark::State& bench) {
    IntegralSetup s;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(integratePrecise(s.graph.main, s.formula, s.state, {}));
    }
    bench.counters["records"] = s.graph.main.pointCount;
    bench.SetLabel(s.state.resultText);
}

// The integral curve over the same records; after the first run the curve's memory is reused.
void BM_IntegralCurve(benchmark::State& bench) {
    IntegralSetup s;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(buildIntegralCurve(s.graph, s.formula, {}));
    }
    bench.counters["records"] = s.graph.main.pointCount;
}

void BM_FindRoots(benchmark::State& bench) {
    Formula formula;
    prepareFormula(formula, "x*x-y", FormulaMode::TwoVariables);
    std::size_t found = 0;
    for (auto _ : bench) {
        const RootScanResult r = findRoots(formula, RootKind::kX, 4.0, {-5, 5, -5, 5}, {},
                                           {static_cast<int>(bench.range(0)), 500, 5});
        found = r.solutions.size();
        benchmark::DoNotOptimize(found);
    }
    bench.counters["solutions"] = static_cast<double>(found);
}

BENCHMARK(BM_IntegrateQuick)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IntegratePrecise)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IntegralCurve)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindRoots)->Arg(500)->Arg(5000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace curvemill

BENCHMARK_MAIN();
