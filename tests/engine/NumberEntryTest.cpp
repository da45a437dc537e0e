// Number boxes, the edited-flag rule, the Log Base logic and the display formats.
#include <gtest/gtest.h>

#include <cmath>
#include <tuple>
#include <utility>
#include <vector>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/LogBase.h"
#include "engine/NumberEntry.h"

namespace curvemill {
namespace {

TEST(NumberEntry, ReadsConstantExpressionsAndComposesErrors) {
    // Text, box, value, and the message (empty: accepted).
    const std::tuple<const char*, const char*, double, const char*> cases[] = {
        {"pi/2", "X_BEG", 1.5707963267948966, ""},
        {" 2 * e ", "X", 2 * 2.718281828459045, ""},
        {"1/0", "Y", 1e10, ""},
        {"2*x", "X_BEG", 0, "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT"},
        {"Sqr(2)", "Y END", 0, "ERROR IN Y END EDIT BOX:\nNUMBER MAY NOT BE A VALID CONSTANT"},
        {"", "X_END", 0, "ERROR IN X_END EDIT BOX:\nBOX IS EMPTY"},
        {"0/0", "X", 0, "ERROR IN X EDIT BOX:\nNUMBER MAY NOT BE A VALID CONSTANT"},
    };
    for (const auto& [text, box, value, message] : cases) {
        SCOPED_TRACE(text);
        Formula formula;
        const NumberReading reading = readNumberEntry(formula, text, box);
        EXPECT_EQ(reading.message, message);
        EXPECT_EQ(reading.ok, *message == '\0');
        if (reading.ok) {
            EXPECT_EQ(reading.value, value);
        }
    }
}

TEST(NumberEntry, ValueIsTakenAgainOnlyAfterAnEdit) {
    Formula formula;
    NumberBox box("X_BEG");
    box.setText("2");
    ASSERT_EQ(box.read(formula).value, 2);
    EXPECT_FALSE(box.edited());

    // The number slot is shared: another box's value must not leak into this unedited one.
    ASSERT_TRUE(readNumberEntry(formula, "7", "X").ok);
    EXPECT_EQ(box.read(formula).value, 2);

    box.setText("3*2");
    EXPECT_TRUE(box.edited());
    EXPECT_EQ(box.read(formula).value, 6);

    box.setText("x");
    const NumberReading bad = box.read(formula);
    EXPECT_FALSE(bad.ok);
    EXPECT_EQ(bad.message, "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT");
    EXPECT_TRUE(box.edited());
}

TEST(LogBase, AcceptsOnlyNonNegativePlainNumbers) {
    // Other base chosen, text, the message (empty: accepted), the base afterwards.
    const std::tuple<bool, const char*, const char*, double> cases[] = {
        {false, "junk", "", 10},
        {true, "2", "", 2},
        {true, "0", "", 0},
        {true, "-3", kMsgLogBasePositive, 10},
        {true, "2a", kMsgEnterValidNumber, 5},
        {true, "1.2.3", kMsgEnterValidNumber, 5},
        {true, "3-", kMsgEnterValidNumber, 5},
        {true, "", kMsgEnterValidNumber, 5},
        {true, "-", kMsgEnterValidNumber, 5}};
    for (const auto& [other, text, message, base] : cases) {
        SCOPED_TRACE(text);
        Formula formula;
        formula.logBase = 5;
        const LogBaseResult result = applyLogBase(formula, other, text);
        EXPECT_EQ(result.message, message);
        EXPECT_EQ(result.accepted, *message == '\0');
        EXPECT_EQ(formula.logBase, base);
        if (result.accepted) {
            EXPECT_EQ(formula.logFactor, 1.0 / std::log10(base));
        }
    }
}

// formatValue and formatValueInPi are read in the extreme list's texts.
TEST(DisplayFormat, WritesNumbersBack) {
    EXPECT_EQ(formatSolutionInPi(kPi / 3), "pi*0.333333");
    EXPECT_EQ(formatEquationSolution(1.0 / 3), "0.3333333333");
    EXPECT_EQ(formatEquationSolution(1e-20), "1e-20");
    EXPECT_EQ(formatLogBase(2), "2.000000");
    EXPECT_EQ(trimZeros("2.500000"), "2.5");
    EXPECT_EQ(trimZeros("3.000000"), "3");
    EXPECT_EQ(trimZeros("100"), "100");
    EXPECT_EQ(trimZeros("pi*0.500"), "pi*0.5");
    EXPECT_EQ(trimZeros("-0.0"), "-0");
}

TEST(DisplayFormat, LabelsKeepTenCharactersWithTheirPrefix) {
    using Labels = std::vector<std::pair<double, const char*>>;
    // Nine characters and a sign fit; longer numbers are cut or left out.
    const Labels plain = {{0.0000004, "0"},
                          {1.25, "1.25"},
                          {-1.25, "-1.25"},
                          {100, "100"},
                          {123456.789, "123456.789"},
                          {-123456.789, "-123456.78"},
                          {1e9, ""},
                          {-1e8, "-"},
                          {99999999.9, "99999999.9"}};
    const Labels inPi = {{-2 * kPi, "-pi*2"}, {kPi / 2, "pi*0.5"},      {-0.0000004, "0"},
                         {1e6 * kPi, "pi*"},  {2e5 * kPi, "pi*200000"}, {-1e20, "-pi*"}};
    for (const bool pi : {false, true}) {
        for (const auto& [v, text] : pi ? inPi : plain) {
            EXPECT_EQ(labelText(v, pi), text) << v;
        }
    }
}

TEST(DisplayFormat, WholePartRule) {
    const std::pair<double, double> cases[] = {{10, 9},  {-5, -4}, {5.5, 5}, {5.0, 4}, {-5.5, -5},
                                               {0.7, 0}, {1, 0},   {-1, 0},  {0, 0},   {1.0001, 1}};
    for (const auto& [v, w] : cases) {
        EXPECT_EQ(wholePart(v), w) << v;
    }
}

// Numbers preset in boxes: fifteen decimals trimmed, kept inside the range they stand for.
TEST(DisplayFormat, BoxTextStaysInsideItsRange) {
    const std::tuple<double, double, double, const char*> cases[] = {
        {2.5, 0, 5, "2.5"},
        {5.495279994712196e-46, 5.495279994712196e-46, 5, "0.000000000000001"},
        {-1e-30, -5, -1e-30, "-0.000000000000001"},
        {-5, -5, 5, "-5"},
    };
    for (const auto& [v, lo, hi, text] : cases) {
        EXPECT_EQ(boxTextWithin(v, lo, hi), text) << v;
    }
}

}  // namespace
}  // namespace curvemill
