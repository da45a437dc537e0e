// The integral curve: the running integral of the main curve, drawn beside it.
#pragma once

#include "graph2d/SamplingControl.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

class Formula;

// Fills graph.integral with one record per record of graph.main: F(x) = the integral of f from the
// start of x's defined stretch to x. A stretch starts at the first defined record, after every
// indefinite record and across every jump or pole; F is 0 there (see the .cpp for the rule).
// Only the records are read; `formula` is consulted for its Stop flag. Returns false when stopped;
// the integral curve is then dropped. The caller recomputes the view's Y range with a full reset.
bool buildIntegralCurve(TwoDGraph& graph, const Formula& formula, const SamplingControl& control);

}  // namespace curvemill
