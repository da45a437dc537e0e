#include "mathtools/PointValue.h"

#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/SampledFunction.h"
#include "graph2d/Slope.h"
#include "mathtools/MathMessages.h"
#include "mathtools/MathTexts.h"

namespace curvemill {

std::optional<std::string> acceptPointX(Formula& formula, const TwoDGraph& graph, NumberBox& xBox,
                                        double& x) {
    const NumberReading reading = xBox.read(formula);
    if (!reading.ok) {
        return reading.message;
    }
    if (!(reading.value >= graph.xBegin && reading.value <= graph.xEnd)) {
        return std::string(math_messages::kXOutsideFunction);
    }
    x = reading.value;
    return std::nullopt;
}

PointValue valueAt(Formula& formula, double x) {
    PointValue result;
    const FunctionValue y = CurveFunction(formula, kFunctionSlot)(x);
    if (y.indefinite) {
        return result;
    }
    result.yDefined = true;
    result.y = y.value;
    const SlopeResult slope = slopeAt(formula, kFunctionSlot, x, y.value);
    result.slopeDefined = slope.defined;
    result.slope = slope.value;
    return result;
}

std::string yBoxText(const PointValue& value) {
    return value.yDefined ? yText(value.y) : math_messages::kIndefiniteY;
}

std::string slopeBoxText(const PointValue& value) {
    if (!value.yDefined) {
        return {};
    }
    return value.slopeDefined ? slopeText(value.slope) : math_messages::kIndefiniteSlope;
}

}  // namespace curvemill
