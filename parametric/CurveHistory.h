// The earlier entries of the parametric and polar curve windows, kept in a file of their own beside
// the entries file (which keeps its format): one line a entry, read with distrust.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "parametric/PlaneCurve.h"

namespace curvemill {

inline constexpr const char* kCurveHistoryFileName = "Curves.dat";
inline constexpr std::size_t kMostCurveEntries = 200;
// A longer file is no history of ours: it is not read, and not replaced.
inline constexpr std::uintmax_t kMostCurveHistoryBytes = 1 << 20;

struct CurveEntry {
    CurveForm form = CurveForm::Parametric;
    // As typed: x(t) or r(t), y(t) (empty for a polar curve), T Begin, T End.
    std::string first;
    std::string second;
    std::string tBegin;
    std::string tEnd;
    bool operator==(const CurveEntry&) const = default;
};

struct CurveHistory {
    // Newest first.
    std::vector<CurveEntry> entries;
    // Puts `entry` first; an equal older one goes, and the oldest beyond the limit.
    void record(const CurveEntry& entry);
};

std::string encodeCurveHistory(const CurveHistory& history);

struct CurveHistoryReading {
    CurveHistory history;
    // Lines that were not entries of ours and were left out.
    int skipped = 0;
    // Why the file could not be read at all (then nothing may replace it); empty otherwise.
    std::string problem;
};
CurveHistoryReading decodeCurveHistory(std::string_view bytes);

// A missing file is an empty history.
CurveHistoryReading loadCurveHistory(const std::filesystem::path& path);
// Why it could not be saved, or nothing (see writeFileSafely).
std::optional<std::string> saveCurveHistory(const std::filesystem::path& path,
                                            const CurveHistory& history);

}  // namespace curvemill
