#include "graph2d/GridLayout.h"

#include <cmath>

#include "engine/DisplayFormat.h"

namespace curvemill {

namespace {

// No surface is tall or wide enough for more lines; a bad step must not stall a drawing.
constexpr int kMaxWalk = 100000;

bool usableStep(double step) {
    return step > 0.0 && std::isfinite(step);
}

// Lines and labels sit on whole pixels of the target, truncated toward zero; the test against
// the usable area is made on that pixel, so a line truncated onto the last column or row of the
// area is kept, and one whose unrounded position only grazes the first is not. NaN fails it too.
bool wholePixelInside(double position, double first, double last, double& pixel) {
    pixel = std::trunc(position);
    return pixel >= first && pixel <= last;
}

}  // namespace

double gridOrigin(double viewBegin, double step) {
    return wholePart(viewBegin / step) * step;
}

std::vector<double> gridWalk(double origin, double step, double first, double last) {
    std::vector<double> values;
    if (!usableStep(step) || !std::isfinite(origin)) {
        return values;
    }
    double v = origin;
    for (int i = 0; i < kMaxWalk && v <= last + step; ++i) {
        if (v >= first - step) {
            values.push_back(v);
        }
        const double next = v + step;
        if (next == v) {
            break;
        }
        v = next;
    }
    return values;
}

GridLayout layoutGrid(const GraphView& view, const std::string& dependentName) {
    GridLayout grid;
    const double xFirst = view.visibleXBegin();
    const double xLast = view.visibleXEnd();
    const double yFirst = view.visibleYBegin();
    const double yLast = view.visibleYEnd();
    const double stepX = view.gridStepX;
    const double stepY = view.gridStepY;

    if (usableStep(stepX)) {
        grid.xOrigin = gridOrigin(xFirst, stepX);
        const double labelRow = view.plotBottom() + std::trunc(5 * view.marginY / view.labelScale);
        for (double v : gridWalk(grid.xOrigin, stepX, xFirst, xLast)) {
            double column = 0.0;
            if (!wholePixelInside(view.toPixelX(v), view.left, view.plotRight(), column)) {
                continue;
            }
            grid.columns.push_back(static_cast<int>(column));
            grid.xLabels.push_back({column, labelRow, labelText(v, view.piUnitsX)});
        }
    }
    if (usableStep(stepY)) {
        grid.yOrigin = yFirst + stepY != yFirst ? gridOrigin(yFirst, stepY) : yFirst;
        const bool labelled = dependentName.find('n') == std::string::npos;
        const double labelColumn =
            view.left - view.marginX + std::trunc(5 * view.marginX / view.labelScale);
        for (double v : gridWalk(grid.yOrigin, stepY, yFirst, yLast)) {
            double row = 0.0;
            if (!wholePixelInside(view.toPixelY(v), view.top, view.plotBottom(), row)) {
                continue;
            }
            grid.rows.push_back(static_cast<int>(row));
            if (labelled) {
                grid.yLabels.push_back(
                    {labelColumn, row * view.ySign, labelText(v, view.piUnitsY)});
            }
        }
    }
    return grid;
}

}  // namespace curvemill
