#include "history/ui/HistoryService.h"

#include <algorithm>
#include <optional>

#include <QApplication>
#include <QDesktopServices>
#include <QGridLayout>
#include <QMessageBox>
#include <QUrl>

#include "failure/FailureGuard.h"
#include "history/ui/HistoryWindow.h"
#include "history/ui/LoadingDialog.h"
#include "history/ui/WriterLock.h"

namespace curvemill {
namespace {

HistoryEntry toEntry(const TypedEntry& typed) {
    return {typed.formula, typed.xBegin, typed.xEnd, typed.yBegin, typed.yEnd, typed.section};
}

TypedEntry toTyped(const HistoryEntry& entry) {
    return {entry.formula, entry.xBegin, entry.xEnd, entry.yBegin, entry.yEnd, entry.section};
}

// The question after a start without entries file. No is the default: Enter must not send the
// user to the browser. The box is widened so that its lines, each a sentence of its own, stay
// whole instead of wrapping (a lone 'Yes' on a line of its own).
int askMissingFile(QWidget* parent, const QString& why) {
    const QString text = QString::fromLatin1(kMsgNoEntriesFile) + why;
    QMessageBox box(QMessageBox::Question, QStringLiteral("CURVEMILL"), text,
                    QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(QMessageBox::No);
    int widest = 0;
    for (const QString& line : text.split(u'\n')) {
        widest = std::max(widest, box.fontMetrics().horizontalAdvance(line));
    }
    // The label shares its row with the icon; a spacer across the whole grid gives the row the
    // room. Margin for the label's own frame and rounding.
    constexpr int kMargin = 16;
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout())) {
        const int iconWidth = box.iconPixmap().width() + grid->horizontalSpacing();
        grid->addItem(new QSpacerItem(widest + iconWidth + kMargin, 0, QSizePolicy::Minimum,
                                      QSizePolicy::Fixed),
                      grid->rowCount(), 0, 1, grid->columnCount());
    }
    return box.exec();
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

// Two copies saving one file in turn would each write only their own entries over the other's.
// Like an office program finding its document open elsewhere, the second copy works on and says
// so once: it reads the history, records new entries for its own lists, and never saves them (no
// menu item, no question at exit).
void HistoryService::lockEntriesFile() {
    lock_ = std::make_unique<WriterLock>(directory_ / kEntriesFileName);
    if (lock_->otherCopy()) {
        savingOff_ = true;
        QMessageBox::information(dialogParent_, QStringLiteral("CURVEMILL"),
                                 QString::fromLatin1(kMsgSecondCopy));
    }
}

void HistoryService::loadAtStartup() {
    lockEntriesFile();
    int result = 0;
    std::string problem;
    LoadingDialog loading(
        [this, &problem] {
            int loaded = 0;
            runGuarded(kProcLoadingDialog, reporter_,
                       [&] { loaded = loadEntries(store_, kLoadAtStartup, directory_, &problem); });
            return loaded;
        },
        dialogParent_);
    result = loading.exec();
    refreshWindows();
    // A file that is there but cannot be read is the user's, whatever it holds: it is not
    // replaced, so this copy saves nothing (the writer refuses anyway), and says so now rather
    // than failing at every save.
    QString why;
    if (!problem.empty()) {
        savingOff_ = true;
        why = QStringLiteral(
                  "\n\n\"%1\" cannot be read: %2.\nIt is kept as it is, and the new "
                  "entries of this session are not saved.")
                  .arg(QString::fromLatin1(kEntriesFileName), QString::fromStdString(problem));
    }
    if (result != 1) {
        if (!why.isEmpty()) {
            QMessageBox::warning(dialogParent_, QStringLiteral("CURVEMILL"), why.trimmed());
        }
        return;
    }
    if (askMissingFile(dialogParent_, why) != QMessageBox::Yes) {
        return;
    }
    if (openWebPage_) {
        openWebPage_();
    } else {
        QDesktopServices::openUrl(QUrl(QString::fromLatin1(kProductWebPage)));
    }
}

bool HistoryService::saveOnExit() {
    if (savingOff_) {
        return true;
    }
    const SaveResult result = saveEntries(
        store_, kSaveAtExit,
        [this] {
            return QMessageBox::question(dialogParent_, QStringLiteral("Quit"),
                                         QString::fromLatin1(kMsgSaveQuestion),
                                         QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
        },
        directory_);
    if (result.outcome == SaveOutcome::Failed) {
        showSaveFailure(result);
    }
    // The main window closes whatever the answer; a failed save has said so already.
    return true;
}

void HistoryService::saveNow() {
    if (savingOff_) {
        return;
    }
    const SaveResult result = saveEntries(store_, kSaveOnCommand, {}, directory_);
    if (result.outcome == SaveOutcome::Failed) {
        showSaveFailure(result);
    }
    notifyChanged();
}

void HistoryService::showSaveFailure(const SaveResult& result) {
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Error"),
                    QString::fromStdString(result.message), QMessageBox::Ok, dialogParent_);
    box.setDetailedText(QString::fromStdString(result.detail));
    box.exec();
}

bool HistoryService::hasUnsavedEntries() const {
    return !savingOff_ && (store_.changed() || store_.searchRing().changed());
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
    // An entry the file could not hold (a formula drawn after the lenient check, such as "cos(x")
    // would be shown now and silently gone after the next save: it is not taken at all.
    const auto writable = [this](const HistoryEntry& e) { return checker_.accepts(e); };
    if (store_.addNewEntry(toEntry(entry), writable)) {
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

// Entries whose formula begins with '$' are not offered, so they are not counted.
int HistoryService::entryCount(EntryKind kind) const {
    int count = 0;
    for (const HistoryEntry& entry : store_.entries()) {
        if (kindOf(entry) == kind && !(!entry.formula.empty() && entry.formula[0] == '$')) {
            ++count;
        }
    }
    return count;
}

void HistoryService::refreshWindows() {
    textWindow_->refresh();
    reportWindow_->refresh();
}

}  // namespace curvemill
