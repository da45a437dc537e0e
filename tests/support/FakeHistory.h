// Test double: a history that keeps what a window asks of it instead of touching a file.
#pragma once

#include <functional>
#include <vector>

#include "history/HistoryPort.h"

namespace curvemill::testing {

class FakeHistory : public HistoryPort {
  public:
    void loadAtStartup() override {}
    bool saveOnExit() override { return ++exitSaves > 0; }
    void saveNow() override {
        ++saves;
        unsaved = false;
    }
    bool hasUnsavedEntries() const override { return unsaved; }
    void setChangedCallback(std::function<void()> callback) override { changed = callback; }
    void recordEntry(const TypedEntry& entry) override {
        entries.push_back(entry);
        unsaved = true;
        if (changed) {
            changed();
        }
    }
    void showPreviousEntries(HistoryClient c) override { client = std::move(c); }
    void showListOfFunctions(HistoryClient) override {}
    void hideWindows() override {}
    void runListCommand(int) override {}
    void setShownKind(EntryKind kind) override { shownKinds.push_back(kind); }
    // One equation entry to locate, nothing else.
    int entryCount(EntryKind kind) const override { return kind == EntryKind::Equation ? 1 : 0; }

    int exitSaves = 0;
    int saves = 0;
    bool unsaved = false;
    std::function<void()> changed;
    std::vector<TypedEntry> entries;
    HistoryClient client;
    std::vector<EntryKind> shownKinds;
};

}  // namespace curvemill::testing
