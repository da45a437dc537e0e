#include "graph2d/TitlePlacement.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

double titleGap(const GraphView& view) {
    return std::trunc(2 * view.marginY / view.titleScale);
}

// The area's value has a line of its own, 2 d under the formula's, and must never cover the
// plotting area (the curves and the frame) nor run off the picture: both lines are made small
// enough to fit the margin's height above the frame, and the plotting area's width.
// Every size is a fraction of the margin, so the layout is the same at any pixel ratio.
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
    // Font sizes are whole pixels and glyph heights do not shrink quite in proportion: one pixel
    // is kept spare above the frame, which is pixelRatio pixels thick.
    const double frame = std::max(1.0, std::round(view.pixelRatio));
    const double byHeight = (view.marginY - 3 * d - 1 - frame) / (2 * lineHeight);
    const double widest = std::max(firstWidth, secondWidth);
    const double byWidth = widest > 0.0 ? (right - place.firstX) / widest : 1.0;
    place.fontScale = std::clamp(std::min(byHeight, byWidth), 0.0, 1.0);
    place.secondX = place.firstX;
    place.secondTop = place.firstTop + lineHeight * place.fontScale + 2 * d;
    return place;
}

}  // namespace curvemill
