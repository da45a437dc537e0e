#include "cli/TwoVariableEntries.h"

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"

namespace curvemill::cli {

std::optional<std::string> readTwoVariableEntries(Formula& formula,
                                                  const ParsedArguments& arguments,
                                                  const std::string& typed,
                                                  TwoVariableRange& range) {
    const struct {
        const char* option;
        const char* box;
        double* value;
    } boxes[] = {{"x-begin", "X_BEG", &range.xBegin},
                 {"x-end", "X_END", &range.xEnd},
                 {"y-begin", "Y BEG", &range.yBegin},
                 {"y-end", "Y END", &range.yEnd}};
    for (const auto& box : boxes) {
        const NumberReading reading =
            readNumberEntry(formula, arguments.value(box.option).value_or(""), box.box);
        if (!reading.ok) {
            return reading.message;
        }
        *box.value = reading.value;
        if (box.value == &range.xEnd && !(range.xBegin < range.xEnd)) {
            return std::string(kXOrder);
        }
        if (box.value == &range.yEnd && !(range.yBegin < range.yEnd)) {
            return std::string(kYOrder);
        }
    }
    if (!prepareFormula(formula, typed, kModeTwoVariables)) {
        return composeBoxError("FORMULA", formula.errorText);
    }
    return std::nullopt;
}

}  // namespace curvemill::cli
