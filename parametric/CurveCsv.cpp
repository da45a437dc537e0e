#include "parametric/CurveCsv.h"

#include <cstdio>
#include <sstream>

#include "graph2d/GraphPointsCsv.h"
#include "graph2d/GraphView.h"
#include "parametric/CurveGraph.h"

namespace curvemill {

void writeCurveCsv(const std::vector<CurvePoint>& points, std::ostream& out) {
    std::string text = "t,x,y,isBreak\n";
    char line[100];
    for (const CurvePoint& p : points) {
        const int n =
            std::snprintf(line, sizeof line, "%.17g,%.17g,%.17g,%d\n", p.t, p.x, p.y, p.isBreak);
        text.append(line, static_cast<std::size_t>(n));
        // Written in pieces: a curve of a million points need not be held twice.
        if (text.size() > (1u << 20)) {
            out << text;
            text.clear();
        }
    }
    out << text;
}

std::string curvePointsCsv(const CurveGraph& curve, const GraphView& view,
                           const std::optional<PixelRect>& part) {
    const std::optional<PixelRect> shown = plottedPart(view, part);
    std::vector<CurvePoint> taken;
    for (const CurvePoint& p : curve.points) {
        if (!shown || shown->contains(view.toPixelX(p.x), view.toPixelY(p.y))) {
            taken.push_back(p);
        }
    }
    std::ostringstream text;
    writeCurveCsv(taken, text);
    return text.str();
}

}  // namespace curvemill
