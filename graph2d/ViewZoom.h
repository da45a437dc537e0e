// Zoom, restore and stretch of a 2D view: its zoom factors, scroll offsets and content size.
#pragma once

#include <array>

#include "graph2d/GraphView.h"

namespace curvemill {

enum class ZoomAxis { kX, kY, kBoth };

// Zooming in stops once a factor reaches this, zooming out once it falls to kLeastZoom.
inline constexpr double kMostZoom = 65535.0;
inline constexpr double kLeastZoom = 0.004;

bool canZoomIn(const GraphView& view, ZoomAxis axis);
bool canZoomOut(const GraphView& view, ZoomAxis axis);

// Multiply (divide) the axis' zoom by view.zoomFactor keeping the centre of the visible part
// where it was, then choose the grid steps again. An axis past its limit is left alone. Returns
// whether anything changed; the caller updates its scroll bars and menu and redraws.
bool zoomIn(GraphView& view, ZoomAxis axis);
bool zoomOut(GraphView& view, ZoomAxis axis);

// Back to zoom 1 with no scrolling (the caller also clears its StretchStack).
void restoreZoom(GraphView& view);

// The stretches made with "Select Area", undone one at a time by "Undo Stretch".
class StretchStack {
  public:
    static constexpr int kLevels = 5;

    // Enlarges the selected rectangle (pixels on the surface) to fill the plotting area. Refused
    // (false) when five levels are stacked already or the rectangle has no width or height.
    bool stretch(GraphView& view, double left, double top, double right, double bottom);
    // Divides the zoom factors by the top level's factors and restores the scroll offsets.
    bool undo(GraphView& view);
    void clear() { depth_ = 0; }
    int depth() const { return depth_; }

  private:
    struct Level {
        double xFactor = 1.0;
        double yFactor = 1.0;
        double scrollX = 0.0;
        double scrollY = 0.0;
    };
    std::array<Level, kLevels> levels_{};
    int depth_ = 0;
};

}  // namespace curvemill
