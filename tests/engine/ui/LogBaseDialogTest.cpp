#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "engine/Formula.h"
#include "engine/ui/LogBaseDialog.h"
#include "tests/shell/ModalAnswer.h"

using namespace curvemill;
using curvemill::testing::ModalAnswer;

class LogBaseDialogTest : public QObject {
    Q_OBJECT

    template <class T>
    static T* control(QWidget& dialog, int id) {
        return dialog.findChild<T*>(QString::number(id));
    }

  private Q_SLOTS:
    void opensWithTheBaseInForce() {
        Formula formula;
        LogBaseDialog dialog(formula);
        dialog.show();
        QVERIFY(control<QRadioButton>(dialog, 1045)->isChecked());
        QVERIFY(!control<QLineEdit>(dialog, 1047)->isEnabled());
        QCOMPARE(control<QLineEdit>(dialog, 1047)->maxLength(), 70);
        dialog.hide();

        formula.logBase = 2.5;
        dialog.show();
        QVERIFY(control<QRadioButton>(dialog, 1046)->isChecked());
        QVERIFY(control<QLineEdit>(dialog, 1047)->isEnabled());
        QCOMPARE(control<QLineEdit>(dialog, 1047)->text(), QStringLiteral("2.500000"));

        QTest::mouseClick(control<QRadioButton>(dialog, 1045), Qt::LeftButton);
        QVERIFY(!control<QLineEdit>(dialog, 1047)->isEnabled());
    }

    void okWithAnotherBase_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::addColumn<double>("base");
        QTest::newRow("valid") << "2"
                               << "" << 2.0;
        QTest::newRow("zero accepted") << "0"
                                       << "" << 0.0;
        QTest::newRow("letters") << "two"
                                 << "ENTER A VALID NUMBER" << 7.0;
        QTest::newRow("empty") << ""
                               << "ENTER A VALID NUMBER" << 7.0;
        QTest::newRow("negative") << "-3"
                                  << "LOG BASE MUST BE A POSITIVE NUMBER" << 10.0;
    }
    void okWithAnotherBase() {
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(double, base);
        Formula formula;
        formula.logBase = 7.0;
        LogBaseDialog dialog(formula);
        dialog.show();
        auto* edit = control<QLineEdit>(dialog, 1047);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, typed);
        ModalAnswer answer;
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("1")), Qt::LeftButton);
        if (message.isEmpty()) {
            QVERIFY(!answer.seen);
            QCOMPARE(dialog.result(), int(QDialog::Accepted));
        } else {
            QTRY_VERIFY(answer.seen);
            QCOMPARE(answer.text, message);
            QCOMPARE(answer.icon, QMessageBox::Critical);
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.focusWidget(), edit);
        }
        QCOMPARE(formula.logBase, base);
    }

    void baseTenAndCancel() {
        Formula formula;
        formula.logBase = 2.0;
        formula.logFactor = 1.0 / std::log10(2.0);
        {
            LogBaseDialog dialog(formula);
            dialog.show();
            QTest::keyClick(&dialog, Qt::Key_Escape);
            QCOMPARE(formula.logBase, 2.0);
        }
        LogBaseDialog dialog(formula);
        dialog.show();
        QTest::mouseClick(control<QRadioButton>(dialog, 1045), Qt::LeftButton);
        QTest::keyClick(&dialog, Qt::Key_Return);
        QCOMPARE(formula.logBase, 10.0);
        QCOMPARE(formula.logFactor, 1.0);
    }
};

QTEST_MAIN(LogBaseDialogTest)
#include "LogBaseDialogTest.moc"
