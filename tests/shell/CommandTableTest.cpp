#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "shell/CommandState.h"
#include "shell/CommandTable.h"
#include "shell/Mnemonics.h"
#include "shell/ui/CalculatorLookup.h"
#include "tests/support/TempDirectory.h"

namespace curvemill {
namespace {

TEST(Mnemonics, OneLetterEachWordStartsFirstTextsUnchanged) {
    using Labels = std::vector<std::string>;
    const std::pair<Labels, Labels> rows[] = {
        {{"File", "Selection", "Zoom"}, {"&File", "&Selection", "&Zoom"}},
        // Taken word starts fall back to the next word, then to any letter.
        {{"Save As File", "Save New Entries", "Stop"},
         {"&Save As File", "Save &New Entries", "S&top"}},
        {{"X axis", "X axis", "X axis"}, {"&X axis", "X &axis", "X ax&is"}},
        // Case does not make a second letter; a key hint and a literal '&' are kept as they are.
        {{"a", "A", "Copy\tCtrl+C", "R&D"}, {"&a", "A", "&Copy\tCtrl+C", "&R&&D"}},
    };
    for (const auto& [labels, marked] : rows) {
        EXPECT_EQ(assignMnemonics(labels), marked);
    }
}

// Every command has its own number and key; every menu entry has text and a letter of its own in
// its menu.
TEST(CommandTable, IdsKeysAndAccessKeysAreUnique) {
    std::set<int> ids;
    std::set<std::string_view> keys;
    std::map<std::string_view, std::vector<std::string>> menus;
    for (const CommandRow& row : commandTable()) {
        SCOPED_TRACE(row.id);
        EXPECT_TRUE(ids.insert(row.id).second);
        EXPECT_TRUE(row.key.empty() || keys.insert(row.key).second);
        EXPECT_EQ(findCommand(row.id), &row);
        EXPECT_EQ(&commandRow(row.command), &row);
        if (row.place == CommandPlace::Menu) {
            menus[row.menu].emplace_back(menuLabel(row));
        }
    }
    EXPECT_EQ(findCommand(12345), nullptr);
    for (const auto& [menu, labels] : menus) {
        std::set<char> letters;
        for (const std::string& marked : assignMnemonics(labels)) {
            const std::size_t at = marked.find('&');
            ASSERT_LT(at + 1, marked.size()) << marked;
            EXPECT_TRUE(letters.insert(static_cast<char>(std::tolower(marked[at + 1]))).second)
                << menu << ": " << marked;
        }
    }
}

// A few characteristic rows of the availability column: everywhere, any graph, a flat graph, a
// function only, a surface only, and entries that wait for something on the graph.
TEST(CommandState, AvailabilityFollowsTheGraphOnScreen) {
    ShellState function{GraphKind::Function2D};
    function.canZoomInX = false;
    // On the title page, a function, an equation, a surface.
    const std::tuple<Command, bool, bool, bool, bool> rows[] = {
        {Command::TwoDGraph, true, true, true, true},
        {Command::SaveAsFile, false, true, true, true},
        {Command::FitToWindow, false, true, true, false},
        {Command::SecondFunction, false, true, false, false},
        {Command::RotateLeft, false, false, false, true},
        {Command::ZoomInBoth, false, true, true, true},
        {Command::ZoomInX, false, false, true, false},
        {Command::SwitchFunctions, false, false, false, false},
        {Command::EraseIntegral, false, false, false, false},
    };
    for (const auto& [command, onTitle, onFunction, onEquation, onSurface] : rows) {
        SCOPED_TRACE(commandRow(command).id);
        EXPECT_EQ(commandAvailable(command, ShellState{}), onTitle);
        EXPECT_EQ(commandAvailable(command, function), onFunction);
        EXPECT_EQ(commandAvailable(command, ShellState{GraphKind::Equation}), onEquation);
        EXPECT_EQ(commandAvailable(command, ShellState{GraphKind::Surface3D}), onSurface);
    }
    function.hasSecondFunction = true;
    function.areaPainted = true;
    EXPECT_TRUE(commandAvailable(Command::SwitchFunctions, function));
    EXPECT_TRUE(commandAvailable(Command::EraseIntegral, function));
}

TEST(CalculatorLocator, FirstProgramOfTheListWinsOverDirectoryOrder) {
    const testing::TempDirectory folder;
    const std::filesystem::path& root = folder.path();
    std::filesystem::create_directories(root / "a");
    std::filesystem::create_directories(root / "b");
    const auto makeProgram = [&root](const std::string& relative, bool executable) {
        std::ofstream(root / relative) << "#!/bin/sh\n";
        ::chmod((root / relative).c_str(), executable ? 0755 : 0644);
    };
    const std::string path = (root / "a").string() + ":" + (root / "b").string();
    EXPECT_EQ(findCalculator(path), "");
    makeProgram("a/xcalc", true);
    makeProgram("b/kcalc", false);  // not executable: skipped
    std::filesystem::create_directories(root / "a" / "gnome-calculator");  // a directory
    EXPECT_EQ(findCalculator(path), (root / "a" / "xcalc").string());
    makeProgram("b/galculator", true);
    EXPECT_EQ(findCalculator(path), (root / "b" / "galculator").string());
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
                        EXPECT_FALSE(row.available(condition->second)) << name;
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
