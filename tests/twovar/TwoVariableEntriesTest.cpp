#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "twovar/TwoVariableEntries.h"

namespace curvemill {
namespace {

// Every refusal of the Equation / ThreeD window, in its order; the window and the commands only
// wire it.
TEST(TwoVariableEntries, TheFirstFailureInTheWindowsOrder) {
    const std::string ok = "x^2+y^2-1";
    using B = TwoVariableBox;
    // A number box's own message is NumberEntry's; here, that it names its box.
    // The texts, the message (nullptr: accepted; matched by its start), its box, explained.
    const std::tuple<TwoVariableTexts, const char*, B, bool> cases[] = {
        {{"x", "(", "1", "0", ok}, "ERROR IN X_BEG EDIT BOX:\n", B::kXBegin, true},
        {{"1", "x", "1", "0", ok}, "ERROR IN X_END EDIT BOX:\n", B::kXEnd, true},
        {{"pi", "pi", "y", "0", ok}, "X BEG MUST BE LESS THAN X END", B::kXEnd, false},
        {{"-pi", "2*pi", "x", "0", ok}, "ERROR IN Y BEG EDIT BOX:\n", B::kYBegin, true},
        {{"-1", "1", "1", "x", ok}, "ERROR IN Y END EDIT BOX:\n", B::kYEnd, true},
        {{"-1", "1", "2", "1", "z+"}, "Y BEG MUST BE LESS THAN Y END", B::kYEnd, false},
        {{"-1", "1", "-1", "1", "x+*y"}, "ERROR IN FORMULA EDIT BOX:\n", B::kFormula, true},
        {{"-1", "pi", "-2", "1/2", ok}, nullptr, B::kXBegin, true},
    };
    for (const auto& [texts, message, box, explained] : cases) {
        SCOPED_TRACE(texts.xBegin + " " + texts.yEnd + " " + texts.formula);
        Formula formula;
        const TwoVariableEntries entries = checkTwoVariableEntries(formula, texts);
        if (message == nullptr) {
            ASSERT_FALSE(entries.refusal);
            EXPECT_EQ(std::tuple(entries.xBegin, entries.xEnd, entries.yBegin, entries.yEnd),
                      std::tuple(-1.0, kPi, -2.0, 0.5));
            continue;
        }
        ASSERT_TRUE(entries.refusal);
        EXPECT_EQ(entries.refusal->message.rfind(message, 0), 0u) << entries.refusal->message;
        EXPECT_EQ(std::pair(entries.refusal->box, entries.refusal->explained),
                  std::pair(box, explained));
    }
}

}  // namespace
}  // namespace curvemill
