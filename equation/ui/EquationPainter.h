// Paints the equation curve: the 2D graph's frame, grid, axes, labels and "%s = 0" title, with the
// solution points as dots instead of function curves.
#pragma once

#include <vector>

#include "equation/EquationCurve.h"
#include "graph2d/PixelPoint.h"

class QPainter;

namespace curvemill {

class GraphPainter;
struct GraphView;

struct EquationLook {
    // Small squares around the dots, easier to see on a sparse curve; off draws the dots alone.
    bool squares = false;
    // A point picked in the solutions dialog, ringed on the graph.
    bool hasMark = false;
    SolutionPoint mark;
    // Number labels at the grid lines (a thumbnail leaves them out).
    bool labels = true;
};

// Keeps the pixel list between drawings, so a repaint allocates nothing once it has grown.
class EquationPainter {
  public:
    void draw(GraphPainter& graphPainter, QPainter& painter, const EquationCurve& curve,
              GraphView& view, const EquationLook& look = {});

  private:
    std::vector<PixelPoint> pixels_;
};

}  // namespace curvemill
