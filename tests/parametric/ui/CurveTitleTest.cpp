// The curves from the title page, and their history file kept from a second copy of the program
// working in the same folder.
#include <QLockFile>
#include <QToolButton>
#include <QtTest>

#include "parametric/CurveHistory.h"
#include "parametric/ui/CurveWindow.h"
#include "shell/ui/CurveCommands.h"
#include "shell/ui/TitlePage.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/TempDirectory.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class CurveTitleTest : public MainWindowFixture {
    Q_OBJECT

  private Q_SLOTS:
    void init() { openWindow({900, 700}); }
    void cleanup() { window.reset(); }

    // A second copy reads the curves' history but leaves the file to the first. The drawing
    // process, when on, shows a curve in t as it shows a function.
    void titleButtonOpensItsWindowAndOnlyTheFirstCopySaves_data() {
        QTest::addColumn<int>("button");
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("secondCopy");
        QTest::newRow("parametric")
            << kTitleParametricCurveButton << u"Parametric Curve"_s << false;
        QTest::newRow("polar, second copy") << kTitlePolarCurveButton << u"Polar Curve"_s << true;
    }
    void titleButtonOpensItsWindowAndOnlyTheFirstCopySaves() {
        QFETCH(int, button);
        QFETCH(QString, title);
        QFETCH(bool, secondCopy);
        TempDirectory folder;
        QLockFile otherCopy(QString::fromStdString((folder.path() / "Curves.dat.lock").string()));
        QVERIFY(!secondCopy || otherCopy.tryLock(0));
        window->curves().setHistoryFolder(folder.path());
        QCOMPARE(status().startsWith(u"Another copy"_s), secondCopy);

        window->titlePage()->button(button)->click();
        auto* input = shown<CurveWindow>(title);
        QVERIFY(input != nullptr);
        retype(*input, curve_ids::kFirstFormula, u"cos(t)"_s);
        if (!secondCopy) {
            retype(*input, curve_ids::kSecondFormula, u"sin(t)"_s);
        }
        if (secondCopy) {
            action(40130)->trigger();  // Show Drawing Process
        }
        QSignalSpy drawn(input, &CurveWindow::graphDrawn);
        QSignalSpy process(canvas(), &GraphCanvas::drawingProgress);
        control<QPushButton>(*input, curve_ids::kOk)->click();
        QTRY_COMPARE(drawn.count(), 1);
        QTRY_COMPARE(!process.isEmpty() && process.last().first().toInt() == -1, secondCopy);
        QCOMPARE(std::filesystem::exists(folder.path() / kCurveHistoryFileName), !secondCopy);
    }
};

QTEST_MAIN(CurveTitleTest)
#include "CurveTitleTest.moc"
