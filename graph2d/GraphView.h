// The per-target state of a 2D drawing: plotting area, scale, zoom, scroll, ranges and grid steps.
#pragma once

#include <array>
#include <vector>

#include "graph2d/DisplayOrder.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

// Indices of the grid-step candidate lists; the pi-unit list of a key is the key's index + 1.
enum StepKey : int {
    kStepX = 0,
    kStepY = 2,
    kStepZ = 4,
    kStepZoomedX = 6,
    kStepZoomedY = 8,
};

// The screen owns one; every export or print builds its own for its own size.
struct GraphView {
    // Origin of the plotting area on the surface; equal to the margins.
    double left = 65.0;
    double top = 40.0;
    // The usable area runs from left to left + width - 2 * marginX, top to top + height - 2 *
    // marginY.
    double marginX = 65.0;
    double marginY = 40.0;
    // Size of the whole drawing surface.
    double width = 0.0;
    double height = 0.0;
    // Pixels per graph unit at zoom 1, the same on both axes so the graph keeps its proportions.
    double ppu = 1.0;
    double xZoom = 1.0;
    double yZoom = 1.0;
    double zoomFactor = 2.0;
    double scrollX = 0.0;
    double scrollY = 0.0;
    // Height of the whole graph at zoom 1; larger than the plotting area when the graph scrolls.
    double graphHeight = 0.0;
    // The y value at the bottom of the graph.
    double yBase = 0.0;
    // -1 on surfaces whose y grows upwards; our Qt surfaces all grow downwards.
    double ySign = 1.0;
    // Size of the whole enlarged graph, and the same at zoom 1 for "Restore".
    double contentWidth = 0.0;
    double contentHeight = 0.0;
    double contentWidthAtZoom1 = 0.0;
    double contentHeightAtZoom1 = 0.0;

    // The graph's X range (X_BEG, X_END) and the Y range chosen for it.
    double xBegin = -10.0;
    double xEnd = 10.0;
    double yBegin = -1.0;
    double yEnd = 1.0;
    // Set for an equation: its X range (wholeXBegin..wholeXEnd) and Y range form a box that shows
    // whole at zoom 1, at true proportions and kWholeBoxPadding layout pixels inside the plotting
    // area; xBegin..xEnd is then that box's X range widened to the plotting width.
    bool showWhole = false;
    double wholeXBegin = -10.0;
    double wholeXEnd = 10.0;

    bool areaPainted = false;
    // The stretches where the main function has no value are marked over the curves; the marks
    // follow whatever function is drawn until they are switched off.
    bool indefiniteMarked = false;
    bool gridOn = true;
    DisplayOrder displayOrder;

    // Current grid steps; -1.0 means "choose before the next drawing".
    double gridStepX = -1.0;
    double gridStepY = -1.0;
    double gridStepZ = -1.0;
    bool piUnitsX = false;
    bool piUnitsY = false;
    bool piUnitsZ = false;
    // Tidy steps for every whole pixel distance 60..199, per StepKey (+1 for pi units).
    std::array<std::vector<double>, 10> stepCandidates;
    // Pixels per unit over this factor is the span the grid-step chooser divides pixel distances
    // by; 0.5 keeps the spacing of the chosen steps between 68 and 172 pixels.
    double baseScaleFactor = 0.5;
    // Divisors of the label and title formulas, chosen for readable text at 65/40-pixel margins.
    double fontScale = 130.0;
    double labelScale = 65.0;
    double titleScale = 20.0;
    // Counts pixel distances downward, as the 3D graph wants.
    bool threeDShown = false;
    // Pixels of the target per pixel of this layout (see scaledView): pens, marks and arrows are
    // this much wider, so the picture keeps its size on a dense target and only gets sharper.
    double pixelRatio = 1.0;
    // Curves are drawn antialiased; off, every curve pixel has exactly its pen's colour.
    bool smoothLines = true;

    double visibleWidth() const { return width - 2.0 * marginX; }
    double visibleHeight() const { return height - 2.0 * marginY; }
    double plotRight() const { return left + visibleWidth(); }
    double plotBottom() const { return top + visibleHeight(); }
    double baseScale() const { return ppu * baseScaleFactor; }

    double toPixelX(double x) const { return (x - xBegin) * ppu * xZoom - scrollX + left; }
    double toPixelY(double y) const {
        return (graphHeight - (y - yBase) * ppu) * yZoom - scrollY + top;
    }
    // Inverses of toPixelX and toPixelY, for the mouse.
    double graphX(double column) const {
        return (column - left + scrollX) / (ppu * xZoom) + xBegin;
    }
    double graphY(double row) const {
        return graphHeight / ppu - ((row - top + scrollY) / yZoom) / ppu + yBase;
    }

    // The part of the graph shown in the plotting area.
    double visibleXBegin() const { return graphX(left); }
    double visibleXEnd() const { return graphX(plotRight()); }
    double visibleYBegin() const { return graphY(plotBottom()); }
    double visibleYEnd() const { return graphY(top); }
};

// Sets the surface size and recomputes the scale and the graph's height, keeping zoom and scroll.
void setViewSize(GraphView& view, double width, double height);

// Room left around a whole box, in layout pixels: the marked point's 7-pixel ring and its pen fit
// inside the frame.
inline constexpr double kWholeBoxPadding = 9.0;

// Takes the graph's X range and `yBegin`..`yEnd` as the view's ranges and lays them out again;
// `showWhole` makes them a box shown whole (see GraphView::showWhole).
void setViewRanges(GraphView& view, double xBegin, double xEnd, double yBegin, double yEnd,
                   bool showWhole = false);

// Full reset after a new graph or "Restore": the Y range from viewYRange, zoom 1, no scroll, grid
// steps chosen again.
void resetView(GraphView& view, const TwoDGraph& graph);

// Shrinks the vertical zoom so that the whole graph height fits the plotting area (used by
// outputs that show the whole graph at once); a graph that already fits is left as it is.
void fitGraphHeight(GraphView& view);

// The view laid out again in the pixels of a target `ratio` times as dense (a screen back buffer
// at its device pixel ratio): size, margins, scale and scroll grow by the ratio, margins and size
// rounded to whole pixels; ranges, zoom and grid steps stay. Drawing from it truncates positions
// to the target's own pixels instead of to coarser ones that are then enlarged.
GraphView scaledView(const GraphView& view, double ratio);

// Keeps each scroll offset within 0..content size - visible size.
void clampScroll(GraphView& view);

}  // namespace curvemill
