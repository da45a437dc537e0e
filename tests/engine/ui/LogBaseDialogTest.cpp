#include <cmath>
#include <string>
#include <tuple>

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
    void choosingTheBase() {
        const std::tuple<const char*, Qt::Key, const char*, double> rows[] = {
            {"2", Qt::Key_Return, "", 2.0},
            {"ten", Qt::Key_Return, "", 10.0},
            {"3", Qt::Key_Escape, "", 7.0},
            {"two", Qt::Key_Return, "ENTER A VALID NUMBER", 7.0}};
        for (const auto& [typed, key, message, base] : rows) {
            Formula formula;
            formula.logBase = 7.0;
            formula.logFactor = 1.0 / std::log10(7.0);
            LogBaseDialog dialog(formula);
            dialog.show();
            if (typed == std::string("ten")) {
                QTest::mouseClick(control(dialog, kLogBaseTenRadio), Qt::LeftButton);
            } else {
                retype(dialog, kLogBaseEdit, QString::fromLatin1(typed));
            }
            ModalAnswer answer;
            QTest::keyClick(&dialog, key);
            QTRY_COMPARE(answer.text, QString::fromLatin1(message));
            QCOMPARE(dialog.isVisible(), *message != '\0');
            QCOMPARE(formula.logBase, base);
            if (*message != '\0') {
                QCOMPARE(answer.icon, QMessageBox::Critical);
                QCOMPARE(dialog.focusWidget(), control(dialog, kLogBaseEdit));
            } else if (key == Qt::Key_Return) {
                QVERIFY(qAbs(formula.logFactor - 1.0 / std::log10(base)) < 1e-12);
            }
        }
    }
};

QTEST_MAIN(LogBaseDialogTest)
#include "LogBaseDialogTest.moc"
