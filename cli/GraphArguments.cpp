#include "cli/GraphArguments.h"

#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/DerivativeCurve.h"

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
    std::vector<std::string> rest(arguments.positionals.begin() + 1, arguments.positionals.end());
    for (std::string& word : rest) {
        if (word == "-o") {
            word = "--output";
        }
    }
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
    long points = -1;
    std::size_t used = 0;
    try {
        points = std::stol(*value, &used);
    } catch (const std::exception&) {
        used = 0;
    }
    if (used != value->size() || points < kPointsUnit || points > kMostPoints ||
        points % kPointsUnit != 0) {
        err << "curvemill-cli " << command << ": --points must be a multiple of 10000 from 10000 "
            << "to 400000, not '" << *value << "'\n";
        return std::nullopt;
    }
    return static_cast<int>(points);
}

std::optional<std::string> computeGraph(const GraphRequest& request, Formula& formula,
                                        TwoDGraph& graph) {
    const NumberReading begin = readNumberEntry(formula, request.xBegin, "X_BEG");
    if (!begin.ok) {
        return begin.message;
    }
    const NumberReading end = readNumberEntry(formula, request.xEnd, "X_END");
    if (!end.ok) {
        return end.message;
    }
    if (!(begin.value < end.value)) {
        return std::string("X_BEG MUST BE LESS THAN X_END");
    }
    std::string typed = request.formula;
    removeBlanks(typed);
    if (!prepareFormula(formula, typed, kModeFunction)) {
        return composeBoxError("FORMULA", formula.errorText);
    }
    graph.xBegin = begin.value;
    graph.xEnd = end.value;
    graph.pointsPerRun = request.points;
    graph.mainFormulaText = typed;
    graph.computingSecond = false;
    sampleCurve(graph, formula, {});

    if (request.secondFormula) {
        std::string second = *request.secondFormula;
        removeBlanks(second);
        if (second == typed) {
            return std::string("YOU MUST SELECT A DIFFERENT FUNCTION");
        }
        if (!prepareFormula(formula, second, kModeSecondFunction)) {
            return composeBoxError("FORMULA", formula.errorText);
        }
        graph.secondFormulaText = second;
        graph.computingSecond = true;
        sampleCurve(graph, formula, {});
        graph.computingSecond = false;
    }
    if (request.derivative) {
        buildDerivativeCurve(graph, formula, {});
    }
    return std::nullopt;
}

}  // namespace curvemill::cli
