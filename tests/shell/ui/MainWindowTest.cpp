#include <fenv.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

#include <filesystem>
#include <fstream>

#include <QTreeWidget>

#include "engine/Formula.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/TwoDGraphDialog.h"
#include "history/EntriesFile.h"
#include "history/ui/EntryListView.h"
#include "history/ui/EntryReportList.h"
#include "history/ui/HistoryCommands.h"
#include "history/ui/HistoryService.h"
#include "history/ui/HistoryWindow.h"
#include "shell/CommandState.h"
#include "shell/CommandTable.h"
#include "shell/FaultTranslation.h"
#include "shell/HistoryPort.h"
#include "shell/ui/AboutDialog.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/GuardedApplication.h"
#include "shell/ui/MainWindow.h"
#include "shell/ui/TitlePage.h"
#include "tests/shell/ModalAnswer.h"

using namespace curvemill;
using curvemill::testing::ModalAnswer;

namespace {

class RecordingReporter : public FailureReporter {
  public:
    void reportFailure(ProcedureName name, FailureCode code) override {
        names.push_back(name);
        codes.push_back(code);
    }
    std::vector<ProcedureName> names;
    std::vector<FailureCode> codes;
};

class FakeHistory : public HistoryPort {
  public:
    void loadAtStartup() override {}
    bool saveOnExit() override {
        ++exitSaves;
        return true;
    }
    void saveNow() override {
        ++saves;
        unsaved = false;
    }
    bool hasUnsavedEntries() const override { return unsaved; }
    void setChangedCallback(std::function<void()> callback) override { changed = callback; }
    void recordEntry(const TypedEntry& entry) override {
        entries.push_back(entry);
        unsaved = true;
        changed();
    }
    void showPreviousEntries(HistoryClient) override {}
    void showListOfFunctions(HistoryClient) override {}
    void hideWindows() override {}
    void runListCommand(int) override {}

