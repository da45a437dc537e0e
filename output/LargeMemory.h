// Memory for buffers of megabytes (a picture's pixels), taken straight from the system and in huge
// pages where it offers them: touching 8 MB a 4 KiB page at a time costs the kernel one fault a
// page, more than drawing the picture itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace curvemill {

struct LargeMemory {
    // At least the bytes asked for, zero-filled.
    std::uint8_t* data = nullptr;
    // What the system handed out, for giving it back.
    void* mapping = nullptr;
    std::size_t mappedBytes = 0;
};

// Asks for huge pages wherever they fit under [data, data + bytes), before the memory is first
// touched (a list just reserved). Advice only, and none for less than one huge page.
void adviseHugePages(const void* data, std::size_t bytes);

// Nothing when the system cannot hand out that much.
std::optional<LargeMemory> takeLargeMemory(std::size_t bytes);
void giveBackLargeMemory(const LargeMemory& memory);

}  // namespace curvemill
