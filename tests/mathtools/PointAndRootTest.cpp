// y and y' at a point, and the root scan of the equation slot.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "mathtools/PointValue.h"
#include "mathtools/RootScan.h"

namespace curvemill {
namespace {

TEST(PointValue, ValueAndTwoStageSlope) {
    const struct {
        const char* formula;
        double x;
        bool yDefined, slopeDefined;
        double y, slope, slopeTolerance;
        const char* slopeBox;
    } cases[] = {
        // d is about 6, so the step is chosen for y to change by 9e-7.
        {"x^2", 3, true, true, 9, 6, 1e-5, "y'=6.000000"},
        // Below 0.1 the plain forward difference with step 1e-5 stands: 0.0200001, not 0.02.
        {"0.01*x^2", 1, true, true, 0.01, 0.0200001, 1e-12, "y'=0.020000"},
        {"Sqr(-x)", -0.000001, true, false, 0.001, 0, 0, "y'=INDEFINITE"},
        {"Sqr(x)", -1, false, false, 0, 0, 0, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.formula);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, c.formula, 'f'));
        const PointValue v = valueAt(formula, c.x);
        ASSERT_EQ(v.yDefined, c.yDefined);
        ASSERT_EQ(v.slopeDefined, c.slopeDefined);
        if (v.yDefined) {
            EXPECT_NEAR(v.y, c.y, 1e-12);
        } else {
            EXPECT_EQ(yBoxText(v), "y=INDEFINITE");
        }
        if (v.slopeDefined) {
            EXPECT_NEAR(v.slope, c.slope, c.slopeTolerance);
        }
        EXPECT_EQ(slopeBoxText(v), c.slopeBox);
    }
}

struct RootCase {
    const char* equation;
    RootKind kind;
    double fixed;
    int steps;
    int precision;
    std::vector<double> near;  // every solution lies near one of these, and each is met
    double within;
    std::size_t most;  // at most this many solutions
};

TEST(RootScan, FindsEveryRootOfTheRangeInTheOrderFound) {
    const RootCase cases[] = {
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
    for (const RootCase& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.equation << " fixed " << c.fixed << " steps " << c.steps);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, c.equation, 'e'));
        const RootScanSettings settings{c.kind == RootKind::kX ? c.steps : 1,
                                        c.kind == RootKind::kY ? c.steps : 1, c.precision};
        const RootScanResult r = findRoots(formula, c.kind, c.fixed, {-5, 5, -5, 5}, {}, settings);
        EXPECT_TRUE(r.completed);
        EXPECT_LE(r.solutions.size(), c.most);
        EXPECT_GE(r.solutions.size(), c.near.size());
        const auto near = [&c](const std::vector<double>& in, double v) {
            return std::any_of(in.begin(), in.end(),
                               [&](double n) { return std::fabs(v - n) < c.within; });
        };
        for (double s : r.solutions) {
            EXPECT_TRUE(near(c.near, s)) << s;
        }
        for (double n : c.near) {
            EXPECT_TRUE(near(r.solutions, n)) << n;
        }
    }
}

TEST(RootScan, StopsAtOnceAndKeepsWhatItFound) {
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x*x-y", 'e'));
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
