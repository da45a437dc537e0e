#include "mathtools/Integral.h"

#include <cmath>

#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/SampledFunction.h"
#include "mathtools/CurveRecords.h"
#include "mathtools/MathMessages.h"
#include "mathtools/MathTexts.h"

namespace curvemill {

namespace {

// An infinite sample has a value, but no sum can be made of it.
bool flagged(const PlotPoint& p) {
    return p.isIndefinite != 0 || p.isBreak != 0 || !std::isfinite(p.y);
}

double strip(double x0, double y0, double x1, double y1) {
    return 0.5 * (x1 - x0) * (y1 + y0);
}

}  // namespace

std::optional<std::string> readIntegralInterval(Formula& formula, double xBegin, double xEnd,
                                                NumberBox& beginBox, NumberBox& endBox,
                                                IntegralState& state) {
    const auto inside = [xBegin, xEnd](double x) { return x >= xBegin && x <= xEnd; };
    const NumberReading begin = beginBox.read(formula);
    if (!begin.ok) {
        return begin.message;
    }
    if (!inside(begin.value)) {
        return std::string(math_messages::kXBeginOutside);
    }
    const NumberReading end = endBox.read(formula);
    if (!end.ok) {
        return end.message;
    }
    if (!inside(end.value)) {
        return std::string(math_messages::kXEndOutside);
    }
    if (!(end.value > begin.value)) {
        return std::string(math_messages::kXEndNotGreater);
    }
    state.begin = begin.value;
    state.end = end.value;
    return std::nullopt;
}

std::optional<std::string> acceptIntegralInterval(Formula& formula, const TwoDGraph& graph,
                                                  NumberBox& beginBox, NumberBox& endBox,
                                                  IntegralState& state) {
    if (auto refusal =
            readIntegralInterval(formula, graph.xBegin, graph.xEnd, beginBox, endBox, state)) {
        return refusal;
    }
    if (!canIntegrate(graph.main, formula, state)) {
        return std::string(math_messages::kCannotIntegrate);
    }
    return std::nullopt;
}

bool canIntegrate(const Curve& curve, Formula& formula, IntegralState& state) {
    const int count = recordCount(curve);
    const PlotPoint* p = curve.points.data();
    const CurveFunction f(formula, kFunctionSlot);
    const auto usable = [&f](double x) {
        const FunctionValue v = f(x);
        return !v.indefinite && std::isfinite(v.value);
    };
    if (count == 0 || !usable(state.begin) || !usable(state.end)) {
        return false;
    }
    // The samples are in ascending x but may repeat an x around a refined turning point, so the
    // indices follow their definitions literally rather than a binary search.
    int first = 0;
    while (first < count && p[first].x < state.begin) {
        ++first;
    }
    int lastBelowEnd = count - 1;
    while (lastBelowEnd >= 0 && !(p[lastBelowEnd].x < state.end)) {
        --lastBelowEnd;
    }
    for (int i = first; i <= lastBelowEnd; ++i) {
        if (flagged(p[i])) {
            return false;
        }
    }
    if ((first > 0 && flagged(p[first - 1])) ||
        (lastBelowEnd + 1 < count && flagged(p[lastBelowEnd + 1]))) {
        return false;
    }
    int last = count - 1;
    while (last >= 0 && p[last].x > state.end) {
        --last;
    }
    state.firstIndex = first;
    state.lastIndex = last;
    return true;
}

bool integrateQuick(const Curve& curve, Formula& formula, IntegralState& state) {
    const PlotPoint* p = curve.points.data();
    const CurveFunction f(formula, kFunctionSlot);
    const double a = state.begin;
    const double b = state.end;
    const double fa = f(a).value;
    const double fb = f(b).value;
    const int first = state.firstIndex;
    const int last = state.lastIndex;
    double sum = 0.0;
    double error = 0.0;
    double area = 0.0;
    if (!state.hasSamplesInside(recordCount(curve))) {
        // No sample inside [a, b]: the two partial strips would each reach past the other end,
        // so the interval is one strip of its own.
        sum = strip(a, fa, b, fb);
    } else {
        sum = strip(a, fa, p[first].x, p[first].y);
        for (int i = first + 1; i <= last; ++i) {
            const double t = strip(p[i - 1].x, p[i - 1].y, p[i].x, p[i].y);
            sum += t;
            area += std::fabs(t);
            if (i < last) {
                // One strip over two intervals against the two fine strips: the trapezoid
                // rule's error shrinks fourfold with the width, so this difference tracks it.
                error += strip(p[i - 1].x, p[i - 1].y, p[i + 1].x, p[i + 1].y) -
                         strip(p[i].x, p[i].y, p[i + 1].x, p[i + 1].y) - t;
            }
        }
        sum += strip(p[last].x, p[last].y, b, fb);
    }
    state.value = sum;
    state.resultText = integralText(a, b, sum);
    // A quotient that is not a number (nothing summed) counts as precise enough.
    return !(std::fabs(error / area) > kQuickRelativeError);
}

std::optional<std::string> integralValueRefusal(const IntegralState& state) {
    if (std::isfinite(state.value)) {
        return std::nullopt;
    }
    return std::string(math_messages::kCannotIntegrate);
}

void showIntegralArea(TwoDGraph& graph, GraphView& view, const IntegralState& state) {
    graph.areaFirst = state.firstIndex;
    graph.areaLast = state.lastIndex;
    graph.areaText = state.resultText;
    view.areaPainted = true;
}

void clearIntegralArea(TwoDGraph& graph, GraphView& view) {
    graph.areaFirst = 0;
    graph.areaLast = -1;
    graph.areaText.clear();
    view.areaPainted = false;
}

void finishPreciseIntegral(TwoDGraph& graph, GraphView& view, const IntegralState& state,
                           bool completed) {
    if (completed) {
        showIntegralArea(graph, view, state);
    } else {
        clearIntegralArea(graph, view);
    }
}

}  // namespace curvemill
