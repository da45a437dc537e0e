// What the shell hands the output side: the graph kind's one drawing routine and the screen's
// state.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include <QImage>
#include <QRect>
#include <QSize>

class QPainter;

namespace curvemill {

enum class PictureExtent {
    // What the graph area shows now, laid out for the target's size.
    Screen,
    // The whole graph, also the parts scrolled out of sight.
    Document,
    // What the screen shows around its centre, laid out again for a printed page of its own
    // proportions at printedPixelRatio (GraphPrinting.h): curves drawn with wider pens, since a
    // line one screen pixel wide is a hairline on paper.
    PrintedPage,
};

// Draws the graph into `painter`, filling a target of `pixels` (its own pixels: a printer page or
// a large export gets the drawing laid out at its resolution, never an enlarged screen bitmap).
using GraphDrawing = std::function<void(QPainter& painter, QSize pixels, PictureExtent extent)>;

// Sizes and positions are in the pixels of the screen's picture (the back buffer's own pixels).
struct GraphPicture {
    GraphDrawing draw;
    // The picture on screen, exactly as shown.
    std::function<QImage()> screenPixels;
    QSize screenSize;
    // The whole graph at 100 %.
    QSize documentSize;
    // The part of the screen the user selected, if any.
    std::optional<QRect> selection;
    // The curve points shown inside a part of the screen, or every point of the graph for no
    // part, as CSV text; empty when not given.
    std::function<std::string(const std::optional<QRect>& part)> pointsCsv;
};

}  // namespace curvemill
