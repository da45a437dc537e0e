// The range boxes and formula of the Equation / ThreeD window, read from the command line.
#pragma once

#include <optional>
#include <string>

#include "cli/Arguments.h"
#include "twovar/TwoVariableSettings.h"

namespace curvemill {
class Formula;
}

namespace curvemill::cli {

struct TwoVariableRange {
    double xBegin = 0;
    double xEnd = 0;
    double yBegin = 0;
    double yEnd = 0;
};

// The window's entry of `kind` as the command line typed it: the four range options (empty where
// not given) and the formula.
TwoVariableSettings typedTwoVariableEntry(const ParsedArguments& arguments,
                                          const std::string& typed,
                                          std::optional<TwoVariableMode> kind);

// Reads --x-begin, --x-end, --y-begin, --y-end and the formula `typed` in the window's order and
// prepares the formula; the window's message of the first refusal, or nothing.
std::optional<std::string> readTwoVariableEntries(Formula& formula,
                                                  const ParsedArguments& arguments,
                                                  const std::string& typed,
                                                  TwoVariableRange& range);

}  // namespace curvemill::cli
