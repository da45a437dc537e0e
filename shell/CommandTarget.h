// The commands the shell carries out itself; the command table points each row at one of these.
#pragma once

namespace curvemill {

class CommandTarget {
  public:
    virtual ~CommandTarget() = default;
    virtual void openTwoDGraph() = 0;
    virtual void addOrEraseSecondFunction() = 0;
    virtual void switchFunctions() = 0;
    virtual void saveNewEntries() = 0;
    virtual void returnToTitlePage() = 0;
    virtual void exitProgram() = 0;
    virtual void toggleGrid() = 0;
    virtual void openCalculator() = 0;
    virtual void setMouseMove() = 0;
    virtual void setMouseSelect() = 0;
    virtual void demonstrateFailure() = 0;
    virtual void showAbout() = 0;
    // Save As File, Print and Copy: the graph on screen goes out.
    virtual void saveAsFile() = 0;
    virtual void printGraph() = 0;
    virtual void copySelection() = 0;
    // Help Topics opens the help at its home topic; F1 at the topic of what has the focus.
    virtual void showHelpTopics() = 0;
    virtual void showContextHelp() = 0;
    // Find, Find Next and Delete Item: keys of the history list, handed on to it.
    virtual void findInHistory() = 0;
    virtual void findNextInHistory() = 0;
    virtual void deleteHistoryItem() = 0;
    // The Math menu.
    virtual void openMathDialog() = 0;
    virtual void openInformation() = 0;
    virtual void eraseIntegral() = 0;
    virtual void eraseDerivative() = 0;
    virtual void unmarkIndefiniteAreas() = 0;
    // Moving around the 2D view: zoom, stretch, its settings and the drawing process.
    virtual void zoomInX() = 0;
    virtual void zoomInY() = 0;
    virtual void zoomInBoth() = 0;
    virtual void zoomOutX() = 0;
    virtual void zoomOutY() = 0;
    virtual void zoomOutBoth() = 0;
    virtual void restoreZoom() = 0;
    virtual void fitToWindow() = 0;
    virtual void stretch() = 0;
    virtual void undoStretch() = 0;
    virtual void openTwoDCustomization() = 0;
    virtual void toggleDrawingProcess() = 0;
    virtual void openThreeDCustomization() = 0;
    // The Equation input window, and the math tools of the graph on screen.
    virtual void openEquation() = 0;
    virtual void openThreeDGraph() = 0;
    // Turning the surface: the ThreeD Rotation dialog and the toolbar's steps.
    virtual void openThreeDRotation() = 0;
    virtual void rotateRight() = 0;
    virtual void rotateLeft() = 0;
};

}  // namespace curvemill
