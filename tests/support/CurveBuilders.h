// A formula sampled into a graph's main curve, as the Function dialog leaves it for the tools.
#pragma once

#include <string>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/TwoDGraph.h"

struct SampledGraph {
    curvemill::Formula formula;
    curvemill::TwoDGraph graph;

    SampledGraph(const std::string& text, double xBegin, double xEnd, int points = 10000) {
        curvemill::prepareFormula(formula, text, 'f');
        graph.xBegin = xBegin;
        graph.xEnd = xEnd;
        graph.pointsPerRun = points;
        curvemill::sampleCurve(graph, formula, {});
    }
};
