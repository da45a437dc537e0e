// The curves from the title page with their help topics, and their history file kept from a
// second copy of the program working in the same folder.
#include <QLockFile>
#include <QToolButton>
#include <QtTest>

#include "help/ui/ContextHelp.h"
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
    // A second copy reads the curves' history but leaves the file to the first. The drawing
    // process, when on, shows a curve in t as it shows a function.
    void titleButtonsDrawTheirCurvesAndOnlyTheFirstCopySaves() {
        openWindow();
        for (const bool secondCopy : {false, true}) {
            TempDirectory folder;
            QLockFile otherCopy(
                QString::fromStdString((folder.path() / "Curves.dat.lock").string()));
            QVERIFY(!secondCopy || otherCopy.tryLock(0));
            window->curves().setHistoryFolder(folder.path());
            QCOMPARE(status().startsWith(u"Another copy"_s), secondCopy);
            action(40110)->trigger();  // back to the title page
            window->titlePage()
                ->button(secondCopy ? kTitlePolarCurveButton : kTitleParametricCurveButton)
                ->click();
            auto* input = shown<CurveWindow>(secondCopy ? u"Polar Curve"_s : u"Parametric Curve"_s);
            QVERIFY(input != nullptr);
            // F1 in a box: the topic of its window, told apart by the window's name.
            QCOMPARE(helpLinkForWidget(control(*input, curve_ids::kFirstFormula)).topic,
                     secondCopy ? 34 : 33);
            retype(*input, curve_ids::kFirstFormula, u"cos(t)"_s);
            if (!secondCopy) {
                retype(*input, curve_ids::kSecondFormula, u"sin(t)"_s);
            }
            if (secondCopy) {
                action(40130)->trigger();  // Show Drawing Process
            }
            QSignalSpy process(canvas(), &GraphCanvas::drawingProgress);
            control<QPushButton>(*input, curve_ids::kOk)->click();
            QTRY_VERIFY(!input->isVisible());
            QTRY_COMPARE(!process.isEmpty() && process.last().first().toInt() == -1, secondCopy);
            QCOMPARE(std::filesystem::exists(folder.path() / kCurveHistoryFileName), !secondCopy);
        }
    }
};

QTEST_MAIN(CurveTitleTest)
#include "CurveTitleTest.moc"
