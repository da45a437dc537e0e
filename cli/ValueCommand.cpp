#include "cli/FormulaArguments.h"
#include "cli/GraphArguments.h"
#include "cli/MathCommands.h"
#include "engine/NumberEntry.h"
#include "mathtools/MathMessages.h"
#include "mathtools/PointValue.h"

namespace curvemill::cli {
namespace {

// The curve is sampled only because the Information dialog works on a graph on screen; the
// values themselves come from the formula, so the fewest points do.
constexpr int kPoints = 10000;

CommandSyntax valueSyntax() {
    return {"value",
            "Prints y and the slope y' of FORMULA at X, as the Information dialog computes them.",
            "FORMULA",
            1,
            64,
            {{"x-begin", "A", "X Begin of the graph, read like the dialog's box (e.g. -pi)"},
             {"x-end", "B", "X End of the graph"},
             {"at", "X", "the x, inside [A, B]"}},
            "Prints the lines 'y V' and 'slope V', each V with 17 significant digits or\n"
            "INDEFINITE (the slope is INDEFINITE too when y is).\n"
            "Options may come before or after FORMULA.\n"
            "Exit status: 0 computed, 1 an entry refused (the dialog's message is printed),\n"
            "2 wrong command line.\n",
            true};
}

int runValue(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto typed = formulaArgument(arguments.positionals[0], usage);
    if (!requireOptions(arguments, {"x-begin", "x-end", "at"}, usage) || !typed) {
        return kExitUsage;
    }
    Formula formula;
    TwoDGraph graph;
    if (const auto refusal = computeGraph({*typed, std::nullopt, *arguments.value("x-begin"),
                                           *arguments.value("x-end"), kPoints, false},
                                          formula, graph)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    NumberBox xBox(math_messages::kBoxX);
    xBox.setText(*arguments.value("at"));
    double x = 0.0;
    if (const auto refusal = acceptPointX(formula, graph, xBox, x)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    const PointValue value = valueAt(formula, x);
    out << "y " << (value.yDefined ? fullPrecision(value.y) : "INDEFINITE") << '\n'
        << "slope " << (value.slopeDefined ? fullPrecision(value.slope) : "INDEFINITE") << '\n';
    return kExitOk;
}

}  // namespace

Command valueCommand() {
    return {valueSyntax(), runValue};
}

}  // namespace curvemill::cli
