// The topic table and the rules of a help request, without Qt.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "failure/ProcedureNames.h"
#include "help/HelpArchive.h"
#include "help/HelpTopics.h"

using namespace curvemill;

TEST(HelpTopicFile, NamesTopicsAndAnchorsAndRefusesNumbersOutsideTheArchive) {
    struct Case {
        int topic;
        const char* anchor;
        std::string file;
    };
    for (const Case& c :
         {Case{1, "", "file1.htm"}, Case{16, "", "file16.htm"}, Case{34, "", "file34.htm"},
          Case{19, "logbase", "file19.htm#logbase"}, Case{29, "switch", "file29.htm#switch"},
          Case{0, "", ""}, Case{35, "", ""}, Case{-1, "logbase", ""}}) {
        SCOPED_TRACE(c.topic);
        EXPECT_EQ(helpTopicFile(c.topic, c.anchor), c.file);
    }
    EXPECT_EQ(helpTopicAddress(19, "logbase"),
              "qthelp://org.curvemill.help/doc/file19.htm#logbase");
    EXPECT_EQ(helpTopicAddress(40), "");
}

// Every window and dialog that reports under a name of its own can ask for help; the start-up
// sequence and the mouse hooks are no windows, so they are not listed.
TEST(HelpTable, EveryWindowHasATopicInsideTheArchive) {
    const ProcedureName names[] = {kProcMainWindow,
                                   kProcPrinterHook,
                                   kProcLogBaseDialog,
                                   kProcTwoDGraphDialog,
                                   kProcInformationDialog,
                                   kProcTwoDCustomizationDialog,
                                   kProcEquationMathDialog,
                                   kProcMathDialog,
                                   kProcTextFindDialog,
                                   kProcLoadingDialog,
                                   kProcPreviewWindow,
                                   kProcHistoryWindow,
                                   kProcSaveToFileDialog,
                                   kProcEquationWindow,
                                   kProcThreeDCustomizationDialog,
                                   kProcThreeDColorsDialog,
                                   kProcThreeDVisualEffectsDialog,
                                   kProcAboutDialog,
                                   kProcTooltipMessageDialog,
                                   kProcThreeDRotationDialog,
                                   kProcThreeDGrid,
                                   kProcCurveWindow};
    for (ProcedureName name : names) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(exactHelpLink(name, {}).has_value());
    }
    std::set<std::pair<std::string, std::string>> keys;
    for (const HelpPlace& place : helpPlaces()) {
        SCOPED_TRACE(std::string(place.window) + "/" + std::string(place.control));
        EXPECT_FALSE(helpTopicFile(place.link.topic, place.link.anchor).empty());
        EXPECT_TRUE(keys.emplace(place.window, place.control).second) << "row given twice";
    }
}

TEST(HelpTable, AControlWithoutARowOfItsOwnGetsItsWindowsTopic) {
    EXPECT_EQ(helpLinkFor(kProcTwoDGraphDialog, "1003")->topic, 2);
    EXPECT_EQ(helpLinkFor(kProcTwoDGraphDialog, "error1003")->topic, 5);
    EXPECT_EQ(helpLinkFor(kProcTwoDGraphDialog, "1014")->topic, 7);
    EXPECT_EQ(helpLinkFor(kProcTwoDGraphDialog)->topic, 7);
    EXPECT_EQ(helpLinkFor(kProcLogBaseDialog)->anchor, "logbase");
    EXPECT_EQ(helpLinkFor(kProcMainWindow, "40054")->anchor, "switch");
    // The curves' Math tools carry no name of either window: their shared section.
    EXPECT_EQ(helpLinkFor(kProcCurveWindow, "1321")->anchor, "tools");
    EXPECT_FALSE(helpLinkFor("No Such Procedure", "1003").has_value());
    EXPECT_FALSE(exactHelpLink(kProcTwoDGraphDialog, "1014").has_value());
}

TEST(HelpArchiveOnce, AFailedOpenIsNeverTriedAgainAndASuccessfulOneIsKept) {
    for (const bool opens : {false, true}) {
        SCOPED_TRACE(opens);
        int tries = 0;
        HelpArchiveOnce archive([&] {
            ++tries;
            return opens;
        });
        for (int request = 0; request < 3; ++request) {
            EXPECT_EQ(archive.ready(), opens);
        }
        EXPECT_EQ(tries, 1);
        EXPECT_EQ(archive.failed(), !opens);
    }
}

TEST(HelpArchiveCandidates, BesideTheProgramThenItsInstalledDataThenABuildTree) {
    EXPECT_EQ(helpArchiveCandidates("/usr/bin/"),
              (std::vector<std::string>{"/usr/bin/CurveMillHelp.qch",
                                        "/usr/bin/../share/curvemill/CurveMillHelp.qch",
                                        "/usr/bin/../../share/curvemill/CurveMillHelp.qch",
                                        "/usr/bin/../help/CurveMillHelp.qch"}));
    EXPECT_EQ(helpArchiveCandidates("").front(), "./CurveMillHelp.qch");
}
