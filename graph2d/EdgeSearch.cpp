#include "graph2d/EdgeSearch.h"

namespace curvemill {

namespace {

constexpr int kSubSteps = 50;
constexpr int kMaxRepeats = 501;

}  // namespace

EdgePoint findEdge(const CurveFunction& f, EdgePoint defined, double indefiniteX, double yLimit,
                   YExtent& extent) {
    EdgePoint edge = defined;
    double end = indefiniteX;
    for (int repeat = 0; repeat < kMaxRepeats; ++repeat) {
        const double start = edge.x;
        const double h = (end - start) / kSubSteps;
        if (start + h == start) {
            break;
        }
        // The end itself is known to be indefinite, so the walk stops one sub-step short of it.
        for (int j = 1; j < kSubSteps; ++j) {
            const double x = start + j * h;
            const FunctionValue v = f(x);
            if (v.indefinite) {
                end = x;
                break;
            }
            edge = {x, v.value};
            extent.take(v.value);
        }
        if (std::fabs(edge.y) > yLimit) {
            break;
        }
    }
    return edge;
}

}  // namespace curvemill
