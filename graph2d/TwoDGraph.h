// The program-wide state of the 2D graph: its curves and the settings they were sampled with.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "graph2d/Curve.h"

namespace curvemill {

// The first stretch [begin, end] of the main curve with no indefinite point and no break.
struct DefinedSpan {
    double begin = 0.0;
    double end = 0.0;
};

// The points spin of the Two D Graph dialog (and of the curve window): whole units up to the most.
inline constexpr std::int32_t kPointsPerRunUnit = 10000;
inline constexpr std::int32_t kMostPointsPerRun = 400000;

struct TwoDGraph {
    Curve main;
    Curve second;
    Curve derivative;
    Curve integral;
    // The records a sampling run fills; they become the curve's when the run completes, and the
    // curve's old records come back here for the next run. Kept here rather than in the run so
    // that a fault on the worker, which abandons the run's frames, abandons no memory.
    std::vector<PlotPoint> samplingRecords;

    // The sampled interval; xBegin < xEnd is guaranteed by the dialog.
    double xBegin = -10.0;
    double xEnd = 10.0;
    // Regular samples per run, a multiple of 10000 from 10000 to 400000.
    std::int32_t pointsPerRun = 100000;
    // Caps the view's height at this many times its width.
    std::int32_t maxYRatio = 10;
    // 10 while "Optimize Drawing" is on, 1 while it is off.
    std::int32_t drawStep = 10;
    DefinedSpan definedSpan;
    // Which curve sampleCurve fills.
    bool computingSecond = false;

    // Typed formula texts, shown in the title.
    std::string mainFormulaText;
    std::string secondFormulaText;
    // Name of the dependent variable in titles and read-outs; y labels are hidden while it is "n".
    std::string dependentName = "y";

    // The painted area: indices into main.points, and the text of its value for the title.
    std::int32_t areaFirst = 0;
    std::int32_t areaLast = -1;
    std::string areaText;

    bool hasSecond() const { return second.exists(); }
    bool hasDerivative() const { return derivative.exists(); }
    bool hasIntegral() const { return integral.exists(); }
};

}  // namespace curvemill
