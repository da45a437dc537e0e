#include <optional>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "engine/DisplayFormat.h"
#include "engine/Formula.h"
#include "engine/NumberEntry.h"
#include "graph2d/GraphEntries.h"

namespace curvemill {
namespace {

// Every refusal of the Function dialog, in its order; the dialog and the commands only wire it.
TEST(GraphEntries, TheFirstFailureInTheDialogsOrder) {
    const struct {
        const char* begin;
        const char* end;
        const char* formula;
        const char* mainFormula;  // nullptr: the main function's dialog
        const char* message;      // nullptr: accepted
        GraphEntryBox box;
        bool explained;
    } cases[] = {
        {"2*x", "", "log(x)", nullptr, "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT",
         GraphEntryBox::kXBegin, true},
        {"1", "", "x", nullptr, "ERROR IN X_END EDIT BOX:\nBOX IS EMPTY", GraphEntryBox::kXEnd,
         true},
        {"1", "1", "sin(", nullptr, "X_BEG MUST BE LESS THAN X_END", GraphEntryBox::kXBegin, false},
        {"-1", "1", "x ^ 2", "x^2", "YOU MUST SELECT A DIFFERENT FUNCTION", GraphEntryBox::kFormula,
         false},
        // Strict: the lenient check lets an open bracket through, the history could not load it.
        {"-1", "1", "log(x", nullptr, "ERROR IN FORMULA EDIT BOX:\nBRACKETS DO NOT MATCH",
         GraphEntryBox::kFormula, true},
        {"-pi", "pi", "x^3", "x^2", nullptr, GraphEntryBox::kXBegin, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.begin << " | " << c.end << " | " << c.formula);
        Formula formula;
        NumberBox begin("X_BEG"), end("X_END");
        begin.setText(c.begin);
        end.setText(c.end);
        bool askedLogBase = false;
        const GraphEntries entries = checkGraphEntries(
            formula, begin, end, c.formula,
            c.mainFormula ? std::optional<std::string_view>(c.mainFormula) : std::nullopt,
            [&] { askedLogBase = true; });
        // "Log Base" comes up before the formula check, never for a refused range.
        EXPECT_EQ(askedLogBase, c.box == GraphEntryBox::kFormula && c.explained &&
                                    std::string(c.formula).find("log") != std::string::npos);
        if (c.message == nullptr) {
            ASSERT_FALSE(entries.refusal);
            EXPECT_EQ(std::pair(entries.xBegin, entries.xEnd), std::pair(-kPi, kPi));
            continue;
        }
        ASSERT_TRUE(entries.refusal);
        EXPECT_EQ(
            std::tuple(entries.refusal->message, entries.refusal->box, entries.refusal->explained),
            std::tuple(std::string(c.message), c.box, c.explained));
    }
}

}  // namespace
}  // namespace curvemill
