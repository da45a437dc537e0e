// The painted area under the main curve as polygons closed along the x axis, split at crossings.
#pragma once

#include <vector>

#include "graph2d/GraphView.h"
#include "graph2d/PixelPoint.h"
#include "graph2d/PlotPoint.h"

namespace curvemill {

// A polygon is handed to the surface and restarted once it holds this many points.
inline constexpr int kMaxAreaPolygonPoints = 500;

struct AreaPolygon {
    // Painted in the above-axis colours when the curve is above the x axis here.
    bool aboveAxis = true;
    // Closed implicitly from the last point back to the first, both on the axis row.
    std::vector<PixelPoint> points;
};

// Polygons of records first..last (inclusive) of `records`, bounded by the plotting rows.
std::vector<AreaPolygon> buildAreaPolygons(const GraphView& view, const PlotPoint* records,
                                           int count, int first, int last);

}  // namespace curvemill
