// The sampled points of one curve (main, second, derivative or integral) with its y extent.
#pragma once

#include <cstdint>
#include <vector>

#include "graph2d/PlotPoint.h"

namespace curvemill {

inline constexpr double kNoYMin = 1e100;
inline constexpr double kNoYMax = -1e100;

struct Curve {
    // Room for 2 * N records (refined and edge points sit between the regular samples);
    // only the first pointCount are filled. Empty when the curve does not exist.
    std::vector<PlotPoint> points;
    std::int32_t pointCount = 0;
    // Lowest and highest defined y met while the curve was computed.
    double yMin = kNoYMin;
    double yMax = kNoYMax;

    bool exists() const { return pointCount > 0 && !points.empty(); }
    const PlotPoint* begin() const { return points.data(); }
    const PlotPoint* end() const { return points.data() + pointCount; }

    // Drops the records and gives the memory back.
    void release() {
        std::vector<PlotPoint>().swap(points);
        pointCount = 0;
        yMin = kNoYMin;
        yMax = kNoYMax;
    }
};

}  // namespace curvemill
