#include <fenv.h>

#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/Preparation.h"
#include "failure/FaultTranslation.h"
#include "failure/ui/GuardedApplication.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "graph3d/SurfaceComputation.h"
#include "history/HistoryPort.h"
#include "history/ui/EntryReportList.h"
#include "history/ui/HistoryCommands.h"
#include "history/ui/HistoryService.h"
#include "history/ui/HistoryWindow.h"
#include "mathtools/ui/InformationDialog.h"
#include "mathtools/ui/MathControlIds.h"
#include "mathtools/ui/MathDialog.h"
#include "output/ui/PictureRendering.h"
#include "shell/CommandState.h"
#include "shell/CommandTable.h"
#include "shell/ui/AboutDialog.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/GraphOutputs.h"
#include "shell/ui/MainWindow.h"
#include "shell/ui/MathCommands.h"
#include "shell/ui/TitlePage.h"
#include "tests/support/AccessKeys.h"
#include "tests/support/DialogControls.h"
#include "tests/support/FakeHistory.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

namespace {

// An object whose handling of a user event runs `fault`.
class FaultyControl : public QObject {
  public:
    FaultyControl(QObject* parent, std::function<void()> fault)
        : QObject(parent), fault_(std::move(fault)) {}
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        fault_();
        return true;
    }

  private:
    std::function<void()> fault_;
};

}  // namespace

class MainWindowTest : public MainWindowFixture {
    Q_OBJECT

    FakeHistory history;

    // An entry's text as read, without its mnemonic marker.
    static QString plain(const QString& text) { return QString(text).remove(u'&'); }

  private Q_SLOTS:
    // Qt Test puts its own crash handlers in place when it starts; ours must be the ones in force.
    void initTestCase() { installFaultTranslation(); }

    void init() {
        history = FakeHistory{};
        reporter = RecordingReporter{};
        openWindow({1000, 700});
        window->setHistoryPort(&history);
    }
    void cleanup() { window.reset(); }

    // A surface computed on the worker is shown in place of the 2D graph, drawn in slices with
    // the status following, and a 2D graph afterwards takes the canvas back.
    void computedSurfaceIsShownAndDrawn() {
        QVERIFY(prepareFormula(formula, "sin(x)*cos(y)", kModeTwoVariables));
        SurfaceComputation& computation = window->surfaceComputation();
        computation.discardPrevious();
        QSignalSpy finished(&worker, &Worker::finished);
        QVERIFY(worker.start("Equation Window Procedure", formula.keepComputing,
                             computation.makeJob({-3, 3, -3, 3, 500, 500, 0, {}})));
        QVERIFY(finished.wait(20000));
        computation.show();
        QCOMPARE(window->graphKind(), GraphKind::Surface3D);
        GraphCanvas* canvas = window->graphArea()->canvas();
        SurfaceRedraw& redraw = canvas->surfaceRedraw();
        QSignalSpy drawn(&redraw, &SurfaceRedraw::finished);
        canvas->repaint();
        QVERIFY(redraw.running() || !drawn.isEmpty());
        QTRY_VERIFY_WITH_TIMEOUT(!redraw.running(), 10000);
        QCOMPARE(window->statusText(), QStringLiteral("Ready"));
        const QImage& buffer = canvas->backBuffer();
        const QRgb middle = buffer.pixel(buffer.width() / 2, buffer.height() / 2);
        QVERIFY(qRed(middle) == 255 && qGreen(middle) < 255);  // scheme 'r' on white

        // Zoom out: half the size, still centred, drawn again.
        const auto width = [&] {
            const QImage& image = canvas->backBuffer();
            const int row = image.height() / 2;
            int left = image.width(), right = 0;
            for (int x = 0; x < image.width(); ++x) {
                if (qRed(image.pixel(x, row)) == 255 && qGreen(image.pixel(x, row)) < 200) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
            }
            return right - left;
        };
        const int before = width();
        QVERIFY(window->zoomSurface(0.5));
        canvas->repaint();
        QTRY_VERIFY_WITH_TIMEOUT(!redraw.running(), 10000);
        QVERIFY(std::abs(width() - before / 2) < before / 10);
    }

