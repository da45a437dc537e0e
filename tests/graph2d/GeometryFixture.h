// A 400 x 300 plotting area showing x in [0, 10] and y in [-3.75, 3.75] at 40 pixels per unit.
#pragma once

#include <vector>

#include "graph2d/GraphView.h"
#include "graph2d/PlotPoint.h"

namespace curvemill {

inline GraphView testView() {
    GraphView view;
    setViewSize(view, 400 + 2 * view.marginX, 300 + 2 * view.marginY);
    setViewRanges(view, 0.0, 10.0, -3.75, 3.75);
    return view;
}

inline PlotPoint point(double x, double y, bool isBreak = false, bool indefinite = false) {
    PlotPoint p;
    p.x = x;
    p.y = y;
    p.isBreak = isBreak ? 1 : 0;
    p.isIndefinite = indefinite ? 1 : 0;
    return p;
}

}  // namespace curvemill
