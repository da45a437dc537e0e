#include "shell/ui/MainWindow.h"

#include <cstdlib>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QProcess>
#include <QProgressBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStringList>

#include "engine/Formula.h"
#include "equation/EquationSolver.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph3d/SurfaceComputation.h"
#include "graph3d/ui/SurfaceRedraw.h"
#include "help/ui/ContextHelp.h"
#include "help/ui/HelpViewer.h"
#include "history/HistoryPort.h"
#include "shell/ui/AboutDialog.h"
#include "shell/ui/CalculatorLookup.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/GraphOutputs.h"
#include "shell/ui/KindWindows.h"
#include "shell/ui/MathCommands.h"
#include "shell/ui/ProductWebPage.h"
#include "shell/ui/RotationCommands.h"
#include "shell/ui/ScreenFit.h"
#include "shell/ui/SurfaceCommands.h"
#include "shell/ui/TitlePage.h"
#include "shell/ui/ViewCommands.h"
#include "twovar/TwoVariableSettings.h"
#include "worker/ui/Worker.h"

namespace curvemill {

MainWindow::MainWindow(MainWindowParts parts) : parts_(parts) {
    setObjectName(QStringLiteral("GRAPHIC"));
    setWindowTitle(QStringLiteral("CURVEMILL"));
    new ScreenFitter(this);
    commands_ = std::make_unique<CommandActions>(*this, *this);

    pages_ = new QStackedWidget(this);
    titlePage_ = new TitlePage(pages_);
    graphArea_ = new GraphArea(parts_.graph, parts_.view, pages_);
    pages_->addWidget(titlePage_);
    pages_->addWidget(graphArea_);
    setCentralWidget(pages_);
    connect(titlePage_, &TitlePage::commandTriggered, this, &MainWindow::onTitleCommand);
    math_ = std::make_unique<MathCommands>(
        MathCommandParts{parts_.formula, parts_.graph, parts_.view, parts_.worker, this,
                         [this] {
                             graphArea_->redraw();
                             refreshCommands();
                         },
                         [this] {
                             resetView(parts_.view, parts_.graph);
                             graphArea_->showNewGraph();
                             refreshCommands();
                         }});
    outputs_ = std::make_unique<GraphOutputs>(parts_.graph, parts_.view, *graphArea_, this);
    outputs_->setSelectionSource([this]() -> std::optional<QRect> {
        const QRect selected = graphArea_->selectedRect();
        return selected.isEmpty() ? std::nullopt : std::optional<QRect>(selected);
    });
    equation_ = new EquationCommands(parts_.formula, parts_.view, parts_.worker, parts_.graph,
                                     parts_.equation, parts_.twoVariable, this);
    graphArea_->canvas()->setEquation(&equation_->curve(), &equation_->look());
    outputs_->setOtherGraphs(
        {[this] { return kind_; }, &equation_->curve(), &equation_->look(), &parts_.surface});
    equation_->setSurfaceComputation(&surfaceComputation());
    connect(equation_, &EquationCommands::shown, this, &MainWindow::showEquation);
    connect(equation_, &EquationCommands::repaintRequested, this, [this] { graphArea_->redraw(); });
    connect(equation_, &EquationCommands::statusMessage, this,
            [this](const QString& text) { status_->setText(text); });
    connect(equation_, &EquationCommands::previousDiscarded, this, &MainWindow::discardGraph);
    connect(equation_, &EquationCommands::cancelled, this, [this] {
        if (kind_ == GraphKind::TitlePage) {
            returnToTitlePage();
        }
    });

    // Shown only while the worker runs; it gives up width before the status text does.
    progress_ = new QProgressBar(this);
    progress_->setObjectName(QStringLiteral("progressBar"));
    progress_->setMaximumSize(400, 20);
    progress_->setMinimumWidth(80);
    progress_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    progress_->setRange(0, 100);
    progress_->setValue(0);
    progress_->setTextVisible(false);
    progress_->hide();
    statusBar()->addPermanentWidget(progress_, 1);
    connect(&parts_.worker, &Worker::progressChanged, progress_, &QProgressBar::setValue);
    connect(&parts_.worker, &Worker::busyChanged, progress_, [this](bool busy) {
        progress_->setValue(0);
        progress_->setVisible(busy);
    });
    // A widget rather than a message: menu status tips would wipe a message for good.
    status_ = new QLabel(QStringLiteral("Ready"), statusBar());
    status_->setObjectName(QStringLiteral("statusText"));
    status_->setMinimumWidth(0);
    statusBar()->addWidget(status_, 2);
    viewCommands_ = new ViewCommands(*this, *graphArea_, parts_.graph, parts_.view, *commands_);
    surfaceCommands_ =
        std::make_unique<SurfaceCommands>(*this, *graphArea_, parts_.surface, *viewCommands_);
    connect(viewCommands_, &ViewCommands::stateChanged, this, [this] {
        mouseMode_ = viewCommands_->settings().selectArea ? MouseMode::Select : MouseMode::Move;
        refreshCommands();
    });
    rotation_ = new RotationCommands(
        parts_.surface, *graphArea_->canvas(), [this] { return kind_ == GraphKind::Surface3D; },
        this);
    // A large surface is drawn over several frames; the status says how far it has come.
    SurfaceRedraw& redraw = graphArea_->canvas()->surfaceRedraw();
    connect(&redraw, &SurfaceRedraw::sliceDrawn, status_, [this](int percent) {
        status_->setText(percent < 100 ? QStringLiteral("Drawing the surface: %1%").arg(percent)
                                       : QStringLiteral("Ready"));
    });

    connect(this, &MainWindow::graphKindChanged, this,
            [this](GraphKind kind) { closeWindowsOfOtherKinds(*this, kind); });

    help_ = std::make_unique<HelpViewer>(findInstalledHelpArchive,
                                         [this] { openProductWebPage(this); });
    contextHelp_ = std::make_unique<ContextHelp>(*help_);

    refreshCommands();
}

// The input window waits for a running computation when it goes; the computations it hands work
// to are members, so it goes first. The canvas's surface mouse asks this window what is shown
// on every event, and the canvas still gets events while QWidget tears the children down: the
// mouse goes before this window stops being one.
MainWindow::~MainWindow() {
    delete equation_;
    equation_ = nullptr;
    delete rotation_;
    rotation_ = nullptr;
}

void MainWindow::setHistoryPort(HistoryPort* history) {
    history_ = history;
    if (history_ != nullptr) {
        history_->setChangedCallback([this] { refreshCommands(); });
    }
    equation_->setHistoryPort(history_);
    for (TwoDGraphDialog* dialog : {mainDialog_, secondDialog_}) {
        if (dialog != nullptr) {
            delete dialog;
        }
    }
    mainDialog_ = nullptr;
    secondDialog_ = nullptr;
    refreshCommands();
}

ShellState MainWindow::shellState() const {
    ShellState state;
    state.kind = kind_;
    state.hasSecondFunction = parts_.graph.hasSecond();
    state.hasDerivative = parts_.graph.hasDerivative();
    state.hasIntegral = parts_.graph.hasIntegral();
    state.gridOn = kind_ == GraphKind::Surface3D
                       ? surfaceCommands_->gridBoxShown()
                       : kind_ != GraphKind::TitlePage && parts_.view.gridOn;
    state.historyWired = history_ != nullptr;
    state.historyChanged = history_ != nullptr && history_->hasUnsavedEntries();
    state.areaPainted = parts_.view.areaPainted;
    state.indefiniteMarked = parts_.view.indefiniteMarked;
    viewCommands_->fillState(state);
    return state;
}

void MainWindow::refreshCommands() {
    commands_->apply(shellState());
}

TwoDGraphDialog* MainWindow::twoDGraphDialog(bool second) {
    TwoDGraphDialog*& dialog = second ? secondDialog_ : mainDialog_;
    if (dialog == nullptr) {
        dialog =
            new TwoDGraphDialog(second ? TwoDGraphRole::Second : TwoDGraphRole::Main,
                                parts_.formula, parts_.graph, parts_.view, parts_.worker, this);
        dialog->setWindowModality(Qt::WindowModal);
        if (history_ != nullptr) {
            HistoryPort* history = history_;
            TwoDGraphHistoryHooks hooks;
            hooks.record = [history](const std::string& formula, const std::string& xBegin,
                                     const std::string& xEnd) {
                history->recordEntry(TypedEntry{formula, xBegin, xEnd, "$", "$", 'y'});
            };
            // The lists may outlive the dialog (a new history port deletes it).
            const QPointer<TwoDGraphDialog> guard(dialog);
            const HistoryClient client{
                [guard] {
                    if (guard.isNull()) {
                        return TypedEntry{};
                    }
                    const TwoDGraphInput input = guard->currentInput();
                    return TypedEntry{input.formula, input.xBegin, input.xEnd, "$", "$", 'y'};
                },
                [guard](const TypedEntry& entry) {
                    if (!guard.isNull()) {
                        guard->setEntry(QString::fromStdString(entry.formula),
                                        QString::fromStdString(entry.xBegin),
                                        QString::fromStdString(entry.xEnd));
                    }
                }};
            hooks.showPreviousEntries = [history, client] { history->showPreviousEntries(client); };
            hooks.showListOfFunctions = [history, client] { history->showListOfFunctions(client); };
            dialog->setHistoryHooks(std::move(hooks));
        }
        connect(dialog, &TwoDGraphDialog::curvesChanged, this, [this] {
            graphArea_->redraw();
            refreshCommands();
        });
        connect(dialog, &TwoDGraphDialog::graphDrawn, this, [this, second] {
            // The marks were made on the function this one replaced.
            if (!second) {
                parts_.view.indefiniteMarked = false;
            }
            // The second function's own range became the graph's: the main dialog shows it too.
            if (second && mainDialog_ != nullptr) {
                mainDialog_->copyRangeFrom(*secondDialog_);
            }
            showGraph();
        });
    }
    return dialog;
}

SurfaceComputation& MainWindow::surfaceComputation() {
    if (!surfaceComputation_) {
        surfaceComputation_ = std::make_unique<SurfaceComputation>(
            parts_.formula, parts_.surface,
            SurfaceDisplay{[this] { showSurface(); },
                           [this] { graphArea_->canvas()->invalidate(); },
                           [this](const std::string& message) {
                               QMessageBox::critical(this, QStringLiteral("Error"),
                                                     QString::fromStdString(message));
                           }});
    }
    return *surfaceComputation_;
}

void MainWindow::setKind(GraphKind kind) {
    const bool changed = kind != kind_;
    kind_ = kind;
    graphArea_->canvas()->setKind(kind);
    if (changed) {
        Q_EMIT graphKindChanged(kind);
    }
}

// The blank graph area stays until the run ends; with no graph on screen, Cancel then goes
// back to the title page.
void MainWindow::discardGraph() {
    rotation_->stopAnimation();
    graphArea_->canvas()->showSurface(nullptr);
    setKind(GraphKind::TitlePage);
    status_->setText(QStringLiteral("Ready"));
    refreshCommands();
}

void MainWindow::showSurface() {
    rotation_->newFigure();
    setKind(GraphKind::Surface3D);
    pages_->setCurrentWidget(graphArea_);
    graphArea_->canvas()->showSurface(&parts_.surface);
    const SurfaceGrid& grid = parts_.surface.grid;
    if (!grid.hasDefinedVertex()) {
        reportNoValue(QStringLiteral("z = f(x, y)"),
                      QStringLiteral("on the grid x = %1 to %2, y = %3 to %4")
                          .arg(grid.xBegin, 0, 'g', 15)
                          .arg(grid.xEnd, 0, 'g', 15)
                          .arg(grid.yBegin, 0, 'g', 15)
                          .arg(grid.yEnd, 0, 'g', 15));
    }
    refreshCommands();
}

bool MainWindow::zoomSurface(double factor) {
    if (kind_ != GraphKind::Surface3D || !zoomFigure(parts_.surface.view, factor)) {
        return false;
    }
    graphArea_->canvas()->invalidate();
    return true;
}

QString MainWindow::statusText() const {
    return status_->text();
}

void MainWindow::showGraph() {
    rotation_->stopAnimation();
    graphArea_->canvas()->showSurface(nullptr);
    setKind(GraphKind::Function2D);
    pages_->setCurrentWidget(graphArea_);
    graphArea_->showNewGraph();
    reportUndefinedCurves();
    refreshCommands();
}

namespace {

bool hasDefinedPoint(const Curve& curve) {
    for (const PlotPoint& point : curve) {
        if (!point.isIndefinite) {
            return true;
        }
    }
    return false;
}

}  // namespace

// The sampler records an undefined function quietly and the graph is then empty; a word in the
// status bar (not a box: nothing went wrong) tells the user why.
void MainWindow::reportUndefinedCurves() {
    const TwoDGraph& graph = parts_.graph;
    QStringList undefined;
    if (graph.main.exists() && !hasDefinedPoint(graph.main)) {
        undefined << QString::fromStdString(graph.mainFormulaText);
    }
    if (graph.hasSecond() && !hasDefinedPoint(graph.second)) {
        undefined << QString::fromStdString(graph.secondFormulaText);
    }
    if (undefined.isEmpty()) {
        status_->setText(QStringLiteral("Ready"));
        return;
    }
    reportNoValue(QStringLiteral("y = ") + undefined.join(QStringLiteral(" and y = ")),
                  QStringLiteral("between x = %1 and x = %2")
                      .arg(graph.xBegin, 0, 'g', 15)
                      .arg(graph.xEnd, 0, 'g', 15));
}

void MainWindow::reportNoValue(const QString& function, const QString& where) {
    status_->setText(QStringLiteral("%1 has no value %2: nothing to draw").arg(function, where));
}

void MainWindow::onTitleCommand(int id) {
    switch (id) {
        case kTitleProductButton:
            openProductWebPage(this);
            break;
        case kTitleTwoDGraphButton:
            openTwoDGraph();
            break;
        case kTitleEquationButton:
            openEquation();
            break;
        case kTitleThreeDGraphButton:
            openThreeDGraph();
            break;
        default:
            break;
    }
}

void MainWindow::openTwoDGraph() {
    twoDGraphDialog(false)->open();
}

void MainWindow::addOrEraseSecondFunction() {
    if (!parts_.graph.hasSecond()) {
        TwoDGraphDialog* dialog = twoDGraphDialog(true);
        dialog->copyRangeFrom(*twoDGraphDialog(false));
        dialog->open();
        return;
    }
    parts_.graph.second.release();
    parts_.graph.secondFormulaText.clear();
    resetView(parts_.view, parts_.graph);
    graphArea_->showNewGraph();
    refreshCommands();
}

void MainWindow::switchFunctions() {
    TwoDGraph& graph = parts_.graph;
    if (!graph.hasSecond()) {
        return;
    }
    std::swap(graph.main, graph.second);
    std::swap(graph.mainFormulaText, graph.secondFormulaText);
    std::swap(parts_.formula.slots[0], parts_.formula.slots[2]);
    // The dialogs show what each curve is now, so OK in either draws what the user sees.
    if (mainDialog_ != nullptr && secondDialog_ != nullptr) {
        const QString mainText = mainDialog_->formulaText();
        mainDialog_->setFormulaText(secondDialog_->formulaText());
        secondDialog_->setFormulaText(mainText);
    }
    // The derivative and the integral were taken of the function that is now the second one.
    graph.derivative.release();
    graph.integral.release();
    graph.areaLast = -1;
    parts_.view.areaPainted = false;
    resetView(parts_.view, graph);
    graphArea_->showNewGraph();
    refreshCommands();
}

void MainWindow::saveNewEntries() {
    if (history_ != nullptr) {
        history_->saveNow();
    }
    refreshCommands();
}

void MainWindow::returnToTitlePage() {
    rotation_->stopAnimation();
    setKind(GraphKind::TitlePage);
    pages_->setCurrentWidget(titlePage_);
    status_->setText(QStringLiteral("Ready"));
    refreshCommands();
    Q_EMIT titlePageShown();
}

void MainWindow::exitProgram() {
    const auto answer = QMessageBox::question(this, QStringLiteral("Exit"),
                                              QStringLiteral("DO YOU REALLY WANT TO EXIT?"),
                                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer != QMessageBox::Yes) {
        return;
    }
    close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    parts_.worker.stop();
    if (history_ != nullptr && !history_->saveOnExit()) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT closed();
}

void MainWindow::toggleGrid() {
    if (kind_ == GraphKind::Surface3D) {
        surfaceCommands_->toggleGridBox();
        refreshCommands();
        return;
    }
    parts_.view.gridOn = !parts_.view.gridOn;
    graphArea_->redraw();
    refreshCommands();
}

void MainWindow::openCalculator() {
    const char* path = std::getenv("PATH");
    const std::string program = findCalculator(path != nullptr ? path : "");
    if (program.empty()) {
        QMessageBox::warning(this, QStringLiteral("CURVEMILL"),
                             QString::fromLatin1(kMsgNoCalculator));
        return;
    }
    QProcess::startDetached(QString::fromStdString(program), {});
}

void MainWindow::setMouseMove() {
    viewCommands_->setSelectArea(false);
}

void MainWindow::setMouseSelect() {
    viewCommands_->setSelectArea(true);
}

void MainWindow::zoomInX() {
    rotation_->stopAnimation();
    viewCommands_->zoomIn(ZoomAxis::kX);
}

void MainWindow::zoomInY() {
    rotation_->stopAnimation();
    viewCommands_->zoomIn(ZoomAxis::kY);
}

void MainWindow::zoomInBoth() {
    rotation_->stopAnimation();
    if (kind_ == GraphKind::Surface3D) {
        zoomSurface(2.0);
        return;
    }
    viewCommands_->zoomIn(ZoomAxis::kBoth);
}

void MainWindow::zoomOutX() {
    rotation_->stopAnimation();
    viewCommands_->zoomOut(ZoomAxis::kX);
}

void MainWindow::zoomOutY() {
    rotation_->stopAnimation();
    viewCommands_->zoomOut(ZoomAxis::kY);
}

void MainWindow::zoomOutBoth() {
    rotation_->stopAnimation();
    if (kind_ == GraphKind::Surface3D) {
        zoomSurface(0.5);
        return;
    }
    viewCommands_->zoomOut(ZoomAxis::kBoth);
}

void MainWindow::restoreZoom() {
    rotation_->stopAnimation();
    if (kind_ == GraphKind::Surface3D) {
        zoomSurface(1.0 / parts_.surface.view.zoom);
        return;
    }
    viewCommands_->restore();
}

void MainWindow::fitToWindow() {
    rotation_->stopAnimation();
    viewCommands_->fit();
}

void MainWindow::stretch() {
    viewCommands_->stretch();
}

void MainWindow::undoStretch() {
    viewCommands_->undoStretch();
}

void MainWindow::openTwoDCustomization() {
    viewCommands_->openCustomization(kind_ == GraphKind::Equation);
}

void MainWindow::openThreeDCustomization() {
    surfaceCommands_->openCustomization();
}

void MainWindow::toggleDrawingProcess() {
    viewCommands_->toggleDrawingProcess();
}

void MainWindow::demonstrateFailure() {
    parts_.reporter.reportFailure(kProcTest, 0);
}

void MainWindow::showAbout() {
    AboutDialog about(this);
    about.exec();
}

void MainWindow::saveAsFile() {
    outputs_->saveAsFile();
}

void MainWindow::printGraph() {
    outputs_->print();
}

void MainWindow::copySelection() {
    outputs_->copy();
}

void MainWindow::showHelpTopics() {
    help_->showHelpTopic(kHelpHomeTopic);
}

void MainWindow::showContextHelp() {
    // With nothing of this window focused, the page on show is what the user asks about.
    QWidget* about = QApplication::focusWidget();
    if (about == nullptr || about->window() != this || about == this) {
        about = pages_->currentWidget();
    }
    contextHelp_->showFor(about);
}

void MainWindow::findInHistory() {
    if (history_ != nullptr) {
        history_->runListCommand(cmd::kFind);
    }
}

void MainWindow::findNextInHistory() {
    if (history_ != nullptr) {
        history_->runListCommand(cmd::kFindNext);
    }
}

void MainWindow::deleteHistoryItem() {
    if (history_ != nullptr) {
        history_->runListCommand(cmd::kDeleteItem);
    }
}

// For an equation the Math dialog is the list of its solution points, and Information finds x
// for a y or y for an x on its curve.
void MainWindow::openMathDialog() {
    if (kind_ == GraphKind::Equation) {
        equation_->openSolutions();
        return;
    }
    math_->openMathDialog();
}

void MainWindow::openInformation() {
    if (kind_ == GraphKind::Equation) {
        equation_->openInformation();
        return;
    }
    math_->openInformation();
}

void MainWindow::eraseIntegral() {
    math_->eraseIntegral();
}

void MainWindow::eraseDerivative() {
    math_->eraseDerivative();
}

void MainWindow::unmarkIndefiniteAreas() {
    math_->unmarkIndefiniteAreas();
}

void MainWindow::openEquation() {
    equation_->openWindow(TwoVariableMode::kEquation);
}

void MainWindow::openThreeDRotation() {
    rotation_->openDialog();
}

void MainWindow::rotateRight() {
    rotation_->rotateRight();
}

void MainWindow::rotateLeft() {
    rotation_->rotateLeft();
}

void MainWindow::openThreeDGraph() {
    equation_->openWindow(TwoVariableMode::kSurface);
}

void MainWindow::showEquation() {
    rotation_->stopAnimation();
    graphArea_->canvas()->showSurface(nullptr);
    setKind(GraphKind::Equation);
    pages_->setCurrentWidget(graphArea_);
    graphArea_->showNewGraph();
    const EquationCurve& curve = equation_->curve();
    status_->setText(curve.count() == 0
                         ? QStringLiteral("%1 = 0 has no solution point on this grid")
                               .arg(QString::fromStdString(curve.formulaText))
                     : curve.truncated ? QString::fromStdString(solutionLimitText())
                                       : QStringLiteral("%1 solution points").arg(curve.count()));
    refreshCommands();
}

}  // namespace curvemill
