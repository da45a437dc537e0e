// The settings of the 2D graph the customization dialog edits, and how they are applied.
#pragma once

#include "graph2d/DisplayOrder.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ViewYRange.h"

namespace curvemill {

// The highest ratio of the Y field to the X field the dialog offers.
inline constexpr int kMostYRatio = 20;

struct TwoDSettings {
    int maxYRatio = 10;
    // Drawing step 10 (on) or 1 (off).
    bool optimizeDrawing = true;
    // Mouse function: "Select Area" (true) or "Move Screen".
    bool selectArea = false;
    bool tooltips = true;
    bool toolbar = true;
    DisplayOrder displayOrder;
    friend bool operator==(const TwoDSettings&, const TwoDSettings&) = default;
};

// The upper end of the ratio spin: the curves' unclamped height over the X range, rounded up to
// a whole number, 1 to 20.
int ratioSpinTop(const TwoDGraph& graph);

// The Y range `ratio` gives the graph's curves, as the view would take it.
YRange ratioYRange(const TwoDGraph& graph, int ratio);

// Applies the ratio and "Optimize Drawing" to the graph (vertex flags of the main and second
// function recomputed when the option changes) and the display order to the view. Returns
// whether the ratio changed: then the Y range and layout must be worked out again.
bool applyGraphSettings(TwoDGraph& graph, GraphView& view, const TwoDSettings& settings);

}  // namespace curvemill
