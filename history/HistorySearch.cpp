#include "history/HistorySearch.h"

namespace curvemill {

std::optional<std::size_t> findFrom(const HistoryStore& store, std::string_view text,
                                    EntryKind kind, std::size_t start) {
    const auto& entries = store.entries();
    for (std::size_t i = start; i < entries.size(); ++i) {
        if (kindOf(entries[i]) == kind && entries[i].formula.find(text) != std::string::npos) {
            return i;
        }
    }
    return std::nullopt;
}

FindResult findWithWrap(const HistoryStore& store, std::string_view text, EntryKind kind,
                        std::size_t start, const std::function<bool()>& askWrap) {
    if (auto hit = findFrom(store, text, kind, start)) {
        return {FindStatus::Found, *hit};
    }
    if (!askWrap || !askWrap()) {
        return {FindStatus::Declined, 0};
    }
    if (auto hit = findFrom(store, text, kind, 0)) {
        return {FindStatus::Found, *hit};
    }
    return {FindStatus::NotFound, 0};
}

std::optional<std::size_t> locateEntry(const HistoryStore& store, const HistoryEntry& input,
                                       EntryKind kind) {
    const auto& entries = store.entries();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (kindOf(entries[i]) == kind && sameStrings(entries[i], input)) {
            return i;
        }
    }
    return std::nullopt;
}

}  // namespace curvemill
