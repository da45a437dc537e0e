// Writing a file so that a crash, a full disk or a kill mid-write leaves the old one intact.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace curvemill {

// Writes up to `size` bytes of `data` to the open descriptor `fd`; returns how many were written,
// or -1 with errno set on failure, like write(2). Tests substitute one that fails or dies half way.
using ChunkWriter = std::function<long(int fd, const char* data, std::size_t size)>;

struct WriteOptions {
    // Leave the file read-only (the entries file); otherwise a replaced file keeps its old
    // permissions and a new one gets the umask's.
    bool readOnly = false;
    // Empty means write(2).
    ChunkWriter writer;
};

// Stores `content` as the file `target`, taken byte for byte. A regular file, or a name where
// nothing exists yet, is replaced whole: the content goes into a temporary file of its own name
// beside it (two writers never share one), is flushed to the disk and renamed over it. When the
// folder takes no new file but the file itself may be written, it is overwritten in place and
// flushed instead (on a failure its old bytes are put back as far as the disk allows). A symbolic
// link stays a link: the file it leads to is the one replaced, in that file's own folder. Anything
// else that exists (a device such as /dev/null, a FIFO, a terminal, a folder) is written straight
// through, since a rename would replace it by a regular file; a folder then fails with its reason.
// A file that this process may neither write nor, as its owner, make writable (another user's
// read-only file) is not replaced. Returns why the content was not stored (the system's words),
// or nothing; on a failure the old file is as it was. The first save into a folder also clears
// what earlier saves killed before their rename left there (see removeOrphans).
std::optional<std::string> writeFileSafely(const std::filesystem::path& target,
                                           std::string_view content,
                                           const WriteOptions& options = {});

// The whole content of `path`, or why it cannot be read (the system's words).
struct ReadResult {
    std::optional<std::string> bytes;
    std::string error;
    int errorCode = 0;  // the errno behind `error`
};
ReadResult readWholeFile(const std::filesystem::path& path);

}  // namespace curvemill
