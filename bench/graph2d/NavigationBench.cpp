// What moving around a 400,000-point graph costs: the curve search behind each tooltip, the copy
// a "Show Drawing Process" redraw starts with, and one wheel notch with the redraw it causes.
#include <benchmark/benchmark.h>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/CurveHit.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/GraphView.h"
#include "graph2d/PartialGraph.h"
#include "graph2d/ViewZoom.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "graph2d/ui/GraphPainter.h"

namespace curvemill {
namespace {

struct Sampled {
    TwoDGraph graph;
    GraphView view;
};

// sin(x)/x*80 over -20..20 at the most points the dialog allows, on a 1280 x 800 window.
const Sampled& sampled() {
    static const Sampled s = [] {
        Sampled result;
        Formula formula;
        prepareFormula(formula, "sin(x)/x*80", FormulaMode::Function);
        result.graph.xBegin = -20;
        result.graph.xEnd = 20;
        result.graph.pointsPerRun = 400000;
        sampleCurve(result.graph, formula, {});
        setViewSize(result.view, 1280, 800);
        resetView(result.view, result.graph);
        return result;
    }();
    return s;
}

void BM_CurveUnderMouse(benchmark::State& state) {
    const Sampled& s = sampled();
    for (auto _ : state) {
        benchmark::DoNotOptimize(curveUnderMouse(s.graph, s.view, 640, 400));
    }
    state.counters["records"] = s.graph.main.pointCount;
}

void BM_DrawingProcessStart(benchmark::State& state) {
    const Sampled& s = sampled();
    PartialGraph partial;
    for (auto _ : state) {
        partial.start(s.graph, s.view);
        benchmark::DoNotOptimize(partial.graph().main.pointCount);
    }
}

// A notch in and a notch out about the same point, each followed by a full redraw.
void BM_WheelNotchAndRedraw(benchmark::State& state) {
    const Sampled& s = sampled();
    GraphView view = s.view;
    QImage image(1280, 800, QImage::Format_RGB32);
    GraphPainter painter;
    bool in = true;
    for (auto _ : state) {
        zoomAbout(view, ZoomAxis::kBoth, in ? kWheelNotchFactor : 1 / kWheelNotchFactor, 500, 300);
        in = !in;
        QPainter p(&image);
        painter.draw(p, s.graph, view);
    }
}

BENCHMARK(BM_CurveUnderMouse)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_DrawingProcessStart)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WheelNotchAndRedraw)->Unit(benchmark::kMillisecond);

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
