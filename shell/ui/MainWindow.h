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
class EquationCommands;
class ContextHelp;
class HelpViewer;
class Formula;
class GraphArea;
class GraphOutputs;
class HistoryPort;
class MathCommands;
class RotationCommands;
class TitlePage;
class SurfaceComputation;
class TwoDGraphDialog;
class ViewCommands;
class SurfaceCommands;
class Worker;
struct EquationCurve;
struct GraphView;
struct SurfaceScene;
struct TwoVariableSettings;
struct TwoDGraph;

// The objects of the program the window works on; all owned by the application object.
struct MainWindowParts {
    Formula& formula;
    TwoDGraph& graph;
    GraphView& view;
    FailureReporter& reporter;
    Worker& worker;
    SurfaceScene& surface;
    // The equation state and the input window's settings; null gives the window its own.
    EquationCurve* equation = nullptr;
    TwoVariableSettings* twoVariable = nullptr;
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
    // The computation behind the ThreeD window's mode 1; it shows the surface when done.
    SurfaceComputation& surfaceComputation();
    // The completed surface in parts.surface becomes the graph on screen.
    void showSurface();
    // "Both" of Zoom In (factor 2) or Zoom Out (0.5) while a surface is shown; false otherwise.
    bool zoomSurface(double factor);
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
    void saveAsFile() override;
    void printGraph() override;
    void copySelection() override;
    GraphOutputs& outputs() const { return *outputs_; }
    void showHelpTopics() override;
    void showContextHelp() override;
    void findInHistory() override;
    void findNextInHistory() override;
    void deleteHistoryItem() override;
    void openMathDialog() override;
    void openInformation() override;
    void eraseIntegral() override;
    void eraseDerivative() override;
    void unmarkIndefiniteAreas() override;
    MathCommands& math() const { return *math_; }
    void zoomInX() override;
    void zoomInY() override;
    void zoomInBoth() override;
    void zoomOutX() override;
    void zoomOutY() override;
    void zoomOutBoth() override;
    void restoreZoom() override;
    void fitToWindow() override;
    void stretch() override;
    void undoStretch() override;
    void openTwoDCustomization() override;
    void toggleDrawingProcess() override;
    void openThreeDCustomization() override;
    ViewCommands& viewCommands() const { return *viewCommands_; }
    void openEquation() override;
    void openThreeDGraph() override;
    EquationCommands& equationCommands() const { return *equation_; }
    void openThreeDRotation() override;
    void rotateRight() override;
    void rotateLeft() override;
    RotationCommands& rotation() const { return *rotation_; }

  Q_SIGNALS:
    void titlePageShown();
    // Another kind of graph (TitlePage: none) took the screen.
    void graphKindChanged(curvemill::GraphKind kind);
    // The window was closed for good (the exit save is done): the program ends.
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void setKind(GraphKind kind);
    // The input window's OK: the picture on screen goes, whichever kind it was.
    void discardGraph();
    void onTitleCommand(int id);
    void showGraph();
    void reportUndefinedCurves();
    // The status bar's word (not a box: nothing went wrong) on why a graph is empty.
    void reportNoValue(const QString& function, const QString& where);
    void showEquation();

    MainWindowParts parts_;
    HistoryPort* history_ = nullptr;
    GraphKind kind_ = GraphKind::TitlePage;
    MouseMode mouseMode_ = MouseMode::Move;
    std::unique_ptr<CommandActions> commands_;
    std::unique_ptr<GraphOutputs> outputs_;
    EquationCommands* equation_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    TitlePage* titlePage_ = nullptr;
    GraphArea* graphArea_ = nullptr;
    ViewCommands* viewCommands_ = nullptr;
    RotationCommands* rotation_ = nullptr;
    std::unique_ptr<SurfaceCommands> surfaceCommands_;
    QProgressBar* progress_ = nullptr;
    QLabel* status_ = nullptr;
    TwoDGraphDialog* mainDialog_ = nullptr;
    TwoDGraphDialog* secondDialog_ = nullptr;
    std::unique_ptr<MathCommands> math_;
    std::unique_ptr<SurfaceComputation> surfaceComputation_;
    std::unique_ptr<HelpViewer> help_;
    std::unique_ptr<ContextHelp> contextHelp_;
};

}  // namespace curvemill
