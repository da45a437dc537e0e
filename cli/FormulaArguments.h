// Helpers for commands that take a formula and a check mode on the command line.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

namespace curvemill::cli {

// The mode letter of a --mode value among `allowed` (`fallback` when the option is absent), or
// nothing after writing a usage message to `err`.
std::optional<char> modeArgument(const std::optional<std::string>& value, std::string_view allowed,
                                 char fallback, std::string_view command, std::ostream& err);

// The typed formula with its blanks removed, as the dialogs do, or nothing after writing a usage
// message to `err` when it is longer than an edit box holds.
std::optional<std::string> formulaArgument(std::string typed, std::string_view command,
                                           std::ostream& err);

}  // namespace curvemill::cli
