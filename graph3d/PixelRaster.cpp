#include "graph3d/PixelRaster.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

void RasterSurfaceSink::span(int y, int from, int to, std::uint32_t pixel) {
    if (y < 0 || y >= buffer_.height) {
        return;
    }
    from = std::max(from, 0);
    to = std::min(to, buffer_.width - 1);
    std::uint32_t* row = buffer_.bits + static_cast<std::ptrdiff_t>(y) * buffer_.stride;
    for (int x = from; x <= to; ++x) {
        row[x] = pixel;
    }
}

// Clips the segment to the buffer so that a figure zoomed far beyond the target costs no more
// than what shows.
bool RasterSurfaceSink::clip(ScreenPoint from, ScreenPoint to, Segment& out) const {
    out = {double(from.x), double(from.y), double(to.x), double(to.y)};
    return clipSegment(out, 0, 0, buffer_.width - 1, buffer_.height - 1);
}

void RasterSurfaceSink::blend(int x, int y, std::uint32_t pixel, double coverage) {
    if (x < 0 || y < 0 || x >= buffer_.width || y >= buffer_.height) {
        return;
    }
    const auto weight = static_cast<std::uint32_t>(coverage * 256.0 + 0.5);
    std::uint32_t& target = buffer_.bits[static_cast<std::ptrdiff_t>(y) * buffer_.stride + x];
    if (weight >= 256 || target == pixel) {
        target = pixel;
        return;
    }
    if (weight == 0) {
        return;
    }
    const auto mix = [&](int shift) {
        const std::uint32_t a = pixel >> shift & 0xffu;
        const std::uint32_t b = target >> shift & 0xffu;
        return ((a * weight + b * (256 - weight)) >> 8) << shift;
    };
    target = 0xff000000u | mix(16) | mix(8) | mix(0);
}

// Each pixel along the line gets the share of it that a one-pixel-wide line covers (Wu), so an
// outline against the background is smooth at any scale; both ends are covered whole, so that a
// cell thinner than a pixel still shows.
void RasterSurfaceSink::drawSmoothLine(ScreenPoint from, ScreenPoint to, std::uint32_t pixel) {
    Segment s;
    if (!clip(from, to, s)) {
        return;
    }
    const bool steep = std::fabs(s.y1 - s.y0) > std::fabs(s.x1 - s.x0);
    if (steep) {
        std::swap(s.x0, s.y0);
        std::swap(s.x1, s.y1);
    }
    if (s.x0 > s.x1) {
        std::swap(s.x0, s.x1);
        std::swap(s.y0, s.y1);
    }
    const auto plot = [&](int major, int minor, double coverage) {
        if (steep) {
            blend(minor, major, pixel, coverage);
        } else {
            blend(major, minor, pixel, coverage);
        }
    };
    const int first = static_cast<int>(std::lround(s.x0));
    const int last = static_cast<int>(std::lround(s.x1));
    const double gradient = s.x1 > s.x0 ? (s.y1 - s.y0) / (s.x1 - s.x0) : 0.0;
    plot(first, static_cast<int>(std::lround(s.y0)), 1.0);
    for (int x = first + 1; x < last; ++x) {
        const double y = s.y0 + gradient * (x - s.x0);
        const double below = std::floor(y);
        const double share = y - below;
        plot(x, static_cast<int>(below), 1.0 - share);
        plot(x, static_cast<int>(below) + 1, share);
    }
    plot(last, static_cast<int>(std::lround(s.y1)), 1.0);
}

void RasterSurfaceSink::cell(const ScreenPoint* corners, int count, std::uint32_t colour,
                             unsigned openEdges) {
    const std::uint32_t pixel = toPixel(colour);
    if (count >= 3) {
        int top = corners[0].y, bottom = corners[0].y;
        for (int n = 1; n < count; ++n) {
            top = std::min(top, corners[n].y);
            bottom = std::max(bottom, corners[n].y);
        }
        top = std::max(top, 0);
        bottom = std::min(bottom, buffer_.height - 1);
        for (int y = top; y <= bottom; ++y) {
            // Crossings of the row of pixel centres with the edges (a point's integer
            // coordinates name a pixel's centre, as for the lines); an edge holds its upper end
            // and not its lower one, so a shared corner counts once.
            const double centre = y;
            double crossings[4];
            int found = 0;
            for (int n = 0; n < count && found < 4; ++n) {
                ScreenPoint a = corners[n];
                ScreenPoint b = corners[(n + 1) % count];
                if ((a.y <= centre) == (b.y <= centre)) {
                    continue;
                }
                // From the upper end whichever way the cell runs, so that the two cells of a
                // shared edge find the very same crossing and no pixel between them is lost.
                if (a.y > b.y) {
                    std::swap(a, b);
                }
                crossings[found++] =
                    a.x + (centre - a.y) * (double(b.x) - a.x) / (double(b.y) - a.y);
            }
            for (int n = 1; n < found; ++n) {  // at most four: an insertion sort
                for (int m = n; m > 0 && crossings[m] < crossings[m - 1]; --m) {
                    std::swap(crossings[m], crossings[m - 1]);
                }
            }
            for (int n = 0; n + 1 < found; n += 2) {
                const double from = std::ceil(std::max(crossings[n], -1.0));
                const double to = std::floor(std::min(crossings[n + 1], double(buffer_.width)));
                span(y, static_cast<int>(from), static_cast<int>(to), pixel);
            }
        }
    }
    for (int n = 0; n < count; ++n) {
        if (openEdges >> n & 1u) {
            drawSmoothLine(corners[n], corners[(n + 1) % count], pixel);
        }
    }
}

void RasterSurfaceSink::line(ScreenPoint from, ScreenPoint to, std::uint32_t colour) {
    drawSmoothLine(from, to, toPixel(colour));
}

void RasterSurfaceSink::pixel(ScreenPoint at, std::uint32_t colour) {
    if (at.x >= 0 && at.y >= 0 && at.x < buffer_.width && at.y < buffer_.height) {
        set(at.x, at.y, toPixel(colour));
    }
}

void RasterSurfaceSink::square(int left, int top, int right, int bottom, std::uint32_t colour) {
    const std::uint32_t pixel = toPixel(colour);
    for (int y = std::max(top, 0); y < std::min(bottom, buffer_.height); ++y) {
        span(y, left, right - 1, pixel);
    }
}

}  // namespace curvemill
