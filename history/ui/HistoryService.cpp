#include "history/ui/HistoryService.h"

#include <optional>

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QUrl>

#include "failure/FailureGuard.h"
#include "history/EntriesFile.h"
#include "history/ui/HistoryWindow.h"
#include "history/ui/LoadingDialog.h"

namespace curvemill {
namespace {

HistoryEntry toEntry(const TypedEntry& typed) {
    return {typed.formula, typed.xBegin, typed.xEnd, typed.yBegin, typed.yEnd, typed.section};
}

TypedEntry toTyped(const HistoryEntry& entry) {
    return {entry.formula, entry.xBegin, entry.xEnd, entry.yBegin, entry.yEnd, entry.section};
}

}  // namespace

HistoryService::HistoryService(HistoryStore& store, FailureReporter& reporter,
                               std::filesystem::path directory, std::function<void()> openWebPage,
                               QWidget* dialogParent)
    : store_(store),
      reporter_(reporter),
      directory_(std::move(directory)),
      openWebPage_(std::move(openWebPage)),
      dialogParent_(dialogParent),
      textWindow_(std::make_unique<HistoryWindow>(HistoryWindow::Style::TextList, store, reporter,
                                                  directory_)),
      reportWindow_(std::make_unique<HistoryWindow>(HistoryWindow::Style::ReportList, store,
                                                    reporter, directory_)) {
    // Both windows show the same store: a change in one is shown by the other at once.
    for (auto [from, to] : {std::pair{textWindow_.get(), reportWindow_.get()},
                            std::pair{reportWindow_.get(), textWindow_.get()}}) {
        HistoryWindow* other = to;
        connect(from, &HistoryWindow::entriesChanged, other, [other] { other->refresh(); });
        connect(from, &HistoryWindow::reloadAvailabilityChanged, other,
                [other](bool enabled) { other->setReloadEnabled(enabled); });
    }
}

HistoryService::~HistoryService() = default;

void HistoryService::loadAtStartup() {
    int result = 0;
    LoadingDialog loading(
        [this] {
            int loaded = 0;
            runGuarded(kProcLoadingDialog, reporter_,
                       [&] { loaded = loadEntries(store_, kLoadAtStartup, directory_); });
            return loaded;
        },
        dialogParent_);
    result = loading.exec();
    refreshWindows();
    if (result != 1) {
        return;
    }
    const auto answer = QMessageBox::question(dialogParent_, QStringLiteral("CURVEMILL"),
                                              QString::fromLatin1(kMsgNoEntriesFile),
                                              QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
    if (answer != QMessageBox::Yes) {
        return;
    }
    if (openWebPage_) {
        openWebPage_();
    } else {
        QDesktopServices::openUrl(QUrl(QString::fromLatin1(kProductWebPage)));
    }
}

bool HistoryService::saveOnExit() {
    const SaveResult result = saveEntries(
        store_, kSaveAtExit,
        [this] {
            return QMessageBox::question(dialogParent_, QStringLiteral("Quit"),
                                         QString::fromLatin1(kMsgSaveQuestion),
                                         QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
        },
        directory_);
    if (result.outcome == SaveOutcome::Failed) {
        showSaveFailure(result.message);
    }
    // The main window closes whatever the answer; a failed save has said so already.
    return true;
}

void HistoryService::saveNow() {
    const SaveResult result = saveEntries(store_, kSaveOnCommand, {}, directory_);
    if (result.outcome == SaveOutcome::Failed) {
        showSaveFailure(result.message);
    }
    notifyChanged();
}

void HistoryService::showSaveFailure(const std::string& message) {
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Error"), QString::fromStdString(message),
                    QMessageBox::Ok, dialogParent_);
    box.exec();
}

bool HistoryService::hasUnsavedEntries() const {
    return store_.changed() || store_.searchRing().changed();
}

void HistoryService::setChangedCallback(std::function<void()> callback) {
    changed_ = std::move(callback);
}

void HistoryService::notifyChanged() {
    if (changed_) {
        changed_();
    }
}

void HistoryService::recordEntry(const TypedEntry& entry) {
    if (store_.addNewEntry(toEntry(entry))) {
        refreshWindows();
    }
    notifyChanged();
}

void HistoryService::showPreviousEntries(HistoryClient client) {
    showFor(*reportWindow_, std::move(client));
}

void HistoryService::showListOfFunctions(HistoryClient client) {
    showFor(*textWindow_, std::move(client));
}

void HistoryService::showFor(HistoryWindow& window, HistoryClient client) {
    std::function<void(const HistoryEntry&)> select;
    if (client.select) {
        select = [pick = client.select](const HistoryEntry& entry) { pick(toTyped(entry)); };
    }
    std::function<HistoryEntry()> source;
    if (client.currentInput) {
        source = [read = client.currentInput] { return toEntry(read()); };
    }
    // Whichever list the user opened, the other one picks for the same input too.
    for (HistoryWindow* each : {textWindow_.get(), reportWindow_.get()}) {
        each->setSelectHandler(select);
        each->setInputSource(source);
    }
    const std::optional<HistoryEntry> input =
        source ? std::optional<HistoryEntry>(source()) : std::nullopt;
    if (input) {
        setShownKind(kindOf(*input));
    }
    window.show();
    window.raise();
    window.activateWindow();
    if (input && !input->formula.empty()) {
        window.locate(*input);
    }
}

void HistoryService::hideWindows() {
    textWindow_->hide();
    reportWindow_->hide();
}

HistoryWindow* HistoryService::activeWindow() const {
    if (reportWindow_->isActiveWindow() ||
        (reportWindow_->isVisible() && !textWindow_->isVisible())) {
        return reportWindow_.get();
    }
    return textWindow_->isVisible() ? textWindow_.get() : nullptr;
}

void HistoryService::runListCommand(int commandId) {
    if (HistoryWindow* window = activeWindow()) {
        window->runCommand(commandId);
    }
}

void HistoryService::setShownKind(EntryKind kind) {
    textWindow_->setShownKind(kind);
    reportWindow_->setShownKind(kind);
}

void HistoryService::refreshWindows() {
    textWindow_->refresh();
    reportWindow_->refresh();
}

}  // namespace curvemill
