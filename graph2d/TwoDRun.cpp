#include "graph2d/TwoDRun.h"

#include <optional>
#include <string_view>
#include <utility>

#include "engine/Formula.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

namespace {

void dropDerivedCurves(TwoDGraph& graph, GraphView* view) {
    graph.derivative.release();
    graph.integral.release();
    graph.areaLast = -1;
    if (view != nullptr) {
        view->areaPainted = false;
    }
}

}  // namespace

TwoDRun::TwoDRun(TwoDGraphRole role, Formula& formula, TwoDGraph& graph, GraphView* view)
    : role_(role), formula_(formula), graph_(graph), view_(view) {}

GraphEntries TwoDRun::check(NumberBox& xBegin, NumberBox& xEnd, const std::string& typed,
                            const std::function<void()>& askLogBase) {
    const bool second = role_ == TwoDGraphRole::Second;
    slot_.keep(formula_, second ? kSecondFunctionSlot : kFunctionSlot);
    GraphEntries entries = checkGraphEntries(
        formula_, xBegin, xEnd, typed,
        second ? std::optional<std::string_view>(graph_.mainFormulaText) : std::nullopt,
        askLogBase);
    if (entries.refusal) {
        slot_.restore();
    }
    return entries;
}

void TwoDRun::start(double xBegin, double xEnd, int points, std::string typed) {
    const bool main = role_ == TwoDGraphRole::Main;
    graph_.drawStep = 10;
    graph_.maxYRatio = 10;
    typed_ = std::move(typed);
    if (main) {
        dropDerivedCurves(graph_, view_);
    }
    previousXBegin_ = graph_.xBegin;
    previousXEnd_ = graph_.xEnd;
    const bool otherExists = main ? graph_.hasSecond() : graph_.main.exists();
    resampleOther_ = otherExists && (main || xBegin != graph_.xBegin || xEnd != graph_.xEnd ||
                                     graph_.pointsPerRun != points);
    graph_.xBegin = xBegin;
    graph_.xEnd = xEnd;
    graph_.pointsPerRun = points;
    graph_.computingSecond = !main;
    formula_.useSecondFunction = !main;
}

bool TwoDRun::sample(const SamplingControl& control) {
    if (!sampleCurve(graph_, formula_, control)) {
        return false;
    }
    if (!resampleOther_) {
        return true;
    }
    const bool main = role_ == TwoDGraphRole::Main;
    graph_.computingSecond = main;
    formula_.useSecondFunction = main;
    const bool otherCompleted = sampleCurve(graph_, formula_, control);
    // A stopped resampling of the second function removes it (the sampler did) and leaves the new
    // main function whole. A stopped resampling of the main function leaves it on the old range,
    // so the whole run counts as stopped.
    return main || otherCompleted;
}

void TwoDRun::finish(bool completed) {
    const bool main = role_ == TwoDGraphRole::Main;
    formula_.useSecondFunction = false;
    graph_.computingSecond = false;
    if (!completed) {
        graph_.xBegin = previousXBegin_;
        graph_.xEnd = previousXEnd_;
        slot_.restore();
        if (!main) {
            dropSecondFunction(graph_);
        }
        return;
    }
    if (main) {
        graph_.mainFormulaText = typed_;
        if (!graph_.hasSecond()) {
            graph_.secondFormulaText.clear();
        }
    } else {
        graph_.secondFormulaText = typed_;
    }
    if (view_ != nullptr) {
        resetView(*view_, graph_);
    }
}

void TwoDRun::runHere(double xBegin, double xEnd, int points, std::string typed) {
    start(xBegin, xEnd, points, std::move(typed));
    finish(sample({}));
}

bool switchFunctions(TwoDGraph& graph, Formula& formula, GraphView& view) {
    if (!graph.hasSecond()) {
        return false;
    }
    std::swap(graph.main, graph.second);
    std::swap(graph.mainFormulaText, graph.secondFormulaText);
    std::swap(formula.slots[kFunctionSlot], formula.slots[kSecondFunctionSlot]);
    dropDerivedCurves(graph, &view);
    resetView(view, graph);
    return true;
}

void dropSecondFunction(TwoDGraph& graph) {
    graph.second.release();
    graph.secondFormulaText.clear();
}

}  // namespace curvemill
