// One run of the Function or Second Function dialog over the 2D graph: the entries checked, the
// curve sampled and, when the run does not complete, the graph put back as it was. The command
// line runs the same steps.
#pragma once

#include <functional>
#include <string>

#include "engine/SlotKeeper.h"
#include "graph2d/GraphEntries.h"
#include "graph2d/SamplingControl.h"

namespace curvemill {

class Formula;
class NumberBox;
struct GraphView;
struct TwoDGraph;

enum class TwoDGraphRole { Main, Second };

class TwoDRun {
  public:
    // `view`, when given, is reset to a completed graph and loses the area painted on the old main
    // function; the command line sizes its view after the run.
    TwoDRun(TwoDGraphRole role, Formula& formula, TwoDGraph& graph, GraphView* view = nullptr);

    TwoDGraphRole role() const { return role_; }
    // The dialog's checks of its boxes; a second function is held against the main one's text.
    // The function's slot is kept first: a refusal, or a run that does not complete, puts it back.
    GraphEntries check(NumberBox& xBegin, NumberBox& xEnd, const std::string& typed,
                       const std::function<void()>& askLogBase = {});
    // Sets the graph up to sample accepted entries with `points` regular samples. A new main
    // function drops the curves and the area that were taken of the old one.
    void start(double xBegin, double xEnd, int points, std::string typed);
    // Samples the curve, then the other one where the run moved the range under it. Runs on the
    // worker and touches only the graph and the formula; false when stopped.
    bool sample(const SamplingControl& control);
    // A completed run takes its text (and resets the view); a stopped one puts the range and the
    // slot back, and a stopped second function goes.
    void finish(bool completed);
    // start, sample and finish on the caller's thread, with no Stop.
    void runHere(double xBegin, double xEnd, int points, std::string typed);

  private:
    TwoDGraphRole role_;
    Formula& formula_;
    TwoDGraph& graph_;
    GraphView* view_;
    SlotKeeper slot_;
    double previousXBegin_ = 0.0;
    double previousXEnd_ = 0.0;
    std::string typed_;
    // The run changed the X range or the points, so the curve not typed here is sampled again:
    // both curves always cover the graph's X range.
    bool resampleOther_ = false;
};

// The main and the second function change places with their texts and slots; the derivative,
// the integral and the area, taken of the old main function, go. False, and nothing done, when
// there is no second function.
bool switchFunctions(TwoDGraph& graph, Formula& formula, GraphView& view);

// Removes the second function with its text.
void dropSecondFunction(TwoDGraph& graph);

}  // namespace curvemill
