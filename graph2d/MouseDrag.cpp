#include "graph2d/MouseDrag.h"

#include <algorithm>

namespace curvemill {

PixelRect selectionRect(const GraphView& view, double pressX, double pressY, double x, double y) {
    PixelRect rect;
    rect.left = std::clamp(std::min(pressX, x), view.left, view.plotRight());
    rect.right = std::clamp(std::max(pressX, x), view.left, view.plotRight());
    rect.top = std::clamp(std::min(pressY, y), view.top, view.plotBottom());
    rect.bottom = std::clamp(std::max(pressY, y), view.top, view.plotBottom());
    if (!(rect.width() >= kLeastSelectionSide) || !(rect.height() >= kLeastSelectionSide)) {
        return {};
    }
    return rect;
}

void dragScroll(GraphView& view, double pressScrollX, double pressScrollY, double dx, double dy) {
    view.scrollX = pressScrollX - dx;
    view.scrollY = pressScrollY - dy;
    clampScroll(view);
}

}  // namespace curvemill
