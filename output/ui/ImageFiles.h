// Graph pictures as files: BMP (our own writer), PNG (ours, through zlib), SVG (vector, text as
// text) and PDF (vector).
#pragma once

#include <functional>
#include <optional>

#include <QByteArray>
#include <QSize>
#include <QString>

class QImage;
class QPainter;

namespace curvemill {

enum class ImageFormat { Bmp, Png, Svg, Pdf };

// The format a file name's extension asks for (".bmp", ".png", ".svg", ".pdf", any letter case).
std::optional<ImageFormat> formatForPath(const QString& path);
// "bmp", "png", "svg" or "pdf".
QString formatExtension(ImageFormat format);

// Draws a whole picture into a target of `pixels`.
using PageDrawing = std::function<void(QPainter& painter, QSize pixels)>;

struct ImageFileOptions {
    // 24 or 8; only bitmap files have a depth.
    int bitsPerPixel = 24;
    // Written into SVG and PDF files as their title.
    QString title = QStringLiteral("CurveMill graph");
};

// A white RGB32 image of `pixels`; a large one on memory of its own (see LargeMemory.h). Null when
// the memory cannot be had.
QImage blankPicture(QSize pixels);
// A raster image of `pixels` drawn on white.
QImage drawnImage(const PageDrawing& draw, QSize pixels);

// The bytes of a file of `format`. BMP and PNG draw a raster image of `pixels`; SVG and PDF draw
// the same picture as vector graphics on a page of that many pixels at 96 per inch. Nothing when
// encoding failed.
std::optional<QByteArray> encodeGraphFile(ImageFormat format, const PageDrawing& draw, QSize pixels,
                                          const ImageFileOptions& options = {});
// The bytes of a bitmap or PNG file of an image already drawn.
std::optional<QByteArray> encodeRasterFile(ImageFormat format, const QImage& image,
                                           const ImageFileOptions& options = {});

// Writes bytes to `path` whole or not at all: an old file is replaced only once every byte is
// written. Returns why it failed, or nothing.
std::optional<QString> writeWholeFile(const QString& path, const QByteArray& bytes);

}  // namespace curvemill
