#include "cli/FormulaArguments.h"
#include "cli/GraphArguments.h"
#include "cli/MathCommands.h"
#include "engine/NumberEntry.h"
#include "mathtools/Integral.h"
#include "mathtools/MathMessages.h"
#include "mathtools/MathTexts.h"
#include "mathtools/PreciseIntegral.h"

namespace curvemill::cli {
namespace {

CommandSyntax integralSyntax() {
    CommandSyntax syntax{
        "integral",
        "Samples FORMULA over [A, B] as the Function dialog does and integrates it from C to D\n"
        "as the Math dialog does, printing the result as the graph shows it.",
        "FORMULA",
        1,
        64,
        graphOptions(),
        "Without --precise: the quick trapezoid sum over the samples, then a line\n"
        "'precise-enough yes' or 'precise-enough no' (the verdict of its error estimate).\n"
        "With --precise: the adaptively refined integral, then a warning line when the\n"
        "refinement reached its bound of evaluations before settling.\n"
        "Options may come before or after FORMULA.\n"
        "Exit status: 0 computed, 1 an entry refused (the dialog's message is printed),\n"
        "2 wrong command line.\n",
        true};
    syntax.options.push_back({"from", "C", "X_BEG of the integral, read like the dialog's box"});
    syntax.options.push_back({"to", "D", "X_END of the integral"});
    syntax.options.push_back({"precise", "", "calculate precisely (refine every interval)"});
    return syntax;
}

int runIntegral(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto typed = formulaArgument(arguments.positionals[0], usage);
    const auto points = pointsArgument(arguments.value("points"), usage);
    if (!requireOptions(arguments, {"x-begin", "x-end", "from", "to"}, usage) || !typed ||
        !points) {
        return kExitUsage;
    }
    Formula formula;
    TwoDGraph graph;
    if (const auto refusal = computeGraph({*typed, std::nullopt, *arguments.value("x-begin"),
                                           *arguments.value("x-end"), *points, false},
                                          formula, graph)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    NumberBox fromBox(math_messages::kBoxXBegin);
    NumberBox toBox(math_messages::kBoxXEnd);
    fromBox.setText(*arguments.value("from"));
    toBox.setText(*arguments.value("to"));
    IntegralState state;
    if (const auto refusal = acceptIntegralInterval(formula, graph, fromBox, toBox, state)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    const bool precise = arguments.flag("precise");
    // Nothing stops a run here, so the precise one always completes.
    const bool preciseEnough =
        precise ? integratePrecise(graph.main, formula, state, {}) && !state.refinementCut
                : integrateQuick(graph.main, formula, state);
    if (const auto refusal = integralValueRefusal(state)) {
        out << *refusal << '\n';
        return kExitRefused;
    }
    if (precise) {
        out << state.resultText << '\n';
        if (state.refinementCut) {
            out << refinementCutText() << '\n';
        }
        return kExitOk;
    }
    out << state.resultText << '\n' << "precise-enough " << (preciseEnough ? "yes" : "no") << '\n';
    return kExitOk;
}

}  // namespace

Command integralCommand() {
    return {integralSyntax(), runIntegral};
}

}  // namespace curvemill::cli
