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
               &T::openEquation},
    CommandRow{40091, M, "File", "Three D Graph", "", "THREE D FUNCTION F (X, Y)",
               &T::openThreeDGraph},
    CommandRow{40030, M, "File", "Save As File", "", "SAVE TO FILE", &T::saveAsFile},
    CommandRow{40018, M, "File", "Print", "", "PRINT", &T::printGraph},
    CommandRow{40093, M, "File", "Save New Entries", "", "", &T::saveNewEntries},
    CommandRow{40110, M, "File", "Return To Title Page", "", "", &T::returnToTitlePage},
    CommandRow{40032, M, "File", "Exit", "", "", &T::exitProgram},
    // Selection
    CommandRow{40049, M, "Selection", "Stretch", "", "", &T::stretch},
    CommandRow{40050, M, "Selection", "Undo Stretch", "", "", &T::undoStretch},
    CommandRow{40052, M, "Selection", "Copy\tCtrl+C", "Ctrl+C", "COPY SELECTION",
               &T::copySelection},
    // Zoom
    CommandRow{40003, M, "Zoom/Zoom In", "X axis", "", "", &T::zoomInX},
    CommandRow{40004, M, "Zoom/Zoom In", "Y axis", "", "", &T::zoomInY},
    CommandRow{40005, M, "Zoom/Zoom In", "Both", "", "ZOOM IN", &T::zoomInBoth},
    CommandRow{40006, M, "Zoom/Zoom Out", "X axis", "", "", &T::zoomOutX},
    CommandRow{40007, M, "Zoom/Zoom Out", "Y axis", "", "", &T::zoomOutY},
    CommandRow{40008, M, "Zoom/Zoom Out", "Both", "", "ZOOM OUT", &T::zoomOutBoth},
    CommandRow{40126, M, "Zoom", "Restore", "", "RESTORE ZOOM", &T::restoreZoom},
    CommandRow{40201, M, "Zoom", "Fit To Window", "", "FIT TO WINDOW", &T::fitToWindow},
    // Grid
    CommandRow{40010, M, "Grid", "Draw Grid", "", "DRAW GRID", &T::toggleGrid},
    CommandRow{40133, M, "Grid", "Grid Properties", "", "", &T::openTwoDCustomization},
    // Math
    CommandRow{40012, M, "Math", "Math Dialog", "", "MATH DIALOG", &T::openMathDialog},
    CommandRow{40200, M, "Math", "Information", "", "", &T::openInformation},
    CommandRow{40029, M, "Math", "Erase Integral", "", "", &T::eraseIntegral},
    CommandRow{40031, M, "Math", "Erase Derivative", "", "", &T::eraseDerivative},
    CommandRow{40033, M, "Math", "Unmark Indefinite Areas", "", "", &T::unmarkIndefiniteAreas},
    CommandRow{40140, M, "Math", "Calculator", "", "OPEN CALCULATOR", &T::openCalculator},
    // Customization
    CommandRow{40123, M, "Customization", "TwoD / Equation Customization", "", "",
               &T::openTwoDCustomization},
    CommandRow{40139, M, "Customization", "ThreeD Customization", "", "",
               &T::openThreeDCustomization},
    CommandRow{40130, M, "Customization", "Show Drawing Process", "", "SHOW DRAWING PROCESS",
               &T::toggleDrawingProcess},
    // Top level
    CommandRow{40114, M, "", "ThreeD Rotation", "", "", &T::openThreeDRotation},
    // Help
    CommandRow{40115, M, "Help", "Help Topics", "", "", &T::showHelpTopics},
    CommandRow{40132, M, "Help", "About CurveMill", "", "", &T::showAbout},
    // Toolbar only
    CommandRow{40111, B, "", "Return To Title Page", "", "RETURN TO TITLE PAGE",
               &T::returnToTitlePage},
    CommandRow{40063, B, "", "Mouse Move", "", "MOUSE MOVE", &T::setMouseMove},
    CommandRow{40064, B, "", "Mouse Select", "", "MOUSE SELECT", &T::setMouseSelect},
    CommandRow{40101, B, "", "Rotate Right", "", "ROTATE RIGHT", &T::rotateRight},
    CommandRow{40102, B, "", "Rotate Left", "", "ROTATE LEFT", &T::rotateLeft},
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
