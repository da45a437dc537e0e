#include <fenv.h>

#include <QClipboard>
#include <QMenuBar>
#include <QMimeData>
#include <QProgressBar>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

#include "failure/FaultTranslation.h"
#include "failure/ui/GuardedApplication.h"
#include "history/ui/EntryReportList.h"
#include "history/ui/HistoryCommands.h"
#include "history/ui/HistoryService.h"
#include "history/ui/HistoryWindow.h"
#include "mathtools/ui/InformationDialog.h"
#include "mathtools/ui/MathControlIds.h"
#include "mathtools/ui/MathDialog.h"
#include "shell/CommandState.h"
#include "shell/ui/AboutDialog.h"
#include "shell/ui/ProductWebPage.h"
#include "tests/support/AccessKeys.h"
#include "tests/support/FakeHistory.h"
#include "tests/support/MainWindowFixture.h"

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

bool isBlue(QRgb c) {
    return qBlue(c) > 200 && qRed(c) < 80 && qGreen(c) < 80;
}

}  // namespace

class MainWindowTest : public MainWindowFixture {
    Q_OBJECT

    FakeHistory history;

    // The Math dialog from its command, its X begin retyped when `from` is given, `button`
    // pressed, its run (if any) waited for.
    void math(int button, const QString& from = {}) {
        action(40012)->trigger();
        auto* dialog = shown<MathDialog>();
        if (!from.isEmpty()) {
            control<QLineEdit>(*dialog, math_ids::kXBegin)->setText(from);
        }
        QSignalSpy finished(dialog, &MathDialog::runFinished);
        control<QPushButton>(*dialog, button)->click();
        if (button == math_ids::kDrawDerivative || button == math_ids::kDisplayIntegral) {
            QVERIFY(finished.wait(20000));
        }
    }

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

    void everyCommandIsOneAction() {
        for (const CommandRow& row : commandTable()) {
            QAction* a = action(row.id);
            QVERIFY2(a != nullptr, qPrintable(QString::number(row.id)));
            QCOMPARE(a->shortcut(), QKeySequence(QString::fromUtf8(row.key)));
            if (!row.tooltip.empty()) {
                QCOMPARE(a->toolTip(), QString::fromUtf8(commandLook(row, ShellState{}).tooltip));
                QVERIFY(named<QToolBar>(u"toolbar"_s)->actions().contains(a));
            }
        }
        QStringList menus;
        for (QAction* top : window->menuBar()->actions()) {
            menus << top->text();
        }
        QCOMPARE(menus, (QStringList{"&File", "&Selection", "&Zoom", "&Grid", "&Math",
                                     "&Customization", "&ThreeD Rotation", "&Help"}));
        QCOMPARE(window->windowTitle(), u"CURVEMILL"_s);
        QVERIFY(named<QProgressBar>(u"progressBar"_s)->isHidden());
    }

    void titlePageButtons() {
        auto* page = named(u"titlePage"_s);
        const auto button = [page](int id) { return control<QToolButton>(*page, id); };
        QCOMPARE(button(117)->toolTip(), u"Click Here To See Our Webpage"_s);
        QCOMPARE(button(112)->toolTip(), u"Click Here To Begin"_s);
        QCOMPARE(button(112)->text(), u"TWO D GRAPH"_s);
        QCOMPARE(button(182)->toolTip(), u"Move Back"_s);
        QCOMPARE(button(183)->toolTip(), u"Move Forward"_s);
        QVERIFY(button(111)->isEnabled() && button(113)->isEnabled());
        const QRect area = page->rect();
        QVERIFY(button(112)->geometry().right() > area.width() * 3 / 4);
        QVERIFY(button(112)->geometry().top() > area.height() / 2);
        QVERIFY(button(111)->geometry().left() < area.width() / 4);
        QVERIFY(button(113)->geometry().bottom() < area.height() / 2);
        QCOMPARE(button(117)->geometry().center(), area.center());
        for (int id : {114, 115, 116, 119, 182, 183}) {
            QVERIFY(button(id)->isHidden());
        }
        QVERIFY(!action(40005)->isEnabled() && !action(40110)->isEnabled());
        QTest::mouseClick(button(112), Qt::LeftButton);
        QVERIFY(shown<TwoDGraphDialog>(u"Function"_s) != nullptr);
    }

