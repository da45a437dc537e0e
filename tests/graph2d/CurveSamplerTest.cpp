#include <atomic>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "graph2d/CurveSampler.h"
#include "graph2d/DerivativeCurve.h"
#include "graph2d/DrawStep.h"

namespace curvemill {
namespace {

struct Sampled {
    TwoDGraph graph;
    Formula formula;
    std::vector<int> percents;
    bool completed = false;
};

// Prepares `text` as the main function and samples it with N = `n` over [a, b].
void sample(Sampled& s, const std::string& text, double a, double b, int n = 10000) {
    ASSERT_TRUE(prepareFormula(s.formula, text, 'f')) << s.formula.errorText;
    s.graph.xBegin = a;
    s.graph.xEnd = b;
    s.graph.pointsPerRun = n;
    SamplingControl control;
    control.progress = [&s](int p) { s.percents.push_back(p); };
    s.completed = sampleCurve(s.graph, s.formula, control);
}

const PlotPoint* pointsOf(const Curve& c) {
    return c.points.data();
}

TEST(CurveSampler, MonotonicCurvesGetRegularSamplesPlusFinalRecord) {
    for (const char* text : {"x", "x^3", "e^x", "-2*x+1"}) {
        SCOPED_TRACE(text);
        Sampled s;
        sample(s, text, -1.0, 2.0);
        ASSERT_TRUE(s.completed);
        const Curve& c = s.graph.main;
        // The loop steps x by dx = 3/10000 while x <= 2; rounding may add one pass.
        ASSERT_GE(c.pointCount, 10001 + 1);
        ASSERT_LE(c.pointCount, 10002 + 1);
        const PlotPoint* p = pointsOf(c);
        const double dx = 3.0 / 10000;
        for (int i = 0; i + 1 < c.pointCount; ++i) {
            ASSERT_NEAR(p[i].x, -1.0 + i * dx, 1e-9) << i;
            ASSERT_EQ(p[i].peakKind, 0) << i;
            ASSERT_EQ(p[i].isBreak, 0) << i;
            ASSERT_EQ(p[i].isVertex, i % 10 == 0 ? 1 : 0) << i;
        }
        EXPECT_EQ(p[c.pointCount - 1].x, 2.0);
        EXPECT_EQ(s.graph.definedSpan.begin, -1.0);
        EXPECT_EQ(s.graph.definedSpan.end, 2.0);
    }
}

TEST(CurveSampler, ConstantHasEqualExtremesAndNoTurns) {
    Sampled s;
    sample(s, "3.5", -4.0, 4.0);
    ASSERT_TRUE(s.completed);
    EXPECT_EQ(s.graph.main.yMin, 3.5);
    EXPECT_EQ(s.graph.main.yMax, 3.5);
    for (const PlotPoint& p : s.graph.main) {
        ASSERT_EQ(p.peakKind, 0);
    }
}

TEST(CurveSampler, ProgressReportsEachWholePercentOnce) {
    Sampled s;
    sample(s, "x^2", -3.0, 5.0);
    ASSERT_FALSE(s.percents.empty());
    EXPECT_EQ(s.percents.front(), 0);
    // The final record at X_END is not a regular sample; the last one lies within one step of it.
    EXPECT_GE(s.percents.back(), 99);
    for (std::size_t i = 1; i < s.percents.size(); ++i) {
        ASSERT_GT(s.percents[i], s.percents[i - 1]);
    }
}

TEST(CurveSampler, TurningPointsAreRefinedFromBothSidesAndMarked) {
    Sampled s;
    sample(s, "sin(x)", -10.0, 10.0, 10000);
    ASSERT_TRUE(s.completed);
    // Turning points of sin in [-10, 10]: (k + 1/2) * pi for k = -3 .. 2.
    std::vector<double> maxima;
    std::vector<double> minima;
    const Curve& c = s.graph.main;
    for (int i = 0; i < c.pointCount; ++i) {
        const PlotPoint& p = c.points[i];
        if (p.peakKind == kRefinedMaximum) {
            maxima.push_back(p.x);
        } else if (p.peakKind == kRefinedMinimum) {
            minima.push_back(p.x);
        }
    }
    ASSERT_EQ(maxima.size(), 2u * 3);
    ASSERT_EQ(minima.size(), 2u * 3);
    for (const auto* list : {&maxima, &minima}) {
        for (std::size_t k = 0; k < list->size(); k += 2) {
            const double x1 = (*list)[k];
            const double x2 = (*list)[k + 1];
            const double turn = std::round(x1 / kPi - 0.5) * kPi + kPi / 2;
            // sin is flat to 1e-16 within 1e-8 of its top, which bounds what any bracket can see.
            EXPECT_LE(x1, x2);
            EXPECT_NEAR(x1, turn, 2e-8);
            EXPECT_NEAR(x2, turn, 2e-8);
        }
    }
    EXPECT_DOUBLE_EQ(c.yMax, 1.0);
    EXPECT_DOUBLE_EQ(c.yMin, -1.0);
    for (int i = 1; i < c.pointCount; ++i) {
        ASSERT_GE(c.points[i].x, c.points[i - 1].x) << i;
    }
}

TEST(CurveSampler, TanPolesAreBreaksOnBothSides) {
    Sampled s;
    sample(s, "tan(x)", -5.0, 5.0);
    ASSERT_TRUE(s.completed);
    const Curve& c = s.graph.main;
    // Poles at -3pi/2, -pi/2, pi/2, 3pi/2.
    std::vector<int> breaks;
    for (int i = 0; i < c.pointCount; ++i) {
        if (c.points[i].isBreak) {
            breaks.push_back(i);
        }
    }
    ASSERT_EQ(breaks.size(), 8u);
    for (std::size_t k = 0; k < breaks.size(); k += 2) {
        const PlotPoint& left = c.points[breaks[k]];
        const PlotPoint& right = c.points[breaks[k + 1]];
        ASSERT_EQ(breaks[k + 1], breaks[k] + 1);
        const double pole = (std::round(left.x / kPi - 0.5) + 0.5) * kPi;
        // The two sides close in on the pole up to the resolution of x.
        EXPECT_LT(left.x, right.x);
        EXPECT_NEAR(left.x, pole, 1e-12);
        EXPECT_NEAR(right.x, pole, 1e-12);
        EXPECT_GT(left.y, 5000.0);
        EXPECT_LT(right.y, -5000.0);
    }
    EXPECT_EQ(s.graph.definedSpan.begin, -5.0);
    EXPECT_EQ(s.graph.definedSpan.end, c.points[breaks[0] - 1].x);
}

TEST(CurveSampler, IndefiniteStretchesGetEdgesAndSpans) {
    {
        SCOPED_TRACE("wholly indefinite");
        Sampled s;
        sample(s, "Sqr(x)", -5.0, -1.0);
        ASSERT_TRUE(s.completed);
        for (const PlotPoint& p : s.graph.main) {
            ASSERT_EQ(p.isIndefinite, 1);
        }
        EXPECT_EQ(s.graph.definedSpan.begin, -1.0);
        EXPECT_EQ(s.graph.definedSpan.end, -1.0);
    }
    {
        SCOPED_TRACE("defined from 0 on");
        Sampled s;
        sample(s, "Sqr(x)", -1.0, 1.0);
        ASSERT_TRUE(s.completed);
        const Curve& c = s.graph.main;
        int firstDefined = 0;
        while (c.points[firstDefined].isIndefinite) {
            ++firstDefined;
        }
        // The edge found between the last indefinite and the first regular sample lies at 0.
        EXPECT_GE(c.points[firstDefined].x, 0.0);
        EXPECT_LT(c.points[firstDefined].x, 1e-12);
        EXPECT_LT(c.points[firstDefined].x, c.points[firstDefined + 1].x - 1e-12);
        EXPECT_EQ(s.graph.definedSpan.begin, c.points[firstDefined].x);
        EXPECT_EQ(s.graph.definedSpan.end, 1.0);
    }
    {
        SCOPED_TRACE("defined up to 0");
        Sampled s;
        sample(s, "Sqr(-x)", -1.0, 1.0);
        ASSERT_TRUE(s.completed);
        const Curve& c = s.graph.main;
        int firstIndefinite = 0;
        while (!c.points[firstIndefinite].isIndefinite) {
            ++firstIndefinite;
        }
        const double edge = c.points[firstIndefinite - 1].x;
        EXPECT_LE(edge, 0.0);
        EXPECT_GT(edge, -1e-12);
        EXPECT_EQ(s.graph.definedSpan.begin, -1.0);
        EXPECT_EQ(s.graph.definedSpan.end, edge);
    }
}

TEST(CurveSampler, NarrowRangeIsSampledEvenly) {
    Sampled s;
    const double a = 1e6;
    const double b = std::nextafter(std::nextafter(a, 2e6), 2e6);
    sample(s, "x*2", a, b);
    ASSERT_TRUE(s.completed);
    const Curve& c = s.graph.main;
    ASSERT_EQ(c.pointCount, 3);
    EXPECT_EQ(c.points[0].x, a);
    EXPECT_EQ(c.points[2].x, b);
    EXPECT_EQ(c.yMin, 2 * a);
    EXPECT_EQ(c.yMax, 2 * b);
}

TEST(CurveSampler, RangesTheDialogWouldRefuseStillEnd) {
    const struct {
        double a;
        double b;
    } cases[] = {{-INFINITY, INFINITY}, {0.0, INFINITY}, {1.0, -1.0}, {2.0, 2.0}, {NAN, 1.0},
                 {-1e308, 1e308}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.a << " .. " << c.b);
        Sampled s;
        sample(s, "tan(x)", c.a, c.b);
        EXPECT_TRUE(s.completed);
        EXPECT_GE(s.graph.main.pointCount, 1);
        EXPECT_LE(static_cast<std::size_t>(s.graph.main.pointCount), s.graph.main.points.size());
    }
}

TEST(CurveSampler, StopRemovesTheSecondFunctionButLeavesTheMainCurve) {
    Sampled s;
    sample(s, "x^2", -2.0, 2.0);
    ASSERT_TRUE(s.completed);
    const Curve before = s.graph.main;

    std::atomic<bool> stop{false};
    SamplingControl control;
    control.stopRequested = &stop;
    control.progress = [&stop](int p) {
        if (p >= 50) {
            stop = true;
        }
    };
    ASSERT_TRUE(prepareFormula(s.formula, "x^3", 'F'));
    s.graph.computingSecond = true;
    s.graph.second.points.resize(10);  // the dialog allocates before the run
    EXPECT_FALSE(sampleCurve(s.graph, s.formula, control));
    EXPECT_FALSE(s.graph.hasSecond());
    EXPECT_TRUE(s.graph.second.points.empty());

    stop = false;
    ASSERT_TRUE(prepareFormula(s.formula, "x^4", 'f'));
    s.graph.computingSecond = false;
    EXPECT_FALSE(sampleCurve(s.graph, s.formula, control));
    ASSERT_EQ(s.graph.main.pointCount, before.pointCount);
    for (int i = 0; i < before.pointCount; ++i) {
        ASSERT_EQ(s.graph.main.points[i].y, before.points[i].y);
    }
}

TEST(CurveSampler, DerivativeAndDrawingStep) {
    Sampled s;
    sample(s, "x^2", -2.0, 2.0);
    ASSERT_TRUE(buildDerivativeCurve(s.graph, s.formula, {}));
    const Curve& d = s.graph.derivative;
    ASSERT_EQ(d.pointCount, s.graph.main.pointCount - 1);
    for (int i = 0; i < d.pointCount; i += 997) {
        EXPECT_NEAR(d.points[i].y, 2 * d.points[i].x, 1e-4);
    }
    EXPECT_NEAR(d.yMin, -4.0, 1e-3);
    EXPECT_NEAR(d.yMax, 4.0, 1e-3);

    Curve& main = s.graph.main;
    applyOptimizeDrawing(main, false);
    for (const PlotPoint& p : main) {
        ASSERT_EQ(p.isVertex, 1);
    }
    applyOptimizeDrawing(main, true);
    int vertices = 0;
    int lowest = 0;
    for (int i = 0; i < main.pointCount; ++i) {
        vertices += main.points[i].isVertex;
        if (i % 10 == 0) {
            ASSERT_EQ(main.points[i].isVertex, 1) << i;
        }
        if (main.points[i].y < main.points[lowest].y) {
            lowest = i;
        }
    }
    EXPECT_EQ(main.points[lowest].isVertex, 1);
    EXPECT_EQ(main.points[main.pointCount - 1].isVertex, 1);
    EXPECT_LE(vertices, main.pointCount / 10 + 6);
}

}  // namespace
}  // namespace curvemill