    void everyCommandIsOneAction() {
        for (const CommandRow& row : commandTable()) {
            QAction* a = action(row.id);
            QVERIFY2(a != nullptr, qPrintable(QString::number(row.id)));
            QCOMPARE(a->objectName(), QString::number(row.id));
            QCOMPARE(a->shortcut(), QKeySequence(QString::fromUtf8(row.key)));
            if (!row.tooltip.empty()) {
                const std::string_view tip = commandLook(row, window->shellState()).tooltip;
                QCOMPARE(a->toolTip(), QString::fromUtf8(tip));
                QVERIFY(window->commands().toolBar()->actions().contains(a));
            }
        }
        QStringList menus;
        for (QAction* top : window->menuBar()->actions()) {
            menus << top->text();
        }
        QCOMPARE(menus, (QStringList{"&File", "&Selection", "&Zoom", "&Grid", "&Math",
                                     "&Customization", "&ThreeD Rotation", "&Help"}));
        // Every menu reaches each of its entries by a letter of its own.
        for (QMenu* menu : window->menuBar()->findChildren<QMenu*>()) {
            QSet<QChar> letters;
            for (QAction* entry : menu->actions()) {
                if (entry->isSeparator()) {
                    continue;
                }
                const qsizetype at = entry->text().indexOf(u'&');
                QVERIFY2(at >= 0, qPrintable(entry->text()));
                QVERIFY2(!letters.contains(entry->text()[at + 1].toLower()),
                         qPrintable(entry->text()));
                letters.insert(entry->text()[at + 1].toLower());
            }
        }
        QCOMPARE(window->windowTitle(), u"CURVEMILL"_s);
        QVERIFY(window->progressBar()->isHidden());
    }

    void titlePageButtons() {
        TitlePage* page = window->titlePage();
        QCOMPARE(page->button(117)->toolTip(), u"Click Here To See Our Webpage"_s);
        QCOMPARE(page->button(112)->toolTip(), u"Click Here To Begin"_s);
        QCOMPARE(page->button(112)->text(), u"TWO D GRAPH"_s);
        QVERIFY(page->button(111)->isEnabled() && page->button(113)->isEnabled());
        const QRect area = page->rect();
        QVERIFY(page->button(112)->geometry().right() > area.width() * 3 / 4);
        QVERIFY(page->button(112)->geometry().top() > area.height() / 2);
        QVERIFY(page->button(111)->geometry().left() < area.width() / 4);
        QVERIFY(page->button(113)->geometry().bottom() < area.height() / 2);
        QCOMPARE(page->button(117)->geometry().center(), area.center());
        for (int id : {114, 115, 116, 119, 182, 183}) {
            QVERIFY(control<QToolButton>(*page, id)->isHidden());
        }
        QCOMPARE(page->button(182)->toolTip(), u"Move Back"_s);
        QCOMPARE(page->button(183)->toolTip(), u"Move Forward"_s);
        QVERIFY(!action(40005)->isEnabled() && !action(40110)->isEnabled());
        QTest::mouseClick(page->button(112), Qt::LeftButton);
        QVERIFY(window->twoDGraphDialog(false)->isVisible());
    }

