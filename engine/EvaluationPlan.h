// The precomputed evaluation steps of one slot (owned by the evaluator; see Evaluator.cpp).
#pragma once

#include <cstdint>
#include <vector>

namespace curvemill {

// Where an operand's number lives; the evaluator keeps one base pointer per source.
enum class OperandSource : std::uint8_t {
    kInputs,  // index 0 x, 1 y, 2 a zero (any other character), 3 the power step's running result
    kConstants,  // constants[index]
    kValues,     // values[index]
};

inline constexpr std::uint16_t kInputX = 0;
inline constexpr std::uint16_t kInputY = 1;
inline constexpr std::uint16_t kInputZero = 2;
inline constexpr std::uint16_t kInputRunning = 3;

// The function a function code applies to its computed argument pair (read from values).
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
    PlanFunction function = PlanFunction::kNone;
    // Sum: the term follows a '-'. Product: the factor follows a '/'.
    bool inverted = false;
    // Power exponent: its text in the saved copy holds no x or y, so a non-positive base may take
    // it.
    bool independent = false;
    std::uint16_t index = kInputZero;
};

enum class StepKind : std::uint8_t {
    kSingle,
    kSum,
    kSumOfTwo,  // the common two-term sum, without the loop
    kProduct,
    kProductOfTwo,  // two factors and no division, without the loop
    kPower,
    kFactorial,
};

// One computed bracket pair: its operands are operands[first .. first+count-1]; for a power step
// the first operand is the base and the others are the exponents in chain order.
struct PlanStep {
    StepKind kind = StepKind::kSingle;
    std::uint16_t open = 0;  // values[open] receives the pair's result
    std::uint16_t first = 0;
    std::uint16_t count = 0;
};

// Filled by buildEvaluationPlan when a slot is prepared; evaluate runs it without scanning text.
struct EvaluationPlan {
    bool valid = false;
    // The last step computes the outermost pair, whose value is the result; false when the text
    // runs out before it (a lenient text with unbalanced brackets), and the result is then 0.
    bool reachesOuterPair = false;
    // Both are sized once when the plan is built, so evaluations never allocate.
    std::vector<PlanStep> steps;
    std::vector<PlanOperand> operands;
};

}  // namespace curvemill
