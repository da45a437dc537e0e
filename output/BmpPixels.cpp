#include "output/BmpPixels.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "output/BmpLayout.h"

namespace curvemill {

void packBmpRows(const RgbPixels& pixels, int bitsPerPixel, const Palette256& palette,
                 std::span<std::uint8_t> out) {
    const std::int64_t rowSize = bmpRowSize(pixels.width, bitsPerPixel);
    NearestColourCache nearest(palette);
    for (int stored = 0; stored < pixels.height; ++stored) {
        const int y = pixels.height - 1 - stored;
        std::uint8_t* row = out.data() + stored * rowSize;
        const std::int64_t used = static_cast<std::int64_t>(pixels.width) * bitsPerPixel / 8;
        std::fill(row + used, row + rowSize, std::uint8_t{0});
        const auto* source =
            reinterpret_cast<const std::uint32_t*>(pixels.bits + y * pixels.bytesPerLine);
        if (bitsPerPixel == 8) {
            for (int x = 0; x < pixels.width; ++x) {
                row[x] = nearest(source[x]);
            }
            continue;
        }
        for (int x = 0; x < pixels.width; ++x) {
            const std::uint32_t rgb = source[x];
            row[3 * x] = static_cast<std::uint8_t>(rgb & 0xff);
            row[3 * x + 1] = static_cast<std::uint8_t>((rgb >> 8) & 0xff);
            row[3 * x + 2] = static_cast<std::uint8_t>((rgb >> 16) & 0xff);
        }
    }
}

void encodeBmpInto(const RgbPixels& pixels, int bitsPerPixel, std::span<std::uint8_t> out) {
    const BmpHeaderFields fields = bmpHeaderFields(pixels.width, pixels.height, bitsPerPixel);
    std::uint8_t* bytes = out.data();
    const auto fileHeader = encodeFileHeader(fields);
    const auto infoHeader = encodeInfoHeader(fields);
    std::memcpy(bytes, fileHeader.data(), fileHeader.size());
    std::memcpy(bytes + kBmpFileHeaderSize, infoHeader.data(), infoHeader.size());
    const Palette256 palette;
    if (bitsPerPixel == 8) {
        const auto table = palette.fileBytes();
        std::memcpy(bytes + kBmpHeadersSize, table.data(), table.size());
    }
    packBmpRows(pixels, bitsPerPixel, palette,
                std::span<std::uint8_t>(bytes + fields.pixelOffset, fields.imageSize));
}

std::string encodeBmp(const RgbPixels& pixels, int bitsPerPixel) {
    std::string file(
        static_cast<std::size_t>(bmpFileSize(pixels.width, pixels.height, bitsPerPixel)), '\0');
    encodeBmpInto(
        pixels, bitsPerPixel,
        std::span<std::uint8_t>(reinterpret_cast<std::uint8_t*>(file.data()), file.size()));
    return file;
}

}  // namespace curvemill
