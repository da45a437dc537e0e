// What the plot and sample commands share: their options, the dialog's checks, the sampling.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "cli/Arguments.h"
#include "engine/Formula.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill::cli {

// The options every 2D graph command takes.
std::vector<OptionSpec> graphOptions();

// --points as the dialog takes it: a multiple of 10000 from 10000 to 400000 (default 100000).
std::optional<int> pointsArgument(const std::optional<std::string>& value, UsageErrors& usage);

// The entries, their blanks already removed (graphRequest does that).
struct GraphRequest {
    std::string formula;
    std::optional<std::string> secondFormula;
    std::string xBegin;
    std::string xEnd;
    int points = 100000;
    bool derivative = false;
    bool integralCurve = false;
};

// The request the graph options and FORMULA describe (--second, --derivative and --integral-curve
// when the command has them), or nothing after telling `usage`.
std::optional<GraphRequest> graphRequest(const ParsedArguments& arguments, UsageErrors& usage);

// Runs the Function dialog's checks and sampling, then the Second Function dialog's when asked
// for, then builds the derivative and the integral curve when asked for. Returns the dialog's
// message on refusal.
std::optional<std::string> computeGraph(const GraphRequest& request, Formula& formula,
                                        TwoDGraph& graph);

// Samples the main curve of an accepted graph (range, points and texts set, formulas prepared),
// then the second function, the derivative and the integral curve when asked for.
void sampleGraph(TwoDGraph& graph, Formula& formula, bool second, bool derivative,
                 bool integralCurve);

}  // namespace curvemill::cli
