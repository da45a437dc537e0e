#include "cli/FormulaArguments.h"

#include "cli/Command.h"
#include "cli/Printable.h"
#include "engine/FormulaCheck.h"

namespace curvemill::cli {

std::optional<char> modeArgument(const std::optional<std::string>& value, std::string_view allowed,
                                 char fallback, std::string_view command, std::ostream& err) {
    if (!value) {
        return fallback;
    }
    if (value->size() == 1 && allowed.find((*value)[0]) != std::string_view::npos) {
        return (*value)[0];
    }
    err << "curvemill-cli " << command << ": invalid --mode " << quoted(*value)
        << " (expected one of";
    for (char c : allowed) {
        err << ' ' << c;
    }
    err << ")\n";
    return std::nullopt;
}

std::optional<std::string> entryArgument(std::string typed, std::string_view what,
                                         std::string_view command, std::ostream& err,
                                         Blanks blanks) {
    if (blanks == Blanks::Removed) {
        removeBlanks(typed);
    }
    if (typed.size() > kMaxEntryLength) {
        err << "curvemill-cli " << command << ": " << what << " has " << typed.size()
            << (blanks == Blanks::Removed ? " characters without blanks" : " characters")
            << "; at most " << kMaxEntryLength << " are allowed\n";
        return std::nullopt;
    }
    return typed;
}

}  // namespace curvemill::cli