    void graphSecondFunctionAndSwitching() {
        window->twoDGraphDialog(false)->setEntry("x", "-3", "4");
        QVERIFY(drawFunction(false, "x"));
        QCOMPARE(window->graphKind(), GraphKind::Function2D);
        QVERIFY(window->graphArea()->isVisible());
        QVERIFY(action(40051)->isEnabled() && !action(40054)->isEnabled());
        QCOMPARE(history.entries.size(), std::size_t(1));
        QCOMPARE(history.entries[0].yBegin, std::string("$"));
        QVERIFY(action(40093)->isEnabled());

        QVERIFY(drawFunction(true, "x^2"));
        // The second function is drawn over the first one's range.
        const double secondFirstX = graph.second.points[0].x;
        QCOMPARE(secondFirstX, -3.0);
        QCOMPARE(plain(action(40051)->text()), QStringLiteral("Erase Another Function"));
        QVERIFY(action(40054)->isEnabled());

        action(40054)->trigger();
        QCOMPARE(graph.mainFormulaText, std::string("x^2"));
        QCOMPARE(graph.secondFormulaText, std::string("x"));
        // The dialogs follow the switch, so OK draws what each box shows.
        QCOMPARE(window->twoDGraphDialog(false)->formulaText(), u"x^2"_s);
        QCOMPARE(window->twoDGraphDialog(true)->formulaText(), u"x"_s);
        QVERIFY(qAbs(graph.main.yMax - 16.0) < 1e-6);
        formula.useSecondFunction = false;
        QCOMPARE(formula.evaluate(3.0), 9.0);

        action(40051)->trigger();
        QVERIFY(!graph.hasSecond() && !action(40054)->isEnabled());

        action(40010)->trigger();
        QCOMPARE(action(40010)->toolTip(), view.gridOn ? u"ERASE GRID"_s : u"DRAW GRID"_s);

        action(40093)->trigger();
        QCOMPARE(history.saves, 1);
        QVERIFY(!action(40093)->isEnabled());

        action(40111)->trigger();
        QCOMPARE(window->graphKind(), GraphKind::TitlePage);
        QVERIFY(window->titlePage()->isVisible());
        QVERIFY(!action(40010)->isEnabled());
    }

    // The Math dialog paints an integral on the graph; Erase Integral takes it off again.
    void mathMenuPaintsAndErasesAnIntegral() {
        QVERIFY(!action(40012)->isEnabled() && !action(40200)->isEnabled());
        window->twoDGraphDialog(false)->setEntry("x^2", "-3", "3");
        QVERIFY(drawFunction(false, "x^2"));
        QVERIFY(action(40012)->isEnabled() && action(40200)->isEnabled());
        QVERIFY(!action(40029)->isEnabled());
        action(40012)->trigger();
        MathDialog* math = window->math().mathDialog();
        QVERIFY(math->isVisible());
        QCOMPARE(control<QLineEdit>(*math, math_ids::kXBegin)->text(), u"-3"_s);
        control<QLineEdit>(*math, math_ids::kXBegin)->setText(u"0"_s);
        control<QPushButton>(*math, math_ids::kOk)->click();
        QVERIFY(!math->isVisible());
        QVERIFY(view.areaPainted);
        QVERIFY(graph.areaText.starts_with("S(0, 3) = "));
        QVERIFY(action(40029)->isEnabled());
        action(40029)->trigger();
        QVERIFY(!view.areaPainted && graph.areaText.empty());
        QVERIFY(!action(40029)->isEnabled());
        action(40200)->trigger();
        QVERIFY(window->math().informationDialog()->isVisible());
        window->math().informationDialog()->reject();
        // From the Math dialog it comes up over that dialog.
        action(40012)->trigger();
        control<QPushButton>(*math, math_ids::kInformation)->click();
        QVERIFY(window->math().informationDialog()->isVisible());
        QCOMPARE(window->math().informationDialog()->parentWidget(), math);
        window->math().informationDialog()->reject();
        math->reject();

        QVERIFY(!action(40031)->isEnabled());
        action(40012)->trigger();
        QSignalSpy finished(math, &MathDialog::runFinished);
        control<QPushButton>(*math, math_ids::kDrawDerivative)->click();
        QVERIFY(finished.wait(20000));
        QVERIFY(graph.hasDerivative() && action(40031)->isEnabled());
        action(40031)->trigger();
        QVERIFY(!graph.hasDerivative() && !action(40031)->isEnabled());

        QVERIFY(!action(40033)->isEnabled());
        action(40012)->trigger();
        control<QPushButton>(*math, math_ids::kMarkIndefinite)->click();
        QVERIFY(view.indefiniteMarked && action(40033)->isEnabled());
        action(40033)->trigger();
        QVERIFY(!view.indefiniteMarked && !action(40033)->isEnabled());

        // The integral curve of x^2 from -3 climbs to 18 and the view grows to show it; Erase
        // Integral takes it off with the area, and a new function leaves none behind.
        QCOMPARE(view.yEnd, 9.0);
        action(40012)->trigger();
        control<QPushButton>(*math, math_ids::kOk)->click();
        QVERIFY(view.areaPainted);
        action(40012)->trigger();
        control<QPushButton>(*math, math_ids::kDisplayIntegral)->click();
        QVERIFY(finished.wait(20000));
        QVERIFY(graph.hasIntegral() && action(40029)->isEnabled());
        QVERIFY(qAbs(view.yEnd - 18.0) < 1e-6);
        action(40029)->trigger();
        QVERIFY(!graph.hasIntegral() && !view.areaPainted && graph.areaText.empty());
        QVERIFY(!action(40029)->isEnabled());
        QCOMPARE(view.yEnd, 9.0);
        action(40012)->trigger();
        control<QPushButton>(*math, math_ids::kDisplayIntegral)->click();
        QVERIFY(finished.wait(20000));
        QVERIFY(drawFunction(false, "x^3"));
        QVERIFY(!graph.hasIntegral() && !action(40029)->isEnabled());
    }

