#include "history/RecordChecker.h"

#include <string_view>

#include "engine/Formula.h"
#include "engine/FormulaCheck.h"
#include "engine/NumberEntry.h"

namespace curvemill {
namespace {

// The loader splits fields at these bytes and cuts a field's text at a NUL, so a field holding one
// would come back as a different record, or end the load.
bool fitsTheFile(const std::string& field) {
    return field.size() < kFieldLimit &&
           field.find_first_of(std::string_view(" &@\0", 4)) == std::string::npos;
}

}  // namespace

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
    for (const std::string* field :
         {&entry.xBegin, &entry.xEnd, &entry.yBegin, &entry.yEnd, &entry.formula}) {
        if (!fitsTheFile(*field)) {
            return false;
        }
    }
    if (!rangeIsValid(entry.xBegin, entry.xEnd)) {
        return false;
    }
    FormulaMode mode = FormulaMode::Function;
    if (entry.yBegin != kNoRange || entry.yEnd != kNoRange) {
        if (!rangeIsValid(entry.yBegin, entry.yEnd)) {
            return false;
        }
        mode = FormulaMode::TwoVariables;
    }
    std::string text = entry.formula;
    return checkFormula(*formula_, text, mode, false);
}

}  // namespace curvemill
