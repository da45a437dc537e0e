// Finds where a defined stretch of a curve ends next to an indefinite sample.
#pragma once

#include "graph2d/SampledFunction.h"

namespace curvemill {

struct EdgePoint {
    double x = 0.0;
    double y = 0.0;
};

// Walks from `defined` (x where f has a value) toward `indefiniteX` in fiftieths, narrowing onto
// the boundary up to 501 times, and stops early once |y| at the edge exceeds `yLimit` (the curve
// runs off to infinity there) or a repeat changes nothing. Works in either direction.
EdgePoint findEdge(const CurveFunction& f, EdgePoint defined, double indefiniteX, double yLimit,
                   YExtent& extent);

}  // namespace curvemill
