// The precomputed evaluation steps of one slot (built by PlanBuilder, run by Evaluator.cpp).
#pragma once

#include <cstdint>
#include <vector>

namespace curvemill {

// Where an operand's number lives.
enum class OperandSource : std::uint8_t {
    kInputs,     // the slot's inputs, by the kInput indexes below
    kConstants,  // constants[index]
    kValues,     // values[index]
    kFunctions,  // functionValues[index]: the function whose code stands at index, applied to its
                 // computed argument pair
};

inline constexpr std::uint16_t kInputX = 0;
inline constexpr std::uint16_t kInputY = 1;
inline constexpr std::uint16_t kInputZero = 2;  // any other character in an operand place
// A 'v' operand: the rewriting reads the running result only inside its own power step, which
// keeps it in a register, so no plan reads this.
inline constexpr std::uint16_t kInputRunning = 3;
inline constexpr std::uint16_t kInputLogFactor = 4;  // the formula's logFactor, for log(
inline constexpr int kInputCount = 5;

// The function a function code applies to its computed argument pair.
enum class PlanFunction : std::uint8_t {
    kNone,
    kSin,
    kCos,
    kTan,
    kAtan,
    kAsin,
    kAcos,
    kLn,
    kLog,
    kSqrt
};

struct PlanOperand {
    OperandSource source = OperandSource::kInputs;
    // Sum: the term follows a '-'. Product: the factor follows a '/'.
    bool inverted = false;
    // Power exponent: its text in the saved copy holds no x or y, so a non-positive base may take
    // it.
    bool independent = false;
    std::uint16_t index = kInputZero;
};

enum class StepKind : std::uint8_t {
    kSingle,
    kFunction,  // a function code's value, worked out before the step that reads it
    kSum,
    kProduct,
    kPower,
    kFactorial,
};

// One computed bracket pair, or one function application: its operands are
// operands[first .. first+count-1]; for a power step the first operand is the base and the others
// are the exponents in chain order.
struct PlanStep {
    StepKind kind = StepKind::kSingle;
    PlanFunction function = PlanFunction::kNone;  // kFunction only
    // values[target] receives a pair's result; functionValues[target] a function's.
    std::uint16_t target = 0;
    std::uint16_t first = 0;
    std::uint16_t count = 0;
};

// An operand whose number's address is worked out, for the steps that walk their operands.
struct ResolvedOperand {
    const double* number = nullptr;
    bool inverted = false;
    bool independent = false;
};

// A step with its numbers' addresses worked out for one slot, ready to run.
struct ResolvedStep {
    // Where the evaluator's code for the specialised step starts: one jump runs it.
    const void* code = nullptr;
    std::uint16_t count = 0;
    // The step's operands in resolvedOperands, for the steps that walk them.
    const ResolvedOperand* operands = nullptr;
    // The first operands' numbers, so that short steps never look at their operand list.
    const double* a = nullptr;
    const double* b = nullptr;
    const double* c = nullptr;
    const double* d = nullptr;
    double* result = nullptr;
};

// Filled by buildEvaluationPlan when a slot is prepared; evaluate runs it without scanning text.
struct EvaluationPlan {
    EvaluationPlan() = default;
    // A copy lives in another slot, so its addresses are worked out again before it runs.
    EvaluationPlan(const EvaluationPlan& other)
        : valid(other.valid),
          reachesOuterPair(other.reachesOuterPair),
          steps(other.steps),
          operands(other.operands),
          resolvedSteps(other.resolvedSteps),
          resolvedOperands(other.resolvedOperands) {}
    EvaluationPlan& operator=(const EvaluationPlan& other) {
        if (this != &other) {
            valid = other.valid;
            reachesOuterPair = other.reachesOuterPair;
            steps = other.steps;
            operands = other.operands;
            resolvedSteps = other.resolvedSteps;
            resolvedOperands = other.resolvedOperands;
            resolvedFor = nullptr;
        }
        return *this;
    }

    bool valid = false;
    // The last step computes the outermost pair, whose value is the result; false when the text
    // runs out before it (a lenient text with unbalanced brackets), and the result is then 0.
    bool reachesOuterPair = false;
    std::vector<PlanStep> steps;
    std::vector<PlanOperand> operands;

    // The slot whose numbers resolvedSteps and resolvedOperands point into; anything else (a
    // fresh plan, a copy) is resolved again by the next evaluate.
    const void* resolvedFor = nullptr;
    // Sized like steps (plus an end mark) and operands when the plan is built, so resolving never
    // allocates.
    std::vector<ResolvedStep> resolvedSteps;
    std::vector<ResolvedOperand> resolvedOperands;
};

}  // namespace curvemill
