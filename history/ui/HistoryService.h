// The history as the shell sees it: start-up load, saving, recording entries and the two windows.
#pragma once

#include <QObject>
#include <QPointer>
#include <filesystem>
#include <functional>
#include <memory>

#include "history/EntriesFile.h"
#include "history/HistoryPort.h"
#include "history/HistoryStore.h"
#include "history/RecordChecker.h"

class QWidget;

namespace curvemill {

class FailureReporter;
class HistoryWindow;
class WriterLock;

inline constexpr const char* kMsgNoEntriesFile =
    "UNABLE TO FIND A FILE CONTAINING ENTRIES TO THE PROGRAM\n IF YOU WANT TO DOWNLOAD THIS FILE "
    "FROM OUR WEBSITE, CLICK 'Yes'\n PLACE THE FILE IN THE SAME DIRECTORY WITH <CurveMill.exe>\n "
    "AND RESTART THE PROGRAM.\n OTHERWISE, CLICK 'NO' TO CONTINUE";
inline constexpr const char* kMsgSaveQuestion = "Save Your New Entries To File?";
inline constexpr const char* kProductWebPage = "https://www.curvemill.org/";
inline constexpr const char* kMsgSecondCopy =
    "Another copy of CurveMill is working with the history in this folder.\n"
    "This copy does not save its new entries, so that neither copy overwrites the other's.";

class HistoryService : public QObject, public HistoryPort {
    Q_OBJECT
  public:
    // `openWebPage` opens the product's web page (the shell's helper); when empty the desktop's
    // browser is asked directly. `dialogParent` owns the message boxes of loading and saving.
    HistoryService(HistoryStore& store, FailureReporter& reporter,
                   std::filesystem::path directory = ".", std::function<void()> openWebPage = {},
                   QWidget* dialogParent = nullptr);
    ~HistoryService() override;

    void loadAtStartup() override;
    bool saveOnExit() override;
    void saveNow() override;
    bool hasUnsavedEntries() const override;
    void setChangedCallback(std::function<void()> callback) override;
    void recordEntry(const TypedEntry& entry) override;
    void showPreviousEntries(HistoryClient client) override;
    void showListOfFunctions(HistoryClient client) override;
    void hideWindows() override;
    void runListCommand(int commandId) override;

    // The kind both lists show: 2D unless a two-range input (3D or equation) is active.
    void setShownKind(EntryKind kind) override;
    int entryCount(EntryKind kind) const override;
    void setDialogParent(QWidget* parent) { dialogParent_ = parent; }

    HistoryWindow& listOfFunctions() { return *textWindow_; }
    HistoryWindow& previousEntries() { return *reportWindow_; }

  private:
    // Both lists work for `client` from now on; `window` comes up with its input located.
    void showFor(HistoryWindow& window, HistoryClient client);
    void refreshWindows();
    void notifyChanged();
    void showSaveFailure(const SaveResult& result);
    // Start-up: keeps a second copy of the program in the same folder from saving.
    void lockEntriesFile();
    HistoryWindow* activeWindow() const;

    HistoryStore& store_;
    FailureReporter& reporter_;
    std::filesystem::path directory_;
    std::function<void()> openWebPage_;
    QPointer<QWidget> dialogParent_;
    std::function<void()> changed_;
    // Decides which drawn entries the history takes: only those the entries file can hold.
    RecordChecker checker_;
    std::unique_ptr<HistoryWindow> textWindow_;
    std::unique_ptr<HistoryWindow> reportWindow_;
    // Held while this copy may write the entries file; see lockEntriesFile.
    std::unique_ptr<WriterLock> lock_;
    // Set at start-up when saving would lose or interleave entries; the user was told why, once.
    bool savingOff_ = false;
};

}  // namespace curvemill