    void graphSecondFunctionAndSwitching() {
        QVERIFY(drawFunction(false, u"x"_s, u"-3"_s, u"4"_s));
        QCOMPARE(window->graphKind(), GraphKind::Function2D);
        QVERIFY(canvas()->isVisible());
        QVERIFY(action(40051)->isEnabled() && !action(40054)->isEnabled());
        QCOMPARE(history.entries.size(), std::size_t(1));
        QCOMPARE(history.entries[0].yBegin, std::string("$"));

        QVERIFY(drawFunction(true, u"x^2"_s));
        // The second function is drawn over the first one's range.
        QCOMPARE(graph.second.points[0].x, -3.0);
        QCOMPARE(QString(action(40051)->text()).remove(u'&'), u"Erase Another Function"_s);
        action(40054)->trigger();
        QCOMPARE(graph.mainFormulaText, std::string("x^2"));
        QCOMPARE(graph.secondFormulaText, std::string("x"));
        QVERIFY(qAbs(graph.main.yMax - 16.0) < 1e-6);
        formula.useSecondFunction = false;
        QCOMPARE(formula.evaluate(3.0), 9.0);
        // The dialogs follow the switch, so OK draws what each box shows.
        const auto dialogs = window->findChildren<TwoDGraphDialog*>();
        QCOMPARE(dialogs.size(), 2);
        for (TwoDGraphDialog* dialog : dialogs) {
            const bool main = dialog->windowTitle() == u"Function"_s;
            QCOMPARE(control<QLineEdit>(*dialog, twod_ids::kFormula)->text(),
                     main ? u"x^2"_s : u"x"_s);
        }
        action(40051)->trigger();
        QVERIFY(shown<TwoDGraphDialog>() == nullptr);
        QVERIFY(!graph.hasSecond() && !action(40054)->isEnabled());

        action(40010)->trigger();
        QCOMPARE(action(40010)->toolTip(), view.gridOn ? u"ERASE GRID"_s : u"DRAW GRID"_s);
        QVERIFY(action(40093)->isEnabled());
        action(40093)->trigger();
        QCOMPARE(history.saves, 1);
        QVERIFY(!action(40093)->isEnabled());
        action(40111)->trigger();
        QCOMPARE(window->graphKind(), GraphKind::TitlePage);
        QVERIFY(named(u"titlePage"_s)->isVisible() && !action(40010)->isEnabled());
    }

    // The Math dialog's drawings go on the graph and each Erase command takes its own off again
    // (Erase Integral the area too); a new function leaves none behind.
    void mathMenuDrawsAndErases() {
        QVERIFY(!action(40012)->isEnabled() && !action(40200)->isEnabled());
        QVERIFY(drawFunction(false, u"x^2"_s, u"-3"_s, u"3"_s));
        action(40012)->trigger();
        auto* dialog = shown<MathDialog>();
        QCOMPARE(control<QLineEdit>(*dialog, math_ids::kXBegin)->text(), u"-3"_s);
        dialog->reject();
        const std::tuple<int, QString, int, std::function<bool()>> rows[] = {
            {math_ids::kOk, u"0"_s, 40029,
             [&] { return graph.areaText.starts_with("S(0, 3) = "); }},
            {math_ids::kDrawDerivative, {}, 40031, [&] { return graph.hasDerivative(); }},
            {math_ids::kMarkIndefinite, {}, 40033, [&] { return view.indefiniteMarked; }},
            // The integral of x^2 from -3 climbs to 18 and the view grows to show it.
            {math_ids::kDisplayIntegral, u"-3"_s, 40029,
             [&] { return view.areaPainted && qAbs(view.yEnd - 18.0) < 1e-6; }},
        };
        for (const auto& [button, from, erase, drawn] : rows) {
            QVERIFY2(!action(erase)->isEnabled(), qPrintable(QString::number(button)));
            if (button == math_ids::kDisplayIntegral) {
                math(math_ids::kOk, from);
            }
            math(button, from);
            QVERIFY(drawn() && (button != math_ids::kOk || shown<MathDialog>() == nullptr));
            QVERIFY(action(erase)->isEnabled());
            action(erase)->trigger();
            QVERIFY(!drawn() && !action(erase)->isEnabled());
            QVERIFY(!view.areaPainted && graph.areaText.empty() && !graph.hasIntegral());
        }
        QCOMPARE(view.yEnd, 9.0);
        math(math_ids::kDisplayIntegral);
        math(math_ids::kMarkIndefinite);
        QVERIFY(drawFunction(false, u"x^3"_s));
        QVERIFY(!graph.hasIntegral() && !action(40029)->isEnabled() && !action(40033)->isEnabled());

        // Information from the menu, and over the Math dialog from its button.
        action(40200)->trigger();
        shown<InformationDialog>()->reject();
        action(40012)->trigger();
        control<QPushButton>(*dialog, math_ids::kInformation)->click();
        QCOMPARE(shown<InformationDialog>()->parentWidget(), dialog);
    }

