#include "graph2d/CoordinateText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "engine/DisplayFormat.h"

namespace curvemill {

namespace {

// Decimals that tell neighbouring pixels apart at `pixelsPerUnit`.
int decimalsFor(double pixelsPerUnit) {
    if (!(pixelsPerUnit > 0.0) || !std::isfinite(pixelsPerUnit)) {
        return 2;
    }
    return std::clamp(static_cast<int>(std::ceil(std::log10(pixelsPerUnit))), 0, 12);
}

std::string valueText(double v, bool piUnits, double pixelsPerUnit) {
    char text[64];
    if (piUnits) {
        // One unit of the written number is pi graph units: pi times as many pixels.
        std::snprintf(text, sizeof text, "pi*%.*f", decimalsFor(pixelsPerUnit * kPi), v / kPi);
    } else {
        std::snprintf(text, sizeof text, "%.*f", decimalsFor(pixelsPerUnit), v);
    }
    return text;
}

}  // namespace

std::string coordinateText(const GraphView& view, double column, double row) {
    return "x = " + valueText(view.graphX(column), view.piUnitsX, view.ppu * view.xZoom) +
           "   y = " + valueText(view.graphY(row), view.piUnitsY, view.ppu * view.yZoom);
}

}  // namespace curvemill
