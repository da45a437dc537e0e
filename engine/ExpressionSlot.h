// One expression slot of the formula engine: the bracketed, encoded text and its tables.
#pragma once

#include <array>
#include <cstdint>

#include "engine/EvaluationPlan.h"

namespace curvemill {

// Room for the longest text that bracketing can make of an accepted formula of 99 typed
// characters (every operator may gain a bracket pair), plus the terminating NUL.
inline constexpr int kSlotCapacity = 512;

struct ExpressionSlot {
    // Length of the bracketed text, set by bracketFormula; an upper bound once numbers are encoded.
    std::int32_t length = 0;
    // Bracketed and encoded formula, NUL-terminated.
    std::array<char, kSlotCapacity> text{};
    // Value of each 'k' by its text position.
    std::array<double, kSlotCapacity> constants{};
    // Result of each computed bracket pair by the position of its opening bracket; values[0] is
    // the value of the whole formula after an evaluation.
    std::array<double, kSlotCapacity> values{};
    // x, y, a zero and a power chain's running result, where the plan's operands find them.
    std::array<double, kInputCount> inputs{};
    // Each function's value by the position of its code, kept apart from values, which holds
    // bracket results only.
    std::array<double, kSlotCapacity> functionValues{};
    // Steps worked out from the text once, when the slot is prepared; evaluate only runs them.
    EvaluationPlan plan;
};

}  // namespace curvemill
