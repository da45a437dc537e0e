#include "history/ui/HistoryWindow.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include "failure/FailureGuard.h"
#include "history/EntriesFile.h"
#include "history/HistorySearch.h"
#include "history/ListLine.h"
#include "history/ui/EntryReportList.h"
#include "history/ui/FindDialog.h"
#include "history/ui/FunctionTextList.h"
#include "history/ui/HistoryCommands.h"
#include "history/ui/ListMouseWatcher.h"

namespace curvemill {

using namespace history_commands;

namespace {

QString describe(const HistoryEntry& entry) {
    QString text = QString::fromStdString(listLine(entry));
    if (kindOf(entry) != EntryKind::TwoD) {
        text += QStringLiteral("  Y From:%1  To:%2")
                    .arg(QString::fromStdString(entry.yBegin), QString::fromStdString(entry.yEnd));
    }
    return text;
}

}  // namespace

HistoryWindow::HistoryWindow(Style style, HistoryStore& store, FailureReporter& reporter,
                             std::filesystem::path directory, QWidget* parent)
    : QMainWindow(parent), store_(store), reporter_(reporter), directory_(std::move(directory)) {
    if (style == Style::TextList) {
        setWindowTitle(QStringLiteral("List of Functions"));
        view_ = new FunctionTextList(this);
    } else {
        setWindowTitle(QStringLiteral("Previous Entries"));
        view_ = new EntryReportList(this);
    }
    setCentralWidget(view_);
    resize(760, 420);
    createActions(style);
    createMenus(style);

    connect(view_, &EntryListView::currentRowChanged, this,
            [this] { guarded([this] { updateSelectionActions(); }); });
    connect(view_, &EntryListView::rowActivated, this, [this] { runCommand(kSelect); });
    connect(view_, &EntryListView::contextMenuRequested, this,
            [this](int row, const QPoint& globalPosition) {
                if (row >= 0) {
                    contextMenu_->popup(globalPosition);
                }
            });
    new ListMouseWatcher(
        *view_,
        [this](int row) {
            return row < static_cast<int>(rowIndex_.size())
                       ? describe(store_.entries()[rowIndex_[static_cast<std::size_t>(row)]])
                       : QString();
        },
        [this](const std::function<void()>& work) {
            runGuarded(kProcListMouseHook, reporter_, work);
        });
    refresh();
}

void HistoryWindow::createActions(Style style) {
    struct Command {
        int id;
        const char* text;
        QKeySequence key;
    };
    const Command commands[] = {
        {kLoadOriginalList, "Load &Original List", {}},
        {kSelect, "&Select", {}},
        {kMoveToTop, "&Move To Top", {}},
        {kHighlightSelectedItem, "&Highlight Selected Item", {}},
        {kFind, "&Find", QKeySequence(Qt::CTRL | Qt::Key_F)},
        {kFindNext, "Find &Next", QKeySequence(Qt::Key_F3)},
        {kLocateInput, "&Locate Current Input", QKeySequence(Qt::CTRL | Qt::Key_L)},
        {kDeleteItem, "&Delete Item", QKeySequence(Qt::Key_Delete)},
        style == Style::TextList ? Command{kDeleteList, "Delete &List", {}}
                                 : Command{kDeleteListReport, "Delete &List", {}},
    };
    for (const Command& command : commands) {
        auto* action = new QAction(QString::fromLatin1(command.text), this);
        action->setObjectName(QString::number(command.id));
        action->setShortcut(command.key);
        action->setShortcutContext(Qt::WindowShortcut);
        const int id = command.id;
        connect(action, &QAction::triggered, this, [this, id] { runCommand(id); });
        actions_.insert(id, action);
        addAction(action);
    }
    // Greyed until the list differs from the file by a deletion.
    actions_[kLoadOriginalList]->setEnabled(false);
    actions_[kFindNext]->setEnabled(false);
    actions_[kLocateInput]->setEnabled(false);
}

void HistoryWindow::createMenus(Style style) {
    menuBar()->setObjectName(
        QString::number(style == Style::TextList ? kTextListMenu : kReportListMenu));
    QMenu* list = menuBar()->addMenu(QStringLiteral("&List"));
    list->addAction(actions_[kLoadOriginalList]);
    list->addSeparator();
    list->addAction(actions_[style == Style::TextList ? kDeleteList : kDeleteListReport]);
    QMenu* item = menuBar()->addMenu(QStringLiteral("&Item"));
    for (int id : {kSelect, kMoveToTop, kHighlightSelectedItem, kDeleteItem}) {
        item->addAction(actions_[id]);
    }
    QMenu* search = menuBar()->addMenu(QStringLiteral("&Search"));
    search->addAction(actions_[kFind]);
    search->addAction(actions_[kFindNext]);
    search->addSeparator();
    search->addAction(actions_[kLocateInput]);

    contextMenu_ = new QMenu(this);
    contextMenu_->setObjectName(QString::number(kContextMenu));
    for (int id : {kSelect, kMoveToTop, kDeleteItem}) {
        contextMenu_->addAction(actions_[id]);
    }
}

void HistoryWindow::guarded(const std::function<void()>& work) {
    runGuarded(kProcHistoryWindow, reporter_, work);
}

void HistoryWindow::setShownKind(EntryKind kind) {
    if (kind != kind_) {
        kind_ = kind;
        refresh();
    }
}

void HistoryWindow::refresh() {
    rowIndex_.clear();
    std::vector<HistoryEntry> rows;
    const auto& entries = store_.entries();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (kindOf(entries[i]) == kind_) {
            rowIndex_.push_back(i);
            rows.push_back(entries[i]);
        }
    }
    view_->setEntries(rows, kind_);
    updateSelectionActions();
}

