#include "graph2d/GraphEntries.h"

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"

namespace curvemill {

GraphEntries checkGraphEntries(Formula& formula, NumberBox& xBegin, NumberBox& xEnd,
                               const std::string& typed,
                               std::optional<std::string_view> mainFormula,
                               const std::function<void()>& askLogBase) {
    GraphEntries entries;
    const auto refuse = [&entries](std::string message, GraphEntryBox box, bool explained) {
        entries.refusal = GraphEntryRefusal{std::move(message), box, explained};
        return entries;
    };
    const NumberReading begin = xBegin.read(formula);
    if (!begin.ok) {
        return refuse(begin.message, GraphEntryBox::kXBegin, true);
    }
    const NumberReading end = xEnd.read(formula);
    if (!end.ok) {
        return refuse(end.message, GraphEntryBox::kXEnd, true);
    }
    if (!(begin.value < end.value)) {
        return refuse("X_BEG MUST BE LESS THAN X_END", GraphEntryBox::kXBegin, false);
    }
    if (mainFormula) {
        std::string first(*mainFormula);
        std::string second = typed;
        removeBlanks(first);
        removeBlanks(second);
        if (second == first) {
            return refuse("YOU MUST SELECT A DIFFERENT FUNCTION", GraphEntryBox::kFormula, false);
        }
    }
    if (askLogBase && typed.find("log") != std::string::npos) {
        askLogBase();
    }
    formula.errorText.clear();
    // Checked strictly: a text the lenient check lets through (an open bracket) would reach the
    // history, and the history must hold only what it can read back.
    if (!prepareFormula(formula, typed,
                        mainFormula ? FormulaMode::SecondFunction : FormulaMode::Function)) {
        return refuse(composeBoxError("FORMULA", formula.errorText), GraphEntryBox::kFormula, true);
    }
    entries.xBegin = begin.value;
    entries.xEnd = end.value;
    return entries;
}

}  // namespace curvemill
