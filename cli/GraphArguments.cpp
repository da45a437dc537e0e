#include "cli/GraphArguments.h"

#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "cli/Printable.h"
#include "engine/NumberEntry.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/GraphEntries.h"
#include "mathtools/DerivativeCurve.h"
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
             "(default 100000)"}};
}

std::optional<int> pointsArgument(const std::optional<std::string>& value, UsageErrors& usage) {
    if (!value) {
        return 100000;
    }
    const std::optional<long> points = plainInteger(*value);
    if (!points || *points < kPointsUnit || *points > kMostPoints || *points % kPointsUnit != 0) {
        usage.report() << "--points must be a multiple of 10000 from 10000 "
                       << "to 400000, not " << quoted(*value) << "\n";
        return std::nullopt;
    }
    return static_cast<int>(*points);
}

std::optional<GraphRequest> graphRequest(const ParsedArguments& arguments, UsageErrors& usage) {
    if (!requireOptions(arguments, {"x-begin", "x-end"}, usage)) {
        return std::nullopt;
    }
    GraphRequest request;
    const auto typed = formulaArgument(arguments.positionals[0], usage);
    const auto xBegin = entryArgument(*arguments.value("x-begin"), "--x-begin", usage);
    const auto xEnd = entryArgument(*arguments.value("x-end"), "--x-end", usage);
    const auto points = pointsArgument(arguments.value("points"), usage);
    bool ok = typed && xBegin && xEnd && points;
    if (const auto second = arguments.value("second")) {
        request.secondFormula = entryArgument(*second, "--second", usage);
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
    if (request.secondFormula) {
        // The dialog's checks again, as the Second Function dialog makes them over the same range.
        const GraphEntries secondEntries = checkGraphEntries(
            formula, xBegin, xEnd, *request.secondFormula, std::string_view(typed));
        if (secondEntries.refusal) {
            return secondEntries.refusal->message;
        }
        graph.secondFormulaText = *request.secondFormula;
    }
    sampleGraph(graph, formula, request.secondFormula.has_value(), request.derivative,
                request.integralCurve);
    return std::nullopt;
}

void sampleGraph(TwoDGraph& graph, Formula& formula, bool second, bool derivative,
                 bool integralCurve) {
    graph.computingSecond = false;
    sampleCurve(graph, formula, {});
    if (second) {
        graph.computingSecond = true;
        sampleCurve(graph, formula, {});
        graph.computingSecond = false;
    }
    if (derivative) {
        buildDerivativeCurve(graph, formula, {});
    }
    if (integralCurve) {
        buildIntegralCurve(graph, formula, {});
    }
}

}  // namespace curvemill::cli
