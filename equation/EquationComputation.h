// The equation mode of the two-variable input window: solves the checked entry on the worker and
// puts the curve on the view.
#pragma once

#include <functional>

#include "equation/EquationCurve.h"
#include "twovar/TwoVariableComputation.h"

namespace curvemill {

class Formula;
struct GraphView;

class EquationComputation : public TwoVariableComputation {
  public:
    // `maxYRatio` caps the view's height at that many times its width, as for functions.
    EquationComputation(Formula& formula, EquationCurve& curve, GraphView& view,
                        const int& maxYRatio);

    // Called after a completed run has been put on the view: the shell shows the equation.
    void setShownCallback(std::function<void()> shown) { shown_ = std::move(shown); }
    // Called when the previous picture is to go (a new run starts).
    void setDiscardCallback(std::function<void()> discard) { discard_ = std::move(discard); }

    void discardPrevious() override;
    Job makeJob(const TwoVariableRequest& request) override;
    void show() override;
    void abandoned() override;

  private:
    Formula& formula_;
    EquationCurve& curve_;
    GraphView& view_;
    const int& maxYRatio_;
    std::function<void()> shown_;
    std::function<void()> discard_;
    // What the running job reads and fills: here, not in the job's frames.
    EquationGrid grid_;
    std::string pendingText_;
    EquationWork work_;
    // The job's result; the curve on screen takes it over in show(), on the user-interface
    // thread, so a repaint while the job runs never reads a curve being replaced.
    EquationCurve pending_;
};

}  // namespace curvemill
