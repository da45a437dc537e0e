// The formula engine object: five expression slots, the engine's settings and its flags.
#pragma once

#include <array>
#include <atomic>
#include <string>

#include "engine/ExpressionSlot.h"

namespace curvemill {

// Slot numbers; kCurrentSlot means "slot 0, or slot 2 while useSecondFunction is set".
enum SlotIndex : int {
    kCurrentSlot = -1,
    kFunctionSlot = 0,
    kNumberSlot = 1,
    kSecondFunctionSlot = 2,
    kSpareSlot = 3,
    kTwoVariableSlot = 4,
};

class Formula {
  public:
    Formula() = default;
    Formula(const Formula&) = delete;
    Formula& operator=(const Formula&) = delete;

    // Value of the prepared formula in `slot` at x (and y). Clears `indefinite` first; when a value
    // leaves a function's domain `indefinite` is set and the result means nothing. Returns at once
    // (indefinite) when keepComputing has been cleared, so a Stop reaches even a long evaluation.
    double evaluate(double x, int slot = kCurrentSlot, double y = 0.0);

    std::array<ExpressionSlot, 5> slots{};

    // Message of the last failed check.
    std::string errorText;
    double logBase = 10.0;
    // 1 / log10(logBase): log( is log10(v) * logFactor.
    double logFactor = 1.0;
    // Set by an evaluation whose value left a function's domain.
    bool indefinite = false;
    bool useSecondFunction = false;
    // Cleared by a Stop button while a worker computes; tested by the evaluator.
    std::atomic<bool> keepComputing{true};
};

}  // namespace curvemill
