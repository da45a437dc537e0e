#include "history/RecordChecker.h"

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"

namespace curvemill {

RecordChecker::RecordChecker() : formula_(std::make_unique<Formula>()) {}

RecordChecker::~RecordChecker() = default;

bool RecordChecker::rangeIsValid(const std::string& begin, const std::string& end) {
    const NumberReading first = readNumberEntry(*formula_, begin, "X_BEG");
    if (!first.ok) {
        return false;
    }
    const NumberReading second = readNumberEntry(*formula_, end, "X_END");
    // Written so that an indefinite (NaN) value fails as well.
    return second.ok && second.value > first.value;
}

bool RecordChecker::accepts(const HistoryEntry& entry) {
    if (!rangeIsValid(entry.xBegin, entry.xEnd)) {
        return false;
    }
    char mode = kModeFunction;
    if (entry.yBegin != kNoRange || entry.yEnd != kNoRange) {
        if (!rangeIsValid(entry.yBegin, entry.yEnd)) {
            return false;
        }
        mode = kModeTwoVariables;
    }
    std::string text = entry.formula;
    return checkFormula(*formula_, text, mode, false);
}

}  // namespace curvemill
