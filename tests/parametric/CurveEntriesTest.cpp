// The curve window's checks: each box's refusal names the box, in the window's order.
#include <numbers>

#include <gtest/gtest.h>

#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "parametric/CurveEntries.h"
#include "parametric/CurveTools.h"

namespace curvemill {
namespace {

struct Row {
    CurveForm form;
    const char* begin;
    const char* end;
    const char* first;
    const char* second;
    const char* message;  // null: accepted
    CurveEntryBox box;
};

TEST(CurveEntries, EachBoxIsCheckedInTurnAndNamedInItsRefusal) {
    using enum CurveEntryBox;
    constexpr auto P = CurveForm::Parametric;
    constexpr auto R = CurveForm::Polar;
    const Row rows[] = {
        {P, "a", "1", "t", "t", "ERROR IN T_BEG EDIT BOX:\nINVALID ENTRY", kTBegin},
        {P, "0", "", "t", "t", "ERROR IN T_END EDIT BOX:\nBOX IS EMPTY", kTEnd},
        {P, "2", "1", "t", "t", "T_BEG MUST BE LESS THAN T_END", kTBegin},
        {P, "0", "1", "x", "t", "ERROR IN X(T) EDIT BOX:\nINVALID ENTRY", kFirstFormula},
        {P, "0", "1", "t", "", "ERROR IN Y(T) EDIT BOX:\nBOX IS EMPTY", kSecondFormula},
        {R, "0", "1", "sin(t", "", "ERROR IN R(T) EDIT BOX:\nBRACKETS DO NOT MATCH", kFirstFormula},
        {R, "0", "2*pi", "1+cos(t)", "", nullptr, kTBegin},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.first);
        Formula formula;
        NumberBox begin(kTBeginBoxName), end(kTEndBoxName);
        begin.setText(row.begin);
        end.setText(row.end);
        const CurveEntries entries =
            checkCurveEntries(formula, row.form, begin, end, row.first, row.second);
        if (row.message == nullptr) {
            ASSERT_FALSE(entries.refusal);
            EXPECT_DOUBLE_EQ(entries.tEnd, 2 * std::numbers::pi);
            EXPECT_DOUBLE_EQ(formula.evaluate(0.0, kFunctionSlot), 2.0);
            continue;
        }
        ASSERT_TRUE(entries.refusal);
        EXPECT_EQ(entries.refusal->message, row.message);
        EXPECT_EQ(entries.refusal->box, row.box);
    }
}

TEST(CurveTools, IntervalsAreReadLikeTheIntegralsAndResultsWrittenOneALine) {
    CurveGraph graph;
    graph.tBegin = 0;
    graph.tEnd = 3;
    const struct {
        const char* begin;
        const char* end;
        const char* refusal;
    } rows[] = {
        {"", "1", "ERROR IN T_BEG EDIT BOX:\nBOX IS EMPTY"},
        {"-1", "1", curve_messages::kTBeginOutside},
        {"1", "pi", curve_messages::kTEndOutside},
        {"2", "1", curve_messages::kTEndNotGreater},
        {"1", "2", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.begin);
        Formula formula;
        NumberBox begin(kTBeginBoxName), end(kTEndBoxName);
        begin.setText(row.begin);
        end.setText(row.end);
        const CurveInterval interval = readCurveInterval(formula, graph, begin, end);
        EXPECT_EQ(interval.refusal.value_or(""), row.refusal ? row.refusal : "");
    }
    Formula formula;
    NumberBox t(curve_messages::kBoxT);
    t.setText("pi");
    EXPECT_EQ(readCurveT(formula, graph, t).refusal, curve_messages::kTOutside);

    CurveLocal local{true, {1, -0.5}, 0, 2, false, 0};
    EXPECT_EQ(localText(local), "x=1\ny=-0.5\ndx/dt=0\ndy/dt=2\ndy/dx=INDEFINITE\n");
    CurveMeasures closed{true, false, 6.25, true, 3.5};
    EXPECT_EQ(measuresText(closed, 3.25), "length=6.25\narea=3.5\nswept area=3.25\n");
    closed.closed = false;
    EXPECT_EQ(measuresText(closed, std::nullopt), "length=6.25\n");
}

}  // namespace
}  // namespace curvemill
