// A new surface size for a view the user may have zoomed and scrolled.
#pragma once

#include "graph2d/GraphView.h"

namespace curvemill {

// Lays the view out for `width` x `height` and scrolls so that the graph point in the middle of
// the plotting area stays in the middle. The scale follows the width, so offsets kept in pixels
// would show another part of the graph after every resize. A view never laid out before (no
// plotting area yet) is simply laid out.
void resizeKeepingCentre(GraphView& view, double width, double height);

// The view laid out again for a page of `width` x `height` target pixels with `ratio` target
// pixels per layout pixel: the page gets its own proportions and grid steps, the centre of what
// the view shows stays in its middle, and text keeps its layout size.
GraphView pageView(const GraphView& view, double width, double height, double ratio);

}  // namespace curvemill
