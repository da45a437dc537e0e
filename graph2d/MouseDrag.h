// What a mouse drag over the plotting area does in each mouse mode.
#pragma once

#include "graph2d/GraphView.h"
#include "graph2d/PixelRect.h"

namespace curvemill {

// A drag shorter than this on either side is a click: it clears the selection instead.
inline constexpr double kLeastSelectionSide = 3.0;

// "Select Area": the rectangle between the press and the mouse, cut to the plotting area (what
// lies outside it is margin, not graph); empty when it is a click.
PixelRect selectionRect(const GraphView& view, double pressX, double pressY, double x, double y);

// "Move Screen": the graph follows the hand. Offsets are those at the press less the distance
// the mouse moved since, clamped as every scroll is.
void dragScroll(GraphView& view, double pressScrollX, double pressScrollY, double dx, double dy);

}  // namespace curvemill
