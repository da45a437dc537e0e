// A rectangle in a view's pixels, as the mouse selects it and as the outputs take a part of it.
#pragma once

#include <algorithm>

namespace curvemill {

// Empty when it has no area.
struct PixelRect {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    bool empty() const { return !(width() > 0.0) || !(height() > 0.0); }
    // Edges count as inside; an empty rectangle holds nothing.
    bool contains(double x, double y) const {
        return !empty() && !(x < left || x > right || y < top || y > bottom);
    }
    // What both cover; empty when they do not overlap.
    PixelRect intersected(const PixelRect& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
};

}  // namespace curvemill
