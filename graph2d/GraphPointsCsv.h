// The points of the 2D curves that a part of the screen shows, as CSV for the clipboard and files.
#pragma once

#include <optional>
#include <string>

#include "graph2d/PixelRect.h"

namespace curvemill {

struct GraphView;
struct TwoDGraph;

// `part` cut to the plotting area of `view`; no part stays none (every point).
std::optional<PixelRect> plottedPart(const GraphView& view, const std::optional<PixelRect>& part);

// The 2D curves' points whose pixels lie inside `part` of a screen laid out as `view` (in its
// logical pixels) and inside its plotting area, or every defined point without a part.
std::string twoDPointsCsv(const TwoDGraph& graph, const GraphView& view,
                          const std::optional<PixelRect>& part);

}  // namespace curvemill
