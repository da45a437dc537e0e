// Test builders for 2D curves from hand-made records.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "graph2d/Curve.h"
#include "graph2d/PlotPoint.h"

namespace curvemill {

inline PlotPoint point(double x, double y, bool isBreak = false, bool indefinite = false,
                       int peakKind = 0) {
    PlotPoint p{};
    p.x = x;
    p.y = y;
    p.isBreak = isBreak ? 1 : 0;
    p.isIndefinite = indefinite ? 1 : 0;
    p.peakKind = static_cast<std::uint8_t>(peakKind);
    return p;
}

inline void setCurve(Curve& curve, const std::vector<PlotPoint>& points) {
    curve.points = points;
    curve.pointCount = static_cast<int>(points.size());
}

inline Curve curveOf(const std::vector<PlotPoint>& points) {
    Curve curve;
    setCurve(curve, points);
    return curve;
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
