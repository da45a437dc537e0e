#include "graph2d/PartialGraph.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

namespace {

std::array<Curve*, 4> curvesOf(TwoDGraph& graph) {
    return {&graph.main, &graph.second, &graph.derivative, &graph.integral};
}

}  // namespace

void PartialGraph::start(const TwoDGraph& full, const GraphView& view) {
    graph_ = full;
    graph_.samplingRecords.clear();
    areaLast_ = full.areaLast;
    const double xBegin = view.visibleXBegin();
    const double xEnd = view.visibleXEnd();
    const auto curves = curvesOf(graph_);
    for (std::size_t c = 0; c < curves.size(); ++c) {
        const Curve& curve = *curves[c];
        Stretch& s = stretches_[c];
        s.count = curve.exists() ? curve.pointCount : 0;
        if (s.count == 0) {
            s = {};
            continue;
        }
        // Records run in x order; the drawing starts with the last one left of the view.
        const PlotPoint* begin = curve.begin();
        const PlotPoint* end = curve.end();
        const PlotPoint* left =
            std::partition_point(begin, end, [xBegin](const PlotPoint& p) { return p.x < xBegin; });
        const PlotPoint* right =
            std::partition_point(begin, end, [xEnd](const PlotPoint& p) { return p.x <= xEnd; });
        s.first = static_cast<int>(std::max<std::ptrdiff_t>(0, left - begin - 1));
        s.last = static_cast<int>(std::min<std::ptrdiff_t>(s.count - 1, right - begin));
    }
}

void PartialGraph::show(double fraction) {
    const double f = std::clamp(std::isfinite(fraction) ? fraction : 1.0, 0.0, 1.0);
    const auto curves = curvesOf(graph_);
    for (std::size_t c = 0; c < curves.size(); ++c) {
        const Stretch& s = stretches_[c];
        if (s.count == 0) {
            continue;
        }
        const int shown =
            f >= 1.0 ? s.count : s.first + static_cast<int>((s.last - s.first + 1) * f);
        curves[c]->pointCount = std::clamp(shown, 0, s.count);
    }
    graph_.areaLast = std::min(areaLast_, graph_.main.pointCount - 1);
}

}  // namespace curvemill
