// The stretches of x where a sampled curve has no value, for the marks drawn over them.
#pragma once

#include <vector>

#include "graph2d/Curve.h"

namespace curvemill {

struct XStretch {
    double begin = 0.0;
    double end = 0.0;
};

// One stretch per run of indefinite records, in ascending x. It reaches from the last defined
// record before the run (the edge the sampler found) to the first defined one after it; a run at
// either end of the curve reaches to that end of [xBegin, xEnd].
std::vector<XStretch> indefiniteStretches(const Curve& curve, double xBegin, double xEnd);

}  // namespace curvemill
