#include "history/AtomicFileWriter.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace curvemill {
namespace {

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
void syncDirectory(const std::filesystem::path& directory) {
    const int fd = ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

}  // namespace

bool replaceFileAtomically(const std::filesystem::path& target, std::string_view content,
                           const ChunkWriter& writer) {
    std::filesystem::path temporary = target;
    temporary += ".tmp";
    // A save that died after making its temporary file read-only would block this one.
    ::unlink(temporary.c_str());
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) {
        return false;
    }
    const bool complete = writeContent(fd, content, writer) && ::fsync(fd) == 0 &&
                          ::fchmod(fd, S_IRUSR | S_IRGRP | S_IROTH) == 0;
    if (::close(fd) != 0 || !complete) {
        ::unlink(temporary.c_str());
        return false;
    }
    // The old file is kept read-only between saves; some systems refuse to replace a read-only
    // file, so it is made writable only now, when its successor is safely on the disk.
    std::error_code ignored;
    if (std::filesystem::is_regular_file(target, ignored)) {
        std::filesystem::permissions(target, std::filesystem::perms::owner_write,
                                     std::filesystem::perm_options::add, ignored);
    }
    if (::rename(temporary.c_str(), target.c_str()) != 0) {
        ::unlink(temporary.c_str());
        return false;
    }
    syncDirectory(target.parent_path());
    return true;
}

}  // namespace curvemill
