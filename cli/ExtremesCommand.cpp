#include "cli/FormulaArguments.h"
#include "cli/GraphArguments.h"
#include "cli/MathCommands.h"
#include "cli/Printable.h"
#include "mathtools/ExtremeList.h"

namespace curvemill::cli {
namespace {

CommandSyntax extremesSyntax() {
    CommandSyntax syntax{
        "extremes",
        "Samples FORMULA over [A, B] as the Function dialog does and prints the Math dialog's\n"
        "list of extreme values, one row per line: the x text, a tab, the y text.",
        "FORMULA",
        1,
        64,
        graphOptions(),
        "Options may come before or after FORMULA.\n"
        "Exit status: 0 listed (an empty list included), 1 an entry refused (the dialog's\n"
        "message is printed), 2 wrong command line.\n",
        true};
    syntax.options.push_back({"filter", "F", "max, min or both (default both)"});
    syntax.options.push_back({"x-pi", "", "x in units of pi"});
    syntax.options.push_back({"y-pi", "", "y in units of pi"});
    return syntax;
}

std::optional<ExtremeFilter> filterArgument(const std::optional<std::string>& value,
                                            UsageErrors& usage) {
    if (!value || *value == "both") {
        return ExtremeFilter::kBoth;
    }
    if (*value == "max") {
        return ExtremeFilter::kMaxima;
    }
    if (*value == "min") {
        return ExtremeFilter::kMinima;
    }
    usage.report() << "--filter must be max, min or both, not " << quoted(*value) << "\n";
    return std::nullopt;
}

int runExtremes(const ParsedArguments& arguments, std::ostream& out, UsageErrors& usage) {
    const auto typed = formulaArgument(arguments.positionals[0], usage);
    const auto points = pointsArgument(arguments.value("points"), usage);
    const auto filter = filterArgument(arguments.value("filter"), usage);
    if (!requireOptions(arguments, {"x-begin", "x-end"}, usage) || !typed || !points || !filter) {
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
    for (const ExtremeRow& row :
         fillExtremeList(graph.main, arguments.flag("x-pi"), arguments.flag("y-pi"), *filter)) {
        out << row.xText << '\t' << row.yText << '\n';
    }
    return kExitOk;
}

}  // namespace

Command extremesCommand() {
    return {extremesSyntax(), runExtremes};
}

}  // namespace curvemill::cli
