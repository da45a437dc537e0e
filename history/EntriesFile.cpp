#include "history/EntriesFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace curvemill {
namespace {

// Reads a file a buffer at a time, so that a load that stops early reads no further.
class FileBytes {
  public:
    explicit FileBytes(int fd) : fd_(fd) {}
    ~FileBytes() { ::close(fd_); }
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    int next() {
        if (pos_ == size_) {
            ssize_t n = 0;
            do {
                n = ::read(fd_, buffer_.data(), buffer_.size());
            } while (n < 0 && errno == EINTR);
            // A read error ends the file there: the load is cut short and so partial.
            if (n <= 0) {
                return -1;
            }
            pos_ = 0;
            size_ = static_cast<std::size_t>(n);
        }
        return static_cast<unsigned char>(buffer_[pos_++]);
    }

  private:
    int fd_;
    std::array<char, 65536> buffer_{};
    std::size_t pos_ = 0;
    std::size_t size_ = 0;
};

std::string reason(int error) {
    return std::generic_category().message(error);
}

}  // namespace

std::optional<std::string> unreadableReason(const std::filesystem::path& file) {
    // Not blocking: a FIFO of that name would wait for a writer.
    const int fd = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        return errno == ENOENT ? std::nullopt : std::optional<std::string>(reason(errno));
    }
    struct stat info {};
    const bool folder = ::fstat(fd, &info) == 0 && S_ISDIR(info.st_mode);
    ::close(fd);
    return folder ? std::optional<std::string>(reason(EISDIR)) : std::nullopt;
}

int loadEntries(HistoryStore& store, LoadMode mode, const std::filesystem::path& directory,
                std::string* problem) {
    struct Candidate {
        const char* name;
        EntriesSource kind;
    };
    constexpr std::array<Candidate, 3> candidates{
        {{kEntriesFileName, EntriesSource::GraphDat},
         {kFirstFallbackName, EntriesSource::GraphTxt},
         {kSecondFallbackName, EntriesSource::Graph0Dat}}};
    for (const Candidate& candidate : candidates) {
        const std::filesystem::path path = directory / candidate.name;
        if (const std::optional<std::string> why = unreadableReason(path)) {
            if (candidate.kind == EntriesSource::GraphDat && problem != nullptr) {
                *problem = *why;
            }
            continue;
        }
        struct stat info {};
        const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0) {
            continue;
        }
        if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
            ::close(fd);
            continue;
        }
        FileBytes bytes(fd);
        store.setSourceKind(candidate.kind);
        RecordChecker checker;
        if (!readEntries(
                store, [&bytes] { return bytes.next(); }, mode, checker)) {
            store.setPartialLoad(true);
        }
        return 0;
    }
    store.setSourceKind(EntriesSource::None);
    return 1;
}

SaveResult saveEntries(HistoryStore& store, SaveReason reason,
                       const std::function<bool()>& askToSave,
                       const std::filesystem::path& directory, const ChunkWriter& writer) {
    if (!store.changed() && !store.searchRing().changed()) {
        return {SaveOutcome::NothingToSave, {}, {}};
    }
    // Without a way to ask, keeping the user's entries is the safe answer.
    if (reason == kSaveAtExit && askToSave && !askToSave()) {
        return {SaveOutcome::Declined, {}, {}};
    }
    const std::filesystem::path file = directory / kEntriesFileName;
    const auto failed = [&](const std::string& why, const std::filesystem::path& path) {
        // Appended piece by piece: "\"" + std::string trips a false -Wrestrict warning in GCC 12.
        std::string detail(1, '"');
        detail.append(path.filename().string()).append("\": ").append(why);
        return SaveResult{SaveOutcome::Failed, kMsgFileInUse, detail};
    };
    // Entries we could not read would be gone for good with the file.
    if (const std::optional<std::string> why = unreadableReason(file)) {
        return failed(*why + "; it is kept as it is", file);
    }
    // What the last load left out of the file would be gone with it: the file is kept as it was
    // before it is replaced, and the save does not go on when that fails. Files we wrote ourselves
    // always load whole, so a normal save makes no copy.
    if (store.partialLoad()) {
        std::error_code error;
        if (std::filesystem::exists(file, error)) {
            const ReadResult old = readWholeFile(file);
            if (!old.bytes) {
                return failed(old.error, file);
            }
            if (const std::optional<std::string> why =
                    writeFileSafely(directory / kBackupName, *old.bytes, {true, {}})) {
                return failed(*why, directory / kBackupName);
            }
        } else if (error) {
            return failed(error.message(), file);
        }
    }
    RecordChecker checker;
    if (const std::optional<std::string> why =
            writeFileSafely(file, formatEntries(store, checker), {true, writer})) {
        return failed(*why, file);
    }
    store.setPartialLoad(false);
    store.setChanged(false);
    store.searchRing().setChanged(false);
    return {SaveOutcome::Saved, {}, {}};
}

}  // namespace curvemill
