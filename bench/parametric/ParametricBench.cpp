// Sampling the rose r = sin(8t) on [0, 2 pi] from 100,000 starting points, refined to a quarter
// pixel of a 1920 x 1080 view at equal scales, and a Lissajous figure the same way.
#include <numbers>

#include <benchmark/benchmark.h>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "parametric/CurveRefiner.h"
#include "parametric/ParameterFormula.h"

namespace curvemill {
namespace {

void sampleBench(benchmark::State& state, const char* first, const char* second) {
    Formula formula;
    prepareParameterFormula(formula, first, kModeFunction);
    if (second != nullptr) {
        prepareParameterFormula(formula, second, kModeSecondFunction);
    }
    const CurveAt curve =
        curveOf(formula, second != nullptr ? CurveForm::Parametric : CurveForm::Polar);
    RefineSettings settings;
    settings.tEnd = 2 * std::numbers::pi;
    settings.startPoints = static_cast<int>(state.range(0));
    // Both curves fit in [-1, 1] x [-1, 1]: 2 units over the view's 1080 pixels.
    settings.xPerPixel = settings.yPerPixel = 2.0 / 1080;
    std::size_t points = 0;
    for (auto _ : state) {
        const CurveSampling sampling = refineCurve(curve, settings, {});
        points = sampling.points.size();
        benchmark::DoNotOptimize(sampling.points.data());
    }
    state.counters["points"] = static_cast<double>(points);
}

void BM_Rose(benchmark::State& state) {
    sampleBench(state, "sin(8*t)", nullptr);
}
BENCHMARK(BM_Rose)->Arg(100'000)->Arg(1'000)->Unit(benchmark::kMillisecond);

void BM_Lissajous(benchmark::State& state) {
    sampleBench(state, "sin(3*t)", "sin(2*t)");
}
BENCHMARK(BM_Lissajous)->Arg(100'000)->Arg(1'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace curvemill

BENCHMARK_MAIN();
