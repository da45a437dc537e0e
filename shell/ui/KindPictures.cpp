#include "shell/ui/KindPictures.h"

#include <vector>

#include <QPainter>

#include "equation/EquationCurve.h"
#include "equation/ui/EquationPainter.h"
#include "graph2d/GraphView.h"
#include "graph2d/ui/GraphPainter.h"
#include "graph3d/SurfaceDrawing.h"
#include "graph3d/ui/SurfacePainter.h"
#include "output/PointsCsv.h"
#include "parametric/CurveGraph.h"
#include "parametric/ui/CurvePainter.h"
#include "shell/ui/GraphOutputs.h"

namespace curvemill {

GraphDrawing equationDrawing(const EquationCurve& curve, const EquationLook& look,
                             const GraphView& view) {
    return [&curve, &look, &view](QPainter& painter, QSize pixels, PictureExtent extent) {
        if (!curve.shown) {
            return;
        }
        GraphView target = targetView(view, painter, pixels, extent);
        // A painter of its own: the screen's keeps fonts sized for the screen.
        GraphPainter graphPainter;
        EquationPainter equationPainter;
        equationPainter.draw(graphPainter, painter, curve, target, look);
    };
}

GraphDrawing curveDrawing(const CurveGraph& curve, const GraphView& view) {
    return [&curve, &view](QPainter& painter, QSize pixels, PictureExtent extent) {
        GraphView target = targetView(view, painter, pixels, extent);
        GraphPainter graphPainter;
        CurvePainter().draw(graphPainter, painter, curve, target);
    };
}

GraphDrawing surfaceDrawing(SurfaceScene& scene) {
    return [&scene](QPainter& painter, QSize pixels, PictureExtent) {
        paintSurfacePicture(painter, scene, pixels);
    };
}

std::string surfaceVerticesCsv(SurfaceScene& scene, QSize screen,
                               const std::optional<QRect>& part) {
    std::vector<CsvVertex> vertices;
    SurfaceGrid& grid = scene.grid;
    if (scene.complete && grid.allocated() && !screen.isEmpty()) {
        // Projecting every vertex for the screen's size puts each where the screen shows it.
        const DrawingPlan plan = prepareDrawing(scene, screen.width(), screen.height());
        for (int i = 0; plan.points.fits(grid) && i <= grid.nx; ++i) {
            for (int j = 0; j <= grid.ny; ++j) {
                const SurfaceVertex& v = grid.vertex(i, j);
                const ScreenPoint at = plan.points.at(i, j);
                if (v.indefinite == 0 && (!part || part->contains(at.x, at.y))) {
                    vertices.push_back({i, j, v.x, v.y, v.z});
                }
            }
        }
    }
    return verticesCsv(vertices);
}

}  // namespace curvemill
