// Turning a surface through the main window: the toolbar's steps, the dialog's command, the
// mouse over the canvas, and zoom commands ending the animation.
#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "engine/Formula.h"
#include "equation/EquationCurve.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph3d/SurfaceScene.h"
#include "graph3d/ui/RotationDialog.h"
#include "graph3d/ui/SurfaceRotator.h"
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

class RotationShellTest : public MainWindowFixture {
    Q_OBJECT

    SurfaceRotator& rotator() { return window->rotation().rotator(); }

  private Q_SLOTS:
    void init() {
        openWindow();
        QVERIFY(enterTwoVariables(40091, u"sin(x)*cos(y)"_s, u"3"_s) != nullptr);
        QTRY_COMPARE(window->graphKind(), GraphKind::Surface3D);
    }
    void cleanup() { window.reset(); }

    void toolbarStepsTurnAboutTheVerticalAxis() {
        QVERIFY(action(40101)->isEnabled() && action(40102)->isEnabled());
        action(40101)->trigger();
        QCOMPARE(rotator().angles().z, -kRotationStepDegrees);
        QCOMPARE(surface.view.mode, 'Q');
        action(40102)->trigger();
        action(40102)->trigger();
        QCOMPARE(rotator().angles().z, kRotationStepDegrees);
        action(40114)->trigger();
        QVERIFY(window->rotation().dialog() != nullptr && window->rotation().dialog()->isVisible());
    }

    // Every zoom command stops the figure turning before it zooms.
    void zoomCommandsStopTheAnimation() {
        for (int id : {40005, 40008, 40126, 40201}) {
            if (!action(id)->isEnabled()) {
                continue;
            }
            rotator().startAnimation(RotationAxis::kZ, 45);
            QTRY_VERIFY(rotator().angles().z > 1);
            action(id)->trigger();
            QVERIFY2(!rotator().animating(), qPrintable(QString::number(id)));
        }
        const double zoom = surface.view.zoom;
        rotator().startAnimation(RotationAxis::kZ, 45);
        action(40005)->trigger();
        QVERIFY(!rotator().animating());
        QCOMPARE(surface.view.zoom, zoom * 2);
    }

    // A new figure starts unrotated, and the mouse turns the one on screen.
    void dragOnTheCanvasTurnsAndANewFigureStartsUnrotated() {
        QWidget* canvas = window->graphArea()->canvas();
        QTest::mousePress(canvas, Qt::LeftButton, {}, {300, 300});
        QTest::mouseMove(canvas, {340, 300});
        QTest::mouseRelease(canvas, Qt::LeftButton, {}, {340, 300});
        QCOMPARE(rotator().angles().z, -20.0);
        window->showSurface();
        QCOMPARE(rotator().angles().z, 0.0);
        QCOMPARE(surface.view.mode, 'a');
    }
};

QTEST_MAIN(RotationShellTest)
#include "RotationShellTest.moc"
