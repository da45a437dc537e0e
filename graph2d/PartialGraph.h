// "Show Drawing Process": a copy of the graph whose curves end part of the way across the view.
#pragma once

#include <array>

#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

class PartialGraph {
  public:
    // Copies the curves (once per drawing) and notes which records of each lie in the view.
    void start(const TwoDGraph& full, const GraphView& view);
    // Cuts every curve at `fraction` (0..1) of its records inside the view; 1 gives them whole.
    void show(double fraction);
    const TwoDGraph& graph() const { return graph_; }

  private:
    struct Stretch {
        int first = 0;
        int last = 0;
        int count = 0;
    };
    TwoDGraph graph_;
    std::array<Stretch, 4> stretches_{};
    int areaLast_ = -1;
};

}  // namespace curvemill
