// The syntax check of typed formulas and number boxes, with its exact messages.
#pragma once

#include <string>

namespace curvemill {

class Formula;

// How a text is checked: as the function of x, the second function, a number box, or a formula in
// x and y. Each mode has a slot of its own (slotForMode).
enum class FormulaMode { Function, SecondFunction, Number, TwoVariables };

// Messages of the check, letter for letter.
inline constexpr const char* kMsgBoxIsEmpty = "BOX IS EMPTY";
inline constexpr const char* kMsgNotAConstant = "NUMBER IS NOT A CONSTANT";
inline constexpr const char* kMsgMayNotBeValidConstant = "NUMBER MAY NOT BE A VALID CONSTANT";
inline constexpr const char* kMsgInvalidEntry = "INVALID ENTRY";
inline constexpr const char* kMsgBracketsDoNotMatch = "BRACKETS DO NOT MATCH";
inline constexpr const char* kMsgWrongBeforeBracket = "A WRONG CHARACTER BEFORE A BRACKET";
inline constexpr const char* kMsgWrongAfterBracket = "A WRONG CHARACTER AFTER A BRACKET";
inline constexpr const char* kMsgTwoOperators = "TWO OPERATORS TOGETHER";

// Deletes every blank of `text`.
void removeBlanks(std::string& text);

// Checks `text` (rewritten in place: function names become one-letter codes) in `mode`. On success
// the encoded text is copied into the mode's slot and true is returned; on failure
// formula.errorText holds the message (left as it was for a text that begins with '!') and no slot
// changes.
bool checkFormula(Formula& formula, std::string& text, FormulaMode mode, bool lenient);

// Slot index that a successful check in `mode` stores into.
int slotForMode(FormulaMode mode);

}  // namespace curvemill
