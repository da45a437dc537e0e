// Loading and saving the entries file "Graph.dat" in a given directory (the current one by
// default).
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "files/SafeFileWriter.h"
#include "history/EntriesFormat.h"
#include "history/HistoryStore.h"

namespace curvemill {

inline constexpr const char* kEntriesFileName = "Graph.dat";
// Read when "Graph.dat" cannot be opened, in this order.
inline constexpr const char* kFirstFallbackName = "Graph.txt";
inline constexpr const char* kSecondFallbackName = "Graph0.dat";
// Where the first save after a partial load keeps the file as it was.
inline constexpr const char* kBackupName = "Graph.dat.bak";

// Why the entries are saved: the menu command (no question), or exit (asks first).
enum class SaveReason { kOnCommand, kAtExit };
inline constexpr SaveReason kSaveOnCommand = SaveReason::kOnCommand;
inline constexpr SaveReason kSaveAtExit = SaveReason::kAtExit;

inline constexpr const char* kMsgFileInUse = "The file is being used by another application";

// Appends the records of the first file that opens to `store` and records which one in its
// sourceKind. Returns 1 when none of the three files could be opened, else 0, also when loading
// stopped early at a bad record (the records before it stay; the store's partialLoad is set).
// A "Graph.dat" that exists but cannot be read is passed over like a missing one, and `problem`
// (when given) receives why, for the user: such a file is never replaced (see saveEntries).
int loadEntries(HistoryStore& store, LoadMode mode, const std::filesystem::path& directory = ".",
                std::string* problem = nullptr);

// Why the entries file at `file` exists and still cannot be read (a folder, no read permission, a
// link that loops), in the system's words; nothing when it reads or does not exist at all.
std::optional<std::string> unreadableReason(const std::filesystem::path& file);

enum class SaveOutcome {
    NothingToSave,  // neither the entries nor the search strings changed
    Declined,       // the exit question was answered No
    Saved,
    Failed,  // message holds the text to show; the old file and the store are untouched
};

struct SaveResult {
    SaveOutcome outcome = SaveOutcome::NothingToSave;
    std::string message;
    // Why it failed, for the box's detailed text: the message names no cause.
    std::string detail;
};

// Writes the store when something changed. With kSaveAtExit, askToSave is called first and the
// file is written only when it returns true; kSaveOnCommand writes without asking. The new file
// replaces the old one only once it is complete, and is left read-only. A file that exists but
// cannot be read is not replaced: what it holds was never loaded. After a partial load the
// old "Graph.dat" is first copied to "Graph.dat.bak" (the save fails when that copy cannot be
// made). A successful save clears the changed flags and partialLoad. `writer` lets tests break
// the write half way.
SaveResult saveEntries(HistoryStore& store, SaveReason reason,
                       const std::function<bool()>& askToSave,
                       const std::filesystem::path& directory = ".",
                       const ChunkWriter& writer = {});

}  // namespace curvemill
