#include "graph2d/DisplayOrder.h"

#include <algorithm>

namespace curvemill {

namespace {

// In the order of GraphCurve.
constexpr std::string_view kCurveLetters = "fdiF";

}  // namespace

char curveLetter(GraphCurve curve) {
    return kCurveLetters[static_cast<std::size_t>(curve)];
}

std::optional<GraphCurve> curveOfLetter(char letter) {
    const std::size_t at = kCurveLetters.find(letter);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    return static_cast<GraphCurve>(at);
}

std::string DisplayOrder::letters() const {
    std::string letters;
    for (const GraphCurve curve : curves_) {
        letters += curveLetter(curve);
    }
    return letters;
}

std::optional<DisplayOrder> DisplayOrder::ofLetters(std::string_view letters) {
    DisplayOrderPicker picker;
    for (const char letter : letters) {
        const std::optional<GraphCurve> curve = curveOfLetter(letter);
        if (!curve || picker.press(*curve) == 0) {
            return std::nullopt;
        }
    }
    if (letters.size() != kCurveLetters.size()) {
        return std::nullopt;
    }
    return picker.order();
}

DisplayOrderPicker::DisplayOrderPicker(const DisplayOrder& order) {
    for (const GraphCurve curve : order) {
        press(curve);
    }
}

int DisplayOrderPicker::press(GraphCurve curve) {
    if (placeOf(curve) != 0) {
        return 0;
    }
    working_[placed_++] = curve;
    return static_cast<int>(placed_);
}

int DisplayOrderPicker::placeOf(GraphCurve curve) const {
    const auto end = working_.begin() + static_cast<std::ptrdiff_t>(placed_);
    const auto at = std::find(working_.begin(), end, curve);
    return at == end ? 0 : static_cast<int>(at - working_.begin()) + 1;
}

DisplayOrder DisplayOrderPicker::order() const {
    DisplayOrder order;
    std::size_t next = placed_;
    std::copy_n(working_.begin(), placed_, order.curves_.begin());
    for (const GraphCurve curve : DisplayOrder().curves_) {
        if (placeOf(curve) == 0) {
            order.curves_[next++] = curve;
        }
    }
    return order;
}

}  // namespace curvemill