    // The progress bar shows only while the worker runs; an undefined graph is said in the
    // status bar. A graph taller than the window scrolls, opens with the x axis in sight from a
    // sharp buffer, and Copy without a selection takes the whole graph top to bottom, with every
    // point as text.
    void progressAndATallGraphOnScreenAndCopiedWhole() {
        QVERIFY(!action(40052)->isEnabled());
        auto* progress = named<QProgressBar>(u"progressBar"_s);
        bool shownWhileRunning = false;
        QObject scope;  // the flag lives on this test's stack
        connect(&worker, &Worker::progressChanged, &scope,
                [&] { shownWhileRunning = progress->isVisible(); });
        QVERIFY(drawFunction(false, u"(-2)^x"_s));
        QVERIFY(shownWhileRunning && progress->isHidden());
        QVERIFY2(status().contains(u"(-2)^x has no value"_s), qPrintable(status()));
        QVERIFY(drawFunction(false, u"x^3"_s));
        QCOMPARE(status(), u"Ready"_s);
        for (const int id : {40030, 40018, 40052}) {
            QVERIFY(action(id)->isEnabled());
        }
        QVERIFY(bar(Qt::Vertical)->maximum() > 0);
        QVERIFY(view.visibleYBegin() < 0.0 && view.visibleYEnd() > 0.0);
        QVERIFY(QTest::qWaitFor([&] { return countPixels(canvas()->backBuffer(), isBlue) > 0; }));
        QCOMPARE(canvas()->backBuffer().size(), canvas()->size() * canvas()->devicePixelRatioF());

        action(40052)->trigger();
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        const QImage whole = qvariant_cast<QImage>(copied->imageData());
        QCOMPARE(whole.width(), canvas()->backBuffer().width());
        QVERIFY(whole.height() > 2 * canvas()->backBuffer().height());
        const int tenth = whole.height() / 10;
        QVERIFY(countPixels(whole.copy(0, 0, whole.width(), tenth), isBlue) > 0);
        QVERIFY(countPixels(whole.copy(0, whole.height() - tenth, whole.width(), tenth), isBlue));
        const QStringList lines = copied->text().split(u"\r\n"_s, Qt::SkipEmptyParts);
        QCOMPARE(lines.first(), u"curve,x,y"_s);
        QCOMPARE(lines.size(), 1 + graph.main.pointCount);
    }

    void exitAsksAndTheCloseBoxDoesNot() {
        QSignalSpy closed(window.get(), &MainWindow::closed);
        for (const auto button : {QMessageBox::No, QMessageBox::Yes}) {
            ModalAnswer answer(button);
            action(40032)->trigger();
            QVERIFY(answer.seen);
            QCOMPARE(answer.text, u"DO YOU REALLY WANT TO EXIT?"_s);
            QCOMPARE(answer.caption, u"Exit"_s);
            QCOMPARE(answer.icon, QMessageBox::Question);
            QCOMPARE(history.exitSaves, button == QMessageBox::Yes ? 1 : 0);
            QCOMPARE(window->isVisible(), button == QMessageBox::No);
        }
        QCOMPARE(closed.count(), 1);
        window->show();
        ModalAnswer none;
        window->close();
        QTest::qWait(30);
        QVERIFY(!none.seen);
        QCOMPARE(history.exitSaves, 2);
    }

