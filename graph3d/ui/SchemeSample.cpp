#include "graph3d/ui/SchemeSample.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

QImage schemeSample(const SurfaceLight& light, ColourScheme scheme, int side) {
    SurfaceLight look = light;
    look.scheme = scheme;
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const double r = side / 2.0;
    // Toward the upper left and the viewer.
    const double lx = -0.5;
    const double ly = -0.5;
    const double lz = std::sqrt(0.5);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double nx = (x + 0.5 - r) / r;
            const double ny = (y + 0.5 - r) / r;
            const double rest = 1 - nx * nx - ny * ny;
            if (rest <= 0) {
                continue;
            }
            const double cosL = std::max(0.0, nx * lx + ny * ly + std::sqrt(rest) * lz);
            const int brightness =
                std::clamp(static_cast<int>(light.ambient + (255 - light.ambient) * cosL), 0, 255);
            const std::uint32_t c = schemeColour(look, brightness);
            image.setPixel(x, y, qRgb(redOf(c), greenOf(c), blueOf(c)));
        }
    }
    return image;
}

}  // namespace curvemill
