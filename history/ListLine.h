// The text of one entry in the "List of Functions" window, whole or cut around a Find hit.
#pragma once

#include <cstddef>
#include <string>

#include "history/HistoryEntry.h"

namespace curvemill {

// "(%s)  From:%s  To:%s" with formula, X begin and X end.
std::string listLine(const HistoryEntry& entry);

// The line in three pieces for a hit of `length` characters at `position` in the formula: the
// opening bracket and the formula up to the hit, the hit, and the rest of the line.
struct ListLinePieces {
    std::string before;
    std::string hit;
    std::string after;
};

// A hit outside the formula gives the whole line in `before`.
ListLinePieces splitAtHit(const HistoryEntry& entry, std::size_t position, std::size_t length);

}  // namespace curvemill
