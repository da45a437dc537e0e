#include "cli/GraphArguments.h"

#include "cli/Command.h"
#include "cli/FormulaArguments.h"
#include "cli/Printable.h"
#include "engine/NumberEntry.h"
#include "graph2d/TwoDRun.h"
#include "mathtools/DerivativeCurve.h"
#include "mathtools/IntegralCurve.h"

namespace curvemill::cli {

namespace {

constexpr int kPointsUnit = 10000;
constexpr int kMostPoints = 400000;

void sampleDerivedCurves(TwoDGraph& graph, Formula& formula, bool derivative, bool integralCurve) {
    if (derivative) {
        buildDerivativeCurve(graph, formula, {});
    }
    if (integralCurve) {
        buildIntegralCurve(graph, formula, {});
    }
}

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
    // The runs of the Function dialog, then of the Second Function dialog over the same range.
    const auto run = [&](TwoDGraphRole role,
                         const std::string& typed) -> std::optional<std::string> {
        TwoDRun graphRun(role, formula, graph);
        const GraphEntries entries = graphRun.check(xBegin, xEnd, typed);
        if (entries.refusal) {
            return entries.refusal->message;
        }
        graphRun.runHere(entries.xBegin, entries.xEnd, request.points, typed);
        return std::nullopt;
    };
    if (auto refusal = run(TwoDGraphRole::Main, request.formula)) {
        return refusal;
    }
    if (request.secondFormula) {
        if (auto refusal = run(TwoDGraphRole::Second, *request.secondFormula)) {
            return refusal;
        }
    }
    sampleDerivedCurves(graph, formula, request.derivative, request.integralCurve);
    return std::nullopt;
}

void sampleGraph(TwoDGraph& graph, Formula& formula, bool second, bool derivative,
                 bool integralCurve) {
    // Copied first: the main function's run clears the second text while no second curve exists.
    const std::string secondText = graph.secondFormulaText;
    TwoDRun(TwoDGraphRole::Main, formula, graph)
        .runHere(graph.xBegin, graph.xEnd, graph.pointsPerRun, graph.mainFormulaText);
    if (second) {
        TwoDRun(TwoDGraphRole::Second, formula, graph)
            .runHere(graph.xBegin, graph.xEnd, graph.pointsPerRun, secondText);
    }
    sampleDerivedCurves(graph, formula, derivative, integralCurve);
}

}  // namespace curvemill::cli
