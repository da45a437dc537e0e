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
        const double endBefore = end;
        // Every sub-step is walked, the fiftieth too: rounding may put it just inside the defined
        // stretch. The steps are taken in extended precision like the sampler's dx: among the
        // smallest doubles a fiftieth of the interval rounds to nothing in 64 bits, and the walk
        // would stand still short of the boundary.
        const long double h = (static_cast<long double>(end) - start) / kSubSteps;
        for (int j = 1; j <= kSubSteps; ++j) {
            const double x = static_cast<double>(start + j * h);
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
        // A repeat that moved neither end would walk the same points again: the function gives
        // the same values, so the repeats left cannot find anything new.
        if (edge.x == start && end == endBefore) {
            break;
        }
    }
    return edge;
}

}  // namespace curvemill
