// The one table of the main window's commands: menus, accelerators, toolbar buttons and when
// each is available.
#pragma once

#include <span>
#include <string_view>

namespace curvemill {

struct ShellState;

// The commands by name; their numbers are data in the table.
enum class Command {
    TwoDGraph,
    SecondFunction,
    SwitchFunctions,
    Equation,
    ThreeDGraph,
    ParametricCurve,
    PolarCurve,
    OpenGraph,
    RecentGraphs,
    SaveGraph,
    SaveGraphAs,
    SaveAsFile,
    Print,
    SaveNewEntries,
    ReturnToTitle,
    Exit,
    Stretch,
    UndoStretch,
    Copy,
    ZoomInX,
    ZoomInY,
    ZoomInBoth,
    ZoomOutX,
    ZoomOutY,
    ZoomOutBoth,
    RestoreZoom,
    FitToWindow,
    DrawGrid,
    GridProperties,
    MathDialog,
    Information,
    EraseIntegral,
    EraseDerivative,
    UnmarkIndefinite,
    Calculator,
    TwoDCustomization,
    ThreeDCustomization,
    ShowDrawingProcess,
    ThreeDRotation,
    HelpTopics,
    About,
    ReturnToTitleButton,
    MouseMove,
    MouseSelect,
    RotateRight,
    RotateLeft,
    DemoFailure,
    SelectAll,
    Find,
    DeleteItem,
    ContextHelp,
    FindNext,
};

// Where a command appears.
enum class CommandPlace {
    Menu,            // in `menu`, on the toolbar too when it has a tooltip
    ToolbarOnly,     // a toolbar button without a menu entry
    AcceleratorOnly  // a key without a menu entry or button
};

struct CommandRow {
    Command command;
    // The program's identifier of the command (the action's objectName).
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
    // Whether the command can act in a state of the main window.
    bool (*available)(const ShellState& state);
};

// Every command in menu order, then the toolbar-only and accelerator-only ones.
std::span<const CommandRow> commandTable();

const CommandRow& commandRow(Command command);

// The row of the identifier `id`, or null.
const CommandRow* findCommand(int id);

// Menu text without its key hint ("Copy\tCtrl+C" gives "Copy").
std::string_view menuLabel(const CommandRow& row);

}  // namespace curvemill
