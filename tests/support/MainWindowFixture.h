// Test fixture: a main window over state the test can read, reached as a user reaches it: commands
// by their ids, windows by their class, controls by their identifiers.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include "engine/Formula.h"
#include "equation/EquationCurve.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph3d/SurfaceScene.h"
#include "output/ui/GraphPrinting.h"
#include "shell/CommandTable.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/MainWindow.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/TwoVariableSettings.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

namespace curvemill::testing {

// The pixels of `image` that `wanted` picks.
inline qsizetype countPixels(const QImage& image, const std::function<bool(QRgb)>& wanted) {
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    qsizetype count = 0;
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        count += std::count_if(row, row + rgb.width(), wanted);
    }
    return count;
}

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
        settings = TwoVariableSettings{};
        graph = TwoDGraph{};
        view = GraphView{};
        curve = EquationCurve{};
        surface = SurfaceScene{};
        window = std::make_unique<MainWindow>(
            MainWindowParts{formula, graph, view, reporter, worker, surface, &curve, &settings});
        window->resize(size);
        window->show();
    }

    QAction* action(int id) const { return window->findChild<QAction*>(QString::number(id)); }
    template <class T = QWidget>
    T* named(const QString& name) const {
        return window->findChild<T*>(name);
    }
    // The window of class T (titled `title` when given) the main window shows, or null.
    template <class T>
    T* shown(const QString& title = {}) const {
        for (T* widget : window->findChildren<T*>()) {
            if (widget->isVisible() && (title.isEmpty() || widget->windowTitle() == title)) {
                return widget;
            }
        }
        return nullptr;
    }
    GraphCanvas* canvas() const { return named<GraphCanvas>(QStringLiteral("graphCanvas")); }
    QString status() const { return named<QLabel>(QStringLiteral("statusText"))->text(); }
    QScrollBar* bar(Qt::Orientation along) const {
        return named<QScrollBar>(along == Qt::Horizontal ? QStringLiteral("horizontalScrollBar")
                                                         : QStringLiteral("verticalScrollBar"));
    }

    // The left button pressed at `from` and let go at `to` on the canvas.
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(canvas(), (from + to) / 2);
        QTest::mouseMove(canvas(), to);
        QTest::mouseRelease(canvas(), Qt::LeftButton, {}, to);
    }

    // The modal dialog of class T that `command` opens, handed to `act` (which closes it); false
    // when none came.
    template <class T>
    bool withModal(int command, std::function<void(T*)> act) {
        ModalAction<T> modal(std::move(act));
        action(command)->trigger();
        return modal.seen;
    }

    // The pages Print lays out for the graph on screen; -1 when no preview came.
    int printedPages() {
        int pages = -1;
        withModal<PrintPreviewWindow>(40018, [&](PrintPreviewWindow* preview) {
            auto* widget = preview->findChild<QPrintPreviewWidget*>();
            widget->updatePreview();
            pages = widget->pageCount();
            preview->reject();
        });
        return pages;
    }

    // The main (or second) function's dialog from its command, `text` typed (and the range when
    // given), OK pressed; true once the graph is drawn.
    bool drawFunction(bool second, const QString& text, const QString& from = {},
                      const QString& to = {}) {
        action(second ? 40051 : 40009)->trigger();
        auto* dialog = shown<TwoDGraphDialog>();
        if (dialog == nullptr) {
            return false;
        }
        control<QLineEdit>(*dialog, twod_ids::kFormula)->setText(text);
        if (!from.isEmpty()) {
            control<QLineEdit>(*dialog, twod_ids::kXBegin)->setText(from);
            control<QLineEdit>(*dialog, twod_ids::kXEnd)->setText(to);
        }
        QSignalSpy finished(dialog, &TwoDGraphDialog::runFinished);
        control<QPushButton>(*dialog, twod_ids::kOk)->click();
        return finished.wait(20000) && finished.first().first().toBool();
    }

    // The two-variable window from `command` (equation or surface), its boxes filled over
    // -range..range, OK pressed; null when it did not open.
    TwoVariableWindow* enterTwoVariables(int command, const QString& text,
                                         const QString& range = QStringLiteral("2")) {
        action(command)->trigger();
        auto* input = shown<TwoVariableWindow>();
        if (input == nullptr) {
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
