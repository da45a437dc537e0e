// The drawing routines of the equation curve, the curve and the surface, and the surface's CSV, for
// Save As File, Print and Copy: each kind is drawn again by its own painter at the target's pixels.
#pragma once

#include <optional>
#include <string>

#include <QRect>

#include "output/ui/GraphPicture.h"

namespace curvemill {

struct CurveGraph;
struct EquationCurve;
struct EquationLook;
struct GraphView;
struct SurfaceScene;

// The equation laid out like the 2D graph: the screen's view or, for the document, the whole
// zoomed graph unscrolled. The dots, squares and the ringed point come out as on screen.
GraphDrawing equationDrawing(const EquationCurve& curve, const EquationLook& look,
                             const GraphView& view);

// The curve laid out like the 2D graph, as the equation is.
GraphDrawing curveDrawing(const CurveGraph& curve, const GraphView& view);

// The surface has no scrolled document: every extent is the window's figure, fitted to the
// target as on screen, on the screen's background.
GraphDrawing surfaceDrawing(SurfaceScene& scene);

}  // namespace curvemill
