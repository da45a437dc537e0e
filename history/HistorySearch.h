// Finding entries of the shown kind by text, and locating the input's own entry in the list.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include "history/HistoryStore.h"

namespace curvemill {

inline constexpr const char* kMsgEndReached =
    "END OF FILE HAS BEEN REACHED\nDO YOU WANT TO START FROM BEGINNING?";
inline constexpr const char* kMsgStringNotFound = "UNABLE TO FIND STRING";
inline constexpr const char* kMsgEntryNotInList = "THIS ENTRY IS NOT INCLUDED IN THE LIST";

// The first entry at or after `start` that is of `kind` and whose formula contains `text`
// (case-sensitive).
std::optional<std::size_t> findFrom(const HistoryStore& store, std::string_view text,
                                    EntryKind kind, std::size_t start);

enum class FindStatus {
    Found,
    Declined,  // the end was reached and the user chose not to start again
    NotFound,  // not even after starting again from the head: show kMsgStringNotFound
};

struct FindResult {
    FindStatus status = FindStatus::NotFound;
    std::size_t index = 0;
};

// findFrom `start`; with no hit up to the end, asks `askWrap` (kMsgEndReached) and on true searches
// once more from the head.
FindResult findWithWrap(const HistoryStore& store, std::string_view text, EntryKind kind,
                        std::size_t start, const std::function<bool()>& askWrap);

// The entry of `kind` whose five strings equal `input`'s.
std::optional<std::size_t> locateEntry(const HistoryStore& store, const HistoryEntry& input,
                                       EntryKind kind);

}  // namespace curvemill
