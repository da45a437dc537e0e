#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "engine/Bracketing.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"

namespace curvemill::cli {
namespace {

int runCheck(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto mode = modeArgument(arguments.value("mode"), "fFne", FormulaMode::Function, usage);
    if (!mode) {
        return kExitUsage;
    }
    auto text = formulaArgument(arguments.positionals[0], usage);
    if (!text) {
        return kExitUsage;
    }
    Formula formula;
    if (!checkFormula(formula, *text, *mode, arguments.flag("lenient"))) {
        // A text that begins with '!' fails silently; a fresh engine has no earlier message.
        out << formula.errorText << '\n';
        return kExitRefused;
    }
    ExpressionSlot& slot = formula.slots[slotForMode(*mode)];
    bracketFormula(slot);
    out << slot.text.data() << '\n';
    return kExitOk;
}

}  // namespace

Command checkCommand() {
    return {{"check",
             "Checks a formula as the program's edit boxes do.\n"
             "An accepted formula is printed fully bracketed, with function names in their\n"
             "one-letter codes (x+2*x gives (x+(2*x))); a refused one prints the check's message.",
             "FORMULA",
             1,
             1,
             {{"mode", "M",
               "f (function of x, default), F (second function), n (number box),\n"
               "e (formula in x and y)"},
              {"lenient", "", "leave bracket pairing and empty brackets unchecked"}},
             "Exit status: 0 accepted, 1 refused, 2 wrong command line.\n"},
            runCheck};
}

}  // namespace curvemill::cli
