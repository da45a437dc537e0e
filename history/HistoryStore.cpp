#include "history/HistoryStore.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace curvemill {

int HistoryStore::countOf(EntryKind kind) const {
    switch (kind) {
        case EntryKind::TwoD:
            return twoDCount_;
        case EntryKind::Equation:
            return sectionNCount_;
        case EntryKind::ThreeD:
            return sectionYCount_;
    }
    return 0;
}

void HistoryStore::count(const HistoryEntry& entry, int delta) {
    switch (kindOf(entry)) {
        case EntryKind::TwoD:
            twoDCount_ += delta;
            break;
        case EntryKind::Equation:
            sectionNCount_ += delta;
            break;
        case EntryKind::ThreeD:
            sectionYCount_ += delta;
            break;
    }
}

bool HistoryStore::addLoadedEntry(const HistoryEntry& entry) {
    if (size() >= kCapacity) {
        return false;
    }
    entries_.push_back(entry);
    count(entry, +1);
    return true;
}

bool HistoryStore::addNewEntry(const HistoryEntry& typed,
                               const std::function<bool(const HistoryEntry&)>& admits) {
    // Blanks mean nothing in a formula or a number, but in the file they separate the fields: an
    // entry typed with blanks is kept (and written) as the formula it stands for.
    HistoryEntry entry = typed;
    for (std::string* field :
         {&entry.formula, &entry.xBegin, &entry.xEnd, &entry.yBegin, &entry.yEnd}) {
        std::erase(*field, ' ');
    }
    entry.marked = false;
    auto equal = [&](const HistoryEntry& e) { return sameStrings(e, entry); };
    if ((admits && !admits(entry)) || std::any_of(entries_.begin(), entries_.end(), equal)) {
        return false;
    }
    changed_ = true;
    count(entry, +1);
    auto sameFormula = std::find_if(entries_.begin(), entries_.end(), [&](const HistoryEntry& e) {
        return e.formula == entry.formula;
    });
    if (sameFormula == entries_.end()) {
        entries_.insert(entries_.begin(), entry);
        if (size() > kCapacity) {
            removeAt(entries_.size() - 1);
        }
        return true;
    }
    auto inserted = entries_.insert(sameFormula, entry);
    if (size() > kCapacity) {
        // The run of this formula that follows the new entry ends with its oldest entry.
        auto last = inserted;
        while (std::next(last) != entries_.end() && std::next(last)->formula == entry.formula) {
            ++last;
        }
        removeAt(static_cast<std::size_t>(std::distance(entries_.begin(), last)));
    }
    return true;
}

void HistoryStore::removeAt(std::size_t index) {
    if (index >= entries_.size()) {
        return;
    }
    count(entries_[index], -1);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
}

void HistoryStore::moveToTop(std::size_t index) {
    if (index >= entries_.size()) {
        return;
    }
    std::rotate(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(index),
                entries_.begin() + static_cast<std::ptrdiff_t>(index) + 1);
}

int HistoryStore::removeKind(EntryKind kind) {
    const auto before = entries_.size();
    std::erase_if(entries_, [kind](const HistoryEntry& e) { return kindOf(e) == kind; });
    const int removed = static_cast<int>(before - entries_.size());
    switch (kind) {
        case EntryKind::TwoD:
            twoDCount_ -= removed;
            break;
        case EntryKind::Equation:
            sectionNCount_ -= removed;
            break;
        case EntryKind::ThreeD:
            sectionYCount_ -= removed;
            break;
    }
    return removed;
}

void HistoryStore::clearEntries() {
    entries_.clear();
    twoDCount_ = sectionNCount_ = sectionYCount_ = 0;
}

void HistoryStore::setMarked(std::size_t index, bool marked) {
    if (index < entries_.size()) {
        entries_[index].marked = marked;
    }
}

}  // namespace curvemill
