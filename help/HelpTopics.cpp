#include "help/HelpTopics.h"

#include <array>
#include <cstdio>

#include "failure/ProcedureNames.h"

namespace curvemill {

namespace {

// Topic numbers by subject; the archive's contents list them in this order of subjects.
namespace topic {
constexpr int kGettingStarted = 1;
constexpr int kFormulas = 2;
constexpr int kNumbers = 4;
constexpr int kFormulaMessages = 5;
constexpr int kFunctionDialog = 7;
constexpr int kGraph = 9;
constexpr int kZoom = 10;
constexpr int kTwoDCustomization = 11;
constexpr int kIntegral = 12;
constexpr int kValues = 13;
constexpr int kExtremeValues = 14;
constexpr int kDerivative = 15;
constexpr int kEquations = 17;
constexpr int kThreeDGraphs = 18;
constexpr int kLogarithms = 19;
constexpr int kThreeDView = 20;
constexpr int kThreeDColours = 21;
constexpr int kThreeDCustomization = 23;
constexpr int kHistory = 24;
constexpr int kHistoryEditing = 25;
constexpr int kEntriesFile = 26;
constexpr int kSaveAsFile = 27;
constexpr int kPrinting = 28;
constexpr int kMenus = 29;
constexpr int kFailures = 32;
constexpr int kParametricCurves = 33;
constexpr int kPolarCurves = 34;
}  // namespace topic

constexpr HelpLink to(int number, std::string_view anchor = {}) {
    return HelpLink{number, anchor};
}

// Every window that can ask for help has a row of its own; controls whose subject differs from
// their window's have rows too. Windows still to come find their rows here already.
constexpr std::array kPlaces{
    HelpPlace{kProcMainWindow, "", to(topic::kMenus)},
    HelpPlace{kProcMainWindow, "titlePage", to(topic::kGettingStarted)},
    HelpPlace{kProcMainWindow, "graphCanvas", to(topic::kGraph)},
    HelpPlace{kProcMainWindow, "horizontalScrollBar", to(topic::kZoom)},
    HelpPlace{kProcMainWindow, "verticalScrollBar", to(topic::kZoom)},
    HelpPlace{kProcMainWindow, "40054", to(topic::kMenus, "switch")},
    HelpPlace{kProcTwoDGraphDialog, "", to(topic::kFunctionDialog)},
    HelpPlace{kProcTwoDGraphDialog, "1003", to(topic::kFormulas)},
    HelpPlace{kProcTwoDGraphDialog, "1000", to(topic::kNumbers)},
    HelpPlace{kProcTwoDGraphDialog, "1002", to(topic::kNumbers)},
    HelpPlace{kProcTwoDGraphDialog, "1063", to(topic::kHistory)},
    HelpPlace{kProcTwoDGraphDialog, "1037", to(topic::kHistory)},
    HelpPlace{kProcTwoDGraphDialog, "error1003", to(topic::kFormulaMessages)},
    HelpPlace{kProcTwoDGraphDialog, "error1000", to(topic::kFormulaMessages)},
    HelpPlace{kProcTwoDGraphDialog, "error1002", to(topic::kFormulaMessages)},
    HelpPlace{kProcLogBaseDialog, "", to(topic::kLogarithms, "logbase")},
    HelpPlace{kProcInformationDialog, "", to(topic::kValues)},
    HelpPlace{kProcInformationDialog, "equationInformation", to(topic::kEquations)},
    HelpPlace{kProcTwoDCustomizationDialog, "", to(topic::kTwoDCustomization)},
    HelpPlace{kProcEquationMathDialog, "", to(topic::kEquations)},
    HelpPlace{kProcMathDialog, "", to(topic::kIntegral)},
    HelpPlace{kProcMathDialog, "extremeValues", to(topic::kExtremeValues)},
    HelpPlace{kProcMathDialog, "1075", to(topic::kDerivative)},
    HelpPlace{kProcMathDialog, "1076", to(topic::kDerivative)},
    HelpPlace{kProcTextFindDialog, "", to(topic::kHistoryEditing)},
    HelpPlace{kProcLoadingDialog, "", to(topic::kEntriesFile)},
    HelpPlace{kProcPreviewWindow, "", to(topic::kPrinting)},
    HelpPlace{kProcPrinterHook, "", to(topic::kPrinting)},
    HelpPlace{kProcHistoryWindow, "", to(topic::kHistory)},
    HelpPlace{kProcSaveToFileDialog, "", to(topic::kSaveAsFile)},
    HelpPlace{kProcEquationWindow, "", to(topic::kEquations)},
    HelpPlace{kProcEquationWindow, "ThreeD", to(topic::kThreeDGraphs)},
    HelpPlace{kProcEquationWindow, "1117", to(topic::kNumbers)},
    HelpPlace{kProcEquationWindow, "1119", to(topic::kNumbers)},
    HelpPlace{kProcEquationWindow, "1120", to(topic::kNumbers)},
    HelpPlace{kProcEquationWindow, "1121", to(topic::kNumbers)},
    HelpPlace{kProcEquationWindow, "1122", to(topic::kFormulas)},
    HelpPlace{kProcEquationWindow, "error1117", to(topic::kFormulaMessages)},
    HelpPlace{kProcEquationWindow, "error1119", to(topic::kFormulaMessages)},
    HelpPlace{kProcEquationWindow, "error1120", to(topic::kFormulaMessages)},
    HelpPlace{kProcEquationWindow, "error1121", to(topic::kFormulaMessages)},
    HelpPlace{kProcEquationWindow, "error1122", to(topic::kFormulaMessages)},
    HelpPlace{kProcThreeDCustomizationDialog, "", to(topic::kThreeDCustomization)},
    HelpPlace{kProcThreeDColorsDialog, "", to(topic::kThreeDColours)},
    HelpPlace{kProcThreeDVisualEffectsDialog, "", to(topic::kThreeDColours)},
    HelpPlace{kProcAboutDialog, "", to(kHelpHomeTopic)},
    HelpPlace{kProcTooltipMessageDialog, "", to(topic::kMenus)},
    HelpPlace{kProcThreeDRotationDialog, "", to(topic::kThreeDView)},
    HelpPlace{kProcThreeDGrid, "", to(topic::kThreeDCustomization)},
    HelpPlace{kProcTest, "", to(topic::kFailures)},
    // One procedure serves both curve windows and their Math tools: the windows are told apart by
    // their names, the tools (named by neither) share the parametric topic's section on them.
    HelpPlace{kProcCurveWindow, "", to(topic::kParametricCurves, "tools")},
    HelpPlace{kProcCurveWindow, "ParametricCurve", to(topic::kParametricCurves)},
    HelpPlace{kProcCurveWindow, "PolarCurve", to(topic::kPolarCurves)},
    HelpPlace{kProcCurveWindow, "error1300", to(topic::kFormulaMessages)},
    HelpPlace{kProcCurveWindow, "error1301", to(topic::kFormulaMessages)},
    HelpPlace{kProcCurveWindow, "error1302", to(topic::kFormulaMessages)},
    HelpPlace{kProcCurveWindow, "error1303", to(topic::kFormulaMessages)},
    HelpPlace{kProcCurveWindow, "error1320", to(topic::kFormulaMessages)},
    HelpPlace{kProcCurveWindow, "error1321", to(topic::kFormulaMessages)},
    HelpPlace{kProcCurveWindow, "error1322", to(topic::kFormulaMessages)},
};

}  // namespace

std::string helpTopicFile(int topic, std::string_view anchor) {
    if (topic < 1 || topic > kHelpTopicCount) {
        return {};
    }
    char name[32];
    std::snprintf(name, sizeof name, "file%d.htm", topic);
    std::string file = name;
    if (!anchor.empty()) {
        file += '#';
        file += anchor;
    }
    return file;
}

std::string helpTopicAddress(int topic, std::string_view anchor) {
    const std::string file = helpTopicFile(topic, anchor);
    if (file.empty()) {
        return {};
    }
    std::string address = "qthelp://";
    address += kHelpNamespace;
    address += '/';
    address += kHelpFolder;
    address += '/';
    return address + file;
}

std::span<const HelpPlace> helpPlaces() {
    return kPlaces;
}

std::optional<HelpLink> exactHelpLink(std::string_view window, std::string_view control) {
    for (const HelpPlace& place : kPlaces) {
        if (place.window == window && place.control == control) {
            return place.link;
        }
    }
    return std::nullopt;
}

std::optional<HelpLink> helpLinkFor(std::string_view window, std::string_view control) {
    if (!control.empty()) {
        if (auto link = exactHelpLink(window, control)) {
            return link;
        }
    }
    return exactHelpLink(window, {});
}

}  // namespace curvemill
