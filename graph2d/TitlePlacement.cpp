#include "graph2d/TitlePlacement.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

double titleGap(const GraphView& view) {
    return std::trunc(2 * view.marginY / view.titleScale);
}

// The area's value must never cover the plotting area (the curves and the frame) nor run off the
// picture. It goes, in order of preference: on the formula's line, flush with the plotting area's
// right edge, when a gap of one line height is left between them; else under the formula, with
// both lines made small enough to fit the margin's height and the plotting area's width. Every
// size is a fraction of the margin, so the layout is the same at any pixel ratio.
TitlePlacement placeTitle(const GraphView& view, double firstWidth, double secondWidth,
                          double lineHeight) {
    const double d = titleGap(view);
    TitlePlacement place;
    place.firstX = view.left + d;
    place.firstTop = view.top - view.marginY + d;
    if (secondWidth <= 0.0 || lineHeight <= 0.0) {
        return place;
    }
    const double right = view.left + view.visibleWidth() - d;
    const double besideX = right - secondWidth;
    if (besideX >= place.firstX + firstWidth + lineHeight) {
        place.secondX = besideX;
        place.secondTop = place.firstTop;
        return place;
    }
    // Font sizes are whole pixels and glyph heights do not shrink quite in proportion: one pixel
    // is kept spare.
    const double byHeight = (view.marginY - 3 * d - 1) / (2 * lineHeight);
    const double widest = std::max(firstWidth, secondWidth);
    const double byWidth = widest > 0.0 ? (right - place.firstX) / widest : 1.0;
    place.fontScale = std::clamp(std::min(byHeight, byWidth), 0.0, 1.0);
    place.secondX = place.firstX;
    place.secondTop = place.firstTop + lineHeight * place.fontScale + d;
    return place;
}

}  // namespace curvemill
