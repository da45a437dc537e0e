#include "equation/EquationView.h"

#include <algorithm>
#include <cmath>

#include "graph2d/GridSteps.h"
#include "graph2d/ViewYRange.h"

namespace curvemill {

YRange equationYRange(const EquationCurve& curve, int maxYRatio) {
    if (curve.solutions.empty() || !(curve.yMin < curve.yMax)) {
        return {curve.grid.yBegin, curve.grid.yEnd};
    }
    return clampYRange({curve.yMin, curve.yMax}, curve.grid.xBegin, curve.grid.xEnd, maxYRatio);
}

void resetEquationView(GraphView& view, const EquationCurve& curve, int maxYRatio) {
    const YRange range = equationYRange(curve, maxYRatio);
    view.xZoom = 1.0;
    view.yZoom = 1.0;
    view.scrollX = 0.0;
    view.scrollY = 0.0;
    view.areaPainted = false;
    setViewRanges(view, curve.grid.xBegin, curve.grid.xEnd, range.begin, range.end, true);
    resetGridSteps(view);
}

void solutionPixels(const std::vector<SolutionPoint>& points, const GraphView& view,
                    std::vector<PixelPoint>& out) {
    out.clear();
    const double right = view.plotRight();
    const double bottom = view.plotBottom();
    for (const SolutionPoint& point : points) {
        const double px = view.toPixelX(point.x);
        const double py = view.toPixelY(point.y);
        // Also keeps NaN and values beyond any int32 away from the conversion.
        if (!(px >= view.left && px < right && py >= view.top && py < bottom)) {
            continue;
        }
        out.push_back({static_cast<std::int32_t>(px), static_cast<std::int32_t>(py)});
    }
}

std::vector<DotRun> dotRuns(std::vector<PixelPoint>& pixels, std::int32_t dot) {
    std::sort(pixels.begin(), pixels.end(), [](const PixelPoint& a, const PixelPoint& b) {
        return a.y != b.y ? a.y < b.y : a.x < b.x;
    });
    std::vector<DotRun> runs;
    for (const PixelPoint& p : pixels) {
        if (!runs.empty() && runs.back().y == p.y && p.x <= runs.back().x + runs.back().width) {
            runs.back().width = std::max(runs.back().width, p.x + dot - runs.back().x);
        } else {
            runs.push_back({p.x, p.y, dot});
        }
    }
    return runs;
}

}  // namespace curvemill
