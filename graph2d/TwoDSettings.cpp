#include "graph2d/TwoDSettings.h"

#include <algorithm>

#include "engine/DisplayFormat.h"
#include "graph2d/DrawStep.h"

namespace curvemill {

int ratioSpinTop(const TwoDGraph& graph) {
    const YRange extent = curvesYExtent(graph);
    const double r = (extent.end - extent.begin) / (graph.xEnd - graph.xBegin);
    const double top = wholePart(r) + 1.0;
    if (!(top > 1.0)) {
        return 1;
    }
    return top >= kMostYRatio ? kMostYRatio : static_cast<int>(top);
}

YRange ratioYRange(const TwoDGraph& graph, int ratio) {
    YRange extent = curvesYExtent(graph);
    if (extent.begin > extent.end) {
        extent = {-1.0, 1.0};  // nothing defined: the band viewYRange shows
    }
    return clampYRange(extent, graph.xBegin, graph.xEnd, ratio);
}

bool applyGraphSettings(TwoDGraph& graph, GraphView& view, const TwoDSettings& settings) {
    const bool optimize = graph.drawStep != 1;
    if (settings.optimizeDrawing != optimize) {
        graph.drawStep = settings.optimizeDrawing ? 10 : 1;
        applyOptimizeDrawing(graph.main, settings.optimizeDrawing);
        applyOptimizeDrawing(graph.second, settings.optimizeDrawing);
    }
    view.displayOrder = settings.displayOrder;
    const bool ratioChanged = graph.maxYRatio != settings.maxYRatio;
    graph.maxYRatio = settings.maxYRatio;
    return ratioChanged;
}

}  // namespace curvemill
