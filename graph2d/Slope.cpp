#include "graph2d/Slope.h"

#include <cmath>

#include "graph2d/SampledFunction.h"

namespace curvemill {

namespace {

constexpr double kFirstStep = 0.00001;
constexpr double kShallow = 0.1;

}  // namespace

SlopeResult slopeAt(Formula& formula, int slot, double x, double y) {
    const CurveFunction f(formula, slot);
    const FunctionValue ahead = f(x + kFirstStep);
    if (ahead.indefinite) {
        return {};
    }
    const double s = (ahead.value - y) / kFirstStep;
    if (std::fabs(s) < kShallow) {
        return {true, s};
    }
    // A steep curve: step just far enough for y to change by a small fraction of itself, so the
    // difference is not swamped by the curvature of a fixed step.
    double d = std::fabs(y) < 0.0001 ? 1e-10 : std::fabs(y) * 1e-7;
    if (s <= 0) {
        d = -d;
    }
    const double h = d / s;
    const FunctionValue there = f(x + h);
    if (there.indefinite || !std::isfinite(h)) {
        return {};
    }
    return {true, (there.value - y) / h};
}

}  // namespace curvemill
