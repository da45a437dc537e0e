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

// Writes `content` into "<target>.tmp" beside `target`, flushes it to the disk, makes it
// read-only and renames it over `target`. Returns false (and removes the temporary file) when any
// step fails; `target` is then as it was. An empty `writer` means write(2).
bool replaceFileAtomically(const std::filesystem::path& target, std::string_view content,
                           const ChunkWriter& writer = {});

}  // namespace curvemill