    int exitSaves = 0;
    int saves = 0;
    bool unsaved = false;
    std::function<void()> changed;
    std::vector<TypedEntry> entries;
};

// A control whose event handling fails in the way `kind` says.
class FaultyControl : public QObject {
  public:
    using QObject::QObject;
    int kind = 0;
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        if (kind == 0) {
            throw std::runtime_error("broken");
        }
        feenableexcept(FE_INVALID);
        volatile double zero = 0.0;
        volatile double nan = zero / zero;
        (void)nan;
        return true;
    }
};

}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

    Formula formula;
    TwoDGraph graph;
    GraphView view;
    RecordingReporter reporter;
    FakeHistory history;
    std::unique_ptr<MainWindow> window;

    QAction* action(int id) { return window->commands().action(id); }

    bool drawWith(bool second, const QString& formulaText) {
        action(second ? cmd::kSecondFunction : cmd::kTwoDGraph)->trigger();
        TwoDGraphDialog* dialog = window->twoDGraphDialog(second);
        if (!dialog->isVisible()) {
            return false;
        }
        dialog->findChild<QLineEdit*>("1003")->setText(formulaText);
        QSignalSpy finished(dialog, &TwoDGraphDialog::runFinished);
        dialog->findChild<QPushButton*>("1")->click();
        return finished.wait(20000) && finished.first().first().toBool();
    }

  private Q_SLOTS:
    // Qt Test puts its own crash handlers in place when it starts; ours must be the ones in force.
    void initTestCase() { installFaultTranslation(); }

    void init() {
        graph = TwoDGraph{};
        view = GraphView{};
        history = FakeHistory{};
        reporter = RecordingReporter{};
        window = std::make_unique<MainWindow>(MainWindowParts{formula, graph, view, reporter});
        window->setHistoryPort(&history);
        window->resize(1000, 700);
        window->show();
    }
    void cleanup() { window.reset(); }

    void everyCommandIsOneAction() {
        for (const CommandRow& row : commandTable()) {
            QAction* a = action(row.id);
            QVERIFY2(a != nullptr, qPrintable(QString::number(row.id)));
            QCOMPARE(a->objectName(), QString::number(row.id));
            QCOMPARE(a->shortcut(),
                     QKeySequence(QString::fromUtf8(row.key.data(), row.key.size())));
            if (!row.tooltip.empty()) {
                const std::string_view tip = commandLook(row, window->shellState()).tooltip;
                QCOMPARE(a->toolTip(), QString::fromUtf8(tip.data(), tip.size()));
                QVERIFY(window->commands().toolBar()->actions().contains(a));
            }
        }
        QStringList menus;
        for (QAction* top : window->menuBar()->actions()) {
            menus << top->text();
        }
        QCOMPARE(menus, (QStringList{"File", "Selection", "Zoom", "Grid", "Math", "Customization",
                                     "ThreeD Rotation", "Help"}));
        QCOMPARE(window->windowTitle(), QStringLiteral("CURVEMILL"));
        QCOMPARE(window->progressBar()->size(), QSize(400, 20));
        QVERIFY(window->graphArea()->horizontalBar() != nullptr);
    }

    void titlePageButtons() {
        TitlePage* page = window->titlePage();
        QVERIFY(page->isVisible());
        QCOMPARE(page->button(117)->toolTip(), QStringLiteral("Click Here To See Our Webpage"));
        QCOMPARE(page->button(112)->toolTip(), QStringLiteral("Click Here To Begin"));
        QCOMPARE(page->button(112)->text(), QStringLiteral("TWO D GRAPH"));
        QVERIFY(!page->button(111)->isEnabled());
        QVERIFY(!page->button(113)->isEnabled());
        const QRect area = page->rect();
        QCOMPARE(page->button(112)->geometry().bottomRight().x() > area.width() * 3 / 4, true);
        QCOMPARE(page->button(112)->geometry().top() > area.height() / 2, true);
        QCOMPARE(page->button(111)->geometry().left() < area.width() / 4, true);
        QCOMPARE(page->button(113)->geometry().bottom() < area.height() / 2, true);
        QCOMPARE(page->button(117)->geometry().center(), area.center());
        for (int id : {114, 115, 116, 119, 182, 183}) {
            QToolButton* small = page->button(id);
            QVERIFY2(small != nullptr && small->objectName() == QString::number(id),
                     qPrintable(QString::number(id)));
            QVERIFY(small->isHidden());
            QCOMPARE(small->size(), id >= 182 ? QSize(40, 40) : QSize(111, 40));
        }
        QCOMPARE(page->button(182)->toolTip(), QStringLiteral("Move Back"));
        QCOMPARE(page->button(183)->toolTip(), QStringLiteral("Move Forward"));
        QVERIFY(!action(40005)->isEnabled());
        QVERIFY(!action(40110)->isEnabled());
        QTest::mouseClick(page->button(112), Qt::LeftButton);
        QVERIFY(window->twoDGraphDialog(false)->isVisible());
    }

    void graphSecondFunctionAndSwitching() {
        window->twoDGraphDialog(false)->setEntry("x", "-3", "4");
        QVERIFY(drawWith(false, "x"));
        QCOMPARE(window->graphKind(), GraphKind::Function2D);
        QVERIFY(window->graphArea()->isVisible());
        QVERIFY(action(40051)->isEnabled());
        QVERIFY(!action(40054)->isEnabled());
        QVERIFY(!action(40031)->isEnabled());
        QVERIFY(action(40110)->isEnabled());
        QCOMPARE(history.entries.size(), std::size_t(1));
        QCOMPARE(history.entries[0].yBegin, std::string("$"));
        QVERIFY(action(40093)->isEnabled());

        QVERIFY(drawWith(true, "x^2"));
        // The second function is drawn over the first one's range.
        QCOMPARE(graph.second.points[0].x, -3.0);
        QCOMPARE(action(40051)->text(), QStringLiteral("Erase Another Function"));
        QCOMPARE(action(40051)->toolTip(), QStringLiteral("ERASE SECOND FUNCTION"));
        QVERIFY(action(40054)->isEnabled());

        action(40054)->trigger();
        QCOMPARE(graph.mainFormulaText, std::string("x^2"));
        QCOMPARE(graph.secondFormulaText, std::string("x"));
        QVERIFY(qAbs(graph.main.yMax - 16.0) < 1e-6);
        formula.useSecondFunction = false;
        QCOMPARE(formula.evaluate(3.0), 9.0);

        action(40051)->trigger();
        QVERIFY(!graph.hasSecond());
        QCOMPARE(action(40051)->text(), QStringLiteral("Add Another Function"));
        QVERIFY(!action(40054)->isEnabled());

        const QString before = action(40010)->toolTip();
        action(40010)->trigger();
        QVERIFY(action(40010)->toolTip() != before);
        QCOMPARE(QStringList({before, action(40010)->toolTip()}).contains("ERASE GRID"), true);

        action(40093)->trigger();
        QCOMPARE(history.saves, 1);
        QVERIFY(!action(40093)->isEnabled());

        action(40111)->trigger();
        QCOMPARE(window->graphKind(), GraphKind::TitlePage);
        QVERIFY(window->titlePage()->isVisible());
        QVERIFY(!action(40010)->isEnabled());
    }

    void tallGraphOpensAroundTheAxisFromASharpBuffer() {
        QVERIFY(drawWith(false, "x^3"));
        // Taller than the window: it scrolls, and opens with the x axis in sight.
        QVERIFY(window->graphArea()->verticalBar()->maximum() > 0);
        QVERIFY(view.visibleYBegin() < 0.0 && view.visibleYEnd() > 0.0);
        GraphCanvas* canvas = window->graphArea()->canvas();
        QVERIFY(QTest::qWaitFor([&] { return !canvas->backBuffer().isNull(); }));
        QCOMPARE(canvas->backBuffer().size(), canvas->size() * canvas->devicePixelRatioF());
        // The main function's blue is on the picture.
        const QImage& image = canvas->backBuffer();
        bool blue = false;
        for (int y = 0; y < image.height() && !blue; y += 1) {
            for (int x = 0; x < image.width() && !blue; x += 1) {
                const QColor c = image.pixelColor(x, y);
                blue = c.blue() > 200 && c.red() < 80 && c.green() < 80;
            }
        }
        QVERIFY(blue);
    }

    void exitAsksAndTheCloseBoxDoesNot() {
        QSignalSpy closed(window.get(), &MainWindow::closed);
        {
            ModalAnswer no(QMessageBox::No);
            action(40032)->trigger();
            QVERIFY(no.seen);
            QCOMPARE(no.text, QStringLiteral("DO YOU REALLY WANT TO EXIT?"));
            QCOMPARE(no.caption, QStringLiteral("Exit"));
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
        QTest::newRow("report list, last entry") << 1063 << "sin(x)/x*80"
                                                 << "20" << 60;
        QTest::newRow("text list, first entry") << 1037 << "x^0"
                                                << "1" << 0;
        QTest::newRow("range differs") << 1063 << "sin(x)/x*80"
                                       << "21" << -1;
        QTest::newRow("empty formula") << 1037 << ""
                                       << "20" << 3;
    }
    void historyButtonsLocateTheInput() {
        QFETCH(int, button);
        QFETCH(QString, typed);
        QFETCH(QString, end);
        QFETCH(int, row);
        const auto dir = std::filesystem::temp_directory_path() / "curvemill-shell-locate";
        std::filesystem::create_directories(dir);
        {
            std::ofstream file(dir / "Graph.dat");
            for (int i = 0; i < 60; ++i) {
                file << -(i + 1) << ' ' << i + 1 << " $ $ x^" << i << ' ';
            }
            file << "-20 20 $ $ sin(x)/x*80 ";
        }
        HistoryStore store;
        loadEntries(store, kLoadAtStartup, dir);
        std::filesystem::remove_all(dir);
        HistoryService service(store, reporter, dir);
        window->setHistoryPort(&service);
        action(cmd::kTwoDGraph)->trigger();
        TwoDGraphDialog* dialog = window->twoDGraphDialog(false);
        dialog->setEntry(typed, "-" + end, end);

        const bool report = button == 1063;
        HistoryWindow& list = report ? service.previousEntries() : service.listOfFunctions();
        ModalAnswer answer;
        bool listWasOpen = false;
        answer.answered = [&] { listWasOpen = list.isVisible(); };
        // A selection from before stays only when there is nothing to locate.
        list.view()->setCurrentRow(3);
        dialog->findChild<QPushButton*>(QString::number(button))->click();
        QVERIFY(list.isVisible());
        QCOMPARE(list.view()->currentRow(), row);
        const bool missing = row < 0;
        QCOMPARE(answer.seen, missing);
        if (missing) {
            QCOMPARE(answer.text, QStringLiteral("THIS ENTRY IS NOT INCLUDED IN THE LIST"));
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
        QStringList texts;
        QString caption;
        ProcedureName name = nullptr;
        bool hasIcon = false;
        QTimer poll;
        connect(&poll, &QTimer::timeout, [&] {
            auto* about = qobject_cast<AboutDialog*>(QApplication::activeModalWidget());
            if (about == nullptr) {
                return;
            }
            poll.stop();
            caption = about->windowTitle();
            name = about->procedureName();
            for (QLabel* label : about->findChildren<QLabel*>()) {
                texts << label->text();
                hasIcon = hasIcon || !label->pixmap().isNull();
            }
            QTest::mouseClick(about->findChild<QPushButton*>("1"), Qt::LeftButton);
        });
        poll.start(5);
        action(40132)->trigger();
        QCOMPARE(caption, QStringLiteral("About CurveMill"));
        QCOMPARE(QString(name), QStringLiteral("About Dialog Procedure"));
        QVERIFY(hasIcon);
        const QString all = texts.join('\n');
        QVERIFY2(
            all.contains(QRegularExpression("^CurveMill$", QRegularExpression::MultilineOption)) &&
                all.contains(QRegularExpression("Version \\d+\\.\\d+\\.\\d+")) &&
                all.contains("href=\"https://www.curvemill.org/\"") &&
                all.contains("support@curvemill.org"),
            qPrintable(all));
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
    }

    void calculatorMissingIsSaid() {
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", "/nonexistent-directory");
        ModalAnswer answer;
        action(40140)->trigger();
        qputenv("PATH", path);
        QVERIFY(answer.seen);
        QCOMPARE(answer.text, QStringLiteral("UNABLE TO FIND CALCULATOR PROGRAM ON YOU PC"));
        QCOMPARE(answer.icon, QMessageBox::Warning);
    }

    void failuresReachTheReporterWithTheWindowsName() {
        auto* app = static_cast<GuardedApplication*>(QCoreApplication::instance());
        app->setFailureReporter(&reporter);
        action(1033)->trigger();
        TwoDGraphDialog* dialog = window->twoDGraphDialog(false);
        auto* throwing = new FaultyControl(dialog);
        auto* trapping = new FaultyControl(window.get());
        trapping->kind = 1;
        QCoreApplication::sendEvent(throwing, new QEvent(QEvent::User));
        QCoreApplication::sendEvent(trapping, new QEvent(QEvent::User));
        app->setFailureReporter(nullptr);
        QCOMPARE(reporter.names.size(), std::size_t(3));
        QVERIFY(reporter.names[0] == kProcTest);
        QVERIFY(reporter.names[1] == kProcTwoDGraphDialog);
        QCOMPARE(reporter.codes[1], FailureCode(0));
        QVERIFY(reporter.names[2] == kProcMainWindow);
        QCOMPARE(reporter.codes[2], kCodeInvalidFloat);
        QCOMPARE(fegetexcept(), 0);
    }
};

int main(int argc, char* argv[]) {
    GuardedApplication app(argc, argv);
    MainWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "MainWindowTest.moc"
