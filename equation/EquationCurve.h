// The program-wide state of the equation curve F(x, y) = 0: its sorted solution points, their Y
// range, and what was asked for.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace curvemill {

struct SolutionPoint {
    double x = 0.0;
    double y = 0.0;
};

// The grid the solver walks: ranges, steps along each axis and the tolerance's digits.
struct EquationGrid {
    double xBegin = -10.0;
    double xEnd = 10.0;
    double yBegin = -10.0;
    double yEnd = 10.0;
    std::int32_t xSteps = 500;
    std::int32_t ySteps = 500;
    // The tolerance is 10^-precisionDigits.
    std::int32_t precisionDigits = 5;
};

// Start values of the solutions' Y range: any solution replaces both.
inline constexpr double kNoLowestY = 1e100;
inline constexpr double kNoHighestY = -1e100;

struct EquationCurve {
    // Ascending x; points with equal x in no particular order.
    std::vector<SolutionPoint> solutions;
    double yMin = kNoLowestY;
    double yMax = kNoHighestY;
    // The grid the solutions were found on and the equation's text as typed (for the title).
    EquationGrid grid;
    std::string formulaText;
    // Set when the run stopped at kMostSolutions: the points found up to there.
    bool truncated = false;
    // Set once a computation has completed; cleared when the picture is discarded.
    bool shown = false;

    std::int32_t count() const { return static_cast<std::int32_t>(solutions.size()); }
    void clear();
};

// What a run works in. Kept apart from the curve so that a stopped run leaves the curve as it was,
// and kept out of the run's own frames because a fault leaves them without unwinding. Its vectors
// keep their capacity from run to run.
struct EquationWork {
    // F at each column in the previous row; 0 stands for "no usable value" (indefinite, or a
    // solution), which can never be a bisection end.
    std::vector<double> previousRow;
    std::vector<SolutionPoint> found;
    double yMin = kNoLowestY;
    double yMax = kNoHighestY;
};

}  // namespace curvemill
