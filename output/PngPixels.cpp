#include "output/PngPixels.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <vector>

namespace curvemill {

namespace {

constexpr std::array<std::uint8_t, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
constexpr std::uint8_t kFilterUp = 2;
// Deflate's output is collected this many bytes at a time.
constexpr std::size_t kOutputStep = 1 << 16;

void putU32(std::string& out, std::uint32_t value) {
    out.push_back(static_cast<char>(value >> 24));
    out.push_back(static_cast<char>(value >> 16));
    out.push_back(static_cast<char>(value >> 8));
    out.push_back(static_cast<char>(value));
}

// Ends a chunk whose type starts at `typeAt`: its CRC covers the type and the data.
void putCrc(std::string& out, std::size_t typeAt) {
    const auto* from = reinterpret_cast<const Bytef*>(out.data() + typeAt);
    putU32(out, static_cast<std::uint32_t>(crc32(0, from, static_cast<uInt>(out.size() - typeAt))));
}

void putChunk(std::string& out, const char* type, const std::string& data) {
    putU32(out, static_cast<std::uint32_t>(data.size()));
    const std::size_t typeAt = out.size();
    out.append(type, 4);
    out += data;
    putCrc(out, typeAt);
}

// One picture row as PNG's red, green, blue bytes.
void unpackRow(const RgbPixels& pixels, int y, std::uint8_t* rgb) {
    const auto* words =
        reinterpret_cast<const std::uint32_t*>(pixels.bits + y * pixels.bytesPerLine);
    for (int x = 0; x < pixels.width; ++x) {
        const std::uint32_t word = words[x];
        rgb[3 * x] = static_cast<std::uint8_t>(word >> 16);
        rgb[3 * x + 1] = static_cast<std::uint8_t>(word >> 8);
        rgb[3 * x + 2] = static_cast<std::uint8_t>(word);
    }
}

// Every row is stored as its difference from the row above (PNG's "Up" filter): a graph is mostly
// rows equal to the one above, which become runs of zeros that run-length deflate packs at a
// fraction of the time of zlib's default search, into a file no larger.
void filterUp(const std::uint8_t* row, const std::uint8_t* above, std::size_t size,
              std::uint8_t* out) {
    out[0] = kFilterUp;
    for (std::size_t i = 0; i < size; ++i) {
        out[1 + i] = static_cast<std::uint8_t>(row[i] - above[i]);
    }
}

}  // namespace

std::optional<std::string> encodePng(const RgbPixels& pixels, int dotsPerMeter) {
    std::string file(reinterpret_cast<const char*>(kSignature.data()), kSignature.size());
    std::string header;
    putU32(header, static_cast<std::uint32_t>(pixels.width));
    putU32(header, static_cast<std::uint32_t>(pixels.height));
    header += std::string{8, 2, 0, 0, 0};  // 8 bits a sample, RGB, deflate, filtered, in order
    putChunk(file, "IHDR", header);
    if (dotsPerMeter > 0) {
        std::string resolution;
        putU32(resolution, static_cast<std::uint32_t>(dotsPerMeter));
        putU32(resolution, static_cast<std::uint32_t>(dotsPerMeter));
        resolution.push_back(1);  // per metre
        putChunk(file, "pHYs", resolution);
    }

    z_stream stream{};
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, 15, 8, Z_RLE) != Z_OK) {
        return std::nullopt;
    }
    const std::size_t rowSize = static_cast<std::size_t>(pixels.width) * 3;
    std::vector<std::uint8_t> rows(2 * rowSize, 0);
    std::vector<std::uint8_t> filtered(1 + rowSize);
    // The compressed rows go straight into the file, behind an IDAT header whose length is filled
    // in at the end.
    const std::size_t dataChunk = file.size();
    putU32(file, 0);
    file.append("IDAT", 4);
    std::size_t used = file.size();
    bool ok = true;
    for (int y = 0; y <= pixels.height && ok; ++y) {
        const bool last = y == pixels.height;
        if (!last) {
            std::uint8_t* row = rows.data() + (y % 2) * rowSize;
            const std::uint8_t* above = rows.data() + ((y + 1) % 2) * rowSize;
            unpackRow(pixels, y, row);
            filterUp(row, above, rowSize, filtered.data());
            stream.next_in = filtered.data();
            stream.avail_in = static_cast<uInt>(filtered.size());
        }
        int status = Z_OK;
        do {
            if (used == file.size()) {
                file.resize(file.size() + kOutputStep);
            }
            stream.next_out = reinterpret_cast<Bytef*>(file.data() + used);
            stream.avail_out = static_cast<uInt>(file.size() - used);
            status = deflate(&stream, last ? Z_FINISH : Z_NO_FLUSH);
            used = file.size() - stream.avail_out;
        } while (status == Z_OK && (stream.avail_out == 0 || (last && status != Z_STREAM_END)));
        ok = last ? status == Z_STREAM_END : status == Z_OK || status == Z_BUF_ERROR;
    }
    deflateEnd(&stream);
    if (!ok) {
        return std::nullopt;
    }
    file.resize(used);
    std::string length;
    putU32(length, static_cast<std::uint32_t>(used - dataChunk - 8));
    file.replace(dataChunk, 4, length);
    putCrc(file, dataChunk + 4);
    putChunk(file, "IEND", std::string());
    return file;
}

}  // namespace curvemill
