// What a mouse drag over the plotting area does in each mouse mode.
#pragma once

#include "graph2d/GraphView.h"

namespace curvemill {

// A rectangle in the view's pixels; empty when it has no area.
struct PixelRect {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    bool empty() const { return !(width() > 0.0) || !(height() > 0.0); }
};

// A drag shorter than this on either side is a click: it clears the selection instead.
inline constexpr double kLeastSelectionSide = 3.0;

// "Select Area": the rectangle between the press and the mouse, cut to the plotting area (what
// lies outside it is margin, not graph); empty when it is a click.
PixelRect selectionRect(const GraphView& view, double pressX, double pressY, double x, double y);

// "Move Screen": the graph follows the hand. Offsets are those at the press less the distance
// the mouse moved since, clamped as every scroll is.
void dragScroll(GraphView& view, double pressScrollX, double pressScrollY, double dx, double dy);

}  // namespace curvemill
