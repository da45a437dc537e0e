#include <atomic>
#include <string>

#include <gtest/gtest.h>

#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/TwoDRun.h"

namespace curvemill {
namespace {

// A stopped run leaves the graph as it was (range, curves, the slot the tools evaluate), except
// that a new main function stands whole once its own curve is done. Both curves always cover the
// graph's range.
TEST(TwoDRun, AStoppedRunPutsTheGraphBack) {
    enum class Stop { kNever, kAtOnce, kInTheOtherCurve };
    // Who runs "x^3" over [0, 2] on a graph of y = x and y = x^2 over [-10, 10]; when it is
    // stopped; then the run's outcome, the main text, whether a second function is left, X Begin.
    const struct {
        TwoDGraphRole role;
        Stop stop;
        bool completed;
        const char* mainText;
        bool second;
        double xBegin;
    } cases[] = {
        {TwoDGraphRole::Main, Stop::kAtOnce, false, "x", true, -10.0},
        {TwoDGraphRole::Main, Stop::kInTheOtherCurve, true, "x^3", false, 0.0},
        {TwoDGraphRole::Second, Stop::kAtOnce, false, "x", false, -10.0},
        {TwoDGraphRole::Second, Stop::kInTheOtherCurve, false, "x", false, -10.0},
        {TwoDGraphRole::Second, Stop::kNever, true, "x", true, 0.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(c.role) << static_cast<int>(c.stop));
        Formula formula;
        TwoDGraph graph;
        NumberBox begin(kXBeginBoxName), end(kXEndBoxName);
        const auto check = [&](TwoDRun& run, const char* from, const char* to, const char* typed) {
            begin.setText(from);
            end.setText(to);
            return !run.check(begin, end, typed).refusal;
        };
        TwoDRun main(TwoDGraphRole::Main, formula, graph);
        TwoDRun second(TwoDGraphRole::Second, formula, graph);
        ASSERT_TRUE(check(main, "-10", "10", "x"));
        main.runHere(-10.0, 10.0, 10000, "x");
        ASSERT_TRUE(check(second, "-10", "10", "x^2"));
        second.runHere(-10.0, 10.0, 10000, "x^2");
        // A refused entry touches nothing.
        ASSERT_FALSE(check(second, "0", "2", " x"));

        TwoDRun run(c.role, formula, graph);
        ASSERT_TRUE(check(run, "0", "2", "x^3"));
        std::atomic<bool> stop = c.stop == Stop::kAtOnce;
        SamplingControl control;
        control.stopRequested = &stop;
        control.progress = [&](int) {
            if (c.stop == Stop::kInTheOtherCurve &&
                graph.computingSecond != (c.role == TwoDGraphRole::Second)) {
                stop = true;
            }
        };
        run.start(0.0, 2.0, 10000, "x^3");
        const bool completed = run.sample(control);
        run.finish(completed);

        EXPECT_EQ(completed, c.completed);
        EXPECT_EQ(graph.mainFormulaText, c.mainText);
        EXPECT_EQ(graph.hasSecond(), c.second);
        EXPECT_EQ(graph.secondFormulaText, c.second ? (c.completed ? "x^3" : "x^2") : "");
        EXPECT_EQ(graph.xBegin, c.xBegin);
        EXPECT_EQ(double{graph.main.points[0].x}, c.xBegin);
        EXPECT_EQ(formula.evaluate(3.0, kFunctionSlot), c.mainText == std::string("x") ? 3 : 27);
        EXPECT_FALSE(graph.computingSecond || formula.useSecondFunction);
    }
}

}  // namespace
}  // namespace curvemill
