// A history list window: the entries of one kind, with the list menu, Find and deleting.
#pragma once

#include <QMainWindow>
#include <QMap>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "failure/ProcedureNames.h"
#include "history/HistoryStore.h"

class QAction;
class QMenu;

namespace curvemill {

class EntryListView;
class FailureReporter;

class HistoryWindow : public QMainWindow, public FailureScope {
    Q_OBJECT
  public:
    // The "List of Functions" text list, or the "Previous Entries" report list.
    enum class Style { TextList, ReportList };

    HistoryWindow(Style style, HistoryStore& store, FailureReporter& reporter,
                  std::filesystem::path directory, QWidget* parent = nullptr);

    ProcedureName procedureName() const override { return kProcHistoryWindow; }

    EntryKind shownKind() const { return kind_; }
    void setShownKind(EntryKind kind);
    // Rebuilds the list from the store; nothing is selected afterwards.
    void refresh();
    // Selects the entry equal to `input` (each text read up to 100 characters, as from the input's
    // boxes) and scrolls it into view, or says that it is not in the list.
    bool locate(const HistoryEntry& input);
    // Receives the entry on "Select" and on a double click; without one "Select" stays grey.
    void setSelectHandler(std::function<void(const HistoryEntry&)> handler);
    // What "Locate Current Input" looks for: the input's boxes as they stand when it is chosen.
    // Without one the command stays grey.
    void setInputSource(std::function<HistoryEntry()> source);
    void setReloadEnabled(bool enabled);
    // Runs one of the list's commands, in the window's failure guard.
    void runCommand(int commandId);

    QAction* action(int commandId) const { return actions_.value(commandId); }
    EntryListView* view() const { return view_; }
    QMenu* contextMenu() const { return contextMenu_; }

  Q_SIGNALS:
    // Entries were deleted, moved or marked: other views of the store rebuild.
    void entriesChanged();
    // "Load Original List" became available (after a deletion) or was used.
    void reloadAvailabilityChanged(bool enabled);

  private:
    void createActions(Style style);
    void createMenus(Style style);
    void guarded(const std::function<void()>& work);
    // Store index of the selected row, or -1.
    int selectedIndex() const;
    int rowOfIndex(std::size_t index) const;
    void updateSelectionActions();

    void loadOriginalList();
    void selectEntry();
    void moveToTop();
    void toggleHighlight();
    void find();
    void findNext();
    void locateCurrentInput();
    void search(std::size_t start);
    void deleteItem();
    void deleteList();

    HistoryStore& store_;
    FailureReporter& reporter_;
    std::filesystem::path directory_;
    EntryKind kind_ = EntryKind::TwoD;
    EntryListView* view_ = nullptr;
    QMenu* contextMenu_ = nullptr;
    QMap<int, QAction*> actions_;
    // Store index of each row of the view.
    std::vector<std::size_t> rowIndex_;
    std::function<void(const HistoryEntry&)> selectHandler_;
    std::function<HistoryEntry()> inputSource_;
    // The string of the last Find, searched again by Find Next from after the last hit.
    std::string lastSearch_;
    std::size_t lastHit_ = 0;
};

}  // namespace curvemill
