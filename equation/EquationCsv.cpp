#include "equation/EquationCsv.h"

#include <cmath>

#include "equation/EquationCurve.h"
#include "graph2d/GraphPointsCsv.h"
#include "graph2d/GraphView.h"
#include "output/PointsCsv.h"

namespace curvemill {

std::string equationPointsCsv(const EquationCurve& curve, const GraphView& view,
                              const std::optional<PixelRect>& part) {
    const std::optional<PixelRect> shown = plottedPart(view, part);
    CsvCurve taken{curve.formulaText + " = 0", {}};
    if (curve.shown) {
        for (const SolutionPoint& point : curve.solutions) {
            if (std::isfinite(point.x) && std::isfinite(point.y) &&
                (!shown || shown->contains(view.toPixelX(point.x), view.toPixelY(point.y)))) {
                taken.points.push_back({point.x, point.y});
            }
        }
    }
    return pointsCsv({taken});
}

}  // namespace curvemill
