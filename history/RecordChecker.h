// Decides whether a record may stand in the entries file: the loader keeps only records that pass,
// and the writer writes only records that pass, so a saved file always loads to its end.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "history/HistoryEntry.h"

namespace curvemill {

class Formula;

// A field of this many characters ends the load: the file's fields hold at most one less.
inline constexpr std::size_t kFieldLimit = 99;

class RecordChecker {
  public:
    RecordChecker();
    ~RecordChecker();
    RecordChecker(const RecordChecker&) = delete;
    RecordChecker& operator=(const RecordChecker&) = delete;

    // Every field must fit the file: shorter than kFieldLimit and free of the bytes that end a
    // field, switch the section or end the records (blank, '&', '@', NUL). Both ranges must be
    // number expressions with end > begin (the Y range only unless both Y texts are "$"), and the
    // formula must pass the strict check of its kind: 'e' with a Y range, else 'f'.
    bool accepts(const HistoryEntry& entry);

  private:
    bool rangeIsValid(const std::string& begin, const std::string& end);

    // An engine of its own: checking a file must not disturb the slots of the graph on screen.
    std::unique_ptr<Formula> formula_;
};

}  // namespace curvemill
