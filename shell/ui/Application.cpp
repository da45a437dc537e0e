#include "shell/ui/Application.h"

#include <QScreen>
#include <QTimer>

#include "failure/FailureGuard.h"
#include "failure/ui/GuardedApplication.h"
#include "graph2d/ui/FontSubstitutes.h"
#include "history/HistoryPort.h"
#include "history/ui/HistoryService.h"
#include "shell/ui/CurveCommands.h"
#include "shell/ui/DocumentCommands.h"
#include "shell/ui/MainWindow.h"
#include "shell/ui/ProductWebPage.h"
#include "shell/ui/TitlePage.h"
#include "shell/ui/ToolbarIcons.h"

namespace curvemill {

QString documentArgument(const QStringList& arguments) {
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        if (!arguments[i].startsWith(QLatin1Char('-'))) {
            return arguments[i];
        }
    }
    return {};
}

Application::Application(GuardedApplication& qt, StartupOptions options)
    : qt_(qt),
      options_(options),
      historyService_(std::make_unique<HistoryService>(
          historyStore_, reporter_, ".", [this] { openProductWebPage(window_.get()); })),
      history_(historyService_.get()) {}

Application::~Application() = default;

void Application::setHistoryPort(HistoryPort* history) {
    history_ = history;
    if (window_) {
        window_->setHistoryPort(history);
    }
}

void Application::createMainWindow() {
    window_ = std::make_unique<MainWindow>(MainWindowParts{
        formula_, graph_, view_, reporter_, worker_, surface_, &equation_, &twoVariable_});
    window_->setHistoryPort(history_);
    // The curves' history lives beside the entries file, in the same folder.
    window_->curves().setHistoryFolder(std::filesystem::path("."));
    historyService_->setDialogParent(window_.get());
    QObject::connect(window_.get(), &MainWindow::closed, &qt_, &QApplication::quit,
                     Qt::QueuedConnection);
}

void Application::prepareFailureReport() {
    platform_.addWindowHider([this] {
        if (history_ != nullptr) {
            history_->hideWindows();
        }
    });
    // No print preview window exists yet; it goes between the two when it does.
    platform_.addWindowHider([this] {
        if (window_) {
            window_->hide();
        }
    });
    platform_.setMainWindowFocuser([this] {
        if (window_) {
            window_->activateWindow();
            window_->setFocus(Qt::OtherFocusReason);
        }
    });
}

void Application::showMainWindow() {
    // Without a window manager "maximised" means nothing: start at the screen's size anyway.
    if (const QScreen* screen = window_->screen()) {
        window_->setGeometry(screen->availableGeometry());
    }
    window_->showMaximized();
}

int Application::run() {
    qt_.setFailureReporter(&reporter_);
    // Closing the main window ends the program even while history windows are open.
    qt_.setQuitOnLastWindowClosed(false);
    qt_.setWindowIcon(programIcon());
    installFontSubstitutes();
    for (auto step : {&Application::createMainWindow, &Application::prepareFailureReport,
                      &Application::showMainWindow}) {
        if (!runGuarded(kProcWinMain, reporter_, [this, step] { (this->*step)(); })) {
            return 0;
        }
    }
    if (options_.quitOnFirstPaint) {
        QObject::connect(window_->titlePage(), &TitlePage::firstPainted, &qt_,
                         [this] { QTimer::singleShot(0, &qt_, &QApplication::quit); });
    } else if (history_ != nullptr) {
        // Queued, so the loading dialog comes up over the shown title page.
        QTimer::singleShot(0, &qt_, [this] {
            runGuarded(kProcWinMain, reporter_, [this] { history_->loadAtStartup(); });
        });
    }
    if (!options_.quitOnFirstPaint && !options_.document.isEmpty()) {
        // After the history: a refused document is said over the window, which stays as it is.
        QTimer::singleShot(0, &qt_, [this] {
            runGuarded(kProcWinMain, reporter_,
                       [this] { window_->documents().openAsked(options_.document); });
        });
    }
    return qt_.exec();
}

}  // namespace curvemill
