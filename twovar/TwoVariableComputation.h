// The work behind the Equation / ThreeD input window: the window checks the entries, then hands
// them to the computation of its mode, which the shell supplies (curve solving or surface).
#pragma once

#include <string>

#include "worker/JobRun.h"

namespace curvemill {

// The window's checked entries. Counts are points along each axis (equation: 100..2000 in steps
// of 100; surface: 100..500); precision digits only matter to the equation.
struct TwoVariableRequest {
    double xBegin = 0;
    double xEnd = 0;
    double yBegin = 0;
    double yEnd = 0;
    int xPoints = 0;
    int yPoints = 0;
    int precisionDigits = 0;
    // The formula as typed, for titles; the prepared Formula holds what is evaluated.
    std::string formulaText;
};

// One per mode. The window calls these on the user-interface thread in this order: discard, job
// (run on the worker with the prepared formula's keepComputing), then show or abandoned.
class TwoVariableComputation {
  public:
    virtual ~TwoVariableComputation() = default;
    // The previous picture and its data go before a new computation starts.
    virtual void discardPrevious() = 0;
    // The work to run on the worker; returns false when stopped. It keeps its storage in the
    // computation object, not in its own frames (a fault jumps out of them).
    virtual Job makeJob(const TwoVariableRequest& request) = 0;
    // The job completed: put the result on screen.
    virtual void show() = 0;
    // The job was stopped or failed: nothing new is drawn.
    virtual void abandoned() = 0;
};

}  // namespace curvemill
