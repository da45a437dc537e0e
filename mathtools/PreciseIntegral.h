// The precise integral: every sampled interval of [begin, end] refined adaptively by midpoints.
#pragma once

#include "graph2d/Curve.h"
#include "graph2d/SamplingControl.h"
#include "mathtools/IntegralState.h"

namespace curvemill {

class Formula;

// A midpoint within this distance of the chord ends the refinement of its pair.
inline constexpr double kChordTolerance = 1e-7;

// The most midpoints one precise run evaluates. A function that never settles to the chord
// tolerance (e^(x*100), whose values dwarf it, or sin(1/x) near 0) would otherwise halve every
// interval down to the last bit of x: about 2^50 midpoints each. Past the bound every remaining
// pair keeps its chord, so the run still ends with the best value it has (refinementCut set).
// An ordinary function needs one or two midpoints per sampled interval, 400000 at most.
inline constexpr long kMostRefinementEvaluations = 20'000'000;

// The worker's body. Needs canIntegrate's indices in `state`; writes only `state`, so the graph
// on screen is untouched until the caller takes the result (finishPreciseIntegral). Reports
// progress in whole percent of [begin, end] after each sampled interval and polls the stop
// (control.stopRequested or formula.keepComputing) at every midpoint. Returns false when stopped:
// value is then 0 and resultText empty. A value that is not finite is left for
// integralValueRefusal.
bool integratePrecise(const Curve& curve, Formula& formula, IntegralState& state,
                      const SamplingControl& control);

}  // namespace curvemill
