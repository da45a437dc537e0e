#include "engine/NumberEntry.h"

#include "engine/Bracketing.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"

namespace curvemill {

namespace {

// A box hands over no more than its edit control holds.
constexpr std::size_t kBoxCharacters = 99;

bool checkBox(Formula& formula, std::string_view text, std::string_view boxName,
              NumberReading& reading) {
    std::string copy(text.substr(0, kBoxCharacters));
    removeBlanks(copy);
    if (!checkFormula(formula, copy, FormulaMode::Number, false)) {
        reading.message = composeBoxError(boxName, formula.errorText);
        return false;
    }
    return true;
}

// Brackets and evaluates what the check just stored in the number slot. The check lets 0/0
// through; its value means nothing, so the box is refused like an unsafe constant.
bool evaluateBox(Formula& formula, std::string_view boxName, NumberReading& reading) {
    ExpressionSlot& slot = formula.slots[kNumberSlot];
    bracketFormula(slot);
    encodeNumbers(slot);
    reading.value = formula.evaluate(0.0, kNumberSlot, 0.0);
    if (formula.indefinite) {
        reading.message = composeBoxError(boxName, kMsgMayNotBeValidConstant);
        return false;
    }
    return true;
}

}  // namespace

std::string composeBoxError(std::string_view boxName, std::string_view message) {
    std::string text = "ERROR IN ";
    text += boxName;
    text += " EDIT BOX:\n";
    text += message;
    return text;
}

NumberReading readNumberEntry(Formula& formula, std::string_view text, std::string_view boxName) {
    NumberReading reading;
    reading.ok =
        checkBox(formula, text, boxName, reading) && evaluateBox(formula, boxName, reading);
    return reading;
}

void NumberBox::setText(std::string text) {
    text_ = std::move(text);
    edited_ = true;
}

NumberReading NumberBox::read(Formula& formula) {
    NumberReading reading;
    if (!checkBox(formula, text_, name_, reading)) {
        return reading;
    }
    if (edited_) {
        if (!evaluateBox(formula, name_, reading)) {
            return reading;
        }
        value_ = reading.value;
        edited_ = false;
    }
    reading.ok = true;
    reading.value = value_;
    return reading;
}

}  // namespace curvemill
