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
    // X begin, X end, formula, the main function's (nullptr: the main function's dialog), the
    // message (nullptr: accepted), its box, explained.
    const std::tuple<const char*, const char*, const char*, const char*, const char*, GraphEntryBox,
                     bool>
        cases[] = {
            {"2*x", "", "log(x)", nullptr, "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT",
             GraphEntryBox::kXBegin, true},
            {"1", "", "x", nullptr, "ERROR IN X_END EDIT BOX:\nBOX IS EMPTY", GraphEntryBox::kXEnd,
             true},
            {"1", "1", "sin(", nullptr, "X_BEG MUST BE LESS THAN X_END", GraphEntryBox::kXBegin,
             false},
            {"-1", "1", "x ^ 2", "x^2", "YOU MUST SELECT A DIFFERENT FUNCTION",
             GraphEntryBox::kFormula, false},
            // Strict: the lenient check passes an open bracket the history could not load.
            {"-1", "1", "log(x", nullptr, "ERROR IN FORMULA EDIT BOX:\nBRACKETS DO NOT MATCH",
             GraphEntryBox::kFormula, true},
            {"-pi", "pi", "x^3", "x^2", nullptr, GraphEntryBox::kXBegin, true},
        };
    for (const auto& [from, to, typed, mainFormula, message, box, explained] : cases) {
        SCOPED_TRACE(testing::Message() << from << " | " << to << " | " << typed);
        Formula formula;
        NumberBox begin("X_BEG"), end("X_END");
        begin.setText(from);
        end.setText(to);
        bool askedLogBase = false;
        const GraphEntries entries = checkGraphEntries(
            formula, begin, end, typed,
            mainFormula ? std::optional<std::string_view>(mainFormula) : std::nullopt,
            [&] { askedLogBase = true; });
        // "Log Base" comes up before the formula check, never for a refused range.
        EXPECT_EQ(askedLogBase, box == GraphEntryBox::kFormula && explained &&
                                    std::string(typed).find("log") != std::string::npos);
        if (message == nullptr) {
            ASSERT_FALSE(entries.refusal);
            EXPECT_EQ(std::pair(entries.xBegin, entries.xEnd), std::pair(-kPi, kPi));
            continue;
        }
        ASSERT_TRUE(entries.refusal);
        EXPECT_EQ(
            std::tuple(entries.refusal->message, entries.refusal->box, entries.refusal->explained),
            std::tuple(std::string(message), box, explained));
    }
}

}  // namespace
}  // namespace curvemill
