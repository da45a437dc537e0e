// The solution points that a part of the screen shows, as CSV for the clipboard and files.
#pragma once

#include <optional>
#include <string>

#include "graph2d/PixelRect.h"

namespace curvemill {

struct EquationCurve;
struct GraphView;

// The solution points whose pixels lie inside `part` of a screen laid out as `view` (logical
// pixels) and inside its plotting area, or every solution without a part, under the name
// "<F> = 0".
std::string equationPointsCsv(const EquationCurve& curve, const GraphView& view,
                              const std::optional<PixelRect>& part);

}  // namespace curvemill
