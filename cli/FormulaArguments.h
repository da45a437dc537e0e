// Helpers for commands that take a formula and a check mode on the command line.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/Arguments.h"
#include "engine/FormulaCheck.h"

namespace curvemill::cli {

// The check mode of a --mode value, one of the letters `allowed` (f function, F second function,
// n number box, e formula in x and y; `fallback` when the option is absent), or nothing after
// telling `usage`.
std::optional<FormulaMode> modeArgument(const std::optional<std::string>& value,
                                        std::string_view allowed, FormulaMode fallback,
                                        UsageErrors& usage);

// Whether a box's reader removes blanks before it looks at the text (the Log Base dialog does not).
enum class Blanks { Removed, Kept };

// The text typed for an edit box (a formula, or a number such as X or --x-end, named by `what`
// in the message), with its blanks removed unless `blanks` says otherwise, or nothing after
// telling `usage` when it is longer than an edit box holds. Refusing it here
// matters: the engine would silently read only the box's first characters, and 1 followed by 308
// zeros would count as 1e98.
std::optional<std::string> entryArgument(std::string typed, std::string_view what,
                                         UsageErrors& usage, Blanks blanks = Blanks::Removed);

inline std::optional<std::string> formulaArgument(std::string typed, UsageErrors& usage) {
    return entryArgument(std::move(typed), "the formula", usage);
}

}  // namespace curvemill::cli
