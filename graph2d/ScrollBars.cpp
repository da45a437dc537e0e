#include "graph2d/ScrollBars.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

namespace {

constexpr double kLine = 2.0;
// Scroll bar values are ints; a view zoomed far in is capped rather than wrapped.
constexpr double kMostBarValue = 2.0e9;

int barValue(double v) {
    return static_cast<int>(std::clamp(v, 0.0, kMostBarValue));
}

ScrollBarState barState(double content, double visible, double offset, bool enabled) {
    ScrollBarState bar;
    const bool enlarged = content > visible;
    bar.maximum = barValue(enlarged ? content : visible);
    bar.page = barValue(visible);
    bar.position = barValue(offset);
    bar.enabled = enabled;
    return bar;
}

bool barsEnabled(const GraphView& view, bool graphShown) {
    return graphShown &&
           (view.contentWidth > view.visibleWidth() || view.contentHeight > view.visibleHeight());
}

double moved(double offset, double visible, ScrollAction action, int position) {
    switch (action) {
        case ScrollAction::kLineBack:
            return offset - kLine;
        case ScrollAction::kLineForward:
            return offset + kLine;
        case ScrollAction::kPageBack:
            return offset - visible;
        case ScrollAction::kPageForward:
            return offset + visible;
        case ScrollAction::kToPosition:
            return position;
    }
    return offset;
}

}  // namespace

ScrollBarState horizontalScrollBar(const GraphView& view, bool graphShown) {
    return barState(view.contentWidth, view.visibleWidth(), view.scrollX,
                    barsEnabled(view, graphShown));
}

ScrollBarState verticalScrollBar(const GraphView& view, bool graphShown) {
    return barState(view.contentHeight, view.visibleHeight(), view.scrollY,
                    barsEnabled(view, graphShown));
}

void scrollHorizontally(GraphView& view, ScrollAction action, int position) {
    view.scrollX = moved(view.scrollX, view.visibleWidth(), action, position);
    clampScroll(view);
}

void scrollVertically(GraphView& view, ScrollAction action, int position) {
    view.scrollY = moved(view.scrollY, view.visibleHeight(), action, position);
    clampScroll(view);
}

}  // namespace curvemill
