// Which of the evaluator's specialised steps runs each step of a plan, worked out per slot.
#pragma once

#include "engine/ExpressionSlot.h"

namespace curvemill {

// Points the plan's steps at this slot's numbers and at the code of their specialised operation:
// once after the plan is built, and again when the slot holds a copied plan. `entries` holds the
// address of each Operation's code in the evaluator's dispatch, in the enumeration's order.
void resolveSteps(ExpressionSlot& slot, const void* const* entries);

}  // namespace curvemill
