// Turns a 32-bit picture into the stored rows of a bitmap file: bottom-up, padded, BGR or indices.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "output/Palette256.h"

namespace curvemill {

// A picture in memory, top row first: each pixel one 32-bit word 0x??RRGGBB (the layout of
// Qt's RGB32 images), rows `bytesPerLine` apart.
struct RgbPixels {
    const std::uint8_t* bits = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t bytesPerLine = 0;

    std::uint32_t at(int x, int y) const {
        return reinterpret_cast<const std::uint32_t*>(bits + y * bytesPerLine)[x];
    }
};

// Fills `out` (bmpPixelSize bytes) with the rows of `pixels`, bottom row first, each padded with
// zero bytes to a multiple of 4. At 24 bits each pixel is blue, green, red; at 8 bits it is the
// index of its nearest colour in `palette`.
void packBmpRows(const RgbPixels& pixels, int bitsPerPixel, const Palette256& palette,
                 std::span<std::uint8_t> out);

// A whole file in memory, through the same layout and packing as the staged writer.
std::string encodeBmp(const RgbPixels& pixels, int bitsPerPixel);
// The same into `out`, which holds exactly bmpFileSize bytes (a buffer of the caller's kind).
void encodeBmpInto(const RgbPixels& pixels, int bitsPerPixel, std::span<std::uint8_t> out);

}  // namespace curvemill
