// The byte layout of an uncompressed Windows bitmap file: row sizes, header fields and their bytes.
#pragma once

#include <array>
#include <cstdint>

namespace curvemill {

inline constexpr int kBmpFileHeaderSize = 14;
inline constexpr int kBmpInfoHeaderSize = 40;
inline constexpr int kBmpHeadersSize = kBmpFileHeaderSize + kBmpInfoHeaderSize;
// 256 entries of blue, green, red and a zero byte; only 8-bit files carry one.
inline constexpr int kBmpPaletteEntries = 256;
inline constexpr int kBmpPaletteSize = kBmpPaletteEntries * 4;

// Bytes of one stored row: width * bitsPerPixel / 8, rounded up to a multiple of 4.
std::int64_t bmpRowSize(int width, int bitsPerPixel);
// Bytes of all rows together (the image size field).
std::int64_t bmpPixelSize(int width, int height, int bitsPerPixel);
// The whole file: pixels, the palette of an 8-bit file and the two headers.
std::int64_t bmpFileSize(int width, int height, int bitsPerPixel);

// Every field of the file header and the information header, as stored.
struct BmpHeaderFields {
    std::uint32_t fileSize = 0;
    std::uint32_t pixelOffset = kBmpHeadersSize;
    std::int32_t width = 0;
    // Positive: the rows are stored bottom-up.
    std::int32_t height = 0;
    std::uint16_t bitsPerPixel = 24;
    std::uint32_t imageSize = 0;
    std::uint32_t coloursUsed = 0;
};

// The fields of a complete file of that size and depth.
BmpHeaderFields bmpHeaderFields(int width, int height, int bitsPerPixel);

// The 14 bytes of the file header ("BM", file size, reserved, pixel offset), little-endian.
std::array<std::uint8_t, kBmpFileHeaderSize> encodeFileHeader(const BmpHeaderFields& fields);
// The 40 bytes of the information header (one plane, no compression, no resolution).
std::array<std::uint8_t, kBmpInfoHeaderSize> encodeInfoHeader(const BmpHeaderFields& fields);

}  // namespace curvemill
