// The syntax check: every message, the deliberate quirks, and what a success stores.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"

namespace curvemill {
namespace {

// Texts that give one message (nullptr: accepted) in one mode.
struct CheckGroup {
    char mode;
    bool lenient;
    const char* message;
    std::vector<const char*> texts;
};

TEST(FormulaCheck, GivesEachMessage) {
    const CheckGroup groups[] = {
        {'f',
         false,
         nullptr,
         {"sin(x)/x*80", "2*x", "x^(-2)", "-x", "5!", "x!!", "x!*2", "0.5", "2.", "Sqr(x)"}},
        {'f', false, kMsgBoxIsEmpty, {""}},
        {'f',
         false,
         kMsgInvalidEntry,
         {"sinx", "2x", "x2", "xpi", "1.2.3", ".5", "2.+1", "SIN(x)", "sqr(x)", "lg(x)", "p",
          "abs(x)", "2sin(x)", "y", "x,1"}},
        {'f', false, kMsgWrongBeforeBracket, {"()", "(x+)"}},
        {'f', false, kMsgWrongAfterBracket, {"(x)2", "(*x)"}},
        {'f', false, kMsgBracketsDoNotMatch, {"(x+1", "x+1)", ")(x"}},
        {'f', false, kMsgTwoOperators, {"x^-2", "*x", "x+", "x*!2"}},
        {'f', true, nullptr, {"()", "(x+1", "x+1)"}},
        {'f', true, kMsgWrongBeforeBracket, {")+x", ")"}},
        {'n', false, nullptr, {"pi/2", "sin(1)", "atan(1)"}},
        {'n', false, kMsgNotAConstant, {"x"}},
        {'n', false, kMsgMayNotBeValidConstant, {"2^3", "log(5)", "Sqr(2)", "asin(1)"}},
        {'e', false, nullptr, {"x*y"}},
        {'e', false, kMsgInvalidEntry, {"xy"}},
    };
    for (const CheckGroup& g : groups) {
        for (const char* typed : g.texts) {
            SCOPED_TRACE(testing::Message() << typed << " mode " << g.mode << " " << g.lenient);
            Formula formula;
            std::string text = typed;
            EXPECT_EQ(checkFormula(formula, text, g.mode, g.lenient), g.message == nullptr)
                << formula.errorText;
            if (g.message != nullptr) {
                EXPECT_EQ(formula.errorText, g.message);
            }
        }
    }
}

TEST(FormulaCheck, StoresEncodedTextInTheSlotOfItsMode) {
    const struct {
        const char* typed;
        char mode;
        int slot;
        const char* stored;
    } cases[] = {{"asin(x)+acos(x)*atan(pi)", 'f', 0, "S(x)+C(x)*T(p)"},
                 {"log(x)-ln(e)+Sqr(x)", 'F', 2, "L(x)-l(e)+q(x)"},
                 {"sin(1)*cos(2)/tan(3)", 'n', 1, "s(1)*c(2)/t(3)"},
                 {"y*sin(x)+y^2-x", 'e', 4, "y*s(x)+y^2-x"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed);
        Formula formula;
        std::string text = c.typed;
        ASSERT_TRUE(checkFormula(formula, text, c.mode, false)) << formula.errorText;
        EXPECT_EQ(slotForMode(c.mode), c.slot);
        EXPECT_STREQ(formula.slots[static_cast<std::size_t>(c.slot)].text.data(), c.stored);
        EXPECT_EQ(text, c.stored);
    }
}

TEST(FormulaCheck, FailureLeavesSlotsAndASilentFailureTheOldMessage) {
    Formula formula;
    std::string good = "x+1";
    ASSERT_TRUE(checkFormula(formula, good, kModeFunction, false));
    formula.errorText = "PREVIOUS";
    std::string bang = "!x";  // a leading factorial fails without a message of its own
    EXPECT_FALSE(checkFormula(formula, bang, kModeFunction, false));
    EXPECT_EQ(formula.errorText, "PREVIOUS");
    std::string bad = "x+1+";
    EXPECT_FALSE(checkFormula(formula, bad, kModeFunction, false));
    EXPECT_STREQ(formula.slots[kFunctionSlot].text.data(), "x+1");
}

TEST(FormulaCheck, RemoveBlanksAndOverlongTexts) {
    std::string text = " sin( x ) ";
    removeBlanks(text);
    EXPECT_EQ(text, "sin(x)");

    Formula formula;
    std::string longest = "x" + std::string(168, '!');
    std::string overlong = longest + "!";
    EXPECT_TRUE(checkFormula(formula, longest, kModeFunction, false));
    EXPECT_FALSE(checkFormula(formula, overlong, kModeFunction, false));
    EXPECT_EQ(formula.errorText, kMsgInvalidEntry);
}

}  // namespace
}  // namespace curvemill
