// The main window: menus, toolbar, title page or graph, progress bar; carries out the commands.
#pragma once

#include <memory>

#include <QMainWindow>

#include "failure/FailureReporter.h"
#include "failure/ProcedureNames.h"
#include "shell/CommandState.h"

class QLabel;
class QProgressBar;
class QStackedWidget;

namespace curvemill {

class CommandActions;
class DocumentCommands;
class WindowDocument;
class CurveCommands;
class CurveShownGraph;
class EquationCommands;
class EquationGraph;
class FunctionGraph;
class ShownGraph;
class SurfaceGraph;
class FunctionCommands;
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

class MainWindow : public QMainWindow, public FailureScope {
    Q_OBJECT
  public:
    explicit MainWindow(MainWindowParts parts);
    ~MainWindow() override;
    // The parametric and polar curves' commands (their history folder is set from outside).
    CurveCommands& curves() { return *curves_; }

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

    GraphOutputs& outputs() const { return *outputs_; }
    MathCommands& math() const { return *math_; }
    ViewCommands& viewCommands() const { return *viewCommands_; }
    EquationCommands& equationCommands() const { return *equation_; }
    RotationCommands& rotation() const { return *rotation_; }
    DocumentCommands& documents() const { return *documents_; }

  Q_SIGNALS:
    void titlePageShown();
    // Another kind of graph (TitlePage: none) took the screen.
    void graphKindChanged(curvemill::GraphKind kind);
    // The window was closed for good (the exit save is done): the program ends.
    void closed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    // A graph document dropped on the window is opened.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    // The commands of the window itself: its pages, its end, help and the programs it starts.
    void bindWindowCommands();
    // The commands every kind of graph has, each carried out by the kind on screen.
    void bindKindCommands();
    void returnToTitlePage();
    void setKind(GraphKind kind);
    // The input window's OK: the picture on screen goes, whichever kind it was.
    void discardGraph();
    void onTitleCommand(int id);
    // `graph` takes the screen and the status line.
    void showGraph(ShownGraph& graph);

    MainWindowParts parts_;
    HistoryPort* history_ = nullptr;
    GraphKind kind_ = GraphKind::TitlePage;
    MouseMode mouseMode_ = MouseMode::Move;
    std::unique_ptr<CommandActions> commands_;
    std::unique_ptr<GraphOutputs> outputs_;
    EquationCommands* equation_ = nullptr;
    CurveCommands* curves_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    TitlePage* titlePage_ = nullptr;
    GraphArea* graphArea_ = nullptr;
    ViewCommands* viewCommands_ = nullptr;
    RotationCommands* rotation_ = nullptr;
    std::unique_ptr<SurfaceCommands> surfaceCommands_;
    QProgressBar* progress_ = nullptr;
    QLabel* status_ = nullptr;
    std::unique_ptr<FunctionCommands> functions_;
    std::unique_ptr<MathCommands> math_;
    std::unique_ptr<SurfaceComputation> surfaceComputation_;
    std::unique_ptr<HelpViewer> help_;
    std::unique_ptr<ContextHelp> contextHelp_;
    std::unique_ptr<FunctionGraph> functionGraph_;
    std::unique_ptr<EquationGraph> equationGraph_;
    std::unique_ptr<CurveShownGraph> curveGraph_;
    std::unique_ptr<SurfaceGraph> surfaceGraph_;
    // The kind on screen; null on the title page.
    ShownGraph* shown_ = nullptr;
    std::unique_ptr<WindowDocument> document_;
    DocumentCommands* documents_ = nullptr;
};

}  // namespace curvemill
