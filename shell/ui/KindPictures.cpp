#include "shell/ui/KindPictures.h"

#include <QPainter>

#include "equation/EquationCurve.h"
#include "equation/ui/EquationPainter.h"
#include "graph2d/GraphView.h"
#include "graph2d/ui/GraphPainter.h"
#include "graph3d/ui/SurfacePainter.h"
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

}  // namespace curvemill
