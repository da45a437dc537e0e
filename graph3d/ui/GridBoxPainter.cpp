#include "graph3d/ui/GridBoxPainter.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>
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

void drawInDevicePixels(QPainter& painter, QSize devicePixels) {
    const QPaintDevice* device = painter.device();
    const double ratio =
        device != nullptr && device->devicePixelRatioF() > 0 ? device->devicePixelRatioF() : 1.0;
    // Combined with the caller's transform and clip: an export of a selected part places the
    // figure by translating the painter.
    painter.setWorldTransform(QTransform::fromScale(1 / ratio, 1 / ratio), true);
    painter.setClipRect(QRect(QPoint(0, 0), devicePixels), Qt::IntersectClip);
}

void paintGridBoxLines(QPainter& painter, const SurfaceScene& scene, const Placement& placement,
                       QSize devicePixels, BoxPass pass) {
    if (!wanted(scene)) {
        return;
    }
    const ProjectedGridBox box = projectGridBox(scene.view, scene.grid, placement);
    const double unit = unitOf(devicePixels);
    painter.save();
    drawInDevicePixels(painter, devicePixels);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen gridPen(QColor(176, 176, 176), unit, Qt::SolidLine, Qt::FlatCap);
    const QPen edgePen(QColor(64, 64, 64), unit, Qt::SolidLine, Qt::FlatCap);
    for (const ProjectedLine& line : box.lines) {
        if (line.front != (pass == BoxPass::InFront)) {
            continue;
        }
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
    drawInDevicePixels(painter, devicePixels);
    painter.setRenderHint(QPainter::TextAntialiasing);
    QFont font = painter.font();
    font.setPixelSize(static_cast<int>(std::lround(11 * unit)));
    painter.setFont(font);
    painter.setPen(QColor(0, 0, 0));
    const QFontMetricsF metrics(font);
    const double gap = 6 * unit;
    const auto sizeOf = [&metrics](const ProjectedLabel& label) {
        return QSizeF(metrics.horizontalAdvance(QString::fromStdString(label.text)),
                      metrics.height());
    };
    // An axis's name stands beyond the widest of its values, measured along its outward side.
    double valueDepth[3] = {0, 0, 0};
    for (const ProjectedLabel& label : box.labels) {
        const QSizeF size = sizeOf(label);
        double& depth = valueDepth[label.axis - 'x'];
        depth = std::max(depth, std::fabs(label.outward.x) * size.width() +
                                    std::fabs(label.outward.y) * size.height());
    }
    // Names first, so that thinning drops values rather than names; a label that would overlap
    // one already placed is left out.
    std::vector<QRectF> placed;
    for (const bool names : {true, false}) {
        for (const ProjectedLabel& label : box.labels) {
            if (label.axisName != names) {
                continue;
            }
            const QSizeF size = sizeOf(label);
            const double away = names ? 2 * gap + valueDepth[label.axis - 'x'] : gap;
            // The text's box touches the point `away` from the anchor on its outward side.
            const QPointF at =
                held(label.anchor) + QPointF(label.outward.x, label.outward.y) * away;
            const QRectF rect(
                QPointF(at.x() - size.width() / 2 + label.outward.x * size.width() / 2,
                        at.y() - size.height() / 2 + label.outward.y * size.height() / 2),
                size);
            const QRectF room = rect.adjusted(-unit, -unit, unit, unit);
            if (std::any_of(placed.begin(), placed.end(),
                            [&room](const QRectF& r) { return r.intersects(room); })) {
                continue;
            }
            placed.push_back(rect);
            painter.drawText(rect, Qt::AlignCenter, QString::fromStdString(label.text));
        }
    }
    painter.restore();
}

}  // namespace curvemill
