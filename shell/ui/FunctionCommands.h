// The 2D function's commands in the main window: its dialog and the second function's, adding,
// erasing and switching the second function.
#pragma once

#include <functional>
#include <string>

#include <QObject>

class QWidget;

namespace curvemill {

class CommandActions;
class Formula;
class GraphArea;
class HistoryPort;
class TwoDGraphDialog;
class Worker;
struct GraphView;
struct TwoDGraph;

struct FunctionCommandParts {
    Formula& formula;
    TwoDGraph& graph;
    GraphView& view;
    Worker& worker;
    GraphArea& area;
    // The window the dialogs belong to.
    QWidget* window;
    // The curves changed in place (menus follow), and a run drew a new graph.
    std::function<void()> changed;
    std::function<void()> drawn;
};

class FunctionCommands : public QObject {
    Q_OBJECT
  public:
    explicit FunctionCommands(FunctionCommandParts parts, QObject* parent = nullptr);

    void bindCommands(CommandActions& actions);
    // The dialogs made for another history go: the next use makes them with this one's lists.
    void setHistoryPort(HistoryPort* history);
    // The dialog of the main (false) or second (true) function, created on first use.
    TwoDGraphDialog* dialog(bool second);
    // Null until first used.
    const TwoDGraphDialog* existingDialog(bool second) const {
        return second ? secondDialog_ : mainDialog_;
    }
    // The main or second function's dialog filled with these entries and OK pressed without a
    // history entry (an opened document); `ended` gets whether the graph was drawn. False when
    // the dialog refused the entries or could not start (`ended` is then never called).
    bool runUnrecorded(bool second, const std::string& formula, const std::string& xBegin,
                       const std::string& xEnd, int points, std::function<void(bool drawn)> ended);

  private:
    void addOrEraseSecondFunction();
    void switchFunctions();
    void connectHistory(TwoDGraphDialog& dialog);

    FunctionCommandParts parts_;
    HistoryPort* history_ = nullptr;
    TwoDGraphDialog* mainDialog_ = nullptr;
    TwoDGraphDialog* secondDialog_ = nullptr;
};

}  // namespace curvemill
