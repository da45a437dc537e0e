// What the shell and the graph dialogs need from the history of entries; the history implements it.
#pragma once

#include <functional>
#include <string>

#include "history/HistoryEntry.h"

namespace curvemill {

// One accepted entry as typed; a 2D function has "$" for both Y range texts and the graphs'
// section.
struct TypedEntry {
    std::string formula;
    std::string xBegin;
    std::string xEnd;
    std::string yBegin = "$";
    std::string yEnd = "$";
    EntrySection section = EntrySection::Graphs;
};

// The graph dialog a history list works for: its boxes as they stand now, and how a picked entry
// fills them. Either may be left empty.
struct HistoryClient {
    std::function<TypedEntry()> currentInput;
    std::function<void(const TypedEntry&)> select;
};

class HistoryPort {
  public:
    virtual ~HistoryPort() = default;
    // At start-up, after the title page is shown: the "Loading" dialog, the entries file, and the
    // question when no file is found.
    virtual void loadAtStartup() = 0;
    // At exit: may ask whether to save; returns whether the main window may close.
    virtual bool saveOnExit() = 0;
    // "Save New Entries": writes without asking and clears the changed state.
    virtual void saveNow() = 0;
    // New entries not yet written to the file.
    virtual bool hasUnsavedEntries() const = 0;
    // Called whenever hasUnsavedEntries may have changed, so the menu can follow.
    virtual void setChangedCallback(std::function<void()> callback) = 0;
    virtual void recordEntry(const TypedEntry& entry) = 0;
    // "History" in a graph dialog: the "Previous Entries" list of the client's kind, opened with
    // the client's input located in it (or said to be missing); an input without a formula just
    // opens the list. Both lists pick for this client from now on.
    virtual void showPreviousEntries(HistoryClient client) = 0;
    // "History 1": the "List of Functions" window, the same way.
    virtual void showListOfFunctions(HistoryClient client) = 0;
    // Before a failure report: every history window out of sight.
    virtual void hideWindows() = 0;
    // The history list's keys (Find, Find Next, Delete Item) pressed in the main window.
    virtual void runListCommand(int commandId) = 0;
    // The kind both lists show: 2D unless a two-range input (3D or equation) is active.
    virtual void setShownKind(EntryKind kind) { (void)kind; }
    // How many entries of `kind` a "Previous Entries" list would offer.
    virtual int entryCount(EntryKind kind) const {
        (void)kind;
        return 0;
    }
};

}  // namespace curvemill
