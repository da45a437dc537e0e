// Test builder: a formula sampled into a graph's main curve, as the Function dialog leaves it for
// the tools. Apart from CurveBuilders.h: the engine's names clash with Qt's keyword macros.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/TwoDGraph.h"

namespace curvemill {

// `text` prepared as the main function and sampled with `points` per run over [xBegin, xEnd].
struct SampledGraph {
    SampledGraph(const std::string& text, double xBegin, double xEnd, int points = 10000) {
        prepared = prepareFormula(formula, text, FormulaMode::Function);
        graph.xBegin = xBegin;
        graph.xEnd = xEnd;
        graph.pointsPerRun = points;
        SamplingControl control;
        control.progress = [this](int p) { percents.push_back(p); };
        completed = sampleCurve(graph, formula, control);
    }
    std::pair<double, double> span() const {
        return {graph.definedSpan.begin, graph.definedSpan.end};
    }

    Formula formula;
    TwoDGraph graph;
    bool prepared = false;
    bool completed = false;
    std::vector<int> percents;
};

}  // namespace curvemill
