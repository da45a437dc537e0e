// Paints a whole 2D graph (frame, grid, curves, area, axes, labels, title) into any QPaintDevice.
#pragma once

#include <functional>
#include <string>

#include <QFont>

#include "graph2d/GraphView.h"
#include "graph2d/TitleText.h"
#include "graph2d/TwoDGraph.h"

class QPainter;

namespace curvemill {

// What the caller adds to a drawing besides the 2D curves.
struct GraphExtras {
    // Which title is written; kFunction writes the curves' formulas.
    TitleGraph titleGraph = TitleGraph::kFunction;
    // The equation's or surface's text for those titles.
    std::string otherTitleText;
    // 2-pixel pens for the main, derivative and integral curves, for printed pages.
    bool widePens = false;
    // Number labels at the grid lines; a thumbnail too small to read them leaves them out.
    bool labels = true;
    // Called after the grid (reference lines) and after the curves (an equation's points, marks).
    // They get the view as laid out in the target's own pixels: its pixelRatio says how much wider
    // than one pixel their lines should be.
    std::function<void(QPainter&, const GraphView&)> afterGrid;
    std::function<void(QPainter&, const GraphView&)> afterCurves;
};

// Keeps the label and title fonts between drawings and rebuilds them when the view's size or grid
// steps change. The screen keeps one; an export may use a fresh one. Fonts need a
// QGuiApplication (the offscreen platform serves for tools without a display).
class GraphPainter {
  public:
    // Chooses the grid steps first if they are automatic, so `view` may change. On a target that
    // Qt enlarges (a device pixel ratio above 1) the drawing is laid out in its device pixels.
    void draw(QPainter& painter, const TwoDGraph& graph, GraphView& view,
              const GraphExtras& extras = {});

    const QFont& labelFont() const { return labelFont_; }
    const QFont& titleFont() const { return titleFont_; }

  private:
    void drawInTargetPixels(QPainter& painter, const TwoDGraph& graph, const GraphView& view,
                            const GraphExtras& extras);
    void updateFonts(const GraphView& view);

    QFont labelFont_;
    QFont titleFont_;
    // The character width and title height the fonts were built for; a change of the view's size
    // or grid steps that changes either rebuilds them.
    int labelCharWidth_ = -1;
    int titlePixels_ = -1;
};

// Draws with a painter of its own: for one-off targets such as an export image or a printed page.
void drawGraph(QPainter& painter, const TwoDGraph& graph, GraphView& view,
               const GraphExtras& extras = {});

}  // namespace curvemill
