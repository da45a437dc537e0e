// The precomputed evaluation steps of one slot (owned by the evaluator; see Evaluator.cpp).
#pragma once

#include <cstdint>
#include <vector>

namespace curvemill {

// What one operand position of the text reads. The function kinds read values[index] (the
// computed argument pair right after the function code) and apply the function to it.
enum class OperandKind : std::uint8_t {
    kX,
    kY,
    kConstant,  // constants[index]
    kValue,     // values[index]
    kRunning,   // the running result of the power step
    kSin,
    kCos,
    kTan,
    kAtan,
    kAsin,
    kAcos,
    kLn,
    kLog,
    kSqrt,
    kZero,  // any other character: only a lenient text with empty or stray brackets gets here
};

struct PlanOperand {
    OperandKind kind = OperandKind::kZero;
    // Sum: the term follows a '-'. Product: the factor follows a '/'.
    bool inverted = false;
    // Power exponent: its text in the saved copy holds no x or y, so a non-positive base may take
    // it.
    bool independent = false;
    std::uint16_t index = 0;
};

enum class StepKind : std::uint8_t {
    kSingle,
    kSum,
    kProduct,
    kPower,
    kFactorial,
    kReturnWhole,  // the outermost pair is done: return values[0]
    kReturnZero,   // the text ran out before its outermost pair (a lenient, unbalanced text)
};

// One computed bracket pair: its operands are operands[first .. first+count-1]; for a power step
// the first operand is the base and the others are the exponents in chain order.
struct PlanStep {
    StepKind kind = StepKind::kReturnZero;
    std::uint16_t open = 0;  // values[open] receives the pair's result
    std::uint16_t first = 0;
    std::uint16_t count = 0;
};

// Filled by buildEvaluationPlan when a slot is prepared; evaluate runs it without scanning text.
struct EvaluationPlan {
    bool valid = false;
    // Both are sized once when the plan is built, so evaluations never allocate.
    std::vector<PlanStep> steps;
    std::vector<PlanOperand> operands;
};

}  // namespace curvemill
