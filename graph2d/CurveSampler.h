// Samples y = f(x) over [xBegin, xEnd] into the main or the second curve.
#pragma once

#include "graph2d/SamplingControl.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

class Formula;

// Fills graph.main (or graph.second while graph.computingSecond) from slot 0 (or slot 2) of
// `formula`, inserting refined turning points and the edges of indefinite stretches and marking
// jumps as breaks. Returns false when stopped (by control.stopRequested or by clearing
// formula.keepComputing): the main curve is then left exactly as it was, while the second curve is
// removed. On success also sets definedSpan (of the curve just sampled) and dependentName.
// Throws std::bad_alloc when the records cannot be allocated.
bool sampleCurve(TwoDGraph& graph, Formula& formula, const SamplingControl& control);

// The first stretch of `curve` without indefinite points and breaks, as the math tools use it.
DefinedSpan findDefinedSpan(const Curve& curve, double xBegin, double xEnd);

}  // namespace curvemill
