#include "graph2d/ViewYRange.h"

#include <cmath>

namespace curvemill {

namespace {

void widen(YRange& range, const Curve& curve) {
    if (!curve.exists()) {
        return;
    }
    if (curve.yMin < range.begin) {
        range.begin = curve.yMin;
    }
    if (curve.yMax >= range.end) {
        range.end = curve.yMax;
    }
}

// Keeps infinities and NaN (a curve with no defined point has none of its own) away from pixels.
double finiteOr(double v, double fallback) {
    if (std::isnan(v)) {
        return fallback;
    }
    if (std::isinf(v)) {
        return v > 0 ? 1e300 : -1e300;
    }
    return v;
}

}  // namespace

YRange curvesYExtent(const TwoDGraph& graph) {
    YRange range{graph.main.yMin, graph.main.yMax};
    widen(range, graph.derivative);
    widen(range, graph.integral);
    widen(range, graph.second);
    return range;
}

YRange clampYRange(YRange extent, double xBegin, double xEnd, int maxYRatio) {
    double ymin = extent.begin;
    double ymax = extent.end;
    const double r = (xEnd - xBegin) * maxYRatio;
    const double h = r / 2;
    if (ymax - ymin >= r) {
        if (ymax > h && -h <= ymin && ymin <= h) {
            ymax = ymin + r;
        }
        if (ymin < -h && -h <= ymax && ymax <= h) {
            ymin = ymax - r;
        }
        if (ymin >= h) {
            ymax = ymin + r;
        }
        if (ymax <= -h) {
            ymin = ymax - r;
        }
        if (ymax > h && ymin < -h) {
            ymax = h;
            ymin = -h;
        }
    }
    return {ymin, ymax};
}

YRange viewYRange(const TwoDGraph& graph) {
    YRange extent = curvesYExtent(graph);
    if (extent.begin > extent.end) {
        // Nothing defined was met, so the extent still holds its start values +1e100/-1e100,
        // upside down; taking them would give a range of -1e100 height. Show the band -1..1
        // around the x axis instead, cut to the height the X range allows like any other.
        extent = {-1.0, 1.0};
    }
    YRange range = clampYRange(extent, graph.xBegin, graph.xEnd, graph.maxYRatio);
    range.begin = finiteOr(range.begin, -1.0);
    range.end = finiteOr(range.end, 1.0);
    return range;
}

}  // namespace curvemill
