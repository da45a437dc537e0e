// Moving about a 2D graph in the main window: zoom commands and scroll bars, the wheel, the
// selection, dragging, resizing, the mouse's read-outs and the customization that shapes them.
#include <QCheckBox>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QToolBar>
#include <QToolTip>
#include <QWheelEvent>
#include <QtTest>

#include "failure/FaultTranslation.h"
#include "graph2d/ui/TwoDCustomizationDialog.h"
#include "tests/support/MainWindowFixture.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class ViewNavigationUiTest : public MainWindowFixture {
    Q_OBJECT

    QPointF centre() const {
        return {view.graphX(view.left + view.visibleWidth() / 2),
                view.graphY(view.top + view.visibleHeight() / 2)};
    }
    // TwoD / Equation Customization with `change` made to its controls, then OK.
    bool customize(const std::function<void(QDialog&)>& change) {
        return withModal<QDialog>(40123, [&](QDialog* dialog) {
            change(*dialog);
            control<QPushButton>(*dialog, 1)->click();
        });
    }

  private Q_SLOTS:
    void initTestCase() { installFaultTranslation(); }
    // The tall curve that opens with its peak off screen.
    void init() {
        openWindow({1000, 700});
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QVERIFY(drawFunction(false, u"sin(x)/x*80"_s, u"-20"_s, u"20"_s));
    }
    void cleanup() { window.reset(); }

    // The menu's zoom with the scroll bars, the wheel's about the mouse, a resize that keeps the
    // centre and Fit to Window.
    void zoomScrollResizeAndFit() {
        QScrollBar* horizontal = bar(Qt::Horizontal);
        const QPointF before = centre();
        action(40003)->trigger();
        action(40003)->trigger();
        QCOMPARE(view.xZoom, 4.0);
        QVERIFY(horizontal->isEnabled());
        QCOMPARE(horizontal->maximum(), int(view.contentWidth) - int(view.visibleWidth()));
        QCOMPARE(horizontal->value(), int(view.scrollX));
        horizontal->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        QCOMPARE(view.scrollX, double(horizontal->value()));
        horizontal->setValue(int(view.scrollX) - 2);  // back to the middle, to the whole pixel
        action(40006)->trigger();
        action(40006)->trigger();
        QCOMPARE(view.xZoom, 1.0);
        QVERIFY(qAbs(centre().x() - before.x()) < 1 / (view.ppu));

        // No key zooms both axes, Ctrl only x, Shift only y, about the point under the mouse.
        const std::tuple<Qt::KeyboardModifier, int, bool, bool> rows[] = {
            {Qt::NoModifier, 120, true, true},
            {Qt::ControlModifier, 360, true, false},
            {Qt::ShiftModifier, 120, false, true}};
        for (const auto& [keys, delta, xChanges, yChanges] : rows) {
            action(40005)->trigger();  // room to zoom out about a point without reaching an edge
            const QPoint at(400, 300);
            const double x = view.graphX(at.x()), y = view.graphY(at.y());
            const double xZoom = view.xZoom, yZoom = view.yZoom;
            QWheelEvent event(at, canvas()->mapToGlobal(at), QPoint(), QPoint(0, delta),
                              Qt::NoButton, keys, Qt::NoScrollPhase, false);
            QApplication::sendEvent(canvas(), &event);
            QCOMPARE(view.xZoom != xZoom, xChanges);
            QCOMPARE(view.yZoom != yZoom, yChanges);
            QVERIFY(qAbs(view.toPixelX(x) - at.x()) <= 1.0 &&
                    qAbs(view.toPixelY(y) - at.y()) <= 1.0);
            QCOMPARE(bar(Qt::Vertical)->value(), int(view.scrollY));
            action(40126)->trigger();
        }
        const QPointF middle = centre();
        for (const QSize size : {QSize(800, 600), QSize(1000, 700)}) {
            window->resize(size);
            QVERIFY(QTest::qWaitFor(
                [&] { return canvas()->size() == QSize(int(view.width), int(view.height)); }));
            QVERIFY(qAbs(centre().x() - middle.x()) < 1e-6 &&
                    qAbs(centre().y() - middle.y()) < 1e-6);
        }
        QVERIFY(view.visibleYEnd() < graph.main.yMax);  // the peak is off screen
        action(40201)->trigger();
        QVERIFY(view.visibleYEnd() >= graph.main.yMax - 1e-9);
        QVERIFY(!bar(Qt::Vertical)->isEnabled());
    }

    // Mouse Move drags the graph with the hand; Mouse Select marks an area that Stretch fills the
    // window with and Undo Stretch takes back, and a click clears.
    void dragMovesOrSelects() {
        action(40005)->trigger();
        QVERIFY(action(40063)->isChecked());
        const double scrollX = view.scrollX, scrollY0 = view.scrollY;
        drag(QPoint(400, 300), QPoint(350, 340));
        QCOMPARE(view.scrollX, scrollX + 50);
        QCOMPARE(view.scrollY, scrollY0 - 40);
        QCOMPARE(bar(Qt::Horizontal)->value(), int(view.scrollX));
        action(40126)->trigger();

        action(40064)->trigger();
        QVERIFY(action(40064)->isChecked() && !action(40063)->isChecked());
        QVERIFY(!action(40049)->isEnabled());
        drag(QPoint(300, 200), QPoint(500, 320));
        auto* band = named(u"selectionBand"_s);
        QVERIFY(band->isVisible());
        QCOMPARE(band->geometry(), QRect(QPoint(300, 200), QPoint(500, 320)));
        QVERIFY(action(40049)->isEnabled());
        const double x0 = view.graphX(300), scrollY = view.scrollY;
        action(40049)->trigger();
        QVERIFY(qAbs(view.toPixelX(x0) - view.left) <= 1);
        QVERIFY(!band->isVisible());
        QVERIFY(!action(40049)->isEnabled() && action(40050)->isEnabled());
        action(40050)->trigger();
        QVERIFY(qAbs(view.xZoom - 1.0) < 1e-12);
        QVERIFY(qAbs(view.scrollY - scrollY) < 1e-6);
        QVERIFY(!action(40050)->isEnabled());
        // A click clears the selection.
        drag(QPoint(300, 200), QPoint(500, 320));
        QTest::mouseClick(canvas(), Qt::LeftButton, {}, QPoint(200, 200));
        QVERIFY(!band->isVisible() && !action(40049)->isEnabled());
    }

    // The mouse over the plot shows the graph's x and y under it in the status line, to the
    // pixel; outside the plot and after it leaves, nothing.
    void coordinatesAndTooltipFollowTheMouse() {
        auto* readOut = named<QLabel>(u"coordinatesText"_s);
        const QRegularExpression pair(u"^x = (-?\\d+\\.\\d+)   y = (-?\\d+\\.\\d+)$"_s);
        for (const QPoint at : {QPoint(200, 150), QPoint(640, 420)}) {
            QTest::mouseMove(canvas(), at);
            const QRegularExpressionMatch read = pair.match(readOut->text());
            QVERIFY2(read.hasMatch(), qPrintable(readOut->text()));
            QVERIFY(qAbs(view.toPixelX(read.captured(1).toDouble()) - at.x()) <= 1);
            QVERIFY(qAbs(view.toPixelY(read.captured(2).toDouble()) - at.y()) <= 1);
        }
        QTest::mouseMove(canvas(), QPoint(2, 2));
        QCOMPARE(readOut->text(), QString());
        QTest::mouseMove(canvas(), QPoint(300, 300));
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(canvas(), &leave);
        QCOMPARE(readOut->text(), QString());

        // The curve's name and the nearest record's coordinates once the mouse rests on it;
        // nothing away from it or with "Display Tooltips" off, on the toolbar too.
        const QPoint onCurve(int(view.toPixelX(3.0)), int(view.toPixelY(80 * std::sin(3.0) / 3)));
        const auto rest = [&](QWidget* widget, QPoint at) {
            QToolTip::hideText();
            if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); })) {
                return u"(an earlier tooltip stayed)"_s;
            }
            QHelpEvent help(QEvent::ToolTip, at, widget->mapToGlobal(at));
            QApplication::sendEvent(widget, &help);
            QTest::qWait(50);
            return QToolTip::isVisible() ? QToolTip::text() : QString();
        };
        const QString text = rest(canvas(), onCurve);
        const QRegularExpressionMatch hit =
            QRegularExpression(u"^FUNCTION x=(-?\\d+\\.\\d{6}) y=(-?\\d+\\.\\d{6})$"_s).match(text);
        QVERIFY2(hit.hasMatch(), qPrintable(text));
        QVERIFY(qAbs(view.toPixelX(hit.captured(1).toDouble()) - onCurve.x()) <= 5);
        QCOMPARE(rest(canvas(), onCurve + QPoint(40, 0)), QString());
        QVERIFY(customize([](QDialog& dialog) {
            control<QCheckBox>(dialog, customization_ids::kDisplayTooltips)->setChecked(false);
        }));
        QCOMPARE(rest(canvas(), onCurve), QString());
        auto* toolbar = named<QToolBar>(u"toolbar"_s);
        QCOMPARE(rest(toolbar->widgetForAction(action(40005)), QPoint(5, 5)), QString());
    }

    // Show Drawing Process paces the redraw with its progress; the customization's settings reach
    // the window.
    void drawingProcessAndCustomization() {
        action(40130)->trigger();
        QVERIFY(action(40130)->isChecked() && canvas()->drawingInProgress());
        QSignalSpy progress(canvas(), &GraphCanvas::drawingProgress);
        QVERIFY(QTest::qWaitFor([&] { return !canvas()->drawingInProgress(); }, 5000));
        QVERIFY(progress.count() > 10);
        QCOMPARE(progress.last().first().toInt(), -1);
        action(40130)->trigger();
        action(40005)->trigger();
        QVERIFY(!canvas()->drawingInProgress());
        QVERIFY(customize([](QDialog& dialog) {
            control<QSpinBox>(dialog, customization_ids::kRatioSpin)->setValue(1);
            control<QRadioButton>(dialog, customization_ids::kSelectArea)->setChecked(true);
            control<QCheckBox>(dialog, customization_ids::kDisplayToolbar)->setChecked(false);
            control<QCheckBox>(dialog, customization_ids::kOptimizeDrawing)->setChecked(false);
        }));
        QCOMPARE(view.xZoom, 1.0);  // a new Y range starts the view again
        QVERIFY(view.yEnd - view.yBegin <= 40.0 + 1e-9);
        QCOMPARE(graph.drawStep, 1);
        QVERIFY(action(40064)->isChecked() && !action(40063)->isChecked());
        QVERIFY(named<QToolBar>(u"toolbar"_s)->isHidden());
    }
};

QTEST_MAIN(ViewNavigationUiTest)
#include "ViewNavigationUiTest.moc"
