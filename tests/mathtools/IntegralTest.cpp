// The integral of the main curve: interval checks, quick sum and estimate, precise refinement.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <tuple>

#include "engine/NumberEntry.h"
#include "mathtools/Integral.h"
#include "mathtools/MathMessages.h"
#include "mathtools/MathTexts.h"
#include "mathtools/PreciseIntegral.h"
#include "mathtools/RefinementPool.h"
#include "tests/support/SampledGraph.h"

namespace curvemill {
namespace {

IntegralState interval(double from, double to) {
    IntegralState state;
    state.begin = from;
    state.end = to;
    return state;
}

// The quick sum's error is that of the trapezoid rule at the sampling step; the precise run
// accepts chords within 1e-7 of the curve, so its error stays below 1e-7 per unit of width.
TEST(Integral, MatchesClosedFormsQuickAndPrecise) {
    const std::tuple<const char*, double, double, double, double, double> cases[] = {
        {"x^3-2*x", -2, 3, -1, 2.5, 4.265625},
        {"sin(x)", -1, 4, 0, 3.141592653589793, 2.0},
        {"e^x", 0, 1, 0, 1, std::exp(1.0) - 1},
        {"3*x-2", -5, 5, -5, 5, -20.0},
        // No sample lies inside this interval, only around it.
        {"x^2", -10, 10, 1.00001, 1.00002,
         (1.00002 * 1.00002 * 1.00002 - 1.00001 * 1.00001 * 1.00001) / 3},
    };
    for (const auto& [formula, xBegin, xEnd, from, to, exact] : cases) {
        SCOPED_TRACE(formula);
        SampledGraph g(formula, xBegin, xEnd);
        IntegralState state = interval(from, to);
        ASSERT_TRUE(canIntegrate(g.graph.main, g.formula, state));
        // That close, the quick value's estimate must call it precise enough.
        EXPECT_TRUE(integrateQuick(g.graph.main, g.formula, state));
        const double tolerance = 1e-7 * (to - from) + 1e-12;
        EXPECT_NEAR(state.value, exact, tolerance);
        ASSERT_TRUE(integratePrecise(g.graph.main, g.formula, state, {}));
        EXPECT_NEAR(state.value, exact, tolerance);
    }
    // e^x over [0, 20] bends too much for the samples' step.
    SampledGraph steep("e^x", 0, 20);
    IntegralState state = interval(0, 20);
    ASSERT_TRUE(canIntegrate(steep.graph.main, steep.formula, state));
    EXPECT_FALSE(integrateQuick(steep.graph.main, steep.formula, state));
}

TEST(Integral, IntervalStartingOnASampleHasAnEmptyFirstStrip) {
    SampledGraph g("x^2", 0, 10);
    const int k = 1234;
    const PlotPoint* p = g.graph.main.points.data();
    IntegralState state = interval(p[k].x, 10);
    ASSERT_TRUE(canIntegrate(g.graph.main, g.formula, state));
    EXPECT_EQ(state.firstIndex, k);
    EXPECT_EQ(state.lastIndex, g.graph.main.pointCount - 1);
    integrateQuick(g.graph.main, g.formula, state);
    // The trapezoid error of x^2 at the step 0.001 is 0.001^2 / 6 per unit of width.
    EXPECT_NEAR(state.value, (1000 - p[k].x * p[k].x * p[k].x) / 3, 2e-6);
}

// Sqr(x) has no value up to 0, Sqr(x^2-0.25) none inside (-0.5, 0.5).
TEST(Integral, IndefiniteSamplesInsideOrBesideTheIntervalRefuseIt) {
    SampledGraph root("Sqr(x)", -1, 1);
    const PlotPoint* p = root.graph.main.points.data();
    int firstDefined = 0;
    while (p[firstDefined].isIndefinite) {
        ++firstDefined;
    }
    // Copied out: a packed record's field cannot be bound to a reference.
    const double edge = p[firstDefined].x;
    const double afterEdge = p[firstDefined + 1].x;
    SampledGraph hole("Sqr(x^2-0.25)", -1, 1);
    const std::tuple<SampledGraph*, double, double, bool> cases[] = {
        {&root, edge, 1, false},  // the sample before it has no value
        {&root, (edge + afterEdge) / 2, 1, true},
        {&hole, -1, 1, false},
        {&hole, 0.6, 1, true},
        {&hole, -1, -0.6, true},
    };
    for (const auto& [g, from, to, accepted] : cases) {
        SCOPED_TRACE(from);
        IntegralState state = interval(from, to);
        EXPECT_EQ(canIntegrate(g->graph.main, g->formula, state), accepted);
    }
}

TEST(Integral, DialogChecksGiveTheirMessagesInOrder) {
    SampledGraph g("Sqr(x^2-0.25)", -1, 1);
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"2*x", "1", "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT"},
        {"-1.5", "x", math_messages::kXBeginOutside},
        {"-1", "x", "ERROR IN X_END EDIT BOX:\nNUMBER IS NOT A CONSTANT"},
        {"-1", "1.5", math_messages::kXEndOutside},
        {"0.7", "0.7", math_messages::kXEndNotGreater},
        {"0.9", "0.7", math_messages::kXEndNotGreater},
        {"-1", "1", math_messages::kCannotIntegrate},
        {"0.6", "1", ""},
    };
    for (const auto& [fromText, toText, message] : cases) {
        SCOPED_TRACE(message);
        NumberBox from(math_messages::kBoxXBegin);
        NumberBox to(math_messages::kBoxXEnd);
        from.setText(fromText);
        to.setText(toText);
        IntegralState state;
        EXPECT_EQ(acceptIntegralInterval(g.formula, g.graph, from, to, state).value_or(""),
                  message);
    }
    // The texts letter for letter; everywhere else they are named by their constants.
    EXPECT_EQ(std::string(math_messages::kCannotIntegrate),
              "INTEGRAL CANNOT BE CALCULATED, \nSINCE THIS INTERVAL CONTAINS\nINDEFINITE AND/OR "
              "INFINITE NUMBERS");
    EXPECT_EQ(preciseQuestionText(265.335615072411258),
              "Integral Is   265.335615072411. \n  Do You Want To Calculate It More Precisely?");
}

