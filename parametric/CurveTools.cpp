#include "parametric/CurveTools.h"

#include "engine/DisplayFormat.h"
#include "engine/NumberEntry.h"

namespace curvemill {

namespace {

bool inside(const CurveGraph& graph, double t) {
    return t >= graph.tBegin && t <= graph.tEnd;
}

std::string line(const char* name, double value) {
    return std::string(name) + "=" + trimZeros(formatValue(value)) + "\n";
}

}  // namespace

CurveInterval readCurveInterval(Formula& formula, const CurveGraph& graph, NumberBox& beginBox,
                                NumberBox& endBox) {
    CurveInterval interval;
    const NumberReading begin = beginBox.read(formula);
    if (!begin.ok) {
        interval.refusal = begin.message;
        return interval;
    }
    if (!inside(graph, begin.value)) {
        interval.refusal = curve_messages::kTBeginOutside;
        return interval;
    }
    const NumberReading end = endBox.read(formula);
    if (!end.ok) {
        interval.refusal = end.message;
        return interval;
    }
    if (!inside(graph, end.value)) {
        interval.refusal = curve_messages::kTEndOutside;
        return interval;
    }
    if (!(end.value > begin.value)) {
        interval.refusal = curve_messages::kTEndNotGreater;
        return interval;
    }
    interval.begin = begin.value;
    interval.end = end.value;
    return interval;
}

CurveInterval readCurveT(Formula& formula, const CurveGraph& graph, NumberBox& tBox) {
    CurveInterval at;
    const NumberReading t = tBox.read(formula);
    if (!t.ok) {
        at.refusal = t.message;
    } else if (!inside(graph, t.value)) {
        at.refusal = curve_messages::kTOutside;
    } else {
        at.begin = at.end = t.value;
    }
    return at;
}

std::string localText(const CurveLocal& local) {
    if (!local.defined) {
        return "x=INDEFINITE\ny=INDEFINITE\n";
    }
    std::string text = line("x", local.point.x) + line("y", local.point.y) +
                       line("dx/dt", local.dxdt) + line("dy/dt", local.dydt);
    text += local.hasSlope ? line("dy/dx", local.slope) : std::string("dy/dx=INDEFINITE\n");
    return text;
}

std::string measuresText(const CurveMeasures& measures, std::optional<double> sweptArea) {
    std::string text = line("length", measures.length);
    if (measures.closed) {
        text += line("area", measures.area);
    }
    if (sweptArea) {
        text += line("swept area", *sweptArea);
    }
    return text;
}

}  // namespace curvemill
