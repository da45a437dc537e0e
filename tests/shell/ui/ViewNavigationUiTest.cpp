#include <fenv.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>
#include <QWheelEvent>
#include <QtTest>

#include "engine/Formula.h"
#include "failure/FaultTranslation.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph3d/SurfaceScene.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/MainWindow.h"
#include "shell/ui/ViewCommands.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/RecordingReporter.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class ViewNavigationUiTest : public MainWindowFixture {
    Q_OBJECT

    QPointF centre() const {
        return {view.graphX(view.left + view.visibleWidth() / 2),
                view.graphY(view.top + view.visibleHeight() / 2)};
    }

    // The tall curve that opens with its peak off screen.
    bool drawSinc() {
        action(40009)->trigger();
        TwoDGraphDialog* dialog = window->twoDGraphDialog(false);
        dialog->setEntry(u"sin(x)/x*80"_s, u"-20"_s, u"20"_s);
        QSignalSpy finished(dialog, &TwoDGraphDialog::runFinished);
        control<QPushButton>(*dialog, twod_ids::kOk)->click();
        return finished.wait(20000) && finished.first().first().toBool();
    }
    void wheel(QPoint at, Qt::KeyboardModifiers keys, int delta = 120) {
        QWheelEvent event(at, canvas()->mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton,
                          keys, Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas(), &event);
    }
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(canvas(), Qt::LeftButton, {}, from);
        QTest::mouseMove(canvas(), (from + to) / 2);
        QTest::mouseMove(canvas(), to);
        QTest::mouseRelease(canvas(), Qt::LeftButton, {}, to);
    }

  private Q_SLOTS:
    void initTestCase() { installFaultTranslation(); }
    void init() {
        openWindow({1000, 700});
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QVERIFY(drawSinc());
    }
    void cleanup() { window.reset(); }

    void menuZoomScrollBarsAndLimits() {
        QScrollBar* bar = window->graphArea()->horizontalBar();
        const QPointF before = centre();
        action(40003)->trigger();
        action(40003)->trigger();
        QCOMPARE(view.xZoom, 4.0);
        QVERIFY(bar->isEnabled());
        QCOMPARE(bar->maximum(), int(view.contentWidth) - int(view.visibleWidth()));
        QCOMPARE(bar->value(), int(view.scrollX));
        bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(view.scrollX, double(bar->value()));
        bar->setValue(int(view.scrollX) - 2);  // back to the middle, as far as whole pixels go
        action(40006)->trigger();
        action(40006)->trigger();
        QCOMPARE(view.xZoom, 1.0);
        QVERIFY(qAbs(centre().x() - before.x()) < 1 / (view.ppu));
        action(40126)->trigger();
        QCOMPARE(view.xZoom, 1.0);
        QVERIFY(action(40003)->isEnabled());
    }

    void wheelZoomsAboutTheMouse_data() {
        QTest::addColumn<int>("keys");
        QTest::addColumn<int>("delta");
        QTest::addColumn<bool>("xChanges");
        QTest::addColumn<bool>("yChanges");
        QTest::newRow("both in") << int(Qt::NoModifier) << 120 << true << true;
        QTest::newRow("ctrl: x only") << int(Qt::ControlModifier) << 360 << true << false;
        QTest::newRow("shift: y only") << int(Qt::ShiftModifier) << 120 << false << true;
    }
    void wheelZoomsAboutTheMouse() {
        QFETCH(int, keys);
        QFETCH(int, delta);
        QFETCH(bool, xChanges);
        QFETCH(bool, yChanges);
        action(40005)->trigger();  // room to zoom out about a point without reaching an edge
        const QPoint at(400, 300);
        const double x = view.graphX(at.x());
        const double y = view.graphY(at.y());
        const double xZoom = view.xZoom;
        const double yZoom = view.yZoom;
        wheel(at, Qt::KeyboardModifiers(keys), delta);
        QCOMPARE(view.xZoom != xZoom, xChanges);
        QCOMPARE(view.yZoom != yZoom, yChanges);
        QVERIFY(qAbs(view.toPixelX(x) - at.x()) <= 1.0);
        QVERIFY(qAbs(view.toPixelY(y) - at.y()) <= 1.0);
        QCOMPARE(window->graphArea()->verticalBar()->value(), int(view.scrollY));
    }

    void selectionStretchesToTheAreaAndUndoes() {
        action(40064)->trigger();
        QVERIFY(action(40064)->isChecked() && !action(40063)->isChecked());
        QVERIFY(!action(40049)->isEnabled());
        drag(QPoint(300, 200), QPoint(500, 320));
        const QRect selected = window->graphArea()->selectedRect();
        QCOMPARE(selected, QRect(QPoint(300, 200), QPoint(500, 320)));
        QVERIFY(action(40049)->isEnabled());
        const double x0 = view.graphX(300), scrollY = view.scrollY;
        action(40049)->trigger();
        QVERIFY(qAbs(view.toPixelX(x0) - view.left) <= 1);
        QVERIFY(window->graphArea()->selectedRect().isEmpty());
        QVERIFY(!action(40049)->isEnabled() && action(40050)->isEnabled());
        action(40050)->trigger();
        QVERIFY(qAbs(view.xZoom - 1.0) < 1e-12);
        QVERIFY(qAbs(view.scrollY - scrollY) < 1e-6);
        QVERIFY(!action(40050)->isEnabled());
        // A click clears the selection.
        drag(QPoint(300, 200), QPoint(500, 320));
        QTest::mouseClick(canvas(), Qt::LeftButton, {}, QPoint(200, 200));
        QVERIFY(window->graphArea()->selectedRect().isEmpty());
    }

    void moveScreenDragFollowsTheHand() {
        action(40005)->trigger();
        QVERIFY(action(40063)->isChecked());
        const double scrollX = view.scrollX;
        const double scrollY = view.scrollY;
        drag(QPoint(400, 300), QPoint(350, 340));
        QCOMPARE(view.scrollX, scrollX + 50);
        QCOMPARE(view.scrollY, scrollY - 40);
        QCOMPARE(window->graphArea()->horizontalBar()->value(), int(view.scrollX));
    }

    void resizeKeepsTheCentreAndFitShowsTheWholeRange() {
        const QPointF before = centre();
        for (const QSize size : {QSize(800, 600), QSize(1000, 700)}) {
            window->resize(size);
            QVERIFY(QTest::qWaitFor(
                [&] { return canvas()->size() == QSize(int(view.width), int(view.height)); }));
            QVERIFY(qAbs(centre().x() - before.x()) < 1e-6 &&
                    qAbs(centre().y() - before.y()) < 1e-6);
        }
        QVERIFY(view.visibleYEnd() < graph.main.yMax);  // the peak is off screen
        action(40201)->trigger();
        QVERIFY(view.visibleYEnd() >= graph.main.yMax - 1e-9);
        QVERIFY(!window->graphArea()->verticalBar()->isEnabled());
    }

    // The curve's name and the nearest record's coordinates once the mouse rests on it; nothing
    // away from it or with "Display Tooltips" off.
    void tooltipNamesTheCurveUnderTheMouse() {
        const QPoint onCurve(int(view.toPixelX(3.0)), int(view.toPixelY(80 * std::sin(3.0) / 3)));
        const auto rest = [&](QPoint at) {
            QToolTip::hideText();
            const bool hidden = QTest::qWaitFor([] { return !QToolTip::isVisible(); });
            if (!hidden) {
                return u"(an earlier tooltip stayed)"_s;
            }
            QHelpEvent help(QEvent::ToolTip, at, canvas()->mapToGlobal(at));
            QApplication::sendEvent(canvas(), &help);
            QTest::qWait(50);
            return QToolTip::isVisible() ? QToolTip::text() : QString();
        };
        const QString text = rest(onCurve);
        const QRegularExpressionMatch hit =
            QRegularExpression(u"^FUNCTION x=(-?\\d+\\.\\d{6}) y=(-?\\d+\\.\\d{6})$"_s).match(text);
        QVERIFY2(hit.hasMatch(), qPrintable(text));
        // A record of the curve within a few pixels of the mouse.
        QVERIFY(qAbs(view.toPixelX(hit.captured(1).toDouble()) - onCurve.x()) <= 5);
        QCOMPARE(rest(onCurve + QPoint(40, 0)), QString());
        TwoDSettings settings = window->viewCommands().settings();
        settings.tooltips = false;
        window->viewCommands().applySettings(settings);
        QCOMPARE(rest(onCurve), QString());
        // The toolbar's tooltips go with them.
        auto* zoomButton = qobject_cast<QToolButton*>(
            window->commands().toolBar()->widgetForAction(action(40005)));
        QVERIFY(zoomButton != nullptr);
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5), zoomButton->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(zoomButton, &help);
        QTest::qWait(50);
        QVERIFY(!QToolTip::isVisible());
    }

    void customizationSettingsReachTheWindow() {
        action(40005)->trigger();
        TwoDSettings settings = window->viewCommands().settings();
        settings.maxYRatio = 1;
        settings.selectArea = true;
        settings.toolbar = false;
        settings.optimizeDrawing = false;
        window->viewCommands().applySettings(settings);
        QCOMPARE(view.xZoom, 1.0);  // a new Y range starts the view again
        QVERIFY(view.yEnd - view.yBegin <= 40.0 + 1e-9);
        QCOMPARE(graph.drawStep, 1);
        QVERIFY(action(40064)->isChecked() && !action(40063)->isChecked());
        QCOMPARE(window->mouseMode(), MouseMode::Select);
        QVERIFY(window->commands().toolBar()->isHidden());
    }

    void drawingProcessShowsItsProgress() {
        action(40130)->trigger();
        QVERIFY(action(40130)->isChecked());
        QVERIFY(canvas()->drawingInProgress());
        QSignalSpy progress(canvas(), &GraphCanvas::drawingProgress);
        QVERIFY(QTest::qWaitFor([&] { return !canvas()->drawingInProgress(); }, 5000));
        QVERIFY(progress.count() > 10);
        QCOMPARE(progress.last().first().toInt(), -1);
        action(40130)->trigger();
        action(40005)->trigger();
        QVERIFY(!canvas()->drawingInProgress());
    }
};

QTEST_MAIN(ViewNavigationUiTest)
#include "ViewNavigationUiTest.moc"
