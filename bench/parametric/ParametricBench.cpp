// Sampling the rose r = sin(8t) on [0, 2 pi] from 100,000 starting points, refined to a quarter
// pixel of a 1920 x 1080 view at equal scales, and a Lissajous figure the same way; drawing the
// sampled rose into a 1920 x 1080 image as the screen draws it.
#include <numbers>

#include <benchmark/benchmark.h>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "parametric/CurveGraph.h"
#include "parametric/CurveRefiner.h"
#include "parametric/ParameterFormula.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "graph2d/GraphView.h"
#include "graph2d/ui/GraphPainter.h"
#include "parametric/ui/CurvePainter.h"

namespace curvemill {
namespace {

void sampleBench(benchmark::State& state, const char* first, const char* second) {
    Formula formula;
    prepareParameterFormula(formula, first, FormulaMode::Function);
    if (second != nullptr) {
        prepareParameterFormula(formula, second, FormulaMode::SecondFunction);
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

// Argument: starting points.
void BM_DrawRose(benchmark::State& state) {
    Formula formula;
    prepareParameterFormula(formula, "sin(8*t)", FormulaMode::Function);
    CurveGraph graph;
    graph.form = CurveForm::Polar;
    graph.firstText = "sin(8*t)";
    graph.tEnd = 2 * std::numbers::pi;
    graph.startPoints = static_cast<int>(state.range(0));
    runCurve(formula, graph, {});
    GraphView view;
    setViewSize(view, 1920, 1080);
    fitViewToCurve(view, graph);
    QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    GraphPainter graphPainter;
    CurvePainter painter;
    for (auto _ : state) {
        QPainter target(&image);
        painter.draw(graphPainter, target, graph, view);
    }
    state.counters["points"] = static_cast<double>(graph.points.size());
}
BENCHMARK(BM_DrawRose)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace curvemill

int main(int argc, char** argv) {
    // The painter's fonts need a GUI application; the offscreen platform serves without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
