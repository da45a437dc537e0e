// The application object: owns one instance of every concern and runs the start-up sequence.
#pragma once

#include <memory>

#include <QString>
#include <QStringList>

#include "engine/Formula.h"
#include "equation/EquationCurve.h"
#include "failure/FailureReporter.h"
#include "failure/ui/QtFailurePlatform.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph3d/SurfaceScene.h"
#include "history/HistoryStore.h"
#include "twovar/TwoVariableSettings.h"
#include "worker/ui/Worker.h"

namespace curvemill {

class GuardedApplication;
class HistoryPort;
class HistoryService;
class MainWindow;

struct StartupOptions {
    // Ends the event loop once the title page has been painted (start-up timing).
    bool quitOnFirstPaint = false;
    // A graph document to open once the window is up (`curvemill FILE.curvemill`); empty: none.
    QString document;
};

// The document named on the command line: the first argument that is not an option.
QString documentArgument(const QStringList& arguments);

class Application {
  public:
    Application(GuardedApplication& qt, StartupOptions options = {});
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Wires the history; call before run(). Without it the history commands stay disabled.
    void setHistoryPort(HistoryPort* history);
    // Start-up steps, each guarded as "WinMain", then the event loop; returns its exit code.
    int run();

    Formula& formula() { return formula_; }
    TwoDGraph& graph() { return graph_; }
    GraphView& view() { return view_; }
    SurfaceScene& surface() { return surface_; }
    FailureReporter& reporter() { return reporter_; }
    Worker& worker() { return worker_; }
    MainWindow* mainWindow() const { return window_.get(); }

  private:
    // The start-up steps, each run in its own "WinMain" guard.
    void createMainWindow();
    void prepareFailureReport();
    void showMainWindow();

    GuardedApplication& qt_;
    StartupOptions options_;
    Formula formula_;
    TwoDGraph graph_;
    GraphView view_;
    SurfaceScene surface_;
    EquationCurve equation_;
    TwoVariableSettings twoVariable_;
    QtFailurePlatform platform_;
    RestartingFailureReporter reporter_{platform_};
    // After the reporter it reports to; destroyed before the curves its job fills.
    Worker worker_{reporter_};
    HistoryStore historyStore_;
    std::unique_ptr<HistoryService> historyService_;
    HistoryPort* history_ = nullptr;
    std::unique_ptr<MainWindow> window_;
};

}  // namespace curvemill
