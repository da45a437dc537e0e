#include "mathtools/IntegralCurve.h"

#include <cmath>
#include <cstddef>

#include "engine/Formula.h"
#include "graph2d/SampledFunction.h"

namespace curvemill {

// Trapezoids over the sampled records rather than new evaluations: the records are at most
// (xEnd - xBegin) / 10000 apart, with refined points added at turns and edges, so the trapezoid
// rule's error, (b - a) h^2 max|f''| / 12, stays some orders of magnitude below one pixel of any
// view the curve can be shown in; and one pass over memory already filled costs a fraction of one
// sampling run.
//
// Restart rule: the integral across a place where f has no value, or across a jump or pole, has no
// meaning the picture could show (near a pole it grows without bound). So F starts again at 0 at
// the first defined record after an indefinite one, and at the right-hand record of a jump (both
// records beside it carry isBreak, the same pair at which the drawing lifts its pen). The records
// around a restart keep the main curve's isBreak and isIndefinite flags so the drawing lifts its
// pen there too. A sum that overflows counts as no value and restarts likewise.
bool buildIntegralCurve(TwoDGraph& graph, const Formula& formula, const SamplingControl& control) {
    const Curve& main = graph.main;
    Curve& integral = graph.integral;
    if (main.pointCount < 1 || main.points.size() < static_cast<std::size_t>(main.pointCount)) {
        integral.release();
        return true;
    }
    const std::size_t count = static_cast<std::size_t>(main.pointCount);
    // The records live in the graph, not in this frame: a fault leaves it without unwinding.
    integral.pointCount = 0;
    integral.points.resize(count);
    PlotPoint* out = integral.points.data();
    const PlotPoint* in = main.points.data();
    ProgressTracker progress(control, graph.xBegin, graph.xEnd);
    YExtent extent;
    double sum = 0.0;
    bool restart = true;
    for (std::size_t i = 0; i < count; ++i) {
        const PlotPoint& p = in[i];
        PlotPoint& r = out[i];
        r = PlotPoint{};
        r.x = p.x;
        r.isBreak = p.isBreak;
        if ((i & 0x3ff) == 0) {
            progress.report(p.x);
            if (stopRequested(control, formula)) {
                integral.release();
                return false;
            }
        }
        if (p.isIndefinite) {
            r.isIndefinite = 1;
            restart = true;
            continue;
        }
        if (!restart && p.isBreak && in[i - 1].isBreak) {
            restart = true;
        }
        if (restart) {
            sum = 0.0;
            restart = false;
        } else {
            sum += 0.5 * (p.x - in[i - 1].x) * (p.y + in[i - 1].y);
            if (!std::isfinite(sum)) {
                r.isIndefinite = 1;
                restart = true;
                continue;
            }
        }
        r.y = sum;
        extent.take(sum);
    }
    progress.report(graph.xEnd);
    integral.pointCount = static_cast<std::int32_t>(count);
    integral.yMin = extent.yMin;
    integral.yMax = extent.yMax;
    return true;
}

}  // namespace curvemill
