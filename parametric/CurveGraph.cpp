#include "parametric/CurveGraph.h"

#include "engine/Formula.h"
#include "parametric/CurveRefiner.h"

namespace curvemill {

const char* CurveGraph::title() const {
    return form == CurveForm::Polar ? "r = f(t)" : "x = f(t), y = g(t)";
}

bool runCurve(Formula& formula, CurveGraph& graph, const SamplingControl& control) {
    const CurveAt curve = curveOf(formula, graph.form);
    RefineSettings settings;
    settings.tBegin = graph.tBegin;
    settings.tEnd = graph.tEnd;
    settings.startPoints = graph.startPoints;
    settings.depthLimit = 0;
    // The first, even pass is a small share of the work: its progress is not shown.
    const CurveSampling even = refineCurve(curve, settings, {nullptr, control.stopRequested});
    // A Stop that clears the engine's flag makes every value indefinite: such a pass is void.
    if (even.stopped || !formula.keepComputing) {
        return false;
    }
    fitPixelSize(even.points, kFirstViewWidth, kFirstViewHeight, settings);
    settings.depthLimit = RefineSettings{}.depthLimit;
    CurveSampling refined = refineCurve(curve, settings, control);
    if (refined.stopped || !formula.keepComputing) {
        return false;
    }
    graph.points = std::move(refined.points);
    graph.budgetMet = refined.budgetMet;
    return true;
}

}  // namespace curvemill
