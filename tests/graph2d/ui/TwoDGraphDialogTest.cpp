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
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "shell/FaultTranslation.h"
#include "tests/shell/ModalAnswer.h"

using namespace curvemill;
using curvemill::testing::ModalAnswer;

namespace {

class RecordingReporter : public FailureReporter {
  public:
    void reportFailure(ProcedureName name, FailureCode code) override {
        names.push_back(name);
        codes.push_back(code);
    }
    std::vector<ProcedureName> names;
    std::vector<FailureCode> codes;
};

}  // namespace

class TwoDGraphDialogTest : public QObject {
    Q_OBJECT

    Formula formula;
    TwoDGraph graph;
    GraphView view;
    RecordingReporter reporter;

    template <class T>
    static T* control(QWidget& dialog, int id) {
        T* found = dialog.findChild<T*>(QString::number(id));
        if (found == nullptr) {
            qFatal("control %d missing", id);
        }
        return found;
    }
    static void type(QWidget& dialog, int id, const QString& text) {
        auto* edit = control<QLineEdit>(dialog, id);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }
    // Fills the three boxes, presses OK and waits for the worker when a run starts.
    static bool draw(TwoDGraphDialog& dialog, const QString& begin, const QString& end,
                     const QString& formulaText) {
        type(dialog, twod_ids::kXBegin, begin);
        type(dialog, twod_ids::kXEnd, end);
        type(dialog, twod_ids::kFormula, formulaText);
        QSignalSpy finished(&dialog, &TwoDGraphDialog::runFinished);
        QTest::mouseClick(control<QPushButton>(dialog, twod_ids::kOk), Qt::LeftButton);
        if (!dialog.isRunning()) {
            return false;
        }
        return finished.wait(20000) && finished.first().first().toBool();
    }

  private Q_SLOTS:
    // Qt Test installs crash handlers of its own at start; ours must be in force.
    void initTestCase() { installFaultTranslation(); }

    void init() {
        graph = TwoDGraph{};
        view = GraphView{};
        formula.logBase = 10.0;
        formula.logFactor = 1.0;
    }

    void controlsCarryTheirIdentifiers() {
        TwoDGraphDialog dialog(TwoDGraphRole::Main, formula, graph, view, reporter);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Function"));
        for (int id : {1000, 1002, 1003}) {
            QCOMPARE(control<QLineEdit>(dialog, id)->maxLength(), 70);
        }
        for (int id : {1049, 1025, 1027, 1031, 1012, 1, 1014, 2, 1063, 1037}) {
            QVERIFY2(dialog.findChild<QWidget*>(QString::number(id)) != nullptr,
                     qPrintable(QString::number(id)));
        }
        QCOMPARE(control<QLabel>(dialog, 1031)->text(), QStringLiteral("100000 Points"));
        dialog.show();
        QVERIFY(!control<QPushButton>(dialog, 1037)->isVisible());
        // Without a history there is nothing to show.
        QVERIFY(!control<QPushButton>(dialog, 1063)->isEnabled());
        QCOMPARE(
            TwoDGraphDialog(TwoDGraphRole::Second, formula, graph, view, reporter).windowTitle(),
            QStringLiteral("Second Function"));
    }

