// A sampled curve as CSV, for the clipboard and the command line.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "graph2d/PixelRect.h"
#include "parametric/PlaneCurve.h"

namespace curvemill {

struct CurveGraph;
struct GraphView;

// The header "t,x,y,isBreak", then one record per point, numbers with 17 significant digits so
// that they read back bit for bit.
void writeCurveCsv(const std::vector<CurvePoint>& points, std::ostream& out);

// The records whose points lie inside `part` of a screen laid out as `view` (logical pixels) and
// inside its plotting area, or every record without a part.
std::string curvePointsCsv(const CurveGraph& curve, const GraphView& view,
                           const std::optional<PixelRect>& part);

}  // namespace curvemill
