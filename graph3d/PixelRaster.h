// Draws cells straight into 32-bit pixels (0xAARRGGBB words, as Qt's 32-bit images hold them):
// the fast road for images, where a general painter spends most of a redraw on per-call set-up.
#pragma once

#include <cstddef>
#include <cstdint>

#include "graph2d/SegmentClip.h"
#include "graph3d/SurfaceDrawing.h"

namespace curvemill {

struct PixelBuffer {
    std::uint32_t* bits = nullptr;
    int width = 0;
    int height = 0;
    // Pixels from the start of one row to the start of the next.
    std::ptrdiff_t stride = 0;
};

// Fills every pixel whose centre is inside the cell, then outlines its open edges blended by how
// much of each pixel the one-pixel line covers, so that the figure's edge is smooth and cells
// thinner than a pixel still show there. Cells are filled hard inside: blended fills would let the
// background show through between neighbours, and two neighbours' fills take every pixel centre
// on their shared edge alike. Everything is clipped to the buffer.
class RasterSurfaceSink : public SurfaceSink {
  public:
    explicit RasterSurfaceSink(PixelBuffer buffer) : buffer_(buffer) {}
    void polygon(const ScreenPoint* corners, int count, std::uint32_t colour) override {
        cell(corners, count, colour, 0xfu);
    }
    void cell(const ScreenPoint* corners, int count, std::uint32_t colour,
              unsigned openEdges) override;
    void line(ScreenPoint from, ScreenPoint to, std::uint32_t colour) override;
    void pixel(ScreenPoint at, std::uint32_t colour) override;
    void square(int left, int top, int right, int bottom, std::uint32_t colour) override;

    // Our colours keep red in the low byte; the buffer wants it above green, opaque.
    static std::uint32_t toPixel(std::uint32_t colour) {
        return 0xff000000u | (colour & 0xffu) << 16 | (colour & 0xff00u) | (colour >> 16 & 0xffu);
    }

  private:
    void set(int x, int y, std::uint32_t pixel) {
        buffer_.bits[static_cast<std::ptrdiff_t>(y) * buffer_.stride + x] = pixel;
    }
    bool clip(ScreenPoint from, ScreenPoint to, Segment& out) const;
    void span(int y, int from, int to, std::uint32_t pixel);
    void blend(int x, int y, std::uint32_t pixel, double coverage);
    void drawSmoothLine(ScreenPoint from, ScreenPoint to, std::uint32_t pixel);

    PixelBuffer buffer_;
};

}  // namespace curvemill
