// The pieces every curve computation shares: one formula slot as a function, the y extent,
// progress.
#pragma once

#include <cmath>
#include <functional>

#include "engine/Formula.h"
#include "graph2d/SamplingControl.h"

namespace curvemill {

// One value of the function; `value` means nothing when `indefinite` is set.
struct FunctionValue {
    double value = 0.0;
    bool indefinite = false;
};

// A prepared formula slot evaluated one x at a time.
class CurveFunction {
  public:
    CurveFunction(Formula& formula, int slot) : formula_(formula), slot_(slot) {}
    FunctionValue operator()(double x) const {
        const double v = formula_.evaluate(x, slot_);
        // A NaN the evaluator let through unflagged is no value either: taken as a number it
        // would spoil yMin/yMax and the turn tests, and no NaN may reach a pixel.
        return {v, formula_.indefinite || std::isnan(v)};
    }

  private:
    Formula& formula_;
    int slot_;
};

// The lowest and highest defined y met so far.
struct YExtent {
    double yMin = 1e100;
    double yMax = -1e100;
    void take(double y) {
        if (y > yMax) {
            yMax = y;
        }
        if (y < yMin) {
            yMin = y;
        }
    }
    void take(const FunctionValue& v) {
        if (!v.indefinite) {
            take(v.value);
        }
    }
};

// Turns an x of the run into a whole percentage and reports it only when it changed.
class ProgressTracker {
  public:
    ProgressTracker(const SamplingControl& control, double xBegin, double xEnd)
        : control_(control), xBegin_(xBegin), xEnd_(xEnd) {}

    void report(double x) {
        if (!control_.progress) {
            return;
        }
        const double fraction = 100.0 * (x - xBegin_) / (xEnd_ - xBegin_);
        int percent = fraction >= 0.0 && fraction <= 100.0 ? static_cast<int>(fraction) : 100;
        if (!(fraction >= 0.0)) {
            percent = 0;
        }
        if (percent != last_) {
            last_ = percent;
            control_.progress(percent);
        }
    }

  private:
    const SamplingControl& control_;
    double xBegin_;
    double xEnd_;
    int last_ = -1;
};

// The user asked to stop, through the control's flag or through the engine's own.
inline bool stopRequested(const SamplingControl& control, const Formula& formula) {
    return (control.stopRequested && control.stopRequested->load(std::memory_order_relaxed)) ||
           !formula.keepComputing.load(std::memory_order_relaxed);
}

}  // namespace curvemill
