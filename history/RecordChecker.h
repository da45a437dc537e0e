// Decides whether a record read from the entries file may enter the history.
#pragma once

#include <memory>
#include <string>

#include "history/HistoryEntry.h"

namespace curvemill {

class Formula;

class RecordChecker {
  public:
    RecordChecker();
    ~RecordChecker();
    RecordChecker(const RecordChecker&) = delete;
    RecordChecker& operator=(const RecordChecker&) = delete;

    // Both ranges must be number expressions with end > begin (the Y range only unless both Y
    // texts are "$"), and the formula must pass the check of its kind: 'e' with a Y range, else
    // 'f'.
    bool accepts(const HistoryEntry& entry);

  private:
    bool rangeIsValid(const std::string& begin, const std::string& end);

    // An engine of its own: checking a file must not disturb the slots of the graph on screen.
    std::unique_ptr<Formula> formula_;
};

}  // namespace curvemill
