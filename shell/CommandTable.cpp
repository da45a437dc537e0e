#include "shell/CommandTable.h"

#include <array>

#include "shell/CommandState.h"

namespace curvemill {

namespace {

using C = Command;
using S = ShellState;
constexpr CommandPlace M = CommandPlace::Menu;
constexpr CommandPlace B = CommandPlace::ToolbarOnly;
constexpr CommandPlace K = CommandPlace::AcceleratorOnly;

bool always(const S&) {
    return true;
}
// Saving, printing, copying and leaving for the title page need a picture.
bool anyGraph(const S& s) {
    return s.kind != GraphKind::TitlePage;
}
bool function2D(const S& s) {
    return s.kind == GraphKind::Function2D;
}
// The math tools work on the function, the equation or the curve on screen.
bool flatGraph(const S& s) {
    return s.kind == GraphKind::Function2D || s.kind == GraphKind::Equation ||
           s.kind == GraphKind::Curve;
}
// Fitting, grid properties, the mouse modes and the one-axis zooms act on a flat view.
bool plane(const S& s) {
    return flatGraph(s);
}
bool surface(const S& s) {
    return s.kind == GraphKind::Surface3D;
}
// The grid of a flat view or the box of a surface; Restore brings back a wheel-zoomed surface.
bool planeOrSurface(const S& s) {
    return plane(s) || surface(s);
}
bool historyWired(const S& s) {
    return s.historyWired;
}

constexpr std::array kCommands{
    // File
    CommandRow{C::TwoDGraph, 40009, M, "File", "Two D Graph", "", "FUNCTION", always},
    // A second function goes beside a first one.
    CommandRow{C::SecondFunction, 40051, M, "File", "Add Another Function", "",
               "ADD SECOND FUNCTION", function2D},
    CommandRow{C::SwitchFunctions, 40054, M, "File", "Switch Functions", "", "SWITCH FUNCTIONS",
               [](const S& s) { return function2D(s) && s.hasSecondFunction; }},
    CommandRow{C::Equation, 40086, M, "File", "Equation with 2 Varialbles", "",
               "EQUATION WITH TWO VARIABLES", always},
    CommandRow{C::ThreeDGraph, 40091, M, "File", "Three D Graph", "", "THREE D FUNCTION F (X, Y)",
               always},
    // Our own kinds, after the specified ones and numbered clear of them.
    CommandRow{C::ParametricCurve, 40301, M, "File", "Parametric Curve", "", "", always},
    CommandRow{C::PolarCurve, 40302, M, "File", "Polar Curve", "", "", always},
    // Graph documents, numbered clear of the others too; a document is saved when a picture
    // could be.
    CommandRow{C::OpenGraph, 40401, M, "File", "Open Graph...", "Ctrl+O", "", always},
    CommandRow{C::RecentGraphs, 40402, M, "File", "Recent Graphs", "", "",
               [](const S& s) { return s.hasRecentGraphs; }},
    CommandRow{C::SaveGraph, 40403, M, "File", "Save Graph...", "Ctrl+S", "", anyGraph},
    CommandRow{C::SaveGraphAs, 40404, M, "File", "Save Graph As...", "", "", anyGraph},
    CommandRow{C::SaveAsFile, 40030, M, "File", "Save As File", "", "SAVE TO FILE", anyGraph},
    CommandRow{C::Print, 40018, M, "File", "Print", "", "PRINT", anyGraph},
    CommandRow{C::SaveNewEntries, 40093, M, "File", "Save New Entries", "", "",
               [](const S& s) { return s.historyWired && s.historyChanged; }},
    CommandRow{C::ReturnToTitle, 40110, M, "File", "Return To Title Page", "", "", anyGraph},
    CommandRow{C::Exit, 40032, M, "File", "Exit", "", "", always},
    // Selection: a selection to stretch, a level left on the stack.
    CommandRow{C::Stretch, 40049, M, "Selection", "Stretch", "", "",
               [](const S& s) { return plane(s) && s.canStretch; }},
    CommandRow{C::UndoStretch, 40050, M, "Selection", "Undo Stretch", "", "",
               [](const S& s) { return plane(s) && s.canUndoStretch; }},
    CommandRow{C::Copy, 40052, M, "Selection", "Copy\tCtrl+C", "Ctrl+C", "COPY SELECTION",
               anyGraph},
    // Zoom: each axis up to its limit; "Both" while either axis can, and on a surface too.
    CommandRow{C::ZoomInX, 40003, M, "Zoom/Zoom In", "X axis", "", "",
               [](const S& s) { return plane(s) && s.canZoomInX; }},
    CommandRow{C::ZoomInY, 40004, M, "Zoom/Zoom In", "Y axis", "", "",
               [](const S& s) { return plane(s) && s.canZoomInY; }},
    CommandRow{
        C::ZoomInBoth, 40005, M, "Zoom/Zoom In", "Both", "", "ZOOM IN",
        [](const S& s) { return (plane(s) && (s.canZoomInX || s.canZoomInY)) || surface(s); }},
    CommandRow{C::ZoomOutX, 40006, M, "Zoom/Zoom Out", "X axis", "", "",
               [](const S& s) { return plane(s) && s.canZoomOutX; }},
    CommandRow{C::ZoomOutY, 40007, M, "Zoom/Zoom Out", "Y axis", "", "",
               [](const S& s) { return plane(s) && s.canZoomOutY; }},
    CommandRow{
        C::ZoomOutBoth, 40008, M, "Zoom/Zoom Out", "Both", "", "ZOOM OUT",
        [](const S& s) { return (plane(s) && (s.canZoomOutX || s.canZoomOutY)) || surface(s); }},
    CommandRow{C::RestoreZoom, 40126, M, "Zoom", "Restore", "", "RESTORE ZOOM", planeOrSurface},
    CommandRow{C::FitToWindow, 40201, M, "Zoom", "Fit To Window", "", "FIT TO WINDOW", plane},
    // Grid
    CommandRow{C::DrawGrid, 40010, M, "Grid", "Draw Grid", "", "DRAW GRID", planeOrSurface},
    CommandRow{C::GridProperties, 40133, M, "Grid", "Grid Properties", "", "", plane},
    // Math
    CommandRow{C::MathDialog, 40012, M, "Math", "Math Dialog", "", "MATH DIALOG", flatGraph},
    CommandRow{C::Information, 40200, M, "Math", "Information", "", "", flatGraph},
    // The integral curve and the painted area go together.
    CommandRow{C::EraseIntegral, 40029, M, "Math", "Erase Integral", "", "",
               [](const S& s) { return function2D(s) && (s.hasIntegral || s.areaPainted); }},
    CommandRow{C::EraseDerivative, 40031, M, "Math", "Erase Derivative", "", "",
               [](const S& s) { return function2D(s) && s.hasDerivative; }},
    CommandRow{C::UnmarkIndefinite, 40033, M, "Math", "Unmark Indefinite Areas", "", "",
               [](const S& s) { return function2D(s) && s.indefiniteMarked; }},
    CommandRow{C::Calculator, 40140, M, "Math", "Calculator", "", "OPEN CALCULATOR", always},
    // Customization
    CommandRow{C::TwoDCustomization, 40123, M, "Customization", "TwoD / Equation Customization", "",
               "", always},
    CommandRow{C::ThreeDCustomization, 40139, M, "Customization", "ThreeD Customization", "", "",
               surface},
    CommandRow{C::ShowDrawingProcess, 40130, M, "Customization", "Show Drawing Process", "",
               "SHOW DRAWING PROCESS", always},
    // Top level: rotation only turns a surface.
    CommandRow{C::ThreeDRotation, 40114, M, "", "ThreeD Rotation", "", "", surface},
    // Help
    CommandRow{C::HelpTopics, 40115, M, "Help", "Help Topics", "", "", always},
    CommandRow{C::About, 40132, M, "Help", "About CurveMill", "", "", always},
    // Toolbar only
    CommandRow{C::ReturnToTitleButton, 40111, B, "", "Return To Title Page", "",
               "RETURN TO TITLE PAGE", anyGraph},
    CommandRow{C::MouseMove, 40063, B, "", "Mouse Move", "", "MOUSE MOVE", plane},
    CommandRow{C::MouseSelect, 40064, B, "", "Mouse Select", "", "MOUSE SELECT", plane},
    CommandRow{C::RotateRight, 40101, B, "", "Rotate Right", "", "ROTATE RIGHT", surface},
    CommandRow{C::RotateLeft, 40102, B, "", "Rotate Left", "", "ROTATE LEFT", surface},
    CommandRow{C::DemoFailure, 1033, B, "", "Demo Of Exception Handling", "",
               "DEMO OF EXCEPTION HANDLING", always},
    // Keys only
    CommandRow{C::SelectAll, 40113, K, "", "Select All", "Ctrl+A", "", always},
    CommandRow{C::Find, 40022, K, "", "Find", "Ctrl+F", "", historyWired},
    CommandRow{C::DeleteItem, 40021, K, "", "Delete Item", "Del", "", historyWired},
    CommandRow{C::ContextHelp, 40109, K, "", "Help", "F1", "", always},
    CommandRow{C::FindNext, 40023, K, "", "Find Next", "F3", "", historyWired},
};

// The enum lists the commands in table order, so a name is its row's index.
constexpr bool inTableOrder() {
    for (std::size_t i = 0; i < kCommands.size(); ++i) {
        if (static_cast<std::size_t>(kCommands[i].command) != i) {
            return false;
        }
    }
    return true;
}
static_assert(inTableOrder());

}  // namespace

std::span<const CommandRow> commandTable() {
    return kCommands;
}

const CommandRow& commandRow(Command command) {
    return kCommands[static_cast<std::size_t>(command)];
}

const CommandRow* findCommand(int id) {
    for (const CommandRow& row : kCommands) {
        if (row.id == id) {
            return &row;
        }
    }
    return nullptr;
}

std::string_view menuLabel(const CommandRow& row) {
    return row.text.substr(0, row.text.find('\t'));
}

}  // namespace curvemill
