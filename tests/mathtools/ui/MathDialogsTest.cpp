// The Math and Information dialogs driven as a user would: typed boxes, buttons found by their
// identifiers, message boxes answered, the precise run on the worker.
#include <atomic>
#include <memory>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
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

    // Alt and a letter reaches one control only when no other control claims the same letter.
    void everyMnemonicLetterIsUnique() {
        auto dialog = mathDialog("x", -1, 1);
        QSet<QChar> letters;
        const auto claim = [&letters](const QString& text) {
            const qsizetype at = text.indexOf(u'&');
            if (at < 0 || at + 1 >= text.size()) {
                return;
            }
            const QChar letter = text.at(at + 1).toLower();
            QVERIFY2(!letters.contains(letter), qPrintable(text));
            letters.insert(letter);
        };
        for (const QAbstractButton* button : dialog->findChildren<QAbstractButton*>()) {
            claim(button->text());
        }
        for (const QLabel* label : dialog->findChildren<QLabel*>()) {
            claim(label->text());
        }
        QVERIFY(letters.size() >= 10);
    }

    void opensOnTheFirstDefinedStretch() {
        auto dialog = mathDialog("ln(x)", -2, 5);
        QVERIFY(control<QRadioButton>(*dialog, ids::kShowBoth)->isChecked());
        QVERIFY(!control(*dialog, ids::kStop)->isEnabled());
        // ln(x) has no value up to 0: the boxes start where it has one, in the display format.
        const QString begin = control<QLineEdit>(*dialog, ids::kXBegin)->text();
        QVERIFY2(graph().definedSpan.begin < 1e-15, qPrintable(begin));
        QCOMPARE(begin, u"0.000000000000001"_s);
        QCOMPARE(control<QLineEdit>(*dialog, ids::kXEnd)->text(), u"5"_s);
    }

    void refusalsComeInTheDialogsOrder_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("focused");
        QTest::newRow("end empty") << u"x"_s << u"1"_s << u""_s
                                   << u"ERROR IN X_END EDIT BOX:\nBOX IS EMPTY"_s << ids::kXEnd;
        QTest::newRow("equal") << u"x"_s << u"2"_s << u"2"_s
                               << QString(math_messages::kXEndNotGreater) << ids::kXEnd;
        QTest::newRow("indefinite inside")
            << u"ln(x)"_s << u"-1"_s << u"1"_s << QString(math_messages::kCannotIntegrate)
            << ids::kXBegin;
    }
    void refusalsComeInTheDialogsOrder() {
        QFETCH(QString, formula);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, message);
        QFETCH(int, focused);
        auto dialog = mathDialog(formula.toStdString(), -10, 10);
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
        ModalAnswer answer;
        integrate(*dialog, from, to);
        QVERIFY(answer.seen);
        QCOMPARE(answer.text, message);
        QCOMPARE(answer.icon, QMessageBox::Critical);
        QVERIFY(dialog->isVisible());
        QVERIFY(!view.areaPainted);
        QCOMPARE(dialog->focusWidget(), control(*dialog, focused));
    }

    void quickIntegralOfALineIsAcceptedAtOnce() {
        auto dialog = mathDialog("3*x-2", -5, 5);
        QSignalSpy changed(dialog.get(), &MathDialog::graphChanged);
        ModalAnswer noQuestion;
        integrate(*dialog, u"-5"_s, u"5"_s);
        QVERIFY(!noQuestion.seen);
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        QVERIFY(!dialog->isVisible());
        QVERIFY(view.areaPainted);
        QCOMPARE(graph().areaText, integralText(-5, 5, dialog->integral().value));
        QCOMPARE(changed.count(), 1);
    }

    // e^(x-20) over [0, 20] bends too much for the samples' step: the quick value comes with a
    // question.
    void quickIntegralNotPreciseEnoughAsks_data() {
        QTest::addColumn<bool>("yes");
        QTest::newRow("no keeps the quick value") << false;
        QTest::newRow("yes calculates precisely") << true;
    }
    void quickIntegralNotPreciseEnoughAsks() {
        QFETCH(bool, yes);
        auto dialog = mathDialog("e^(x-20)", 0, 20);
        QSignalSpy finished(dialog.get(), &MathDialog::runFinished);
        ModalAnswer question(yes ? QMessageBox::Yes : QMessageBox::No);
        double quick = 0.0;
        question.answered = [&] { quick = dialog->integral().value; };
        integrate(*dialog, u"0"_s, u"20"_s);
        QVERIFY(question.seen);
        QCOMPARE(question.caption, u"Warning"_s);
        QCOMPARE(question.icon, QMessageBox::Warning);
        QCOMPARE(question.text, QString::fromStdString(preciseQuestionText(quick)));
        if (!yes) {
            QVERIFY(!dialog->isVisible());
            QCOMPARE(graph().areaText, integralText(0, 20, quick));
            return;
        }
        QVERIFY(control<QCheckBox>(*dialog, ids::kPrecise)->isChecked());
        QVERIFY(finished.wait(20000));
        QVERIFY(finished.first().first().toBool());
        QVERIFY(dialog->integral().value != quick);
        QCOMPARE(graph().areaText, integralText(0, 20, dialog->integral().value));
    }

    void preciseRunShowsProgressAndEnds() {
        auto dialog = mathDialog("sin(x)/x*80", -10, 10, 400000);
        QSignalSpy finished(dialog.get(), &MathDialog::runFinished);
        QSignalSpy progress(&worker, &Worker::progressChanged);
        control<QCheckBox>(*dialog, ids::kPrecise)->setChecked(true);
        integrate(*dialog, u"-10"_s, u"10"_s);
        QVERIFY(dialog->isRunning());
        for (int id : {ids::kXBegin, ids::kXEnd, ids::kOk, ids::kCancel, ids::kFindExtremes}) {
            QVERIFY(!control(*dialog, id)->isEnabled());
        }
        QVERIFY(control(*dialog, ids::kStop)->isEnabled());
        QVERIFY(control(*dialog, ids::kProgress)->isVisible());
        // The area is on the graph while its value is computed.
        QVERIFY(view.areaPainted && graph().areaText.empty());
        QVERIFY(finished.wait(20000));
        QVERIFY(finished.first().first().toBool());
        QCOMPARE(progress.last().first().toInt(), 100);
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        QCOMPARE(graph().areaText, integralText(-10, 10, dialog->integral().value));
    }

    void stopLeavesNoAreaAndAZeroIntegral_data() {
        QTest::addColumn<bool>("byEscape");
        QTest::newRow("Stop") << false;
        QTest::newRow("Escape") << true;
    }
    void stopLeavesNoAreaAndAZeroIntegral() {
        QFETCH(bool, byEscape);
        auto dialog = mathDialog("sin(x*30)*e^(x/5)", -10, 10, 400000);
        QSignalSpy finished(dialog.get(), &MathDialog::runFinished);
        control<QCheckBox>(*dialog, ids::kPrecise)->setChecked(true);
        integrate(*dialog, u"-10"_s, u"10"_s);
        QVERIFY(dialog->isRunning());
        if (byEscape) {
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
        } else {
            click(*dialog, ids::kStop);
        }
        QVERIFY(finished.wait(20000));
        QVERIFY(!finished.first().first().toBool());
        QCOMPARE(dialog->result(), int(QDialog::Rejected));
        QVERIFY(!view.areaPainted && graph().areaText.empty());
    }

    void derivativeIsDrawnOnTheWorker() {
        auto dialog = mathDialog("x^3", -2, 2);
        QSignalSpy drawn(dialog.get(), &MathDialog::curveAdded);
        QSignalSpy finished(dialog.get(), &MathDialog::runFinished);
        click(*dialog, ids::kDrawDerivative);
        QVERIFY(finished.wait(20000));
        QVERIFY(finished.first().first().toBool());
        QCOMPARE(drawn.count(), 1);
        QVERIFY(!dialog->isVisible());
        QVERIFY(graph().hasDerivative());
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

    void informationGivesValueAndSlope_data() {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("x");
        QTest::addColumn<bool>("pi");
        QTest::addColumn<QString>("y");
        QTest::addColumn<QString>("slope");
        QTest::addColumn<QString>("message");
        QTest::newRow("x^2 at 3") << u"x^2"_s << u"3"_s << false << u"y=9.000000"_s
                                  << u"y'=6.000000"_s << QString();
        QTest::newRow("in pi units")
            << u"2*x"_s << u"pi/4"_s << true << u"y=pi*0.5"_s << u"y'=pi*0.63662"_s << QString();
        QTest::newRow("empty") << u"x"_s << u""_s << false << QString() << QString()
                               << u"ERROR IN X EDIT BOX:\nBOX IS EMPTY"_s;
    }
    void informationGivesValueAndSlope() {
        QFETCH(QString, formula);
        QFETCH(QString, x);
        QFETCH(bool, pi);
        QFETCH(QString, y);
        QFETCH(QString, slope);
        QFETCH(QString, message);
        sampled = std::make_unique<SampledGraph>(formula.toStdString(), -10, 10);
        InformationDialog dialog(sampled->formula, graph(), worker);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), u"Information"_s);
        namespace info = curvemill::information_ids;
        control<QCheckBox>(dialog, info::kPiUnits)->setChecked(pi);
        retype(dialog, info::kX, x);
        ModalAnswer answer;
        click(dialog, info::kCalculate);
        QCOMPARE(answer.text, message);
        QCOMPARE(control<QLineEdit>(dialog, info::kYResult)->text(), y);
        QCOMPARE(control<QLineEdit>(dialog, info::kSlopeResult)->text(), slope);
        // The switch writes the same result the other way.
        if (!message.isEmpty()) {
            return;
        }
        control<QCheckBox>(dialog, info::kPiUnits)->setChecked(!pi);
        QCOMPARE(control<QLineEdit>(dialog, info::kYResult)->text().startsWith(u"y=pi*"_s), !pi);
    }

    // A precise run that never settles ends with its best value and a warning; an infinite quick
    // sum is refused.
    void unsettledPreciseRunWarnsAndInfiniteSumIsRefused() {
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

        for (const bool precise : {false, true}) {
            dialog = mathDialog("10^308", -5, 5);
            control<QCheckBox>(*dialog, ids::kPrecise)->setChecked(precise);
            ModalAnswer refusal;
            integrate(*dialog, u"-5"_s, u"5"_s);
            QTRY_VERIFY(refusal.seen);
            QCOMPARE(refusal.text, QString::fromLatin1(math_messages::kCannotIntegrate));
            QVERIFY(!view.areaPainted);
            QVERIFY2(dialog->isVisible(), precise ? "precise" : "quick");
        }
    }
};

QTEST_MAIN(MathDialogsTest)
#include "MathDialogsTest.moc"
