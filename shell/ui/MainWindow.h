// The main window: menus, toolbar, title page or graph, progress bar; carries out the commands.
#pragma once

#include <memory>

#include <QMainWindow>

#include "failure/FailureReporter.h"
#include "failure/ProcedureNames.h"
#include "shell/CommandState.h"
#include "shell/CommandTarget.h"

class QLabel;
class QProgressBar;
class QStackedWidget;

namespace curvemill {

class CommandActions;
class ContextHelp;
class HelpViewer;
class Formula;
class GraphArea;
class HistoryPort;
class TitlePage;
class TwoDGraphDialog;
class Worker;
struct GraphView;
struct TwoDGraph;

// The objects of the program the window works on; all owned by the application object.
struct MainWindowParts {
    Formula& formula;
    TwoDGraph& graph;
    GraphView& view;
    FailureReporter& reporter;
    Worker& worker;
};

enum class MouseMode { Move, Select };

class MainWindow : public QMainWindow, public FailureScope, public CommandTarget {
    Q_OBJECT
  public:
    explicit MainWindow(MainWindowParts parts);
    ~MainWindow() override;

    ProcedureName procedureName() const override { return kProcMainWindow; }
    // Wired when a history implementation exists; null leaves its commands disabled.
    void setHistoryPort(HistoryPort* history);

    ShellState shellState() const;
    GraphKind graphKind() const { return kind_; }
    MouseMode mouseMode() const { return mouseMode_; }
    CommandActions& commands() const { return *commands_; }
    HelpViewer& help() const { return *help_; }
    TitlePage* titlePage() const { return titlePage_; }
    GraphArea* graphArea() const { return graphArea_; }
    QProgressBar* progressBar() const { return progress_; }
    // The status bar's text: "Ready", or what the last graph left to say.
    QString statusText() const;
    // The dialog of the main (false) or second (true) function, created on first use.
    TwoDGraphDialog* twoDGraphDialog(bool second);
    // Menus and toolbar follow the state again.
    void refreshCommands();

    // CommandTarget
    void openTwoDGraph() override;
    void addOrEraseSecondFunction() override;
    void switchFunctions() override;
    void saveNewEntries() override;
    void returnToTitlePage() override;
    void exitProgram() override;
    void toggleGrid() override;
    void openCalculator() override;
    void setMouseMove() override;
    void setMouseSelect() override;
    void demonstrateFailure() override;
    void showAbout() override;
    void showHelpTopics() override;
    void showContextHelp() override;
    void findInHistory() override;
    void findNextInHistory() override;
    void deleteHistoryItem() override;

  Q_SIGNALS:
    void titlePageShown();
    // The window was closed for good (the exit save is done): the program ends.
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void onTitleCommand(int id);
    void showGraph();
    void reportUndefinedCurves();

    MainWindowParts parts_;
    HistoryPort* history_ = nullptr;
    GraphKind kind_ = GraphKind::TitlePage;
    MouseMode mouseMode_ = MouseMode::Move;
    std::unique_ptr<CommandActions> commands_;
    QStackedWidget* pages_ = nullptr;
    TitlePage* titlePage_ = nullptr;
    GraphArea* graphArea_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QLabel* status_ = nullptr;
    TwoDGraphDialog* mainDialog_ = nullptr;
    TwoDGraphDialog* secondDialog_ = nullptr;
    std::unique_ptr<HelpViewer> help_;
    std::unique_ptr<ContextHelp> contextHelp_;
};

}  // namespace curvemill
