#include "document/DocumentState.h"

#include "graph2d/GridSteps.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/TwoDSettings.h"
#include "graph2d/ViewZoom.h"
#include "graph3d/SurfaceLookRules.h"
#include "graph3d/SurfaceRotation.h"
#include "graph3d/SurfaceScene.h"
#include "mathtools/IntegralState.h"
#include "parametric/CurveGraph.h"
#include "twovar/TwoVariableSettings.h"

namespace curvemill {

namespace {

RangeTexts rangeTexts(double begin, double end) {
    return {numberEntryText(begin), numberEntryText(end)};
}

}  // namespace

FlatViewState captureFlatView(const GraphView& view, const StretchStack& stretches) {
    FlatViewState state{view.xZoom, view.yZoom, view.scrollX, view.scrollY, {}};
    for (const StretchStack::Level& level : stretches.levels()) {
        state.stretches.push_back({level.xFactor, level.yFactor, level.cornerX, level.cornerY});
    }
    return state;
}

void applyFlatView(const FlatViewState& state, GraphView& view, StretchStack& stretches) {
    view.xZoom = state.xZoom;
    view.yZoom = state.yZoom;
    view.contentWidth = view.contentWidthAtZoom1 * state.xZoom;
    view.contentHeight = view.contentHeightAtZoom1 * state.yZoom;
    view.scrollX = state.scrollX;
    view.scrollY = state.scrollY;
    clampScroll(view);
    resetGridSteps(view);
    std::vector<StretchStack::Level> levels;
    for (const StretchLevel& level : state.stretches) {
        levels.push_back({level.xFactor, level.yFactor, level.cornerX, level.cornerY});
    }
    if (!stretches.restore(levels)) {
        stretches.clear();
    }
}

FlatLook captureFlatLook(const TwoDSettings& settings, const GraphView& view) {
    FlatLook look{settings, view.gridOn};
    // The order on screen is the view's; the settings' copy may lag behind it.
    look.settings.displayOrder = view.displayOrder;
    return look;
}

bool applyFlatLook(const FlatLook& look, TwoDSettings& settings, TwoDGraph& graph,
                   GraphView& view) {
    settings = look.settings;
    view.gridOn = look.grid;
    return applyGraphSettings(graph, view, settings);
}

FunctionSection captureFunction(const TwoDGraph& graph, const GraphView& view,
                                const StretchStack& stretches, const TwoDSettings& settings,
                                const IntegralState* integral, bool precise) {
    FunctionSection section;
    section.formula = graph.mainFormulaText;
    section.x = rangeTexts(graph.xBegin, graph.xEnd);
    section.points = graph.pointsPerRun;
    if (graph.hasSecond()) {
        section.secondFormula = graph.secondFormulaText;
    }
    section.derivative = graph.hasDerivative();
    if (integral != nullptr && view.areaPainted) {
        section.integral = {true, rangeTexts(integral->begin, integral->end), precise};
    }
    section.integralCurve = graph.hasIntegral();
    section.indefiniteMarked = view.indefiniteMarked;
    section.view = captureFlatView(view, stretches);
    section.look = captureFlatLook(settings, view);
    return section;
}

void applyFunctionEntries(const FunctionSection& section, const DocumentValues& values,
                          TwoDGraph& graph) {
    graph.second.release();
    graph.derivative.release();
    graph.integral.release();
    graph.areaLast = -1;
    graph.areaText.clear();
    graph.xBegin = values.xBegin;
    graph.xEnd = values.xEnd;
    graph.pointsPerRun = section.points;
    graph.mainFormulaText = section.formula;
    graph.secondFormulaText = section.secondFormula;
}

EquationSection captureEquation(const TwoVariableSettings& entries, const GraphView& view,
                                const StretchStack& stretches, const TwoDSettings& settings) {
    EquationSection section;
    section.formula = entries.formula;
    section.x = {entries.xBegin, entries.xEnd};
    section.y = {entries.yBegin, entries.yEnd};
    section.xPoints = entries.equationXPoints;
    section.yPoints = entries.equationYPoints;
    section.precisionDigits = entries.precisionDigits;
    section.view = captureFlatView(view, stretches);
    section.look = captureFlatLook(settings, view);
    return section;
}

SurfaceSection captureSurface(const TwoVariableSettings& entries, const SurfaceScene& scene,
                              const RotationAngles& angles) {
    SurfaceSection section;
    section.formula = entries.formula;
    section.x = {entries.xBegin, entries.xEnd};
    section.y = {entries.yBegin, entries.yEnd};
    section.xPoints = entries.surfaceXPoints;
    section.yPoints = entries.surfaceYPoints;
    section.angles = {angles.x, angles.y, angles.z};
    section.zoom = scene.view.zoom;
    section.horizontalLocation = scene.view.horizontalLocation;
    section.verticalLocation = scene.view.verticalLocation;
    const SurfaceLight& light = scene.light;
    section.light = {light.vector.x, light.vector.y, light.vector.z};
    section.ambient = light.ambient;
    section.shiny = light.shiny;
    section.specularShare = light.specularShare;
    section.fog = light.fogIntensity;
    section.scheme = light.scheme;
    section.ownColour = {static_cast<std::int32_t>(light.ownRed),
                         static_cast<std::int32_t>(light.ownGreen),
                         static_cast<std::int32_t>(light.ownBlue)};
    section.mode = scene.drawing.mode;
    section.shading = scene.drawing.shading;
    // The step counts only while the figure's heights are limited; a figure without limits keeps
    // 0 there, and the step a new figure starts with stands for it.
    section.zLimitStep = scene.grid.limits.active ? scene.grid.limits.step : ZLimits().step;
    section.gridBox = scene.drawing.gridBox;
    return section;
}

void applyTwoVariableEntries(const GraphDocument& document, TwoVariableSettings& entries) {
    const bool surface = document.kind == DocumentKind::kSurface;
    const std::string& formula = surface ? document.surface.formula : document.equation.formula;
    const RangeTexts& x = surface ? document.surface.x : document.equation.x;
    const RangeTexts& y = surface ? document.surface.y : document.equation.y;
    entries.xBegin = x.begin;
    entries.xEnd = x.end;
    entries.yBegin = y.begin;
    entries.yEnd = y.end;
    entries.formula = formula;
    entries.kind = surface ? TwoVariableMode::kSurface : TwoVariableMode::kEquation;
    if (surface) {
        entries.surfaceXPoints = document.surface.xPoints;
        entries.surfaceYPoints = document.surface.yPoints;
    } else {
        entries.equationXPoints = document.equation.xPoints;
        entries.equationYPoints = document.equation.yPoints;
        entries.precisionDigits = document.equation.precisionDigits;
    }
}

void applySurfaceLook(const SurfaceSection& section, SurfaceScene& scene, RotationAngles& angles) {
    SurfaceLight& light = scene.light;
    light.vector = {section.light[0], section.light[1], section.light[2]};
    light.ambient = section.ambient;
    light.shiny = section.shiny;
    light.specularShare = section.specularShare;
    light.fogIntensity = section.fog;
    light.scheme = section.scheme;
    light.ownRed = section.ownColour[0];
    light.ownGreen = section.ownColour[1];
    light.ownBlue = section.ownColour[2];
    scene.drawing.mode = section.mode;
    scene.drawing.shading = section.shading;
    scene.drawing.gridBox = section.gridBox;
    // The routes of the customization dialog: the eye is set up again for the location and the
    // new top of the figure, then turned and zoomed as the rotation commands and Zoom do.
    setViewerLocation(scene, section.horizontalLocation, section.verticalLocation);
    setZLimitStep(scene, section.zLimitStep);
    angles = {section.angles[0], section.angles[1], section.angles[2]};
    applyRotation(scene.view, angles);
    scene.view.zoom = 1.0;
    zoomFigure(scene.view, section.zoom);
}

CurveSection captureCurve(const CurveGraph& curve, const GraphView& view,
                          const StretchStack& stretches, const TwoDSettings& settings) {
    CurveSection section;
    section.polar = curve.form == CurveForm::Polar;
    section.first = curve.firstText;
    section.second = section.polar ? std::string() : curve.secondText;
    section.t = rangeTexts(curve.tBegin, curve.tEnd);
    section.points = curve.startPoints;
    section.arrow = curve.arrow;
    section.view = captureFlatView(view, stretches);
    section.look = captureFlatLook(settings, view);
    return section;
}

void applyCurveEntries(const CurveSection& section, const DocumentValues& values,
                       CurveGraph& curve) {
    curve.form = section.polar ? CurveForm::Polar : CurveForm::Parametric;
    curve.firstText = section.first;
    curve.secondText = section.polar ? std::string() : section.second;
    curve.tBegin = values.xBegin;
    curve.tEnd = values.xEnd;
    curve.startPoints = section.points;
    curve.arrow = section.arrow;
}

}  // namespace curvemill
