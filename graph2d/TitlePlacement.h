// Where the title's one or two lines sit in the top margin of a 2D graph.
#pragma once

#include "graph2d/GraphView.h"

namespace curvemill {

struct TitlePlacement {
    // The title font's pixel size is multiplied by this (at most 1) for both lines.
    double fontScale = 1.0;
    // Left end and top of each line's box, in the view's pixels (before the target's ySign).
    double firstX = 0.0;
    double firstTop = 0.0;
    double secondX = 0.0;
    double secondTop = 0.0;
};

// The widths and the line height are those of the lines in the full-size title font;
// secondWidth is 0 when there is no second line.
TitlePlacement placeTitle(const GraphView& view, double firstWidth, double secondWidth,
                          double lineHeight);

// The gap kept between the margin's edges and the lines, and between the lines.
double titleGap(const GraphView& view);

}  // namespace curvemill
