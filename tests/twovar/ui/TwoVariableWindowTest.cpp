#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

#include "engine/Formula.h"
#include "engine/ui/LogBaseDialog.h"
#include "equation/EquationComputation.h"
#include "graph2d/GraphView.h"
#include "history/HistoryPort.h"
#include "tests/support/DialogControls.h"
#include "tests/support/FakeHistory.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;
namespace ids = curvemill::twovar_ids;

class TwoVariableWindowTest : public QObject {
    Q_OBJECT

    Formula formula;
    TwoVariableSettings settings;
    RecordingReporter reporter;
    Worker worker{reporter};
    EquationCurve curve;
    GraphView view;
    int maxYRatio = 10;
    EquationComputation equation{formula, curve, view, maxYRatio};
    FakeHistory history;

    std::unique_ptr<TwoVariableWindow> makeWindow(TwoVariableMode mode) {
        auto window =
            std::make_unique<TwoVariableWindow>(formula, settings, worker, nullptr, &equation);
        window->setHistoryPort(&history);
        window->prepare(mode);
        window->show();
        window->activateWindow();
        [[maybe_unused]] const bool active = QTest::qWaitForWindowActive(window.get());
        return window;
    }
    // The five boxes in their order: X begin, X end, Y begin, Y end, formula.
    static void fill(TwoVariableWindow& window, const QString& texts) {
        const int order[] = {ids::kXBegin, ids::kXEnd, ids::kYBegin, ids::kYEnd, ids::kFormula};
        for (int i = 0; i < 5; ++i) {
            retype(window, order[i], texts.section(u' ', i, i));
        }
    }
    static void pressOk(TwoVariableWindow& window) {
        QTest::mouseClick(control<QPushButton>(window, ids::kOk), Qt::LeftButton);
    }

  private Q_SLOTS:
    void init() {
        settings = TwoVariableSettings{};
        history = FakeHistory{};
        curve = EquationCurve{};
        setViewSize(view, 600, 500);
    }

    void controlsFollowTheModeAndASurfaceIsRecorded() {
        // The titles are checked where the main window opens this window.
        auto window = makeWindow(TwoVariableMode::kSurface);
        QCOMPARE(control<QLabel>(*window, ids::kFormulaLabel)->text(), u"&Z ="_s);
        QCOMPARE(control<QSpinBox>(*window, ids::kXPointsSpin)->maximum(), 5);
        QCOMPARE(control<QLabel>(*window, ids::kXPointsLabel)->text(), u"Number of Points: 100"_s);
        QVERIFY(control(*window, ids::kPrecisionSpin)->isHidden());
        QVERIFY(!control(*window, ids::kHistory)->isEnabled());  // no surface entries

        window->prepare(TwoVariableMode::kEquation);
        QCOMPARE(control<QLabel>(*window, ids::kFormulaLabel)->text(), u"&0="_s);
        QCOMPARE(control<QSpinBox>(*window, ids::kYPointsSpin)->maximum(), 20);
        QCOMPARE(control<QSpinBox>(*window, ids::kPrecisionSpin)->maximum(), 15);
        QCOMPARE(control<QLabel>(*window, ids::kYPointsLabel)->text(), u"Number of Points: 500"_s);
        QCOMPARE(control<QLabel>(*window, ids::kPrecisionLabel)->text(), u"Precision: 1e-5"_s);
        QVERIFY(!control(*window, ids::kPrecisionSpin)->isHidden() &&
                control(*window, ids::kHistory)->isEnabled());
        QVERIFY(!control(*window, ids::kStop)->isEnabled() &&
                control(*window, ids::kProgress)->isHidden());
        for (int id : {ids::kXBegin, ids::kXEnd, ids::kYBegin, ids::kYEnd, ids::kFormula}) {
            QCOMPARE(control<QLineEdit>(*window, id)->maxLength(), 99);
        }
        QCOMPARE(history.shownKinds.back(), EntryKind::Equation);

        retype(*window, ids::kXPointsEdit, u"12"_s);
        retype(*window, ids::kPrecisionEdit, u"9"_s);
        QCOMPARE(control<QLabel>(*window, ids::kXPointsLabel)->text(), u"Number of Points: 1200"_s);
        QCOMPARE(control<QLabel>(*window, ids::kPrecisionLabel)->text(), u"Precision: 1e-9"_s);
        QVERIFY(std::tuple(settings.equationXPoints, settings.precisionDigits,
                           settings.surfaceXPoints) == std::tuple(1200, 9, 100));

        // A surface (computed by the main window) is checked and recorded here.
        window->prepare(TwoVariableMode::kSurface);
        fill(*window, u"-2 2 -2 2 sin(x)*cos(y)"_s);
        QSignalSpy status(window.get(), &TwoVariableWindow::statusMessage);
        pressOk(*window);
        QCOMPARE(status.size(), 1);
        QVERIFY(history.entries.size() == 1 && history.entries[0].section == EntrySection::Graphs);
        QVERIFY(window->isVisible() && control(*window, ids::kOk)->isEnabled());
        QTest::mouseClick(control<QPushButton>(*window, ids::kCancel), Qt::LeftButton);
        QVERIFY(!window->isVisible());
        QCOMPARE(history.shownKinds.back(), EntryKind::TwoD);
    }

