// The in-memory history: entries in list order, their counters and flags, and the search ring.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "history/HistoryEntry.h"
#include "history/SearchRing.h"

namespace curvemill {

// Which file the last load found: "Graph.dat", "Graph.txt", "Graph0.dat", or none.
enum class EntriesSource { GraphDat, GraphTxt, Graph0Dat, None };

class HistoryStore {
  public:
    static constexpr int kCapacity = 200;

    // Head first; index 0 is the head of the list.
    const std::vector<HistoryEntry>& entries() const { return entries_; }
    int size() const { return static_cast<int>(entries_.size()); }

    int twoDCount() const { return twoDCount_; }
    int sectionNCount() const { return sectionNCount_; }
    int sectionYCount() const { return sectionYCount_; }
    int countOf(EntryKind kind) const;

    // The list differs from the file since the last save: set only by addNewEntry.
    bool changed() const { return changed_; }
    void setChanged(bool changed) { changed_ = changed; }
    // A load left part of the file out (a bad record, more than the store holds): the next save
    // must keep the old file before replacing it. Cleared once that save has kept it.
    bool partialLoad() const { return partialLoad_; }
    void setPartialLoad(bool partial) { partialLoad_ = partial; }
    EntriesSource sourceKind() const { return sourceKind_; }
    void setSourceKind(EntriesSource kind) { sourceKind_ = kind; }

    SearchRing& searchRing() { return ring_; }
    const SearchRing& searchRing() const { return ring_; }

    // Appends at the tail for the loader; a full store drops the entry and returns false.
    bool addLoadedEntry(const HistoryEntry& entry);

    // Records an entry the user has drawn, its blanks removed. Returns false when an entry with the
    // same five strings exists or `admits` refuses it (nothing changes then). Entries of one
    // formula stay together, newest first; over capacity the oldest entry of that formula goes, or
    // the tail for a formula not yet held.
    bool addNewEntry(const HistoryEntry& entry,
                     const std::function<bool(const HistoryEntry&)>& admits = {});

    void removeAt(std::size_t index);
    void moveToTop(std::size_t index);
    // Deletes every entry of `kind`; returns how many went.
    int removeKind(EntryKind kind);
    // Empties the entry list and its counters; the search ring and the flags stay.
    void clearEntries();
    void setMarked(std::size_t index, bool marked);

  private:
    void count(const HistoryEntry& entry, int delta);

    std::vector<HistoryEntry> entries_;
    int twoDCount_ = 0;
    int sectionNCount_ = 0;
    int sectionYCount_ = 0;
    bool changed_ = false;
    bool partialLoad_ = false;
    EntriesSource sourceKind_ = EntriesSource::None;
    SearchRing ring_;
};

}  // namespace curvemill
