#include "graph2d/TwoDSettings.h"

#include <algorithm>

#include "engine/DisplayFormat.h"
#include "graph2d/DrawStep.h"

namespace curvemill {

namespace {

constexpr std::string_view kCurveLetters = "fdiF";

}  // namespace

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

DisplayOrderPicker::DisplayOrderPicker(std::string_view order) {
    for (const char letter : order) {
        press(letter);
    }
}

int DisplayOrderPicker::press(char letter) {
    if (kCurveLetters.find(letter) == std::string_view::npos || placeOf(letter) != 0) {
        return 0;
    }
    working_ += letter;
    return static_cast<int>(working_.size());
}

int DisplayOrderPicker::placeOf(char letter) const {
    const std::size_t at = working_.find(letter);
    return at == std::string::npos ? 0 : static_cast<int>(at) + 1;
}

std::string DisplayOrderPicker::order() const {
    std::string order(working_.size(), ' ');
    for (const char letter : kCurveLetters) {
        if (const int place = placeOf(letter); place != 0) {
            order[static_cast<std::size_t>(place - 1)] = letter;
        }
    }
    for (const char letter : kCurveLetters) {
        if (placeOf(letter) == 0) {
            order += letter;
        }
    }
    return order;
}

}  // namespace curvemill
