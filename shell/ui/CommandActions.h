// The QActions of the command table, with their menus and toolbar, kept in step with the state.
#pragma once

#include <functional>
#include <map>

#include <QObject>

#include "shell/CommandState.h"

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
    // toolbar.
    explicit CommandActions(QMainWindow& window);

    // The command group that carries out `command` binds its work here; a command no group binds
    // stays disabled.
    void bind(Command command, std::function<void()> work);
    // The work of `command`, as its action would do it when enabled.
    void run(Command command) const;
    QAction* action(Command command) const;
    // The action whose identifier is `id`, or null.
    QAction* action(int id) const;
    QToolBar* toolBar() const { return toolBar_; }
    // Enabling, texts, tooltips and check marks from `state`.
    void apply(const ShellState& state);

  private:
    // Gives every entry of the menu bar and of each menu its keyboard mnemonic for its text now.
    void markMnemonics();
    static void markMnemonics(QWidget& menu);

    QMainWindow& window_;
    std::map<Command, QAction*> actions_;
    std::map<Command, std::function<void()>> work_;
    QMenuBar* menuBar_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    // Keeps the two mouse-mode buttons mutually exclusive.
    QActionGroup* mouseModes_ = nullptr;
};

}  // namespace curvemill
