// Precedence bracketing and number encoding of a checked slot text.
#pragma once

#include "engine/ExpressionSlot.h"

namespace curvemill {

// Moves text[position..length-1] one place right, puts `character` at position, terminates the
// text at length+1 and returns length+1.
int insertChar(ExpressionSlot& slot, int position, int length, char character);

// Inserts brackets so that every operator of higher precedence has a pair of its own; sets and
// returns slot.length.
int bracketFormula(ExpressionSlot& slot);

// Clears constants and values, replaces pi, e and number literals by 'k' with their value in
// constants, and builds the slot's evaluation plan. slot.length keeps the bracketed length.
void encodeNumbers(ExpressionSlot& slot);

}  // namespace curvemill
