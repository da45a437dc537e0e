#include "graph2d/ViewResize.h"

#include <algorithm>
#include <cmath>

#include "graph2d/GridSteps.h"

namespace curvemill {

void resizeKeepingCentre(GraphView& view, double width, double height) {
    if (!(view.visibleWidth() > 0.0) || !(view.visibleHeight() > 0.0)) {
        setViewSize(view, width, height);
        return;
    }
    const double centreX = view.graphX(view.left + view.visibleWidth() / 2);
    const double centreY = view.graphY(view.top + view.visibleHeight() / 2);
    setViewSize(view, width, height);
    // toPixelX and toPixelY solved for the offsets that put the centre mid-area.
    view.scrollX = (centreX - view.xBegin) * view.ppu * view.xZoom - view.visibleWidth() / 2;
    view.scrollY = (view.graphHeight - (centreY - view.yBase) * view.ppu) * view.yZoom -
                   view.visibleHeight() / 2;
    clampScroll(view);
}

GraphView pageView(const GraphView& view, double width, double height, double ratio) {
    GraphView page = view;
    const double r = ratio > 0.0 && std::isfinite(ratio) ? ratio : 1.0;
    resizeKeepingCentre(page, std::max(1.0, std::round(width / r)),
                        std::max(1.0, std::round(height / r)));
    resetGridSteps(page);
    return scaledView(page, r);
}

}  // namespace curvemill
