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

// Clips the segment to the buffer (Liang-Barsky) so that a figure zoomed far beyond the target
// costs no more than what shows, then steps along it pixel by pixel (Bresenham).
void RasterSurfaceSink::drawLine(ScreenPoint from, ScreenPoint to, std::uint32_t pixel) {
    const auto inside = [this](ScreenPoint p) {
        return p.x >= 0 && p.y >= 0 && p.x < buffer_.width && p.y < buffer_.height;
    };
    int ax = from.x, ay = from.y, bx = to.x, by = to.y;
    if (!inside(from) || !inside(to)) {
        const double x0 = from.x, y0 = from.y;
        const double dx = double(to.x) - from.x, dy = double(to.y) - from.y;
        double t0 = 0, t1 = 1;
        const double p[4] = {-dx, dx, -dy, dy};
        const double q[4] = {x0, buffer_.width - 1 - x0, y0, buffer_.height - 1 - y0};
        for (int k = 0; k < 4; ++k) {
            if (p[k] == 0) {
                if (q[k] < 0) {
                    return;
                }
                continue;
            }
            const double r = q[k] / p[k];
            if (p[k] < 0) {
                t0 = std::max(t0, r);
            } else {
                t1 = std::min(t1, r);
            }
        }
        if (t0 > t1) {
            return;
        }
        ax = static_cast<int>(std::lround(x0 + t0 * dx));
        ay = static_cast<int>(std::lround(y0 + t0 * dy));
        bx = static_cast<int>(std::lround(x0 + t1 * dx));
        by = static_cast<int>(std::lround(y0 + t1 * dy));
    }
    const int sx = ax < bx ? 1 : -1;
    const int sy = ay < by ? 1 : -1;
    const int ex = std::abs(bx - ax);
    const int ey = -std::abs(by - ay);
    int error = ex + ey;
    for (;;) {
        if (ax >= 0 && ay >= 0 && ax < buffer_.width && ay < buffer_.height) {
            set(ax, ay, pixel);
        }
        if (ax == bx && ay == by) {
            return;
        }
        const int twice = 2 * error;
        if (twice >= ey) {
            error += ey;
            ax += sx;
        }
        if (twice <= ex) {
            error += ex;
            ay += sy;
        }
    }
}

void RasterSurfaceSink::polygon(const ScreenPoint* corners, int count, std::uint32_t colour) {
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
            // Crossings of the pixel centres' row with the edges; an edge holds its upper end
            // and not its lower one, so a shared corner counts once.
            const double centre = y + 0.5;
            double crossings[4];
            int found = 0;
            for (int n = 0; n < count && found < 4; ++n) {
                const ScreenPoint a = corners[n];
                const ScreenPoint b = corners[(n + 1) % count];
                if ((a.y <= centre) == (b.y <= centre)) {
                    continue;
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
                const double from = std::ceil(std::max(crossings[n] - 0.5, -1.0));
                const double to =
                    std::ceil(std::min(crossings[n + 1] - 0.5, double(buffer_.width)));
                span(y, static_cast<int>(from), static_cast<int>(to) - 1, pixel);
            }
        }
    }
    for (int n = 0; n < count; ++n) {
        drawLine(corners[n], corners[(n + 1) % count], pixel);
    }
}

void RasterSurfaceSink::line(ScreenPoint from, ScreenPoint to, std::uint32_t colour) {
    drawLine(from, to, toPixel(colour));
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