void HistoryWindow::setSelectHandler(std::function<void(const HistoryEntry&)> handler) {
    selectHandler_ = std::move(handler);
    updateSelectionActions();
}

void HistoryWindow::setInputSource(std::function<HistoryEntry()> source) {
    inputSource_ = std::move(source);
    actions_[kLocateInput]->setEnabled(inputSource_ != nullptr);
}

void HistoryWindow::setReloadEnabled(bool enabled) {
    actions_[kLoadOriginalList]->setEnabled(enabled);
}

int HistoryWindow::selectedIndex() const {
    const int row = view_->currentRow();
    return row >= 0 && row < static_cast<int>(rowIndex_.size())
               ? static_cast<int>(rowIndex_[static_cast<std::size_t>(row)])
               : -1;
}

int HistoryWindow::rowOfIndex(std::size_t index) const {
    for (std::size_t row = 0; row < rowIndex_.size(); ++row) {
        if (rowIndex_[row] == index) {
            return static_cast<int>(row);
        }
    }
    return -1;
}

void HistoryWindow::updateSelectionActions() {
    const bool selected = selectedIndex() >= 0;
    actions_[kSelect]->setEnabled(selected && selectHandler_ != nullptr);
    actions_[kMoveToTop]->setEnabled(selected);
    actions_[kHighlightSelectedItem]->setEnabled(selected);
    actions_[kDeleteItem]->setEnabled(selected);
}

void HistoryWindow::runCommand(int commandId) {
    guarded([&] {
        switch (commandId) {
            case kLoadOriginalList:
                loadOriginalList();
                break;
            case kSelect:
                selectEntry();
                break;
            case kMoveToTop:
                moveToTop();
                break;
            case kHighlightSelectedItem:
                toggleHighlight();
                break;
            case kFind:
                find();
                break;
            case kFindNext:
                findNext();
                break;
            case kLocateInput:
                locateCurrentInput();
                break;
            case kDeleteItem:
                deleteItem();
                break;
            case kDeleteList:
            case kDeleteListReport:
                deleteList();
                break;
            default:
                break;
        }
    });
}

void HistoryWindow::loadOriginalList() {
    store_.clearEntries();
    loadEntries(store_, kLoadEntriesOnly, directory_);
    refresh();
    setReloadEnabled(false);
    Q_EMIT reloadAvailabilityChanged(false);
    Q_EMIT entriesChanged();
}

