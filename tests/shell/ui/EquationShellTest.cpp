// The equation's road through the main window: the command opens the input window, a computed
// equation is shown with its dots, the menus, zoom and tools follow it, and Copy and Print send it
// out.
#include <QClipboard>
#include <QProgressBar>
#include <QScreen>
#include <QToolBar>
#include <QtTest>

#include <cmath>

#include "equation/EquationSolver.h"
#include "equation/ui/EquationInformationDialog.h"
#include "equation/ui/EquationSolutionsDialog.h"
#include "tests/support/MainWindowFixture.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class EquationShellTest : public MainWindowFixture {
    Q_OBJECT

    bool enterCircle() {
        return enterTwoVariables(40086, u"x^2+y^2-1"_s) != nullptr &&
               QTest::qWaitFor([this] { return window->graphKind() == GraphKind::Equation; });
    }
    // The solution points Copy puts on the clipboard, one "x^2+y^2-1 = 0,x,y" line each.
    QStringList copiedPoints() {
        action(40052)->trigger();
        return QGuiApplication::clipboard()->text().split(u"\r\n"_s, Qt::SkipEmptyParts).mid(1);
    }

  private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { window.reset(); }

    void equationIsShownZoomedWithItsDotsAndMenusAndGoesOut() {
        window->resize(1200, 450);
        QVERIFY(!action(40012)->isEnabled());
        QVERIFY(enterCircle());
        QCOMPARE(shown<TwoVariableWindow>(), nullptr);
        QVERIFY(curve.count() > 100);
        QCOMPARE(view.wholeXBegin, -2.0);
        QCOMPARE(view.yBegin, curve.yMin);
        // Zoom and grid apply to the flat view; the function-only tools are grey.
        for (const int id : {40012, 40030, 40018, 40052}) {
            QVERIFY(action(id)->isEnabled());
        }
        QVERIFY(!action(40051)->isEnabled() && !action(40033)->isEnabled());
        canvas()->repaint();
        QVERIFY(countPixels(canvas()->backBuffer(), [](QRgb c) { return c == qRgb(200, 0, 0); }) >
                100);
        // The mouse reads coordinates off an equation as off a function graph.
        QTest::mouseMove(canvas(), canvas()->rect().center());
        QTRY_VERIFY(!named<QLabel>(u"coordinatesText"_s)->text().isEmpty());
        // The zoom commands act on it as on a function graph; Restore shows it whole again.
        const auto inside = [this] {
            return view.visibleYBegin() < curve.yMin && view.visibleYEnd() > curve.yMax;
        };
        QVERIFY(inside());
        for (const int id : {40003, 40005, 40007}) {
            action(id)->trigger();
        }
        QCOMPARE(view.xZoom, 4.0);
        QCOMPARE(view.yZoom, 1.0);
        action(40126)->trigger();
        QCOMPARE(view.xZoom, 1.0);
        QVERIFY(inside());

        // Copy takes the dots (all of them, or those in the selection) as a picture and as
        // points on the curve; Print lays out one page.
        const QStringList all = copiedPoints();
        const QImage picture = qvariant_cast<QImage>(QGuiApplication::clipboard()->image());
        QVERIFY(countPixels(picture, [](QRgb c) {
                    return qRed(c) > 150 && qGreen(c) < 60 && qBlue(c) < 60;
                }) > 200);
        QCOMPARE(all.size(), curve.count());
        for (const QString& line : all) {
            const double x = line.section(u',', 1, 1).toDouble();
            const double y = line.section(u',', 2, 2).toDouble();
            QVERIFY2(line.startsWith(u"x^2+y^2-1 = 0,"_s) && std::fabs(x * x + y * y - 1.0) < 1e-3,
                     qPrintable(line));
        }
        action(40064)->trigger();
        drag({1, 1}, {canvas()->width() / 2, canvas()->height() - 2});
        const qsizetype inLeft = copiedPoints().size();
        QVERIFY2(inLeft > 10 && inLeft < all.size() - 10, qPrintable(QString::number(inLeft)));

        QCOMPARE(printedPages(), 1);

        // The solutions dialog comes with Math Dialog and follows the next equation.
        action(40012)->trigger();
        auto* solutions = shown<EquationSolutionsDialog>();
        QVERIFY(solutions != nullptr);
        const int before = curve.count();
        enterTwoVariables(40086, u"x*y-1"_s);
        QTRY_VERIFY(curve.count() != before);
        QVERIFY(solutions->findChild<QLabel*>(u"1181"_s)->text().startsWith(
            QString::number(curve.count())));
    }

    // Solutions that fill the grid stop at the bound, and the status line says so.
    void aFilledGridIsBoundedAndTold() {
        settings.equationXPoints = 2000;
        settings.equationYPoints = 2000;
        enterTwoVariables(40086, u"x-x"_s);
        QTRY_COMPARE_WITH_TIMEOUT(window->graphKind(), GraphKind::Equation, 20000);
        QCOMPARE(curve.count(), kMostSolutions);
        QCOMPARE(status(), QString::fromStdString(solutionLimitText()));
    }

    // Windows of one graph kind close when another kind (or none) takes the screen, the input
    // window fills its boxes only from an entry of its own kind, a stopped run leaves nothing on
    // screen whatever it replaced, and Cancel then goes back to the title page.
    void windowsFollowTheGraphOnScreenAndFitIt() {
        QVERIFY(enterCircle());
        action(40012)->trigger();
        action(40200)->trigger();
        QVERIFY(shown<EquationSolutionsDialog>() && shown<EquationInformationDialog>());
        action(40091)->trigger();
        TwoVariableWindow* input = shown<TwoVariableWindow>();
        // Tool windows keep their size while a progress bar comes and goes.
        for (QWidget* tool : {static_cast<QWidget*>(input),
                              static_cast<QWidget*>(shown<EquationInformationDialog>())}) {
            auto* progress = tool->findChild<QProgressBar*>();
            const QSize idle = tool->sizeHint();
            progress->show();
            QCOMPARE(tool->sizeHint(), idle);
            progress->hide();
        }
        QCOMPARE(control<QLineEdit>(*input, twovar_ids::kFormula)->text(), QString());
        QCOMPARE(control<QLineEdit>(*input, twovar_ids::kXBegin)->text(), u"-10"_s);
        input->reject();
        QVERIFY(enterTwoVariables(40091, u"x+y"_s) != nullptr);
        QTRY_COMPARE(window->graphKind(), GraphKind::Surface3D);
        QVERIFY(!shown<EquationSolutionsDialog>() && !shown<EquationInformationDialog>());
        // In 3D the grid box and Restore are there, in the menu and on the toolbar alike.
        for (int id : {40010, 40126}) {
            QVERIFY(named<QToolBar>(u"toolbar"_s)->widgetForAction(action(id))->isEnabled());
        }
        action(40114)->trigger();
        QVERIFY(named(u"rotationDialog"_s)->isVisible());

        settings.surfaceXPoints = settings.surfaceYPoints = 500;
        input = enterTwoVariables(40091, u"sin(x*y)*ln(x^2+y^2+1)^3"_s);
        control<QPushButton>(*input, twovar_ids::kStop)->click();
        QTRY_VERIFY(control<QPushButton>(*input, twovar_ids::kCancel)->isEnabled());
        QCOMPARE(window->graphKind(), GraphKind::TitlePage);
        QVERIFY(!named(u"rotationDialog"_s)->isVisible());
        for (int id : {40030, 40101, 40114, 40005, 40010}) {
            QVERIFY2(!action(id)->isEnabled(), qPrintable(QString::number(id)));
        }
        QSignalSpy title(window.get(), &MainWindow::titlePageShown);
        control<QPushButton>(*input, twovar_ids::kCancel)->click();
        QCOMPARE(title.size(), 1);
        QVERIFY(!action(40010)->isChecked());
        QCOMPARE(status(), u"Ready"_s);

        // Windows open within the free area of their screen.
        auto* big = new QWidget(window.get(), Qt::Window);
        big->resize(5000, 4000);
        big->move(300, 300);
        big->show();
        QVERIFY(big->screen()->availableGeometry().contains(big->frameGeometry()));
    }
};

QTEST_MAIN(EquationShellTest)
#include "EquationShellTest.moc"
