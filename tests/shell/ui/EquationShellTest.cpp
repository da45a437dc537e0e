// The equation's road through the main window: the command opens the input window, a computed
// equation is shown with its dots and title, the menus follow, and the tools reach the curve.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QToolBar>
#include <QtTest>

#include "engine/Formula.h"
#include "equation/EquationCurve.h"
#include "equation/EquationSolver.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph3d/SurfaceScene.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/MainWindow.h"
#include "shell/ui/RotationCommands.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/TwoVariableSettings.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class EquationShellTest : public MainWindowFixture {
    Q_OBJECT

  private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { window.reset(); }

    void equationIsShownWithItsDotsAndMenus() {
        QVERIFY(!action(40012)->isEnabled());
        TwoVariableWindow* input = enterTwoVariables(40086, u"x^2+y^2-1"_s);
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
        enterTwoVariables(40086, u"x*y-1"_s);
        QTRY_VERIFY(curve.count() != before);
        QVERIFY(solutions->findChild<QLabel*>(u"1181"_s)->text().startsWith(
            QString::number(curve.count())));
    }

    // The ThreeD mode hands its entries to the surface computation and shows the surface; a
    // Cancel with nothing on screen goes back to the title page.
    void surfaceModeDrawsTheSurfaceAndCancelLeadsBackToTheTitlePage() {
        TwoVariableWindow* input = enterTwoVariables(40091, u"sin(x)*cos(y)"_s);
        QVERIFY(input != nullptr);
        QCOMPARE(input->windowTitle(), u"ThreeD Function"_s);
        QTRY_COMPARE(window->graphKind(), GraphKind::Surface3D);
        QCOMPARE(settings.kind, 'y');
        QVERIFY(surface.complete);
        QVERIFY(action(40005)->isEnabled() && !action(40012)->isEnabled());

        openWindow();
        action(40091)->trigger();
        TwoVariableWindow* again = window->equationCommands().window();
        QVERIFY(again != nullptr);
        QSignalSpy title(window.get(), &MainWindow::titlePageShown);
        control<QPushButton>(*again, twovar_ids::kCancel)->click();
        QCOMPARE(title.size(), 1);
        QCOMPARE(window->graphKind(), GraphKind::TitlePage);
    }

    // Solutions that fill the grid stop at the bound, and the status line says so.
    void aFilledGridIsBoundedAndTold() {
        settings.equationXPoints = 2000;
        settings.equationYPoints = 2000;
        enterTwoVariables(40086, u"x-x"_s);
        QTRY_COMPARE_WITH_TIMEOUT(window->graphKind(), GraphKind::Equation, 20000);
        QCOMPARE(curve.count(), kMostSolutions);
        QCOMPARE(window->statusText(), QString::fromStdString(solutionLimitText()));
    }

    // Windows of one graph kind close when another kind (or none) takes the screen, the input
    // window fills its boxes only from an entry of its own kind, a stopped run leaves nothing on
    // screen whatever it replaced, and Cancel then goes back to the title page.

    void windowsFollowTheGraphOnScreen() {
        QVERIFY(enterTwoVariables(40086, u"x^2+y^2-1"_s) != nullptr);
        QTRY_COMPARE(window->graphKind(), GraphKind::Equation);
        action(40012)->trigger();
        action(40200)->trigger();
        EquationCommands& tools = window->equationCommands();
        QVERIFY(tools.solutionsDialog()->isVisible() && tools.informationDialog()->isVisible());
        action(40091)->trigger();
        TwoVariableWindow* input = tools.window();
        QCOMPARE(control<QLineEdit>(*input, twovar_ids::kFormula)->text(), QString());
        QCOMPARE(control<QLineEdit>(*input, twovar_ids::kXBegin)->text(), u"-10"_s);
        input->reject();
        QVERIFY(enterTwoVariables(40091, u"x+y"_s) != nullptr);
        QTRY_COMPARE(window->graphKind(), GraphKind::Surface3D);
        QVERIFY(!tools.solutionsDialog()->isVisible() && !tools.informationDialog()->isVisible());
        // In 3D the grid box and Restore are there, in the menu and on the toolbar alike.
        for (int id : {40010, 40126}) {
            QVERIFY(window->commands().toolBar()->widgetForAction(action(id))->isEnabled());
        }
        action(40114)->trigger();
        QVERIFY(window->rotation().dialog()->isVisible());

        settings.surfaceXPoints = settings.surfaceYPoints = 500;
        input = enterTwoVariables(40091, u"sin(x*y)*ln(x^2+y^2+1)^3"_s);
        control<QPushButton>(*input, twovar_ids::kStop)->click();
        QTRY_VERIFY(control<QPushButton>(*input, twovar_ids::kCancel)->isEnabled());
        QCOMPARE(window->graphKind(), GraphKind::TitlePage);
        QVERIFY(!window->rotation().dialog()->isVisible());
        for (int id : {40030, 40101, 40114, 40005, 40010}) {
            QVERIFY2(!action(id)->isEnabled(), qPrintable(QString::number(id)));
        }
        QSignalSpy title(window.get(), &MainWindow::titlePageShown);
        control<QPushButton>(*input, twovar_ids::kCancel)->click();
        QCOMPARE(title.size(), 1);
        QVERIFY(!action(40010)->isChecked());
        QCOMPARE(window->statusText(), u"Ready"_s);
    }

    // Windows open within the free area of their screen and keep their size while a progress
    // bar comes and goes.
    void windowsFitTheScreenAndKeepTheirSize() {
        auto* big = new QWidget(window.get(), Qt::Window);
        big->resize(5000, 4000);
        big->move(300, 300);
        big->show();
        QVERIFY(big->screen()->availableGeometry().contains(big->frameGeometry()));
        QVERIFY(enterTwoVariables(40086, u"x^2+y^2-1"_s) != nullptr);
        QTRY_COMPARE(window->graphKind(), GraphKind::Equation);
        action(40200)->trigger();
        for (QWidget* tool :
             {static_cast<QWidget*>(window->equationCommands().window()),
              static_cast<QWidget*>(window->equationCommands().informationDialog())}) {
            auto* progress = tool->findChild<QProgressBar*>();
            const QSize idle = tool->sizeHint();
            progress->show();
            QCOMPARE(tool->sizeHint(), idle);
            progress->hide();
        }
    }

    // The zoom commands act on an equation as on a function graph; Restore shows it whole again.
    void zoomCommandsWorkOnAnEquation() {
        window->resize(1200, 450);
        QVERIFY(enterTwoVariables(40086, u"x^2+y^2-1"_s) != nullptr);
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
