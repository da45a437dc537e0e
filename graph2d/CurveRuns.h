// The geometry of one drawn curve: connected pixel runs, broken at jumps and clipped to the rows.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "graph2d/GraphView.h"
#include "graph2d/PixelPoint.h"
#include "graph2d/PlotPoint.h"

namespace curvemill {

// Pixel rows are clamped to this before any clipping, so far-off values stay representable.
inline constexpr double kRowLimit = 32767.0;
// A run is handed to the surface once it holds this many points.
inline constexpr int kMaxRunPoints = 1001;

struct CurveRuns {
    // All points, run after run; run i covers [runEnds[i - 1], runEnds[i]).
    std::vector<PixelPoint> points;
    std::vector<std::int32_t> runEnds;

    std::size_t runCount() const { return runEnds.size(); }
    std::pair<const PixelPoint*, int> run(std::size_t i) const {
        const std::int32_t from = i == 0 ? 0 : runEnds[i - 1];
        return {points.data() + from, runEnds[i] - from};
    }
};

// Indices [first, last] of the records to visit: from the last one left of the view's x begin to
// the first one right of its x end. first > last when there are no records.
std::pair<int, int> visibleStretch(const GraphView& view, const PlotPoint* records, int count);

// The line runs of `count` records as drawn into `view`.
CurveRuns buildCurveRuns(const GraphView& view, const PlotPoint* records, int count);

}  // namespace curvemill
