// A point on a drawing surface in whole pixels (truncated toward zero).
#pragma once

#include <cstdint>

namespace curvemill {

struct PixelPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const PixelPoint&) const = default;
};

}  // namespace curvemill
