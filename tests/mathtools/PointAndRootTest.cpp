// y and y' at a point, and the root scan of the equation slot.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <tuple>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "mathtools/PointValue.h"
#include "mathtools/RootScan.h"

namespace curvemill {
namespace {

TEST(PointValue, ValueAndTwoStageSlope) {
    const std::tuple<const char*, double, bool, bool, double, double, double, const char*> cases[] =
        {
            // d is about 6, so the step is chosen for y to change by 9e-7.
            {"x^2", 3, true, true, 9, 6, 1e-5, "y'=6.000000"},
            // Below 0.1 the plain forward difference with step 1e-5 stands: 0.0200001, not 0.02.
            {"0.01*x^2", 1, true, true, 0.01, 0.0200001, 1e-12, "y'=0.020000"},
            {"Sqr(-x)", -0.000001, true, false, 0.001, 0, 0, "y'=INDEFINITE"},
            {"Sqr(x)", -1, false, false, 0, 0, 0, ""},
        };
    for (const auto& [text, x, yDefined, slopeDefined, y, slope, slopeTolerance, slopeBox] :
         cases) {
        SCOPED_TRACE(text);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, text, FormulaMode::Function));
        const PointValue v = valueAt(formula, x);
        ASSERT_EQ(v.yDefined, yDefined);
        ASSERT_EQ(v.slopeDefined, slopeDefined);
        if (v.yDefined) {
            EXPECT_NEAR(v.y, y, 1e-12);
        } else {
            EXPECT_EQ(yBoxText(v), "y=INDEFINITE");
        }
        if (v.slopeDefined) {
            EXPECT_NEAR(v.slope, slope, slopeTolerance);
        }
        EXPECT_EQ(slopeBoxText(v), slopeBox);
    }
}

TEST(RootScan, FindsEveryRootOfTheRangeInTheOrderFound) {
    // Every solution lies within `within` of one of `nearTo`, each of which is met; at most `most`.
    const std::tuple<const char*, RootKind, double, int, int, std::vector<double>, double,
                     std::size_t>
        cases[] = {
            {"x*x-y", RootKind::kX, 4, 500, 5, {-2, 2}, 3e-6, 4},
            {"x*x-y", RootKind::kY, 1.5, 500, 5, {2.25}, 1e-5, 2},
            {"x*x+y", RootKind::kX, 1, 500, 5, {}, 0, 0},
            // The roots +-0.1 fall between two grid points of a coarse scan with no sign change.
            {"x*x-y", RootKind::kX, 0.01, 5, 5, {}, 0, 0},
            {"x*x-y", RootKind::kX, 0.01, 500, 5, {-0.1, 0.1}, 1e-4, 4},
            // Caught at the grid point 0 by the tolerance, then again by the bisection after it.
            {"x-0.000001+y", RootKind::kX, 0, 2, 5, {0.000001, 0.000001}, 2e-5, 2},
            {"x-0.3+y", RootKind::kX, 0, 500, 12, {0.3}, 1e-12, 2},
        };
    for (const auto& [equation, kind, fixed, steps, precision, nearTo, within, most] : cases) {
        SCOPED_TRACE(testing::Message() << equation << " fixed " << fixed << " steps " << steps);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, equation, FormulaMode::TwoVariables));
        const RootScanSettings settings{kind == RootKind::kX ? steps : 1,
                                        kind == RootKind::kY ? steps : 1, precision};
        const RootScanResult r = findRoots(formula, kind, fixed, {-5, 5, -5, 5}, {}, settings);
        EXPECT_TRUE(r.completed);
        EXPECT_LE(r.solutions.size(), most);
        EXPECT_GE(r.solutions.size(), nearTo.size());
        const auto near = [&](const std::vector<double>& in, double v) {
            return std::any_of(in.begin(), in.end(),
                               [&](double n) { return std::fabs(v - n) < within; });
        };
        for (double s : r.solutions) {
            EXPECT_TRUE(near(nearTo, s)) << s;
        }
        for (double n : nearTo) {
            EXPECT_TRUE(near(r.solutions, n)) << n;
        }
    }
}

TEST(RootScan, StopsAtOnceAndKeepsWhatItFound) {
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x*x-y", FormulaMode::TwoVariables));
    std::atomic<bool> stop{false};
    SamplingControl control;
    control.stopRequested = &stop;
    control.progress = [&](int percent) { stop = percent >= 60; };
    const RootScanResult r = findRoots(formula, RootKind::kX, 4, {-5, 5, -5, 5}, control);
    EXPECT_FALSE(r.completed);
    ASSERT_FALSE(r.solutions.empty());
    EXPECT_LT(r.solutions.back(), 0);
}

TEST(RootScan, RefusalsAndTexts) {
    const RootRange range{-5, 5, -2, 3};
    EXPECT_EQ(rootValueRefusal(RootKind::kX, 3.5, range).value_or(""),
              "Y IS OUTSIDE THE CURRENTLY SELECTED RANGE:\n-2 TO 3");
    EXPECT_FALSE(rootValueRefusal(RootKind::kX, 3, range));
    EXPECT_EQ(rootValueRefusal(RootKind::kY, -5.5, range).value_or(""),
              "X IS OUTSIDE THE RANGE OF FUNCTION");
    EXPECT_EQ(
        solutionTexts({2, -0.5, 3.141592653589793 / 4}, false),
        (std::vector<std::string>{"2.000000000000000", "-0.500000000000000", "0.785398163397448"}));
    EXPECT_EQ(solutionTexts({3.141592653589793 / 4, -6.283185307179586}, true),
              (std::vector<std::string>{"pi*0.25", "pi*-2"}));
}

}  // namespace
}  // namespace curvemill
