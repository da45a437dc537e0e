// The text of the entries file: reading it into a store, and writing a store as that text.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "history/HistoryStore.h"
#include "history/RecordChecker.h"

namespace curvemill {

// At start-up the entries and the search strings are read; "Load Original List" reads the
// entries only.
enum class LoadMode { kAtStartup, kEntriesOnly };
inline constexpr LoadMode kLoadAtStartup = LoadMode::kAtStartup;
inline constexpr LoadMode kLoadEntriesOnly = LoadMode::kEntriesOnly;

// Appends the records of `bytes` to `store` until the search strings, the end or the first bad
// record; at start-up the search strings then replace the store's ring. Never fails: whatever
// was read before a problem stays, the rest is ignored. Returns false when something of the text
// was left out (a bad or cut record, records beyond the capacity, search strings that did not
// fit), so that writing the store would lose it.
bool readEntries(HistoryStore& store, std::string_view bytes, LoadMode mode,
                 RecordChecker& checker);
// The same from a source of bytes read one at a time; it returns -1 at the end. Once the store is
// full it is asked for no more than the next byte: a file far longer than the store holds is not
// read to its end (the load is then partial).
using ByteSource = std::function<int()>;
bool readEntries(HistoryStore& store, const ByteSource& source, LoadMode mode,
                 RecordChecker& checker);

// Section 'y' records, '&', the other records, "@ ", the search strings oldest first. Records that
// `checker` refuses are left out: one would end the next load there.
std::string formatEntries(const HistoryStore& store, RecordChecker& checker);

}  // namespace curvemill
