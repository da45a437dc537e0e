#include <fenv.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QtTest>

#include "engine/Formula.h"
#include "failure/FaultTranslation.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class TwoDGraphDialogTest : public QObject {
    Q_OBJECT

    Formula formula;
    TwoDGraph graph;
    GraphView view;
    RecordingReporter reporter;
    Worker worker{reporter};

    std::unique_ptr<TwoDGraphDialog> makeDialog(TwoDGraphRole role = TwoDGraphRole::Main) {
        auto dialog = std::make_unique<TwoDGraphDialog>(role, formula, graph, view, worker);
        dialog->show();
        return dialog;
    }
    static void fill(TwoDGraphDialog& dialog, const QString& begin, const QString& end,
                     const QString& formulaText, const QString& points = u"10"_s) {
        retype(dialog, twod_ids::kPointsEdit, points);
        retype(dialog, twod_ids::kXBegin, begin);
        retype(dialog, twod_ids::kXEnd, end);
        retype(dialog, twod_ids::kFormula, formulaText);
    }
    // Presses OK; true when a run started and completed. `whileRunning` acts just after the
    // run has started.
    static bool pressOk(TwoDGraphDialog& dialog, const std::function<void()>& whileRunning = {}) {
        QSignalSpy finished(&dialog, &TwoDGraphDialog::runFinished);
        QTest::mouseClick(control<QPushButton>(dialog, twod_ids::kOk), Qt::LeftButton);
        if (!dialog.isRunning()) {
            return false;
        }
        if (whileRunning) {
            whileRunning();
        }
        return finished.wait(20000) && finished.first().first().toBool();
    }
    static bool draw(TwoDGraphDialog& dialog, const QString& begin, const QString& end,
                     const QString& formulaText) {
        fill(dialog, begin, end, formulaText);
        return pressOk(dialog);
    }

  private Q_SLOTS:
    // Qt Test installs crash handlers of its own at start; ours must be in force.
    void initTestCase() { installFaultTranslation(); }

    void init() {
        graph = TwoDGraph{};
        view = GraphView{};
        formula.logBase = 10.0;
        formula.logFactor = 1.0;
        reporter = RecordingReporter{};
    }

    void captionsPromptsAndPoints() {
        QCOMPARE(makeDialog(TwoDGraphRole::Second)->windowTitle(), u"Second Function"_s);
        auto dialog = makeDialog();
        QCOMPARE(dialog->windowTitle(), u"Function"_s);
        QCOMPARE(dialog->focusWidget(), control(*dialog, twod_ids::kFormula));
        QCOMPARE(control<QLabel>(*dialog, twod_ids::kPointsLabel)->text(), u"100000 Points"_s);
        QVERIFY(control(*dialog, twod_ids::kHistoryList)->isHidden());
        QVERIFY(!control(*dialog, twod_ids::kHistory)->isEnabled());  // no history to show
        // "Use Prompts" puts an example into each empty box and explains it in its tooltip.
        const int boxes[] = {twod_ids::kXBegin, twod_ids::kXEnd, twod_ids::kFormula};
        for (const bool on : {true, false}) {
            control<QCheckBox>(*dialog, twod_ids::kUsePrompts)->setChecked(on);
            for (const int id : boxes) {
                QCOMPARE(control<QLineEdit>(*dialog, id)->maxLength(), 70);
                QCOMPARE(control<QLineEdit>(*dialog, id)->placeholderText().isEmpty(), !on);
                QCOMPARE(control(*dialog, id)->toolTip().isEmpty(), !on);
            }
            QCOMPARE(control(*dialog, twod_ids::kPointsSpin)->toolTip().isEmpty(), !on);
        }
        // Points typed out of range are corrected into it.
        auto* spin = control<QSpinBox>(*dialog, twod_ids::kPointsSpin);
        for (const auto& [typed, position] :
             {std::pair(u"0"_s, 1), std::pair(u"41"_s, 40), std::pair(u"25"_s, 25)}) {
            retype(*dialog, twod_ids::kPointsEdit, typed);
            QCOMPARE(control<QLabel>(*dialog, twod_ids::kPointsLabel)->text(),
                     u"%1 Points"_s.arg(position * 10000));
            spin->interpretText();  // what leaving the box does
            QCOMPARE(spin->value(), position);
        }
    }

    void acceptedEntryIsSampledRangedAndRecorded() {
        auto dialog = makeDialog();
        std::vector<std::string> recorded;
        const auto record = [&](auto& f, auto& b, auto& e) { recorded = {f, b, e}; };
        dialog->setHistoryHooks({record, [] {}, {}});
        QVERIFY(control(*dialog, 1063)->isEnabled());
        setViewSize(view, 800, 600);
        graph.derivative.points.resize(4);
        graph.derivative.pointCount = 2;
        QSignalSpy drawn(dialog.get(), &TwoDGraphDialog::graphDrawn);
        QVERIFY(draw(*dialog, u"-pi"_s, u"pi"_s, u"sin(x)*3"_s));
        QVERIFY(drawn.count() == 1 && !dialog->isVisible());
        QCOMPARE(recorded, (std::vector<std::string>{"sin(x)*3", "-pi", "pi"}));
        QCOMPARE(graph.mainFormulaText, std::string("sin(x)*3"));
        QVERIFY(!graph.hasDerivative());
        QVERIFY(view.yBegin <= -3.0 + 1e-6 && view.yEnd >= 3.0 - 1e-6);
        QVERIFY(reporter.names.empty());
    }

    void stopDuringALongRunKeepsTheDialogAndDrawsNothing() {
        auto dialog = makeDialog();
        fill(*dialog, u"-1000"_s, u"1000"_s, u"sin(x)*cos(x*3)+tan(x/7)"_s, u"40"_s);
        bool stopped = false;
        QVERIFY(!pressOk(*dialog, [&] {
            for (int id : {1000, 1002, 1003, 1049, 1, 2}) {
                QVERIFY(!control(*dialog, id)->isEnabled());
            }
            QVERIFY(control<QProgressBar>(*dialog, 1012)->isVisible());
            // Escape stops the run rather than closing the dialog.
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
            stopped = true;
        }));
        QVERIFY(stopped);
        QVERIFY(!dialog->isRunning() && dialog->isVisible() && !graph.main.exists());
        QVERIFY(control(*dialog, 1)->isEnabled() && !control(*dialog, 1014)->isEnabled());
    }

    // A second function the same as the main one is refused. Both curves cover the graph's X
    // range: a second function over a range of its own takes the main function along. A stopped
    // second function is removed, the main curve stays, and a request while the worker runs is
    // refused.
    void theSecondFunctionIsRefusedResamplesTheMainOneOrGoesWhenStopped() {
        QVERIFY(draw(*makeDialog(), u"-10"_s, u"10"_s, u"x"_s));
        auto second = makeDialog(TwoDGraphRole::Second);
        // The checks and their messages are the core's; the dialog shows the first, keeps its
        // entry and puts the focus into the box at fault.
        QVERIFY(QTest::qWaitForWindowActive(second.get()));
        ModalAnswer same;
        QVERIFY(!draw(*second, u"0"_s, u"2"_s, u"x"_s));
        QTRY_VERIFY(same.seen);
        QCOMPARE(same.text, u"YOU MUST SELECT A DIFFERENT FUNCTION"_s);
        QCOMPARE(same.icon, QMessageBox::Critical);
        QVERIFY(second->isVisible() && !graph.hasSecond());
        QCOMPARE(second->focusWidget(), control(*second, twod_ids::kFormula));
        QVERIFY(draw(*second, u"0"_s, u"2"_s, u"x^2"_s));
        QVERIFY(graph.hasSecond());
        // Records are packed: copy the fields out before comparing.
        QVERIFY(std::pair(double{graph.main.points[0].x},
                          double{graph.main.points[graph.main.pointCount - 1].x}) ==
                std::pair(0.0, 2.0));
        QVERIFY(qAbs(graph.main.yMax - 2.0) < 1e-9);
        second->show();
        fill(*second, u"-5000"_s, u"5000"_s, u"sin(x)*cos(x*3)+tan(x/7)"_s, u"40"_s);
        QVERIFY(!pressOk(*second, [&] { control<QPushButton>(*second, 1014)->click(); }));
        QVERIFY(!second->isRunning() && !graph.hasSecond() && graph.main.exists());

        QVERIFY(worker.start("Other", formula.keepComputing, [](const JobContext& context) {
            while (!context.stopRequested()) {
                QThread::msleep(1);
            }
            return false;
        }));
        auto dialog = makeDialog();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        ModalAnswer answer;
        QVERIFY(!draw(*dialog, u"-1"_s, u"1"_s, u"x^3"_s));
        QTRY_VERIFY(answer.seen);
        QCOMPARE(answer.text, QString::fromLatin1(kMsgWorkerBusy));
        QSignalSpy ended(&worker, &Worker::finished);
        worker.stop();
        QVERIFY(ended.wait(5000));
        QCOMPARE(graph.mainFormulaText, std::string("x"));
    }

    // A trapping invalid operation on the worker reaches the report with the dialog's name.
    void faultOnTheWorkerIsReportedUnderTheDialogsName() {
        auto dialog = makeDialog();
        fill(*dialog, u"-1"_s, u"1"_s, u"e^1000-e^1000"_s);
        // A new thread starts with its creator's environment; this thread masks traps again at
        // once.
        feenableexcept(FE_INVALID);
        QVERIFY(!pressOk(*dialog, [] { fedisableexcept(FE_ALL_EXCEPT); }));
        fedisableexcept(FE_ALL_EXCEPT);
        QVERIFY(!dialog->isRunning());
        QVERIFY((reporter.names == std::vector<ProcedureName>{kProcTwoDGraphDialog} &&
                 reporter.codes == std::vector<FailureCode>{kCodeInvalidFloat}));
    }

    void logFormulaAsksForTheBaseFirst() {
        auto dialog = makeDialog();
        ModalAction<QDialog> asked(
            [](QDialog* modal) {
                control(*modal, 1046)->setProperty("checked", true);
                control<QLineEdit>(*modal, 1047)->setText("2");
                modal->accept();
            },
            dialog.get());
        QVERIFY(draw(*dialog, u"1"_s, u"16"_s, u"log(x)"_s));
        QVERIFY(asked.seen);
        QCOMPARE(formula.logBase, 2.0);
        QVERIFY(qAbs(graph.main.yMax - 4.0) < 1e-9);
    }
};

QTEST_MAIN(TwoDGraphDialogTest)
#include "TwoDGraphDialogTest.moc"
