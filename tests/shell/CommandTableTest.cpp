#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "shell/ui/CalculatorLookup.h"
#include "shell/CommandState.h"
#include "shell/CommandTable.h"
#include "shell/Mnemonics.h"
#include "tests/support/TempDirectory.h"

namespace curvemill {
namespace {

TEST(Mnemonics, OneLetterEachWordStartsFirstTextsUnchanged) {
    struct Row {
        std::vector<std::string> labels, marked;
    };
    const std::vector<Row> rows{
        {{"File", "Selection", "Zoom"}, {"&File", "&Selection", "&Zoom"}},
        // Taken word starts fall back to the next word, then to any letter.
        {{"Save As File", "Save New Entries", "Stop"},
         {"&Save As File", "Save &New Entries", "S&top"}},
        {{"X axis", "X axis", "X axis"}, {"&X axis", "X &axis", "X ax&is"}},
        // Case does not make a second letter; a key hint and a literal '&' are kept as they are.
        {{"a", "A", "Copy\tCtrl+C", "R&D"}, {"&a", "A", "&Copy\tCtrl+C", "&R&&D"}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(assignMnemonics(row.labels), row.marked);
    }
}

TEST(CommandTable, IdsAndKeysAreUniqueAndMenuEntriesHaveText) {
    std::set<int> ids;
    std::set<std::string_view> keys;
    for (const CommandRow& row : commandTable()) {
        SCOPED_TRACE(row.id);
        EXPECT_TRUE(ids.insert(row.id).second);
        EXPECT_TRUE(row.key.empty() || keys.insert(row.key).second);
        EXPECT_TRUE(row.place != CommandPlace::Menu || !row.text.empty());
        EXPECT_EQ(findCommand(row.id), &row);
    }
    EXPECT_EQ(findCommand(12345), nullptr);
    // Texts kept letter for letter, odd spelling included, and a key hint that is not a label.
    EXPECT_EQ(findCommand(40086)->text, "Equation with 2 Varialbles");
    EXPECT_EQ(findCommand(40052)->key, "Ctrl+C");
    EXPECT_EQ(menuLabel(*findCommand(40052)), "Copy");
}

TEST(CommandState, EnablingFollowsTheGraphOnScreen) {
    const ShellState title{};
    const ShellState full2D{GraphKind::Function2D, true, true, true, true, true, true};
    const ShellState equation{GraphKind::Equation};
    const ShellState surface{GraphKind::Surface3D};
    struct Row {
        int id;
        bool onTitle, onFull2D, onEquation, onSurface;
    };
    // One command per rule: everywhere, any graph, a function only, a surface only.
    const std::vector<Row> rows{
        {40009, true, true, true, true},    {40030, false, true, true, true},
        {40126, false, true, true, true},   {40051, false, true, false, false},
        {40139, false, false, false, true}, {40005, false, true, true, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.id);
        EXPECT_EQ(commandAvailable(row.id, title), row.onTitle);
        EXPECT_EQ(commandAvailable(row.id, full2D), row.onFull2D);
        EXPECT_EQ(commandAvailable(row.id, equation), row.onEquation);
        EXPECT_EQ(commandAvailable(row.id, surface), row.onSurface);
    }
    // Entries that wait for something on the graph.
    const ShellState plain2D{GraphKind::Function2D};
    EXPECT_FALSE(commandAvailable(40054, plain2D));
    EXPECT_FALSE(commandAvailable(40031, plain2D));
    ShellState painted{GraphKind::Function2D};
    painted.areaPainted = true;
    EXPECT_TRUE(commandAvailable(40029, painted));
    EXPECT_FALSE(commandAvailable(40031, painted));
}

TEST(CommandState, ZoomEntriesFollowTheLimitsAndTheStretchStack) {
    // State: can zoom in X, in Y, out X, out Y, stretch, undo stretch. Enabled: 40003..40008,
    // 40049, 40050.
    const std::pair<std::string, std::string> rows[] = {
        {"111100", "11111100"},  // at zoom 1
        {"011110", "01111110"},  // X at its top, a selection
        {"001101", "00011101"},  // both at the top, a stretch to undo
        {"111000", "11110100"},  // Y at its bottom
    };
    const int ids[] = {40003, 40004, 40005, 40006, 40007, 40008, 40049, 40050};
    for (const auto& [flags, enabled] : rows) {
        SCOPED_TRACE(flags);
        ShellState state{GraphKind::Function2D};
        bool* fields[] = {&state.canZoomInX,  &state.canZoomInY, &state.canZoomOutX,
                          &state.canZoomOutY, &state.canStretch, &state.canUndoStretch};
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            *fields[i] = flags[i] == '1';
        }
        for (std::size_t i = 0; i < std::size(ids); ++i) {
            EXPECT_EQ(commandEnabled(*findCommand(ids[i]), state), enabled[i] == '1') << ids[i];
        }
        state.kind = GraphKind::Surface3D;
        EXPECT_FALSE(commandEnabled(*findCommand(40049), state));
    }
}

TEST(CommandState, SecondFunctionAndGridEntriesChangeTheirWords) {
    ShellState state{GraphKind::Function2D};
    const CommandRow& second = *findCommand(cmd::kSecondFunction);
    const CommandRow& grid = *findCommand(cmd::kDrawGrid);
    EXPECT_EQ(commandLook(second, state).text, "Add Another Function");
    EXPECT_EQ(commandLook(second, state).tooltip, "ADD SECOND FUNCTION");
    EXPECT_EQ(commandLook(grid, state).tooltip, "DRAW GRID");
    state.hasSecondFunction = true;
    state.gridOn = true;
    EXPECT_EQ(commandLook(second, state).text, "Erase Another Function");
    EXPECT_EQ(commandLook(second, state).tooltip, "ERASE SECOND FUNCTION");
    EXPECT_EQ(commandLook(grid, state).text, "Draw Grid");
    EXPECT_EQ(commandLook(grid, state).tooltip, "ERASE GRID");
}

class CalculatorLocatorTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::filesystem::create_directories(root / "a");
        std::filesystem::create_directories(root / "b");
    }
    void makeProgram(const std::string& relative, bool executable) {
        std::ofstream(root / relative) << "#!/bin/sh\n";
        ::chmod((root / relative).c_str(), executable ? 0755 : 0644);
    }
    std::string path() const { return (root / "a").string() + ":" + (root / "b").string(); }
    testing::TempDirectory folder;
    std::filesystem::path root = folder.path();
};

