#include "shell/ui/MainWindow.h"

#include <cstdlib>
#include <utility>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QProgressBar>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>

#include "engine/Formula.h"
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
#include "shell/ui/CurveCommands.h"
#include "shell/ui/DocumentCommands.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/FunctionCommands.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/GraphKinds.h"
#include "shell/ui/GraphOutputs.h"
#include "shell/ui/HistoryCommands.h"
#include "shell/ui/KindWindows.h"
#include "shell/ui/MathCommands.h"
#include "shell/ui/ProductWebPage.h"
#include "shell/ui/RotationCommands.h"
#include "shell/ui/ScreenFit.h"
#include "shell/ui/SurfaceCommands.h"
#include "shell/ui/TitlePage.h"
#include "shell/ui/ViewCommands.h"
#include "shell/ui/WindowDocument.h"
#include "twovar/TwoVariableSettings.h"
#include "worker/ui/Worker.h"

namespace curvemill {

MainWindow::MainWindow(MainWindowParts parts) : parts_(parts) {
    setObjectName(QStringLiteral("GRAPHIC"));
    setWindowTitle(QStringLiteral("CURVEMILL"));
    new ScreenFitter(this);
    commands_ = std::make_unique<CommandActions>(*this);

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
    curves_ = new CurveCommands(parts_.formula, parts_.worker, this);
    graphArea_->canvas()->setCurve(&curves_->graph());
    outputs_->setOtherGraphs({[this] { return kind_; }, &equation_->curve(), &equation_->look(),
                              &parts_.surface, &curves_->graph()});
    connect(curves_, &CurveCommands::shown, this, [this] { showGraph(*curveGraph_); });
    connect(curves_, &CurveCommands::statusMessage, this,
            [this](const QString& text) { status_->setText(text); });
    equation_->setSurfaceComputation(&surfaceComputation());
    connect(equation_, &EquationCommands::shown, this, [this] { showGraph(*equationGraph_); });
    connect(equation_, &EquationCommands::repaintRequested, this, [this] { graphArea_->redraw(); });
    connect(equation_, &EquationCommands::statusMessage, this,
            [this](const QString& text) { status_->setText(text); });
    connect(equation_, &EquationCommands::previousDiscarded, this, &MainWindow::discardGraph);
    connect(equation_, &EquationCommands::cancelled, this, [this] {
        if (kind_ == GraphKind::TitlePage) {
            returnToTitlePage();
        }
    });
    functions_ = std::make_unique<FunctionCommands>(FunctionCommandParts{
        parts_.formula, parts_.graph, parts_.view, parts_.worker, *graphArea_, this,
        [this] { refreshCommands(); }, [this] { showGraph(*functionGraph_); }});

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
    connect(graphArea_, &GraphArea::viewChanging, rotation_, &RotationCommands::stopAnimation);
    functionGraph_ = std::make_unique<FunctionGraph>(*graphArea_, parts_.view, *viewCommands_,
                                                     parts_.graph, *math_);
    equationGraph_ =
        std::make_unique<EquationGraph>(*graphArea_, parts_.view, *viewCommands_, *equation_);
    curveGraph_ =
        std::make_unique<CurveShownGraph>(*graphArea_, parts_.view, *viewCommands_, *curves_);
    surfaceGraph_ =
        std::make_unique<SurfaceGraph>(*graphArea_, parts_.surface, *surfaceCommands_, *rotation_);
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

    bindWindowCommands();
    bindKindCommands();
    functions_->bindCommands(*commands_);
    math_->bindCommands(*commands_);
    equation_->bindCommands(*commands_);
    curves_->bindCommands(*commands_);
    outputs_->bindCommands(*commands_);
    viewCommands_->bindCommands(*commands_);
    rotation_->bindCommands(*commands_);
    surfaceCommands_->bindCommands(*commands_);
    bindHistoryCommands(
        *commands_, [this] { return history_; }, [this] { refreshCommands(); });
    document_ = std::make_unique<WindowDocument>(WindowDocumentParts{
        parts_.formula, parts_.graph, parts_.view, parts_.surface, parts_.worker, *graphArea_,
        *viewCommands_, *functions_, *math_, *equation_, *curves_, *rotation_,
        [this] { return kind_; }, [this] { refreshCommands(); }});
    documents_ = new DocumentCommands(*this, *document_);
    documents_->bindCommands(*commands_);
    documents_->watch(*graphArea_->canvas());
    connect(documents_, &DocumentCommands::recentChanged, this, [this] { refreshCommands(); });
    setAcceptDrops(true);
    refreshCommands();
}

// The input window waits for a running computation when it goes; the computations it hands work
// to are members, so it goes first. The canvas's surface mouse asks this window what is shown
// on every event, and the canvas still gets events while QWidget tears the children down: the
// mouse goes before this window stops being one.
MainWindow::~MainWindow() {
    shown_ = nullptr;
    // It watches the canvas and asks the window's document of what is shown.
    delete documents_;
    documents_ = nullptr;
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
    functions_->setHistoryPort(history_);
    refreshCommands();
}

ShellState MainWindow::shellState() const {
    ShellState state;
    state.kind = kind_;
    state.hasSecondFunction = parts_.graph.hasSecond();
    state.hasDerivative = parts_.graph.hasDerivative();
    state.hasIntegral = parts_.graph.hasIntegral();
    state.historyWired = history_ != nullptr;
    state.historyChanged = history_ != nullptr && history_->hasUnsavedEntries();
    state.areaPainted = parts_.view.areaPainted;
    state.indefiniteMarked = parts_.view.indefiniteMarked;
    state.hasRecentGraphs = documents_ != nullptr && !documents_->recentGraphs().isEmpty();
    viewCommands_->fillState(state);
    if (shown_ != nullptr) {
        shown_->fillState(state);
    }
    return state;
}

void MainWindow::refreshCommands() {
    commands_->apply(shellState());
    if (documents_ != nullptr) {
        documents_->scheduleCheck();
    }
}

TwoDGraphDialog* MainWindow::twoDGraphDialog(bool second) {
    return functions_->dialog(second);
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
    graphArea_->beforeViewChange();
    shown_ = nullptr;
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
    graphArea_->canvas()->showSurface(nullptr);
    setKind(GraphKind::TitlePage);
    status_->setText(QStringLiteral("Ready"));
    refreshCommands();
}

QString MainWindow::statusText() const {
    return status_->text();
}

void MainWindow::bindWindowCommands() {
    CommandActions& actions = *commands_;
    for (const Command id : {Command::ReturnToTitle, Command::ReturnToTitleButton}) {
        actions.bind(id, [this] { returnToTitlePage(); });
    }
    actions.bind(Command::Exit, [this] {
        const auto answer = QMessageBox::question(
            this, QStringLiteral("Exit"), QStringLiteral("DO YOU REALLY WANT TO EXIT?"),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        if (answer == QMessageBox::Yes) {
            close();
        }
    });
    actions.bind(Command::Calculator, [this] {
        const char* path = std::getenv("PATH");
        const std::string program = findCalculator(path != nullptr ? path : "");
        if (program.empty()) {
            QMessageBox::warning(this, QStringLiteral("CURVEMILL"),
                                 QString::fromLatin1(kMsgNoCalculator));
            return;
        }
        QProcess::startDetached(QString::fromStdString(program), {});
    });
    actions.bind(Command::DemoFailure, [this] { parts_.reporter.reportFailure(kProcTest, 0); });
    actions.bind(Command::About, [this] {
        AboutDialog about(this);
        about.exec();
    });
    actions.bind(Command::HelpTopics, [this] { help_->showHelpTopic(kHelpHomeTopic); });
    actions.bind(Command::ContextHelp, [this] {
        // With nothing of this window focused, the page on show is what the user asks about.
        QWidget* about = QApplication::focusWidget();
        if (about == nullptr || about->window() != this || about == this) {
            about = pages_->currentWidget();
        }
        contextHelp_->showFor(about);
    });
}

void MainWindow::bindKindCommands() {
    const auto toShown = [this](void (*tool)(ShownGraph&)) {
        return [this, tool] {
            if (shown_ != nullptr) {
                tool(*shown_);
                refreshCommands();
            }
        };
    };
    commands_->bind(Command::MathDialog, toShown([](ShownGraph& g) { g.openMathDialog(); }));
    commands_->bind(Command::Information, toShown([](ShownGraph& g) { g.openInformation(); }));
    commands_->bind(Command::DrawGrid, toShown([](ShownGraph& g) { g.toggleGrid(); }));
    commands_->bind(Command::RestoreZoom, toShown([](ShownGraph& g) { g.restoreZoom(); }));
    commands_->bind(Command::ZoomInBoth, [this] {
        if (shown_ != nullptr) {
            shown_->zoomBoth(true);
        }
    });
    commands_->bind(Command::ZoomOutBoth, [this] {
        if (shown_ != nullptr) {
            shown_->zoomBoth(false);
        }
    });
}

void MainWindow::showGraph(ShownGraph& graph) {
    setKind(graph.kind());
    shown_ = &graph;
    pages_->setCurrentWidget(graphArea_);
    if (const QString status = graph.show(); !status.isEmpty()) {
        status_->setText(status);
    }
    refreshCommands();
}

void MainWindow::showSurface() {
    showGraph(*surfaceGraph_);
}

bool MainWindow::zoomSurface(double factor) {
    return kind_ == GraphKind::Surface3D && surfaceGraph_->zoom(factor);
}

void MainWindow::returnToTitlePage() {
    setKind(GraphKind::TitlePage);
    pages_->setCurrentWidget(titlePage_);
    status_->setText(QStringLiteral("Ready"));
    if (documents_ != nullptr) {
        documents_->forget();
    }
    refreshCommands();
    Q_EMIT titlePageShown();
}

void MainWindow::onTitleCommand(int id) {
    switch (id) {
        case kTitleProductButton:
            openProductWebPage(this);
            break;
        case kTitleTwoDGraphButton:
            commands_->run(Command::TwoDGraph);
            break;
        case kTitleEquationButton:
            commands_->run(Command::Equation);
            break;
        case kTitleThreeDGraphButton:
            commands_->run(Command::ThreeDGraph);
            break;
        case kTitleParametricCurveButton:
            commands_->run(Command::ParametricCurve);
            break;
        case kTitlePolarCurveButton:
            commands_->run(Command::PolarCurve);
            break;
        default:
            break;
    }
}

namespace {

// The one local file a drag carries, or empty.
QString droppedFile(const QMimeData* data) {
    if (data == nullptr || data->urls().size() != 1 || !data->urls().constFirst().isLocalFile()) {
        return {};
    }
    return data->urls().constFirst().toLocalFile();
}

}  // namespace

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedFile(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

// Any one file is taken: the reader says what is wrong with one that is not a graph document.
void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = droppedFile(event->mimeData());
    if (path.isEmpty()) {
        return;
    }
    event->acceptProposedAction();
    // Opened after the drop has ended, so the source is not kept waiting by a question.
    QTimer::singleShot(0, this, [this, path] { documents_->openAsked(path); });
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!documents_->mayDiscard()) {
        event->ignore();
        return;
    }
    parts_.worker.stop();
    if (history_ != nullptr && !history_->saveOnExit()) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT closed();
}

}  // namespace curvemill
