#include "graph3d/ui/SurfaceMouse.h"

#include <cmath>
#include <cstdlib>

#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

#include "graph3d/SurfaceView.h"
#include "graph3d/ui/SurfaceRotator.h"

namespace curvemill {

namespace {

constexpr int kNotch = 120;
// Touchpads send small turns; a quarter of a notch is the least that zooms, as on the 2D graph.
constexpr int kLeastWheelStep = kNotch / 4;

}  // namespace

SurfaceMouse::SurfaceMouse(QWidget& canvas, SurfaceRotator& rotator, SurfaceView& view,
                           std::function<bool()> surfaceShown)
    : QObject(&canvas),
      canvas_(canvas),
      rotator_(rotator),
      view_(view),
      surfaceShown_(std::move(surfaceShown)) {
    canvas.installEventFilter(this);
}

bool SurfaceMouse::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &canvas_ || !surfaceShown_()) {
        dragging_ = false;
        return false;
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() != Qt::LeftButton) {
                return false;
            }
            // Taking hold of the figure stops it turning by itself.
            rotator_.stopAnimation();
            dragging_ = true;
            pressAt_ = mouse->position();
            anglesAtPress_ = rotator_.angles();
            canvas_.setCursor(Qt::ClosedHandCursor);
            return true;
        }
        case QEvent::MouseMove: {
            if (!dragging_) {
                return true;
            }
            // The angles come from the whole drag so far, not from the last move, so that a
            // drag back to where it began leaves the figure as it was.
            const QPointF d = static_cast<QMouseEvent*>(event)->position() - pressAt_;
            rotator_.setAngles(draggedAngles(anglesAtPress_, d.x(), d.y()));
            return true;
        }
        case QEvent::MouseButtonRelease:
            if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton && dragging_) {
                dragging_ = false;
                canvas_.unsetCursor();
            }
            return true;
        case QEvent::Wheel:
            wheel(event);
            return true;
        case QEvent::ToolTip:
            return true;
        default:
            return false;
    }
}

void SurfaceMouse::wheel(QEvent* event) {
    const QPoint delta = static_cast<QWheelEvent*>(event)->angleDelta();
    pendingWheel_ += delta.y() != 0 ? delta.y() : delta.x();
    if (std::abs(pendingWheel_) < kLeastWheelStep) {
        return;
    }
    const double factor = std::pow(kWheelNotchFactor, pendingWheel_ / double(kNotch));
    pendingWheel_ = 0;
    if (zoomFigure(view_, factor)) {
        Q_EMIT zoomed();
    }
}

}  // namespace curvemill
