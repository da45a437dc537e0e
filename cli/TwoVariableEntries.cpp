#include "cli/TwoVariableEntries.h"

#include "twovar/TwoVariableEntries.h"

namespace curvemill::cli {

std::optional<std::string> readTwoVariableEntries(Formula& formula,
                                                  const ParsedArguments& arguments,
                                                  const std::string& typed,
                                                  TwoVariableRange& range) {
    const auto text = [&arguments](const char* option) {
        return arguments.value(option).value_or("");
    };
    const TwoVariableEntries entries = checkTwoVariableEntries(
        formula, {text("x-begin"), text("x-end"), text("y-begin"), text("y-end"), typed});
    if (entries.refusal) {
        return entries.refusal->message;
    }
    range = {entries.xBegin, entries.xEnd, entries.yBegin, entries.yEnd};
    return std::nullopt;
}

}  // namespace curvemill::cli