    // The progress bar shows only while the worker runs; an undefined graph is said in the
    // status bar.
    void progressWhileRunningAndAWordForAnEmptyGraph() {
        bool shownWhileRunning = false;
        // Scoped to this test: the flag lives on its stack.
        QObject scope;
        connect(&worker, &Worker::progressChanged, &scope,
                [&] { shownWhileRunning = window->progressBar()->isVisible(); });
        QVERIFY(drawFunction(false, "(-2)^x"));
        QVERIFY(shownWhileRunning);
        QVERIFY(window->progressBar()->isHidden());
        QVERIFY2(window->statusText().contains(u"(-2)^x has no value"_s),
                 qPrintable(window->statusText()));
        QVERIFY(drawFunction(false, "x"));
        QCOMPARE(window->statusText(), u"Ready"_s);
    }

    // Save, Print and Copy see the screen and the whole tall graph, drawn by the 2D painter.
    void graphGoesOutWholeAndInParts() {
        QVERIFY(!action(40030)->isEnabled());
        QVERIFY(drawFunction(false, "x^3"));
        for (const int id : {40030, 40018, 40052}) {
            QVERIFY(action(id)->isEnabled());
        }
        const GraphPicture picture = window->outputs().picture();
        GraphCanvas* canvas = window->graphArea()->canvas();
        QCOMPARE(picture.screenSize, canvas->size() * canvas->devicePixelRatioF());
        QVERIFY(picture.documentSize.height() > 2 * picture.screenSize.height());
        // The document view holds the whole Y range between its top and bottom rows.
        const GraphView document = twoDDocumentView(view);
        QCOMPARE(document.height, view.contentHeight + 2 * view.marginY);
        QVERIFY(qAbs(document.toPixelY(view.yEnd) - document.top) < 2.0);
        QVERIFY(qAbs(document.toPixelY(view.yBegin) - document.plotBottom()) < 2.0);
        const QImage whole = renderPicture(picture, ExportSource::Document, 0.25);
        QCOMPARE(whole.height(), picture.documentSize.height() / 4);
        // Without a selection the whole graph is copied, with every point as text.
        action(40052)->trigger();
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(qvariant_cast<QImage>(copied->imageData()).size(), picture.documentSize);
        const QStringList lines = copied->text().split(u"\r\n"_s, Qt::SkipEmptyParts);
        QCOMPARE(lines.first(), u"curve,x,y"_s);
        QCOMPARE(lines.size(), 1 + graph.main.pointCount);
    }

