// Which curve lies under the mouse, for the tooltips over the graph.
#pragma once

#include <string>

#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

struct CurveHit {
    // "FUNCTION", "INTEGRAL" or "DERIVATIVE"; empty when no curve is within 5 pixels.
    std::string name;
    // The nearest record of that curve.
    double x = 0.0;
    double y = 0.0;
};

// Searches the main curve, then the integral, then the derivative (not the second function) for
// the record nearest to the pixel (column, row); a later record wins only when strictly nearer.
CurveHit curveUnderMouse(const TwoDGraph& graph, const GraphView& view, double column, double row);

// "%s x=%f y=%f" of a hit.
std::string curveTooltip(const CurveHit& hit);

}  // namespace curvemill
