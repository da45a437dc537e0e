#include "shell/ui/EquationCommands.h"

#include <algorithm>
#include <array>
#include <memory>

#include "engine/ui/LogBaseDialog.h"
#include "equation/ui/EquationInformationDialog.h"
#include "equation/ui/EquationSolutionsDialog.h"
#include "graph2d/TwoDGraph.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/KindWindows.h"
#include "twovar/ui/TwoVariableWindow.h"

namespace curvemill {

namespace {

// The tools sit at the right edge of the main window, where they hide the least of a graph whose
// middle is the origin; `bottom` puts one at the lower corner so the two can be open together.
void placeAtRightEdge(QWidget* dialog, QWidget* parent, bool bottom) {
    if (parent == nullptr) {
        return;
    }
    dialog->adjustSize();
    const QRect area = parent->geometry();
    const QSize size = dialog->frameGeometry().size();
    const int x = area.right() - size.width() - 24;
    const int y = bottom ? area.bottom() - size.height() - 48 : area.top() + 72;
    dialog->move(std::max(area.left(), x), std::max(area.top(), y));
}

template <class T>
T* ownOrGiven(T* given, std::unique_ptr<T>& own) {
    if (given != nullptr) {
        return given;
    }
    own = std::make_unique<T>();
    return own.get();
}

}  // namespace

EquationCommands::EquationCommands(Formula& formula, GraphView& view, Worker& worker,
                                   const TwoDGraph& graph, EquationCurve* curve,
                                   TwoVariableSettings* settings, QWidget* parent)
    : QObject(parent),
      formula_(formula),
      view_(view),
      worker_(worker),
      parent_(parent),
      curve_(ownOrGiven(curve, ownCurve_)),
      settings_(ownOrGiven(settings, ownSettings_)),
      computation_(formula, *curve_, view, graph.maxYRatio) {
    computation_.setShownCallback([this] {
        look_.hasMark = false;
        if (solutions_ != nullptr) {
            solutions_->refresh();
        }
        Q_EMIT shown();
    });
}

void EquationCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::Equation, [this] { openWindow(TwoVariableMode::kEquation); });
    actions.bind(Command::ThreeDGraph, [this] { openWindow(TwoVariableMode::kSurface); });
}

EquationCommands::~EquationCommands() {
    delete window_;
}

void EquationCommands::setHistoryPort(HistoryPort* history) {
    history_ = history;
    if (window_ != nullptr) {
        window_->setHistoryPort(history);
    }
}

void EquationCommands::setSurfaceComputation(TwoVariableComputation* surface) {
    surface_ = surface;
    if (window_ != nullptr) {
        window_->setSurfaceComputation(surface);
    }
}

bool EquationCommands::runUnrecorded(TwoVariableMode mode, std::function<void(bool)> ended) {
    openWindow(mode);
    if (window_ == nullptr || window_->isRunning()) {
        return false;
    }
    TwoVariableWindow* window = window_;
    // One answer per run: whichever of the two comes first ends both connections.
    auto connections = std::make_shared<std::array<QMetaObject::Connection, 2>>();
    const auto answer = [connections, ended](bool shown) {
        for (const QMetaObject::Connection& connection : *connections) {
            QObject::disconnect(connection);
        }
        ended(shown);
    };
    (*connections)[0] = connect(window, &TwoVariableWindow::computationShown, this,
                                [answer](TwoVariableMode) { answer(true); });
    (*connections)[1] =
        connect(window, &TwoVariableWindow::repaintRequested, this, [answer] { answer(false); });
    window->setHistoryPort(nullptr);
    {
        const LogBaseQuestionHold opened;
        window->accept();
    }
    window->setHistoryPort(history_);
    if (!window->isRunning()) {
        for (const QMetaObject::Connection& connection : *connections) {
            QObject::disconnect(connection);
        }
        return false;
    }
    return true;
}

void EquationCommands::openWindow(TwoVariableMode mode) {
    if (window_ == nullptr) {
        window_ =
            new TwoVariableWindow(formula_, *settings_, worker_, surface_, &computation_, parent_);
        window_->setWindowModality(Qt::WindowModal);
        window_->setHistoryPort(history_);
        connect(window_, &TwoVariableWindow::repaintRequested, this,
                &EquationCommands::repaintRequested);
        connect(window_, &TwoVariableWindow::cancelled, this, &EquationCommands::cancelled);
        connect(window_, &TwoVariableWindow::previousDiscarded, this,
                &EquationCommands::previousDiscarded);
        connect(window_, &TwoVariableWindow::statusMessage, this, &EquationCommands::statusMessage);
    }
    if (window_->isRunning()) {
        window_->raise();
        return;
    }
    window_->prepare(mode);
    window_->open();
}

void EquationCommands::openSolutions() {
    if (solutions_ == nullptr) {
        solutions_ = new EquationSolutionsDialog(*curve_, parent_);
        belongToGraphKind(*solutions_, GraphKind::Equation);
        connect(solutions_, &EquationSolutionsDialog::pointMarked, this,
                [this](bool marked, double x, double y) {
                    look_.hasMark = marked;
                    look_.mark = {x, y};
                    Q_EMIT repaintRequested();
                });
        connect(solutions_, &EquationSolutionsDialog::informationRequested, this,
                &EquationCommands::openInformation);
        connect(solutions_, &EquationSolutionsDialog::squaresToggled, this,
                &EquationCommands::setSquares);
        solutions_->setSquares(look_.squares);
        placeAtRightEdge(solutions_, parent_, false);
    }
    solutions_->refresh();
    solutions_->show();
    solutions_->raise();
    solutions_->activateWindow();
}

void EquationCommands::openInformation() {
    if (information_ == nullptr) {
        information_ = new EquationInformationDialog(formula_, view_, worker_, parent_);
        belongToGraphKind(*information_, GraphKind::Equation);
        placeAtRightEdge(information_, parent_, true);
    }
    information_->show();
    information_->raise();
    information_->activateWindow();
}

void EquationCommands::setSquares(bool on) {
    look_.squares = on;
    Q_EMIT repaintRequested();
}

}  // namespace curvemill
