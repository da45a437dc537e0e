#include "parametric/PlaneCurve.h"

#include <cmath>

#include "engine/Formula.h"

namespace curvemill {

namespace {

bool valueAt(Formula& formula, double t, int slot, double& value) {
    value = formula.evaluate(t, slot);
    return !formula.indefinite && std::isfinite(value);
}

}  // namespace

CurveAt curveOf(Formula& formula, CurveForm form) {
    if (form == CurveForm::Polar) {
        return [&formula](double t, CurveXY& point) {
            double r = 0.0;
            if (!valueAt(formula, t, kFunctionSlot, r)) {
                return false;
            }
            point = {r * std::cos(t), r * std::sin(t)};
            return true;
        };
    }
    return [&formula](double t, CurveXY& point) {
        return valueAt(formula, t, kFunctionSlot, point.x) &&
               valueAt(formula, t, kSecondFunctionSlot, point.y);
    };
}

}  // namespace curvemill
