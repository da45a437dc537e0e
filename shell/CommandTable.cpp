#include "shell/CommandTable.h"

#include <array>

namespace curvemill {

namespace {

constexpr CommandPlace M = CommandPlace::Menu;
constexpr CommandPlace B = CommandPlace::ToolbarOnly;
constexpr CommandPlace K = CommandPlace::AcceleratorOnly;

constexpr std::array kCommands{
    // File
    CommandRow{40009, M, "File", "Two D Graph", "", "FUNCTION"},
    CommandRow{40051, M, "File", "Add Another Function", "", "ADD SECOND FUNCTION"},
    CommandRow{40054, M, "File", "Switch Functions", "", "SWITCH FUNCTIONS"},
    CommandRow{40086, M, "File", "Equation with 2 Varialbles", "", "EQUATION WITH TWO VARIABLES"},
    CommandRow{40091, M, "File", "Three D Graph", "", "THREE D FUNCTION F (X, Y)"},
    CommandRow{40030, M, "File", "Save As File", "", "SAVE TO FILE"},
    CommandRow{40018, M, "File", "Print", "", "PRINT"},
    CommandRow{40093, M, "File", "Save New Entries", "", ""},
    CommandRow{40110, M, "File", "Return To Title Page", "", ""},
    CommandRow{40032, M, "File", "Exit", "", ""},
    // Selection
    CommandRow{40049, M, "Selection", "Stretch", "", ""},
    CommandRow{40050, M, "Selection", "Undo Stretch", "", ""},
    CommandRow{40052, M, "Selection", "Copy\tCtrl+C", "Ctrl+C", "COPY SELECTION"},
    // Zoom
    CommandRow{40003, M, "Zoom/Zoom In", "X axis", "", ""},
    CommandRow{40004, M, "Zoom/Zoom In", "Y axis", "", ""},
    CommandRow{40005, M, "Zoom/Zoom In", "Both", "", "ZOOM IN"},
    CommandRow{40006, M, "Zoom/Zoom Out", "X axis", "", ""},
    CommandRow{40007, M, "Zoom/Zoom Out", "Y axis", "", ""},
    CommandRow{40008, M, "Zoom/Zoom Out", "Both", "", "ZOOM OUT"},
    CommandRow{40126, M, "Zoom", "Restore", "", "RESTORE ZOOM"},
    CommandRow{40201, M, "Zoom", "Fit To Window", "", "FIT TO WINDOW"},
    // Grid
    CommandRow{40010, M, "Grid", "Draw Grid", "", "DRAW GRID"},
    CommandRow{40133, M, "Grid", "Grid Properties", "", ""},
    // Math
    CommandRow{40012, M, "Math", "Math Dialog", "", "MATH DIALOG"},
    CommandRow{40200, M, "Math", "Information", "", ""},
    CommandRow{40029, M, "Math", "Erase Integral", "", ""},
    CommandRow{40031, M, "Math", "Erase Derivative", "", ""},
    CommandRow{40033, M, "Math", "Unmark Indefinite Areas", "", ""},
    CommandRow{40140, M, "Math", "Calculator", "", "OPEN CALCULATOR"},
    // Customization
    CommandRow{40123, M, "Customization", "TwoD / Equation Customization", "", ""},
    CommandRow{40139, M, "Customization", "ThreeD Customization", "", ""},
    CommandRow{40130, M, "Customization", "Show Drawing Process", "", "SHOW DRAWING PROCESS"},
    // Top level
    CommandRow{40114, M, "", "ThreeD Rotation", "", ""},
    // Help
    CommandRow{40115, M, "Help", "Help Topics", "", ""},
    CommandRow{40132, M, "Help", "About CurveMill", "", ""},
    // Toolbar only
    CommandRow{40111, B, "", "Return To Title Page", "", "RETURN TO TITLE PAGE"},
    CommandRow{40063, B, "", "Mouse Move", "", "MOUSE MOVE"},
    CommandRow{40064, B, "", "Mouse Select", "", "MOUSE SELECT"},
    CommandRow{40101, B, "", "Rotate Right", "", "ROTATE RIGHT"},
    CommandRow{40102, B, "", "Rotate Left", "", "ROTATE LEFT"},
    CommandRow{1033, B, "", "Demo Of Exception Handling", "", "DEMO OF EXCEPTION HANDLING"},
    // Keys only
    CommandRow{40113, K, "", "Select All", "Ctrl+A", ""},
    CommandRow{40022, K, "", "Find", "Ctrl+F", ""},
    CommandRow{40021, K, "", "Delete Item", "Del", ""},
    CommandRow{40109, K, "", "Help", "F1", ""},
    CommandRow{40023, K, "", "Find Next", "F3", ""},
};

}  // namespace

std::span<const CommandRow> commandTable() {
    return kCommands;
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
