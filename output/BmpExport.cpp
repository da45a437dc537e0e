#include "output/BmpExport.h"

#include <cstdio>
#include <memory>
#include <new>
#include <vector>

#include "output/BmpLayout.h"

namespace curvemill {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

// Writes nothing to a file that could not be created, and says whether all bytes went out.
bool writeBytes(std::FILE* file, const void* bytes, std::size_t size) {
    return file != nullptr && std::fwrite(bytes, 1, size, file) == size;
}

class StagedWriter {
  public:
    StagedWriter(const std::string& path, int bitsPerPixel, const BmpExportSteps& steps)
        : path_(path), bitsPerPixel_(bitsPerPixel), steps_(steps) {}

    ExportOutcome run() {
        const ExportOutcome outcome = writeStages();
        if (outcome != ExportOutcome::Written) {
            file_.reset();
            File empty(std::fopen(path_.c_str(), "wb"));
        }
        return outcome;
    }

  private:
    bool cancelled() const { return steps_.cancel != nullptr && steps_.cancel->load(); }

    void progress(int percent) const {
        if (steps_.progress) {
            steps_.progress(percent);
        }
    }

    ExportOutcome writeStages() {
        // "wb" replaces an old file. Linux has no share modes; the file is ours from here on
        // because nobody else writes a graph under that name at the same moment.
        file_.reset(std::fopen(path_.c_str(), "wb"));
        bool ok = file_ != nullptr;
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }

        const bool paletted = bitsPerPixel_ == 8;
        BmpHeaderFields fields;
        fields.bitsPerPixel = static_cast<std::uint16_t>(bitsPerPixel_);
        fields.coloursUsed = paletted ? kBmpPaletteEntries : 0;
        fields.pixelOffset = kBmpHeadersSize + (paletted ? kBmpPaletteSize : 0);
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }

        const RgbPixels picture = steps_.makePicture ? steps_.makePicture() : RgbPixels{};
        ok = ok && picture.bits != nullptr && picture.width > 0 && picture.height > 0;
        fields.width = picture.width;
        fields.height = picture.height;
        progress(10);
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }

        const std::int64_t pixelSize = bmpPixelSize(picture.width, picture.height, bitsPerPixel_);
        // A file size field has 32 bits; a picture too large for it is refused, not wrapped.
        ok = ok && pixelSize + kBmpHeadersSize + kBmpPaletteSize <= 0xffffffffLL;
        std::vector<std::uint8_t> buffer;
        if (ok) {
            try {
                buffer.resize(static_cast<std::size_t>(pixelSize));
            } catch (const std::bad_alloc&) {
                ok = false;
            }
        }
        progress(20);
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }

        const Palette256 palette;
        if (ok) {
            packBmpRows(picture, bitsPerPixel_, palette, buffer);
        }
        progress(30);
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }

        fields.imageSize = static_cast<std::uint32_t>(pixelSize);
        fields.fileSize = static_cast<std::uint32_t>(pixelSize + fields.pixelOffset);
        const auto fileHeader = encodeFileHeader(fields);
        ok = ok && writeBytes(file_.get(), fileHeader.data(), fileHeader.size());
        progress(40);
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }

        // The information header and the palette go out in one write, as one block.
        std::vector<std::uint8_t> block;
        const auto infoHeader = encodeInfoHeader(fields);
        block.assign(infoHeader.begin(), infoHeader.end());
        if (paletted) {
            const auto table = palette.fileBytes();
            block.insert(block.end(), table.begin(), table.end());
        }
        ok = ok && writeBytes(file_.get(), block.data(), block.size());
        progress(50);
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }

        ok = ok && writeBytes(file_.get(), buffer.data(), buffer.size());
        buffer = {};
        ok = ok && std::fflush(file_.get()) == 0;
        std::FILE* file = file_.release();
        ok = file != nullptr && std::fclose(file) == 0 && ok;
        progress(100);
        if (cancelled()) {
            return ExportOutcome::Cancelled;
        }
        return ok ? ExportOutcome::Written : ExportOutcome::Failed;
    }

    const std::string& path_;
    int bitsPerPixel_;
    const BmpExportSteps& steps_;
    File file_;
};

}  // namespace

ExportOutcome exportBmp(const std::string& path, int bitsPerPixel, const BmpExportSteps& steps) {
    return StagedWriter(path, bitsPerPixel, steps).run();
}

}  // namespace curvemill
