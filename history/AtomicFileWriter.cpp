#include "history/AtomicFileWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>

namespace curvemill {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kReadOnly = S_IRUSR | S_IRGRP | S_IROTH;
// As many links as the system itself follows before it gives up on a loop.
constexpr int kMaxLinks = 40;

long writeAll(int fd, const char* data, std::size_t size) {
    const ssize_t written = ::write(fd, data, size);
    return static_cast<long>(written);
}

bool writeContent(int fd, std::string_view content, const ChunkWriter& writer) {
    std::size_t done = 0;
    while (done < content.size()) {
        const long written = writer ? writer(fd, content.data() + done, content.size() - done)
                                    : writeAll(fd, content.data() + done, content.size() - done);
        if (written < 0 && errno == EINTR && !writer) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(written);
    }
    return true;
}

// Makes the rename itself durable; a failure here changes nothing about the files' contents.
void syncDirectory(const fs::path& directory) {
    const int fd = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

// The file a chain of symbolic links leads to (the path itself when it is no link); empty when
// the chain loops or cannot be read. Renaming over the link would turn it into a plain file and
// leave the file it points at behind, unsaved.
fs::path followLinks(fs::path path) {
    for (int hop = 0; hop < kMaxLinks; ++hop) {
        std::error_code error;
        if (!fs::is_symlink(path, error)) {
            return path;
        }
        const fs::path next = fs::read_symlink(path, error);
        if (error) {
            return {};
        }
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return {};
}

std::optional<std::string> readAll(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        return std::nullopt;
    }
    std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    return in.bad() ? std::nullopt : std::optional<std::string>(std::move(bytes));
}

enum class Beside {
    Written,
    NoRoom,  // the folder took no new file, or no rename: writing in place may still work
    Failed,  // the content itself could not be written (a full disk): keep the old file
};

Beside replaceBeside(const fs::path& file, std::string_view content, const ChunkWriter& writer,
                     bool exists) {
    fs::path temporary = file;
    temporary += ".tmp";
    // A save that died after making its temporary file read-only would block this one.
    ::unlink(temporary.c_str());
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) {
        return Beside::NoRoom;
    }
    const bool complete =
        writeContent(fd, content, writer) && ::fsync(fd) == 0 && ::fchmod(fd, kReadOnly) == 0;
    if (::close(fd) != 0 || !complete) {
        ::unlink(temporary.c_str());
        return Beside::Failed;
    }
    // The old file is kept read-only between saves; some systems refuse to replace a read-only
    // file, so it is made writable only now, when its successor is safely on the disk.
    if (exists) {
        std::error_code ignored;
        fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, ignored);
    }
    if (::rename(temporary.c_str(), file.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return Beside::NoRoom;
    }
    syncDirectory(file.parent_path());
    return Beside::Written;
}

// The fallback for a folder that takes no new file. Not atomic, so the old bytes are read first
// and put back when the write fails part way.
bool writeInPlace(const fs::path& file, std::string_view content, const ChunkWriter& writer,
                  const struct stat& info) {
    const std::optional<std::string> old = readAll(file);
    if (!old) {
        return false;
    }
    const mode_t mode = info.st_mode & 07777;
    ::chmod(file.c_str(), mode | S_IWUSR);
    const int fd = ::open(file.c_str(), O_WRONLY | O_CLOEXEC);
    bool done = false;
    if (fd >= 0) {
        done = writeContent(fd, content, writer) &&
               ::ftruncate(fd, static_cast<off_t>(content.size())) == 0 && ::fsync(fd) == 0;
        if (!done && ::lseek(fd, 0, SEEK_SET) == 0 && writeContent(fd, *old, {})) {
            static_cast<void>(::ftruncate(fd, static_cast<off_t>(old->size())));
            ::fsync(fd);
        }
        done = ::close(fd) == 0 && done;
    }
    ::chmod(file.c_str(), done ? kReadOnly : mode);
    return done;
}

// This process may write `file`, or may make it writable as its owner.
bool mayChange(const fs::path& file, const struct stat& info) {
    return ::faccessat(AT_FDCWD, file.c_str(), W_OK, AT_EACCESS) == 0 || info.st_uid == ::geteuid();
}

}  // namespace

bool replaceFileAtomically(const fs::path& target, std::string_view content,
                           const ChunkWriter& writer) {
    const fs::path file = followLinks(target);
    if (file.empty()) {
        return false;
    }
    struct stat info {};
    const bool exists = ::stat(file.c_str(), &info) == 0;
    // A read-only file of another user is theirs to keep, though the folder would let us rename
    // over it.
    if (exists && (!S_ISREG(info.st_mode) || !mayChange(file, info))) {
        return false;
    }
    switch (replaceBeside(file, content, writer, exists)) {
        case Beside::Written:
            return true;
        case Beside::Failed:
            return false;
        case Beside::NoRoom:
            break;
    }
    return exists && writeInPlace(file, content, writer, info);
}

}  // namespace curvemill
