#include "cli/GraphArguments.h"

#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "cli/Printable.h"
#include "engine/NumberEntry.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/DerivativeCurve.h"
#include "graph2d/GraphEntries.h"
#include "mathtools/IntegralCurve.h"

namespace curvemill::cli {

namespace {

constexpr int kPointsUnit = 10000;
constexpr int kMostPoints = 400000;

}  // namespace

std::vector<OptionSpec> graphOptions() {
    return {{"x-begin", "A", "X Begin, read like the dialog's box (e.g. -pi)"},
            {"x-end", "B", "X End, read the same way"},
            {"points", "N",
             "regular samples: a multiple of 10000 from 10000 to 400000\n"
             "                      (default 100000)"}};
}

bool parseTrailingOptions(const CommandSyntax& syntax, ParsedArguments& arguments,
                          std::ostream& err) {
    if (arguments.positionals.size() <= 1) {
        return true;
    }
    const std::vector<std::string> rest(arguments.positionals.begin() + 1,
                                        arguments.positionals.end());
    CommandSyntax optionsOnly = syntax;
    optionsOnly.minPositionals = 0;
    optionsOnly.maxPositionals = 0;
    optionsOnly.positionalUsage = "no more arguments after FORMULA";
    ParsedArguments trailing;
    if (const auto error = parseArguments(optionsOnly, rest, trailing)) {
        err << "curvemill-cli " << syntax.command << ": " << *error << "\n(see 'curvemill-cli "
            << syntax.command << " --help')\n";
        return false;
    }
    for (const OptionSpec& option : syntax.options) {
        if (const auto value = trailing.value(option.name)) {
            arguments.set(option.name, *value);
        }
    }
    arguments.helpRequested = arguments.helpRequested || trailing.helpRequested;
    arguments.positionals.resize(1);
    return true;
}

std::optional<int> pointsArgument(const std::optional<std::string>& value, std::string_view command,
                                  std::ostream& err) {
    if (!value) {
        return 100000;
    }
    const std::optional<long> points = plainInteger(*value);
    if (!points || *points < kPointsUnit || *points > kMostPoints || *points % kPointsUnit != 0) {
        err << "curvemill-cli " << command << ": --points must be a multiple of 10000 from 10000 "
            << "to 400000, not " << quoted(*value) << "\n";
        return std::nullopt;
    }
    return static_cast<int>(*points);
}

std::optional<GraphRequest> graphRequest(const ParsedArguments& arguments, std::string_view command,
                                         std::ostream& err) {
    const auto begin = arguments.value("x-begin");
    const auto end = arguments.value("x-end");
    if (!begin || !end) {
        err << "curvemill-cli " << command << ": --x-begin and --x-end are required\n";
        return std::nullopt;
    }
    GraphRequest request;
    const auto typed = formulaArgument(arguments.positionals[0], command, err);
    const auto xBegin = entryArgument(*begin, "--x-begin", command, err);
    const auto xEnd = entryArgument(*end, "--x-end", command, err);
    const auto points = pointsArgument(arguments.value("points"), command, err);
    bool ok = typed && xBegin && xEnd && points;
    if (const auto second = arguments.value("second")) {
        request.secondFormula = entryArgument(*second, "--second", command, err);
        ok = ok && request.secondFormula;
    }
    if (!ok) {
        return std::nullopt;
    }
    request.formula = *typed;
    request.xBegin = *xBegin;
    request.xEnd = *xEnd;
    request.points = *points;
    request.derivative = arguments.flag("derivative");
    request.integralCurve = arguments.flag("integral-curve");
    return request;
}

std::optional<std::string> computeGraph(const GraphRequest& request, Formula& formula,
                                        TwoDGraph& graph) {
    NumberBox xBegin(kXBeginBoxName);
    NumberBox xEnd(kXEndBoxName);
    xBegin.setText(request.xBegin);
    xEnd.setText(request.xEnd);
    const std::string& typed = request.formula;
    const GraphEntries entries = checkGraphEntries(formula, xBegin, xEnd, typed);
    if (entries.refusal) {
        return entries.refusal->message;
    }
    graph.xBegin = entries.xBegin;
    graph.xEnd = entries.xEnd;
    graph.pointsPerRun = request.points;
    graph.mainFormulaText = typed;
    graph.computingSecond = false;
    sampleCurve(graph, formula, {});

    if (request.secondFormula) {
        const std::string& second = *request.secondFormula;
        // The dialog's checks again, as the Second Function dialog makes them over the same range.
        const GraphEntries secondEntries =
            checkGraphEntries(formula, xBegin, xEnd, second, std::string_view(typed));
        if (secondEntries.refusal) {
            return secondEntries.refusal->message;
        }
        graph.secondFormulaText = second;
        graph.computingSecond = true;
        sampleCurve(graph, formula, {});
        graph.computingSecond = false;
    }
    if (request.derivative) {
        buildDerivativeCurve(graph, formula, {});
    }
    if (request.integralCurve) {
        buildIntegralCurve(graph, formula, {});
    }
    return std::nullopt;
}

}  // namespace curvemill::cli