TEST_F(CalculatorLocatorTest, FirstProgramOfTheListWinsOverDirectoryOrder) {
    EXPECT_EQ(findCalculator(path()), "");
    makeProgram("a/xcalc", true);
    makeProgram("b/kcalc", false);  // not executable: skipped
    std::filesystem::create_directories(root / "a" / "gnome-calculator");  // a directory
    EXPECT_EQ(findCalculator(path()), (root / "a" / "xcalc").string());
    makeProgram("b/galculator", true);
    EXPECT_EQ(findCalculator(path()), (root / "b" / "galculator").string());
    EXPECT_EQ(findCalculator(""), "");
}

// A help paragraph that calls commands grey names them in bold and says when; each is grey then.
TEST(CommandState, CommandsTheHelpCallsGreyAreGrey) {
    ShellState unchanged{GraphKind::Function2D};
    unchanged.historyWired = true;
    const std::pair<std::string, ShellState> conditions[] = {
        {"grey while a surface is shown", ShellState{GraphKind::Surface3D}},
        {"grey while nothing has changed", unchanged},
        {"grey on the title page", ShellState{}},
    };
    const std::regex paragraph(R"(<(p|li)[ >]([\s\S]*?)</\1>)"), bold(R"(<b>([^<]*)</b>)");
    int checked = 0;
    for (const auto& file : std::filesystem::directory_iterator(CURVEMILL_HELP_DIR)) {
        if (file.path().extension() != ".htm") {
            continue;
        }
        std::ifstream in(file.path());
        const std::string text{std::istreambuf_iterator<char>(in), {}};
        for (std::sregex_iterator p(text.begin(), text.end(), paragraph), end; p != end; ++p) {
            std::string body = std::regex_replace((*p)[2].str(), std::regex(R"(\s+)"), " ");
            const bool names = body.find("<b>") != std::string::npos;
            const auto condition = std::find_if(
                std::begin(conditions), std::end(conditions),
                [&](const auto& c) { return body.find(c.first) != std::string::npos; });
            if (body.find("grey") == std::string::npos ||
                (!names && condition == std::end(conditions))) {
                continue;
            }
            SCOPED_TRACE(file.path().filename().string() + ": " + body);
            ASSERT_NE(condition, std::end(conditions)) << "a grey paragraph says not when";
            ASSERT_TRUE(names) << "a grey paragraph names its commands in bold";
            for (std::sregex_iterator b(body.begin(), body.end(), bold); b != end; ++b) {
                std::string name = (*b)[1].str();
                name = name.substr(
                    name.rfind("&gt; ") == std::string::npos ? 0 : name.rfind("&gt; ") + 5);
                int rows = 0;
                for (const CommandRow& row : commandTable()) {
                    if (menuLabel(row) == name || row.tooltip == name) {
                        ++rows;
                        EXPECT_FALSE(commandAvailable(row.id, condition->second)) << name;
                    }
                }
                EXPECT_GT(rows, 0) << name << " is no command";
                checked += rows;
            }
        }
    }
    EXPECT_GE(checked, 10);
}

}  // namespace
}  // namespace curvemill
