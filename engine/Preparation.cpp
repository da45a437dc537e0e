#include "engine/Preparation.h"

#include "engine/Bracketing.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"

namespace curvemill {

bool prepareFormula(Formula& formula, const std::string& typed, FormulaMode mode, bool lenient) {
    std::string text = typed;
    removeBlanks(text);
    if (!checkFormula(formula, text, mode, lenient)) {
        return false;
    }
    ExpressionSlot& slot = formula.slots[static_cast<std::size_t>(slotForMode(mode))];
    bracketFormula(slot);
    encodeNumbers(slot);
    return true;
}

}  // namespace curvemill
