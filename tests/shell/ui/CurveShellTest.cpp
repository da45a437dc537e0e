// The parametric and polar curves on the main window: from the File menu to the picture on the
// canvas, their Math tools, and their windows closing when another kind takes the screen.
#include <QClipboard>
#include <QMimeData>
#include <QtTest>

#include "parametric/ui/CurveToolDialogs.h"
#include "parametric/ui/CurveWindow.h"
#include "tests/support/MainWindowFixture.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class CurveShellTest : public MainWindowFixture {
    Q_OBJECT

  private Q_SLOTS:
    void init() { openWindow({900, 700}); }
    void cleanup() { window.reset(); }

    void aCurveFromTheFileMenuIsShownWithItsTools() {
        const auto blue = [](QRgb c) { return qBlue(c) > 200 && qRed(c) < 120; };
        const qsizetype before = countPixels(canvas()->grab().toImage(), blue);
        action(40302)->trigger();
        auto* input = shown<CurveWindow>(u"Polar Curve"_s);
        QVERIFY(input != nullptr);
        retype(*input, curve_ids::kFirstFormula, u"1+cos(t)"_s);
        QSignalSpy drawn(input, &CurveWindow::graphDrawn);
        control<QPushButton>(*input, curve_ids::kOk)->click();
        QTRY_COMPARE(drawn.count(), 1);
        QCOMPARE(window->graphKind(), GraphKind::Curve);
        QVERIFY(status().endsWith(u" points"_s));
        QTRY_VERIFY(countPixels(canvas()->grab().toImage(), blue) > before + 200);
        // Equal scales: the cardioid's view is as many pixels a unit across as up.
        QCOMPARE(view.xZoom, 1.0);
        QVERIFY(action(40005)->isEnabled() && action(40012)->isEnabled());

        action(40052)->trigger();  // Copy: the picture, and the records as CSV
        QVERIFY(QGuiApplication::clipboard()->mimeData()->text().startsWith(u"t,x,y,isBreak\n"_s));
        action(40012)->trigger();
        QVERIFY(shown<CurveMathDialog>() != nullptr);
        action(40200)->trigger();
        QVERIFY(shown<CurveInformationDialog>() != nullptr);
        action(40110)->trigger();  // the title page: the curve's tools go with it
        QVERIFY(shown<CurveMathDialog>() == nullptr && shown<CurveInformationDialog>() == nullptr);
    }
};

QTEST_MAIN(CurveShellTest)
#include "CurveShellTest.moc"
