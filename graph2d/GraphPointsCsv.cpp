#include "graph2d/GraphPointsCsv.h"

#include <cmath>
#include <utility>
#include <vector>

#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "output/PointsCsv.h"

namespace curvemill {

std::optional<PixelRect> plottedPart(const GraphView& view, const std::optional<PixelRect>& part) {
    if (!part) {
        return std::nullopt;
    }
    // Curves are clipped to the plotting area: a point in the margins is not on the picture.
    return part->intersected({view.left, view.top, view.plotRight(), view.plotBottom()});
}

std::string twoDPointsCsv(const TwoDGraph& graph, const GraphView& view,
                          const std::optional<PixelRect>& part) {
    const std::optional<PixelRect> shown = plottedPart(view, part);
    const auto inside = [&view, &shown](const PlotPoint& point) {
        if (point.isIndefinite || !std::isfinite(point.y)) {
            return false;
        }
        return !shown || shown->contains(view.toPixelX(point.x), view.toPixelY(point.y));
    };
    const auto take = [&inside](const Curve& curve, std::string name) {
        CsvCurve taken{std::move(name), {}};
        if (curve.exists()) {
            for (const PlotPoint& point : curve) {
                if (inside(point)) {
                    taken.points.push_back({point.x, point.y});
                }
            }
        }
        return taken;
    };
    std::vector<CsvCurve> curves;
    curves.push_back(take(graph.main, "y = " + graph.mainFormulaText));
    if (graph.hasSecond()) {
        curves.push_back(take(graph.second, "y = " + graph.secondFormulaText));
    }
    if (graph.hasDerivative()) {
        curves.push_back(take(graph.derivative, "derivative"));
    }
    if (graph.hasIntegral()) {
        curves.push_back(take(graph.integral, "integral"));
    }
    return pointsCsv(curves);
}

}  // namespace curvemill
