// The integral of the main curve between two typed x values: the Math dialog's checks, the quick
// trapezoid sum over the samples with its error estimate, and the painted area.
#pragma once

#include <optional>
#include <string>

#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "mathtools/IntegralState.h"

namespace curvemill {

class Formula;
class NumberBox;

// The error estimate of the quick sum is accepted up to this fraction of the summed strip areas.
inline constexpr double kQuickRelativeError = 1e-6;

// The boxes' part of acceptIntegralInterval, for a sampled range [xBegin, xEnd] that need not be
// sampled yet (a graph document is checked before its curve is computed).
std::optional<std::string> readIntegralInterval(Formula& formula, double xBegin, double xEnd,
                                                NumberBox& beginBox, NumberBox& endBox,
                                                IntegralState& state);

// Reads X_BEG and X_END as the Math dialog does, in its order: each box, its place inside the
// sampled range [graph.xBegin, graph.xEnd], their order, then canIntegrate on the main curve.
// Sets state.begin, state.end and the indices; returns the dialog's message on refusal.
std::optional<std::string> acceptIntegralInterval(Formula& formula, const TwoDGraph& graph,
                                                  NumberBox& beginBox, NumberBox& endBox,
                                                  IntegralState& state);

// True when f(begin), f(end) and every sample of [begin, end), with the neighbour on each side,
// are defined, finite and no break. Sets firstIndex and lastIndex. Evaluates slot 0, the function
// whose samples `curve` holds.
bool canIntegrate(const Curve& curve, Formula& formula, IntegralState& state);

// The trapezoid sum over the samples (partial strips at both ends). Sets value and resultText;
// returns true when the estimate is precise enough. Needs canIntegrate's indices.
bool integrateQuick(const Curve& curve, Formula& formula, IntegralState& state);

// Finite samples can still add up beyond the largest double: such a sum is refused with the
// interval's own message (it holds infinite numbers after all), after the quick and the precise
// computation alike.
std::optional<std::string> integralValueRefusal(const IntegralState& state);

// Paints the area of `state` under the main curve, with its result text as the title's second
// line; or removes it. Run on the thread that paints.
void showIntegralArea(TwoDGraph& graph, GraphView& view, const IntegralState& state);
void clearIntegralArea(TwoDGraph& graph, GraphView& view);
// After a precise run: a finished one shows its area and text; a stopped one leaves none.
void finishPreciseIntegral(TwoDGraph& graph, GraphView& view, const IntegralState& state,
                           bool completed);

}  // namespace curvemill
