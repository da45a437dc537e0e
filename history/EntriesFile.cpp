#include "history/EntriesFile.h"

#include <array>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

namespace curvemill {
namespace {

// The whole file, or nothing when it cannot be opened as a file.
std::optional<std::string> readFile(const std::filesystem::path& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return std::nullopt;
    }
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

int loadEntries(HistoryStore& store, char mode, const std::filesystem::path& directory) {
    struct Candidate {
        const char* name;
        char kind;
    };
    constexpr std::array<Candidate, 3> candidates{{{kEntriesFileName, kSourceDat},
                                                   {kFirstFallbackName, kSourceTxt},
                                                   {kSecondFallbackName, kSourceDat0}}};
    for (const Candidate& candidate : candidates) {
        if (std::optional<std::string> bytes = readFile(directory / candidate.name)) {
            store.setSourceKind(candidate.kind);
            RecordChecker checker;
            if (!readEntries(store, *bytes, mode, checker)) {
                store.setPartialLoad(true);
            }
            return 0;
        }
    }
    store.setSourceKind(kSourceNone);
    return 1;
}

SaveResult saveEntries(HistoryStore& store, char reason, const std::function<bool()>& askToSave,
                       const std::filesystem::path& directory, const ChunkWriter& writer) {
    if (!store.changed() && !store.searchRing().changed()) {
        return {SaveOutcome::NothingToSave, {}};
    }
    // Without a way to ask, keeping the user's entries is the safe answer.
    if (reason == kSaveAtExit && askToSave && !askToSave()) {
        return {SaveOutcome::Declined, {}};
    }
    const std::filesystem::path file = directory / kEntriesFileName;
    // What the last load left out of the file would be gone with it: the file is kept as it was
    // before it is replaced, and the save does not go on when that fails. Files we wrote ourselves
    // always load whole, so a normal save makes no copy.
    if (store.partialLoad()) {
        std::error_code error;
        if (std::filesystem::exists(file, error)) {
            const std::optional<std::string> old = readFile(file);
            if (!old || !replaceFileAtomically(directory / kBackupName, *old)) {
                return {SaveOutcome::Failed, kMsgFileInUse};
            }
        } else if (error) {
            return {SaveOutcome::Failed, kMsgFileInUse};
        }
    }
    RecordChecker checker;
    if (!replaceFileAtomically(file, formatEntries(store, checker), writer)) {
        return {SaveOutcome::Failed, kMsgFileInUse};
    }
    store.setPartialLoad(false);
    store.setChanged(false);
    store.searchRing().setChanged(false);
    return {SaveOutcome::Saved, {}};
}

}  // namespace curvemill
