// Sampling and drawing speed of 400,000-point curves, the largest the Function dialog allows.
#include <cstdlib>
#include <string>

#include <benchmark/benchmark.h>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/GraphView.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "graph2d/ui/GraphPainter.h"

namespace curvemill {
namespace {

struct Case {
    const char* formula;
    double xBegin;
    double xEnd;
};

// The third has 13 indefinite stretches, each edge searched down to the resolution of x.
constexpr Case kCases[] = {
    {"sin(x)/x*80", -10.0, 10.0}, {"tan(x)", -20.0, 20.0}, {"Sqr(sin(x))", -20.0, 20.0}};
constexpr int kPoints = 400000;

void prepare(Formula& formula, TwoDGraph& graph, const Case& c) {
    prepareFormula(formula, c.formula, FormulaMode::Function);
    graph.xBegin = c.xBegin;
    graph.xEnd = c.xEnd;
    graph.pointsPerRun = kPoints;
    graph.mainFormulaText = c.formula;
}

void BM_Sample(benchmark::State& state) {
    const Case& c = kCases[state.range(0)];
    Formula formula;
    TwoDGraph graph;
    prepare(formula, graph, c);
    for (auto _ : state) {
        sampleCurve(graph, formula, {});
        benchmark::DoNotOptimize(graph.main.pointCount);
    }
    state.SetLabel(c.formula);
    state.counters["records"] = graph.main.pointCount;
}

// Second argument: 0 unsmoothed, 1 smooth, 2 smooth on a target of device pixel ratio 2 (a
// 3840x2160 image showing the same 1920x1080 layout).
void BM_Draw1920x1080(benchmark::State& state) {
    const Case& c = kCases[state.range(0)];
    const int mode = static_cast<int>(state.range(1));
    Formula formula;
    TwoDGraph graph;
    prepare(formula, graph, c);
    sampleCurve(graph, formula, {});
    GraphView view;
    view.gridOn = true;
    view.smoothLines = mode != 0;
    setViewSize(view, 1920, 1080);
    resetView(view, graph);
    fitGraphHeight(view);
    const int ratio = mode == 2 ? 2 : 1;
    QImage image(1920 * ratio, 1080 * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    GraphPainter painter;
    for (auto _ : state) {
        QPainter p(&image);
        painter.draw(p, graph, view);
    }
    state.SetLabel(std::string(c.formula) + (mode == 0 ? " unsmoothed" : " smooth") +
                   (mode == 2 ? " x2" : ""));
}

BENCHMARK(BM_Sample)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Draw1920x1080)->ArgsProduct({{0, 1}, {0, 1, 2}})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace curvemill

int main(int argc, char** argv) {
    // Fonts need an application object; benchmarks run without a display.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
