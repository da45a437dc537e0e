// The Math and Information dialogs driven as a user would: typed boxes, buttons found by their
// identifiers, message boxes answered, the precise run on the worker.
#include <atomic>
#include <memory>
#include <tuple>

#include <QCheckBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTreeWidget>
#include <QtTest>

#include "failure/FaultTranslation.h"
#include "graph2d/GraphView.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "mathtools/MathMessages.h"
#include "mathtools/MathTexts.h"
#include "mathtools/ui/ExtremeValuesGroup.h"
#include "mathtools/ui/InformationDialog.h"
#include "mathtools/ui/MathControlIds.h"
#include "mathtools/ui/MathDialog.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "tests/support/SampledGraph.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;
namespace ids = curvemill::math_ids;

class MathDialogsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<SampledGraph> sampled;
    GraphView view;
    RecordingReporter reporter;
    Worker worker{reporter};

    TwoDGraph& graph() { return sampled->graph; }
    std::unique_ptr<MathDialog> mathDialog(const std::string& formula, double xBegin, double xEnd,
                                           int points = 10000) {
        sampled = std::make_unique<SampledGraph>(formula, xBegin, xEnd, points);
        graph().mainFormulaText = formula;
        view = GraphView{};
        auto dialog = std::make_unique<MathDialog>(sampled->formula, graph(), view, worker);
        dialog->show();
        return dialog;
    }
    static void click(const QWidget& dialog, int id) {
        QTest::mouseClick(control<QAbstractButton>(dialog, id), Qt::LeftButton);
    }
    // Types the interval and presses OK.
    static void integrate(MathDialog& dialog, const QString& from, const QString& to) {
        retype(dialog, ids::kXBegin, from);
        retype(dialog, ids::kXEnd, to);
        click(dialog, ids::kOk);
    }
    QStringList extremeColumn(const MathDialog& dialog, int column) {
        auto* list = control<QTreeWidget>(dialog, ids::kExtremeList);
        QStringList texts;
        for (int i = 0; i < list->topLevelItemCount(); ++i) {
            texts << list->topLevelItem(i)->text(column);
        }
        return texts;
    }

  private Q_SLOTS:
    void initTestCase() { installFaultTranslation(); }

    // The dialog opens on the first defined stretch. The messages and their order are the core's;
    // here, that the dialog stays open and which box each refusal sends the user to. 10^308 sums to
    // infinity, quick or precise; a refused precise sum leaves the focus where it was.
    void opensOnTheDefinedStretchAndRefusalsKeepItOpen() {
        // Formula, precise, X begin, the message, the box focused (0: not moved).
        const std::tuple<const char*, bool, const char*, const char*, int> rows[] = {
            {"ln(x)", false, "1", math_messages::kXEndNotGreater, ids::kXEnd},
            {"ln(x)", false, "-2", math_messages::kCannotIntegrate, ids::kXBegin},
            {"10^308", false, "-2", math_messages::kCannotIntegrate, ids::kXBegin},
            {"10^308", true, "-2", math_messages::kCannotIntegrate, 0},
        };
        for (const auto& [formula, precise, from, message, focused] : rows) {
            auto dialog = mathDialog(formula, -2, 5);
            QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
            // ln(x) has no value up to 0: the box starts where it has one, in the display format.
            QCOMPARE(control<QLineEdit>(*dialog, ids::kXBegin)->text(),
                     *formula == 'l' ? u"0.000000000000001"_s : u"-2"_s);
            QVERIFY(!control(*dialog, ids::kStop)->isEnabled());
            control<QCheckBox>(*dialog, ids::kPrecise)->setChecked(precise);
            ModalAnswer answer;
            integrate(*dialog, QString::fromLatin1(from), u"1"_s);
            // The precise sum of 10^308 never settles: it ends at the bound of evaluations.
            QTRY_VERIFY_WITH_TIMEOUT(answer.seen, 60000);
            QCOMPARE(answer.text, QString::fromLatin1(message));
            QCOMPARE(answer.icon, QMessageBox::Critical);
            QVERIFY(dialog->isVisible() && !view.areaPainted);
            if (focused != 0) {
                QCOMPARE(dialog->focusWidget(), control(*dialog, focused));
            }
        }
    }

    // A line's quick value is taken at once; e^(x-20) over [0, 20] bends too much for the
    // samples' step, so its quick value comes with a question, and Yes calculates precisely.
    void quickIntegralAsksWhenNotPreciseEnough() {
        const std::pair<QString, QMessageBox::StandardButton> rows[] = {
            {u"3*x-2"_s, QMessageBox::NoButton},  // a line: no question
            {u"e^(x-20)"_s, QMessageBox::No},     // keeps the quick value
            {u"e^(x-20)"_s, QMessageBox::Yes}};   // calculates precisely
        for (const auto& [formula, answer] : rows) {
            auto dialog = mathDialog(formula.toStdString(), 0, 20);
            QSignalSpy finished(dialog.get(), &MathDialog::runFinished);
            QSignalSpy changed(dialog.get(), &MathDialog::graphChanged);
            QSignalSpy progress(&worker, &Worker::progressChanged);
            ModalAnswer question{answer};
            double quick = 0.0;
            question.answered = [&] { quick = dialog->integral().value; };
            integrate(*dialog, u"0"_s, u"20"_s);
            QCOMPARE(question.seen, answer != QMessageBox::NoButton);
            if (question.seen) {
                QCOMPARE(question.caption, u"Warning"_s);
                QCOMPARE(question.icon, QMessageBox::Warning);
                QCOMPARE(question.text, QString::fromStdString(preciseQuestionText(quick)));
            }
            if (answer == QMessageBox::Yes) {
                QVERIFY(control<QCheckBox>(*dialog, ids::kPrecise)->isChecked());
                QVERIFY(finished.wait(20000));
                QVERIFY(finished.first().first().toBool());
                QVERIFY(dialog->integral().value != quick);
                QCOMPARE(progress.last().first().toInt(), 100);
            }
            QCOMPARE(dialog->result(), int(QDialog::Accepted));
            QVERIFY(!dialog->isVisible() && view.areaPainted);
            QCOMPARE(graph().areaText, integralText(0, 20, dialog->integral().value));
            QCOMPARE(graph().areaFirst, dialog->integral().firstIndex);
            QCOMPARE(graph().areaLast, dialog->integral().lastIndex);
            // A precise run repaints twice: the area while its value is computed, then the value.
            QCOMPARE(changed.count(), answer == QMessageBox::Yes ? 2 : 1);
        }
    }

    // While the precise run works, only Stop is enabled and the area is on the graph without
    // its value; Stop and Escape end it with no area and a zero integral.
    void stopOrEscapeLeavesNoAreaAndAZeroIntegral() {
        for (const bool byEscape : {false, true}) {
            auto dialog = mathDialog("sin(x*30)*e^(x/5)", -10, 10, 400000);
            QSignalSpy finished(dialog.get(), &MathDialog::runFinished);
            control<QCheckBox>(*dialog, ids::kPrecise)->setChecked(true);
            integrate(*dialog, u"-10"_s, u"10"_s);
            QVERIFY(dialog->isRunning());
            for (int id : {ids::kXBegin, ids::kXEnd, ids::kOk, ids::kCancel, ids::kFindExtremes}) {
                QVERIFY(!control(*dialog, id)->isEnabled());
            }
            QVERIFY(control(*dialog, ids::kStop)->isEnabled());
            QVERIFY(control(*dialog, ids::kProgress)->isVisible());
            QVERIFY(view.areaPainted && graph().areaText.empty());
            if (byEscape) {
                QTest::keyClick(dialog.get(), Qt::Key_Escape);
            } else {
                click(*dialog, ids::kStop);
            }
            QVERIFY(finished.wait(20000));
            QVERIFY(!finished.first().first().toBool());
            QCOMPARE(dialog->result(), int(QDialog::Rejected));
            QVERIFY(!view.areaPainted && graph().areaText.empty());
            QCOMPARE(dialog->integral().value, 0.0);
        }
    }

    void secondRequestWhileTheWorkerRunsIsRefused() {
        auto dialog = mathDialog("x", -10, 10);
        std::atomic<bool> keep{true};
        std::atomic<bool> release{false};
        QSignalSpy ended(&worker, &Worker::finished);
        QVERIFY(worker.start(kProcTwoDGraphDialog, keep, [&release](const JobContext&) {
            while (!release) {
                QThread::msleep(1);
            }
            return true;
        }));
        for (int id : {ids::kOk, ids::kDrawDerivative, ids::kDisplayIntegral}) {
            ModalAnswer refusal;
            retype(*dialog, ids::kXBegin, u"-1"_s);
            retype(*dialog, ids::kXEnd, u"1"_s);
            click(*dialog, id);
            QCOMPARE(refusal.text, QString::fromLatin1(kMsgWorkerBusy));
        }
        QVERIFY(!dialog->isRunning() && !view.areaPainted && !graph().hasDerivative() &&
                !graph().hasIntegral());
        release = true;
        QVERIFY(ended.wait(5000));
    }

    // sin(x) over [-10, 10]: maxima at -3pi/2, pi/2, 5pi/2; minima at -5pi/2, -pi/2, 3pi/2.
    void extremeListFollowsFilterAndUnits() {
        auto dialog = mathDialog("sin(x)", -10, 10);
        QCOMPARE(dialog->extremeValues()->rowCount(), 0);
        click(*dialog, ids::kFindExtremes);
        QCOMPARE(dialog->extremeValues()->rowCount(), 6);
        click(*dialog, ids::kShowMaxima);
        QVERIFY(extremeColumn(*dialog, 1).size() == 3 && extremeColumn(*dialog, 1)[0] > u"0"_s);
        click(*dialog, ids::kShowMinima);
        QVERIFY(extremeColumn(*dialog, 1).size() == 3 && extremeColumn(*dialog, 1)[0] < u"0"_s);
        click(*dialog, ids::kXInPi);
        QVERIFY(extremeColumn(*dialog, 0)[1].startsWith(u"pi*-0."_s));
        QVERIFY(!extremeColumn(*dialog, 1).first().startsWith(u"pi*"_s));
        click(*dialog, ids::kShowBoth);
        QCOMPARE(dialog->extremeValues()->rowCount(), 6);
    }

    // The switch to pi units writes the same result the other way; a refusal is the number box's.
    void informationGivesValueAndSlope() {
        namespace info = curvemill::information_ids;
        const std::tuple<const char*, const char*, bool, const char*, const char*, const char*>
            rows[] = {
                {"x^2", "3", false, "y=9.000000", "y'=6.000000", ""},
                {"2*x", "pi/4", true, "y=pi*0.5", "y'=pi*0.63662", ""},
                {"x", "", false, "", "", "ERROR IN X EDIT BOX:\nBOX IS EMPTY"},
            };
        for (const auto& [formula, x, pi, y, slope, message] : rows) {
            sampled = std::make_unique<SampledGraph>(formula, -10, 10);
            InformationDialog dialog(sampled->formula, graph(), worker);
            dialog.show();
            control<QCheckBox>(dialog, info::kPiUnits)->setChecked(pi);
            retype(dialog, info::kX, QString::fromLatin1(x));
            ModalAnswer answer;
            click(dialog, info::kCalculate);
            QCOMPARE(answer.text, QString::fromLatin1(message));
            QCOMPARE(control<QLineEdit>(dialog, info::kYResult)->text(), QString::fromLatin1(y));
            QCOMPARE(control<QLineEdit>(dialog, info::kSlopeResult)->text(),
                     QString::fromLatin1(slope));
            control<QCheckBox>(dialog, info::kPiUnits)->setChecked(!pi);
            QCOMPARE(control<QLineEdit>(dialog, info::kYResult)->text().startsWith(u"y=pi*"_s),
                     *message == '\0' && !pi);
        }
    }

    // A precise run that never settles ends with its best value and a warning.
    void unsettledPreciseRunWarns() {
        auto dialog = mathDialog("sin(1/x)", -5, 5);
        QSignalSpy finished(dialog.get(), &MathDialog::runFinished);
        control<QCheckBox>(*dialog, ids::kPrecise)->setChecked(true);
        ModalAnswer warning;
        integrate(*dialog, u"-5"_s, u"5"_s);
        QVERIFY(finished.wait(60000));
        QTRY_VERIFY(warning.seen);
        QCOMPARE(warning.icon, QMessageBox::Warning);
        QCOMPARE(warning.text, QString::fromStdString(refinementCutText()));
        QCOMPARE(graph().areaText, integralText(-5, 5, dialog->integral().value));
    }
};

QTEST_MAIN(MathDialogsTest)
#include "MathDialogsTest.moc"
