// Formula::evaluate: runs the steps that buildEvaluationPlan worked out from the text.
//
// The results are those of the text-rewriting algorithm, operation for operation; these are the
// choices made where that algorithm leaves a value open (the value means nothing then, as
// `indefinite` is set, but it is still written into `values`):
// - a function outside its domain (asin, acos, ln, log, Sqr) is computed all the same (NaN or an
//   infinity); NaN is outside every domain that has a bound;
// - the power step's running result starts as the base, so a chain that is indefinite from its
//   first '^' on yields its base;
// - 0/0 sets the product to 1 and then multiplies the 0 in like any factor, so the product is 0;
// - a number becomes a 32-bit integer by truncation toward zero, and one whose truncation is
//   outside that range (or NaN) becomes INT32_MIN, as the processor's conversion does;
// - any other character in an operand place (empty or stray brackets of a lenient text) reads as 0.
// The slot text is never written, so it needs no restoring; savedText is filled once when the plan
// is built, which is what every evaluation's copy would hold.
#include <cmath>
#include <cstdint>

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

struct Run {
    const double* constants;
    double* values;
    double x;
    double y;
    double logFactor;
    double running;
    bool indefinite;
};

inline double checked(bool inside, double value, Run& run) {
    if (!inside) {
        run.indefinite = true;
    }
    return value;
}

inline double read(const PlanOperand& op, Run& run) {
    switch (op.kind) {
        case OperandKind::kX:
            return run.x;
        case OperandKind::kY:
            return run.y;
        case OperandKind::kConstant:
            return run.constants[op.index];
        case OperandKind::kValue:
            return run.values[op.index];
        case OperandKind::kRunning:
            return run.running;
        case OperandKind::kZero:
            return 0.0;
        default:
            break;
    }
    const double v = run.values[op.index];
    switch (op.kind) {
        case OperandKind::kSin:
            return std::sin(v);
        case OperandKind::kCos:
            return std::cos(v);
        case OperandKind::kTan:
            return std::tan(v);
        case OperandKind::kAtan:
            return std::atan(v);
        case OperandKind::kAsin:
            return checked(std::fabs(v) <= 1.0, std::asin(v), run);
        case OperandKind::kAcos:
            return checked(std::fabs(v) <= 1.0, std::acos(v), run);
        case OperandKind::kLn:
            return checked(v > 0.0, std::log(v), run);
        case OperandKind::kLog:
            return checked(v > 0.0, std::log10(v) * run.logFactor, run);
        case OperandKind::kSqrt:
            return checked(v > 0.0, std::sqrt(v), run);
        default:
            return 0.0;
    }
}

double sum(const PlanOperand* op, const PlanOperand* end, Run& run) {
    double total = 0.0;
    for (; op != end; ++op) {
        const double term = read(*op, run);
        total += op->inverted ? -term : term;
    }
    return total;
}

double product(const PlanOperand* op, const PlanOperand* end, Run& run) {
    double total = 1.0;
    for (; op != end; ++op) {
        double factor = read(*op, run);
        if (op->inverted) {
            if (factor == 0.0) {
                if (total == 0.0) {
                    run.indefinite = true;
                    total = 1.0;
                } else {
                    factor = 1e10;
                }
            } else {
                factor = 1.0 / factor;
            }
        }
        total *= factor;
    }
    return total;
}

double power(const PlanOperand* op, const PlanOperand* end, Run& run) {
    double base = read(*op, run);
    double running = base;
    for (++op; op != end; ++op) {
        const double exponent = read(*op, run);
        if (!(base > 0.0) && !(op->independent && isWhole(exponent))) {
            run.indefinite = true;
        }
        if (!run.indefinite) {
            running = std::pow(base, exponent);
        }
        base = running;
    }
    run.running = running;
    return running;
}

double runPlan(ExpressionSlot& slot, Run& run) {
    const PlanOperand* operands = slot.plan.operands.data();
    for (const PlanStep& step : slot.plan.steps) {
        const PlanOperand* first = operands + step.first;
        const PlanOperand* end = first + step.count;
        double result = 0.0;
        switch (step.kind) {
            case StepKind::kSingle:
                result = read(*first, run);
                break;
            case StepKind::kSum:
                result = sum(first, end, run);
                break;
            case StepKind::kProduct:
                result = product(first, end, run);
                break;
            case StepKind::kPower:
                result = power(first, end, run);
                break;
            case StepKind::kFactorial:
                result = wrappedFactorial(truncateToInt32(read(*first, run)));
                break;
            case StepKind::kReturnWhole:
                return slot.values[0];
            case StepKind::kReturnZero:
                return 0.0;
        }
        slot.values[step.open] = result;
    }
    return 0.0;
}

}  // namespace

double Formula::evaluate(double x, int slotIndex, double y) {
    indefinite = false;
    if (!keepComputing.load(std::memory_order_relaxed)) {
        indefinite = true;
        return 0.0;
    }
    if (slotIndex == kCurrentSlot) {
        slotIndex = useSecondFunction ? kSecondFunctionSlot : kFunctionSlot;
    }
    if (slotIndex < 0 || slotIndex >= static_cast<int>(slots.size())) {
        return 0.0;
    }
    ExpressionSlot& slot = slots[static_cast<std::size_t>(slotIndex)];
    if (!slot.plan.valid) {
        return 0.0;  // nothing prepared: the rewriting algorithm finds an empty text too
    }
    Run run{slot.constants.data(), slot.values.data(), x, y, logFactor, 0.0, false};
    const double result = runPlan(slot, run);
    indefinite = run.indefinite;
    return result;
}

}  // namespace curvemill
