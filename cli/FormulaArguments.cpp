#include "cli/FormulaArguments.h"

#include <utility>

#include "cli/Command.h"
#include "cli/Printable.h"
#include "engine/FormulaCheck.h"

namespace curvemill::cli {
namespace {

// The letters --mode takes, one a mode.
constexpr std::pair<char, FormulaMode> kModeLetters[] = {{'f', FormulaMode::Function},
                                                         {'F', FormulaMode::SecondFunction},
                                                         {'n', FormulaMode::Number},
                                                         {'e', FormulaMode::TwoVariables}};

}  // namespace

std::optional<FormulaMode> modeArgument(const std::optional<std::string>& value,
                                        std::string_view allowed, FormulaMode fallback,
                                        UsageErrors& usage) {
    if (!value) {
        return fallback;
    }
    if (value->size() == 1 && allowed.find((*value)[0]) != std::string_view::npos) {
        for (const auto& [letter, mode] : kModeLetters) {
            if (letter == (*value)[0]) {
                return mode;
            }
        }
    }
    std::ostream& err = usage.report()
                        << "invalid --mode " << quoted(*value) << " (expected one of";
    for (char c : allowed) {
        err << ' ' << c;
    }
    err << ")\n";
    return std::nullopt;
}

std::optional<std::string> entryArgument(std::string typed, std::string_view what,
                                         UsageErrors& usage, Blanks blanks) {
    if (blanks == Blanks::Removed) {
        removeBlanks(typed);
    }
    if (typed.size() > kMaxEntryLength) {
        usage.report() << what << " has " << typed.size()
                       << (blanks == Blanks::Removed ? " characters without blanks" : " characters")
                       << "; at most " << kMaxEntryLength << " are allowed\n";
        return std::nullopt;
    }
    return typed;
}

}  // namespace curvemill::cli