    void tallGraphOpensAroundTheAxisFromASharpBuffer() {
        QVERIFY(drawFunction(false, "x^3"));
        // Taller than the window: it scrolls, and opens with the x axis in sight.
        QVERIFY(window->graphArea()->verticalBar()->maximum() > 0);
        QVERIFY(view.visibleYBegin() < 0.0 && view.visibleYEnd() > 0.0);
        GraphCanvas* canvas = window->graphArea()->canvas();
        QVERIFY(QTest::qWaitFor([&] { return !canvas->backBuffer().isNull(); }));
        QCOMPARE(canvas->backBuffer().size(), canvas->size() * canvas->devicePixelRatioF());
        // The main function's blue is on the picture.
        const QImage image = canvas->backBuffer().convertToFormat(QImage::Format_RGB32);
        const auto* pixels = reinterpret_cast<const QRgb*>(image.constBits());
        QVERIFY(std::any_of(pixels, pixels + image.width() * image.height(), [](QRgb c) {
            return qBlue(c) > 200 && qRed(c) < 80 && qGreen(c) < 80;
        }));
    }

    void exitAsksAndTheCloseBoxDoesNot() {
        QSignalSpy closed(window.get(), &MainWindow::closed);
        {
            ModalAnswer no(QMessageBox::No);
            action(40032)->trigger();
            QVERIFY(no.seen);
            QCOMPARE(no.text, u"DO YOU REALLY WANT TO EXIT?"_s);
            QCOMPARE(no.caption, u"Exit"_s);
            QCOMPARE(no.icon, QMessageBox::Question);
        }
        QVERIFY(window->isVisible());
        QCOMPARE(history.exitSaves, 0);
        {
            ModalAnswer yes(QMessageBox::Yes);
            action(40032)->trigger();
            QVERIFY(yes.seen);
        }
        QCOMPARE(history.exitSaves, 1);
        QCOMPARE(closed.count(), 1);

        window->show();
        ModalAnswer none;
        window->close();
        QTest::qWait(30);
        QVERIFY(!none.seen);
        QCOMPARE(history.exitSaves, 2);
    }

    // "History" and "History 1" open their list with the dialog's boxes located in it.
    void historyButtonsLocateTheInput_data() {
        QTest::addColumn<int>("button");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("end");
        QTest::addColumn<int>("row");
        QTest::newRow("report list, last entry") << 1063 << u"sin(x)/x*80"_s << u"20"_s << 60;
        QTest::newRow("text list, first entry") << 1037 << u"x^0"_s << u"1"_s << 0;
        QTest::newRow("range differs") << 1063 << u"sin(x)/x*80"_s << u"21"_s << -1;
        QTest::newRow("empty formula") << 1037 << u""_s << u"20"_s << 3;
    }
    void historyButtonsLocateTheInput() {
        QFETCH(int, button);
        QFETCH(QString, typed);
        QFETCH(QString, end);
        QFETCH(int, row);
        // x^0 .. x^59 over -1..1 to -60..60, then sin(x)/x*80 over -20..20, in list order.
        HistoryStore store;
        store.addNewEntry({"sin(x)/x*80", "-20", "20", "$", "$"});
        for (int i = 59; i >= 0; --i) {
            const std::string end = std::to_string(i + 1);
            store.addNewEntry({"x^" + std::to_string(i), "-" + end, end, "$", "$"});
        }
        HistoryService service(store, reporter);
        window->setHistoryPort(&service);
        action(40009)->trigger();
        TwoDGraphDialog* dialog = window->twoDGraphDialog(false);
        dialog->setEntry(typed, "-" + end, end);

        const bool report = button == 1063;
        HistoryWindow& list = report ? service.previousEntries() : service.listOfFunctions();
        ModalAnswer answer;
        bool listWasOpen = false;
        answer.answered = [&] { listWasOpen = list.isVisible(); };
        // A selection from before stays only when there is nothing to locate.
        list.view()->setCurrentRow(3);
        control<QPushButton>(*dialog, button)->click();
        QVERIFY(list.isVisible());
        QCOMPARE(list.view()->currentRow(), row);
        QCOMPARE(answer.seen, row < 0);
        if (row < 0) {
            QCOMPARE(answer.text, u"THIS ENTRY IS NOT INCLUDED IN THE LIST"_s);
            QCOMPARE(answer.icon, QMessageBox::Information);
            QVERIFY(listWasOpen);
        }
        if (report && row >= 0) {
            QTreeWidget* tree = static_cast<EntryReportList*>(list.view())->tree();
            QVERIFY(tree->viewport()->rect().contains(tree->visualItemRect(tree->currentItem())));
        }
        // Picking another entry fills the dialog that asked, and the list can find the input
        // again.
        list.view()->setCurrentRow(5);
        list.runCommand(history_commands::kSelect);
        QCOMPARE(dialog->currentInput().formula, std::string("x^5"));
        list.view()->setCurrentRow(-1);
        list.runCommand(history_commands::kLocateInput);
        QCOMPARE(list.view()->currentRow(), 5);
        window->setHistoryPort(&history);
    }

