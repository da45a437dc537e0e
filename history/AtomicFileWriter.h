// Replacing a file so that a crash, a full disk or a kill mid-write leaves the old one intact.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string_view>

namespace curvemill {

// Writes up to `size` bytes of `data` to the open descriptor `fd`; returns how many were written,
// or -1 on failure, like write(2). Tests substitute one that fails or dies half way.
using ChunkWriter = std::function<long(int fd, const char* data, std::size_t size)>;

// Stores `content` as the file `target`, which is left read-only. A symbolic link stays a link:
// the file it leads to is the one replaced, in that file's own folder. The content goes into
// "<file>.tmp" beside the file, is flushed to the disk, made read-only and renamed over the file.
// When the folder takes no new file but the file itself may be written, it is overwritten in
// place and flushed instead (on a failure its old bytes are put back as far as the disk allows).
// A file that neither this process may write nor, as its owner, make writable (another user's
// read-only file) is not replaced. Returns false when the content was not stored; the old file is
// then as it was. An empty `writer` means write(2).
bool replaceFileAtomically(const std::filesystem::path& target, std::string_view content,
                           const ChunkWriter& writer = {});

}  // namespace curvemill
