// A 400 x 300 plotting area showing x in [0, 10] and y in [-3.75, 3.75] at 40 pixels per unit.
#pragma once

#include <functional>
#include <vector>

#include "graph2d/Curve.h"
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

inline void setCurve(Curve& curve, const std::vector<PlotPoint>& points) {
    curve.points = points;
    curve.pointCount = static_cast<int>(points.size());
}

// `count` records at x = x0 .. x1 evenly spaced, with y = f(i).
inline std::vector<PlotPoint> line(int count, double x0, double x1,
                                   const std::function<double(int)>& f) {
    std::vector<PlotPoint> points;
    for (int i = 0; i < count; ++i) {
        points.push_back(point(x0 + (x1 - x0) * i / (count - 1), f(i)));
    }
    return points;
}

}  // namespace curvemill
