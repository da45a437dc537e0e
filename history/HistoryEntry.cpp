#include "history/HistoryEntry.h"

namespace curvemill {

EntryKind kindOf(const HistoryEntry& entry) {
    if (!entry.yBegin.empty() && entry.yBegin.front() == '$') {
        return EntryKind::TwoD;
    }
    return entry.section == EntrySection::Graphs ? EntryKind::ThreeD : EntryKind::Equation;
}

bool sameStrings(const HistoryEntry& a, const HistoryEntry& b) {
    return a.formula == b.formula && a.xBegin == b.xBegin && a.xEnd == b.xEnd &&
           a.yBegin == b.yBegin && a.yEnd == b.yEnd;
}

}  // namespace curvemill
