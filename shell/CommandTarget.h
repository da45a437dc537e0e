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
    // Help Topics opens the help at its home topic; F1 at the topic of what has the focus.
    virtual void showHelpTopics() = 0;
    virtual void showContextHelp() = 0;
    // Find, Find Next and Delete Item: keys of the history list, handed on to it.
    virtual void findInHistory() = 0;
    virtual void findNextInHistory() = 0;
    virtual void deleteHistoryItem() = 0;
};

}  // namespace curvemill
