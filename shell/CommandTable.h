// The one table of the main window's commands: menus, accelerators and toolbar buttons.
#pragma once

#include <span>
#include <string_view>

namespace curvemill {

// Command identifiers, as the command groups bind them.
namespace cmd {
inline constexpr int kTwoDGraph = 40009;
inline constexpr int kSecondFunction = 40051;
inline constexpr int kSwitchFunctions = 40054;
inline constexpr int kEquation = 40086;
inline constexpr int kThreeDGraph = 40091;
inline constexpr int kSaveAsFile = 40030;
inline constexpr int kPrint = 40018;
inline constexpr int kSaveNewEntries = 40093;
inline constexpr int kReturnToTitle = 40110;
inline constexpr int kExit = 40032;
inline constexpr int kStretch = 40049;
inline constexpr int kUndoStretch = 40050;
inline constexpr int kCopy = 40052;
inline constexpr int kZoomInX = 40003;
inline constexpr int kZoomInY = 40004;
inline constexpr int kZoomInBoth = 40005;
inline constexpr int kZoomOutX = 40006;
inline constexpr int kZoomOutY = 40007;
inline constexpr int kZoomOutBoth = 40008;
inline constexpr int kRestoreZoom = 40126;
inline constexpr int kFitToWindow = 40201;
inline constexpr int kDrawGrid = 40010;
inline constexpr int kGridProperties = 40133;
inline constexpr int kMathDialog = 40012;
inline constexpr int kInformation = 40200;
inline constexpr int kEraseIntegral = 40029;
inline constexpr int kEraseDerivative = 40031;
inline constexpr int kUnmarkIndefinite = 40033;
inline constexpr int kCalculator = 40140;
inline constexpr int kTwoDCustomization = 40123;
inline constexpr int kThreeDCustomization = 40139;
inline constexpr int kShowDrawingProcess = 40130;
inline constexpr int kThreeDRotation = 40114;
inline constexpr int kHelpTopics = 40115;
inline constexpr int kAbout = 40132;
inline constexpr int kReturnToTitleButton = 40111;
inline constexpr int kMouseMove = 40063;
inline constexpr int kMouseSelect = 40064;
inline constexpr int kRotateRight = 40101;
inline constexpr int kRotateLeft = 40102;
inline constexpr int kDemoFailure = 1033;
inline constexpr int kFind = 40022;
inline constexpr int kDeleteItem = 40021;
inline constexpr int kContextHelp = 40109;
inline constexpr int kFindNext = 40023;
}  // namespace cmd

// Where a command appears.
enum class CommandPlace {
    Menu,            // in `menu`, on the toolbar too when it has a tooltip
    ToolbarOnly,     // a toolbar button without a menu entry
    AcceleratorOnly  // a key without a menu entry or button
};

struct CommandRow {
    int id;
    CommandPlace place;
    // Menu path: "File", "Zoom/Zoom In"; empty for a top-level entry or a command without menu.
    std::string_view menu;
    // Menu text as it stands ("Copy\tCtrl+C" keeps its key hint); for toolbar-only commands the
    // name the button is known by.
    std::string_view text;
    // Key sequence in portable text ("Ctrl+C", "Del", "F3"), empty for none.
    std::string_view key;
    // Toolbar tooltip; a command with one has a toolbar button.
    std::string_view tooltip;
};

// Every command in menu order, then the toolbar-only and accelerator-only ones.
std::span<const CommandRow> commandTable();

// The row of `id`, or null.
const CommandRow* findCommand(int id);

// Menu text without its key hint ("Copy\tCtrl+C" gives "Copy").
std::string_view menuLabel(const CommandRow& row);

}  // namespace curvemill
