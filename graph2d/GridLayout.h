// Where the grid lines and the number labels of a 2D view go, in pixels, with the label texts.
#pragma once

#include <string>
#include <vector>

#include "graph2d/GraphView.h"

namespace curvemill {

struct GridLabel {
    // Anchor in pixels: a y label starts at x and is centred on row y; an x label is centred on
    // column x and hangs below row y.
    double x = 0.0;
    double y = 0.0;
    std::string text;
};

struct GridLayout {
    double xOrigin = 0.0;
    double yOrigin = 0.0;
    // Pixel columns of the vertical lines and rows of the horizontal lines inside the usable area.
    std::vector<int> columns;
    std::vector<int> rows;
    std::vector<GridLabel> xLabels;
    std::vector<GridLabel> yLabels;
};

// The grid origin for a view beginning at `viewBegin` with grid step `step`: W(begin / step) *
// step.
double gridOrigin(double viewBegin, double step);

// The values visited by the grid walk from `origin` up to `last` + step; stops when adding the step
// no longer changes the value. Empty for a step that is not a positive number.
std::vector<double> gridWalk(double origin, double step, double first, double last);

// Lines and labels for the view's current grid steps. y labels are left out while the dependent
// variable's name holds an 'n'.
GridLayout layoutGrid(const GraphView& view, const std::string& dependentName);

}  // namespace curvemill
