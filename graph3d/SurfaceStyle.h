// The two choices of a surface's look that pick a way of drawing: how cells are drawn and how
// their brightness becomes a colour. Their order is the graph document's order of names.
#pragma once

#include <string_view>

namespace curvemill {

enum class DrawingMode { kPolygons, kLines, kPixels };
// The modes' names in files and on the command line, in the enum's order.
inline constexpr std::string_view kDrawingModeNames[] = {"polygons", "lines", "pixels"};

// kOwn blends the light's own colour from dark to bright.
enum class ColourScheme { kGrey, kRed, kGreen, kBlue, kCyan, kMagenta, kYellow, kOwn };

}  // namespace curvemill
