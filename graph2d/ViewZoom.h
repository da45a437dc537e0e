// Zoom, restore and stretch of a 2D view: its zoom factors, scroll offsets and content size.
#pragma once

#include <algorithm>
#include <array>
#include <span>

#include "graph2d/GraphView.h"

namespace curvemill {

enum class ZoomAxis { kX, kY, kBoth };

// Zooming in stops once a factor reaches this, zooming out once it falls to kLeastZoom.
inline constexpr double kMostZoom = 65535.0;
inline constexpr double kLeastZoom = 0.004;
// The largest and smallest zoom any command reaches: the first power of two past each limit.
inline constexpr double kTopZoom = 65536.0;
inline constexpr double kBottomZoom = 1.0 / 256.0;

bool canZoomIn(const GraphView& view, ZoomAxis axis);
bool canZoomOut(const GraphView& view, ZoomAxis axis);

// Multiply (divide) the axis' zoom by view.zoomFactor keeping the centre of the visible part
// where it was, then choose the grid steps again. An axis past its limit is left alone. Returns
// whether anything changed; the caller updates its scroll bars and menu and redraws.
bool zoomIn(GraphView& view, ZoomAxis axis);
bool zoomOut(GraphView& view, ZoomAxis axis);

// Back to the view a new graph opens with: zoom 1, scrolled as scrollToXAxis does (the caller also
// clears its StretchStack).
void restoreZoom(GraphView& view);

// How a new graph opens: when it is taller than the plotting area, scrolled so the x axis is in
// the middle, where most curves are read.
void scrollToXAxis(GraphView& view);

// The zoom one wheel notch (120 eighths of a degree) applies: four notches make one menu zoom.
inline constexpr double kWheelNotchFactor = 1.189207115002721;  // 2^(1/4)

// Multiplies the axis' zoom by `factor` (above 1 zooms in) keeping the graph point at the pixel
// (column, row) where it is, as the wheel does. The menu's limits hold: an axis at 65535 or more
// is not enlarged, one at 0.004 or less is not reduced, and no zoom goes past 65536 or 1/256. A
// result within a rounding error of a power of two is made exactly that power, so wheel zooms
// that cancel out leave the zoom at exactly 1 and the menu's limits are met exactly.
bool zoomAbout(GraphView& view, ZoomAxis axis, double factor, double column, double row);

// "Fit To Window": the Y zoom that shows the graph's whole height in the plotting area, scrolled
// to its top; the X zoom is kept. Returns whether anything changed.
bool fitToWindow(GraphView& view);

// The stretches made with "Select Area", undone one at a time by "Undo Stretch".
class StretchStack {
  public:
    static constexpr int kLevels = 5;

    // Enlarges the selected rectangle (pixels on the surface) to fill the plotting area: the zoom
    // factors grow by visible size / selection size and the offsets put the selection's top-left
    // corner at the area's. A sixth stretch is refused rather than dropping the oldest level, so
    // "Undo Stretch" always leads back to the view the first stretch started from. Also refused
    // (false) for a rectangle under one pixel in width or height, and when a zoom would pass
    // 65536.
    bool stretch(GraphView& view, double left, double top, double right, double bottom);
    // Divides the zoom factors by the top level's factors and moves the view back by the inverse
    // of that stretch, so zooms and scrolling done since are kept rather than thrown away.
    bool undo(GraphView& view);
    bool full() const { return depth_ >= kLevels; }
    void clear() { depth_ = 0; }
    int depth() const { return depth_; }

    struct Level {
        double xFactor = 1.0;
        double yFactor = 1.0;
        // Where the selection's top-left corner was inside the plotting area.
        double cornerX = 0.0;
        double cornerY = 0.0;
    };
    // The levels oldest first, and the same put back (a graph document keeps them); more than
    // kLevels are refused and leave the stack as it was.
    std::span<const Level> levels() const { return {levels_.data(), std::size_t(depth_)}; }
    bool restore(std::span<const Level> levels) {
        if (levels.size() > std::size_t(kLevels)) {
            return false;
        }
        std::copy(levels.begin(), levels.end(), levels_.begin());
        depth_ = int(levels.size());
        return true;
    }

  private:
    std::array<Level, kLevels> levels_{};
    int depth_ = 0;
};

}  // namespace curvemill
