// The Y range of the 2D view: the curves' extent, cut down to at most MaxYRatio times the X range.
#pragma once

#include "graph2d/TwoDGraph.h"

namespace curvemill {

struct YRange {
    double begin = 0.0;
    double end = 0.0;
};

// The extent of every existing curve (main, derivative, integral, second), without the cut.
YRange curvesYExtent(const TwoDGraph& graph);

// Cuts `extent` down to height (xEnd - xBegin) * maxYRatio around the part near the x axis.
YRange clampYRange(YRange extent, double xBegin, double xEnd, int maxYRatio);

// curvesYExtent followed by clampYRange with the graph's settings; always finite.
YRange viewYRange(const TwoDGraph& graph);

}  // namespace curvemill
