#include <fenv.h>

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

    void controlsAndCaptions() {
        auto dialog = makeDialog();
        QCOMPARE(dialog->windowTitle(), u"Function"_s);
        QCOMPARE(makeDialog(TwoDGraphRole::Second)->windowTitle(), u"Second Function"_s);
        for (int id : {1000, 1002, 1003}) {
            QCOMPARE(control<QLineEdit>(*dialog, id)->maxLength(), 70);
        }
        control(*dialog, twod_ids::kUsePrompts);
        QCOMPARE(control<QLabel>(*dialog, 1031)->text(), u"100000 Points"_s);
        QVERIFY(control(*dialog, 1037)->isHidden());
        // Without a history there is nothing to show.
        QVERIFY(!control(*dialog, 1063)->isEnabled());
    }

    void pointsAreCorrectedIntoRange_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("position");
        QTest::newRow("zero") << u"0"_s << 1;
        QTest::newRow("forty-one") << u"41"_s << 40;
        QTest::newRow("inside") << u"25"_s << 25;
    }
    void pointsAreCorrectedIntoRange() {
        QFETCH(QString, typed);
        QFETCH(int, position);
        auto dialog = makeDialog();
        retype(*dialog, twod_ids::kPointsEdit, typed);
        QCOMPARE(control<QLabel>(*dialog, 1031)->text(), u"%1 Points"_s.arg(position * 10000));
        // What leaving the box does.
        auto* spin = control<QSpinBox>(*dialog, twod_ids::kPointsSpin);
        spin->interpretText();
        QCOMPARE(spin->value(), position);
    }

    void okShowsTheFirstFailureInOrder_data() {
        QTest::addColumn<bool>("second");
        QTest::addColumn<QString>("begin");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("formulaText");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("focused");
        QTest::newRow("equal range")
            << false << u"1"_s << u"1"_s << u"x"_s << u"X_BEG MUST BE LESS THAN X_END"_s << 1000;
        QTest::newRow("same second") << true << u"-1"_s << u"1"_s << u"x ^ 2"_s
                                     << u"YOU MUST SELECT A DIFFERENT FUNCTION"_s << 1003;
    }
    void okShowsTheFirstFailureInOrder() {
        QFETCH(bool, second);
        QFETCH(QString, begin);
        QFETCH(QString, end);
        QFETCH(QString, formulaText);
        QFETCH(QString, message);
        QFETCH(int, focused);
        graph.mainFormulaText = "x^2";
        auto dialog = makeDialog(second ? TwoDGraphRole::Second : TwoDGraphRole::Main);
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        ModalAnswer answer;
        QVERIFY(!draw(*dialog, begin, end, formulaText));
        QTRY_VERIFY(answer.seen);
        QCOMPARE(answer.text, message);
        QCOMPARE(answer.icon, QMessageBox::Critical);
        QVERIFY(dialog->isVisible());
        QVERIFY(!graph.main.exists());
        QCOMPARE(dialog->focusWidget(), control(*dialog, focused));
    }

    void acceptedEntryIsSampledRangedAndRecorded() {
        auto dialog = makeDialog();
        std::vector<std::string> recorded;
        dialog->setHistoryHooks(
            {[&](const std::string& f, const std::string& b, const std::string& e) {
                 recorded = {f, b, e};
             },
             [] {},
             {}});
        QVERIFY(control(*dialog, 1063)->isEnabled());
        setViewSize(view, 800, 600);
        graph.derivative.points.resize(4);
        graph.derivative.pointCount = 2;
        QSignalSpy drawn(dialog.get(), &TwoDGraphDialog::graphDrawn);
        QVERIFY(draw(*dialog, u"-pi"_s, u"pi"_s, u"sin(x)*3"_s));
        QCOMPARE(drawn.count(), 1);
        QVERIFY(!dialog->isVisible());
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
            for (int id : {1000, 1002, 1003, 1, 2}) {
                QVERIFY(!control(*dialog, id)->isEnabled());
            }
            QVERIFY(control<QProgressBar>(*dialog, 1012)->isVisible());
            // Escape stops the run rather than closing the dialog.
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
            stopped = true;
        }));
        QVERIFY(stopped);
        QVERIFY(!dialog->isRunning() && dialog->isVisible() && !graph.main.exists());
        QVERIFY(control(*dialog, 1)->isEnabled());
        QVERIFY(!control(*dialog, 1014)->isEnabled());
    }

    void secondFunctionStoppedIsRemoved() {
        QVERIFY(draw(*makeDialog(), u"-5"_s, u"5"_s, u"x"_s));
        auto second = makeDialog(TwoDGraphRole::Second);
        QVERIFY(draw(*second, u"-5"_s, u"5"_s, u"x^2"_s));
        QVERIFY(graph.hasSecond());
        // The main curve was not touched by the second run.
        QVERIFY(qAbs(graph.main.yMax - 5.0) < 1e-6);
        second->show();
        fill(*second, u"-5000"_s, u"5000"_s, u"sin(x)*cos(x*3)+tan(x/7)"_s, u"40"_s);
        QVERIFY(!pressOk(*second, [&] { control<QPushButton>(*second, 1014)->click(); }));
        QVERIFY(!second->isRunning() && !graph.hasSecond() && graph.main.exists());
    }

    // Both curves cover the graph's X range: a second function over a range of its own takes the
    // main function along; a second request while the worker runs is refused.
    void aNewRangeForTheSecondResamplesTheMainFunction() {
        QVERIFY(draw(*makeDialog(), u"-10"_s, u"10"_s, u"x"_s));
        auto second = makeDialog(TwoDGraphRole::Second);
        QVERIFY(draw(*second, u"0"_s, u"2"_s, u"x^2"_s));
        // Records are packed: copy the fields out before comparing by reference.
        const double firstX = graph.main.points[0].x;
        const double lastX = graph.main.points[graph.main.pointCount - 1].x;
        QCOMPARE(firstX, 0.0);
        QCOMPARE(lastX, 2.0);
        QVERIFY(qAbs(graph.main.yMax - 2.0) < 1e-9);

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
        QVERIFY((reporter.names == std::vector<ProcedureName>{kProcTwoDGraphDialog}));
        QVERIFY((reporter.codes == std::vector<FailureCode>{kCodeInvalidFloat}));
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
