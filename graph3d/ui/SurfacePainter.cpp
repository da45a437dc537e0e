#include "graph3d/ui/SurfacePainter.h"

#include "graph2d/ui/GraphPens.h"
#include "graph3d/PixelRaster.h"
#include "graph3d/ui/GridBoxPainter.h"

#include <QPaintDevice>
#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
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
    drawInDevicePixels(painter, devicePixels);
    painter.setRenderHint(QPainter::Antialiasing, false);
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

// Vector targets (SVG, PDF, a printer, the preview's picture) keep every element and every
// change of pen: a 500 x 500 grid handed over cell by cell makes a file of hundreds of megabytes,
// and their viewers antialias each cell alone, so the background shows through as a hairline
// between neighbours. So the cells of one line of the pass become one path per colour (a line
// never hides part of itself, and the lines still come far to near), grid lines become one path
// per colour for the whole figure and so do dots (where two meet, which one is on top does not
// show), and each
// filled cell is outlined in its own colour by one device pixel, so that neighbours overlap by
// more than the antialiasing fringe.
class PathSurfaceSink : public SurfaceSink {
  public:
    PathSurfaceSink(QPainter& painter, QSize devicePixels) : painter_(painter) {
        drawInDevicePixels(painter, devicePixels);
        painter.setRenderHint(QPainter::Antialiasing, true);
    }
    ~PathSurfaceSink() override { flush(); }
    PathSurfaceSink(const PathSurfaceSink&) = delete;
    PathSurfaceSink& operator=(const PathSurfaceSink&) = delete;

    void polygon(const ScreenPoint* corners, int count, std::uint32_t colour) override {
        if (count <= 0) {
            return;
        }
        QPainterPath& path = pathFor(Kind::Cells, colour);
        // One orientation for every cell: under the winding rule a cell seen from behind would
        // otherwise cancel a neighbour it overlaps instead of joining it.
        long long twiceArea = 0;
        for (int n = 0; n < count; ++n) {
            const ScreenPoint a = corners[n];
            const ScreenPoint b = corners[(n + 1) % count];
            twiceArea += static_cast<long long>(a.x) * b.y - static_cast<long long>(b.x) * a.y;
        }
        const int first = twiceArea < 0 ? count - 1 : 0;
        const int step = twiceArea < 0 ? -1 : 1;
        path.moveTo(toQPoint(corners[first]));
        for (int n = 1; n < count; ++n) {
            path.lineTo(toQPoint(corners[first + n * step]));
        }
        path.closeSubpath();
    }
    void line(ScreenPoint from, ScreenPoint to, std::uint32_t colour) override {
        QPainterPath& path = pathFor(Kind::Lines, colour);
        path.moveTo(toQPoint(from));
        path.lineTo(toQPoint(to));
    }
    void pixel(ScreenPoint at, std::uint32_t colour) override {
        pathFor(Kind::Dots, colour).addRect(at.x, at.y, 1, 1);
    }
    void square(int left, int top, int right, int bottom, std::uint32_t colour) override {
        pathFor(Kind::Dots, colour).addRect(left, top, right - left, bottom - top);
    }
    void lineDone() override {
        if (kind_ == Kind::Cells) {
            flush();
        }
    }

  private:
    enum class Kind { Cells, Lines, Dots };

    QPainterPath& pathFor(Kind kind, std::uint32_t colour) {
        if (kind != kind_) {
            flush();
            kind_ = kind;
        }
        const auto [at, added] = index_.try_emplace(colour, paths_.size());
        if (added) {
            paths_.emplace_back(colour, QPainterPath());
            paths_.back().second.setFillRule(Qt::WindingFill);
        }
        return paths_[at->second].second;
    }
    void flush() {
        for (const auto& [rgb, path] : paths_) {
            const QColor colour = toQColor(rgb);
            switch (kind_) {
                case Kind::Cells:
                    painter_.setPen(QPen(colour, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
                    painter_.setBrush(colour);
                    break;
                case Kind::Lines:
                    painter_.setPen(QPen(colour, 1.0, Qt::SolidLine, Qt::FlatCap));
                    painter_.setBrush(Qt::NoBrush);
                    break;
                case Kind::Dots:
                    painter_.setPen(Qt::NoPen);
                    painter_.setBrush(colour);
                    break;
            }
            painter_.drawPath(path);
        }
        paths_.clear();
        index_.clear();
    }

    QPainter& painter_;
    Kind kind_ = Kind::Cells;
    // In the order the colours first came, so that the picture does not depend on hashing.
    std::vector<std::pair<std::uint32_t, QPainterPath>> paths_;
    std::unordered_map<std::uint32_t, std::size_t> index_;
};

bool vectorTarget(const QPainter& painter) {
    const QPaintEngine* engine = painter.paintEngine();
    if (engine == nullptr) {
        return false;
    }
    switch (engine->type()) {
        case QPaintEngine::SVG:
        case QPaintEngine::Pdf:
        case QPaintEngine::Picture:
            return true;
        default:
            return false;
    }
}

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
    paintGridBoxLines(painter, scene, placement, devicePixels, BoxPass::Behind);
    if (QImage* image = directImage(painter)) {
        PixelBuffer buffer;
        buffer.bits = reinterpret_cast<std::uint32_t*>(image->bits());
        buffer.width = std::min(devicePixels.width(), image->width());
        buffer.height = std::min(devicePixels.height(), image->height());
        buffer.stride = image->bytesPerLine() / 4;
        RasterSurfaceSink sink(buffer);
        drawSurface(scene, devicePixels.width(), devicePixels.height(), sink);
        paintGridBoxLines(painter, scene, placement, devicePixels, BoxPass::InFront);
        paintGridBoxLabels(painter, scene, placement, devicePixels);
        return;
    }
    painter.save();
    if (vectorTarget(painter)) {
        PathSurfaceSink sink(painter, devicePixels);
        drawSurface(scene, devicePixels.width(), devicePixels.height(), sink);
    } else {
        QPainterSurfaceSink sink(painter, devicePixels);
        drawSurface(scene, devicePixels.width(), devicePixels.height(), sink);
    }
    painter.restore();
    paintGridBoxLines(painter, scene, placement, devicePixels, BoxPass::InFront);
    paintGridBoxLabels(painter, scene, placement, devicePixels);
}

void paintSurfacePicture(QPainter& painter, SurfaceScene& scene, QSize devicePixels) {
    painter.fillRect(QRect(QPoint(0, 0), devicePixels), graph_colors::kBackground);
    paintSurface(painter, scene, devicePixels);
}

}  // namespace curvemill
