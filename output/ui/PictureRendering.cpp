#include "output/ui/PictureRendering.h"

#include <algorithm>

#include <QPainter>

#include "output/ui/ImageFiles.h"

namespace curvemill {

namespace {

QSize toQSize(PixelSize size) {
    return {size.width, size.height};
}

PixelSize toPixelSize(QSize size) {
    return {size.width(), size.height()};
}

}  // namespace

QRect sourceRect(const GraphPicture& picture, ExportSource source) {
    const QRect screen(QPoint(0, 0), picture.screenSize);
    switch (source) {
        case ExportSource::Selection:
            if (picture.selection && !picture.selection->intersected(screen).isEmpty()) {
                return picture.selection->intersected(screen);
            }
            return screen;
        case ExportSource::Document:
            return QRect(QPoint(0, 0), picture.documentSize);
        case ExportSource::Screen:
            break;
    }
    return screen;
}

PixelSize sourceSize(const GraphPicture& picture, ExportSource source) {
    return toPixelSize(sourceRect(picture, source).size());
}

QImage renderPicture(const GraphPicture& picture, ExportSource source, double scale) {
    if (source == ExportSource::Screen && scale == 1.0 && picture.screenPixels) {
        QImage shown = picture.screenPixels().convertToFormat(QImage::Format_RGB32);
        shown.setDevicePixelRatio(1.0);
        return shown;
    }
    const QRect part = sourceRect(picture, source);
    QImage image = blankPicture(toQSize(scaledSize(toPixelSize(part.size()), scale)));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawSource(painter, picture, source, image.size());
    return image;
}

void drawSource(QPainter& painter, const GraphPicture& picture, ExportSource source, QSize pixels) {
    if (!picture.draw) {
        return;
    }
    if (source == ExportSource::Document) {
        picture.draw(painter, pixels, PictureExtent::Document);
        return;
    }
    // A selection is its part of the whole screen drawn at the scale, so the curves and labels
    // sit exactly where they were selected. The size may have been capped: the scale actually
    // used follows from the width.
    const QRect part = sourceRect(picture, source);
    const double used = static_cast<double>(pixels.width()) / std::max(1, part.width());
    painter.save();
    painter.setClipRect(QRect(QPoint(0, 0), pixels));
    painter.translate(-part.x() * used, -part.y() * used);
    const QSize screen(qRound(picture.screenSize.width() * used),
                       qRound(picture.screenSize.height() * used));
    picture.draw(painter, screen, PictureExtent::Screen);
    painter.restore();
}

}  // namespace curvemill
