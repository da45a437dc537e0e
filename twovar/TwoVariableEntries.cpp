#include "twovar/TwoVariableEntries.h"

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"

namespace curvemill {

TwoVariableEntries checkTwoVariableEntries(Formula& formula, const TwoVariableTexts& texts,
                                           const std::function<void()>& askLogBase) {
    TwoVariableEntries entries;
    // The x names have an underscore where the y names have a blank: both as the window has them.
    const struct {
        const std::string& text;
        const char* name;
        TwoVariableBox box;
        double& value;
    } boxes[] = {{texts.xBegin, "X_BEG", TwoVariableBox::kXBegin, entries.xBegin},
                 {texts.xEnd, "X_END", TwoVariableBox::kXEnd, entries.xEnd},
                 {texts.yBegin, "Y BEG", TwoVariableBox::kYBegin, entries.yBegin},
                 {texts.yEnd, "Y END", TwoVariableBox::kYEnd, entries.yEnd}};
    for (const auto& box : boxes) {
        const NumberReading reading = readNumberEntry(formula, box.text, box.name);
        if (!reading.ok) {
            entries.refusal = TwoVariableRefusal{reading.message, box.box, true};
            return entries;
        }
        box.value = reading.value;
        if (box.box == TwoVariableBox::kXEnd && !(entries.xBegin < entries.xEnd)) {
            entries.refusal =
                TwoVariableRefusal{"X BEG MUST BE LESS THAN X END", TwoVariableBox::kXEnd, false};
            return entries;
        }
        if (box.box == TwoVariableBox::kYEnd && !(entries.yBegin < entries.yEnd)) {
            entries.refusal =
                TwoVariableRefusal{"Y BEG MUST BE LESS THAN Y END", TwoVariableBox::kYEnd, false};
            return entries;
        }
    }
    if (askLogBase && texts.formula.find("log") != std::string::npos) {
        askLogBase();
    }
    formula.errorText.clear();
    // Checked strictly, as every dialog checks: the history must hold only what it can read back.
    if (!prepareFormula(formula, texts.formula, FormulaMode::TwoVariables)) {
        entries.refusal = TwoVariableRefusal{composeBoxError("FORMULA", formula.errorText),
                                             TwoVariableBox::kFormula, true};
    }
    return entries;
}

}  // namespace curvemill
