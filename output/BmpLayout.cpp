#include "output/BmpLayout.h"

namespace curvemill {

namespace {

template <std::size_t N>
void put16(std::array<std::uint8_t, N>& bytes, int at, std::uint16_t value) {
    bytes[at] = static_cast<std::uint8_t>(value & 0xff);
    bytes[at + 1] = static_cast<std::uint8_t>(value >> 8);
}

template <std::size_t N>
void put32(std::array<std::uint8_t, N>& bytes, int at, std::uint32_t value) {
    for (int i = 0; i < 4; ++i) {
        bytes[at + i] = static_cast<std::uint8_t>((value >> (8 * i)) & 0xff);
    }
}

}  // namespace

std::int64_t bmpRowSize(int width, int bitsPerPixel) {
    const std::int64_t bytes = static_cast<std::int64_t>(width) * bitsPerPixel / 8;
    return (bytes + 3) / 4 * 4;
}

std::int64_t bmpPixelSize(int width, int height, int bitsPerPixel) {
    return bmpRowSize(width, bitsPerPixel) * height;
}

std::int64_t bmpFileSize(int width, int height, int bitsPerPixel) {
    const std::int64_t palette = bitsPerPixel == 8 ? kBmpPaletteSize : 0;
    return bmpPixelSize(width, height, bitsPerPixel) + palette + kBmpHeadersSize;
}

BmpHeaderFields bmpHeaderFields(int width, int height, int bitsPerPixel) {
    BmpHeaderFields fields;
    const bool paletted = bitsPerPixel == 8;
    fields.width = width;
    fields.height = height;
    fields.bitsPerPixel = static_cast<std::uint16_t>(bitsPerPixel);
    fields.coloursUsed = paletted ? kBmpPaletteEntries : 0;
    fields.pixelOffset = kBmpHeadersSize + (paletted ? kBmpPaletteSize : 0);
    fields.imageSize = static_cast<std::uint32_t>(bmpPixelSize(width, height, bitsPerPixel));
    fields.fileSize = static_cast<std::uint32_t>(bmpFileSize(width, height, bitsPerPixel));
    return fields;
}

std::array<std::uint8_t, kBmpFileHeaderSize> encodeFileHeader(const BmpHeaderFields& fields) {
    std::array<std::uint8_t, kBmpFileHeaderSize> bytes{};
    bytes[0] = 'B';
    bytes[1] = 'M';
    put32(bytes, 2, fields.fileSize);
    put32(bytes, 10, fields.pixelOffset);
    return bytes;
}

std::array<std::uint8_t, kBmpInfoHeaderSize> encodeInfoHeader(const BmpHeaderFields& fields) {
    std::array<std::uint8_t, kBmpInfoHeaderSize> bytes{};
    put32(bytes, 0, kBmpInfoHeaderSize);
    put32(bytes, 4, static_cast<std::uint32_t>(fields.width));
    put32(bytes, 8, static_cast<std::uint32_t>(fields.height));
    put16(bytes, 12, 1);
    put16(bytes, 14, fields.bitsPerPixel);
    put32(bytes, 20, fields.imageSize);
    put32(bytes, 32, fields.coloursUsed);
    return bytes;
}

}  // namespace curvemill
