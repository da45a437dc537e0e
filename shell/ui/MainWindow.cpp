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
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "help/ui/ContextHelp.h"
#include "help/ui/HelpViewer.h"
#include "history/HistoryPort.h"
#include "shell/CalculatorLocator.h"
#include "shell/ui/AboutDialog.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/ProductWebPage.h"
#include "shell/ui/TitlePage.h"
#include "worker/ui/Worker.h"

namespace curvemill {

MainWindow::MainWindow(MainWindowParts parts) : parts_(parts) {
    setObjectName(QStringLiteral("GRAPHIC"));
    setWindowTitle(QStringLiteral("CURVEMILL"));
    commands_ = std::make_unique<CommandActions>(*this, *this);

    pages_ = new QStackedWidget(this);
    titlePage_ = new TitlePage(pages_);
    graphArea_ = new GraphArea(parts_.graph, parts_.view, pages_);
    pages_->addWidget(titlePage_);
    pages_->addWidget(graphArea_);
    setCentralWidget(pages_);
    connect(titlePage_, &TitlePage::commandTriggered, this, &MainWindow::onTitleCommand);

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

    help_ = std::make_unique<HelpViewer>(findInstalledHelpArchive,
                                         [this] { openProductWebPage(this); });
    contextHelp_ = std::make_unique<ContextHelp>(*help_);

    refreshCommands();
}

MainWindow::~MainWindow() = default;

void MainWindow::setHistoryPort(HistoryPort* history) {
    history_ = history;
    if (history_ != nullptr) {
        history_->setChangedCallback([this] { refreshCommands(); });
    }
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
    state.gridOn = parts_.view.gridOn;
    state.historyWired = history_ != nullptr;
    state.historyChanged = history_ != nullptr && history_->hasUnsavedEntries();
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
            // The second function's own range became the graph's: the main dialog shows it too.
            if (second && mainDialog_ != nullptr) {
                mainDialog_->copyRangeFrom(*secondDialog_);
            }
            showGraph();
        });
    }
    return dialog;
}

QString MainWindow::statusText() const {
    return status_->text();
}

void MainWindow::showGraph() {
    kind_ = GraphKind::Function2D;
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
    status_->setText(
        QStringLiteral("y = %1 has no value between x = %2 and x = %3: nothing to draw")
            .arg(undefined.join(QStringLiteral(" and y = ")))
            .arg(graph.xBegin, 0, 'g', 15)
            .arg(graph.xEnd, 0, 'g', 15));
}

void MainWindow::onTitleCommand(int id) {
    switch (id) {
        case kTitleProductButton:
            openProductWebPage(this);
            break;
        case kTitleTwoDGraphButton:
            openTwoDGraph();
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
    kind_ = GraphKind::TitlePage;
    pages_->setCurrentWidget(titlePage_);
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
    mouseMode_ = MouseMode::Move;
    graphArea_->setCursor(Qt::OpenHandCursor);
}

void MainWindow::setMouseSelect() {
    mouseMode_ = MouseMode::Select;
    graphArea_->setCursor(Qt::CrossCursor);
}

void MainWindow::demonstrateFailure() {
    parts_.reporter.reportFailure(kProcTest, 0);
}

void MainWindow::showAbout() {
    AboutDialog about(this);
    about.exec();
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

}  // namespace curvemill
