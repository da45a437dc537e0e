// Test fixture: a main window over state the test can read, and the ways a user draws with it.
#pragma once

#include <memory>

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

#include "engine/Formula.h"
#include "equation/EquationCurve.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph3d/SurfaceScene.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/MainWindow.h"
#include "tests/support/DialogControls.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/TwoVariableSettings.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

namespace curvemill::testing {

// A Qt Test class derives from it, opens the window in init() and resets it in cleanup().
class MainWindowFixture : public QObject {
  protected:
    Formula formula;
    TwoDGraph graph;
    GraphView view;
    EquationCurve curve;
    TwoVariableSettings settings;
    RecordingReporter reporter;
    Worker worker{reporter};
    SurfaceScene surface;
    std::unique_ptr<MainWindow> window;

    // A new window over cleared state, shown at `size`.
    void openWindow(QSize size = {900, 700}) {
        window.reset();
        graph = TwoDGraph{};
        view = GraphView{};
        curve = EquationCurve{};
        surface = SurfaceScene{};
        window = std::make_unique<MainWindow>(
            MainWindowParts{formula, graph, view, reporter, worker, surface, &curve, &settings});
        window->resize(size);
        window->show();
    }

    QAction* action(int id) { return window->commands().action(id); }
    GraphCanvas* canvas() { return window->graphArea()->canvas(); }

    // The main (or second) function's dialog from its command, `text` typed over the range the
    // dialog holds, OK pressed; true once the graph is drawn.
    bool drawFunction(bool second, const QString& text) {
        action(second ? 40051 : 40009)->trigger();
        TwoDGraphDialog* dialog = window->twoDGraphDialog(second);
        if (!dialog->isVisible()) {
            return false;
        }
        control<QLineEdit>(*dialog, twod_ids::kFormula)->setText(text);
        QSignalSpy finished(dialog, &TwoDGraphDialog::runFinished);
        control<QPushButton>(*dialog, twod_ids::kOk)->click();
        return finished.wait(20000) && finished.first().first().toBool();
    }

    // The two-variable window from `command` (equation or surface), its boxes filled, OK
    // pressed; null when it did not open. A template so that only the tests that use it need
    // shell/ui/EquationCommands.h (its information ids clash with the Math dialog's).
    template <class Window = MainWindow>
    TwoVariableWindow* enterTwoVariables(int command, const QString& text,
                                         const QString& range = QStringLiteral("2")) {
        action(command)->trigger();
        Window& main = *window;
        TwoVariableWindow* input = main.equationCommands().window();
        if (input == nullptr || !input->isVisible()) {
            return nullptr;
        }
        const int ids[] = {twovar_ids::kXBegin, twovar_ids::kXEnd, twovar_ids::kYBegin,
                           twovar_ids::kYEnd, twovar_ids::kFormula};
        const QString texts[] = {u'-' + range, range, u'-' + range, range, text};
        for (int i = 0; i < 5; ++i) {
            control<QLineEdit>(*input, ids[i])->setText(texts[i]);
        }
        control<QPushButton>(*input, twovar_ids::kOk)->click();
        return input;
    }
};

}  // namespace curvemill::testing
