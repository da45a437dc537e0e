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
    // The small arrow at the start that shows which way t runs.
    bool arrow = true;
    // Number labels at the grid lines (a thumbnail leaves them out).
    bool labels = true;
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
