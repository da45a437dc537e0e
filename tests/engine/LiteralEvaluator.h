// Reference evaluator: the text-rewriting algorithm done literally, to cross-check the fast one.
#pragma once

#include "engine/ExpressionSlot.h"

namespace curvemill::reference {

struct LiteralResult {
    double value = 0.0;
    bool indefinite = false;
};

// Evaluates a prepared slot by rewriting its text pair by pair, as the slow original did: it
// fills slot.values and restores slot.text at the end. Throws
// std::logic_error when the text is not one that preparation can produce, so a malformed plan
// shows up as a test failure rather than as undefined behaviour.
LiteralResult evaluateLiterally(ExpressionSlot& slot, double logFactor, double x, double y);

}  // namespace curvemill::reference
