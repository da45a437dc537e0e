// Drawing the surface cell by cell, far cells first, in one of three modes. The geometry and the
// colours are worked out here; a sink hands them to whatever draws (a painter, a test recorder).
#pragma once

#include <cstdint>

#include "graph3d/SurfaceScene.h"

namespace curvemill {

// Inclusive bounds in device pixels.
struct ClipRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

class SurfaceSink {
  public:
    virtual ~SurfaceSink() = default;
    // A filled cell with its outline in the same colour; 1 to 4 corners (fewer than 3 where
    // indefinite corners left only a degenerate polygon).
    virtual void polygon(const ScreenPoint* corners, int count, std::uint32_t colour) = 0;
    // A cell of the surface: the polygon, with bit k of `openEdges` set where the edge from corner
    // k to the next has no drawn neighbour of the same facing beyond it (the grid's border, a hole,
    // a fold of the surface): only there can the background or a farther part show.
    virtual void cell(const ScreenPoint* corners, int count, std::uint32_t colour,
                      unsigned openEdges) {
        (void)openEdges;
        polygon(corners, count, colour);
    }
    // A grid line, to be clipped to the clip rectangle.
    virtual void line(ScreenPoint from, ScreenPoint to, std::uint32_t colour) = 0;
    virtual void pixel(ScreenPoint at, std::uint32_t colour) = 0;
    // A filled square, right and bottom exclusive.
    virtual void square(int left, int top, int right, int bottom, std::uint32_t colour) = 0;
    // Every cell of one line of the pass has been handed over; the next line lies nearer the eye.
    virtual void lineDone() {}
};

// The pass (1..4) that draws the cells far from the eye first. The rule is written beside it.
int choosePass(const SurfaceView& view, const SurfaceGrid& grid);

// Fills the scratch line with the colours of row j = k (alongX) or column i = k.
void colourRow(SurfaceScene& scene, const LightWeights& weights, bool alongX, int k);

// The cell whose own vertex is (i, j), at the vertices' projection `points`, drawn by `pass`
// (0: by no pass in particular).
void drawCell(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
              const ClipRect& clip, std::uint32_t colour, SurfaceSink& sink, int pass = 0);
void drawCellPolygon(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
                     std::uint32_t colour, SurfaceSink& sink, int pass = 0);
void drawCellLines(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
                   std::uint32_t colour, SurfaceSink& sink);
void drawCellPixel(const SurfaceScene& scene, const ScreenPoints& points, int i, int j,
                   const ClipRect& clip, std::uint32_t colour, SurfaceSink& sink);

// One whole redraw onto a target of width x height device pixels: light, projection of every
// vertex, then the cells in the order of the chosen pass. Nothing is drawn for an incomplete
// scene or one with no defined vertex. Returns the placement used.
Placement drawSurface(SurfaceScene& scene, int width, int height, SurfaceSink& sink);

// The parts of drawSurface, for callers that draw in slices: prepare once, then draw the lines
// [from, to) of the pass (lineCount tells how many it has). The plan holds the projection for
// its own target, so plans for several targets can be in use at once.
struct DrawingPlan {
    Placement placement;
    // Empty when the memory could not be had: then nothing is drawn.
    ScreenPoints points;
    LightWeights weights;
    ClipRect clip;
    int pass = 2;
};
DrawingPlan prepareDrawing(SurfaceScene& scene, int width, int height);
int lineCount(const SurfaceScene& scene, int pass);
void drawLines(SurfaceScene& scene, const DrawingPlan& plan, int from, int to, SurfaceSink& sink);

}  // namespace curvemill
