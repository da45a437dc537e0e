#include "files/SafeFileWriter.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <mutex>
#include <random>
#include <set>
#include <system_error>

namespace curvemill {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kReadOnly = S_IRUSR | S_IRGRP | S_IROTH;
// As many links as the system itself follows before it gives up on a loop.
constexpr int kMaxLinks = 40;

std::string reason(int error) {
    return std::generic_category().message(error);
}

// Writes everything, resuming after signals and short writes; 0 or the errno of the failure.
int writeContent(int fd, std::string_view content, const ChunkWriter& writer) {
    while (!content.empty()) {
        errno = 0;
        const long written = writer
                                 ? writer(fd, content.data(), content.size())
                                 : static_cast<long>(::write(fd, content.data(), content.size()));
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return errno != 0 ? errno : EIO;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

// Makes the rename itself durable; a failure here changes nothing about the files' contents.
void syncDirectory(const fs::path& directory) {
    const int fd = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

// The file a chain of symbolic links leads to (the path itself when it is no link), or the errno
// why there is none. Renaming over the link would turn it into a plain file and leave the file it
// points at behind, unsaved.
fs::path followLinks(fs::path path, int& error) {
    for (int hop = 0; hop < kMaxLinks; ++hop) {
        std::error_code code;
        if (!fs::is_symlink(path, code)) {
            return path;
        }
        const fs::path next = fs::read_symlink(path, code);
        if (code) {
            error = code.value();
            return {};
        }
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    error = ELOOP;
    return {};
}

// A fresh file beside `file` with a name no other save shares, even of another copy of the program
// writing the same file at the same time; its descriptor, or -1 with errno set.
int createTemporary(const fs::path& file, fs::path& name) {
    static std::atomic<unsigned> serial{0};
    std::random_device seed;
    std::mt19937_64 random(seed() ^ (static_cast<std::uint64_t>(::getpid()) << 32));
    for (int attempt = 0; attempt < 100; ++attempt) {
        // A short name: the file's own may already be as long as a name can be.
        name = file.parent_path() /
               (".curvemill-" + std::to_string(::getpid()) + "-" + std::to_string(serial++) + "-" +
                std::to_string(random() % 1000000000ULL) + ".tmp");
        // 0666 lets the umask decide the mode of a new file, as for any file a program creates.
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) {
            return fd;
        }
    }
    return -1;
}

// The writer's process id from a temporary file's name, or 0 for a name that is not one.
pid_t temporaryOwner(const std::string& name) {
    constexpr std::string_view kPrefix = ".curvemill-";
    if (name.rfind(kPrefix, 0) != 0 || name.size() < 4 ||
        name.compare(name.size() - 4, 4, ".tmp")) {
        return 0;
    }
    pid_t pid = 0;
    for (std::size_t i = kPrefix.size(); i < name.size() && name[i] != '-'; ++i) {
        if (name[i] < '0' || name[i] > '9' || pid > 100000000) {
            return 0;
        }
        pid = pid * 10 + (name[i] - '0');
    }
    return pid;
}

// A save killed between its write and its rename leaves its temporary file behind. Removed here
// are only our own user's, of a writer that no longer runs, and old enough that no save of
// another machine sharing the folder (whose process ids mean nothing here) can still be under
// way. Once per folder and process: a save should not cost a folder scan every time.
void removeOrphans(const fs::path& folder) {
    static std::mutex mutex;
    static std::set<fs::path> swept;
    {
        const std::lock_guard lock(mutex);
        if (!swept.insert(folder).second) {
            return;
        }
    }
    const auto oldest = std::chrono::system_clock::now() - std::chrono::minutes(10);
    std::error_code code;
    for (fs::directory_iterator it(folder.empty() ? fs::path(".") : folder, code), end;
         !code && it != end; it.increment(code)) {
        const pid_t pid = temporaryOwner(it->path().filename().string());
        if (pid <= 0 || pid == ::getpid() || ::kill(pid, 0) == 0 || errno != ESRCH) {
            continue;
        }
        struct stat info {};
        if (::lstat(it->path().c_str(), &info) == 0 && S_ISREG(info.st_mode) &&
            info.st_uid == ::geteuid() &&
            std::chrono::system_clock::from_time_t(info.st_mtime) < oldest) {
            ::unlink(it->path().c_str());
        }
    }
}

struct Attempt {
    enum { Written, NoRoom, Failed } outcome;
    int error = 0;
};

// NoRoom: the folder took no new file, or no rename, so writing in place may still work. Failed:
// the content itself could not be written (a full disk), so the old file is kept.
Attempt replaceBeside(const fs::path& file, std::string_view content, const WriteOptions& options,
                      const struct stat* existing) {
    fs::path temporary;
    const int fd = createTemporary(file, temporary);
    if (fd < 0) {
        return {Attempt::NoRoom, errno};
    }
    if (existing != nullptr && !options.readOnly) {
        // The replacement keeps the old file's permissions and, where allowed, its owner.
        (void)!::fchown(fd, existing->st_uid, existing->st_gid);
        (void)::fchmod(fd, existing->st_mode & 07777);
    }
    int error = writeContent(fd, content, options.writer);
    if (error == 0 && ::fsync(fd) != 0) {
        error = errno;
    }
    if (error == 0 && options.readOnly && ::fchmod(fd, kReadOnly) != 0) {
        error = errno;
    }
    if (::close(fd) != 0 && error == 0) {
        error = errno;
    }
    if (error != 0) {
        ::unlink(temporary.c_str());
        return {Attempt::Failed, error};
    }
    // A read-only file of ours is made writable only now, when its successor is safely on the
    // disk: some systems refuse to replace a read-only file.
    if (existing != nullptr && options.readOnly) {
        ::chmod(file.c_str(), (existing->st_mode & 07777) | S_IWUSR);
    }
    if (::rename(temporary.c_str(), file.c_str()) != 0) {
        error = errno;
        ::unlink(temporary.c_str());
        return {Attempt::NoRoom, error};
    }
    syncDirectory(file.parent_path());
    removeOrphans(file.parent_path());
    return {Attempt::Written, 0};
}

// The fallback for a folder that takes no new file. Not atomic, so the old bytes are read first
// and put back when the write fails part way.
int writeInPlace(const fs::path& file, std::string_view content, const WriteOptions& options,
                 const struct stat& info) {
    const ReadResult old = readWholeFile(file);
    if (!old.bytes) {
        return old.errorCode;
    }
    const mode_t mode = info.st_mode & 07777;
    ::chmod(file.c_str(), mode | S_IWUSR);
    const int fd = ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
    int error = fd < 0 ? errno : writeContent(fd, content, options.writer);
    if (fd >= 0) {
        if (error == 0 && ::ftruncate(fd, static_cast<off_t>(content.size())) != 0) {
            error = errno;
        }
        if (error == 0 && ::fsync(fd) != 0) {
            error = errno;
        }
        if (error != 0 && ::lseek(fd, 0, SEEK_SET) == 0 && writeContent(fd, *old.bytes, {}) == 0) {
            (void)!::ftruncate(fd, static_cast<off_t>(old.bytes->size()));
            ::fsync(fd);
        }
        if (::close(fd) != 0 && error == 0) {
            error = errno;
        }
    }
    ::chmod(file.c_str(), error == 0 && options.readOnly ? kReadOnly : mode);
    return error;
}

int writeThrough(const fs::path& path, std::string_view content, const WriteOptions& options) {
    // No O_CREAT: the thing exists, and if it vanished meanwhile nothing is made in its place.
    const int fd = ::open(path.c_str(), O_WRONLY | O_TRUNC | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        return errno;
    }
    const int error = writeContent(fd, content, options.writer);
    const int closed = ::close(fd) == 0 ? 0 : errno;
    return error != 0 ? error : closed;
}

// This process may write `file`, or may make it writable as its owner.
bool mayChange(const fs::path& file, const struct stat& info) {
    return ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0 || info.st_uid == ::geteuid();
}

int store(const fs::path& target, std::string_view content, const WriteOptions& options) {
    if (target.empty()) {
        return ENOENT;
    }
    int error = 0;
    const fs::path file = followLinks(target, error);
    if (file.empty()) {
        return error;
    }
    struct stat info {};
    const bool exists = ::stat(file.c_str(), &info) == 0;
    if (!exists && errno != ENOENT) {
        return errno;
    }
    if (exists && !S_ISREG(info.st_mode)) {
        return writeThrough(file, content, options);
    }
    if (!exists && file.string().back() == '/') {
        return EISDIR;  // a folder's name, and no folder there to write into
    }
    // A read-only file of another user is theirs to keep, though the folder would let us rename
    // over it.
    if (exists && !mayChange(file, info)) {
        return EACCES;
    }
    const Attempt beside = replaceBeside(file, content, options, exists ? &info : nullptr);
    if (beside.outcome == Attempt::Written) {
        return 0;
    }
    if (beside.outcome == Attempt::Failed || !exists) {
        return beside.error;
    }
    return writeInPlace(file, content, options, info);
}

}  // namespace

std::optional<std::string> writeFileSafely(const fs::path& target, std::string_view content,
                                           const WriteOptions& options) {
    const int error = store(target, content, options);
    return error == 0 ? std::nullopt : std::optional<std::string>(reason(error));
}

ReadResult readWholeFile(const fs::path& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        const int error = errno;
        return {std::nullopt, reason(error), error};
    }
    std::string bytes;
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            const int error = errno;
            ::close(fd);
            return {std::nullopt, reason(error), error};
        }
        if (n == 0) {
            break;
        }
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return {std::move(bytes), {}, 0};
}

}  // namespace curvemill
