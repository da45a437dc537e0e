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
    CommandSpec{40009, M, "File", "Two D Graph", "", "FUNCTION", &T::openTwoDGraph},
    CommandSpec{40051, M, "File", "Add Another Function", "", "ADD SECOND FUNCTION",
                &T::addOrEraseSecondFunction},
    CommandSpec{40054, M, "File", "Switch Functions", "", "SWITCH FUNCTIONS", &T::switchFunctions},
    CommandSpec{40086, M, "File", "Equation with 2 Varialbles", "", "EQUATION WITH TWO VARIABLES",
                nullptr},
    CommandSpec{40091, M, "File", "Three D Graph", "", "THREE D FUNCTION F (X, Y)", nullptr},
    CommandSpec{40030, M, "File", "Save As File", "", "SAVE TO FILE", nullptr},
    CommandSpec{40018, M, "File", "Print", "", "PRINT", nullptr},
    CommandSpec{40093, M, "File", "Save New Entries", "", "", &T::saveNewEntries},
    CommandSpec{40110, M, "File", "Return To Title Page", "", "", &T::returnToTitlePage},
    CommandSpec{40032, M, "File", "Exit", "", "", &T::exitProgram},
    // Selection
    CommandSpec{40049, M, "Selection", "Stretch", "", "", nullptr},
    CommandSpec{40050, M, "Selection", "Undo Stretch", "", "", nullptr},
    CommandSpec{40052, M, "Selection", "Copy\tCtrl+C", "Ctrl+C", "COPY SELECTION", nullptr},
    // Zoom
    CommandSpec{40003, M, "Zoom/Zoom In", "X axis", "", "", nullptr},
    CommandSpec{40004, M, "Zoom/Zoom In", "Y axis", "", "", nullptr},
    CommandSpec{40005, M, "Zoom/Zoom In", "Both", "", "ZOOM IN", nullptr},
    CommandSpec{40006, M, "Zoom/Zoom Out", "X axis", "", "", nullptr},
    CommandSpec{40007, M, "Zoom/Zoom Out", "Y axis", "", "", nullptr},
    CommandSpec{40008, M, "Zoom/Zoom Out", "Both", "", "ZOOM OUT", nullptr},
    CommandSpec{40126, M, "Zoom", "Restore", "", "RESTORE ZOOM", nullptr},
    // Grid
    CommandSpec{40010, M, "Grid", "Draw Grid", "", "DRAW GRID", &T::toggleGrid},
    CommandSpec{40133, M, "Grid", "Grid Properties", "", "", nullptr},
    // Math
    CommandSpec{40012, M, "Math", "Math Dialog", "", "MATH DIALOG", nullptr},
    CommandSpec{40029, M, "Math", "Erase Integral", "", "", nullptr},
    CommandSpec{40031, M, "Math", "Erase Derivative", "", "", nullptr},
    CommandSpec{40033, M, "Math", "Unmark Indefinite Areas", "", "", nullptr},
    CommandSpec{40140, M, "Math", "Calculator", "", "OPEN CALCULATOR", &T::openCalculator},
    // Customization
    CommandSpec{40123, M, "Customization", "TwoD / Equation Customization", "", "", nullptr},
    CommandSpec{40139, M, "Customization", "ThreeD Customization", "", "", nullptr},
    CommandSpec{40130, M, "Customization", "Show Drawing Process", "", "SHOW DRAWING PROCESS",
                nullptr},
    // Top level
    CommandSpec{40114, M, "", "ThreeD Rotation", "", "", nullptr},
    // Help
    CommandSpec{40115, M, "Help", "Help Topics", "", "", nullptr},
    CommandSpec{40132, M, "Help", "About CurveMill", "", "", &T::showAbout},
    // Toolbar only
    CommandSpec{40111, B, "", "Return To Title Page", "", "RETURN TO TITLE PAGE",
                &T::returnToTitlePage},
    CommandSpec{40063, B, "", "Mouse Move", "", "MOUSE MOVE", &T::setMouseMove},
    CommandSpec{40064, B, "", "Mouse Select", "", "MOUSE SELECT", &T::setMouseSelect},
    CommandSpec{40101, B, "", "Rotate Right", "", "ROTATE RIGHT", nullptr},
    CommandSpec{40102, B, "", "Rotate Left", "", "ROTATE LEFT", nullptr},
    CommandSpec{1033, B, "", "Demo Of Exception Handling", "", "DEMO OF EXCEPTION HANDLING",
                &T::demonstrateFailure},
    // Keys only
    CommandSpec{40113, K, "", "Select All", "Ctrl+A", "", nullptr},
    CommandSpec{40022, K, "", "Find", "Ctrl+F", "", &T::findInHistory},
    CommandSpec{40021, K, "", "Delete Item", "Del", "", &T::deleteHistoryItem},
    CommandSpec{40109, K, "", "Help", "F1", "", nullptr},
    CommandSpec{40023, K, "", "Find Next", "F3", "", &T::findNextInHistory},
};

}  // namespace

std::span<const CommandSpec> commandTable() {
    return kCommands;
}

const CommandSpec* findCommand(int id) {
    for (const CommandSpec& spec : kCommands) {
        if (spec.id == id) {
            return &spec;
        }
    }
    return nullptr;
}

std::string_view menuLabel(const CommandSpec& spec) {
    return spec.text.substr(0, spec.text.find('\t'));
}

}  // namespace curvemill
