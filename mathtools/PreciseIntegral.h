// The precise integral: every sampled interval of [begin, end] refined adaptively by midpoints.
#pragma once

#include "graph2d/Curve.h"
#include "graph2d/SamplingControl.h"
#include "mathtools/IntegralState.h"

namespace curvemill {

class Formula;

// A midpoint within this distance of the chord ends the refinement of its pair.
inline constexpr double kChordTolerance = 1e-7;

// The worker's body. Needs canIntegrate's indices in `state`; writes only `state`, so the graph
// on screen is untouched until the caller takes the result (finishPreciseIntegral). Reports
// progress in whole percent of [begin, end] after each sampled interval and polls the stop
// (control.stopRequested or formula.keepComputing) at every midpoint. Returns false when stopped:
// value is then 0 and resultText empty.
bool integratePrecise(const Curve& curve, Formula& formula, IntegralState& state,
                      const SamplingControl& control);

}  // namespace curvemill