    // "History" and "History 1" open their list with the dialog's boxes located in it (an entry
    // not there is said, a selection from before stays when there is nothing to locate), and
    // picking another entry fills the dialog that asked.
    void historyButtonsLocateTheInput() {
        // x^0 .. x^59 over -1..1 to -60..60, then sin(x)/x*80 over -20..20, in list order.
        HistoryStore store;
        store.addNewEntry({"sin(x)/x*80", "-20", "20", "$", "$"});
        for (int i = 59; i >= 0; --i) {
            const std::string end = std::to_string(i + 1);
            store.addNewEntry({"x^" + std::to_string(i), "-" + end, end, "$", "$"});
        }
        HistoryService service(store, reporter);
        window->setHistoryPort(&service);
        const std::tuple<int, QString, QString, int> rows[] = {
            {1063, u"sin(x)/x*80"_s, u"20"_s, 60},
            {1037, u"x^0"_s, u"1"_s, 0},
            {1063, u"sin(x)/x*80"_s, u"21"_s, -1},
            {1037, u""_s, u"20"_s, 3}};
        for (const auto& [button, typed, end, row] : rows) {
            action(40009)->trigger();
            auto* dialog = shown<TwoDGraphDialog>();
            dialog->setEntry(typed, "-" + end, end);
            HistoryWindow& list =
                button == 1063 ? service.previousEntries() : service.listOfFunctions();
            ModalAnswer answer;
            bool listWasOpen = false;
            answer.answered = [&] { listWasOpen = list.isVisible(); };
            list.view()->setCurrentRow(3);
            control<QPushButton>(*dialog, button)->click();
            QVERIFY(list.isVisible());
            QCOMPARE(list.view()->currentRow(), row);
            QCOMPARE(answer.seen, row < 0);
            // The message itself is the history window's test's.
            QVERIFY(row >= 0 || listWasOpen);
            if (row == 60) {
                QTreeWidget* tree = static_cast<EntryReportList*>(list.view())->tree();
                QVERIFY(
                    tree->viewport()->rect().contains(tree->visualItemRect(tree->currentItem())));
            }
            list.view()->setCurrentRow(5);
            list.runCommand(history_commands::kSelect);
            QCOMPARE(dialog->currentInput().formula, std::string("x^5"));
            list.view()->setCurrentRow(-1);
            list.runCommand(history_commands::kLocateInput);
            QCOMPARE(list.view()->currentRow(), 5);
            dialog->reject();
        }
        window->setHistoryPort(&history);
    }

    // The web page's button: offline and without a browser each say so under "ERROR".
    void productWebPageOpensOrSaysWhyNot() {
        const std::tuple<bool, bool, const char*> rows[] = {
            {false, true, kMsgNoInternet}, {true, false, kMsgNoBrowser}, {true, true, nullptr}};
        for (const auto& [online, browserStarts, message] : rows) {
            QList<QUrl> opened;
            const WebPageRoute route{[online] { return online; },
                                     [&](const QUrl& url) {
                                         opened << url;
                                         return browserStarts;
                                     }};
            ModalAnswer box;
            openProductWebPage(nullptr, route);
            QCOMPARE(opened,
                     online ? QList{QUrl(QString::fromLatin1(kProductWebAddress))} : QList<QUrl>());
            QCOMPARE(box.text, QString::fromLatin1(message));
            QCOMPARE(box.caption, message ? u"ERROR"_s : QString());
        }
    }

