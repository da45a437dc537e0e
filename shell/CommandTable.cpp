#include "shell/CommandTable.h"

#include <array>

namespace curvemill {

namespace {

using T = CommandTarget;
constexpr CommandPlace M = CommandPlace::Menu;
constexpr CommandPlace B = CommandPlace::ToolbarOnly;
constexpr CommandPlace K = CommandPlace::AcceleratorOnly;

constexpr std::array kCommands{
    // File
    CommandRow{40009, M, "File", "Two D Graph", "", "FUNCTION", &T::openTwoDGraph},
    CommandRow{40051, M, "File", "Add Another Function", "", "ADD SECOND FUNCTION",
               &T::addOrEraseSecondFunction},
    CommandRow{40054, M, "File", "Switch Functions", "", "SWITCH FUNCTIONS", &T::switchFunctions},
    CommandRow{40086, M, "File", "Equation with 2 Varialbles", "", "EQUATION WITH TWO VARIABLES",
               nullptr},
    CommandRow{40091, M, "File", "Three D Graph", "", "THREE D FUNCTION F (X, Y)", nullptr},
    CommandRow{40030, M, "File", "Save As File", "", "SAVE TO FILE", nullptr},
    CommandRow{40018, M, "File", "Print", "", "PRINT", nullptr},
    CommandRow{40093, M, "File", "Save New Entries", "", "", &T::saveNewEntries},
    CommandRow{40110, M, "File", "Return To Title Page", "", "", &T::returnToTitlePage},
    CommandRow{40032, M, "File", "Exit", "", "", &T::exitProgram},
    // Selection
    CommandRow{40049, M, "Selection", "Stretch", "", "", nullptr},
    CommandRow{40050, M, "Selection", "Undo Stretch", "", "", nullptr},
    CommandRow{40052, M, "Selection", "Copy\tCtrl+C", "Ctrl+C", "COPY SELECTION", nullptr},
    // Zoom
    CommandRow{40003, M, "Zoom/Zoom In", "X axis", "", "", nullptr},
    CommandRow{40004, M, "Zoom/Zoom In", "Y axis", "", "", nullptr},
    CommandRow{40005, M, "Zoom/Zoom In", "Both", "", "ZOOM IN", nullptr},
    CommandRow{40006, M, "Zoom/Zoom Out", "X axis", "", "", nullptr},
    CommandRow{40007, M, "Zoom/Zoom Out", "Y axis", "", "", nullptr},
    CommandRow{40008, M, "Zoom/Zoom Out", "Both", "", "ZOOM OUT", nullptr},
    CommandRow{40126, M, "Zoom", "Restore", "", "RESTORE ZOOM", nullptr},
    // Grid
    CommandRow{40010, M, "Grid", "Draw Grid", "", "DRAW GRID", &T::toggleGrid},
    CommandRow{40133, M, "Grid", "Grid Properties", "", "", nullptr},
    // Math
    CommandRow{40012, M, "Math", "Math Dialog", "", "MATH DIALOG", nullptr},
    CommandRow{40029, M, "Math", "Erase Integral", "", "", nullptr},
    CommandRow{40031, M, "Math", "Erase Derivative", "", "", nullptr},
    CommandRow{40033, M, "Math", "Unmark Indefinite Areas", "", "", nullptr},
    CommandRow{40140, M, "Math", "Calculator", "", "OPEN CALCULATOR", &T::openCalculator},
    // Customization
    CommandRow{40123, M, "Customization", "TwoD / Equation Customization", "", "", nullptr},
    CommandRow{40139, M, "Customization", "ThreeD Customization", "", "", nullptr},
    CommandRow{40130, M, "Customization", "Show Drawing Process", "", "SHOW DRAWING PROCESS",
               nullptr},
    // Top level
    CommandRow{40114, M, "", "ThreeD Rotation", "", "", nullptr},
    // Help
    CommandRow{40115, M, "Help", "Help Topics", "", "", &T::showHelpTopics},
    CommandRow{40132, M, "Help", "About CurveMill", "", "", &T::showAbout},
    // Toolbar only
    CommandRow{40111, B, "", "Return To Title Page", "", "RETURN TO TITLE PAGE",
               &T::returnToTitlePage},
    CommandRow{40063, B, "", "Mouse Move", "", "MOUSE MOVE", &T::setMouseMove},
    CommandRow{40064, B, "", "Mouse Select", "", "MOUSE SELECT", &T::setMouseSelect},
    CommandRow{40101, B, "", "Rotate Right", "", "ROTATE RIGHT", nullptr},
    CommandRow{40102, B, "", "Rotate Left", "", "ROTATE LEFT", nullptr},
    CommandRow{1033, B, "", "Demo Of Exception Handling", "", "DEMO OF EXCEPTION HANDLING",
               &T::demonstrateFailure},
    // Keys only
    CommandRow{40113, K, "", "Select All", "Ctrl+A", "", nullptr},
    CommandRow{40022, K, "", "Find", "Ctrl+F", "", &T::findInHistory},
    CommandRow{40021, K, "", "Delete Item", "Del", "", &T::deleteHistoryItem},
    CommandRow{40109, K, "", "Help", "F1", "", &T::showContextHelp},
    CommandRow{40023, K, "", "Find Next", "F3", "", &T::findNextInHistory},
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
