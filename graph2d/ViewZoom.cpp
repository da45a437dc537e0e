#include "graph2d/ViewZoom.h"

#include <algorithm>
#include <cmath>

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

double snappedToPowerOfTwo(double zoom) {
    const double power = std::exp2(std::round(std::log2(zoom)));
    return std::fabs(zoom - power) <= power * 1e-9 ? power : zoom;
}

// One axis of zoomAbout: `pixel` is the mouse's distance from the plotting area's origin.
bool zoomAxisAbout(AxisState a, double factor, double pixel) {
    double zoom = a.zoom;
    if (factor > 1.0 && a.zoom < kMostZoom) {
        zoom = std::min(a.zoom * factor, kTopZoom);
    } else if (factor < 1.0 && a.zoom > kLeastZoom) {
        zoom = std::max(a.zoom * factor, kBottomZoom);
    }
    zoom = snappedToPowerOfTwo(zoom);
    if (zoom == a.zoom) {
        return false;
    }
    const double f = zoom / a.zoom;
    a.zoom = zoom;
    a.scroll = (a.scroll + pixel) * f - pixel;
    a.content *= f;
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
    // A new graph opens the same way, so Restore leads back to the first view.
    scrollToXAxis(view);
    afterChange(view);
}

void scrollToXAxis(GraphView& view) {
    if (view.contentHeight > view.visibleHeight()) {
        const double axisRow = (view.graphHeight + view.yBase * view.ppu) * view.yZoom;
        view.scrollY = axisRow - view.visibleHeight() / 2;
        clampScroll(view);
    }
}

bool zoomAbout(GraphView& view, ZoomAxis axis, double factor, double column, double row) {
    if (!(factor > 0.0) || !std::isfinite(factor)) {
        return false;
    }
    bool changed = false;
    if (hasX(axis)) {
        changed = zoomAxisAbout(xAxis(view), factor, column - view.left) || changed;
    }
    if (hasY(axis)) {
        changed = zoomAxisAbout(yAxis(view), factor, row - view.top) || changed;
    }
    if (changed) {
        afterChange(view);
    }
    return changed;
}

bool fitToWindow(GraphView& view) {
    if (!(view.graphHeight > 0.0)) {
        return false;
    }
    const double zoom =
        std::clamp(std::max(1.0, view.visibleHeight()) / view.graphHeight, kBottomZoom, kTopZoom);
    if (zoom == view.yZoom && view.scrollY == 0.0) {
        return false;
    }
    view.yZoom = zoom;
    view.contentHeight = view.graphHeight * zoom;
    view.scrollY = 0.0;
    afterChange(view);
    return true;
}

bool StretchStack::stretch(GraphView& view, double left, double top, double right, double bottom) {
    const double width = std::max(left, right) - std::min(left, right);
    const double height = std::max(top, bottom) - std::min(top, bottom);
    if (depth_ >= kLevels || !(width >= 1.0) || !(height >= 1.0)) {
        return false;
    }
    const double fx = view.visibleWidth() / width;
    const double fy = view.visibleHeight() / height;
    if (!(view.xZoom * fx <= kTopZoom) || !(view.yZoom * fy <= kTopZoom)) {
        return false;
    }
    const double cornerX = std::min(left, right) - view.left;
    const double cornerY = std::min(top, bottom) - view.top;
    levels_[depth_++] = {fx, fy, cornerX, cornerY};
    // The selection's top-left corner becomes the plotting area's.
    view.scrollX = (view.scrollX + cornerX) * fx;
    view.scrollY = (view.scrollY + cornerY) * fy;
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
    view.scrollX = view.scrollX / level.xFactor - level.cornerX;
    view.scrollY = view.scrollY / level.yFactor - level.cornerY;
    afterChange(view);
    return true;
}

}  // namespace curvemill
