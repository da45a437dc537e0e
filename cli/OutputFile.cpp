#include "cli/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <random>
#include <system_error>

namespace curvemill::cli {
namespace {

std::string reason(int error) {
    return std::generic_category().message(error);
}

// Writes everything, resuming after signals and short writes; 0 or the errno of the failure.
int writeAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            return errno;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return 0;
}

std::optional<std::string> writeThrough(const std::string& path, std::string_view bytes) {
    // No O_CREAT: the thing exists, and if it vanished meanwhile nothing is made in its place.
    const int fd = ::open(path.c_str(), O_WRONLY | O_TRUNC | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        return reason(errno);
    }
    const int error = writeAll(fd, bytes);
    const int closed = ::close(fd) == 0 ? 0 : errno;
    if (error != 0 || closed != 0) {
        return reason(error != 0 ? error : closed);
    }
    return std::nullopt;
}

// A fresh file beside `target` with a name of its own; its descriptor and name, or -1 and errno.
int createTemporary(const std::string& target, std::string& name) {
    const std::size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : target.substr(0, slash + 1);
    std::random_device seed;
    std::mt19937_64 random(seed());
    for (int attempt = 0; attempt < 100; ++attempt) {
        // A short name: the target's own may already be as long as a name can be.
        name = folder + ".curvemill-" + std::to_string(random() % 1000000000000ULL) + ".tmp";
        // 0666 lets the umask decide the mode of a new file, as for any file a program creates.
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0 || errno != EEXIST) {
            return fd;
        }
    }
    return -1;
}

std::optional<std::string> replaceWhole(const std::string& target, const struct stat* existing,
                                        std::string_view bytes) {
    std::string temporary;
    const int fd = createTemporary(target, temporary);
    if (fd < 0) {
        return reason(errno);
    }
    if (existing != nullptr) {
        // The replacement keeps the old file's permissions and, where allowed, its owner.
        (void)!::fchown(fd, existing->st_uid, existing->st_gid);
        (void)::fchmod(fd, existing->st_mode & 07777);
    }
    int error = writeAll(fd, bytes);
    if (error == 0 && ::fsync(fd) != 0) {
        error = errno;
    }
    if (::close(fd) != 0 && error == 0) {
        error = errno;
    }
    if (error == 0 && ::rename(temporary.c_str(), target.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        ::unlink(temporary.c_str());
        return reason(error);
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::string> writeOutputFile(const std::string& path, std::string_view bytes) {
    if (path.empty()) {
        return reason(ENOENT);
    }
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) {
        if (!S_ISREG(status.st_mode)) {
            return writeThrough(path, bytes);
        }
        // Through a symbolic link, the file it points to is the one to replace.
        char resolved[PATH_MAX];
        if (::realpath(path.c_str(), resolved) == nullptr) {
            return reason(errno);
        }
        return replaceWhole(resolved, &status, bytes);
    }
    if (errno != ENOENT) {
        return reason(errno);
    }
    if (path.back() == '/') {
        return reason(EISDIR);  // a folder's name, and no folder there to write into
    }
    return replaceWhole(path, nullptr, bytes);
}

}  // namespace curvemill::cli
