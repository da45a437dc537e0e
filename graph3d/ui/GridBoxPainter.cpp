#include "graph3d/ui/GridBoxPainter.h"

#include <algorithm>
#include <cmath>

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPen>

#include "graph3d/SurfaceGridBox.h"

namespace curvemill {

namespace {

bool wanted(const SurfaceScene& scene) {
    return scene.drawing.gridBox && scene.complete && scene.grid.allocated();
}

// Grows with the target so that a printed page's values are as legible as the screen's.
double unitOf(QSize devicePixels) {
    return std::max(1.0, std::min(devicePixels.width(), devicePixels.height()) / 500.0);
}

// Coordinates far outside the target (a zoomed figure) are held where the painter can take them.
QPointF held(PlanePoint p) {
    constexpr double kFar = 1 << 24;
    return {std::clamp(p.x, -kFar, kFar), std::clamp(p.y, -kFar, kFar)};
}

}  // namespace

void paintGridBoxLines(QPainter& painter, const SurfaceScene& scene, const Placement& placement,
                       QSize devicePixels) {
    if (!wanted(scene)) {
        return;
    }
    const ProjectedGridBox box = projectGridBox(scene.view, scene.grid, placement);
    const double unit = unitOf(devicePixels);
    painter.save();
    painter.resetTransform();
    painter.setClipRect(QRect(QPoint(0, 0), devicePixels));
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen gridPen(QColor(176, 176, 176), unit, Qt::SolidLine, Qt::FlatCap);
    const QPen edgePen(QColor(64, 64, 64), unit, Qt::SolidLine, Qt::FlatCap);
    for (const ProjectedLine& line : box.lines) {
        painter.setPen(line.edge ? edgePen : gridPen);
        painter.drawLine(held(line.from), held(line.to));
    }
    painter.restore();
}

void paintGridBoxLabels(QPainter& painter, const SurfaceScene& scene, const Placement& placement,
                        QSize devicePixels) {
    if (!wanted(scene)) {
        return;
    }
    const ProjectedGridBox box = projectGridBox(scene.view, scene.grid, placement);
    const double unit = unitOf(devicePixels);
    painter.save();
    painter.resetTransform();
    painter.setClipRect(QRect(QPoint(0, 0), devicePixels));
    painter.setRenderHint(QPainter::TextAntialiasing);
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(std::lround(11 * unit)));
    painter.setFont(font);
    painter.setPen(QColor(0, 0, 0));
    const QFontMetricsF metrics(font);
    const double gap = 6 * unit;
    for (const ProjectedLabel& label : box.labels) {
        const QString text = QString::fromStdString(label.text);
        const QSizeF size(metrics.horizontalAdvance(text), metrics.height());
        // The text's box touches the point `gap` away from the anchor on its outward side.
        const QPointF at = held(label.anchor) + QPointF(label.outward.x, label.outward.y) * gap;
        const QPointF corner(at.x() - size.width() / 2 + label.outward.x * size.width() / 2,
                             at.y() - size.height() / 2 + label.outward.y * size.height() / 2);
        painter.drawText(QRectF(corner, size), Qt::AlignCenter, text);
    }
    painter.restore();
}

}  // namespace curvemill
