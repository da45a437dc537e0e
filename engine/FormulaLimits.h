// Size limits that keep every accepted formula inside its expression slot.
#pragma once

#include "engine/ExpressionSlot.h"

namespace curvemill {

// Bracketing adds the outer pair and at most one pair per operator, so a checked text of n
// characters grows to at most 3n + 2; longer texts than this are refused by the check.
inline constexpr int kMaxCheckedLength = (kSlotCapacity - 1 - 2) / 3;

}  // namespace curvemill
