#include "equation/EquationComputation.h"

#include "equation/EquationSolver.h"
#include "equation/EquationView.h"

namespace curvemill {

EquationComputation::EquationComputation(Formula& formula, EquationCurve& curve, GraphView& view,
                                         const int& maxYRatio)
    : formula_(formula), curve_(curve), view_(view), maxYRatio_(maxYRatio) {}

// The solutions themselves stay until a run completes: a stopped run leaves the curve on screen
// as it was.
void EquationComputation::discardPrevious() {
    if (discard_) {
        discard_();
    }
}

Job EquationComputation::makeJob(const TwoVariableRequest& request) {
    grid_.xBegin = request.xBegin;
    grid_.xEnd = request.xEnd;
    grid_.yBegin = request.yBegin;
    grid_.yEnd = request.yEnd;
    grid_.xSteps = request.xPoints;
    grid_.ySteps = request.yPoints;
    grid_.precisionDigits = request.precisionDigits;
    pendingText_ = request.formulaText;
    return [this](const JobContext& context) {
        return solveEquation(formula_, grid_, context.keepComputing, work_, pending_,
                             context.progress);
    };
}

void EquationComputation::show() {
    curve_.solutions.swap(pending_.solutions);
    curve_.yMin = pending_.yMin;
    curve_.yMax = pending_.yMax;
    curve_.truncated = pending_.truncated;
    curve_.grid = pending_.grid;
    curve_.formulaText = pendingText_;
    curve_.shown = true;
    resetEquationView(view_, curve_, maxYRatio_);
    if (shown_) {
        shown_();
    }
}

void EquationComputation::abandoned() {
    // Nothing new: the solver left the curve as it was.
}

}  // namespace curvemill
