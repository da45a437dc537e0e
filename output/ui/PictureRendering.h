// Renders the picture a source and scale stand for: the screen's pixels or a fresh drawing.
#pragma once

#include <QImage>

class QPainter;

#include "output/ExportOptions.h"
#include "output/ui/GraphPicture.h"

namespace curvemill {

// The size of a source at 100 %; a missing selection counts as the whole screen.
PixelSize sourceSize(const GraphPicture& picture, ExportSource source);

// The picture as an RGB32 image: the screen at 100 % is copied as shown; everything else is drawn
// again on white at its target size, a selection as its part of the screen drawn at that scale.
QImage renderPicture(const GraphPicture& picture, ExportSource source, double scale);

// Draws a source into a target of `pixels` (its part of the screen, or the document, scaled to
// fill it); the painter may be any device's.
void drawSource(QPainter& painter, const GraphPicture& picture, ExportSource source, QSize pixels);

// The part of the screen a source covers, in screen pixels.
QRect sourceRect(const GraphPicture& picture, ExportSource source);

}  // namespace curvemill
