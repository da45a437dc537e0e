// The two kinds of plane curve drawn by the parameter t: x = f(t), y = g(t), and r = f(t) drawn at
// x = r cos t, y = r sin t.
#pragma once

#include <cstdint>
#include <functional>

namespace curvemill {

class Formula;

enum class CurveForm { Parametric, Polar };

struct CurveXY {
    double x = 0.0;
    double y = 0.0;
};

// One record of a sampled curve.
struct CurvePoint {
    double t = 0.0;
    double x = 0.0;
    double y = 0.0;
    // Begins a new stretch: no line joins it to the record before (the first record, the first
    // after a stretch without values, the far side of a jump).
    std::uint8_t isBreak = 0;
};

// The curve's point at t; false where it has none (a formula left its domain or gave no number).
using CurveAt = std::function<bool(double t, CurveXY& point)>;

// The curve of the prepared formula slots: x(t) in the function's slot and y(t) in the second
// function's, or r(t) in the function's slot.
CurveAt curveOf(Formula& formula, CurveForm form);

}  // namespace curvemill
