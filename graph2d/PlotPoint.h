// One sampled point of a 2D curve, packed so that a curve is a plain run of 20-byte records.
#pragma once

#include <cstdint>

namespace curvemill {

enum PeakKind : std::uint8_t {
    kOrdinaryPoint = 0,
    kRefinedMaximum = 1,
    kRefinedMinimum = 2,
};

#pragma pack(push, 1)
struct PlotPoint {
    double x = 0.0;
    // Meaningless where isIndefinite is set.
    double y = 0.0;
    // The drawing must not join this point to its neighbour across a jump.
    std::uint8_t isBreak = 0;
    // The formula has no value here.
    std::uint8_t isIndefinite = 0;
    // Visited when the curve is drawn; cleared on most regular samples to speed drawing up.
    std::uint8_t isVertex = 1;
    // One of PeakKind.
    std::uint8_t peakKind = kOrdinaryPoint;
};
#pragma pack(pop)

static_assert(sizeof(PlotPoint) == 20, "PlotPoint records are 20 bytes");

}  // namespace curvemill
