// The curve window as a user drives it: a refusal names its box and leaves the function slots as
// they were; a run fills the graph and closes the window; Stop keeps the curve on screen. The
// painter: the curve where its formulas put it, equal scales, no line across a pole.
#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "graph2d/GraphView.h"
#include "graph2d/ui/GraphPainter.h"
#include "parametric/ui/CurvePainter.h"
#include "parametric/ui/CurveToolDialogs.h"
#include "parametric/ui/CurveWindow.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;
namespace ids = curvemill::curve_ids;

class CurveUiTest : public QObject {
    Q_OBJECT

    Formula formula;
    RecordingReporter reporter;
    Worker worker{reporter};
    CurveGraph graph;

    std::unique_ptr<CurveWindow> open(CurveForm form, const char* first, const char* second = "") {
        auto window = std::make_unique<CurveWindow>(form, formula, graph, worker);
        window->show();
        [[maybe_unused]] const bool shown = QTest::qWaitForWindowExposed(window.get());
        retype(*window, ids::kFirstFormula, QString::fromLatin1(first));
        if (form == CurveForm::Parametric) {
            retype(*window, ids::kSecondFormula, QString::fromLatin1(second));
        }
        return window;
    }

  private Q_SLOTS:
    void init() {
        graph = CurveGraph{};
        QVERIFY(prepareFormula(formula, "x^2", FormulaMode::Function));
    }

    void aRefusalNamesItsBoxAndKeepsTheFunction() {
        auto window = open(CurveForm::Parametric, "t", "x+1");
        ModalAnswer answer;
        QTest::mouseClick(control<QPushButton>(*window, ids::kOk), Qt::LeftButton);
        QTRY_VERIFY(answer.seen);
        QCOMPARE(answer.text, u"ERROR IN Y(T) EDIT BOX:\nINVALID ENTRY"_s);
        QCOMPARE(window->focusWidget(), control(*window, ids::kSecondFormula));
        QCOMPARE(formula.evaluate(3.0, kFunctionSlot), 9.0);  // x(t) was accepted, then undone
        QVERIFY(window->isVisible());
    }

    void aRunFillsTheGraphAndStopKeepsIt() {
        auto window = open(CurveForm::Polar, "1+cos(t)");
        QVERIFY(control(*window, ids::kSecondFormula)->isHidden());
        QSignalSpy accepted(window.get(), &CurveWindow::entryAccepted);
        QSignalSpy drawn(window.get(), &CurveWindow::graphDrawn);
        QTest::mouseClick(control<QPushButton>(*window, ids::kOk), Qt::LeftButton);
        QTRY_COMPARE(drawn.count(), 1);
        QCOMPARE(accepted.count(), 1);
        QVERIFY(!window->isVisible());
        QCOMPARE(graph.form, CurveForm::Polar);
        QVERIFY(graph.points.size() >= 100000U);
        QCOMPARE(graph.points.front().x, 2.0);  // r(0) = 2 at angle 0
        QCOMPARE(accepted.at(0).at(0).value<CurveEntry>().first, "1+cos(t)");

        const std::size_t before = graph.points.size();
        auto again = open(CurveForm::Parametric, "sin(t)*cos(t)^3+t", "cos(t)*sin(t)^3");
        retype(*again, ids::kPointsEdit, u"40"_s);
        QSignalSpy finished(again.get(), &CurveWindow::runFinished);
        QTest::mouseClick(control<QPushButton>(*again, ids::kOk), Qt::LeftButton);
        again->stop();
        QTRY_COMPARE(finished.count(), 1);
        QCOMPARE(finished.at(0).at(0).toBool(), false);
        QCOMPARE(graph.points.size(), before);
        QCOMPARE(formula.evaluate(3.0, kFunctionSlot), 1 + std::cos(3.0));
        QVERIFY(again->isVisible());
    }

    void mathToolsMeasureTheCurveOnScreen() {
        auto window = open(CurveForm::Parametric, "cos(t)", "sin(t)");
        QTest::mouseClick(control<QPushButton>(*window, ids::kOk), Qt::LeftButton);
        QTRY_VERIFY(!window->isVisible());
        namespace tool = curvemill::curve_tool_ids;

        CurveMathDialog math(formula, graph, worker);
        math.show();
        QTest::mouseClick(control<QPushButton>(math, tool::kOk), Qt::LeftButton);
        const auto result = [&math] {
            return control<QPlainTextEdit>(math, tool::kResult)->toPlainText();
        };
        QTRY_VERIFY(!result().isEmpty());
        QVERIFY2(result().startsWith(u"length=6.28318530717"_s), qPrintable(result()));
        QVERIFY2(result().contains(u"\narea=3.1415926535"_s), qPrintable(result()));

        CurveInformationDialog information(formula, graph);
        information.show();
        retype(information, tool::kT, u"pi/3"_s);
        QTest::mouseClick(control<QPushButton>(information, tool::kOk), Qt::LeftButton);
        const QString read = control<QPlainTextEdit>(information, tool::kResult)->toPlainText();
        QVERIFY2(read.startsWith(u"x=0.5\ny=0.866025403784439\ndx/dt=-0.86602540"_s),
                 qPrintable(read));
        ModalAnswer outside;
        retype(information, tool::kT, u"7"_s);
        QTest::mouseClick(control<QPushButton>(information, tool::kOk), Qt::LeftButton);
        QTRY_VERIFY(outside.seen);
        QCOMPARE(outside.text, QString::fromLatin1(curve_messages::kTOutside));
    }

