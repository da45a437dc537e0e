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

#include "shell/CalculatorLocator.h"
#include "shell/CommandState.h"
#include "shell/CommandTable.h"
#include "shell/Mnemonics.h"

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

TEST(CommandTable, EveryCommandHasItsTextKeyAndTooltip) {
    struct Row {
        int id;
        std::string_view menu, text, key, tooltip;
    };
    const std::vector<Row> rows{
        {40009, "File", "Two D Graph", "", "FUNCTION"},
        {40051, "File", "Add Another Function", "", "ADD SECOND FUNCTION"},
        {40054, "File", "Switch Functions", "", "SWITCH FUNCTIONS"},
        {40086, "File", "Equation with 2 Varialbles", "", "EQUATION WITH TWO VARIABLES"},
        {40091, "File", "Three D Graph", "", "THREE D FUNCTION F (X, Y)"},
        {40030, "File", "Save As File", "", "SAVE TO FILE"},
        {40018, "File", "Print", "", "PRINT"},
        {40093, "File", "Save New Entries", "", ""},
        {40110, "File", "Return To Title Page", "", ""},
        {40032, "File", "Exit", "", ""},
        {40049, "Selection", "Stretch", "", ""},
        {40050, "Selection", "Undo Stretch", "", ""},
        {40052, "Selection", "Copy\tCtrl+C", "Ctrl+C", "COPY SELECTION"},
        {40003, "Zoom/Zoom In", "X axis", "", ""},
        {40004, "Zoom/Zoom In", "Y axis", "", ""},
        {40005, "Zoom/Zoom In", "Both", "", "ZOOM IN"},
        {40006, "Zoom/Zoom Out", "X axis", "", ""},
        {40007, "Zoom/Zoom Out", "Y axis", "", ""},
        {40008, "Zoom/Zoom Out", "Both", "", "ZOOM OUT"},
        {40126, "Zoom", "Restore", "", "RESTORE ZOOM"},
        {40201, "Zoom", "Fit To Window", "", "FIT TO WINDOW"},
        {40010, "Grid", "Draw Grid", "", "DRAW GRID"},
        {40133, "Grid", "Grid Properties", "", ""},
        {40012, "Math", "Math Dialog", "", "MATH DIALOG"},
        {40200, "Math", "Information", "", ""},
        {40029, "Math", "Erase Integral", "", ""},
        {40031, "Math", "Erase Derivative", "", ""},
        {40033, "Math", "Unmark Indefinite Areas", "", ""},
        {40140, "Math", "Calculator", "", "OPEN CALCULATOR"},
        {40123, "Customization", "TwoD / Equation Customization", "", ""},
        {40139, "Customization", "ThreeD Customization", "", ""},
        {40130, "Customization", "Show Drawing Process", "", "SHOW DRAWING PROCESS"},
        {40114, "", "ThreeD Rotation", "", ""},
        {40115, "Help", "Help Topics", "", ""},
        {40132, "Help", "About CurveMill", "", ""},
        {40111, "", "", "", "RETURN TO TITLE PAGE"},
        {40063, "", "", "", "MOUSE MOVE"},
        {40064, "", "", "", "MOUSE SELECT"},
        {40101, "", "", "", "ROTATE RIGHT"},
        {40102, "", "", "", "ROTATE LEFT"},
        {1033, "", "", "", "DEMO OF EXCEPTION HANDLING"},
        {40113, "", "", "Ctrl+A", ""},
        {40022, "", "Find", "Ctrl+F", ""},
        {40021, "", "Delete Item", "Del", ""},
        {40109, "", "", "F1", ""},
        {40023, "", "Find Next", "F3", ""},
    };
    ASSERT_EQ(commandTable().size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows[i];
        SCOPED_TRACE(row.id);
        // Table order is menu order.
        EXPECT_EQ(commandTable()[i].id, row.id);
        const CommandRow* found = findCommand(row.id);
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->menu, row.menu);
        if (found->place == CommandPlace::Menu || !row.text.empty()) {
            EXPECT_EQ(found->text, row.text);
        }
        EXPECT_EQ(found->key, row.key);
        EXPECT_EQ(found->tooltip, row.tooltip);
    }
    EXPECT_EQ(menuLabel(*findCommand(40052)), "Copy");
    EXPECT_EQ(findCommand(12345), nullptr);
}

TEST(CommandState, EnablingFollowsTheGraphOnScreen) {
    const ShellState title{};
    ShellState plain2D{GraphKind::Function2D};
    ShellState full2D{GraphKind::Function2D, true, true, true, true, true, true};
    const ShellState equation{GraphKind::Equation};
    const ShellState surface{GraphKind::Surface3D};
    struct Row {
        int id;
        bool onTitle, onPlain2D, onFull2D, onEquation, onSurface;
    };
    const std::vector<Row> rows{
        {40009, true, true, true, true, true},     {40051, false, true, true, false, false},
        {40054, false, false, true, false, false}, {40093, false, false, true, false, false},
        {40110, false, true, true, true, true},    {40111, false, true, true, true, true},
        {40030, false, true, true, true, true},    {40005, false, true, true, true, true},
        {40126, false, true, true, true, true},    {40010, false, true, true, true, true},
        {40012, false, true, true, true, false},   {40029, false, false, true, false, false},
        {40200, false, true, true, true, false},   {40031, false, false, true, false, false},
        {40063, false, true, true, true, false},   {40114, false, false, false, false, true},
        {40101, false, false, false, false, true}, {40003, false, true, true, true, false},
        {40008, false, true, true, true, true},    {40140, true, true, true, true, true},
        {1033, true, true, true, true, true},      {40032, true, true, true, true, true},
        {40022, false, false, true, false, false}, {40086, true, true, true, true, true},
        {40139, false, false, false, false, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.id);
        EXPECT_EQ(commandAvailable(row.id, title), row.onTitle);
        EXPECT_EQ(commandAvailable(row.id, plain2D), row.onPlain2D);
        EXPECT_EQ(commandAvailable(row.id, full2D), row.onFull2D);
        EXPECT_EQ(commandAvailable(row.id, equation), row.onEquation);
        EXPECT_EQ(commandAvailable(row.id, surface), row.onSurface);
    }
    // A painted area is erased with the integral curve.
    ShellState painted{GraphKind::Function2D};
    painted.areaPainted = true;
    EXPECT_TRUE(commandAvailable(40029, painted));
    EXPECT_FALSE(commandAvailable(40031, painted));
    // The 3D customization is for a surface only.
    EXPECT_FALSE(commandEnabled(*findCommand(40139), full2D));
    EXPECT_TRUE(commandEnabled(*findCommand(40139), surface));
    EXPECT_TRUE(commandEnabled(*findCommand(40054), full2D));
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
        root = std::filesystem::temp_directory_path() /
               ("curvemill-calc-" + std::to_string(::getpid()));
        std::filesystem::create_directories(root / "a");
        std::filesystem::create_directories(root / "b");
    }
    void TearDown() override { std::filesystem::remove_all(root); }
    void makeProgram(const std::string& relative, bool executable) {
        std::ofstream(root / relative) << "#!/bin/sh\n";
        ::chmod((root / relative).c_str(), executable ? 0755 : 0644);
    }
    std::string path() const { return (root / "a").string() + ":" + (root / "b").string(); }
    std::filesystem::path root;
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
