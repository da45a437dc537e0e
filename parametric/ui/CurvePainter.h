// Paints a parametric or polar curve on the 2D graph's frame, grid, axes and labels: one line in
// the direction of increasing t, broken where the curve breaks, with an arrow at its start.
#pragma once

#include <vector>

#include <QPointF>

#include "parametric/CurveGraph.h"

class QPainter;

namespace curvemill {

class GraphPainter;
struct GraphView;

struct CurveLook {
    // Number labels at the grid lines and the title (a thumbnail leaves them out).
    bool labels = true;
    bool title = true;
    // The share of the range of t drawn so far, for Show Drawing Process (1: the whole curve).
    double drawnPart = 1.0;
};

// The view of a new curve: its bounding box shown whole at equal scales.
void fitViewToCurve(GraphView& view, const CurveGraph& graph);

// Keeps its point buffer between drawings, so a repaint allocates nothing once it has grown.
class CurvePainter {
  public:
    void draw(GraphPainter& graphPainter, QPainter& painter, const CurveGraph& graph,
              GraphView& view, const CurveLook& look = {});

  private:
    std::vector<QPointF> run_;
};

}  // namespace curvemill
