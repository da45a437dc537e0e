// The slope of the function at a sampled point, as the derivative curve and the read-outs use it.
#pragma once

namespace curvemill {

class Formula;

struct SlopeResult {
    bool defined = false;
    double value = 0.0;
};

// Slope of slot `slot` at (x, y = f(x)): a forward difference whose step is widened for steep
// curves so that y changes by a small fraction of itself.
SlopeResult slopeAt(Formula& formula, int slot, double x, double y);

}  // namespace curvemill
