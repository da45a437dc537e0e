#include "graph2d/GraphView.h"

#include <algorithm>
#include <cmath>

#include "graph2d/GridSteps.h"
#include "graph2d/ViewYRange.h"

namespace curvemill {

namespace {

// Keeps the pixel arithmetic finite whatever range was asked for.
constexpr double kMaxGraphHeight = 1e15;

// The scale at which the whole box fits with its padding, and the X range that fills the width
// at that scale around the box's centre.
void fitWholeBox(GraphView& view, double visibleW, double visibleH) {
    const double pad = kWholeBoxPadding * view.pixelRatio;
    const double xRange = view.wholeXEnd - view.wholeXBegin;
    const double yRange = view.yEnd - view.yBegin;
    double ppu = std::max(1.0, visibleW - 2.0 * pad) / xRange;
    if (yRange > 0.0) {
        ppu = std::min(ppu, std::max(1.0, visibleH - 2.0 * pad) / yRange);
    }
    if (!std::isfinite(ppu) || ppu <= 0.0) {
        view.xBegin = view.wholeXBegin;
        view.xEnd = view.wholeXEnd;
        return;
    }
    const double centre = (view.wholeXBegin + view.wholeXEnd) / 2;
    view.xBegin = centre - visibleW / (2 * ppu);
    view.xEnd = centre + visibleW / (2 * ppu);
}

// Recomputes everything that follows from the surface size and the ranges.
void relayout(GraphView& view) {
    view.left = view.marginX;
    view.top = view.marginY;
    const double visibleW = std::max(1.0, view.visibleWidth());
    const double visibleH = std::max(1.0, view.visibleHeight());
    if (view.showWhole) {
        fitWholeBox(view, visibleW, visibleH);
    }
    const double xRange = view.xEnd - view.xBegin;
    view.ppu = visibleW / xRange;
    if (!std::isfinite(view.ppu) || view.ppu <= 0.0) {
        view.ppu = 1.0;
    }
    const double span = view.yEnd - view.yBegin;
    double graphHeight = span * view.ppu;
    if (!std::isfinite(graphHeight) || graphHeight > kMaxGraphHeight) {
        view.graphHeight = kMaxGraphHeight;
        view.yBase = view.yBegin;
    } else if (graphHeight < visibleH) {
        // A graph shorter than the plotting area cannot have both its own height and its Y begin
        // at the bottom row: the x axis would be pushed off the y range, the curve would hug the
        // top edge and the area below it would be drawn without a y label. Centre it instead, at
        // the same scale, so that the band shown is Y begin..Y end widened evenly on both sides.
        view.graphHeight = visibleH;
        view.yBase = (view.yBegin + view.yEnd) / 2 - visibleH / (2 * view.ppu);
    } else {
        view.graphHeight = graphHeight;
        view.yBase = view.yBegin;
    }
    view.contentWidthAtZoom1 = visibleW;
    view.contentHeightAtZoom1 = view.graphHeight;
    view.contentWidth = visibleW * view.xZoom;
    view.contentHeight = view.graphHeight * view.yZoom;
}

}  // namespace

void setViewSize(GraphView& view, double width, double height) {
    view.width = width;
    view.height = height;
    relayout(view);
    clampScroll(view);
}

void setViewRanges(GraphView& view, double xBegin, double xEnd, double yBegin, double yEnd,
                   bool showWhole) {
    view.xBegin = xBegin;
    view.xEnd = xEnd;
    view.showWhole = showWhole;
    view.wholeXBegin = xBegin;
    view.wholeXEnd = xEnd;
    view.yBegin = yBegin;
    view.yEnd = yEnd;
    relayout(view);
    clampScroll(view);
}

void resetView(GraphView& view, const TwoDGraph& graph) {
    const YRange range = viewYRange(graph);
    view.xZoom = 1.0;
    view.yZoom = 1.0;
    view.scrollX = 0.0;
    view.scrollY = 0.0;
    setViewRanges(view, graph.xBegin, graph.xEnd, range.begin, range.end);
    resetGridSteps(view);
}

void fitGraphHeight(GraphView& view) {
    const double visibleH = std::max(1.0, view.visibleHeight());
    if (view.graphHeight * view.yZoom <= visibleH) {
        return;
    }
    view.yZoom = visibleH / view.graphHeight;
    view.scrollY = 0.0;
    view.contentHeight = view.graphHeight * view.yZoom;
    resetGridSteps(view);
}

GraphView scaledView(const GraphView& view, double ratio) {
    GraphView scaled = view;
    if (!(ratio > 0.0) || !std::isfinite(ratio) || ratio == 1.0) {
        return scaled;
    }
    scaled.pixelRatio = view.pixelRatio * ratio;
    scaled.marginX = std::round(view.marginX * ratio);
    scaled.marginY = std::round(view.marginY * ratio);
    scaled.scrollX = view.scrollX * ratio;
    scaled.scrollY = view.scrollY * ratio;
    setViewSize(scaled, std::round(view.width * ratio), std::round(view.height * ratio));
    return scaled;
}

void clampScroll(GraphView& view) {
    const auto clampOne = [](double offset, double content, double visible) {
        const double most = std::max(0.0, content - visible);
        if (!(offset > 0.0)) {
            return 0.0;
        }
        return std::min(offset, most);
    };
    view.scrollX = clampOne(view.scrollX, view.contentWidth, view.visibleWidth());
    view.scrollY = clampOne(view.scrollY, view.contentHeight, view.visibleHeight());
}

}  // namespace curvemill