    void aboutShowsTheProgramAndCloses() {
        QStringList seen;
        bool icon = false;
        ModalAction<AboutDialog> answer([&](AboutDialog* about) {
            seen << about->windowTitle() << about->procedureName();
            for (const char* name : {"name", "version", "webAddress", "supportAddress"}) {
                seen << about->findChild<QLabel*>(name)->text();
            }
            icon = !about->findChild<QLabel*>("icon")->pixmap().isNull();
            QTest::mouseClick(control(*about, 1), Qt::LeftButton);
        });
        action(40132)->trigger();
        QCOMPARE(seen.mid(0, 3),
                 (QStringList{"About CurveMill", "About Dialog Procedure", "CurveMill"}));
        QVERIFY(seen.value(3).contains(QRegularExpression("^Version \\d+\\.\\d+\\.\\d+$")));
        QVERIFY(seen.value(4).contains("href=\"https://www.curvemill.org/\""));
        QVERIFY(seen.value(5).contains("support@curvemill.org"));
        QVERIFY(icon);
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
    }

    void calculatorMissingIsSaid() {
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nonexistent-directory");
        ModalAnswer answer;
        action(40140)->trigger();
        qputenv("PATH", path);
        QVERIFY(answer.seen);
        QCOMPARE(answer.text, u"UNABLE TO FIND CALCULATOR PROGRAM ON YOU PC"_s);
        QCOMPARE(answer.icon, QMessageBox::Warning);
    }

    void failuresReachTheReporterWithTheWindowsName() {
        auto* app = static_cast<GuardedApplication*>(QCoreApplication::instance());
        app->setFailureReporter(&reporter);
        action(1033)->trigger();
        TwoDGraphDialog* dialog = window->twoDGraphDialog(false);
        auto* throwing = new FaultyControl(dialog, [] { throw std::runtime_error("broken"); });
        auto* trapping = new FaultyControl(window.get(), [] {
            feenableexcept(FE_INVALID);
            volatile double zero = 0.0;
            volatile double nan = zero / zero;
            (void)nan;
        });
        QEvent user(QEvent::User);
        QCoreApplication::sendEvent(throwing, &user);
        QCoreApplication::sendEvent(trapping, &user);
        app->setFailureReporter(nullptr);
        // The demonstration, then the two faults, each under the name of its handler.
        QVERIFY((reporter.names ==
                 std::vector<ProcedureName>{kProcTest, kProcTwoDGraphDialog, kProcMainWindow}));
        QVERIFY((reporter.codes == std::vector<FailureCode>{0, 0, kCodeInvalidFloat}));
        QCOMPARE(fegetexcept(), 0);
    }

    // A surface with no value anywhere says so; beside a surface the scroll bars go, and the
    // customization dialog leaves the figure free to turn and keeps on the screen.
    void surfaceWithoutValuesIsSaidAndItsWindowsStayUsable() {
        QVERIFY(prepareFormula(formula, "ln(0-1-x^2-y^2)", kModeTwoVariables));
        SurfaceComputation& computation = window->surfaceComputation();
        computation.discardPrevious();
        QSignalSpy finished(&worker, &Worker::finished);
        QVERIFY(worker.start("Equation Window Procedure", formula.keepComputing,
                             computation.makeJob({-3, 3, -3, 3, 100, 100, 0, {}})));
        QVERIFY(finished.wait(20000));
        computation.show();
        QVERIFY2(window->statusText().contains(u"has no value on the grid"_s),
                 qPrintable(window->statusText()));
        GraphArea* area = window->graphArea();
        QVERIFY(area->horizontalBar()->isHidden() && area->verticalBar()->isHidden());
        action(40139)->trigger();
        auto* dialog = window->findChild<QDialog*>(u"ThreeDCustomizationDialog"_s);
        QTRY_VERIFY(dialog != nullptr && dialog->isVisible());
        QVERIFY(!dialog->isModal() && QApplication::activeModalWidget() == nullptr);
        QCOMPARE_LT(dialog->width(), 700);
        dialog->close();
        QVERIFY(drawFunction(false, u"x"_s));
        QVERIFY(area->horizontalBar()->isVisible());
    }

