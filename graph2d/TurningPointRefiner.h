// Narrows a bracket around a turning point of a sampled curve from one side and the other.
#pragma once

#include "graph2d/SampledFunction.h"

namespace curvemill {

enum class Extreme { kMaximum, kMinimum };

// The two refined abscissas of one turning point: `left` just before it, `right` just after it,
// left <= right always. At a jump the two lie on either side of the jump.
struct TurningPair {
    double left;
    double right;
};

// Two refinements of [a, b], one closing in from the left and one from the right, each of up to
// 11 passes that evaluate 51 points and keep the two sub-steps around the extreme sample. A pass
// that cannot narrow (sub-step below the resolution of the left end, or an indefinite value
// inside) ends that refinement. Every defined value is taken into `extent`.
TurningPair refineTurningPair(const CurveFunction& f, double a, double b, Extreme kind,
                              YExtent& extent);

}  // namespace curvemill
