// Number boxes, the edited-flag rule, the Log Base logic and the display formats.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/LogBase.h"
#include "engine/NumberEntry.h"

namespace curvemill {
namespace {

TEST(NumberEntry, ReadsConstantExpressionsAndComposesErrors) {
    struct Case {
        const char* text;
        const char* box;
        bool ok;
        double value;
        const char* message;
    };
    const Case cases[] = {
        {"pi/2", "X_BEG", true, 1.5707963267948966, ""},
        {" 2 * e ", "X", true, 2 * 2.718281828459045, ""},
        {"1/0", "Y", true, 1e10, ""},
        {"2*x", "X_BEG", false, 0, "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT"},
        {"Sqr(2)", "Y END", false, 0,
         "ERROR IN Y END EDIT BOX:\nNUMBER MAY NOT BE A VALID CONSTANT"},
        {"", "X_END", false, 0, "ERROR IN X_END EDIT BOX:\nBOX IS EMPTY"},
        {"0/0", "X", false, 0, "ERROR IN X EDIT BOX:\nNUMBER MAY NOT BE A VALID CONSTANT"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Formula formula;
        const NumberReading reading = readNumberEntry(formula, c.text, c.box);
        EXPECT_EQ(reading.ok, c.ok);
        EXPECT_EQ(reading.message, c.message);
        if (c.ok) {
            EXPECT_EQ(reading.value, c.value);
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
    struct Case {
        bool other;
        const char* text;
        bool accepted;
        const char* message;
        double base;
    };
    const Case cases[] = {
        {false, "junk", true, "", 10},
        {true, "2", true, "", 2},
        {true, "0", true, "", 0},
        {true, "-3", false, kMsgLogBasePositive, 10},
        {true, "2a", false, kMsgEnterValidNumber, 5},
        {true, "1.2.3", false, kMsgEnterValidNumber, 5},
        {true, "3-", false, kMsgEnterValidNumber, 5},
        {true, "", false, kMsgEnterValidNumber, 5},
        {true, "-", false, kMsgEnterValidNumber, 5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Formula formula;
        formula.logBase = 5;
        const LogBaseResult result = applyLogBase(formula, c.other, c.text);
        EXPECT_EQ(result.accepted, c.accepted);
        EXPECT_EQ(result.message, c.message);
        EXPECT_EQ(formula.logBase, c.base);
        if (c.accepted) {
            EXPECT_EQ(formula.logFactor, 1.0 / std::log10(c.base));
        }
    }
}

TEST(DisplayFormat, WritesNumbersBack) {
    EXPECT_EQ(formatValueInPi(0.5), "pi*0.159154943091895");
    EXPECT_EQ(formatValue(0.1), "0.100000000000000");
    EXPECT_EQ(formatSolutionInPi(kPi / 3), "pi*0.333333");
    EXPECT_EQ(formatEquationSolution(1.0 / 3), "0.3333333333");
    EXPECT_EQ(formatEquationSolution(1e-20), "1e-20");
    EXPECT_EQ(formatLogBase(2), "2.000000");
    const std::pair<const char*, const char*> trims[] = {{"2.500000", "2.5"},
                                                         {"3.000000", "3"},
                                                         {"100", "100"},
                                                         {"pi*0.500", "pi*0.5"},
                                                         {"-0.0", "-0"}};
    for (const auto& [in, out] : trims) {
        EXPECT_EQ(trimZeros(in), out) << in;
    }
}

TEST(DisplayFormat, LabelsKeepTenCharactersWithTheirPrefix) {
    const struct {
        double v;
        bool pi;
        const char* text;
    } cases[] = {
        {-2 * kPi, true, "-pi*2"},
        {kPi / 2, true, "pi*0.5"},
        {0.0000004, false, "0"},
        {-0.0000004, true, "0"},
        {1.25, false, "1.25"},
        {-1.25, false, "-1.25"},
        {100, false, "100"},
        {123456.789, false, "123456.789"},
        {-123456.789, false, "-123456.78"},
        {1e9, false, ""},
        {-1e8, false, "-"},
        {99999999.9, false, "99999999.9"},
        {1e6 * kPi, true, "pi*"},
        {2e5 * kPi, true, "pi*200000"},
        {-1e20, true, "-pi*"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(labelText(c.v, c.pi), c.text) << c.v;
    }
}

TEST(DisplayFormat, WholePartRule) {
    const std::pair<double, double> cases[] = {{10, 9},  {-5, -4}, {5.5, 5}, {5.0, 4}, {-5.5, -5},
                                               {0.7, 0}, {1, 0},   {-1, 0},  {0, 0},   {1.0001, 1}};
    for (const auto& [v, w] : cases) {
        EXPECT_EQ(wholePart(v), w) << v;
    }
}

}  // namespace
}  // namespace curvemill
