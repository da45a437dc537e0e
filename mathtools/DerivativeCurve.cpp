#include "mathtools/DerivativeCurve.h"

#include <cmath>

#include "engine/Formula.h"
#include "graph2d/SampledFunction.h"
#include "graph2d/Slope.h"

namespace curvemill {

namespace {

constexpr double kTooSteep = 1e10;

}  // namespace

bool buildDerivativeCurve(TwoDGraph& graph, Formula& formula, const SamplingControl& control) {
    const Curve& main = graph.main;
    Curve& derivative = graph.derivative;
    if (main.pointCount < 2 || main.points.size() < static_cast<std::size_t>(main.pointCount)) {
        derivative.release();
        return true;
    }
    const int count = main.pointCount - 1;
    std::vector<PlotPoint> records(static_cast<std::size_t>(count));
    ProgressTracker progress(control, graph.xBegin, graph.xEnd);
    YExtent extent;
    const PlotPoint* p = main.points.data();
    for (int i = 0; i < count; ++i) {
        progress.report(p[i].x);
        if (stopRequested(control, formula)) {
            derivative.release();
            return false;
        }
        PlotPoint& r = records[i];
        r.x = p[i].x;
        if (std::fabs(p[i].y) > kTooSteep || p[i].isIndefinite || p[i + 1].isIndefinite) {
            r.isIndefinite = 1;
            continue;
        }
        const SlopeResult slope = slopeAt(formula, kFunctionSlot, p[i].x, p[i].y);
        if (!slope.defined) {
            r.isIndefinite = 1;
            continue;
        }
        r.y = slope.value;
        if (p[i].isBreak) {
            // The slope beside a jump is real but huge; it must not stretch the view.
            r.isBreak = 1;
            continue;
        }
        extent.take(slope.value);
    }
    derivative.points = std::move(records);
    derivative.pointCount = count;
    derivative.yMin = extent.yMin;
    derivative.yMax = extent.yMax;
    return true;
}

}  // namespace curvemill
