#include <cmath>
#include <cstdio>

#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/LogBase.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"

namespace curvemill::cli {
namespace {

int runEval(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto& positionals = arguments.positionals;
    const bool hasY = positionals.size() == 3;
    const auto mode = modeArgument(arguments.value("mode"), "fe",
                                   hasY ? FormulaMode::TwoVariables : FormulaMode::Function, usage);
    if (!mode) {
        return kExitUsage;
    }
    const auto typed = formulaArgument(positionals[0], usage);
    const auto xText = entryArgument(positionals[1], "X", usage);
    const auto yText = hasY ? entryArgument(positionals[2], "Y", usage) : std::string("0");
    const auto baseText = arguments.value("log-base");
    const auto base =
        baseText ? entryArgument(*baseText, "--log-base", usage, Blanks::Kept) : std::nullopt;
    if (!typed || !xText || !yText || (baseText && !base)) {
        return kExitUsage;
    }

    Formula formula;
    if (base) {
        const LogBaseResult result = applyLogBase(formula, true, *base);
        if (!result.accepted) {
            out << result.message << '\n';
            return kExitRefused;
        }
    }
    if (!prepareFormula(formula, *typed, *mode)) {
        out << formula.errorText << '\n';
        return kExitRefused;
    }
    const NumberReading x = readNumberEntry(formula, *xText, "X");
    if (!x.ok) {
        out << x.message << '\n';
        return kExitRefused;
    }
    NumberReading y;
    y.ok = true;
    if (hasY) {
        y = readNumberEntry(formula, *yText, "Y");
        if (!y.ok) {
            out << y.message << '\n';
            return kExitRefused;
        }
    }

    const double value = formula.evaluate(x.value, slotForMode(*mode), y.value);
    // A NaN the evaluator let through unflagged (inf-inf) is no value either, as for the tools.
    if (formula.indefinite || std::isnan(value)) {
        out << "INDEFINITE\n";
    } else {
        char buffer[64];
        std::snprintf(buffer, sizeof buffer, "%.17g", value);
        out << buffer << '\n';
    }
    return kExitOk;
}

}  // namespace

Command evalCommand() {
    return {{"eval",
             "Evaluates a formula at X (and Y).\n"
             "Prints the value with 17 significant digits, or INDEFINITE when it leaves a\n"
             "function's domain. X and Y are read like the program's number boxes, so constant\n"
             "expressions such as pi/2 are allowed.",
             "FORMULA X [Y]",
             2,
             3,
             {{"mode", "M",
               "f (function of x; the default without Y) or e (formula in x and y;\n"
               "the default with Y)"},
              {"log-base", "B", "base of log( (default 10), as in the Log Base dialog"}},
             "As in the program's boxes, X and Y take no exponent notation: write 100000, not\n"
             "1e5. A formula that begins with '-' needs -- before it (X and Y after it do not).\n\n"
             "Exit status: 0 evaluated (INDEFINITE included), 1 formula, X, Y or base refused,\n"
             "2 wrong command line.\n"},
            runEval};
}

}  // namespace curvemill::cli