    void historyOffersTheEntriesOfTheWindowsKind() {
        CurveHistory history;
        history.record({CurveForm::Parametric, "cos(t)", "sin(t)", "0", "pi"});
        history.record({CurveForm::Polar, "1+cos(t)", "", "0", "2*pi"});
        auto window = open(CurveForm::Parametric, "t", "t");
        QVERIFY(!control(*window, ids::kHistory)->isEnabled());
        window->setHistory(&history);
        QStringList offered;
        QTimer::singleShot(50, [&offered] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu != nullptr);
            for (const QAction* action : menu->actions()) {
                offered << action->text();
            }
            menu->actions().front()->trigger();
            menu->close();
        });
        QTest::mouseClick(control<QPushButton>(*window, ids::kHistory), Qt::LeftButton);
        QCOMPARE(offered, QStringList{u"x = cos(t), y = sin(t)   [0, pi]"_s});
        QCOMPARE(control<QLineEdit>(*window, ids::kSecondFormula)->text(), u"sin(t)"_s);
        QCOMPARE(control<QLineEdit>(*window, ids::kTEnd)->text(), u"pi"_s);
    }

    void theCurveIsDrawnWhereItLiesAndNotAcrossAPole() {
        const auto painted = [this](const char* first, const char* second, double t0, double t1,
                                    bool arrow = false, double part = 1.0) {
            auto window = open(second ? CurveForm::Parametric : CurveForm::Polar, first,
                               second ? second : "");
            retype(*window, ids::kTBegin, QString::number(t0, 'g', 17));
            retype(*window, ids::kTEnd, QString::number(t1, 'g', 17));
            control<QCheckBox>(*window, ids::kArrow)->setChecked(arrow);
            QTest::mouseClick(control<QPushButton>(*window, ids::kOk), Qt::LeftButton);
            [&] { QTRY_VERIFY(!window->isVisible()); }();
            GraphView view;
            setViewSize(view, 600, 500);
            fitViewToCurve(view, graph);
            QImage image(600, 500, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::white);
            QPainter painter(&image);
            GraphPainter graphPainter;
            CurvePainter().draw(graphPainter, painter, graph, view, {.drawnPart = part});
            return std::pair{image, view};
        };
        const auto blueNear = [](const QImage& image, double x, double y) {
            for (int dy = -1; dy <= 1; ++dy) {
                for (int dx = -1; dx <= 1; ++dx) {
                    const QColor c = image.pixelColor(int(x) + dx, int(y) + dy);
                    if (c.blue() - c.red() > 80 && c.blue() - c.green() > 80) {
                        return true;
                    }
                }
            }
            return false;
        };
        const auto [circle, round] = painted("cos(t)", "sin(t)", 0, 2 * M_PI);
        for (int k = 0; k < 24; ++k) {
            const double t = (k + 0.5) * M_PI / 12;  // off the axes, which are drawn on top
            QVERIFY2(blueNear(circle, round.toPixelX(std::cos(t)), round.toPixelY(std::sin(t))),
                     qPrintable(QString::number(t)));
        }
        // Equal scales: the circle is as wide as it is high.
        QCOMPARE(round.toPixelX(1) - round.toPixelX(-1), round.toPixelY(-1) - round.toPixelY(1));
        QVERIFY(!blueNear(circle, round.toPixelX(0), round.toPixelY(0)));
        // The window's arrow option puts the head beside the line at the start, (1, 0); drawn a
        // quarter of the way (the drawing process), the circle stops at t = pi/2.
        const QPointF start(round.toPixelX(1) + 3, round.toPixelY(0) - 3);
        QVERIFY(!blueNear(circle, start.x(), start.y()));
        QVERIFY(
            blueNear(painted("cos(t)", "sin(t)", 0, 2 * M_PI, true).first, start.x(), start.y()));
        const QImage quarter = painted("cos(t)", "sin(t)", 0, 2 * M_PI, false, 0.25).first;
        QVERIFY(blueNear(quarter, round.toPixelX(0.6), round.toPixelY(0.8)));
        QVERIFY(!blueNear(quarter, round.toPixelX(-0.6), round.toPixelY(0.8)));

        // r = 1/cos(t) over the pole at pi/2 is the line x = 1 running up, then up again from far
        // below: nothing may join the two branches across the middle of the view.
        const auto [secant, line] = painted("1/cos(t)", nullptr, 1.2, 1.9);
        QVERIFY(blueNear(secant, line.toPixelX(1), line.toPixelY(2.6)));
        QVERIFY(!blueNear(secant, line.toPixelX(1), line.toPixelY(0)));
    }
};

QTEST_MAIN(CurveUiTest)
#include "CurveUiTest.moc"
