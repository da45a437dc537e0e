// The text of the entries file: reading it into a store, and writing a store as that text.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "history/HistoryStore.h"
#include "history/RecordChecker.h"

namespace curvemill {

// Load modes: at start-up (entries and search strings), and "Load Original List" (entries only).
inline constexpr char kLoadAtStartup = 'y';
inline constexpr char kLoadEntriesOnly = 'n';

// Appends the records of `bytes` to `store` until the search strings, the end or the first bad
// record; with mode 'y' the search strings then replace the store's ring. Never fails: whatever
// was read before a problem stays, the rest is ignored. Returns false when something of the text
// was left out (a bad or cut record, records beyond the capacity, search strings that did not
// fit), so that writing the store would lose it.
bool readEntries(HistoryStore& store, std::string_view bytes, char mode, RecordChecker& checker);
// The same from a source of bytes read one at a time; it returns -1 at the end. Once the store is
// full it is asked for no more than the next byte: a file far longer than the store holds is not
// read to its end (the load is then partial).
using ByteSource = std::function<int()>;
bool readEntries(HistoryStore& store, const ByteSource& source, char mode, RecordChecker& checker);

// Section 'y' records, '&', the other records, "@ ", the search strings oldest first. Records that
// `checker` refuses are left out: one would end the next load there.
std::string formatEntries(const HistoryStore& store, RecordChecker& checker);

}  // namespace curvemill
