#include "output/ui/ImageFiles.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include "files/SafeFileWriter.h"
#include "output/BmpLayout.h"
#include "output/BmpPixels.h"
#include "output/LargeMemory.h"
#include "output/PngPixels.h"

namespace curvemill {

namespace {

// Vector pages are drawn this many times finer than their nominal pixels, with pens and fonts
// as much wider: positions the drawing truncates to whole pixels then land on a finer grid.
constexpr int kVectorDetail = 3;
constexpr int kNominalDpi = 96;

// Pictures of this many bytes and more are drawn on memory of their own.
constexpr std::size_t kLargePicture = std::size_t{2} << 20;

void releasePixels(void* memory) {
    auto* held = static_cast<LargeMemory*>(memory);
    giveBackLargeMemory(*held);
    delete held;
}

RgbPixels pixelsOf(const QImage& image) {
    return RgbPixels{image.constBits(), image.width(), image.height(), image.bytesPerLine()};
}

std::optional<QByteArray> encodeSvg(const PageDrawing& draw, QSize pixels,
                                    const ImageFileOptions& options) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator svg;
    svg.setOutputDevice(&buffer);
    svg.setSize(pixels);
    svg.setViewBox(QRect(QPoint(0, 0), pixels * kVectorDetail));
    svg.setResolution(kNominalDpi);
    svg.setTitle(options.title);
    QPainter painter;
    if (!painter.begin(&svg)) {
        return std::nullopt;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(QPoint(0, 0), pixels * kVectorDetail), Qt::white);
    draw(painter, pixels * kVectorDetail);
    painter.end();
    return bytes;
}

std::optional<QByteArray> encodePdf(const PageDrawing& draw, QSize pixels,
                                    const ImageFileOptions& options) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setTitle(options.title);
        pdf.setCreator(QStringLiteral("CurveMill"));
        pdf.setResolution(kNominalDpi * kVectorDetail);
        const QSizeF points(pixels.width() * 72.0 / kNominalDpi,
                            pixels.height() * 72.0 / kNominalDpi);
        pdf.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
        QPainter painter;
        if (!painter.begin(&pdf)) {
            return std::nullopt;
        }
        painter.setRenderHint(QPainter::Antialiasing);
        draw(painter, pixels * kVectorDetail);
        painter.end();
    }
    return bytes;
}

}  // namespace

std::optional<ImageFormat> formatForPath(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == u"bmp") {
        return ImageFormat::Bmp;
    }
    if (suffix == u"png") {
        return ImageFormat::Png;
    }
    if (suffix == u"svg") {
        return ImageFormat::Svg;
    }
    if (suffix == u"pdf") {
        return ImageFormat::Pdf;
    }
    return std::nullopt;
}

QString formatExtension(ImageFormat format) {
    switch (format) {
        case ImageFormat::Bmp:
            return QStringLiteral("bmp");
        case ImageFormat::Png:
            return QStringLiteral("png");
        case ImageFormat::Svg:
            return QStringLiteral("svg");
        case ImageFormat::Pdf:
            return QStringLiteral("pdf");
    }
    return {};
}

QImage blankPicture(QSize pixels) {
    const std::size_t bytes =
        pixels.isEmpty() ? 0 : std::size_t(pixels.width()) * 4 * std::size_t(pixels.height());
    std::optional<LargeMemory> memory;
    if (bytes >= kLargePicture) {
        memory = takeLargeMemory(bytes);
        if (!memory) {
            return QImage();
        }
    }
    QImage image = memory
                       ? QImage(memory->data, pixels.width(), pixels.height(), pixels.width() * 4,
                                QImage::Format_RGB32, releasePixels, new LargeMemory(*memory))
                       : QImage(pixels, QImage::Format_RGB32);
    if (!image.isNull()) {
        image.fill(Qt::white);
    }
    return image;
}

QImage drawnImage(const PageDrawing& draw, QSize pixels) {
    QImage image = blankPicture(pixels);
    if (image.isNull()) {  // too big for the memory: nothing to paint on
        return image;
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter, pixels);
    return image;
}

std::optional<QByteArray> encodeRasterFile(ImageFormat format, const QImage& image,
                                           const ImageFileOptions& options) {
    if (image.isNull()) {
        return std::nullopt;
    }
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    if (format == ImageFormat::Bmp) {
        const int depth = options.bitsPerPixel == 8 ? 8 : 24;
        QByteArray file(static_cast<qsizetype>(bmpFileSize(rgb.width(), rgb.height(), depth)),
                        Qt::Uninitialized);
        encodeBmpInto(pixelsOf(rgb), depth,
                      std::span<std::uint8_t>(reinterpret_cast<std::uint8_t*>(file.data()),
                                              static_cast<std::size_t>(file.size())));
        return file;
    }
    if (format != ImageFormat::Png) {
        return std::nullopt;
    }
    const std::optional<std::string> png = encodePng(pixelsOf(rgb), rgb.dotsPerMeterX());
    if (!png) {
        return std::nullopt;
    }
    return QByteArray(png->data(), static_cast<qsizetype>(png->size()));
}

std::optional<QByteArray> encodeGraphFile(ImageFormat format, const PageDrawing& draw, QSize pixels,
                                          const ImageFileOptions& options) {
    if (pixels.isEmpty()) {
        return std::nullopt;
    }
    switch (format) {
        case ImageFormat::Bmp:
        case ImageFormat::Png:
            return encodeRasterFile(format, drawnImage(draw, pixels), options);
        case ImageFormat::Svg:
            return encodeSvg(draw, pixels, options);
        case ImageFormat::Pdf:
            return encodePdf(draw, pixels, options);
    }
    return std::nullopt;
}

std::optional<QString> writeWholeFile(const QString& path, const QByteArray& bytes) {
    const std::optional<std::string> failure = writeFileSafely(
        QFile::encodeName(path).toStdString(),
        std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    if (failure) {
        return QString::fromStdString(*failure);
    }
    return std::nullopt;
}

}  // namespace curvemill
