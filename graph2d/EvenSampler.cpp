#include "graph2d/EvenSampler.h"

#include <cmath>

namespace curvemill {

namespace {

constexpr double kJump = 5000.0;
constexpr double kHuge = 1e100;

bool isJump(const PlotPoint& before, const PlotPoint& after) {
    return std::fabs(after.y - before.y) > kJump || (after.y > kHuge && before.y > kHuge);
}

}  // namespace

bool sampleEvenly(const CurveFunction& f, double xBegin, double xEnd, int regularCount,
                  PointStore& store, YExtent& extent, ProgressTracker& progress,
                  const SamplingControl& control, const Formula& formula) {
    const long double span = static_cast<long double>(xEnd) - xBegin;
    const int n = regularCount > 0 ? regularCount : 1;
    for (int i = 0; i <= n; ++i) {
        const double x = i == n ? xEnd : static_cast<double>(xBegin + span * i / n);
        progress.report(x);
        if (stopRequested(control, formula)) {
            return false;
        }
        if (!store.empty() && x <= store.back().x) {
            continue;
        }
        const FunctionValue v = f(x);
        PlotPoint* p = store.push(x, v.value, v.indefinite);
        if (!p || v.indefinite) {
            continue;
        }
        extent.take(v.value);
        PlotPoint* before = store.fromEnd(2);
        if (before && !before->isIndefinite && isJump(*before, *p)) {
            before->isBreak = 1;
            p->isBreak = 1;
        }
    }
    if (store.empty() || store.back().x != xEnd) {
        // A reversed or empty range still leaves the record at its end.
        const FunctionValue v = f(xEnd);
        store.push(xEnd, v.value, v.indefinite);
        extent.take(v);
    }
    return true;
}

}  // namespace curvemill
