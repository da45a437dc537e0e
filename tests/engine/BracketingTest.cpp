// Precedence bracketing, number encoding and the room the slot needs for the longest formulas.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "engine/Bracketing.h"
#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"

namespace curvemill {
namespace {

TEST(Bracketing, GivesEveryTighterOperatorItsOwnPair) {
    struct Case {
        const char* typed;
        char mode;
        const char* bracketed;
    };
    const Case cases[] = {
        {"x", 'f', "(x)"},
        {"x+2*x", 'f', "(x+(2*x))"},
        {"x*2+1", 'f', "((x*2)+1)"},
        {"x*2/e", 'f', "(x*2/e)"},
        {"x*y^2", 'e', "(x*(y^2))"},
        {"x^2*3", 'f', "((x^2)*3)"},
        {"2^3!", 'f', "(2^(3!))"},
        {"x!^2", 'f', "((x!)^2)"},
        {"-x^2", 'f', "(-(x^2))"},
        {"-2*3", 'f', "(-(2*3))"},
        {"sin(x)^2", 'f', "(s(x)^2)"},
        {"x!!", 'f', "((x!)!)"},
        {"(x)", 'f', "((x))"},
        {"2.5*pi", 'f', "(2.5*p)"},
        {"(x+1)*(x-1)^2", 'f', "((x+1)*((x-1)^2))"},
        {"2^x^3+1", 'f', "((2^x^3)+1)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        Formula formula;
        std::string text = c.typed;
        ASSERT_TRUE(checkFormula(formula, text, c.mode, false)) << formula.errorText;
        ExpressionSlot& slot = formula.slots[static_cast<std::size_t>(slotForMode(c.mode))];
        EXPECT_EQ(bracketFormula(slot), static_cast<int>(std::strlen(c.bracketed)));
        EXPECT_STREQ(slot.text.data(), c.bracketed);
        EXPECT_EQ(slot.length, static_cast<int>(std::strlen(c.bracketed)));
    }
}

TEST(Bracketing, InsertCharShiftsTheTail) {
    ExpressionSlot slot;
    std::strcpy(slot.text.data(), "x+1");
    EXPECT_EQ(insertChar(slot, 1, 3, '!'), 4);
    EXPECT_STREQ(slot.text.data(), "x!+1");
}

TEST(Encoding, ReplacesConstantsAndNumbersByTheirValues) {
    struct Case {
        const char* typed;
        const char* encoded;
        std::vector<std::pair<int, double>> constants;
    };
    const Case cases[] = {
        {"5", "(k)", {{1, 5.0}}},
        {"2.5*pi", "(k*k)", {{1, 2.5}, {3, kPi}}},
        {"e^x", "(k^x)", {{1, 2.718281828459045}}},
        {"12.75+x*100", "(k+(x*k))", {{1, 12.75}, {6, 100.0}}},
        {"x-2.", "(x-k)", {{3, 2.0}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        Formula formula;
        formula.slots[kFunctionSlot].constants.fill(7.0);
        ASSERT_TRUE(prepareFormula(formula, c.typed, kModeFunction));
        const ExpressionSlot& slot = formula.slots[kFunctionSlot];
        EXPECT_STREQ(slot.text.data(), c.encoded);
        double sum = 0;
        for (const auto& [position, value] : c.constants) {
            EXPECT_EQ(slot.constants[static_cast<std::size_t>(position)], value) << position;
            sum += value;
        }
        double all = 0;
        for (double v : slot.constants) {
            all += v;
        }
        EXPECT_EQ(all, sum) << "stale constants left in the table";
    }
}

// The longest texts bracketing can make of 99 typed characters: one new pair per operator.
TEST(SlotCapacity, WorstFormulasOfNinetyNineCharactersFitAndEvaluate) {
    struct Case {
        std::string typed;
        int bracketedLength;
        double x;
        double value;
    };
    std::string factorials = "x" + std::string(98, '!');
    std::string mixed = "1";
    while (mixed.size() + 6 <= 99) {
        mixed += "-2*2^2";
    }
    std::string powers = "x";
    while (powers.size() + 4 <= 99) {
        powers += "+x!^1";
    }
    const Case cases[] = {
        // Every '!' but the last gains a pair (the last one finds the outer pair around it).
        // 3 -> 6 -> 720 -> 0 (720! wraps to 0) -> 1 -> 1 ...
        {factorials, 99 + 2 + 2 * 97, 3.0, 1.0},
        {mixed, 97 + 2 + 4 * 16, 0.0, 1.0 - 16 * 8.0},
        {powers, static_cast<int>(powers.size()) + 2 + 4 * 19, 3.0, 3.0 + 19 * 6.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        ASSERT_LE(c.typed.size(), 99u);
        Formula formula;
        ASSERT_TRUE(prepareFormula(formula, c.typed, kModeFunction)) << formula.errorText;
        EXPECT_EQ(formula.slots[kFunctionSlot].length, c.bracketedLength);
        EXPECT_LT(c.bracketedLength, kSlotCapacity);
        EXPECT_EQ(formula.evaluate(c.x), c.value);
        EXPECT_FALSE(formula.indefinite);
    }
}

}  // namespace
}  // namespace curvemill
