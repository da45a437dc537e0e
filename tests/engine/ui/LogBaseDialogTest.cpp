#include <cmath>

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "engine/Formula.h"
#include "engine/ui/LogBaseDialog.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class LogBaseDialogTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void opensWithTheBaseInForce() {
        Formula formula;
        LogBaseDialog dialog(formula);
        dialog.show();
        auto* edit = control<QLineEdit>(dialog, kLogBaseEdit);
        QVERIFY(control<QRadioButton>(dialog, kLogBaseTenRadio)->isChecked());
        QVERIFY(!edit->isEnabled());
        QCOMPARE(edit->maxLength(), 70);
        dialog.hide();

        formula.logBase = 2.5;
        dialog.show();
        QVERIFY(control<QRadioButton>(dialog, kLogBaseOtherRadio)->isChecked());
        QVERIFY(edit->isEnabled());
        QCOMPARE(edit->text(), u"2.500000"_s);
        QTest::mouseClick(control(dialog, kLogBaseTenRadio), Qt::LeftButton);
        QVERIFY(!edit->isEnabled());
    }

    // From base 7: "ten" picks base 10, anything else is typed as another base; Escape cancels.
    // Which texts are refused, and with what, is the LogBase table's; one row shows the box.
    void choosingTheBase_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("message");
        QTest::addColumn<double>("base");
        QTest::newRow("valid") << u"2"_s << int(Qt::Key_Return) << u""_s << 2.0;
        QTest::newRow("base ten") << u"ten"_s << int(Qt::Key_Return) << u""_s << 10.0;
        QTest::newRow("cancelled") << u"3"_s << int(Qt::Key_Escape) << u""_s << 7.0;
        QTest::newRow("letters") << u"two"_s << int(Qt::Key_Return) << u"ENTER A VALID NUMBER"_s
                                 << 7.0;
    }
    void choosingTheBase() {
        QFETCH(QString, typed);
        QFETCH(int, key);
        QFETCH(QString, message);
        QFETCH(double, base);
        Formula formula;
        formula.logBase = 7.0;
        formula.logFactor = 1.0 / std::log10(7.0);
        LogBaseDialog dialog(formula);
        dialog.show();
        if (typed == u"ten"_s) {
            QTest::mouseClick(control(dialog, kLogBaseTenRadio), Qt::LeftButton);
        } else {
            retype(dialog, kLogBaseEdit, typed);
        }
        ModalAnswer answer;
        QTest::keyClick(&dialog, Qt::Key(key));
        if (message.isEmpty()) {
            QVERIFY(!answer.seen);
            QVERIFY(!dialog.isVisible());
        } else {
            QTRY_VERIFY(answer.seen);
            QCOMPARE(answer.text, message);
            QCOMPARE(answer.icon, QMessageBox::Critical);
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.focusWidget(), control(dialog, kLogBaseEdit));
        }
        QCOMPARE(formula.logBase, base);
        if (message.isEmpty() && base > 0.0) {
            QVERIFY(qAbs(formula.logFactor - 1.0 / std::log10(base)) < 1e-12);
        }
    }
};

QTEST_MAIN(LogBaseDialogTest)
#include "LogBaseDialogTest.moc"
