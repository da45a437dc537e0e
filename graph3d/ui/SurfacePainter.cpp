#include "graph3d/ui/SurfacePainter.h"

#include "graph3d/PixelRaster.h"
#include "graph3d/ui/GridBoxPainter.h"

#include <QPaintDevice>
#include <algorithm>

#include <QImage>
#include <QPainter>
#include <QPen>
#include <QPoint>

namespace curvemill {

namespace {

QColor toQColor(std::uint32_t colour) {
    return QColor(redOf(colour), greenOf(colour), blueOf(colour));
}

QPoint toQPoint(ScreenPoint p) {
    return QPoint(p.x, p.y);
}

}  // namespace

// Cells are filled without antialiasing: blended edges of neighbouring cells would let the
// background show through as a fine mesh. The figure is sharp anyway because it is laid out in
// the target's own device pixels, never scaled up.
QPainterSurfaceSink::QPainterSurfaceSink(QPainter& painter, QSize devicePixels)
    : painter_(painter) {
    const QPaintDevice* device = painter.device();
    const double ratio =
        device != nullptr && device->devicePixelRatioF() > 0 ? device->devicePixelRatioF() : 1.0;
    // Combined with the caller's transform and clip: an export of a selected part places the
    // figure by translating the painter.
    painter.setWorldTransform(QTransform::fromScale(1 / ratio, 1 / ratio), true);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setClipRect(QRect(QPoint(0, 0), devicePixels), Qt::IntersectClip);
}

void QPainterSurfaceSink::usePen(std::uint32_t colour) {
    if (colour != penColour_) {
        painter_.setPen(QPen(toQColor(colour), 0));
        penColour_ = colour;
        brushMatches_ = false;
    }
}

void QPainterSurfaceSink::usePenAndBrush(std::uint32_t colour) {
    usePen(colour);
    if (!brushMatches_) {
        painter_.setBrush(toQColor(colour));
        brushMatches_ = true;
    }
}

void QPainterSurfaceSink::polygon(const ScreenPoint* corners, int count, std::uint32_t colour) {
    usePenAndBrush(colour);
    QPoint points[4];
    for (int n = 0; n < count && n < 4; ++n) {
        points[n] = toQPoint(corners[n]);
    }
    painter_.drawConvexPolygon(points, count);
}

void QPainterSurfaceSink::line(ScreenPoint from, ScreenPoint to, std::uint32_t colour) {
    usePen(colour);
    painter_.drawLine(toQPoint(from), toQPoint(to));
}

void QPainterSurfaceSink::pixel(ScreenPoint at, std::uint32_t colour) {
    usePen(colour);
    painter_.drawPoint(toQPoint(at));
}

void QPainterSurfaceSink::square(int left, int top, int right, int bottom, std::uint32_t colour) {
    painter_.fillRect(QRect(QPoint(left, top), QPoint(right - 1, bottom - 1)), toQColor(colour));
}

namespace {

// The image the painter draws on when its pixels can be written directly: a 32-bit image of its
// own (not shared with a copy), painted without a transform or clip of the caller's.
QImage* directImage(QPainter& painter) {
    QPaintDevice* device = painter.device();
    if (device == nullptr || device->devType() != QInternal::Image ||
        !painter.worldTransform().isIdentity() || painter.hasClipping()) {
        return nullptr;
    }
    auto* image = static_cast<QImage*>(device);
    const QImage::Format format = image->format();
    const bool wordPixels = format == QImage::Format_RGB32 || format == QImage::Format_ARGB32 ||
                            format == QImage::Format_ARGB32_Premultiplied;
    return wordPixels && image->isDetached() ? image : nullptr;
}

}  // namespace

void paintSurface(QPainter& painter, SurfaceScene& scene, QSize devicePixels) {
    if (devicePixels.isEmpty()) {
        return;
    }
    const Placement placement =
        fitFigure(scene.view, scene.grid, devicePixels.width(), devicePixels.height());
    paintGridBoxLines(painter, scene, placement, devicePixels);
    if (QImage* image = directImage(painter)) {
        PixelBuffer buffer;
        buffer.bits = reinterpret_cast<std::uint32_t*>(image->bits());
        buffer.width = std::min(devicePixels.width(), image->width());
        buffer.height = std::min(devicePixels.height(), image->height());
        buffer.stride = image->bytesPerLine() / 4;
        RasterSurfaceSink sink(buffer);
        drawSurface(scene, devicePixels.width(), devicePixels.height(), sink);
        paintGridBoxLabels(painter, scene, placement, devicePixels);
        return;
    }
    painter.save();
    {
        QPainterSurfaceSink sink(painter, devicePixels);
        drawSurface(scene, devicePixels.width(), devicePixels.height(), sink);
    }
    painter.restore();
    paintGridBoxLabels(painter, scene, placement, devicePixels);
}

}  // namespace curvemill
