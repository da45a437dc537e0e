// Computing 101 x 101 and 501 x 501 surfaces, and one full redraw (projection, colours, filling)
// of each into a 1920 x 1080 image in each drawing mode, and one frame of the rotation animation
// as the screen draws it.
#include <atomic>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "graph3d/PixelRaster.h"
#include "graph3d/SurfaceCompute.h"
#include "graph3d/SurfaceRotation.h"
#include "graph3d/SurfaceScene.h"

#include <QImage>
#include <QPainter>

#include "graph3d/ui/SurfacePainter.h"

namespace curvemill {
namespace {

struct Case {
    const char* formula;
    double low;
    double high;
};

constexpr Case kCases[] = {{"sin(x)*cos(y)", -3, 3}, {"x^2+y^2", -1, 1}};

// In the order of DrawingMode.

std::unique_ptr<SurfaceScene> computed(const Case& c, int intervals, Formula& formula) {
    auto scene = std::make_unique<SurfaceScene>();
    prepareFormula(formula, c.formula, FormulaMode::TwoVariables);
    SurfaceGrid& grid = scene->grid;
    grid.xBegin = grid.yBegin = c.low;
    grid.xEnd = grid.yEnd = c.high;
    grid.requestedNx = grid.requestedNy = intervals;
    const std::atomic<bool> keep{true};
    computeSurface(formula, grid, {}, keep);
    startNewFigure(*scene);
    scene->complete = true;
    return scene;
}

// Arguments: case index, intervals along each axis.
void BM_Compute(benchmark::State& state) {
    const Case& c = kCases[state.range(0)];
    const int intervals = static_cast<int>(state.range(1));
    Formula formula;
    prepareFormula(formula, c.formula, FormulaMode::TwoVariables);
    SurfaceGrid grid;
    grid.xBegin = grid.yBegin = c.low;
    grid.xEnd = grid.yEnd = c.high;
    grid.requestedNx = grid.requestedNy = intervals;
    const std::atomic<bool> keep{true};
    for (auto _ : state) {
        benchmark::DoNotOptimize(computeSurface(formula, grid, {}, keep));
    }
    state.SetLabel(std::string(c.formula) + " " + std::to_string(intervals + 1) + "^2");
}
BENCHMARK(BM_Compute)->ArgsProduct({{0, 1}, {100, 500}})->Unit(benchmark::kMillisecond);

// Arguments: drawing mode (polygons, lines, pixels), intervals. sin(x)*cos(y) on [-3, 3]^2.
void BM_Redraw(benchmark::State& state) {
    Formula formula;
    const auto scene = computed(kCases[0], static_cast<int>(state.range(1)), formula);
    scene->drawing.mode = static_cast<DrawingMode>(state.range(0));
    QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        paintSurface(painter, *scene, image.size());
    }
    state.SetLabel(std::string(kDrawingModeNames[state.range(0)]) + " " +
                   std::to_string(state.range(1) + 1) + "^2");
}
BENCHMARK(BM_Redraw)->ArgsProduct({{0, 1, 2}, {100, 500}})->Unit(benchmark::kMillisecond);

// One frame of the animation on screen: the next angles, the background, and the whole figure
// drawn through the pixel raster the screen's redraw uses. Arguments: drawing mode, intervals.
// 50 frames a second are asked for: a frame must take well under 20 ms.
void BM_AnimationFrame(benchmark::State& state) {
    Formula formula;
    const auto scene = computed(kCases[0], static_cast<int>(state.range(1)), formula);
    scene->drawing.mode = static_cast<DrawingMode>(state.range(0));
    QImage image(1920, 1080, QImage::Format_ARGB32_Premultiplied);
    const PixelBuffer pixels{reinterpret_cast<std::uint32_t*>(image.bits()), image.width(),
                             image.height(), image.bytesPerLine() / 4};
    RotationAnimation animation;
    animation.start({}, RotationAxis::kZ, 30);
    int frame = 0;
    for (auto _ : state) {
        applyRotation(scene->view, animation.anglesAt(frame++ / 50.0));
        image.fill(Qt::white);
        RasterSurfaceSink sink(pixels);
        const DrawingPlan plan = prepareDrawing(*scene, image.width(), image.height());
        drawLines(*scene, plan, 0, lineCount(*scene, plan.pass), sink);
        benchmark::DoNotOptimize(image.constBits());
    }
    state.SetLabel(std::string(kDrawingModeNames[state.range(0)]) + " " +
                   std::to_string(state.range(1) + 1) + "^2");
}
BENCHMARK(BM_AnimationFrame)->ArgsProduct({{0, 1, 2}, {100}})->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace curvemill

BENCHMARK_MAIN();
