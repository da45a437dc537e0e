// The math tools' commands of curvemill-cli and what they share.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/Command.h"

namespace curvemill::cli {

Command integralCommand();
Command valueCommand();
Command extremesCommand();
Command rootsCommand();

// A whole number from `least` to `most` given to option `name`, or nothing after writing a usage
// message to `usage`. An absent option gives `fallback`.
std::optional<int> wholeArgument(const std::optional<std::string>& value, std::string_view name,
                                 int least, int most, int fallback, UsageErrors& usage);

// "%.17g", independent of the C locale.
std::string fullPrecision(double v);

}  // namespace curvemill::cli
