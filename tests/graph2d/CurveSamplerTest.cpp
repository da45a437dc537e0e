// Sampling a function: regular samples, turning points, poles, indefinite stretches and stopping.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "engine/DisplayFormat.h"
#include "graph2d/CurveSampler.h"
#include "mathtools/DerivativeCurve.h"
#include "tests/support/SampledGraph.h"

namespace curvemill {
namespace {

// PlotPoint is packed: its doubles are copied (double{...}) before gtest's macros bind references
// to them.

std::vector<int> indicesWhere(const Curve& c, const std::function<bool(const PlotPoint&)>& test) {
    std::vector<int> out;
    for (int i = 0; i < c.pointCount; ++i) {
        if (test(c.points[i])) {
            out.push_back(i);
        }
    }
    return out;
}

TEST(CurveSampler, MonotonicCurvesGetRegularSamplesPlusFinalRecord) {
    for (const auto& [text, yMin, yMax] :
         {std::tuple("x", -1.0, 2.0), std::tuple("e^x", std::exp(-1.0), std::exp(2.0)),
          std::tuple("-2*x+1", -3.0, 3.0), std::tuple("3.5", 3.5, 3.5)}) {
        SCOPED_TRACE(text);
        SampledGraph s(text, -1.0, 2.0);
        ASSERT_TRUE(s.completed);
        const Curve& m = s.graph.main;
        // The loop steps x by dx = 3/10000 while x <= 2; rounding may add one pass.
        ASSERT_TRUE(m.pointCount == 10001 + 1 || m.pointCount == 10002 + 1) << m.pointCount;
        for (int i = 0; i + 1 < m.pointCount; ++i) {
            const PlotPoint& p = m.points[i];
            ASSERT_NEAR(p.x, -1.0 + i * 3.0 / 10000, 1e-9) << i;
            ASSERT_EQ(std::tuple(p.peakKind, p.isBreak, p.isVertex),
                      std::tuple(0, 0, i % 10 == 0 ? 1 : 0))
                << i;
        }
        EXPECT_EQ(double{m.points[m.pointCount - 1].x}, 2.0);
        EXPECT_DOUBLE_EQ(m.yMin, yMin);
        EXPECT_DOUBLE_EQ(m.yMax, yMax);
        EXPECT_EQ(s.span(), std::make_pair(-1.0, 2.0));
        // Each whole percent once; the last regular sample lies within one step of X_END.
        ASSERT_TRUE(!s.percents.empty() && s.percents.front() == 0 && s.percents.back() >= 99);
        EXPECT_EQ(std::adjacent_find(s.percents.begin(), s.percents.end(), std::greater_equal<>()),
                  s.percents.end());
    }
}

// At any density every turning point is bracketed from both sides and marked, a maximum or a
// minimum, and a curve flat to rounding (many turns, none of them real) gets no mark.
TEST(CurveSampler, DenseSamplesStillMarkEveryTurningPoint) {
    const double h = kPi / 2;
    const std::tuple<const char*, double, double, int, double, std::vector<double>,
                     std::vector<double>>
        cases[] = {
            {"sin(x)", -10, 10, 10000, 1, {-3 * h, h, 5 * h}, {-5 * h, -h, 3 * h}},
            {"sin(x)", -5, 5, 100000, 1, {-3 * h, h}, {-h, 3 * h}},
            {"sin(x)", -5, 5, 400000, 1, {-3 * h, h}, {-h, 3 * h}},
            {"x^3-3*x", -3, 3, 100000, 18, {-1}, {1}},
            {"sin(x)^2+cos(x)^2", -5, 5, 100000, 1, {}, {}},
        };
    for (const auto& [text, a, b, points, yMax, maxima, minima] : cases) {
        SCOPED_TRACE(testing::Message() << text << " at " << points);
        SampledGraph s(text, a, b, points);
        ASSERT_TRUE(s.completed);
        const Curve& m = s.graph.main;
        for (const auto& [kind, expected] :
             {std::pair{kRefinedMaximum, maxima}, std::pair{kRefinedMinimum, minima}}) {
            const auto marked =
                indicesWhere(m, [kind](const PlotPoint& p) { return p.peakKind == kind; });
            ASSERT_EQ(marked.size(), 2 * expected.size()) << int{kind};
            for (std::size_t k = 0; k < expected.size(); ++k) {
                const double x1 = m.points[marked[2 * k]].x;
                const double x2 = m.points[marked[2 * k + 1]].x;
                // sin is flat to 1e-16 within 1e-8 of its top, which bounds what any bracket sees.
                EXPECT_LE(x1, x2);
                EXPECT_NEAR(x1, expected[k], 2e-8);
                EXPECT_NEAR(x2, expected[k], 2e-8);
            }
        }
        EXPECT_DOUBLE_EQ(m.yMax, yMax);
        // Refined records keep x ascending.
        for (int i = 1; i < m.pointCount; ++i) {
            ASSERT_GE(double{m.points[i].x}, double{m.points[i - 1].x}) << i;
        }
    }
}

TEST(CurveSampler, TanPolesAreBreaksOnBothSides) {
    SampledGraph s("tan(x)", -5.0, 5.0);
    ASSERT_TRUE(s.completed);
    const Curve& c = s.graph.main;
    // Poles at -3pi/2, -pi/2, pi/2, 3pi/2.
    const auto breaks = indicesWhere(c, [](const PlotPoint& p) { return p.isBreak != 0; });
    ASSERT_EQ(breaks.size(), 8u);
    for (std::size_t k = 0; k < breaks.size(); k += 2) {
        const PlotPoint& left = c.points[breaks[k]];
        const PlotPoint& right = c.points[breaks[k + 1]];
        ASSERT_EQ(breaks[k + 1], breaks[k] + 1);
        const double pole = (std::round(left.x / kPi - 0.5) + 0.5) * kPi;
        // The two sides close in on the pole up to the resolution of x.
        EXPECT_LT(double{left.x}, double{right.x});
        EXPECT_NEAR(left.x, pole, 1e-12);
        EXPECT_NEAR(right.x, pole, 1e-12);
        EXPECT_GT(double{left.y}, 5000.0);
        EXPECT_LT(double{right.y}, -5000.0);
    }
    EXPECT_EQ(s.span(), std::make_pair(-5.0, c.points[breaks[0] - 1].x));
}

// The defined x nearest to an indefinite stretch is its very edge, found by walking every sub-step,
// and the defined span ends there.
TEST(CurveSampler, EdgeSearchWalksEverySubStepToTheBoundary) {
    SampledGraph whole("Sqr(x)", -5.0, -1.0);
    ASSERT_TRUE(whole.completed);
    EXPECT_EQ(
        indicesWhere(whole.graph.main, [](const PlotPoint& p) { return p.isIndefinite; }).size(),
        static_cast<std::size_t>(whole.graph.main.pointCount));
    EXPECT_EQ(whole.span(), std::make_pair(-1.0, -1.0));
    const std::tuple<const char*, double, double, double, double, double, std::pair<double, double>>
        cases[] = {
            {"Sqr(x)", -1, 1, std::sqrt(5e-324), 1, 5e-324, {5e-324, 1}},
            {"Sqr(-x)", -1, 1, std::sqrt(5e-324), 1, -5e-324, {-1, -5e-324}},
            {"asin(x)", -2, 2, -kPi / 2, kPi / 2, 1, {-1, 1}},
            {"acos(x/2)", -3, 3, 0, kPi, 2, {-2, 2}},
            {"Sqr(sin(x))", -10, 10, std::sqrt(5e-324), 1, 5e-324, {-10, -3 * kPi}},
        };
    for (const auto& [text, a, b, yMin, yMax, edge, span] : cases) {
        SCOPED_TRACE(text);
        SampledGraph s(text, a, b);
        const Curve& m = s.graph.main;
        EXPECT_EQ(std::pair(m.yMin, m.yMax), std::pair(yMin, yMax));
        double nearest = INFINITY;
        for (const PlotPoint& p : m) {
            if (!p.isIndefinite && std::fabs(p.x - edge) < std::fabs(nearest - edge)) {
                nearest = p.x;
            }
        }
        EXPECT_EQ(nearest, edge);
        EXPECT_NEAR(s.span().first, span.first, 1e-12);
        EXPECT_NEAR(s.span().second, span.second, 1e-12);
    }
}

TEST(CurveSampler, OnlyAPairFarAboveTheAxisIsABreak) {
    SampledGraph s("-10^200*(x^2+1)", -1.0, 1.0);
    const Curve& c = s.graph.main;
    EXPECT_TRUE(indicesWhere(c, [](const PlotPoint& p) { return p.isBreak != 0; }).empty());
    const auto peak = indicesWhere(c, [](const PlotPoint& p) { return p.peakKind != 0; });
    ASSERT_EQ(peak.size(), 2u);
    EXPECT_EQ(c.points[peak[0]].peakKind, kRefinedMaximum);
}

TEST(CurveSampler, NarrowRangeIsSampledEvenlyAndRefusedRangesStillEnd) {
    const double a = 1e6;
    const double b = std::nextafter(std::nextafter(a, 2e6), 2e6);
    SampledGraph s("x*2", a, b);
    ASSERT_TRUE(s.completed);
    const Curve& c = s.graph.main;
    ASSERT_EQ(c.pointCount, 3);
    EXPECT_EQ(std::pair(double{c.points[0].x}, double{c.points[2].x}), std::pair(a, b));
    EXPECT_EQ(std::pair(c.yMin, c.yMax), std::pair(2 * a, 2 * b));

    // Ranges the dialog would refuse.
    const std::pair<double, double> ranges[] = {
        {-INFINITY, INFINITY}, {0.0, INFINITY}, {1.0, -1.0}, {2.0, 2.0}, {NAN, 1.0},
        {-1e308, 1e308}};
    for (const auto& [a, b] : ranges) {
        SCOPED_TRACE(testing::Message() << a << " .. " << b);
        SampledGraph s("tan(x)", a, b);
        EXPECT_TRUE(s.completed);
        EXPECT_GE(s.graph.main.pointCount, 1);
        EXPECT_LE(static_cast<std::size_t>(s.graph.main.pointCount), s.graph.main.points.size());
    }
}

TEST(CurveSampler, StopRemovesTheSecondFunctionButLeavesTheMainCurve) {
    SampledGraph s("x^2", -2.0, 2.0);
    ASSERT_TRUE(s.completed);
    const Curve before = s.graph.main;

    std::atomic<bool> stop{false};
    SamplingControl control;
    control.stopRequested = &stop;
    control.progress = [&stop](int p) { stop = stop || p >= 50; };
    ASSERT_TRUE(prepareFormula(s.formula, "x^3", FormulaMode::SecondFunction));
    s.graph.computingSecond = true;
    s.graph.second.points.resize(10);  // the dialog allocates before the run
    EXPECT_FALSE(sampleCurve(s.graph, s.formula, control));
    EXPECT_FALSE(s.graph.hasSecond());
    EXPECT_TRUE(s.graph.second.points.empty());

    stop = false;
    ASSERT_TRUE(prepareFormula(s.formula, "x^4", FormulaMode::Function));
    s.graph.computingSecond = false;
    EXPECT_FALSE(sampleCurve(s.graph, s.formula, control));
    ASSERT_EQ(s.graph.main.pointCount, before.pointCount);
    for (int i = 0; i < before.pointCount; ++i) {
        ASSERT_EQ(double{s.graph.main.points[i].y}, double{before.points[i].y});
    }
}

TEST(CurveSampler, DerivativeHasOneRecordFewer) {
    SampledGraph s("x^2", -2.0, 2.0);
    ASSERT_TRUE(buildDerivativeCurve(s.graph, s.formula, {}));
    const Curve& d = s.graph.derivative;
    ASSERT_EQ(d.pointCount, s.graph.main.pointCount - 1);
    for (int i = 0; i < d.pointCount; i += 997) {
        EXPECT_NEAR(d.points[i].y, 2 * d.points[i].x, 1e-4);
    }
    EXPECT_TRUE(std::fabs(d.yMin + 4) < 1e-3 && std::fabs(d.yMax - 4) < 1e-3)
        << d.yMin << " " << d.yMax;
}

}  // namespace
}  // namespace curvemill
