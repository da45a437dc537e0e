// A document captured from the core structs the window and the command line keep, and put back
// into them. Recomputing the points between the entries and the view is the caller's.
#pragma once

#include "document/DocumentCheck.h"
#include "document/GraphDocument.h"

namespace curvemill {

class StretchStack;
struct CurveGraph;
struct GraphView;
struct IntegralState;
struct RotationAngles;
struct SurfaceScene;
struct TwoDGraph;
struct TwoDSettings;
struct TwoVariableSettings;

// ----- The 2D view and its settings, shared by functions, equations and curves.

FlatViewState captureFlatView(const GraphView& view, const StretchStack& stretches);
// After the recomputed graph was laid out as new (resetView and the canvas's size): the zoom,
// scroll and stretches come back, the scroll held to the content, grid steps chosen again.
void applyFlatView(const FlatViewState& state, GraphView& view, StretchStack& stretches);

FlatLook captureFlatLook(const TwoDSettings& settings, const GraphView& view);
// The customization dialog's route (applyGraphSettings) plus the grid. Returns whether the ratio
// changed: then the Y range and layout must be worked out again, as after the dialog.
bool applyFlatLook(const FlatLook& look, TwoDSettings& settings, TwoDGraph& graph, GraphView& view);

// ----- Function graphs.

// The range texts come from the graph's values (numberEntryText); a caller holding the boxes'
// typed texts puts those in instead. `integral` is the Math dialog's last integral, null when
// none was computed; it counts only while its area is painted.
FunctionSection captureFunction(const TwoDGraph& graph, const GraphView& view,
                                const StretchStack& stretches, const TwoDSettings& settings,
                                const IntegralState* integral = nullptr, bool precise = false);
// The entries of a run: range, points and formula texts, as the Two D Graph dialog sets them
// before sampling; the slots come from prepareDocumentFormulas. Curves of the old graph go.
void applyFunctionEntries(const FunctionSection& section, const DocumentValues& values,
                          TwoDGraph& graph);

// ----- Equations and surfaces (the Equation / ThreeD window's settings).

EquationSection captureEquation(const TwoVariableSettings& entries, const GraphView& view,
                                const StretchStack& stretches, const TwoDSettings& settings);
SurfaceSection captureSurface(const TwoVariableSettings& entries, const SurfaceScene& scene,
                              const RotationAngles& angles);
// The window's last entry and counts, as its OK step keeps them.
void applyTwoVariableEntries(const GraphDocument& document, TwoVariableSettings& entries);
// After the surface's computation completed (startNewFigure): the look, viewer location, Z limits,
// drawing mode, zoom and angles of the document.
void applySurfaceLook(const SurfaceSection& section, SurfaceScene& scene, RotationAngles& angles);

// ----- Curves drawn by t.

CurveSection captureCurve(const CurveGraph& curve, const GraphView& view,
                          const StretchStack& stretches, const TwoDSettings& settings);
void applyCurveEntries(const CurveSection& section, const DocumentValues& values,
                       CurveGraph& curve);

}  // namespace curvemill
