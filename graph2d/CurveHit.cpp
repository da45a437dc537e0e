#include "graph2d/CurveHit.h"

#include <cstdio>
#include <limits>

namespace curvemill {

namespace {

constexpr double kMostSquaredPixels = 25.0;

}  // namespace

CurveHit curveUnderMouse(const TwoDGraph& graph, const GraphView& view, double column, double row) {
    const double x = view.graphX(column);
    const double y = view.graphY(row);
    const double sx = view.ppu * view.xZoom;
    const double sy = view.ppu * view.yZoom;
    const struct {
        const Curve* curve;
        const char* name;
    } curves[] = {{&graph.main, "FUNCTION"},
                  {&graph.integral, "INTEGRAL"},
                  {&graph.derivative, "DERIVATIVE"}};
    double best = std::numeric_limits<double>::infinity();
    CurveHit hit;
    const char* bestName = nullptr;
    for (const auto& [curve, name] : curves) {
        if (!curve->exists()) {
            continue;
        }
        for (const PlotPoint& p : *curve) {
            if (p.isIndefinite) {
                continue;
            }
            const double dx = (p.x - x) * sx;
            const double dy = (p.y - y) * sy;
            const double d = dx * dx + dy * dy;
            if (d < best) {
                best = d;
                bestName = name;
                hit.x = p.x;
                hit.y = p.y;
            }
        }
    }
    if (bestName != nullptr && best <= kMostSquaredPixels) {
        hit.name = bestName;
    }
    return hit;
}

std::string curveTooltip(const CurveHit& hit) {
    char text[128];
    std::snprintf(text, sizeof text, "%s x=%f y=%f", hit.name.c_str(), hit.x, hit.y);
    return text;
}

}  // namespace curvemill
