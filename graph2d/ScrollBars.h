// The two scroll bars of the graph area as numbers, and the scrolling they do to the view.
#pragma once

#include "graph2d/GraphView.h"

namespace curvemill {

struct ScrollBarState {
    int maximum = 0;
    int page = 0;
    int position = 0;
    bool enabled = false;
};

// Both bars are enabled only while a graph is shown and it is larger than the plotting area in
// at least one direction.
ScrollBarState horizontalScrollBar(const GraphView& view, bool graphShown);
ScrollBarState verticalScrollBar(const GraphView& view, bool graphShown);

enum class ScrollAction { kLineBack, kLineForward, kPageBack, kPageForward, kToPosition };

// Moves one offset: a line is 2 pixels, a page the visible size, kToPosition takes `position`
// (the dragged thumb). The offsets are clamped afterwards.
void scrollHorizontally(GraphView& view, ScrollAction action, int position = 0);
void scrollVertically(GraphView& view, ScrollAction action, int position = 0);

}  // namespace curvemill
