// Evaluation: the domain rules and deliberate results, the values table, slots and the stop flag.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <tuple>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"

namespace curvemill {
namespace {

constexpr double kIndefinite = std::numeric_limits<double>::quiet_NaN();

struct EvalCase {
    const char* typed;
    double x;
    double expected;  // NaN: indefinite
};

// Names the cases in test lists by their formula and x, the same in every build.
void PrintTo(const EvalCase& c, std::ostream* os) {
    *os << c.typed << " at x=" << c.x;
}

class Evaluation : public testing::TestWithParam<EvalCase> {};

TEST_P(Evaluation, GivesTheRuleResult) {
    const EvalCase& c = GetParam();
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, c.typed, FormulaMode::Function)) << formula.errorText;
    const double value = formula.evaluate(c.x);
    EXPECT_EQ(formula.indefinite, std::isnan(c.expected)) << value;
    if (!std::isnan(c.expected)) {
        EXPECT_DOUBLE_EQ(value, c.expected);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, Evaluation,
    testing::Values(
        EvalCase{"x^2", -3, 9}, EvalCase{"2^x", -1, 0.5}, EvalCase{"(-2)^x", 2, kIndefinite},
        EvalCase{"(-2)^3", 0, -8}, EvalCase{"(-2)^(3*1)", 0, -8},
        EvalCase{"(-2)^(3*x)", 1, kIndefinite}, EvalCase{"(-2)^atan(0)", 0, 1},
        EvalCase{"x^(2)", -3, 9}, EvalCase{"(-2)^x!", 3, kIndefinite},
        EvalCase{"x^0.5", -4, kIndefinite}, EvalCase{"0^2", 0, 0}, EvalCase{"0^x", 2, kIndefinite},
        EvalCase{"2^3^2", 0, 64}, EvalCase{"1/0", 0, 1e10}, EvalCase{"-1/0", 0, -1e10},
        EvalCase{"0/0", 0, kIndefinite}, EvalCase{"x/x", 0, kIndefinite}, EvalCase{"x/x", 2, 1},
        EvalCase{"12/3*2", 0, 8}, EvalCase{"Sqr(0)", 0, kIndefinite}, EvalCase{"Sqr(x)", 4, 2},
        EvalCase{"ln(0)", 0, kIndefinite}, EvalCase{"ln(e)", 0, 1}, EvalCase{"asin(1)", 0, kPi / 2},
        EvalCase{"asin(1.0000001)", 0, kIndefinite}, EvalCase{"acos(-2)", 0, kIndefinite},
        EvalCase{"atan(1)*4", 0, kPi}, EvalCase{"13!", 0, 1932053504}, EvalCase{"5.7!", 0, 120},
        EvalCase{"(-3)!", 0, 1}, EvalCase{"40!", 0, 0}, EvalCase{"-x^2", 3, -9},
        EvalCase{"x-2-3", 10, 5}, EvalCase{"-x+2", 1, 1},
        EvalCase{"sin(x)/x*80", kPi / 2, 160 / kPi}, EvalCase{"cos(pi)+tan(0)", 0, -1},
        EvalCase{"tan(x)", kPi / 4, 1}, EvalCase{"Sqr(-1)+x^2", 1, kIndefinite}));

TEST(Evaluator, FillsValuesByOpeningBracketKeepsTheTextAndObeysTheStopFlag) {
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x+2*x", FormulaMode::Function));  // (x+(k*x))
    const ExpressionSlot& slot = formula.slots[kFunctionSlot];
    EXPECT_EQ(formula.evaluate(5), 15);
    EXPECT_EQ(slot.values[0], 15);
    EXPECT_EQ(slot.values[3], 10);
    EXPECT_STREQ(slot.text.data(), "(x+(k*x))");

    formula.keepComputing = false;  // the stop flag ends evaluation at once
    EXPECT_EQ(formula.evaluate(2), 0.0);
    EXPECT_TRUE(formula.indefinite);
    formula.keepComputing = true;
    EXPECT_EQ(formula.evaluate(2), 6.0);
    EXPECT_FALSE(formula.indefinite);
}

TEST(Evaluator, ChoosesTheSlot) {
    Formula formula;
    ASSERT_TRUE(prepareFormula(formula, "x+1", FormulaMode::Function));
    ASSERT_TRUE(prepareFormula(formula, "x*10", FormulaMode::SecondFunction));
    ASSERT_TRUE(prepareFormula(formula, "x*y", FormulaMode::TwoVariables));
    EXPECT_EQ(formula.evaluate(2), 3);
    formula.useSecondFunction = true;
    EXPECT_EQ(formula.evaluate(2), 20);
    EXPECT_EQ(formula.evaluate(2, kFunctionSlot), 3);
    EXPECT_EQ(formula.evaluate(2, kTwoVariableSlot, 4), 8);
    EXPECT_EQ(formula.evaluate(2, kSpareSlot), 0);  // never prepared
}

TEST(Evaluator, LenientTextsWithStrayBracketsEvaluateWithoutFault) {
    const std::tuple<const char*, double> cases[] = {{"x+1)", 4}, {"(x+1", 0}, {"()", 0},
                                                     {"x+(", 0},  {"x*(2", 0}, {"(!x)", 1}};
    for (const auto& [typed, expected] : cases) {
        SCOPED_TRACE(typed);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, typed, FormulaMode::Function, true))
            << formula.errorText;
        // "(!x)" brackets to "(((!)x))": the factorial of an empty place is 0! = 1.
        EXPECT_EQ(formula.evaluate(3), expected);
        EXPECT_EQ(formula.evaluate(3), expected) << "a second run must see the same text";
    }
}

// A slot copied elsewhere (a dialog keeps one to restore later) evaluates its own formula with its
// own numbers, never those of the slot it was copied from nor of the one it replaced.
TEST(SlotCopy, ACopyEvaluatesItsOwnFormulaAfterItsOriginalChangedAndWent) {
    Formula target;
    ASSERT_TRUE(prepareFormula(target, "x+100", FormulaMode::TwoVariables));
    {
        auto source = std::make_unique<Formula>();
        ASSERT_TRUE(prepareFormula(*source, "x*y-log(x)", FormulaMode::TwoVariables));
        EXPECT_EQ(source->evaluate(1.0, kTwoVariableSlot, 2.0), 2.0);  // resolved for the source
        target.slots[kTwoVariableSlot] = source->slots[kTwoVariableSlot];
        ASSERT_TRUE(prepareFormula(*source, "x-y", FormulaMode::TwoVariables));
        source->evaluate(7.0, kTwoVariableSlot, 7.0);
    }
    EXPECT_EQ(target.evaluate(10.0, kTwoVariableSlot, 3.0), 29.0);
    ExpressionSlot moved = std::move(target.slots[kTwoVariableSlot]);
    target.slots[kSpareSlot] = std::move(moved);
    EXPECT_EQ(target.evaluate(100.0, kSpareSlot, 0.5), 48.0);
    EXPECT_EQ(target.slots[kSpareSlot].values[0], 48.0);
}

}  // namespace
}  // namespace curvemill
