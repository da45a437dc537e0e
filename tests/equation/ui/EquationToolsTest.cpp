#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QtTest>

#include "engine/Formula.h"
#include "engine/Preparation.h"
#include "equation/ui/EquationInformationDialog.h"
#include "equation/ui/EquationSolutionsDialog.h"
#include "graph2d/GraphView.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class EquationToolsTest : public QObject {
    Q_OBJECT

    RecordingReporter reporter;
    Worker worker{reporter};

    static QString cell(QTableView* table, int row, int column) {
        return table->model()->index(row, column).data().toString();
    }

  private Q_SLOTS:
    void solutionsAreListedSortedCopiedAndMarked() {
        EquationCurve curve;
        curve.solutions = {{-2, 0.5}, {1, 3}, {3.141592653589793, -1}};
        EquationSolutionsDialog dialog(curve);
        dialog.show();
        auto* table = control<QTableView>(dialog, solutions_ids::kList);
        QCOMPARE(table->model()->rowCount(), 3);
        QCOMPARE(control<QLabel>(dialog, solutions_ids::kCount)->text(), u"3 solution points"_s);
        QCOMPARE(cell(table, 2, 0), u"3.141592654"_s);
        control<QCheckBox>(dialog, solutions_ids::kXInPi)->setChecked(true);
        QCOMPARE(cell(table, 2, 0), u"pi*1"_s);
        QCOMPARE(cell(table, 0, 1), u"0.5"_s);
        // Sorted by value, not by text: -1 < 0.5 < 3.
        table->sortByColumn(1, Qt::AscendingOrder);
        QCOMPARE(cell(table, 0, 1), u"-1"_s);
        QCOMPARE(cell(table, 2, 1), u"3"_s);

        QSignalSpy marked(&dialog, &EquationSolutionsDialog::pointMarked);
        table->selectRow(1);
        QCOMPARE(QList<QVariantList>(marked), (QList<QVariantList>{{true, -2.0, 0.5}}));
        table->selectionModel()->select(table->model()->index(2, 0),
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QCOMPARE(dialog.selectedText(), u"pi*-0.6366197724\t0.5\npi*0.3183098862\t3\n"_s);
        QSignalSpy squares(&dialog, &EquationSolutionsDialog::squaresToggled);
        control<QCheckBox>(dialog, solutions_ids::kSquares)->click();
        QCOMPARE(QList<QVariantList>(squares), (QList<QVariantList>{{true}}));
        dialog.hide();
        QCOMPARE(marked.last()[0].toBool(), false);

        curve.solutions.clear();
        dialog.refresh();
        QCOMPARE(table->model()->rowCount(), 0);
        QCOMPARE(control<QLabel>(dialog, solutions_ids::kCount)->text(), u"0 solution points"_s);
    }

    // The messages are the core's: one refusal proves the wiring, through the other button.
    void informationFindsXForYAndRefusesBadEntries() {
        Formula formula;
        QVERIFY(prepareFormula(formula, "x*x-y", FormulaMode::TwoVariables));
        GraphView view;
        setViewSize(view, 600, 600);
        setViewRanges(view, -5, 5, -5, 20);
        fitGraphHeight(view);
        EquationInformationPanel panel(formula, view, worker);
        panel.show();
        auto* list = control<QListWidget>(panel, equation_information_ids::kList);
        ModalAnswer refusal;
        const auto ask = [&panel](int box, const QString& value, int button) {
            retype(panel, box, value);
            QTest::mouseClick(control<QPushButton>(panel, button), Qt::LeftButton);
        };
        ask(equation_information_ids::kXForY, u"-7"_s, equation_information_ids::kFindY);
        QVERIFY(refusal.seen);
        QCOMPARE(refusal.text, u"X IS OUTSIDE THE RANGE OF FUNCTION"_s);
        QVERIFY(!panel.isRunning());

        QSignalSpy finished(&panel, &EquationInformationPanel::scanFinished);
        ask(equation_information_ids::kYForX, u"4"_s, equation_information_ids::kFindX);
        QVERIFY(finished.wait(10000));
        QVERIFY(list->count() >= 2);  // x = -2 and 2; where they lie is the root scan's
        QCOMPARE(list->currentRow(), 0);

        // A list that takes fewer lines than found warns once and stops listing.
        panel.setListCapacity(1);
        ModalAnswer warning;
        control<QCheckBox>(panel, equation_information_ids::kPiUnits)->setChecked(true);
        QVERIFY(warning.seen);
        QCOMPARE(warning.text, u"NOT ALL VALUES CAN BE DISPLAYED"_s);
        QVERIFY(warning.caption == u"WARNING"_s && warning.icon == QMessageBox::Warning);
        QCOMPARE(list->count(), 1);
        QVERIFY(list->item(0)->text().startsWith(u"pi*"_s));
    }
};

QTEST_MAIN(EquationToolsTest)
#include "EquationToolsTest.moc"
