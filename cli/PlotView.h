// The plot command's view options: the zoom, scroll and settings the program's screen can have.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "cli/Arguments.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill::cli {

struct PlotViewOptions {
    std::optional<double> zoomX;
    std::optional<double> zoomY;
    std::optional<double> scrollX;
    std::optional<double> scrollY;
    bool fit = false;
    std::optional<int> ratio;
    std::optional<DisplayOrder> order;
    bool noOptimize = false;

    // Zoom, scroll or fit asked for: the view is laid out as the screen lays it out.
    bool screenView() const { return zoomX || zoomY || scrollX || fit; }
};

void addPlotViewOptions(std::vector<OptionSpec>& options);

// The options as given, or nothing after telling `usage`.
std::optional<PlotViewOptions> plotViewOptions(const ParsedArguments& arguments,
                                               UsageErrors& usage);

// The ratio and "Optimize Drawing"; before the view takes its Y range.
void applyGraphOptions(const PlotViewOptions& options, TwoDGraph& graph);

// The view of a graph laid out for its size: as the screen opens it (scrolled to the x axis),
// zoomed about the centre, fitted, then scrolled to the given offsets. Without zoom, scroll or
// fit the whole graph height is fitted to the image, as plot always did.
void applyViewOptions(const PlotViewOptions& options, GraphView& view);

}  // namespace curvemill::cli
