// The equation's road through the main window: the command opens the input window, a computed
// equation is shown with its dots and title, the menus follow, and the tools reach the curve.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include "engine/Formula.h"
#include "equation/EquationCurve.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph3d/SurfaceScene.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/MainWindow.h"
#include "tests/support/DialogControls.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/TwoVariableSettings.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class EquationShellTest : public QObject {
    Q_OBJECT

    Formula formula;
    TwoDGraph graph;
    GraphView view;
    EquationCurve curve;
    TwoVariableSettings settings;
    RecordingReporter reporter;
    Worker worker{reporter};
    SurfaceScene surface;
    std::unique_ptr<MainWindow> window;

    QAction* action(int id) { return window->commands().action(id); }

    // Opens the window with `command`, types the entry and presses OK.
    TwoVariableWindow* enter(int command, const QString& equation) {
        action(command)->trigger();
        TwoVariableWindow* input = window->equationCommands().window();
        if (input == nullptr || !input->isVisible()) {
            return nullptr;
        }
        const int ids[] = {twovar_ids::kXBegin, twovar_ids::kXEnd, twovar_ids::kYBegin,
                           twovar_ids::kYEnd, twovar_ids::kFormula};
        const QString texts[] = {u"-2"_s, u"2"_s, u"-2"_s, u"2"_s, equation};
        for (int i = 0; i < 5; ++i) {
            control<QLineEdit>(*input, ids[i])->setText(texts[i]);
        }
        control<QPushButton>(*input, twovar_ids::kOk)->click();
        return input;
    }

  private Q_SLOTS:
    void init() {
        curve = EquationCurve{};
        window = std::make_unique<MainWindow>(
            MainWindowParts{formula, graph, view, reporter, worker, surface, &curve, &settings});
        window->resize(900, 700);
        window->show();
    }
    void cleanup() { window.reset(); }

    void equationIsShownWithItsDotsAndMenus() {
        QVERIFY(!action(40012)->isEnabled());
        TwoVariableWindow* input = enter(40086, u"x^2+y^2-1"_s);
        QVERIFY(input != nullptr);
        QCOMPARE(input->windowTitle(), u"Equation"_s);
        QTRY_COMPARE(window->graphKind(), GraphKind::Equation);
        QVERIFY(!input->isVisible());
        QVERIFY(curve.count() > 100);
        QCOMPARE(view.wholeXBegin, -2.0);
        QCOMPARE(view.yBegin, curve.yMin);
        // Zoom and grid apply to the flat view; the function-only tools are grey.
        QVERIFY(action(40012)->isEnabled());
        QVERIFY(!action(40051)->isEnabled());
        QVERIFY(!action(40033)->isEnabled());

        GraphCanvas* canvas = window->graphArea()->canvas();
        canvas->repaint();
        const QImage& buffer = canvas->backBuffer();
        int dots = 0;
        for (int y = 0; y < buffer.height(); ++y) {
            for (int x = 0; x < buffer.width(); ++x) {
                dots += buffer.pixel(x, y) == qRgb(200, 0, 0);
            }
        }
        QVERIFY(dots > 100);
        // The mouse reads coordinates off an equation as off a function graph.
        QTest::mouseMove(canvas, canvas->rect().center());
        QTRY_VERIFY(!window->findChild<QLabel*>(u"coordinatesText"_s)->text().isEmpty());

        // The solutions dialog comes with Math Dialog and follows the next equation.
        action(40012)->trigger();
        auto* solutions = window->equationCommands().solutionsDialog();
        QVERIFY(solutions != nullptr && solutions->isVisible());
        const int before = curve.count();
        enter(40086, u"x*y-1"_s);
        QTRY_VERIFY(curve.count() != before);
        QVERIFY(solutions->findChild<QLabel*>(u"1181"_s)->text().startsWith(
            QString::number(curve.count())));
    }

    // The ThreeD mode hands its entries to the surface computation and shows the surface; a
    // Cancel with nothing on screen goes back to the title page.
    void surfaceModeDrawsTheSurfaceAndCancelLeadsBackToTheTitlePage() {
        TwoVariableWindow* input = enter(40091, u"sin(x)*cos(y)"_s);
        QVERIFY(input != nullptr);
        QCOMPARE(input->windowTitle(), u"ThreeD Function"_s);
        QTRY_COMPARE(window->graphKind(), GraphKind::Surface3D);
        QCOMPARE(settings.kind, 'y');
        QVERIFY(surface.complete);
        QVERIFY(action(40005)->isEnabled() && !action(40012)->isEnabled());

        window = std::make_unique<MainWindow>(
            MainWindowParts{formula, graph, view, reporter, worker, surface, &curve, &settings});
        window->show();
        action(40091)->trigger();
        TwoVariableWindow* again = window->equationCommands().window();
        QVERIFY(again != nullptr);
        QSignalSpy title(window.get(), &MainWindow::titlePageShown);
        control<QPushButton>(*again, twovar_ids::kCancel)->click();
        QCOMPARE(title.size(), 1);
        QCOMPARE(window->graphKind(), GraphKind::TitlePage);
    }

    // The zoom commands act on an equation as on a function graph; Restore shows it whole again.
    void zoomCommandsWorkOnAnEquation() {
        window->resize(1200, 450);
        QVERIFY(enter(40086, u"x^2+y^2-1"_s) != nullptr);
        QTRY_COMPARE(window->graphKind(), GraphKind::Equation);
        const auto inside = [this] {
            return view.visibleYBegin() < curve.yMin && view.visibleYEnd() > curve.yMax;
        };
        QVERIFY(inside());
        for (const int id : {40003, 40005, 40007}) {
            action(id)->trigger();
        }
        QCOMPARE(view.xZoom, 4.0);
        QCOMPARE(view.yZoom, 1.0);
        action(40126)->trigger();
        QCOMPARE(view.xZoom, 1.0);
        QVERIFY(inside());
    }
};

QTEST_MAIN(EquationShellTest)
#include "EquationShellTest.moc"
