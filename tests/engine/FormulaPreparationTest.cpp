// Preparing a typed formula: the syntax check with every message and the deliberate quirks,
// precedence bracketing, number encoding and the room the slot needs for the longest formulas.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/Bracketing.h"
#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"

namespace curvemill {
namespace {

TEST(FormulaCheck, GivesEachMessage) {
    // Mode, lenient, one message (nullptr: accepted), the texts that give it.
    using enum FormulaMode;
    const std::tuple<FormulaMode, bool, const char*, std::vector<const char*>> groups[] = {
        {Function,
         false,
         nullptr,
         {"sin(x)/x*80", "2*x", "x^(-2)", "-x", "5!", "x!!", "x!*2", "0.5", "2.", "Sqr(x)"}},
        {Function, false, kMsgBoxIsEmpty, {""}},
        {Function,
         false,
         kMsgInvalidEntry,
         {"sinx", "2x", "x2", "xpi", "1.2.3", ".5", "2.+1", "SIN(x)", "sqr(x)", "lg(x)", "p",
          "abs(x)", "2sin(x)", "y", "x,1"}},
        {Function, false, kMsgWrongBeforeBracket, {"()", "(x+)"}},
        {Function, false, kMsgWrongAfterBracket, {"(x)2", "(*x)"}},
        {Function, false, kMsgBracketsDoNotMatch, {"(x+1", "x+1)", ")(x"}},
        {Function, false, kMsgTwoOperators, {"x^-2", "*x", "x+", "x*!2"}},
        {Function, true, nullptr, {"()", "(x+1", "x+1)"}},
        {Function, true, kMsgWrongBeforeBracket, {")+x", ")"}},
        {Number, false, nullptr, {"pi/2", "sin(1)", "atan(1)"}},
        {Number, false, kMsgNotAConstant, {"x"}},
        {Number, false, kMsgMayNotBeValidConstant, {"2^3", "log(5)", "Sqr(2)", "asin(1)"}},
        {TwoVariables, false, nullptr, {"x*y"}},
        {TwoVariables, false, kMsgInvalidEntry, {"xy"}},
    };
    for (const auto& [mode, lenient, message, texts] : groups) {
        for (const char* typed : texts) {
            SCOPED_TRACE(testing::Message()
                         << typed << " mode " << static_cast<int>(mode) << " " << lenient);
            Formula formula;
            std::string text = typed;
            EXPECT_EQ(checkFormula(formula, text, mode, lenient), message == nullptr)
                << formula.errorText;
            if (message != nullptr) {
                EXPECT_EQ(formula.errorText, message);
            }
        }
    }
}

TEST(FormulaCheck, FailuresLeaveTheSlotsBlanksGoAndOverlongTextsAreRefused) {
    Formula formula;
    std::string good = "x+1";
    ASSERT_TRUE(checkFormula(formula, good, FormulaMode::Function, false));
    formula.errorText = "PREVIOUS";
    std::string bang = "!x";  // a leading factorial fails without a message of its own
    EXPECT_FALSE(checkFormula(formula, bang, FormulaMode::Function, false));
    EXPECT_EQ(formula.errorText, "PREVIOUS");
    std::string bad = "x+1+";
    EXPECT_FALSE(checkFormula(formula, bad, FormulaMode::Function, false));
    EXPECT_STREQ(formula.slots[kFunctionSlot].text.data(), "x+1");

    std::string text = " sin( x ) ";
    removeBlanks(text);
    EXPECT_EQ(text, "sin(x)");
    std::string longest = "x" + std::string(168, '!');
    std::string overlong = longest + "!";
    EXPECT_TRUE(checkFormula(formula, longest, FormulaMode::Function, false));
    EXPECT_FALSE(checkFormula(formula, overlong, FormulaMode::Function, false));
    EXPECT_EQ(formula.errorText, kMsgInvalidEntry);
}

TEST(Bracketing, GivesEveryTighterOperatorItsOwnPair) {
    const std::pair<const char*, const char*> cases[] = {{"x", "(x)"},
                                                         {"x+2*x", "(x+(2*x))"},
                                                         {"x*2+1", "((x*2)+1)"},
                                                         {"x*2/e", "(x*2/e)"},
                                                         {"x*y^2", "(x*(y^2))"},
                                                         {"x^2*3", "((x^2)*3)"},
                                                         {"2^3!", "(2^(3!))"},
                                                         {"x!^2", "((x!)^2)"},
                                                         {"-x^2", "(-(x^2))"},
                                                         {"-2*3", "(-(2*3))"},
                                                         {"sin(x)^2", "(s(x)^2)"},
                                                         {"x!!", "((x!)!)"},
                                                         {"(x)", "((x))"},
                                                         {"2.5*pi", "(2.5*p)"},
                                                         {"(x+1)*(x-1)^2", "((x+1)*((x-1)^2))"},
                                                         {"2^x^3+1", "((2^x^3)+1)"}};
    for (const auto& [typed, bracketed] : cases) {
        SCOPED_TRACE(typed);
        Formula formula;
        std::string text = typed;
        // The two-variable mode accepts every text of the one-variable mode.
        ASSERT_TRUE(checkFormula(formula, text, FormulaMode::TwoVariables, false))
            << formula.errorText;
        ExpressionSlot& slot = formula.slots[kTwoVariableSlot];
        const int length = static_cast<int>(std::strlen(bracketed));
        EXPECT_EQ(bracketFormula(slot), length);
        EXPECT_STREQ(slot.text.data(), bracketed);
        EXPECT_EQ(slot.length, length);
    }
}

// Each 'k' of the text has its value at its position; no other entry keeps an old value.
TEST(Encoding, ReplacesConstantsAndNumbersByTheirValues) {
    const std::tuple<const char*, const char*, std::vector<double>> cases[] = {
        {"5", "(k)", {5.0}},
        {"2.5*pi", "(k*k)", {2.5, kPi}},
        {"e^x", "(k^x)", {2.718281828459045}},
        {"12.75+x*100", "(k+(x*k))", {12.75, 100.0}},
        {"x-2.", "(x-k)", {2.0}},
    };
    for (const auto& [typed, encoded, constants] : cases) {
        SCOPED_TRACE(typed);
        Formula formula;
        formula.slots[kFunctionSlot].constants.fill(7.0);
        ASSERT_TRUE(prepareFormula(formula, typed, FormulaMode::Function));
        const ExpressionSlot& slot = formula.slots[kFunctionSlot];
        EXPECT_STREQ(slot.text.data(), encoded);
        std::vector<double> found;
        for (std::size_t i = 0; i < slot.constants.size(); ++i) {
            if (slot.text[i] == 'k') {
                found.push_back(slot.constants[i]);
            } else {
                EXPECT_EQ(slot.constants[i], 0.0) << "stale constant at " << i;
            }
        }
        EXPECT_EQ(found, constants);
    }
}

// The longest texts bracketing can make of 99 typed characters: one new pair per operator.
TEST(SlotCapacity, WorstFormulasOfNinetyNineCharactersFitAndEvaluate) {
    std::string mixed = "1";
    while (mixed.size() + 6 <= 99) {
        mixed += "-2*2^2";
    }
    std::string powers = "x";
    while (powers.size() + 4 <= 99) {
        powers += "+x!^1";
    }
    const std::tuple<std::string, int, double, double> cases[] = {
        // Every '!' but the last gains a pair (the last one finds the outer pair around it).
        // 3 -> 6 -> 720 -> 0 (720! wraps to 0) -> 1 -> 1 ...
        {"x" + std::string(98, '!'), 99 + 2 + 2 * 97, 3.0, 1.0},
        {mixed, 97 + 2 + 4 * 16, 0.0, 1.0 - 16 * 8.0},
        {powers, static_cast<int>(powers.size()) + 2 + 4 * 19, 3.0, 3.0 + 19 * 6.0},
    };
    for (const auto& [typed, bracketedLength, x, value] : cases) {
        SCOPED_TRACE(typed);
        ASSERT_LE(typed.size(), 99u);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, typed, FormulaMode::Function)) << formula.errorText;
        EXPECT_EQ(formula.slots[kFunctionSlot].length, bracketedLength);
        EXPECT_LT(bracketedLength, kSlotCapacity);
        EXPECT_EQ(formula.evaluate(x), value);
        EXPECT_FALSE(formula.indefinite);
    }
}

}  // namespace
}  // namespace curvemill