    void aboutShowsTheProgramAndCloses() {
        QStringList seen;
        QVERIFY(withModal<AboutDialog>(40132, [&](AboutDialog* about) {
            seen << about->windowTitle() << about->procedureName();
            for (const char* name : {"name", "version", "webAddress", "supportAddress"}) {
                seen << about->findChild<QLabel*>(name)->text();
            }
            QVERIFY(!about->findChild<QLabel*>("icon")->pixmap().isNull());
            QTest::mouseClick(control(*about, 1), Qt::LeftButton);
        }));
        QCOMPARE(seen.mid(0, 3),
                 (QStringList{"About CurveMill", "About Dialog Procedure", "CurveMill"}));
        QVERIFY(seen.value(3).contains(QRegularExpression("^Version \\d+\\.\\d+\\.\\d+$")));
        QVERIFY(seen.value(4).contains("href=\"https://www.curvemill.org/\""));
        QVERIFY(seen.value(5).contains("support@curvemill.org"));
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
        action(40009)->trigger();
        auto* throwing =
            new FaultyControl(shown<TwoDGraphDialog>(), [] { throw std::runtime_error("broken"); });
        auto* trapping = new FaultyControl(window.get(), [] {
            feenableexcept(FE_INVALID);
            volatile double zero = 0.0;
            volatile double nan = zero / zero;
            (void)nan;
        });
        // Sent, not posted: a trap inside a queued call's functor leaves the posted-event loop in
        // a state the address sanitizer's build does not survive.
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

    // Every window of the program, from the main window and its menus down to each dialog a
    // command, a button or a typed log opens on each kind of graph, reaches its controls by keys
    // of their own; a refused entry is captioned as every other box.
    void everyWindowHasItsOwnAccessKeys() {
        QStringList problems = accessKeyProblems(*window);
        QStringList seen;
        // Reads the windows on show, from inside a modal one's own loop too, and closes them.
        const auto readWindows = [&] {
            for (QWidget* top : QApplication::topLevelWidgets()) {
                if (top == window.get() || !top->isVisible() || !top->isWindow() ||
                    top->windowType() == Qt::ToolTip || top->windowType() == Qt::Popup) {
                    continue;
                }
                if (auto* box = qobject_cast<QMessageBox*>(top)) {
                    problems << u"unexpected box: "_s + box->text();
                }
                seen << top->windowTitle();
                for (const QString& problem : accessKeyProblems(*top)) {
                    problems << top->windowTitle() + u": "_s + problem;
                }
                top->close();
            }
        };
        const auto open = [&](const QString& title, const std::function<void()>& how) {
            seen.clear();
            QTimer::singleShot(0, window.get(), readWindows);
            how();
            QTRY_VERIFY2(seen.contains(title), qPrintable(title + u" in "_s + seen.join(u'|')));
        };
        HistoryStore store;
        HistoryService service(store, reporter);
        window->setHistoryPort(&service);
        action(40009)->trigger();
        auto* dialog = shown<TwoDGraphDialog>();
        control<QLineEdit>(*dialog, twod_ids::kXBegin)->setText(u"x"_s);
        ModalAnswer refusal;
        control<QPushButton>(*dialog, twod_ids::kOk)->click();
        QTRY_VERIFY(refusal.seen);
        QCOMPARE(refusal.caption, u"CURVEMILL"_s);
        control<QLineEdit>(*dialog, twod_ids::kXBegin)->setText(u"1"_s);
        const std::pair<int, QString> buttons[] = {
            {twod_ids::kHistory, u"Previous Entries"_s},
            {twod_ids::kHistoryList, u"List of Functions"_s}};
        for (const auto& [button, title] : buttons) {
            action(40009)->trigger();
            open(title, [&] { control<QPushButton>(*dialog, button)->click(); });
        }
        open(u"Log Base"_s, [&] { drawFunction(false, u"log(x)"_s); });
        QVERIFY(drawFunction(false, u"x"_s));
        // Per kind of graph on screen (none, a function, an equation, a surface), its commands.
        const std::pair<int, QString> commands[] = {{40009, u"Function"_s},
                                                    {40086, u"Equation"_s},
                                                    {40091, u"ThreeD Function"_s},
                                                    {40132, u"About CurveMill"_s},
                                                    {40051, u"Second Function"_s},
                                                    {40012, u"Math"_s},
                                                    {40200, u"Information"_s},
                                                    {40123, u"Customization"_s},
                                                    {40133, u"Customization"_s},
                                                    {40030, u"Save To File"_s},
                                                    {0, u"x^2+y^2-1"_s},
                                                    {40012, u"Equation Solutions"_s},
                                                    {40200, u"Information"_s},
                                                    {0, u"x+y"_s},
                                                    {40139, u"ThreeD Customization"_s},
                                                    {40114, u"ThreeD Rotation"_s}};
        for (const auto& [id, title] : commands) {
            if (id == 0) {
                const int input = title == u"x+y"_s ? 40091 : 40086;
                enterTwoVariables(input, title);
                QTRY_VERIFY(window->graphKind() ==
                            (input == 40091 ? GraphKind::Surface3D : GraphKind::Equation));
            } else {
                open(title, [&] { action(id)->trigger(); });
            }
        }
        window->setHistoryPort(&history);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
    }
};

int main(int argc, char* argv[]) {
    GuardedApplication app(argc, argv);
    MainWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MainWindowTest.moc"
