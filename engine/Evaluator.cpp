// Formula::evaluate: runs the steps that buildEvaluationPlan worked out from the text.
//
// The results are those of the text-rewriting algorithm, operation for operation; these are the
// choices made where that algorithm leaves a value open (the value means nothing then, as
// `indefinite` is set, but it is still written into `values`):
// - a function outside its domain (asin, acos, ln, log, Sqr) is computed all the same (NaN or an
//   infinity); NaN is outside every domain that has a bound;
// - a function's value is worked out before the step that reads it, so a power chain whose
//   exponent's function is indefinite skips the chain's pow calls; a power step that is
//   indefinite before its first '^' yields its base;
// - 0/0 sets the product to 1 and then multiplies the 0 in like any factor, so the product is 0;
// - a number becomes a 32-bit integer by truncation toward zero, and one whose truncation is
//   outside that range (or NaN) becomes INT32_MIN, as the processor's conversion does;
// - any other character in an operand place (empty or stray brackets of a lenient text) reads as 0.
// The slot text is never written, so it needs no restoring.
#include <iterator>

#include "engine/EvaluationSteps.h"
#include "engine/Formula.h"
#include "engine/StepArithmetic.h"
#include "engine/StepSelection.h"

namespace curvemill {

namespace {

using namespace steps;

// Formula::evaluate itself, in one function with the steps' code. Threaded dispatch: each step
// holds the address of its operation's code and ends in a jump to the next step's, so no loop
// test, range check or table look-up runs between steps; the plan ends with a kEnd step. (Labels
// as values are a GCC and Clang extension.) The table and the code both come from the one list of
// steps in EvaluationSteps.h.
double evaluateSlot(Formula& formula, double x, int slotIndex, double y) {
#define CURVEMILL_STEP_ADDRESS(name, ...) &&step##name,
    // clang-format off
    static const void* const kCode[] = {
        CURVEMILL_EVALUATION_STEPS(CURVEMILL_STEP_ADDRESS)
        &&end,
    };
    // clang-format on
#undef CURVEMILL_STEP_ADDRESS
    static_assert(std::size(kCode) == code(Operation::kEnd) + 1);
    formula.indefinite = false;
    if (!formula.keepComputing.load(std::memory_order_relaxed)) {
        formula.indefinite = true;
        return 0.0;
    }
    if (slotIndex == kCurrentSlot) {
        slotIndex = formula.useSecondFunction ? kSecondFunctionSlot : kFunctionSlot;
    }
    if (slotIndex < 0 || slotIndex >= static_cast<int>(formula.slots.size())) {
        return 0.0;
    }
    ExpressionSlot& slot = formula.slots[static_cast<std::size_t>(slotIndex)];
    if (!slot.plan.valid) {
        return 0.0;  // nothing prepared: the rewriting algorithm finds an empty text too
    }
    if (slot.plan.resolvedFor != &slot) {
        resolveSteps(slot, kCode);
    }
    slot.inputs[kInputX] = x;
    slot.inputs[kInputY] = y;
    slot.inputs[kInputLogFactor] = formula.logFactor;
    const ResolvedStep* s = slot.plan.resolvedSteps.data();
    double r = 0.0;
    bool indefinite = false;
    goto * s->code;
    // Each step's code: its result, stored, then the jump to the next step's code.
#define CURVEMILL_STEP_CODE(name, ...) \
    step##name : r = __VA_ARGS__;      \
    *s->result = r;                    \
    ++s;                               \
    goto * s->code;
    CURVEMILL_EVALUATION_STEPS(CURVEMILL_STEP_CODE)
#undef CURVEMILL_STEP_CODE
end:
    formula.indefinite = indefinite;
    // The last step computed the outer pair, values[0]; its result is still in a register.
    return slot.plan.reachesOuterPair ? r : 0.0;
}

}  // namespace

double Formula::evaluate(double x, int slotIndex, double y) {
    return evaluateSlot(*this, x, slotIndex, y);
}

}  // namespace curvemill
