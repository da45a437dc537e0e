// The graph coordinates under the mouse, written for the status bar.
#pragma once

#include <string>

#include "graph2d/GraphView.h"

namespace curvemill {

// "x = 1.25   y = -0.40", each value in pi units ("x = pi*0.500") when its axis is labelled in
// them. Values get as many decimals as one pixel of the zoomed scale resolves.
std::string coordinateText(const GraphView& view, double column, double row);

}  // namespace curvemill
