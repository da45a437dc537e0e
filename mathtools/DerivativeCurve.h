// Builds the derivative curve from the main curve's records.
#pragma once

#include "graph2d/SamplingControl.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

class Formula;

// Fills graph.derivative with one record fewer than graph.main, from slot 0 of `formula`.
// Returns false when stopped; the derivative curve is then dropped. The caller recomputes the
// view's Y range with a full reset afterwards.
bool buildDerivativeCurve(TwoDGraph& graph, Formula& formula, const SamplingControl& control);

}  // namespace curvemill