    // Every dialog the main window opens reaches its controls by keys of their own, and a
    // refused entry is captioned as every other box.
    void dialogsHaveAccessKeysAndOneCaption() {
        TwoDGraphDialog* dialog = window->twoDGraphDialog(false);
        dialog->open();
        QCOMPARE(accessKeyProblems(*dialog), QStringList());
        control<QLineEdit>(*dialog, twod_ids::kXBegin)->setText(u"x"_s);
        ModalAnswer refusal;
        control<QPushButton>(*dialog, twod_ids::kOk)->click();
        QTRY_VERIFY(refusal.seen);
        QCOMPARE(refusal.caption, u"CURVEMILL"_s);
        dialog->reject();
        for (int command : {40086, 40091}) {
            action(command)->trigger();
            auto* input = window->findChild<TwoVariableWindow*>();
            QCOMPARE(accessKeyProblems(*input), QStringList());
            input->reject();
        }
        // Every dialog a command (or a typed log) opens, per kind of graph; modal ones are read
        // from inside their own loop.
        QStringList problems;
        int seen = 0;
        const auto readDialogs = [&] {
            QWidget* modal = QApplication::activeModalWidget();
            for (QWidget* top : modal ? QWidgetList{modal} : QApplication::topLevelWidgets()) {
                auto* dialog = qobject_cast<QDialog*>(top);
                if (auto* box = qobject_cast<QMessageBox*>(top);
                    box != nullptr && box->isVisible()) {
                    problems << u"unexpected box: "_s + box->text();
                    box->reject();
                } else if (dialog != nullptr && dialog->isVisible()) {
                    ++seen;
                    for (const QString& problem : accessKeyProblems(*dialog)) {
                        problems << dialog->windowTitle() + u": "_s + problem;
                    }
                    dialog->reject();
                }
            }
        };
        const auto open = [&](const std::function<void()>& how) {
            const int before = seen;
            QTimer::singleShot(0, window.get(), readDialogs);
            how();
            QTRY_VERIFY(seen > before);
        };
        control<QLineEdit>(*dialog, twod_ids::kXBegin)->setText(u"1"_s);
        open([&] { drawFunction(false, u"log(x)"_s); });
        QVERIFY(drawFunction(false, u"x"_s));
        for (int command : {40012, 40200, 40123, 40030}) {
            open([&] { action(command)->trigger(); });
        }
        enterTwoVariables(40086, u"x^2+y^2-1"_s);
        QTRY_COMPARE(window->graphKind(), GraphKind::Equation);
        for (int command : {40012, 40200}) {
            open([&] { action(command)->trigger(); });
        }
        enterTwoVariables(40091, u"x+y"_s);
        QTRY_COMPARE(window->graphKind(), GraphKind::Surface3D);
        for (int command : {40139, 40114}) {
            open([&] { action(command)->trigger(); });
        }
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
    }

    // Marks of undefined stretches belong to the function they were made on.
    void aNewFunctionDropsTheMarks() {
        QVERIFY(drawFunction(false, u"ln(x)"_s));
        view.indefiniteMarked = true;
        window->refreshCommands();
        QVERIFY(action(40033)->isEnabled());
        QVERIFY(drawFunction(false, u"x"_s));
        QVERIFY(!action(40033)->isEnabled());
    }
};

int main(int argc, char* argv[]) {
    GuardedApplication app(argc, argv);
    MainWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MainWindowTest.moc"
