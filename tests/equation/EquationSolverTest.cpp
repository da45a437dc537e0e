// The equation solver's grid walk and bisection, and the curve's place on the view.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <tuple>
#include <vector>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "equation/EquationComputation.h"
#include "equation/EquationSolver.h"
#include "equation/EquationView.h"
#include "graph2d/ViewZoom.h"

namespace curvemill {
namespace {

struct Solved {
    bool completed = false;
    EquationCurve curve;
};

Solved solve(const char* equation, EquationGrid grid) {
    Formula formula;
    EXPECT_TRUE(prepareFormula(formula, equation, FormulaMode::TwoVariables)) << formula.errorText;
    std::atomic<bool> running{true};
    EquationWork work;
    Solved result;
    result.completed = solveEquation(formula, grid, running, work, result.curve);
    return result;
}

EquationGrid square(double half, int steps) {
    return {-half, half, -half, half, steps, steps, 5};
}

// Every solution lies on the curve within the tolerance, inside the grid, in ascending x, and the
// Y range is the solutions' own.
TEST(EquationSolver, SolutionsLieOnTheCurveSortedByX) {
    const std::tuple<const char*, EquationGrid, int> cases[] = {
        {"x^2+y^2-1", square(2, 500), 800},  // about 200 in each quadrant
        {"x*y-1", square(5, 500), 400},
        {"sin(x)-cos(y)", square(10, 500), 1000},
        // A pole: every row changes sign across x = 0 and is bisected there in vain.
        {"1/x-y", square(2, 501), 200},
        {"log(x)+y", {0.01, 5, -3, 3, 400, 300, 5}, 300},
    };
    for (const auto& [equation, grid, minimumCount] : cases) {
        SCOPED_TRACE(equation);
        const Solved solved = solve(equation, grid);
        ASSERT_TRUE(solved.completed);
        const auto& points = solved.curve.solutions;
        EXPECT_GE(solved.curve.count(), minimumCount);
        EXPECT_TRUE(std::is_sorted(points.begin(), points.end(),
                                   [](auto& a, auto& b) { return a.x < b.x; }));
        Formula check;
        ASSERT_TRUE(prepareFormula(check, equation, FormulaMode::TwoVariables));
        for (const SolutionPoint& p : points) {
            const double f = check.evaluate(p.x, kTwoVariableSlot, p.y);
            ASSERT_TRUE(!check.indefinite && std::fabs(f) < 1e-5 && p.x >= grid.xBegin &&
                        p.x <= grid.xEnd && p.y >= grid.yBegin && p.y <= grid.yEnd)
                << p.x << ", " << p.y << ": " << f;
        }
        const auto [lo, hi] = std::minmax_element(points.begin(), points.end(),
                                                  [](auto& a, auto& b) { return a.y < b.y; });
        EXPECT_EQ(std::pair(solved.curve.yMin, solved.curve.yMax), std::pair(lo->y, hi->y));
        EXPECT_EQ(solved.curve.grid.xSteps, grid.xSteps);
    }
}

// Exact grid points come first and are not bisected again from their neighbours; a sign change
// along y is taken before one along x, so a line crossing both gives one point per column.
TEST(EquationSolver, OrderOfTheTests) {
    const std::tuple<const char*, std::vector<std::pair<double, double>>> cases[] = {
        {"x+y", {{-2, 2}, {-1, 1}, {0, 0}, {1, -1}, {2, -2}}},
        {"x+y-0.5", {{-1, 1.5}, {0, 0.5}, {1, -0.5}, {2, -1.5}}},
        // No sign change along y within a column: bisected along x, one point per row.
        {"x-0.5", {{0.5, -2}, {0.5, -1}, {0.5, 0}, {0.5, 1}, {0.5, 2}}},
    };
    for (const auto& [equation, expected] : cases) {
        SCOPED_TRACE(equation);
        Solved solved = solve(equation, square(2, 4));
        ASSERT_TRUE(solved.completed);
        std::vector<std::pair<double, double>> points;
        for (const SolutionPoint& p : solved.curve.solutions) {
            points.emplace_back(p.x, p.y);
        }
        std::sort(points.begin(), points.end());
        EXPECT_EQ(points, expected);
    }
}

TEST(EquationSolver, EmptyGridAndDegenerateSteps) {
    const Solved empty = solve("x^2+y^2+1", square(2, 500));
    ASSERT_TRUE(empty.completed);
    EXPECT_EQ(std::tuple(empty.curve.count(), empty.curve.yMin, empty.curve.yMax),
              std::tuple(0, kNoLowestY, kNoHighestY));
    // Steps too small to move x on must end the walk, not loop for ever.
    const Solved stuck = solve("x-y", {1e16, 1e16 + 2, -1, 1, 500, 10, 5});
    EXPECT_TRUE(stuck.completed);
    // A coarser tolerance takes more grid points as they are.
    EXPECT_GT(solve("x^2+y^2-1", {-2, 2, -2, 2, 500, 500, 2}).curve.count(),
              solve("x^2+y^2-1", square(2, 500)).curve.count());
}

TEST(EquationSolver, StopLeavesThePreviousSolutions) {
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x^2+y^2-1", FormulaMode::TwoVariables));
    EquationCurve curve;
    curve.solutions = {{7, 8}};
    curve.yMin = curve.yMax = 8;
    EquationWork work;
    for (int stopAt : {0, 50}) {
        SCOPED_TRACE(stopAt);
        std::atomic<bool> running{true};
        EXPECT_FALSE(solveEquation(formula, square(2, 500), running, work, curve,
                                   [&](int percent) { running = running && percent < stopAt; }));
        ASSERT_EQ(curve.count(), 1);
        EXPECT_EQ(std::tuple(curve.solutions[0].x, curve.yMin), std::tuple(7, 8));
    }
}

TEST(EquationView, RangesAndPixels) {
    EquationCurve curve;
    curve.grid = {-2, 2, -5, 5, 500, 500, 5};
    // No solutions: the grid's own Y range, so the empty graph has axes.
    EXPECT_EQ(equationYRange(curve, 10).begin, -5);
    curve.solutions = {{-1, 0}, {0, 1}, {1, 0}, {1.5, -30}};
    std::tie(curve.yMin, curve.yMax) = std::pair(-30.0, 1.0);
    // Cut to 10 times the 4-wide X range.
    const YRange cut = equationYRange(curve, 1);
    EXPECT_EQ(std::pair(cut.begin, cut.end), std::pair(-3.0, 1.0));

    GraphView view;
    setViewSize(view, 530, 480);
    std::tie(curve.yMin, curve.yMax) = std::pair(-1.0, 1.0);
    curve.solutions.back() = {1.5, -1e300};
    resetEquationView(view, curve, 10);
    std::vector<PixelPoint> pixels;
    solutionPixels(curve.solutions, view, pixels);
    ASSERT_EQ(pixels.size(), 3u);
    EXPECT_EQ(pixels[0].x, static_cast<int>(view.toPixelX(-1)));
    EXPECT_EQ(pixels[1].y, static_cast<int>(view.toPixelY(1)));
}

TEST(EquationComputation, JobFillsTheCurveAndShowPutsItOnTheView) {
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x*y-1", FormulaMode::TwoVariables));
    EquationCurve curve;
    GraphView view;
    setViewSize(view, 600, 500);
    const int ratio = 10;
    EquationComputation computation(formula, curve, view, ratio);
    int shown = 0;
    computation.setShownCallback([&shown] { ++shown; });
    const Job job = computation.makeJob({-4, 4, -3, 3, 400, 300, 6, "x*y-1"});
    std::atomic<bool> running{true};
    ASSERT_TRUE(job(JobContext{[](int) {}, running}));
    // The curve on screen is not touched from the worker's side.
    EXPECT_EQ(curve.count(), 0);
    computation.show();
    EXPECT_EQ(std::tuple(shown, curve.shown, curve.formulaText, curve.grid.precisionDigits),
              std::tuple(1, true, "x*y-1", 6));
    EXPECT_EQ(std::tuple(view.wholeXBegin, view.yBegin, view.yEnd),
              std::tuple(-4, curve.yMin, curve.yMax));
}

// Every solution, and the ring of a point marked on it, is inside the plotting area on a wide, a
// tall and a dense screen, when the equation opens and after zooming and Restore.
TEST(EquationView, EverySolutionIsOnScreenAfterOpeningAndRestore) {
    const Solved circle = solve("x^2+y^2-1", square(2, 200));
    ASSERT_GT(circle.curve.count(), 100);
    for (const auto& [width, height, ratio] :
         {std::tuple(1200, 400, 1.0), std::tuple(500, 900, 1.0), std::tuple(1200, 400, 2.0)}) {
        SCOPED_TRACE(testing::Message() << width << "x" << height << " at " << ratio);
        GraphView view;
        setViewSize(view, width, height);
        resetEquationView(view, circle.curve, 10);
        for (int pass = 0; pass < 2; ++pass) {
            const GraphView shown = scaledView(view, ratio);
            const double room = 8.0 * ratio;
            for (const SolutionPoint& p : circle.curve.solutions) {
                const double x = shown.toPixelX(p.x), y = shown.toPixelY(p.y);
                ASSERT_TRUE(x >= shown.left + room && x <= shown.plotRight() - room &&
                            y >= shown.top + room && y <= shown.plotBottom() - room)
                    << x << "," << y;
            }
            zoomIn(view, ZoomAxis::kBoth);
            restoreZoom(view);
        }
        // True proportions: a circle stays round.
        EXPECT_NEAR(view.toPixelX(1) - view.toPixelX(0), view.toPixelY(0) - view.toPixelY(1), 1e-9);
    }
}

// An equation that holds everywhere fills the grid: the run keeps kMostSolutions and says so.
// Its dots merge into one run per row of touching pixels, a repeated pixel adding nothing.
TEST(EquationSolver, SolutionsThatFillTheGridStopAtTheBound) {
    const Solved full = solve("x-x", {-1, 1, -1, 1, 1100, 1000, 5});
    ASSERT_TRUE(full.completed);
    EXPECT_EQ(std::pair(full.curve.count(), full.curve.truncated), std::pair(kMostSolutions, true));
    EXPECT_FALSE(solve("x^2+y^2-1", square(2, 500)).curve.truncated);

    std::vector<PixelPoint> pixels{{5, 1}, {0, 0}, {2, 1}, {3, 1}, {2, 1}, {9, 1}, {1, 0}};
    const std::vector<DotRun> runs = dotRuns(pixels, 2);
    ASSERT_EQ(runs.size(), 3u);
    // (0,0) and (1,0) make 0..2; on row 1, 2, 3 and 5 touch: 2..6; 9 stands alone.
    EXPECT_EQ(std::tuple(runs[0].width, runs[1].x, runs[1].width, runs[2].x),
              std::tuple(3, 2, 5, 9));
}

}  // namespace
}  // namespace curvemill
