// A slot copied elsewhere (a dialog keeps one to restore later) evaluates its own formula with
// its own numbers, never those of the slot it was copied from.
#include <gtest/gtest.h>

#include <memory>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"

namespace curvemill {
namespace {

TEST(SlotCopy, RestoredSlotEvaluatesTheFormulaItHeld) {
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "sin(x)*x^2+ln(x)", kModeFunction));
    const double expected = formula.evaluate(2.0);
    const ExpressionSlot kept = formula.slots[kFunctionSlot];
    ASSERT_TRUE(prepareFormula(formula, "x+100", kModeFunction));
    EXPECT_EQ(formula.evaluate(2.0), 102.0);
    formula.slots[kFunctionSlot] = kept;
    EXPECT_EQ(formula.evaluate(2.0), expected);
    EXPECT_EQ(formula.slots[kFunctionSlot].values[0], expected);
}

TEST(SlotCopy, CopyOutlivesItsOriginal) {
    Formula target;
    double originalLast = 0.0;
    {
        auto source = std::make_unique<Formula>();
        ASSERT_TRUE(prepareFormula(*source, "x*y-log(x)", kModeTwoVariables));
        originalLast = source->evaluate(1.0, kTwoVariableSlot, 2.0);  // resolved for the source
        target.slots[kTwoVariableSlot] = source->slots[kTwoVariableSlot];
        ASSERT_TRUE(prepareFormula(*source, "x-y", kModeTwoVariables));
        source->evaluate(7.0, kTwoVariableSlot, 7.0);
    }
    EXPECT_EQ(originalLast, 2.0);
    EXPECT_EQ(target.evaluate(10.0, kTwoVariableSlot, 3.0), 29.0);
    ExpressionSlot moved = std::move(target.slots[kTwoVariableSlot]);
    target.slots[kSpareSlot] = std::move(moved);
    EXPECT_EQ(target.evaluate(100.0, kSpareSlot, 0.5), 48.0);
}

}  // namespace
}  // namespace curvemill
