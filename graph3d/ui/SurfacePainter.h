// Paints the surface with QPainter onto any target: the screen's back buffer, an export image,
// a printer page.
#pragma once

#include <QSize>

#include "graph3d/SurfaceDrawing.h"

class QPainter;

namespace curvemill {

// Draws `scene` fitted and centred in a target of `devicePixels` (the target's own pixels: the
// back buffer at its device pixel ratio, the image, the printed page), whatever the painter's
// device pixel ratio. The painter's state is restored afterwards. Draws nothing while the scene
// holds no completed surface. The projection for this target is the call's own: the points the
// screen is drawn with stay as they were. A 32-bit image painted without transform or clip is
// written directly (a redraw of 501 x 501 cells would otherwise spend most of its time in the
// painter's set-up of each cell); other targets go through the painter.
void paintSurface(QPainter& painter, SurfaceScene& scene, QSize devicePixels);
// The surface as the program shows it, saves and prints it: on the graph's background.
void paintSurfacePicture(QPainter& painter, SurfaceScene& scene, QSize devicePixels);

// Hands cells to a QPainter that draws in device pixels; pens and brushes are made again only
// when the colour changes. Exposed for painting in slices.
class QPainterSurfaceSink : public SurfaceSink {
  public:
    // Sets up `painter` (saved by the caller) to draw in device pixels clipped to the target.
    QPainterSurfaceSink(QPainter& painter, QSize devicePixels);
    void polygon(const ScreenPoint* corners, int count, std::uint32_t colour) override;
    void line(ScreenPoint from, ScreenPoint to, std::uint32_t colour) override;
    void pixel(ScreenPoint at, std::uint32_t colour) override;
    void square(int left, int top, int right, int bottom, std::uint32_t colour) override;

  private:
    void usePenAndBrush(std::uint32_t colour);
    void usePen(std::uint32_t colour);

    QPainter& painter_;
    // The colour the current pen and brush were made for (none yet: an impossible value).
    std::uint32_t penColour_ = 0xffffffff;
    bool brushMatches_ = false;
};

}  // namespace curvemill
