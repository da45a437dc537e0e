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
    // x, y, a zero and the power step's running result, in the order of the kInput indexes.
    double inputs[4];
    // One base per OperandSource, so that reading a plain operand needs no branch.
    const double* bases[3];
    double* values;
    double logFactor;
    bool indefinite;
};

inline double checked(bool inside, double value, Run& run) {
    if (!inside) {
        run.indefinite = true;
    }
    return value;
}

[[gnu::noinline]] double applyFunction(PlanFunction function, double v, Run& run) {
    switch (function) {
        case PlanFunction::kSin:
            return std::sin(v);
        case PlanFunction::kCos:
            return std::cos(v);
        case PlanFunction::kTan:
            return std::tan(v);
        case PlanFunction::kAtan:
            return std::atan(v);
        case PlanFunction::kAsin:
            return checked(std::fabs(v) <= 1.0, std::asin(v), run);
        case PlanFunction::kAcos:
            return checked(std::fabs(v) <= 1.0, std::acos(v), run);
        case PlanFunction::kLn:
            return checked(v > 0.0, std::log(v), run);
        case PlanFunction::kLog:
            return checked(v > 0.0, std::log10(v) * run.logFactor, run);
        case PlanFunction::kSqrt:
            return checked(v > 0.0, std::sqrt(v), run);
        case PlanFunction::kNone:
            break;
    }
    return v;
}

inline double read(const PlanOperand& op, Run& run) {
    const double v = run.bases[static_cast<std::size_t>(op.source)][op.index];
    return op.function == PlanFunction::kNone ? v : applyFunction(op.function, v, run);
}

inline double signedRead(const PlanOperand& op, Run& run) {
    const double v = read(op, run);
    return op.inverted ? -v : v;
}

double sum(const PlanOperand* op, const PlanOperand* end, Run& run) {
    double total = 0.0;
    for (; op != end; ++op) {
        total += signedRead(*op, run);
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
    run.inputs[kInputRunning] = running;
    return running;
}

double runPlan(const EvaluationPlan& plan, Run& run) {
    const PlanOperand* operands = plan.operands.data();
    double result = 0.0;
    for (const PlanStep& step : plan.steps) {
        const PlanOperand* first = operands + step.first;
        switch (step.kind) {
            case StepKind::kSingle:
                result = read(*first, run);
                break;
            case StepKind::kSumOfTwo: {
                const double a = signedRead(first[0], run);
                result = (0.0 + a) + signedRead(first[1], run);
                break;
            }
            case StepKind::kSum:
                result = sum(first, first + step.count, run);
                break;
            case StepKind::kProductOfTwo: {
                const double a = read(first[0], run);
                result = (1.0 * a) * read(first[1], run);
                break;
            }
            case StepKind::kProduct:
                result = product(first, first + step.count, run);
                break;
            case StepKind::kPower:
                result = power(first, first + step.count, run);
                break;
            case StepKind::kFactorial:
                result = wrappedFactorial(truncateToInt32(read(*first, run)));
                break;
        }
        run.values[step.open] = result;
    }
    // The last step computed the outer pair, values[0]; its result is still in a register.
    return plan.reachesOuterPair ? result : 0.0;
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
    Run run{{x, y, 0.0, 0.0},
            {nullptr, slot.constants.data(), slot.values.data()},
            slot.values.data(),
            logFactor,
            false};
    run.bases[0] = run.inputs;
    const double result = runPlan(slot.plan, run);
    indefinite = run.indefinite;
    return result;
}

}  // namespace curvemill
