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
// The slot text is never written, so it needs no restoring; savedText is filled once when the plan
// is built, which is what every evaluation's copy would hold.
#include <cmath>
#include <cstdint>
#include <iterator>

#include "engine/Arithmetic.h"
#include "engine/Formula.h"

namespace curvemill {

namespace {

std::int32_t truncateToInt32(double v) {
    if (v > -2147483649.0 && v < 2147483648.0) {
        return static_cast<std::int32_t>(v);
    }
    return INT32_MIN;
}

bool isWhole(double v) {
    return v == static_cast<double>(truncateToInt32(v));
}

// n! in wrapping 32-bit arithmetic; from 34! on the product holds 2^32 and stays 0.
double wrappedFactorial(std::int32_t n) {
    if (n >= 34) {
        return 0.0;
    }
    std::uint32_t product = 1;
    for (std::int32_t i = 2; i <= n; ++i) {
        product *= static_cast<std::uint32_t>(i);
    }
    return static_cast<double>(static_cast<std::int32_t>(product));
}

// The specialised steps. Short sums and products have one operation per pattern of signs and
// divisions, so each step is a single well-predicted dispatch with no loop and no flag tests.
enum class Operation : std::uint8_t {
    kCopy,
    kSin,
    kCos,
    kTan,
    kAtan,
    kAsin,
    kAcos,
    kLn,
    kLog,
    kSqrt,
    kSinOfLast,  // the same nine functions of the last step's result, still in a register
    kSumPlusPlus = kSinOfLast + 9,  // a+b, with the signs of the two terms
    kSumPlusMinus,
    kSumMinusPlus,
    kSumMinusMinus,
    kSum3,                               // three terms; +3 bits of signs, a's sign the highest
    kSum4 = kSum3 + 8,                   // four terms; +4 bits of signs
    kProduct = kSum4 + 16,               // a*b
    kQuotient,                           // a/b
    kProduct3,                           // three factors; +2 bits: b divides, c divides
    kSumPlusPlusOfLast = kProduct3 + 4,  // the short sums and products again, their last operand
                                         // the last step's result, still in a register
    kSum = kSumPlusPlusOfLast + (kSumPlusPlusOfLast - kSumPlusPlus),
    kProductN,
    kSquare,            // a constant exponent 2
    kPowerWhole,        // another constant whole exponent
    kPowerIndependent,  // one '^' whose exponent holds no x or y
    kPowerDependent,    // one '^' whose exponent holds x or y
    kPowerChain,
    kFactorial,
    kEnd,  // after the last step
};

// The operation's index in the dispatch's table of code addresses.
constexpr int code(Operation operation) {
    return static_cast<int>(operation);
}

template <bool Negated>
inline double term(double v) {
    return Negated ? -v : v;
}

template <bool NegateA, bool NegateB>
inline double sum2(double a, double b) {
    return (0.0 + term<NegateA>(a)) + term<NegateB>(b);
}

template <bool NegateA, bool NegateB, bool NegateC>
inline double sum3(double a, double b, double c) {
    return sum2<NegateA, NegateB>(a, b) + term<NegateC>(c);
}

template <bool NegateA, bool NegateB, bool NegateC, bool NegateD>
inline double sum4(double a, double b, double c, double d) {
    return sum3<NegateA, NegateB, NegateC>(a, b, c) + term<NegateD>(d);
}

double sum(const ResolvedStep& s) {
    double total = 0.0;
    const ResolvedOperand* op = s.operands;
    for (const ResolvedOperand* end = op + s.count; op != end; ++op) {
        total = total + (op->inverted ? -*op->number : *op->number);
    }
    return total;
}

// The product so far times one more factor that follows a '/'.
inline double divideBy(double total, double factor, bool& indefinite) {
    if (factor == 0.0) {
        if (total == 0.0) {
            indefinite = true;
            total = 1.0;
        } else {
            factor = 1e10;
        }
    } else {
        factor = 1.0 / factor;
    }
    return total * factor;
}

template <bool DivideB, bool DivideC>
inline double product3(double a, double b, double c, bool& indefinite) {
    const double total = DivideB ? divideBy(a, b, indefinite) : a * b;
    return DivideC ? divideBy(total, c, indefinite) : total * c;
}

double product(const ResolvedStep& s, bool& indefinite) {
    double total = 1.0;
    const ResolvedOperand* op = s.operands;
    for (const ResolvedOperand* end = op + s.count; op != end; ++op) {
        total = op->inverted ? divideBy(total, *op->number, indefinite) : total * *op->number;
    }
    return total;
}

// One '^': the running result starts as the base and takes the power while nothing is
// indefinite.
template <bool Independent>
inline double power(double base, double exponent, bool& indefinite) {
    if (!(base > 0.0) && !(Independent && isWhole(exponent))) {
        indefinite = true;
    }
    return indefinite ? base : raisePower(base, exponent);
}

// A constant whole exponent takes any base.
inline double powerOfWhole(double base, double exponent, bool indefinite) {
    return indefinite ? base : raisePower(base, exponent);
}

double powerChain(const ResolvedStep& s, bool& indefinite) {
    const ResolvedOperand* op = s.operands;
    double running = *op->number;
    for (const ResolvedOperand* end = op + s.count; ++op != end;) {
        running = op->independent ? power<true>(running, *op->number, indefinite)
                                  : power<false>(running, *op->number, indefinite);
    }
    return running;
}

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
static_assert(static_cast<int>(Operation::kSin) - static_cast<int>(Operation::kCopy) ==
              static_cast<int>(PlanFunction::kSin));
static_assert(static_cast<int>(Operation::kSqrt) - static_cast<int>(Operation::kCopy) ==
              static_cast<int>(PlanFunction::kSqrt));

Operation functionOperation(PlanFunction function) {
    return static_cast<Operation>(static_cast<int>(Operation::kCopy) + static_cast<int>(function));
}

Operation offset(Operation first, int by) {
    return static_cast<Operation>(static_cast<int>(first) + by);
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
                return offset(Operation::kSumPlusPlus, ops[0].inverted * 2 + ops[1].inverted);
            }
            if (step.count == 3) {
                return offset(Operation::kSum3,
                              ops[0].inverted * 4 + ops[1].inverted * 2 + ops[2].inverted);
            }
            if (step.count == 4) {
                return offset(Operation::kSum4, ops[0].inverted * 8 + ops[1].inverted * 4 +
                                                    ops[2].inverted * 2 + ops[3].inverted);
            }
            return Operation::kSum;
        case StepKind::kProduct:
            // The first factor follows the opening bracket, never a '/'.
            if (step.count == 2 && !ops[0].inverted) {
                return ops[1].inverted ? Operation::kQuotient : Operation::kProduct;
            }
            if (step.count == 3 && !ops[0].inverted) {
                return offset(Operation::kProduct3, ops[1].inverted * 2 + ops[2].inverted);
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
                if (isWhole(exponent)) {
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
    if (c >= code(Operation::kSumPlusPlus) && c < code(Operation::kSumPlusPlusOfLast)) {
        return offset(operation,
                      code(Operation::kSumPlusPlusOfLast) - code(Operation::kSumPlusPlus));
    }
    return operation;
}

// Points the plan's steps at this slot's numbers: once after the plan is built, and again when
// the slot holds a copied plan. `entries` holds the address of each operation's code in the
// evaluator's dispatch.
[[gnu::noinline]] void resolve(ExpressionSlot& slot, const void* const* entries) {
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

inline double checked(bool inside, double value, bool& indefinite) {
    if (!inside) {
        indefinite = true;
    }
    return value;
}

// Formula::evaluate itself, in one function with the steps' code. Threaded dispatch: each step
// holds the address of its operation's code and ends in a jump to the next step's, so no loop
// test, range check or table look-up runs between steps; the plan ends with a kEnd step. (Labels
// as values are a GCC and Clang extension.)
double evaluateSlot(Formula& formula, double x, int slotIndex, double y) {
    // The code of each Operation, in the enumeration's order.
    // clang-format off
    static const void* const kCode[] = {
        &&copy, &&sinStep, &&cosStep, &&tanStep, &&atanStep,
        &&asinStep, &&acosStep, &&lnStep, &&logStep, &&sqrtStep,
        &&sinOfLast, &&cosOfLast, &&tanOfLast, &&atanOfLast, &&asinOfLast,
        &&acosOfLast, &&lnOfLast, &&logOfLast, &&sqrtOfLast, &&sumPP,
        &&sumPM, &&sumMP, &&sumMM, &&sumPPP, &&sumPPM,
        &&sumPMP, &&sumPMM, &&sumMPP, &&sumMPM, &&sumMMP,
        &&sumMMM, &&sumPPPP, &&sumPPPM, &&sumPPMP, &&sumPPMM,
        &&sumPMPP, &&sumPMPM, &&sumPMMP, &&sumPMMM, &&sumMPPP,
        &&sumMPPM, &&sumMPMP, &&sumMPMM, &&sumMMPP, &&sumMMPM,
        &&sumMMMP, &&sumMMMM, &&product2, &&quotient, &&product3MM,
        &&product3MD, &&product3DM, &&product3DD, &&sumPPOfLast, &&sumPMOfLast,
        &&sumMPOfLast, &&sumMMOfLast, &&sumPPPOfLast, &&sumPPMOfLast, &&sumPMPOfLast,
        &&sumPMMOfLast, &&sumMPPOfLast, &&sumMPMOfLast, &&sumMMPOfLast, &&sumMMMOfLast,
        &&sumPPPPOfLast, &&sumPPPMOfLast, &&sumPPMPOfLast, &&sumPPMMOfLast, &&sumPMPPOfLast,
        &&sumPMPMOfLast, &&sumPMMPOfLast, &&sumPMMMOfLast, &&sumMPPPOfLast, &&sumMPPMOfLast,
        &&sumMPMPOfLast, &&sumMPMMOfLast, &&sumMMPPOfLast, &&sumMMPMOfLast, &&sumMMMPOfLast,
        &&sumMMMMOfLast, &&product2OfLast, &&quotientOfLast, &&product3MMOfLast, &&product3MDOfLast,
        &&product3DMOfLast, &&product3DDOfLast, &&sumN, &&productN, &&square,
        &&powerWhole, &&powerIndependent, &&powerDependent, &&powerChainStep, &&factorial,
        &&end,
    };
    // clang-format on
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
        resolve(slot, kCode);
    }
    slot.inputs[kInputX] = x;
    slot.inputs[kInputY] = y;
    slot.inputs[kInputLogFactor] = formula.logFactor;
    const ResolvedStep* s = slot.plan.resolvedSteps.data();
    double r = 0.0;
    bool indefinite = false;
#define CURVEMILL_STEP_DONE \
    *s->result = r;         \
    ++s;                    \
    goto * s->code

    goto * s->code;
copy:
    r = *s->a;
    CURVEMILL_STEP_DONE;
sinStep:
    r = std::sin(*s->a);
    CURVEMILL_STEP_DONE;
cosStep:
    r = std::cos(*s->a);
    CURVEMILL_STEP_DONE;
tanStep:
    r = std::tan(*s->a);
    CURVEMILL_STEP_DONE;
atanStep:
    r = std::atan(*s->a);
    CURVEMILL_STEP_DONE;
asinStep:
    r = checked(std::fabs(*s->a) <= 1.0, std::asin(*s->a), indefinite);
    CURVEMILL_STEP_DONE;
acosStep:
    r = checked(std::fabs(*s->a) <= 1.0, std::acos(*s->a), indefinite);
    CURVEMILL_STEP_DONE;
lnStep:
    r = checked(*s->a > 0.0, std::log(*s->a), indefinite);
    CURVEMILL_STEP_DONE;
logStep:
    r = checked(*s->a > 0.0, std::log10(*s->a) * *s->b, indefinite);
    CURVEMILL_STEP_DONE;
sqrtStep:
    r = checked(*s->a > 0.0, std::sqrt(*s->a), indefinite);
    CURVEMILL_STEP_DONE;
sinOfLast:
    r = std::sin(r);
    CURVEMILL_STEP_DONE;
cosOfLast:
    r = std::cos(r);
    CURVEMILL_STEP_DONE;
tanOfLast:
    r = std::tan(r);
    CURVEMILL_STEP_DONE;
atanOfLast:
    r = std::atan(r);
    CURVEMILL_STEP_DONE;
asinOfLast:
    r = checked(std::fabs(r) <= 1.0, std::asin(r), indefinite);
    CURVEMILL_STEP_DONE;
acosOfLast:
    r = checked(std::fabs(r) <= 1.0, std::acos(r), indefinite);
    CURVEMILL_STEP_DONE;
lnOfLast:
    r = checked(r > 0.0, std::log(r), indefinite);
    CURVEMILL_STEP_DONE;
logOfLast:
    r = checked(r > 0.0, std::log10(r) * *s->b, indefinite);
    CURVEMILL_STEP_DONE;
sqrtOfLast:
    r = checked(r > 0.0, std::sqrt(r), indefinite);
    CURVEMILL_STEP_DONE;
sumPP:
    r = sum2<false, false>(*s->a, *s->b);
    CURVEMILL_STEP_DONE;
sumPM:
    r = sum2<false, true>(*s->a, *s->b);
    CURVEMILL_STEP_DONE;
sumMP:
    r = sum2<true, false>(*s->a, *s->b);
    CURVEMILL_STEP_DONE;
sumMM:
    r = sum2<true, true>(*s->a, *s->b);
    CURVEMILL_STEP_DONE;
sumPPP:
    r = sum3<false, false, false>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumPPM:
    r = sum3<false, false, true>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumPMP:
    r = sum3<false, true, false>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumPMM:
    r = sum3<false, true, true>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumMPP:
    r = sum3<true, false, false>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumMPM:
    r = sum3<true, false, true>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumMMP:
    r = sum3<true, true, false>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumMMM:
    r = sum3<true, true, true>(*s->a, *s->b, *s->c);
    CURVEMILL_STEP_DONE;
sumPPPP:
    r = sum4<false, false, false, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumPPPM:
    r = sum4<false, false, false, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumPPMP:
    r = sum4<false, false, true, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumPPMM:
    r = sum4<false, false, true, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumPMPP:
    r = sum4<false, true, false, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumPMPM:
    r = sum4<false, true, false, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumPMMP:
    r = sum4<false, true, true, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumPMMM:
    r = sum4<false, true, true, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMPPP:
    r = sum4<true, false, false, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMPPM:
    r = sum4<true, false, false, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMPMP:
    r = sum4<true, false, true, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMPMM:
    r = sum4<true, false, true, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMMPP:
    r = sum4<true, true, false, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMMPM:
    r = sum4<true, true, false, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMMMP:
    r = sum4<true, true, true, false>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
sumMMMM:
    r = sum4<true, true, true, true>(*s->a, *s->b, *s->c, *s->d);
    CURVEMILL_STEP_DONE;
product2:
    r = *s->a * *s->b;
    CURVEMILL_STEP_DONE;
quotient:
    r = divideBy(*s->a, *s->b, indefinite);
    CURVEMILL_STEP_DONE;
product3MM:
    r = product3<false, false>(*s->a, *s->b, *s->c, indefinite);
    CURVEMILL_STEP_DONE;
product3MD:
    r = product3<false, true>(*s->a, *s->b, *s->c, indefinite);
    CURVEMILL_STEP_DONE;
product3DM:
    r = product3<true, false>(*s->a, *s->b, *s->c, indefinite);
    CURVEMILL_STEP_DONE;
product3DD:
    r = product3<true, true>(*s->a, *s->b, *s->c, indefinite);
    CURVEMILL_STEP_DONE;
sumPPOfLast:
    r = sum2<false, false>(*s->a, r);
    CURVEMILL_STEP_DONE;
sumPMOfLast:
    r = sum2<false, true>(*s->a, r);
    CURVEMILL_STEP_DONE;
sumMPOfLast:
    r = sum2<true, false>(*s->a, r);
    CURVEMILL_STEP_DONE;
sumMMOfLast:
    r = sum2<true, true>(*s->a, r);
    CURVEMILL_STEP_DONE;
sumPPPOfLast:
    r = sum3<false, false, false>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumPPMOfLast:
    r = sum3<false, false, true>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumPMPOfLast:
    r = sum3<false, true, false>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumPMMOfLast:
    r = sum3<false, true, true>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumMPPOfLast:
    r = sum3<true, false, false>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumMPMOfLast:
    r = sum3<true, false, true>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumMMPOfLast:
    r = sum3<true, true, false>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumMMMOfLast:
    r = sum3<true, true, true>(*s->a, *s->b, r);
    CURVEMILL_STEP_DONE;
sumPPPPOfLast:
    r = sum4<false, false, false, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumPPPMOfLast:
    r = sum4<false, false, false, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumPPMPOfLast:
    r = sum4<false, false, true, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumPPMMOfLast:
    r = sum4<false, false, true, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumPMPPOfLast:
    r = sum4<false, true, false, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumPMPMOfLast:
    r = sum4<false, true, false, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumPMMPOfLast:
    r = sum4<false, true, true, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumPMMMOfLast:
    r = sum4<false, true, true, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMPPPOfLast:
    r = sum4<true, false, false, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMPPMOfLast:
    r = sum4<true, false, false, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMPMPOfLast:
    r = sum4<true, false, true, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMPMMOfLast:
    r = sum4<true, false, true, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMMPPOfLast:
    r = sum4<true, true, false, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMMPMOfLast:
    r = sum4<true, true, false, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMMMPOfLast:
    r = sum4<true, true, true, false>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
sumMMMMOfLast:
    r = sum4<true, true, true, true>(*s->a, *s->b, *s->c, r);
    CURVEMILL_STEP_DONE;
product2OfLast:
    r = *s->a * r;
    CURVEMILL_STEP_DONE;
quotientOfLast:
    r = divideBy(*s->a, r, indefinite);
    CURVEMILL_STEP_DONE;
product3MMOfLast:
    r = product3<false, false>(*s->a, *s->b, r, indefinite);
    CURVEMILL_STEP_DONE;
product3MDOfLast:
    r = product3<false, true>(*s->a, *s->b, r, indefinite);
    CURVEMILL_STEP_DONE;
product3DMOfLast:
    r = product3<true, false>(*s->a, *s->b, r, indefinite);
    CURVEMILL_STEP_DONE;
product3DDOfLast:
    r = product3<true, true>(*s->a, *s->b, r, indefinite);
    CURVEMILL_STEP_DONE;
sumN:
    r = sum(*s);
    CURVEMILL_STEP_DONE;
productN:
    r = product(*s, indefinite);
    CURVEMILL_STEP_DONE;
square:
    r = powerOfWhole(*s->a, 2.0, indefinite);
    CURVEMILL_STEP_DONE;
powerWhole:
    r = powerOfWhole(*s->a, *s->b, indefinite);
    CURVEMILL_STEP_DONE;
powerIndependent:
    r = power<true>(*s->a, *s->b, indefinite);
    CURVEMILL_STEP_DONE;
powerDependent:
    r = power<false>(*s->a, *s->b, indefinite);
    CURVEMILL_STEP_DONE;
powerChainStep:
    r = powerChain(*s, indefinite);
    CURVEMILL_STEP_DONE;
factorial:
    r = wrappedFactorial(truncateToInt32(*s->a));
    CURVEMILL_STEP_DONE;
end:
#undef CURVEMILL_STEP_DONE
    formula.indefinite = indefinite;
    // The last step computed the outer pair, values[0]; its result is still in a register.
    return slot.plan.reachesOuterPair ? r : 0.0;
}

}  // namespace

double Formula::evaluate(double x, int slotIndex, double y) {
    return evaluateSlot(*this, x, slotIndex, y);
}

}  // namespace curvemill
