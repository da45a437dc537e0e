// The history windows driven as a user would, offscreen, with modal boxes answered by a timer.
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLockFile>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolTip>
#include <QTreeWidget>
#include <QtTest>
#include <filesystem>
#include <fstream>

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
#include "tests/support/AccessKeys.h"
#include "tests/support/RecordingReporter.h"
#include "tests/support/TempDirectory.h"

using namespace curvemill;
using namespace curvemill::history_commands;
using curvemill::testing::RecordingReporter;
using namespace Qt::Literals::StringLiterals;

namespace {

// Answers the next modal widget of type T (a message box unless told): `act` gets it once it is
// up. Texts of boxes are collected.
template <class T = QMessageBox>
void answerModal(QStringList& seen, std::function<void(QWidget*)> act) {
    QTimer::singleShot(20, [&seen, act = std::move(act)]() mutable {
        QWidget* modal = QApplication::activeModalWidget();
        if (qobject_cast<T*>(modal) == nullptr) {
            answerModal<T>(seen, std::move(act));
            return;
        }
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            seen << box->text();
        }
        act(modal);
    });
}

void pressBox(QWidget* modal, QMessageBox::StandardButton button) {
    static_cast<QMessageBox*>(modal)->button(button)->click();
}

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
    QStringList seen_;

  private slots:
    void init() {
        folder_ = std::make_unique<curvemill::testing::TempDirectory>();
        dir_ = folder_->path();
        std::ofstream(dir_ / "Graph.dat") << kFile;
        store_ = HistoryStore();
        loadEntries(store_, kLoadAtStartup, dir_);
        seen_.clear();
    }
    void cleanup() {
        QVERIFY(reporter_.names.empty());
        folder_.reset();
    }

    void reportListShowsOneKind_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QStringList>("headers");
        QTest::addColumn<QStringList>("firstRow");
        const QStringList twoRanges{"Formula", "X Beg", "X End", "Y Beg", "Y End"};
        QTest::newRow("2D") << int(EntryKind::TwoD) << QStringList{"Formula", "From", "To"}
                            << QStringList{"sin(x)", "-1", "1"};
        QTest::newRow("3D") << int(EntryKind::ThreeD) << twoRanges
                            << QStringList{"x*y", "-1", "1", "-1", "1"};
        QTest::newRow("equation") << int(EntryKind::Equation) << twoRanges
                                  << QStringList{"x^2+y^2-16", "-5", "5", "-5", "5"};
    }
    void reportListShowsOneKind() {
        QFETCH(int, kind);
        QFETCH(QStringList, headers);
        QFETCH(QStringList, firstRow);
        HistoryWindow window(HistoryWindow::Style::ReportList, store_, reporter_, dir_);
        window.setShownKind(EntryKind(kind));
        QTreeWidget* tree = static_cast<EntryReportList*>(window.view())->tree();
        QCOMPARE(tree->topLevelItemCount(), store_.countOf(EntryKind(kind)));
        QStringList shownHeaders, shownRow;
        for (int c = 0; c < tree->columnCount(); ++c) {
            shownHeaders << tree->headerItem()->text(c);
            shownRow << tree->topLevelItem(0)->text(c);
        }
        QCOMPARE(shownHeaders, headers);
        QCOMPARE(shownRow, firstRow);
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
        answerModal<FindDialog>(seen_, [](QWidget* modal) {
            auto* find = static_cast<FindDialog*>(modal);
            QCOMPARE(find->windowTitle(), QString("Find"));
            QCOMPARE(find->combo()->itemText(0), QString("sin"));
            find->combo()->setEditText("cos");
            find->accept();
        });
        answerModal(seen_, [](QWidget* modal) { pressBox(modal, QMessageBox::Yes); });
        window.runCommand(kFind);
        QCOMPARE(seen_, QStringList{kMsgEndReached});
        QCOMPARE(list->currentRow(), 1);
        QVERIFY(list->hitPieces().has_value());
        QCOMPARE(QString::fromStdString(list->hitPieces()->hit), QString("cos"));
        QVERIFY(window.action(kFindNext)->isEnabled());
        QCOMPARE(store_.searchRing().newestFirst().size(), size_t(2));

        // Find Next from after the only hit: Yes starts again and finds it once more.
        answerModal(seen_, [](QWidget* modal) { pressBox(modal, QMessageBox::Yes); });
        window.runCommand(kFindNext);
        QCOMPARE(list->currentRow(), 1);

        answerModal<FindDialog>(seen_, [](QWidget* find) {
            static_cast<FindDialog*>(find)->combo()->setEditText("tan");
            static_cast<FindDialog*>(find)->accept();
        });
        answerModal(seen_, [](QWidget* modal) { pressBox(modal, QMessageBox::Yes); });
        answerModal(seen_, [](QWidget* modal) { pressBox(modal, QMessageBox::Ok); });
        window.runCommand(kFind);
        QCOMPARE(seen_.last(), QString(kMsgStringNotFound));
    }

    void deleteListAsksAndReloadRestores() {
        HistoryWindow window(HistoryWindow::Style::ReportList, store_, reporter_, dir_);
        window.setShownKind(EntryKind::Equation);
        answerModal(seen_, [](QWidget* modal) { pressBox(modal, QMessageBox::Cancel); });
        window.runCommand(kDeleteListReport);
        QCOMPARE(store_.sectionNCount(), 2);
        answerModal(seen_, [](QWidget* modal) {
            QCOMPARE(static_cast<QMessageBox*>(modal)->icon(), QMessageBox::Warning);
            pressBox(modal, QMessageBox::Ok);
        });
        window.runCommand(kDeleteListReport);
        QCOMPARE(seen_.last(), QString("ARE YOU SURE YOU WANT TO DELETE ENTIRE LIST?"));
        QCOMPARE(store_.sectionNCount(), 0);
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
        store_.addNewEntry({longest, "-1", "1", "$", "$", 'y'});
        report.refresh();
        QVERIFY(!report.action(kLocateInput)->isEnabled());
        report.setInputSource([&] { return HistoryEntry{longest + "+1", "-1", "1", "$", "$"}; });
        report.runCommand(kLocateInput);
        QCOMPARE(report.view()->currentRow(), 0);
        answerModal(seen_, [](QWidget* modal) { pressBox(modal, QMessageBox::Ok); });
        QVERIFY(!report.locate({"sin(2*x)", "-3", "4", "$", "$"}));
        QCOMPARE(seen_, QStringList{kMsgEntryNotInList});
        QCOMPARE(report.view()->currentRow(), -1);
    }

    void loadingDialogIsUpBeforeTheFileIsRead() {
        bool visibleWhileLoading = false;
        LoadingDialog* dialog = nullptr;
        LoadingDialog loading([&] {
            visibleWhileLoading = dialog->isVisible();
            return 1;
        });
        dialog = &loading;
        QCOMPARE(loading.exec(), 1);
        QVERIFY(visibleWhileLoading);
    }

    void startupWithoutFileAndExitQuestion() {
        std::filesystem::remove(dir_ / "Graph.dat");
        HistoryStore fresh;
        HistoryService service(fresh, reporter_, dir_, [] { QFAIL("web page opened"); });
        // Enter answers No; no line of the text wraps. The box is answered before anything is
        // verified, so that a failure cannot leave it waiting.
        bool noIsDefault = false;
        QStringList wrapped;
        answerModal(seen_, [&](QWidget* modal) {
            auto* box = static_cast<QMessageBox*>(modal);
            noIsDefault = box->defaultButton() == box->button(QMessageBox::No);
            const auto* label = box->findChild<QLabel*>(u"qt_msgbox_label"_s);
            for (const QString& line : box->text().split(u'\n')) {
                if (!label ||
                    label->fontMetrics().horizontalAdvance(line) > label->contentsRect().width()) {
                    wrapped << line;
                }
            }
            QTest::keyClick(box, Qt::Key_Return);
        });
        service.loadAtStartup();
        QCOMPARE(seen_, QStringList{kMsgNoEntriesFile});
        QVERIFY(noIsDefault);
        QCOMPARE(wrapped, QStringList());
        QCOMPARE(fresh.size(), 0);

        int changes = 0;
        service.setChangedCallback([&] { ++changes; });
        service.recordEntry({"x^3-3*x", "-3", "3"});
        QVERIFY(service.hasUnsavedEntries());
        QCOMPARE(changes, 1);
        answerModal(seen_, [](QWidget* modal) {
            QCOMPARE(modal->windowTitle(), QString("Quit"));
            pressBox(modal, QMessageBox::No);
        });
        QVERIFY(service.saveOnExit());
        QVERIFY(!std::filesystem::exists(dir_ / "Graph.dat"));
        service.saveNow();
        QVERIFY(!service.hasUnsavedEntries());
        QCOMPARE(changes, 2);
        QVERIFY(std::filesystem::exists(dir_ / "Graph.dat"));
        QVERIFY(service.saveOnExit());  // nothing changed: no question
        QCOMPARE(seen_.size(), 2);
    }
    // Each menu of both list windows reaches its entries by a key of its own.
    void menusHaveAccessKeys() {
        for (auto style : {HistoryWindow::Style::TextList, HistoryWindow::Style::ReportList}) {
            HistoryWindow window(style, store_, reporter_, dir_);
            for (QMenu* menu : window.findChildren<QMenu*>()) {
                QCOMPARE(curvemill::testing::accessKeyProblems(*menu), QStringList());
            }
        }
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
        answerModal(seen_, [secondCopy](QWidget* modal) {
            pressBox(modal, secondCopy ? QMessageBox::Ok : QMessageBox::No);
        });
        service.loadAtStartup();
        QCOMPARE(seen_.size(), 1);
        QVERIFY2(secondCopy
                     ? seen_[0] == QString::fromLatin1(kMsgSecondCopy)
                     : seen_[0].startsWith(QString::fromLatin1(kMsgNoEntriesFile)) &&
                           seen_[0].contains(u"\"Graph.dat\" cannot be read: Is a directory"),
                 qPrintable(seen_[0]));
        service.recordEntry({"x^3-3*x", "-3", "3"});
        QVERIFY(!service.hasUnsavedEntries());
        service.saveNow();
        QVERIFY(service.saveOnExit());
        QCOMPARE(seen_.size(), 1);
        QCOMPARE(std::filesystem::last_write_time(dir_ / "Graph.dat"), before);
    }
};

QTEST_MAIN(HistoryWindowsTest)
#include "HistoryWindowsTest.moc"
