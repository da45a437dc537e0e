#include "graph2d/ViewZoom.h"

#include <algorithm>

#include "graph2d/GridSteps.h"

namespace curvemill {

namespace {

bool hasX(ZoomAxis axis) {
    return axis != ZoomAxis::kY;
}
bool hasY(ZoomAxis axis) {
    return axis != ZoomAxis::kX;
}

// One axis: zoom factor, scroll offset, content size and the visible size it scrolls in.
struct AxisState {
    double& zoom;
    double& scroll;
    double& content;
    double visible;
};

AxisState xAxis(GraphView& view) {
    return {view.xZoom, view.scrollX, view.contentWidth, view.visibleWidth()};
}

AxisState yAxis(GraphView& view) {
    return {view.yZoom, view.scrollY, view.contentHeight, view.visibleHeight()};
}

bool zoomAxisIn(AxisState a, double f) {
    if (!(a.zoom < kMostZoom)) {
        return false;
    }
    a.zoom *= f;
    a.scroll = a.scroll * f + a.visible * (f - 1) / 2;
    a.content *= f;
    return true;
}

bool zoomAxisOut(AxisState a, double f) {
    if (!(a.zoom > kLeastZoom)) {
        return false;
    }
    a.zoom /= f;
    a.scroll = (2 * a.scroll + a.visible * (1 - f)) / (2 * f);
    a.content /= f;
    return true;
}

void afterChange(GraphView& view) {
    clampScroll(view);
    resetGridSteps(view);
}

}  // namespace

bool canZoomIn(const GraphView& view, ZoomAxis axis) {
    return (hasX(axis) && view.xZoom < kMostZoom) || (hasY(axis) && view.yZoom < kMostZoom);
}

bool canZoomOut(const GraphView& view, ZoomAxis axis) {
    return (hasX(axis) && view.xZoom > kLeastZoom) || (hasY(axis) && view.yZoom > kLeastZoom);
}

bool zoomIn(GraphView& view, ZoomAxis axis) {
    const double f = view.zoomFactor;
    bool changed = false;
    if (hasX(axis)) {
        changed = zoomAxisIn(xAxis(view), f) || changed;
    }
    if (hasY(axis)) {
        changed = zoomAxisIn(yAxis(view), f) || changed;
    }
    if (changed) {
        afterChange(view);
    }
    return changed;
}

bool zoomOut(GraphView& view, ZoomAxis axis) {
    const double f = view.zoomFactor;
    bool changed = false;
    if (hasX(axis)) {
        changed = zoomAxisOut(xAxis(view), f) || changed;
    }
    if (hasY(axis)) {
        changed = zoomAxisOut(yAxis(view), f) || changed;
    }
    if (changed) {
        afterChange(view);
    }
    return changed;
}

void restoreZoom(GraphView& view) {
    view.xZoom = 1.0;
    view.yZoom = 1.0;
    view.scrollX = 0.0;
    view.scrollY = 0.0;
    view.contentWidth = view.contentWidthAtZoom1;
    view.contentHeight = view.contentHeightAtZoom1;
    afterChange(view);
}

bool StretchStack::stretch(GraphView& view, double left, double top, double right, double bottom) {
    const double width = std::max(left, right) - std::min(left, right);
    const double height = std::max(top, bottom) - std::min(top, bottom);
    if (depth_ >= kLevels || !(width >= 1.0) || !(height >= 1.0)) {
        return false;
    }
    const double fx = view.visibleWidth() / width;
    const double fy = view.visibleHeight() / height;
    levels_[depth_++] = {fx, fy, view.scrollX, view.scrollY};
    // The selection's top-left corner becomes the plotting area's.
    view.scrollX = (view.scrollX + std::min(left, right) - view.left) * fx;
    view.scrollY = (view.scrollY + std::min(top, bottom) - view.top) * fy;
    view.xZoom *= fx;
    view.yZoom *= fy;
    view.contentWidth *= fx;
    view.contentHeight *= fy;
    afterChange(view);
    return true;
}

bool StretchStack::undo(GraphView& view) {
    if (depth_ == 0) {
        return false;
    }
    const Level& level = levels_[--depth_];
    view.xZoom /= level.xFactor;
    view.yZoom /= level.yFactor;
    view.contentWidth /= level.xFactor;
    view.contentHeight /= level.yFactor;
    view.scrollX = level.scrollX;
    view.scrollY = level.scrollY;
    afterChange(view);
    return true;
}

}  // namespace curvemill
