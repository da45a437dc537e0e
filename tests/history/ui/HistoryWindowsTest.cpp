// The history windows driven as a user would, offscreen, with modal boxes answered by a timer.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLockFile>
#include <QMessageBox>
#include <QPushButton>
#include <QToolTip>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>
#include <fstream>
#include <optional>

#include "failure/FailureReporter.h"
#include "history/EntriesFile.h"
#include "history/HistorySearch.h"
#include "history/ui/EntryReportList.h"
#include "history/ui/FindDialog.h"
#include "history/ui/FunctionTextList.h"
#include "history/ui/HistoryCommands.h"
#include "history/ui/HistoryService.h"
#include "history/ui/HistoryWindow.h"
#include "history/ui/LoadingDialog.h"
#include "tests/support/ModalAnswer.h"
#include "tests/support/RecordingReporter.h"
#include "tests/support/TempDirectory.h"

using namespace curvemill;
using namespace curvemill::history_commands;
using curvemill::testing::ModalAction;
using curvemill::testing::ModalAnswer;
using curvemill::testing::RecordingReporter;
using namespace Qt::Literals::StringLiterals;

namespace {

const char* const kFile =
    "-1 1 $ $ sin(x) -2 2 $ $ cos(x) -3 3 $ $ sin(2*x) -1 1 -1 1 x*y &"
    "-5 5 -5 5 x^2+y^2-16 -3 3 -3 3 x^3+y^3-3*x*y @ sin ";

}  // namespace

class HistoryWindowsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<curvemill::testing::TempDirectory> folder_;
    std::filesystem::path dir_;
    HistoryStore store_;
    RecordingReporter reporter_;

  private slots:
    void init() {
        folder_ = std::make_unique<curvemill::testing::TempDirectory>();
        dir_ = folder_->path();
        std::ofstream(dir_ / "Graph.dat") << kFile;
        store_ = HistoryStore();
        loadEntries(store_, kLoadAtStartup, dir_);
    }
    void cleanup() {
        QVERIFY(reporter_.names.empty());
        folder_.reset();
    }

    void reportListShowsOneKind() {
        const QStringList twoRanges{"Formula", "X Beg", "X End", "Y Beg", "Y End"};
        const std::tuple<EntryKind, QStringList, QStringList> cases[] = {
            {EntryKind::TwoD, {"Formula", "From", "To"}, {"sin(x)", "-1", "1"}},
            {EntryKind::ThreeD, twoRanges, {"x*y", "-1", "1", "-1", "1"}},
            {EntryKind::Equation, twoRanges, {"x^2+y^2-16", "-5", "5", "-5", "5"}}};
        for (const auto& [kind, headers, firstRow] : cases) {
            HistoryWindow window(HistoryWindow::Style::ReportList, store_, reporter_, dir_);
            window.setShownKind(kind);
            QTreeWidget* tree = static_cast<EntryReportList*>(window.view())->tree();
            QCOMPARE(tree->topLevelItemCount(), store_.countOf(kind));
            QStringList shownHeaders, shownRow;
            for (int c = 0; c < tree->columnCount(); ++c) {
                shownHeaders << tree->headerItem()->text(c);
                shownRow << tree->topLevelItem(0)->text(c);
            }
            QCOMPARE(shownHeaders, headers);
            QCOMPARE(shownRow, firstRow);
        }
    }

    // Hovering a row shows its whole entry, the Y range too for two-range entries; off the rows,
    // nothing.
    void listRowsShowTheirEntryAsTooltip() {
        const std::pair<HistoryWindow::Style, QString> cases[] = {
            {HistoryWindow::Style::TextList, u"(sin(2*x))  From:-3  To:3"_s},
            {HistoryWindow::Style::ReportList, u"(x*y)  From:-1  To:1  Y From:-1  To:1"_s}};
        for (const auto& [style, tip] : cases) {
            HistoryWindow window(style, store_, reporter_, dir_);
            window.setShownKind(style == HistoryWindow::Style::TextList ? EntryKind::TwoD
                                                                        : EntryKind::ThreeD);
            window.show();
            QWidget* area = window.view()->mouseArea();
            const auto hover = [&window, area](int row) {
                QPoint at(5, 0);
                while (at.y() < area->height() && window.view()->rowAt(at) != row) {
                    at.ry() += 1;
                }
                QHelpEvent event(QEvent::ToolTip, at, area->mapToGlobal(at));
                QApplication::sendEvent(area, &event);
            };
            hover(window.view()->rowCount() - 1);
            QCOMPARE(QToolTip::text(), tip);
            hover(-1);
            QTRY_VERIFY(QToolTip::text().isEmpty());
        }
    }

    void selectionGreysAndEnablesItemCommands() {
        HistoryWindow window(HistoryWindow::Style::TextList, store_, reporter_, dir_);
        QString picked;
        window.setSelectHandler([&](const HistoryEntry& e) { picked = e.formula.c_str(); });
        auto enabled = [&] {
            return QList<bool>{window.action(kSelect)->isEnabled(),
                               window.action(kMoveToTop)->isEnabled(),
                               window.action(kDeleteItem)->isEnabled()};
        };
        QCOMPARE(enabled(), (QList<bool>{false, false, false}));
        window.view()->setCurrentRow(2);
        QCOMPARE(enabled(), (QList<bool>{true, true, true}));
        window.runCommand(kSelect);
        QCOMPARE(picked, u"sin(2*x)"_s);
        window.runCommand(kMoveToTop);
        QCOMPARE(store_.entries()[0].formula, "sin(2*x)");
        QCOMPARE(enabled(), (QList<bool>{false, false, false}));
        QVERIFY(!window.action(kLoadOriginalList)->isEnabled());
        window.view()->setCurrentRow(0);
        window.runCommand(kDeleteItem);
        QCOMPARE(store_.twoDCount(), 2);
        QCOMPARE(enabled(), (QList<bool>{false, false, false}));
        QVERIFY(window.action(kLoadOriginalList)->isEnabled());

        // A fault while picking is reported under the window's name.
        window.setSelectHandler([](const HistoryEntry&) { throw std::runtime_error("bad"); });
        window.view()->setCurrentRow(0);
        window.runCommand(kSelect);
        QCOMPARE(reporter_.names.size(), std::size_t(1));
        QCOMPARE(QString(reporter_.names[0]), u"History Window Procedure"_s);
        reporter_.names.clear();
    }

    void findWrapsAndMarksTheHit() {
        HistoryWindow window(HistoryWindow::Style::TextList, store_, reporter_, dir_);
        auto* list = static_cast<FunctionTextList*>(window.view());
        list->setCurrentRow(2);  // sin(2*x); "cos" is only above it
        // Finds `text`; the box is answered before anything is verified.
        const auto find = [&window](const char* text) {
            ModalAction<FindDialog> dialog([text](FindDialog* find) {
                find->combo()->setEditText(text);
                find->accept();
                QCOMPARE(find->windowTitle(), QString("Find"));
                QCOMPARE(find->combo()->itemText(0), QString("sin"));
            });
            ModalAnswer again(QMessageBox::Yes);
            std::optional<ModalAnswer> notFound;
            again.answered = [&notFound] { notFound.emplace(); };
            window.runCommand(kFind);
            return notFound && notFound->seen ? notFound->text : again.text;
        };
        QCOMPARE(find("cos"), QString(kMsgEndReached));
        QCOMPARE(list->currentRow(), 1);
        QVERIFY(list->hitPieces().has_value());
        QCOMPARE(QString::fromStdString(list->hitPieces()->hit), QString("cos"));
        QVERIFY(window.action(kFindNext)->isEnabled());
        QCOMPARE(store_.searchRing().newestFirst().size(), size_t(2));

        // Find Next from after the only hit: Yes starts again and finds it once more.
        ModalAnswer again(QMessageBox::Yes);
        window.runCommand(kFindNext);
        QCOMPARE(list->currentRow(), 1);
        QCOMPARE(find("tan"), QString(kMsgStringNotFound));
    }

    void deleteListAsksAndReloadRestores() {
        HistoryWindow window(HistoryWindow::Style::ReportList, store_, reporter_, dir_);
        window.setShownKind(EntryKind::Equation);
        for (const auto button : {QMessageBox::Cancel, QMessageBox::Ok}) {
            ModalAnswer sure(button);
            window.runCommand(kDeleteListReport);
            QCOMPARE(sure.text, QString("ARE YOU SURE YOU WANT TO DELETE ENTIRE LIST?"));
            QCOMPARE(sure.icon, QMessageBox::Warning);
            QCOMPARE(store_.sectionNCount(), button == QMessageBox::Ok ? 0 : 2);
        }
        QCOMPARE(store_.twoDCount(), 3);
        QCOMPARE(window.view()->rowCount(), 0);
        QVERIFY(window.action(kLoadOriginalList)->isEnabled());
        window.runCommand(kLoadOriginalList);
        QCOMPARE(store_.sectionNCount(), 2);
        QCOMPARE(window.view()->rowCount(), 2);
        QVERIFY(!window.action(kLoadOriginalList)->isEnabled());
    }

    void highlightAndLocate() {
        HistoryWindow report(HistoryWindow::Style::ReportList, store_, reporter_, dir_);
        report.view()->setCurrentRow(1);
        report.runCommand(kHighlightSelectedItem);
        QVERIFY(store_.entries()[1].marked);
        QTreeWidget* tree = static_cast<EntryReportList*>(report.view())->tree();
        QVERIFY(tree->topLevelItem(1)->font(0).bold());

        // The input's boxes are read up to 100 characters each.
        const std::string longest(100, 'x');
        store_.addNewEntry({longest, "-1", "1", "$", "$", EntrySection::Graphs});
        report.refresh();
        QVERIFY(!report.action(kLocateInput)->isEnabled());
        report.setInputSource([&] { return HistoryEntry{longest + "+1", "-1", "1", "$", "$"}; });
        report.runCommand(kLocateInput);
        QCOMPARE(report.view()->currentRow(), 0);
        ModalAnswer notInList;
        QVERIFY(!report.locate({"sin(2*x)", "-3", "4", "$", "$"}));
        QCOMPARE(notInList.text, QString(kMsgEntryNotInList));
        QCOMPARE(report.view()->currentRow(), -1);
    }

    void loadingDialogIsUpBeforeTheFileIsRead() {
        LoadingDialog* dialog = nullptr;
        LoadingDialog loading([&] { return dialog->isVisible() ? 1 : 2; });
        dialog = &loading;
        QCOMPARE(loading.exec(), 1);
    }

    void startupWithoutFileAndExitQuestion() {
        std::filesystem::remove(dir_ / "Graph.dat");
        HistoryStore fresh;
        HistoryService service(fresh, reporter_, dir_, [] { QFAIL("web page opened"); });
        // Enter answers No; no line of the text wraps. The box is answered before anything is
        // verified, so that a failure cannot leave it waiting.
        bool noIsDefault = false;
        QStringList wrapped;
        ModalAnswer noFile(QMessageBox::No);
        noFile.answered = [&] {
            auto* box = static_cast<QMessageBox*>(QApplication::activeModalWidget());
            noIsDefault = box->defaultButton() == box->button(QMessageBox::No);
            const auto* label = box->findChild<QLabel*>(u"qt_msgbox_label"_s);
            for (const QString& line : box->text().split(u'\n')) {
                if (!label ||
                    label->fontMetrics().horizontalAdvance(line) > label->contentsRect().width()) {
                    wrapped << line;
                }
            }
        };
        service.loadAtStartup();
        QCOMPARE(noFile.text, QString(kMsgNoEntriesFile));
        QVERIFY(noIsDefault);
        QCOMPARE(wrapped, QStringList());
        QCOMPARE(fresh.size(), 0);

        int changes = 0;
        service.setChangedCallback([&] { ++changes; });
        service.recordEntry({"x^3-3*x", "-3", "3"});
        QVERIFY(service.hasUnsavedEntries());
        QCOMPARE(changes, 1);
        ModalAnswer quit(QMessageBox::No);
        QVERIFY(service.saveOnExit());
        QCOMPARE(quit.caption, QString("Quit"));
        QVERIFY(!std::filesystem::exists(dir_ / "Graph.dat"));
        service.saveNow();
        QVERIFY(!service.hasUnsavedEntries());
        QCOMPARE(changes, 2);
        QVERIFY(std::filesystem::exists(dir_ / "Graph.dat"));
        ModalAnswer none;
        QVERIFY(service.saveOnExit());  // nothing changed: no question
        QVERIFY(!none.seen);
    }
    // A second copy of the program in the same folder, and a Graph.dat that cannot be read (a
    // folder here, so that root meets it too): each is told once at start, and then nothing is
    // saved and nothing asked, so neither the other copy's entries nor the file are lost.
    void savingOffIsToldOnceAtStart_data() {
        QTest::addColumn<bool>("secondCopy");
        QTest::newRow("second copy") << true;
        QTest::newRow("folder named Graph.dat") << false;
    }
    void savingOffIsToldOnceAtStart() {
        QFETCH(bool, secondCopy);
        QLockFile otherCopy(QString::fromStdString((dir_ / "Graph.dat.lock").string()));
        if (secondCopy) {
            QVERIFY(otherCopy.tryLock(0));
        } else {
            std::filesystem::remove(dir_ / "Graph.dat");
            std::filesystem::create_directory(dir_ / "Graph.dat");
        }
        const auto before = std::filesystem::last_write_time(dir_ / "Graph.dat");
        HistoryStore fresh;
        HistoryService service(fresh, reporter_, dir_, [] { QFAIL("web page opened"); });
        std::optional<ModalAnswer> told(std::in_place,
                                        secondCopy ? QMessageBox::Ok : QMessageBox::No);
        service.loadAtStartup();
        const QString text = told->text;
        QVERIFY2(secondCopy ? text == QString::fromLatin1(kMsgSecondCopy)
                            : text.startsWith(QString::fromLatin1(kMsgNoEntriesFile)) &&
                                  text.contains(u"\"Graph.dat\" cannot be read: Is a directory"),
                 qPrintable(text));
        told.emplace();
        service.recordEntry({"x^3-3*x", "-3", "3"});
        QVERIFY(!service.hasUnsavedEntries());
        service.saveNow();
        QVERIFY(service.saveOnExit());
        QVERIFY(!told->seen);
        QCOMPARE(std::filesystem::last_write_time(dir_ / "Graph.dat"), before);
    }
};

QTEST_MAIN(HistoryWindowsTest)
#include "HistoryWindowsTest.moc"
