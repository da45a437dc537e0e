#include "engine/StepSelection.h"

#include "engine/EvaluationSteps.h"
#include "engine/StepArithmetic.h"

namespace curvemill {

namespace {

const double* numberOf(const PlanOperand& op, ExpressionSlot& slot) {
    switch (op.source) {
        case OperandSource::kInputs:
            return &slot.inputs[op.index];
        case OperandSource::kConstants:
            return &slot.constants[op.index];
        case OperandSource::kValues:
            return &slot.values[op.index];
        case OperandSource::kFunctions:
            return &slot.functionValues[op.index];
    }
    return &slot.inputs[kInputZero];
}

// The nine function operations follow kCopy in the order of PlanFunction, whose kNone is a copy.
static_assert(code(Operation::kSin) - code(Operation::kCopy) ==
              static_cast<int>(PlanFunction::kSin));
static_assert(code(Operation::kSqrt) - code(Operation::kCopy) ==
              static_cast<int>(PlanFunction::kSqrt));
// Each OfLast group repeats its plain group in the same order.
static_assert(code(Operation::kSinOfLast) == code(Operation::kSqrt) + 1);
static_assert(code(Operation::kSqrtOfLast) - code(Operation::kSinOfLast) ==
              code(Operation::kSqrt) - code(Operation::kSin));
static_assert(code(Operation::kSumPPOfLast) == code(Operation::kProduct3DD) + 1);
static_assert(code(Operation::kProduct3DDOfLast) - code(Operation::kSumPPOfLast) ==
              code(Operation::kProduct3DD) - code(Operation::kSumPP));
// The sign patterns count in binary from all plus.
static_assert(code(Operation::kSumMM) - code(Operation::kSumPP) == 3);
static_assert(code(Operation::kSumMMM) - code(Operation::kSumPPP) == 7);
static_assert(code(Operation::kSumMMMM) - code(Operation::kSumPPPP) == 15);
static_assert(code(Operation::kProduct3DD) - code(Operation::kProduct3MM) == 3);

Operation functionOperation(PlanFunction function) {
    return static_cast<Operation>(code(Operation::kCopy) + static_cast<int>(function));
}

Operation offset(Operation first, int by) {
    return static_cast<Operation>(code(first) + by);
}

// The specialised operation that runs `step`, whose operands are ops[0 .. step.count-1].
Operation operationFor(const PlanStep& step, const PlanOperand* ops, const double* constants) {
    switch (step.kind) {
        case StepKind::kSingle:
            return Operation::kCopy;
        case StepKind::kFunction:
            return functionOperation(step.function);
        case StepKind::kSum:
            if (step.count == 2) {
                return offset(Operation::kSumPP, ops[0].inverted * 2 + ops[1].inverted);
            }
            if (step.count == 3) {
                return offset(Operation::kSumPPP,
                              ops[0].inverted * 4 + ops[1].inverted * 2 + ops[2].inverted);
            }
            if (step.count == 4) {
                return offset(Operation::kSumPPPP, ops[0].inverted * 8 + ops[1].inverted * 4 +
                                                       ops[2].inverted * 2 + ops[3].inverted);
            }
            return Operation::kSumN;
        case StepKind::kProduct:
            // The first factor follows the opening bracket, never a '/'.
            if (step.count == 2 && !ops[0].inverted) {
                return ops[1].inverted ? Operation::kQuotient : Operation::kProduct;
            }
            if (step.count == 3 && !ops[0].inverted) {
                return offset(Operation::kProduct3MM, ops[1].inverted * 2 + ops[2].inverted);
            }
            return Operation::kProductN;
        case StepKind::kPower:
            // Constants never change once the plan is built. A bracket that reads only a number
            // can still mention x in its text (a number before asin( or ln( hides the function),
            // and such an exponent keeps the dependent rule.
            if (step.count == 2 && ops[1].source == OperandSource::kConstants &&
                ops[1].independent) {
                const double exponent = constants[ops[1].index];
                if (exponent == 2.0) {
                    return Operation::kSquare;
                }
                if (steps::isWhole(exponent)) {
                    return Operation::kPowerWhole;
                }
            }
            if (step.count == 2) {
                return ops[1].independent ? Operation::kPowerIndependent
                                          : Operation::kPowerDependent;
            }
            return Operation::kPowerChain;
        case StepKind::kFactorial:
            return Operation::kFactorial;
    }
    return Operation::kCopy;
}

// Whether `op` reads what `step` writes.
bool isResultOf(const PlanOperand& op, const PlanStep& step) {
    const OperandSource written =
        step.kind == StepKind::kFunction ? OperandSource::kFunctions : OperandSource::kValues;
    return op.source == written && op.index == step.target;
}

// The variant of `operation` that takes its last operand from the last step's result, if any.
Operation ofLast(Operation operation) {
    const int c = code(operation);
    if (c >= code(Operation::kSin) && c < code(Operation::kSinOfLast)) {
        return offset(operation, code(Operation::kSinOfLast) - code(Operation::kSin));
    }
    if (c >= code(Operation::kSumPP) && c < code(Operation::kSumPPOfLast)) {
        return offset(operation, code(Operation::kSumPPOfLast) - code(Operation::kSumPP));
    }
    return operation;
}

}  // namespace

void resolveSteps(ExpressionSlot& slot, const void* const* entries) {
    EvaluationPlan& plan = slot.plan;
    for (std::size_t i = 0; i < plan.operands.size(); ++i) {
        const PlanOperand& op = plan.operands[i];
        plan.resolvedOperands[i] = {numberOf(op, slot), op.inverted, op.independent};
    }
    // The end mark is the step past the last, resolved in the same loop.
    for (std::size_t i = 0; i < plan.resolvedSteps.size(); ++i) {
        ResolvedStep& resolved = plan.resolvedSteps[i];
        if (i == plan.steps.size()) {
            resolved.code = entries[code(Operation::kEnd)];
            break;
        }
        const PlanStep& step = plan.steps[i];
        const PlanOperand* ops = plan.operands.data() + step.first;
        Operation operation = operationFor(step, ops, slot.constants.data());
        if (i > 0 && step.count > 0 && isResultOf(ops[step.count - 1], plan.steps[i - 1])) {
            // The last operand is still in a register.
            operation = ofLast(operation);
        }
        resolved.code = entries[code(operation)];
        resolved.operands = plan.resolvedOperands.data() + step.first;
        resolved.count = step.count;
        const double* zero = &slot.inputs[kInputZero];
        resolved.a = step.count > 0 ? numberOf(ops[0], slot) : zero;
        resolved.b = step.count > 1 ? numberOf(ops[1], slot) : zero;
        resolved.c = step.count > 2 ? numberOf(ops[2], slot) : zero;
        resolved.d = step.count > 3 ? numberOf(ops[3], slot) : zero;
        resolved.result = step.kind == StepKind::kFunction ? &slot.functionValues[step.target]
                                                           : &slot.values[step.target];
        if (step.kind == StepKind::kFunction && step.function == PlanFunction::kLog) {
            resolved.b = &slot.inputs[kInputLogFactor];
        }
    }
    plan.resolvedFor = &slot;
}

}  // namespace curvemill
