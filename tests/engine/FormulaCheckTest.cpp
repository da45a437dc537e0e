// The syntax check: every message, the deliberate quirks, and what a success stores.
#include <gtest/gtest.h>

#include <string>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"

namespace curvemill {
namespace {

struct CheckCase {
    const char* typed;
    char mode;
    bool lenient;
    const char* message;  // nullptr: accepted
};

class CheckMessages : public testing::TestWithParam<CheckCase> {};

TEST_P(CheckMessages, GivesItsMessage) {
    const CheckCase& c = GetParam();
    Formula formula;
    std::string text = c.typed;
    const bool accepted = checkFormula(formula, text, c.mode, c.lenient);
    EXPECT_EQ(accepted, c.message == nullptr) << formula.errorText;
    if (c.message != nullptr) {
        EXPECT_EQ(formula.errorText, c.message);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, CheckMessages,
    testing::Values(
        CheckCase{"", 'f', false, kMsgBoxIsEmpty}, CheckCase{"sin(x)/x*80", 'f', false, nullptr},
        CheckCase{"sinx", 'f', false, kMsgInvalidEntry},
        CheckCase{"2x", 'f', false, kMsgInvalidEntry},
        CheckCase{"x2", 'f', false, kMsgInvalidEntry},
        CheckCase{"xpi", 'f', false, kMsgInvalidEntry}, CheckCase{"2*x", 'f', false, nullptr},
        CheckCase{"()", 'f', false, kMsgWrongBeforeBracket}, CheckCase{"()", 'f', true, nullptr},
        CheckCase{"(x+1", 'f', false, kMsgBracketsDoNotMatch},
        CheckCase{"x+1)", 'f', false, kMsgBracketsDoNotMatch},
        CheckCase{"(x+1", 'f', true, nullptr}, CheckCase{"x+1)", 'f', true, nullptr},
        CheckCase{")(x", 'f', false, kMsgBracketsDoNotMatch},
        CheckCase{")+x", 'f', true, kMsgWrongBeforeBracket},
        CheckCase{"x^-2", 'f', false, kMsgTwoOperators}, CheckCase{"x^(-2)", 'f', false, nullptr},
        CheckCase{"-x", 'f', false, nullptr}, CheckCase{"*x", 'f', false, kMsgTwoOperators},
        CheckCase{"x+", 'f', false, kMsgTwoOperators}, CheckCase{"5!", 'f', false, nullptr},
        CheckCase{"x!!", 'f', false, nullptr}, CheckCase{"x!*2", 'f', false, nullptr},
        CheckCase{"x*!2", 'f', false, kMsgTwoOperators},
        CheckCase{"1.2.3", 'f', false, kMsgInvalidEntry},
        CheckCase{".5", 'f', false, kMsgInvalidEntry}, CheckCase{"0.5", 'f', false, nullptr},
        CheckCase{"2.", 'f', false, nullptr}, CheckCase{"2.+1", 'f', false, kMsgInvalidEntry},
        CheckCase{"pi/2", 'n', false, nullptr}, CheckCase{"sin(1)", 'n', false, nullptr},
        CheckCase{"x", 'n', false, kMsgNotAConstant},
        CheckCase{"2^3", 'n', false, kMsgMayNotBeValidConstant},
        CheckCase{"log(5)", 'n', false, kMsgMayNotBeValidConstant},
        CheckCase{"Sqr(2)", 'n', false, kMsgMayNotBeValidConstant},
        CheckCase{"asin(1)", 'n', false, kMsgMayNotBeValidConstant},
        CheckCase{"atan(1)", 'n', false, nullptr},
        CheckCase{"SIN(x)", 'f', false, kMsgInvalidEntry}, CheckCase{"Sqr(x)", 'f', false, nullptr},
        CheckCase{"sqr(x)", 'f', false, kMsgInvalidEntry},
        CheckCase{"lg(x)", 'f', false, kMsgInvalidEntry},
        CheckCase{"p", 'f', false, kMsgInvalidEntry},
        CheckCase{"abs(x)", 'f', false, kMsgInvalidEntry},
        CheckCase{"2sin(x)", 'f', false, kMsgInvalidEntry},
        CheckCase{")", 'f', true, kMsgWrongBeforeBracket},
        CheckCase{"(x)2", 'f', false, kMsgWrongAfterBracket},
        CheckCase{"(*x)", 'f', false, kMsgWrongAfterBracket},
        CheckCase{"(x+)", 'f', false, kMsgWrongBeforeBracket},
        CheckCase{"y", 'f', false, kMsgInvalidEntry}, CheckCase{"x*y", 'e', false, nullptr},
        CheckCase{"xy", 'e', false, kMsgInvalidEntry},
        CheckCase{"x,1", 'f', false, kMsgInvalidEntry}));

TEST(FormulaCheck, TextBeginningWithFactorialFailsSilently) {
    Formula formula;
    formula.errorText = "PREVIOUS";
    std::string text = "!x";
    EXPECT_FALSE(checkFormula(formula, text, kModeFunction, false));
    EXPECT_EQ(formula.errorText, "PREVIOUS");
}

TEST(FormulaCheck, StoresEncodedTextInTheSlotOfItsMode) {
    struct Case {
        const char* typed;
        char mode;
        int slot;
        const char* stored;
    };
    const Case cases[] = {
        {"asin(x)+acos(x)*atan(pi)", 'f', 0, "S(x)+C(x)*T(p)"},
        {"log(x)-ln(e)+Sqr(x)", 'F', 2, "L(x)-l(e)+q(x)"},
        {"sin(1)*cos(2)/tan(3)", 'n', 1, "s(1)*c(2)/t(3)"},
        {"y*sin(x)+y^2-x", 'e', 4, "y*s(x)+y^2-x"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        Formula formula;
        std::string text = c.typed;
        ASSERT_TRUE(checkFormula(formula, text, c.mode, false)) << formula.errorText;
        EXPECT_EQ(slotForMode(c.mode), c.slot);
        EXPECT_STREQ(formula.slots[static_cast<std::size_t>(c.slot)].text.data(), c.stored);
        EXPECT_EQ(text, c.stored);
    }
}

TEST(FormulaCheck, FailureLeavesEverySlotAsItWas) {
    Formula formula;
    std::string good = "x+1";
    ASSERT_TRUE(checkFormula(formula, good, kModeFunction, false));
    std::string bad = "x+1+";
    EXPECT_FALSE(checkFormula(formula, bad, kModeFunction, false));
    EXPECT_STREQ(formula.slots[kFunctionSlot].text.data(), "x+1");
}

TEST(FormulaCheck, RemoveBlanksAndOverlongTexts) {
    std::string text = " sin( x ) ";
    removeBlanks(text);
    EXPECT_EQ(text, "sin(x)");

    Formula formula;
    std::string longest = "x";
    while (longest.size() < 169) {
        longest += "!";
    }
    std::string overlong = longest + "!";
    EXPECT_TRUE(checkFormula(formula, longest, kModeFunction, false));
    EXPECT_FALSE(checkFormula(formula, overlong, kModeFunction, false));
    EXPECT_EQ(formula.errorText, kMsgInvalidEntry);
}

}  // namespace
}  // namespace curvemill
