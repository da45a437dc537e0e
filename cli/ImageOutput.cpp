#include "cli/ImageOutput.h"

#include <new>
#include <ostream>

#include "cli/Command.h"
#include "cli/Printable.h"
#include "files/SafeFileWriter.h"

namespace curvemill::cli {

std::optional<ImageFormat> outputFormat(const std::string& path, UsageErrors& usage) {
    const QString name = QString::fromLocal8Bit(path.data(), static_cast<qsizetype>(path.size()));
    const qsizetype slash = name.lastIndexOf(u'/');
    const qsizetype dot = name.lastIndexOf(u'.');
    if (dot <= slash + 1) {  // no extension (a leading dot starts a hidden name, not one)
        return ImageFormat::Png;
    }
    if (const std::optional<ImageFormat> format = formatForPath(name)) {
        return format;
    }
    usage.report() << "cannot tell the format of " << cli::quoted(path)
                   << " from its extension; use .png, .bmp, .svg or .pdf\n";
    return std::nullopt;
}

std::optional<int> outputDepth(const std::optional<std::string>& value, UsageErrors& usage) {
    if (!value || *value == "24") {
        return 24;
    }
    if (*value == "8") {
        return 8;
    }
    usage.report() << "--depth must be 24 or 8, not " << cli::quoted(*value) << "\n";
    return std::nullopt;
}

int writeGraphImage(const std::string& path, ImageFormat format, const PageDrawing& draw,
                    QSize pixels, const ImageFileOptions& options, std::ostream& out) {
    std::optional<QByteArray> bytes;
    try {
        bytes = encodeGraphFile(format, draw, pixels, options);
    } catch (const std::bad_alloc&) {
        bytes.reset();
    }
    const bool raster = format == ImageFormat::Png || format == ImageFormat::Bmp;
    if (!bytes && raster) {
        // The picture is drawn whole in memory first; a size the memory cannot hold is refused
        // here rather than left to abort the program.
        // 4 bytes a pixel while drawn, and a .bmp's own pixels besides.
        const long long bytesPerPixel =
            4 + (format == ImageFormat::Bmp ? options.bitsPerPixel / 8 : 0);
        const long long megabytes =
            (bytesPerPixel * pixels.width() * pixels.height() + (1 << 20) - 1) >> 20;
        out << "CANNOT WRITE " << cli::quoted(path) << ": not enough memory for a "
            << pixels.width() << 'x' << pixels.height() << " picture (" << megabytes << " MB)\n";
        return kExitRefused;
    }
    std::optional<std::string> failure;
    if (!bytes) {
        failure = "the picture could not be encoded";
    } else if (path == "-") {
        out.write(bytes->constData(), static_cast<std::streamsize>(bytes->size()));
        if (!out.flush()) {
            return kExitRefused;  // nowhere left to say so but the exit status
        }
    } else {
        failure = writeFileSafely(
            path, std::string_view(bytes->constData(), static_cast<std::size_t>(bytes->size())));
    }
    if (failure) {
        out << "CANNOT WRITE " << cli::quoted(path) << ": " << *failure << '\n';
        return kExitRefused;
    }
    return kExitOk;
}

}  // namespace curvemill::cli