void HistoryWindow::selectEntry() {
    const int index = selectedIndex();
    if (index >= 0 && selectHandler_) {
        selectHandler_(store_.entries()[static_cast<std::size_t>(index)]);
    }
}

void HistoryWindow::moveToTop() {
    const int index = selectedIndex();
    if (index < 0) {
        return;
    }
    store_.moveToTop(static_cast<std::size_t>(index));
    refresh();
    Q_EMIT entriesChanged();
}

void HistoryWindow::toggleHighlight() {
    const int index = selectedIndex();
    if (index < 0) {
        return;
    }
    const int row = view_->currentRow();
    const auto at = static_cast<std::size_t>(index);
    store_.setMarked(at, !store_.entries()[at].marked);
    refresh();
    view_->setCurrentRow(row);
    Q_EMIT entriesChanged();
}

void HistoryWindow::find() {
    const int selected = selectedIndex();
    FindDialog dialog(store_.searchRing(), selected >= 0, this);
    int choice = FindDialog::kCancelled;
    // The dialog is a procedure of its own in failure reports.
    runGuarded(kProcTextFindDialog, reporter_, [&] { choice = dialog.exec(); });
    if (choice == FindDialog::kCancelled) {
        return;
    }
    lastSearch_ = dialog.text().toStdString();
    search(choice == FindDialog::kFromSelection ? static_cast<std::size_t>(selected) : 0);
}

void HistoryWindow::findNext() {
    if (lastSearch_.empty()) {
        find();
        return;
    }
    search(lastHit_ + 1);
}

void HistoryWindow::search(std::size_t start) {
    const FindResult result = findWithWrap(store_, lastSearch_, kind_, start, [this] {
        return QMessageBox::question(this, windowTitle(), QString::fromLatin1(kMsgEndReached),
                                     QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    });
    if (result.status == FindStatus::NotFound) {
        QMessageBox::information(this, windowTitle(), QString::fromLatin1(kMsgStringNotFound));
        return;
    }
    if (result.status != FindStatus::Found) {
        return;
    }
    lastHit_ = result.index;
    const std::size_t position = store_.entries()[result.index].formula.find(lastSearch_);
    view_->showHit(rowOfIndex(result.index), position, lastSearch_.size());
    updateSelectionActions();
    actions_[kFindNext]->setEnabled(true);
}

void HistoryWindow::locateCurrentInput() {
    if (inputSource_) {
        locate(inputSource_());
    }
}

bool HistoryWindow::locate(const HistoryEntry& input) {
    constexpr std::size_t kBoxReadLength = 100;
    HistoryEntry read = input;
    for (std::string* text : {&read.formula, &read.xBegin, &read.xEnd, &read.yBegin, &read.yEnd}) {
        if (text->size() > kBoxReadLength) {
            text->resize(kBoxReadLength);
        }
    }
    bool found = false;
    guarded([&] {
        if (auto index = locateEntry(store_, read, kind_)) {
            view_->setCurrentRow(rowOfIndex(*index));
            found = true;
        } else {
            // A selection left from before would point at an entry that is not the input.
            view_->setCurrentRow(-1);
            QMessageBox::information(this, windowTitle(), QString::fromLatin1(kMsgEntryNotInList));
        }
    });
    return found;
}

void HistoryWindow::deleteItem() {
    const int index = selectedIndex();
    if (index < 0) {
        return;
    }
    store_.removeAt(static_cast<std::size_t>(index));
    refresh();
    setReloadEnabled(true);
    Q_EMIT reloadAvailabilityChanged(true);
    Q_EMIT entriesChanged();
}

void HistoryWindow::deleteList() {
    QMessageBox question(QMessageBox::Warning, windowTitle(),
                         QStringLiteral("ARE YOU SURE YOU WANT TO DELETE ENTIRE LIST?"),
                         QMessageBox::Ok | QMessageBox::Cancel, this);
    if (question.exec() != QMessageBox::Ok) {
        return;
    }
    store_.removeKind(kind_);
    refresh();
    setReloadEnabled(true);
    Q_EMIT reloadAvailabilityChanged(true);
    Q_EMIT entriesChanged();
}

}  // namespace curvemill
