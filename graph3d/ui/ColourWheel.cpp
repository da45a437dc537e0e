#include "graph3d/ui/ColourWheel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <QMouseEvent>
#include <QPainter>

namespace curvemill {

ColourWheel::ColourWheel(QWidget* parent) : QWidget(parent) {
    setMinimumSize(80, 80);
    setCursor(Qt::CrossCursor);
    setToolTip(QStringLiteral("Click a colour for the surface"));
}

QPointF ColourWheel::centre() const {
    return {width() / 2.0, height() / 2.0};
}

double ColourWheel::radius() const {
    return std::min(width(), height()) / 2.0 - 2;
}

std::optional<QColor> ColourWheel::colourAt(QPointF point) const {
    const QPointF d = point - centre();
    const double r = radius();
    const double distance = std::hypot(d.x(), d.y());
    if (r <= 0 || !(distance < r)) {
        return std::nullopt;
    }
    // Screen y grows downward; the hue turns counter-clockwise from red at three o'clock.
    double angle = std::atan2(-d.y(), d.x()) * 180.0 / std::numbers::pi;
    if (angle < 0) {
        angle += 360.0;
    }
    const int hue = std::clamp(static_cast<int>(angle), 0, 359);
    const int saturation = std::clamp(static_cast<int>(distance / r * 255.0), 0, 255);
    return QColor::fromHsv(hue, saturation, 255);
}

void ColourWheel::paintEvent(QPaintEvent*) {
    // Drawn at the device's own resolution, so the rim stays smooth at any pixel ratio.
    const qreal ratio = devicePixelRatioF();
    QImage image(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (auto colour = colourAt(QPointF((x + 0.5) / ratio, (y + 0.5) / ratio))) {
                line[x] = colour->rgb();
            }
        }
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawImage(QPointF(0, 0), image);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(centre(), radius(), radius());
}

void ColourWheel::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    if (auto colour = colourAt(event->position())) {
        Q_EMIT colourPicked(*colour);
    }
}

}  // namespace curvemill