// The dialog's test sees the area and the zero after a stop; here, that the stop comes at once.
TEST(Integral, StopEndsThePreciseRunAtOnceWithZero) {
    SampledGraph g("sin(x)/x*80", 0.5, 10, 100000);
    IntegralState state = interval(0.5, 10);
    ASSERT_TRUE(canIntegrate(g.graph.main, g.formula, state));
    std::atomic<bool> stop{false};
    int last = -1;
    SamplingControl control;
    control.stopRequested = &stop;
    control.progress = [&](int percent) {
        last = percent;
        stop = percent >= 40;
    };
    EXPECT_FALSE(integratePrecise(g.graph.main, g.formula, state, control));
    EXPECT_EQ(state.value, 0.0);
    EXPECT_EQ(state.resultText, "");
    EXPECT_EQ(last, 40);
}

TEST(RefinementPool, SpareFirstThenFirstFreeThenNone) {
    RefinementPool pool;
    pool.reset();
    for (int i = 0; i < RefinementPool::kSize; ++i) {
        ASSERT_EQ(pool.take(), i);
    }
    EXPECT_EQ(pool.take(), -1);
    pool.release(7);
    pool.release(3);
    EXPECT_EQ(pool.take(), 3);  // the spare
    EXPECT_EQ(pool.take(), 7);  // then the first free
    EXPECT_EQ(pool.take(), -1);
}

// Infinite samples, or a sum beyond the largest double, refuse the integral; a function that
// never settles to the chord tolerance still ends, with the best value and the bound told.
TEST(Integral, InfiniteNumbersAreRefusedAndAnUnsettledRefinementEnds) {
    SampledGraph infinite("10^400", -5, 5);
    IntegralState state = interval(-5, 5);
    EXPECT_FALSE(canIntegrate(infinite.graph.main, infinite.formula, state));
    state.value = HUGE_VAL;
    EXPECT_EQ(integralValueRefusal(state).value_or(""), math_messages::kCannotIntegrate);

    SampledGraph steep("e^(x*100)", -5, 5);
    state = interval(-5, 5);
    ASSERT_TRUE(canIntegrate(steep.graph.main, steep.formula, state));
    ASSERT_TRUE(integratePrecise(steep.graph.main, steep.formula, state, {}));
    EXPECT_TRUE(state.refinementCut);
    EXPECT_NEAR(state.value / (std::exp(500.0) / 100), 1.0, 0.01);
    EXPECT_FALSE(integralValueRefusal(state));
}

}  // namespace
}  // namespace curvemill