    // Which refusal comes first is the core's table; one refusal shows the window's wiring.
    // "Log Base" comes up before the formula is checked, so even a bad formula asks for the base.
    // The history list fills the boxes.
    void refusalLogBaseAndHistoryInTheEquationWindow() {
        auto window = makeWindow(TwoVariableMode::kEquation);
        fill(*window, u"-1 1 2 1 z+"_s);
        ModalAnswer answer;
        QLineEdit* box = control<QLineEdit>(*window, ids::kYEnd);
        pressOk(*window);
        QVERIFY(box->hasSelectedText() && box->selectedText() == box->text());
        QCOMPARE(answer.icon, QMessageBox::Critical);
        QCOMPARE(answer.text, u"Y BEG MUST BE LESS THAN Y END"_s);
        QCOMPARE(window->focusWidget(), box);
        QVERIFY(!window->isRunning() && history.entries.empty() && !settings.kind);

        fill(*window, u"1 2 1 2 log(x+*y"_s);
        QStringList order;
        std::unique_ptr<ModalAnswer> error;
        ModalAction<LogBaseDialog> logBase([&](LogBaseDialog* dialog) {
            order << u"log base"_s;
            error = std::make_unique<ModalAnswer>();
            error->answered = [&order] { order << u"error"_s; };
            dialog->reject();
        });
        pressOk(*window);
        QTRY_COMPARE(order, (QStringList{u"log base"_s, u"error"_s}));
        QVERIFY(error->text.startsWith(u"ERROR IN FORMULA EDIT BOX:"_s));

        fill(*window, u"-3 3 -2 2 x*y-1"_s);
        QTest::mouseClick(control<QPushButton>(*window, ids::kHistory), Qt::LeftButton);
        QVERIFY(history.client.currentInput && history.client.select);
        const TypedEntry input = history.client.currentInput();
        QVERIFY(input.yBegin == "-2" && input.section == EntrySection::Equations);
        history.client.select(
            TypedEntry{"sin(x)-cos(y)", "-pi", "pi", "-5", "5", EntrySection::Equations});
        QCOMPARE(control<QLineEdit>(*window, ids::kFormula)->text(), u"sin(x)-cos(y)"_s);
        QCOMPARE(control<QLineEdit>(*window, ids::kXBegin)->text(), u"-pi"_s);
        QCOMPARE(control<QLineEdit>(*window, ids::kYEnd)->text(), u"5"_s);
        QCOMPARE(window->focusWidget(), control(*window, ids::kOk));
    }

    // A completed run closes the window with the curve shown; the entry is remembered as the last
    // one and in the history, and the next opening starts from it.
    void completedRunShowsTheCurve() {
        auto window = makeWindow(TwoVariableMode::kEquation);
        retype(*window, ids::kXPointsEdit, u"2"_s);
        fill(*window, u"-2 2 -2 2 x^2+y^2-1"_s);
        QSignalSpy shown(window.get(), &TwoVariableWindow::computationShown);
        pressOk(*window);
        QTRY_COMPARE(shown.size(), 1);
        QCOMPARE(window->result(), int(QDialog::Accepted));
        QVERIFY(curve.shown && curve.count() > 100 && curve.grid.xSteps == 200);
        QCOMPARE(curve.formulaText, std::string("x^2+y^2-1"));
        QCOMPARE(history.entries.size(), size_t(1));
        QVERIFY(history.entries[0].yEnd == "2" &&
                history.entries[0].section == EntrySection::Equations);
        QVERIFY(settings.kind == TwoVariableMode::kEquation);
        auto again = makeWindow(TwoVariableMode::kEquation);
        QCOMPARE(control<QLineEdit>(*again, ids::kFormula)->text(), u"x^2+y^2-1"_s);
        QCOMPARE(control<QLabel>(*again, ids::kXPointsLabel)->text(), u"Number of Points: 200"_s);
    }

    void stopReenablesTheInputsAndKeepsTheCurve() {
        curve.solutions = {{5, 5}};
        curve.shown = true;
        auto window = makeWindow(TwoVariableMode::kEquation);
        retype(*window, ids::kXPointsEdit, u"20"_s);
        retype(*window, ids::kYPointsEdit, u"20"_s);
        fill(*window, u"-9 9 -9 9 sin(x*y)^3+cos(x+y)^5-atan(x-y)*ln(2+x^2)-0.3"_s);
        QSignalSpy repaint(window.get(), &TwoVariableWindow::repaintRequested);
        pressOk(*window);
        QVERIFY(window->isRunning() && !control(*window, ids::kProgress)->isHidden());
        for (int id : {ids::kOk, ids::kFormula, ids::kHistory}) {
            QVERIFY(!control(*window, id)->isEnabled());
        }
        QTest::mouseClick(control<QPushButton>(*window, ids::kStop), Qt::LeftButton);
        QTRY_COMPARE(repaint.size(), 1);
        QVERIFY(!window->isRunning() && window->isVisible());
        for (int id : {ids::kOk, ids::kCancel, ids::kFormula, ids::kXPointsSpin, ids::kHistory,
                       ids::kUsePrompts}) {
            QVERIFY(control(*window, id)->isEnabled());
        }
        QVERIFY(!control(*window, ids::kStop)->isEnabled() &&
                control(*window, ids::kProgress)->isHidden());
        QCOMPARE(curve.count(), 1);
    }
};

QTEST_MAIN(TwoVariableWindowTest)
#include "TwoVariableWindowTest.moc"
