// The curve window's checks: each box's refusal names the box, in the window's order.
#include <numbers>

#include <gtest/gtest.h>

#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "parametric/CurveEntries.h"

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

}  // namespace
}  // namespace curvemill
