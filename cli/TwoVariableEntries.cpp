#include "cli/TwoVariableEntries.h"

#include "twovar/TwoVariableEntries.h"

namespace curvemill::cli {

TwoVariableSettings typedTwoVariableEntry(const ParsedArguments& arguments,
                                          const std::string& typed,
                                          std::optional<TwoVariableMode> kind) {
    const auto text = [&arguments](const char* option) {
        return arguments.value(option).value_or("");
    };
    TwoVariableSettings entry;
    entry.xBegin = text("x-begin");
    entry.xEnd = text("x-end");
    entry.yBegin = text("y-begin");
    entry.yEnd = text("y-end");
    entry.formula = typed;
    entry.kind = kind;
    return entry;
}

std::optional<std::string> readTwoVariableEntries(Formula& formula,
                                                  const ParsedArguments& arguments,
                                                  const std::string& typed,
                                                  TwoVariableRange& range) {
    const TwoVariableSettings e = typedTwoVariableEntry(arguments, typed, std::nullopt);
    const TwoVariableEntries entries =
        checkTwoVariableEntries(formula, {e.xBegin, e.xEnd, e.yBegin, e.yEnd, e.formula});
    if (entries.refusal) {
        return entries.refusal->message;
    }
    range = {entries.xBegin, entries.xEnd, entries.yBegin, entries.yEnd};
    return std::nullopt;
}

}  // namespace curvemill::cli