    void pointsAreCorrectedIntoRange_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("position");
        QTest::newRow("zero") << "0" << 1;
        QTest::newRow("forty-one") << "41" << 40;
        QTest::newRow("inside") << "25" << 25;
    }
    void pointsAreCorrectedIntoRange() {
        QFETCH(QString, typed);
        QFETCH(int, position);
        TwoDGraphDialog dialog(TwoDGraphRole::Main, formula, graph, view, reporter);
        dialog.show();
        type(dialog, twod_ids::kPointsEdit, typed);
        QCOMPARE(control<QLabel>(dialog, 1031)->text(),
                 QStringLiteral("%1 Points").arg(position * 10000));
        control<QSpinBox>(dialog, twod_ids::kPointsSpin)->interpretText();
        QTest::keyClick(control<QLineEdit>(dialog, twod_ids::kXBegin), Qt::Key_Tab);
        control<QLineEdit>(dialog, twod_ids::kXBegin)->setFocus();
        QCOMPARE(control<QSpinBox>(dialog, twod_ids::kPointsSpin)->value(), position);
    }

    void okShowsTheFirstFailureInOrder_data() {
        QTest::addColumn<bool>("second");
        QTest::addColumn<QString>("begin");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("formulaText");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("focused");
        QTest::newRow("begin not constant") << false << "2*x"
                                            << ""
                                            << "x"
                                            << "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT"
                                            << "1000";
        QTest::newRow("end empty") << false << "1"
                                   << ""
                                   << "x"
                                   << "ERROR IN X_END EDIT BOX:\nBOX IS EMPTY"
                                   << "1002";
        QTest::newRow("equal range") << false << "1"
                                     << "1"
                                     << "x"
                                     << "X_BEG MUST BE LESS THAN X_END"
                                     << "1000";
        QTest::newRow("same second") << true << "-1"
                                     << "1"
                                     << "x ^ 2"
                                     << "YOU MUST SELECT A DIFFERENT FUNCTION"
                                     << "1003";
        QTest::newRow("formula") << false << "-1"
                                 << "1"
                                 << "2x"
                                 << "ERROR IN FORMULA EDIT BOX:\nINVALID ENTRY"
                                 << "1003";
    }
    void okShowsTheFirstFailureInOrder() {
        QFETCH(bool, second);
        QFETCH(QString, begin);
        QFETCH(QString, end);
        QFETCH(QString, formulaText);
        QFETCH(QString, message);
        QFETCH(QString, focused);
        graph.mainFormulaText = "x^2";
        TwoDGraphDialog dialog(second ? TwoDGraphRole::Second : TwoDGraphRole::Main, formula, graph,
                               view, reporter);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        ModalAnswer answer;
        QVERIFY(!draw(dialog, begin, end, formulaText));
        QTRY_VERIFY(answer.seen);
        QCOMPARE(answer.text, message);
        QCOMPARE(answer.icon, QMessageBox::Critical);
        QVERIFY(dialog.isVisible());
        QVERIFY(!graph.main.exists());
        QVERIFY(dialog.focusWidget() != nullptr);
        QCOMPARE(dialog.focusWidget()->objectName(), focused);
    }

    void acceptedEntryIsSampledRangedAndRecorded() {
        TwoDGraphDialog dialog(TwoDGraphRole::Main, formula, graph, view, reporter);
        std::vector<std::string> recorded;
        dialog.setHistoryHooks(
            {[&](const std::string& f, const std::string& b, const std::string& e) {
                 recorded = {f, b, e};
             },
             [] {},
             {}});
        QVERIFY(control<QPushButton>(dialog, 1063)->isEnabled());
        setViewSize(view, 800, 600);
        graph.derivative.points.resize(4);
        graph.derivative.pointCount = 2;
        dialog.show();
        QSignalSpy drawn(&dialog, &TwoDGraphDialog::graphDrawn);
        QVERIFY(draw(dialog, "-pi", "pi", "sin(x)*3"));
        QCOMPARE(drawn.count(), 1);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(recorded, (std::vector<std::string>{"sin(x)*3", "-pi", "pi"}));
        QCOMPARE(graph.mainFormulaText, std::string("sin(x)*3"));
        QVERIFY(!graph.hasDerivative());
        QCOMPARE(graph.pointsPerRun, 100000);
        QVERIFY(graph.main.pointCount >= 100000);
        QVERIFY(qAbs(graph.main.yMax - 3.0) < 1e-6);
        QVERIFY(qAbs(view.xBegin + M_PI) < 1e-12 && qAbs(view.xEnd - M_PI) < 1e-12);
        QVERIFY(view.yBegin <= -3.0 + 1e-6 && view.yEnd >= 3.0 - 1e-6);
        QVERIFY(view.gridStepX > 0.0);
        QCOMPARE(reporter.names.size(), std::size_t(0));
        // Reopened, it still holds what was typed.
        dialog.show();
        QCOMPARE(control<QLineEdit>(dialog, 1003)->text(), QStringLiteral("sin(x)*3"));
    }

    void stopDuringALongRunKeepsTheDialogAndDrawsNothing() {
        TwoDGraphDialog dialog(TwoDGraphRole::Main, formula, graph, view, reporter);
        dialog.show();
        type(dialog, twod_ids::kPointsEdit, "40");
        type(dialog, twod_ids::kXBegin, "-1000");
        type(dialog, twod_ids::kXEnd, "1000");
        type(dialog, twod_ids::kFormula, "sin(x)*cos(x*3)+tan(x/7)");
        QSignalSpy finished(&dialog, &TwoDGraphDialog::runFinished);
        QTest::mouseClick(control<QPushButton>(dialog, 1), Qt::LeftButton);
        QVERIFY(dialog.isRunning());
        for (int id : {1000, 1002, 1003, 1, 2}) {
            QVERIFY(!control<QWidget>(dialog, id)->isEnabled());
        }
        QVERIFY(control<QProgressBar>(dialog, 1012)->isVisible());
        // Escape stops the run rather than closing the dialog.
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(finished.wait(20000));
        QCOMPARE(finished.first().first().toBool(), false);
        QVERIFY(dialog.isVisible());
        QVERIFY(!graph.main.exists());
        QVERIFY(control<QWidget>(dialog, 1)->isEnabled());
        QVERIFY(!control<QWidget>(dialog, 1014)->isEnabled());
    }

    void secondFunctionStoppedIsRemoved() {
        TwoDGraphDialog first(TwoDGraphRole::Main, formula, graph, view, reporter);
        first.show();
        QVERIFY(draw(first, "-5", "5", "x"));
        TwoDGraphDialog second(TwoDGraphRole::Second, formula, graph, view, reporter);
        second.show();
        QVERIFY(draw(second, "-5", "5", "x^2"));
        QVERIFY(graph.hasSecond());
        QCOMPARE(graph.secondFormulaText, std::string("x^2"));
        QVERIFY(qAbs(graph.second.yMax - 25.0) < 1e-6);
        // The main curve was not touched by the second run.
        QVERIFY(qAbs(graph.main.yMax - 5.0) < 1e-6);

        second.show();
        type(second, twod_ids::kPointsEdit, "40");
        type(second, twod_ids::kFormula, "sin(x)*cos(x*3)+tan(x/7)");
        type(second, twod_ids::kXBegin, "-5000");
        type(second, twod_ids::kXEnd, "5000");
        QSignalSpy finished(&second, &TwoDGraphDialog::runFinished);
        QTest::mouseClick(control<QPushButton>(second, 1), Qt::LeftButton);
        QTest::mouseClick(control<QPushButton>(second, 1014), Qt::LeftButton);
        QVERIFY(finished.wait(20000));
        QVERIFY(!graph.hasSecond());
        QVERIFY(graph.main.exists());
    }

    // A trapping invalid operation on the worker reaches the report with the dialog's name.
    void faultOnTheWorkerIsReportedUnderTheDialogsName() {
        TwoDGraphDialog dialog(TwoDGraphRole::Main, formula, graph, view, reporter);
        dialog.show();
        reporter.names.clear();
        reporter.codes.clear();
        type(dialog, twod_ids::kXBegin, "-1");
        type(dialog, twod_ids::kXEnd, "1");
        type(dialog, twod_ids::kFormula, "e^1000-e^1000");
        QSignalSpy finished(&dialog, &TwoDGraphDialog::runFinished);
        // A new thread starts with its creator's environment; this thread masks traps again at
        // once.
        feenableexcept(FE_INVALID);
        control<QPushButton>(dialog, twod_ids::kOk)->click();
        fedisableexcept(FE_ALL_EXCEPT);
        QVERIFY(finished.wait(20000));
        QCOMPARE(finished.first().first().toBool(), false);
        QCOMPARE(reporter.names.size(), std::size_t(1));
        QVERIFY(reporter.names[0] == kProcTwoDGraphDialog);
        QCOMPARE(reporter.codes[0], kCodeInvalidFloat);
    }

    void logFormulaAsksForTheBaseFirst() {
        TwoDGraphDialog dialog(TwoDGraphRole::Main, formula, graph, view, reporter);
        dialog.show();
        bool asked = false;
        QTimer poll;
        connect(&poll, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (modal != nullptr && modal != &dialog &&
                modal->findChild<QLineEdit*>("1047") != nullptr) {
                asked = true;
                modal->findChild<QWidget*>("1046")->setProperty("checked", true);
                modal->findChild<QLineEdit*>("1047")->setText("2");
                QMetaObject::invokeMethod(modal, "accept");
                poll.stop();
            }
        });
        poll.start(5);
        QVERIFY(draw(dialog, "1", "16", "log(x)"));
        QVERIFY(asked);
        QCOMPARE(formula.logBase, 2.0);
        QVERIFY(qAbs(graph.main.yMax - 4.0) < 1e-9);
    }
};

QTEST_MAIN(TwoDGraphDialogTest)
#include "TwoDGraphDialogTest.moc"
