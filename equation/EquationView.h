// The equation curve on the 2D graph view: the view's ranges for it and its dots in pixels.
#pragma once

#include <cstdint>
#include <vector>

#include "equation/EquationCurve.h"
#include "graph2d/GraphView.h"
#include "graph2d/PixelPoint.h"
#include "graph2d/ViewYRange.h"

namespace curvemill {

// The view's Y range for the curve: the solutions' own, cut down to maxYRatio times the X range.
// Without solutions, or with all of them on one height, the grid's Y range instead, so that the
// empty graph still has axes and the title.
YRange equationYRange(const EquationCurve& curve, int maxYRatio);

// Full reset for a new equation: the grid's X range and equationYRange as a box shown whole (every
// solution on screen, at zoom 1 and after Restore alike), zoom 1, no scroll.
void resetEquationView(GraphView& view, const EquationCurve& curve, int maxYRatio);

// The solutions as whole pixels of `view` (truncated toward zero), in the order of `points`;
// points outside the plotting area are left out. `out` is reused: its capacity stays.
void solutionPixels(const std::vector<SolutionPoint>& points, const GraphView& view,
                    std::vector<PixelPoint>& out);

// A row of touching dots: `width` pixels from (x, y), each dot `dot` pixels square.
struct DotRun {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
};

// The dots at `pixels` (each `dot` pixels square) as horizontal runs, row by row: a dot that
// touches or overlaps the run before it in its row joins it, a repeated pixel adds nothing. A
// vector file then holds at most one shape per run instead of one per solution. `pixels` is
// sorted in place.
std::vector<DotRun> dotRuns(std::vector<PixelPoint>& pixels, std::int32_t dot);

}  // namespace curvemill
