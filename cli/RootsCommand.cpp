#include "cli/FormulaArguments.h"
#include "cli/GraphArguments.h"
#include "cli/MathCommands.h"
#include "cli/TwoVariableEntries.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"
#include "mathtools/MathMessages.h"
#include "mathtools/MathTexts.h"
#include "mathtools/RootScan.h"

namespace curvemill::cli {
namespace {

CommandSyntax rootsSyntax() {
    return {"roots",
            "Finds every x in [A, B] where EQUATION (in x and y) is 0 for the y given by --y, or\n"
            "every y in [C, D] for the x given by --x, as the Information dialog does.",
            "EQUATION",
            1,
            64,
            {{"x-begin", "A", "X Begin of the graph, read like the Equation window's box"},
             {"x-end", "B", "X End"},
             {"y-begin", "C", "Y Begin"},
             {"y-end", "D", "Y End"},
             {"y", "V", "scan x with y fixed at V (V inside [C, D])"},
             {"x", "V", "scan y with x fixed at V (V inside [A, B])"},
             {"steps", "N", "grid steps of the scan, 1 to 1000000 (default 500)"},
             {"precision", "P", "the tolerance is 1e-P, P from 1 to 15 (default 5)"}},
            "Prints one solution per line with 15 decimals, in the order found; a root caught\n"
            "both at a grid point and by the bisection after it is printed twice.\n"
            "Options may come before or after EQUATION; give exactly one of --y and --x.\n"
            "Exit status: 0 scanned (no solution included), 1 an entry refused (the dialog's\n"
            "message is printed), 2 wrong command line.\n",
            true};
}

int runRoots(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto typed = formulaArgument(arguments.positionals[0], usage);
    const auto steps = wholeArgument(arguments.value("steps"), "steps", 1, 1000000, 500, usage);
    const auto precision =
        wholeArgument(arguments.value("precision"), "precision", 1, 15, 5, usage);
    if (!requireOptions(arguments, {"x-begin", "x-end", "y-begin", "y-end"}, usage)) {
        return kExitUsage;
    }
    const auto fixedY = arguments.value("y");
    const auto fixedX = arguments.value("x");
    if (fixedY.has_value() == fixedX.has_value()) {
        usage.report() << "give exactly one of --y V and --x V\n";
        return kExitUsage;
    }
    if (!typed || !steps || !precision) {
        return kExitUsage;
    }
    Formula formula;
    TwoVariableRange entries;
    if (const auto refusal = readTwoVariableEntries(formula, arguments, *typed, entries)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    const RootRange range{entries.xBegin, entries.xEnd, entries.yBegin, entries.yEnd};
    const RootKind kind = fixedY ? RootKind::kX : RootKind::kY;
    const NumberReading fixed = readNumberEntry(
        formula, fixedY ? *fixedY : *fixedX, fixedY ? math_messages::kBoxY : math_messages::kBoxX);
    if (!fixed.ok) {
        out << fixed.message << '\n';
        return kExitRefused;
    }
    if (const auto refusal = rootValueRefusal(kind, fixed.value, range)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    const RootScanResult result =
        findRoots(formula, kind, fixed.value, range, {}, {*steps, *steps, *precision});
    for (const std::string& line : solutionTexts(result.solutions, false)) {
        out << line << '\n';
    }
    return kExitOk;
}

}  // namespace

Command rootsCommand() {
    return {rootsSyntax(), runRoots};
}

}  // namespace curvemill::cli
