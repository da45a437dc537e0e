// The QActions of the command table, with their menus and toolbar, kept in step with the state.
#pragma once

#include <map>

#include <QObject>

#include "shell/CommandState.h"
#include "shell/CommandTarget.h"

class QAction;
class QActionGroup;
class QMainWindow;
class QMenuBar;
class QToolBar;
class QWidget;

namespace curvemill {

class CommandActions {
  public:
    // Builds one action per table row (objectName = the id), the menu bar in menu order and the
    // toolbar, and routes every trigger to `target`.
    CommandActions(QMainWindow& window, CommandTarget& target);

    QAction* action(int id) const;
    QToolBar* toolBar() const { return toolBar_; }
    // Enabling, texts, tooltips and check marks from `state`.
    void apply(const ShellState& state);

  private:
    // Gives every entry of the menu bar and of each menu its keyboard mnemonic for its text now.
    void markMnemonics();
    static void markMnemonics(QWidget& menu);

    std::map<int, QAction*> actions_;
    QMenuBar* menuBar_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    // Keeps the two mouse-mode buttons mutually exclusive.
    QActionGroup* mouseModes_ = nullptr;
};

}  // namespace curvemill
