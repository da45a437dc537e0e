// The curve window as a user drives it: a refusal names its box and leaves the function slots as
// they were; a run fills the graph and closes the window; Stop keeps the curve on screen.
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "parametric/ui/CurveWindow.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;
namespace ids = curvemill::curve_ids;

class CurveWindowTest : public QObject {
    Q_OBJECT

    Formula formula;
    RecordingReporter reporter;
    Worker worker{reporter};
    CurveGraph graph;

    std::unique_ptr<CurveWindow> open(CurveForm form, const char* first, const char* second = "") {
        auto window = std::make_unique<CurveWindow>(form, formula, graph, worker);
        window->show();
        [[maybe_unused]] const bool shown = QTest::qWaitForWindowExposed(window.get());
        retype(*window, ids::kFirstFormula, QString::fromLatin1(first));
        if (form == CurveForm::Parametric) {
            retype(*window, ids::kSecondFormula, QString::fromLatin1(second));
        }
        return window;
    }

  private Q_SLOTS:
    void init() {
        graph = CurveGraph{};
        QVERIFY(prepareFormula(formula, "x^2", kModeFunction));
    }

    void aRefusalNamesItsBoxAndKeepsTheFunction() {
        auto window = open(CurveForm::Parametric, "t", "x+1");
        ModalAnswer answer;
        QTest::mouseClick(control<QPushButton>(*window, ids::kOk), Qt::LeftButton);
        QTRY_VERIFY(answer.seen);
        QCOMPARE(answer.text, u"ERROR IN Y(T) EDIT BOX:\nINVALID ENTRY"_s);
        QCOMPARE(window->focusWidget(), control(*window, ids::kSecondFormula));
        QCOMPARE(formula.evaluate(3.0, kFunctionSlot), 9.0);  // x(t) was accepted, then undone
        QVERIFY(window->isVisible());
    }

    void aRunFillsTheGraphAndStopKeepsIt() {
        auto window = open(CurveForm::Polar, "1+cos(t)");
        QVERIFY(control(*window, ids::kSecondFormula)->isHidden());
        QSignalSpy accepted(window.get(), &CurveWindow::entryAccepted);
        QSignalSpy drawn(window.get(), &CurveWindow::graphDrawn);
        QTest::mouseClick(control<QPushButton>(*window, ids::kOk), Qt::LeftButton);
        QTRY_COMPARE(drawn.count(), 1);
        QCOMPARE(accepted.count(), 1);
        QVERIFY(!window->isVisible());
        QCOMPARE(graph.form, CurveForm::Polar);
        QVERIFY(graph.points.size() >= 100000U);
        QCOMPARE(graph.points.front().x, 2.0);  // r(0) = 2 at angle 0

        const std::size_t before = graph.points.size();
        auto again = open(CurveForm::Parametric, "sin(t)*cos(t)^3+t", "cos(t)*sin(t)^3");
        retype(*again, ids::kPointsEdit, u"40"_s);
        QSignalSpy finished(again.get(), &CurveWindow::runFinished);
        QTest::mouseClick(control<QPushButton>(*again, ids::kOk), Qt::LeftButton);
        again->stop();
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(finished.at(0).at(0).toBool(), false);
        QCOMPARE(graph.points.size(), before);
        QCOMPARE(formula.evaluate(3.0, kFunctionSlot), 1 + std::cos(3.0));
        QVERIFY(again->isVisible());
    }
};

QTEST_MAIN(CurveWindowTest)
#include "CurveWindowTest.moc"
