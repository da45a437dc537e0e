// Narrows a bracket around a turning point of a sampled curve from one side or the other.
#pragma once

#include "graph2d/SampledFunction.h"

namespace curvemill {

enum class Extreme { kMaximum, kMinimum };

// Which end of the final bracket is returned: the refinement from the left gives a point just
// before the turning point, the one from the right a point just after it. At a jump the two lie
// on either side of the jump.
enum class Side { kLeft, kRight };

// Up to 11 passes over [a, b], each evaluating 51 points and keeping the two sub-steps around
// the extreme sample. A pass that cannot narrow (sub-step below the resolution of the left end,
// or an indefinite value inside) ends the refinement. Every defined value is taken into `extent`.
double refineTurningPoint(const CurveFunction& f, double a, double b, Extreme kind, Side side,
                          YExtent& extent);

}  // namespace curvemill
