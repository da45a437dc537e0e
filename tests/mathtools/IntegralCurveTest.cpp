// The integral curve: the running integral of the sampled main curve and where it starts again.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <functional>
#include <tuple>
#include <vector>

#include "mathtools/IntegralCurve.h"
#include "tests/support/CurveBuilders.h"
#include "tests/support/SampledGraph.h"

namespace curvemill {
namespace {

// The largest difference between the curve and `exact` over its defined records.
double worstError(const Curve& curve, const std::function<double(double)>& exact) {
    double worst = 0.0;
    for (const PlotPoint& r : curve) {
        if (!r.isIndefinite) {
            worst = std::max(worst, std::fabs(r.y - exact(r.x)));
        }
    }
    return worst;
}

TEST(IntegralCurve, FollowsClosedFormsFromTheStartOfTheRange) {
    // Formula, range, primitive, and the lowest and highest of the integral over the range.
    const std::tuple<const char*, double, double, std::function<double(double)>, double, double>
        cases[] = {
            {"x^2", -3, 3, [](double x) { return x * x * x / 3; }, 0, 18},
            {"cos(x)", 0, 6.283185307179586, [](double x) { return std::sin(x); }, -1, 1},
            {"e^x", -1, 2, [](double x) { return std::exp(x); }, 0, std::exp(2.0) - std::exp(-1.0)},
        };
    for (const auto& [formula, xBegin, xEnd, primitive, lowest, highest] : cases) {
        SCOPED_TRACE(formula);
        SampledGraph g(formula, xBegin, xEnd, 100000);
        ASSERT_TRUE(buildIntegralCurve(g.graph, g.formula, {}));
        const Curve& integral = g.graph.integral;
        ASSERT_EQ(integral.pointCount, g.graph.main.pointCount);
        EXPECT_EQ(double{integral.points[0].y}, 0.0);
        const double start = primitive(xBegin);
        const auto exact = [&](double x) { return primitive(x) - start; };
        EXPECT_LT(worstError(integral, exact), 1e-6);
        // The extent that widens the view is that of the integral, not of the function.
        EXPECT_NEAR(integral.yMin, lowest, 1e-6);
        EXPECT_NEAR(integral.yMax, highest, 1e-6);
    }
}

TEST(IntegralCurve, StartsAgainAfterAStretchWithNoValue) {
    // Sqr(x^2-1) has no value on (-1, 1); its primitive is (x s - ln(x + s)) / 2, s = Sqr(x^2-1).
    const auto g = [](double x) {
        const double s = std::sqrt(x * x - 1);
        return (x * s - std::log(x + s)) / 2;
    };
    SampledGraph sampled("Sqr(x^2-1)", -3, 3, 100000);
    ASSERT_TRUE(buildIntegralCurve(sampled.graph, sampled.formula, {}));
    const Curve& main = sampled.graph.main;
    const Curve& integral = sampled.graph.integral;
    int firstRight = -1;
    for (int i = 0; i < main.pointCount; ++i) {
        EXPECT_EQ(integral.points[i].isIndefinite, main.points[i].isIndefinite) << i;
        if (firstRight < 0 && main.points[i].x > 0 && !main.points[i].isIndefinite) {
            firstRight = i;
        }
    }
    ASSERT_GT(firstRight, 0);
    EXPECT_EQ(double{integral.points[firstRight].y}, 0.0);
    const double x0 = main.points[firstRight].x;
    // The slope is unbounded at the stretch's edges, so the trapezoids lose a little there.
    const auto exact = [&](double x) { return x < 0 ? g(3) - g(-x) : g(x) - g(x0); };
    EXPECT_LT(worstError(integral, exact), 1e-5);
}

// Hand-made records: y = 1 at x = 0, 1, 2, ...; flags '.' plain, 'b' break, 'n' no value.
TEST(IntegralCurve, RestartRule) {
    const double n = NAN;  // no value
    const std::tuple<const char*, std::vector<double>> cases[] = {
        {"......", {0, 1, 2, 3, 4, 5}}, {"..bb..", {0, 1, 2, 0, 1, 2}},  // a jump between 2 and 3
        {"..b...", {0, 1, 2, 3, 4, 5}},  // a one-sided break is no jump
        {".bn...", {0, 1, n, 0, 1, 2}},  // a break before a gap
        {"..nn..", {0, 1, n, n, 0, 1}}, {"n.....", {n, 0, 1, 2, 3, 4}},
        {"..nbb.", {0, 1, n, 0, 0, 1}},  // a jump right after a gap
    };
    for (const auto& [flags, expected] : cases) {
        SCOPED_TRACE(flags);
        TwoDGraph graph;
        graph.xBegin = 0;
        graph.xEnd = 5;
        std::vector<PlotPoint> records;
        for (int i = 0; flags[i] != '\0'; ++i) {
            const bool gap = flags[i] == 'n';  // its y must never be added in
            records.push_back(point(i, gap ? 1e308 : 1.0, flags[i] == 'b', gap));
        }
        setCurve(graph.main, records);
        Formula formula;
        ASSERT_TRUE(buildIntegralCurve(graph, formula, {}));
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const PlotPoint& r = graph.integral.points[i];
            EXPECT_EQ(r.isBreak, graph.main.points[i].isBreak) << i;
            EXPECT_EQ(bool(r.isIndefinite), std::isnan(expected[i])) << i;
            if (!r.isIndefinite) {
                EXPECT_EQ(double{r.y}, expected[i]) << i;
            }
        }
    }
}

TEST(IntegralCurve, StopDropsTheCurveAndNoMainCurveMeansNone) {
    SampledGraph g("x^2", -3, 3, 10000);
    g.graph.integral = g.graph.main;  // an older integral curve must not survive a stop
    std::atomic<bool> stop{true};
    SamplingControl control;
    control.stopRequested = &stop;
    EXPECT_FALSE(buildIntegralCurve(g.graph, g.formula, control));
    EXPECT_FALSE(g.graph.hasIntegral());

    g.graph.integral = g.graph.main;
    g.graph.main.release();
    EXPECT_TRUE(buildIntegralCurve(g.graph, g.formula, {}));
    EXPECT_FALSE(g.graph.hasIntegral());
}

}  // namespace
}  // namespace curvemill
