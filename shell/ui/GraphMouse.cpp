#include "shell/ui/GraphMouse.h"

#include <cmath>
#include <cstdlib>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QRubberBand>
#include <QToolTip>
#include <QWheelEvent>
#include <QWidget>

#include "graph2d/CoordinateText.h"
#include "graph2d/CurveHit.h"
#include "graph2d/MouseDrag.h"
#include "graph2d/ViewZoom.h"

namespace curvemill {

namespace {

// Eighths of a degree in one wheel notch.
constexpr int kNotch = 120;
// Touchpads send many small turns; zooming in steps of a quarter notch keeps them smooth
// without redrawing the whole graph for every tiny one.
constexpr int kLeastWheelStep = kNotch / 4;

bool insidePlot(const GraphView& view, QPointF at) {
    return at.x() >= view.left && at.x() <= view.plotRight() && at.y() >= view.top &&
           at.y() <= view.plotBottom();
}

}  // namespace

GraphMouse::GraphMouse(QWidget& canvas, const TwoDGraph& graph, GraphView& view)
    : QObject(&canvas),
      canvas_(canvas),
      graph_(graph),
      view_(view),
      band_(new QRubberBand(QRubberBand::Rectangle, &canvas)) {
    band_->setObjectName(QStringLiteral("selectionBand"));
    canvas.setMouseTracking(true);
    canvas.installEventFilter(this);
    updateCursor();
}

void GraphMouse::setSelectArea(bool on) {
    selectArea_ = on;
    clearSelection();
    updateCursor();
}

void GraphMouse::clearSelection() {
    band_->hide();
    if (!selection_.isEmpty()) {
        selection_ = QRect();
        Q_EMIT selectionChanged();
    }
}

void GraphMouse::updateCursor() {
    canvas_.setCursor(selectArea_ ? Qt::CrossCursor : Qt::OpenHandCursor);
}

bool GraphMouse::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &canvas_) {
        return false;
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress: {
            auto* mouse = static_cast<QMouseEvent*>(event);
            if (mouse->button() != Qt::LeftButton) {
                return false;
            }
            press(mouse->position());
            return true;
        }
        case QEvent::MouseMove:
            move(static_cast<QMouseEvent*>(event)->position());
            return pressed_;
        case QEvent::MouseButtonRelease:
            if (static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton || !pressed_) {
                return false;
            }
            release();
            return true;
        case QEvent::Wheel:
            wheel(event);
            return true;
        case QEvent::ToolTip:
            showTooltip(event);
            return true;
        case QEvent::Leave:
            Q_EMIT coordinatesChanged(QString());
            return false;
        default:
            return false;
    }
}

void GraphMouse::press(QPointF at) {
    if (!graphShown()) {
        return;
    }
    pressed_ = true;
    pressAt_ = at;
    pressScrollX_ = view_.scrollX;
    pressScrollY_ = view_.scrollY;
    QToolTip::hideText();
    if (selectArea_) {
        clearSelection();
    } else {
        canvas_.setCursor(Qt::ClosedHandCursor);
    }
}

void GraphMouse::move(QPointF at) {
    Q_EMIT coordinatesChanged(graphShown() && insidePlot(view_, at)
                                  ? QString::fromStdString(coordinateText(view_, at.x(), at.y()))
                                  : QString());
    if (!pressed_) {
        return;
    }
    if (selectArea_) {
        const PixelRect r = selectionRect(view_, pressAt_.x(), pressAt_.y(), at.x(), at.y());
        if (r.empty()) {
            band_->hide();
            return;
        }
        band_->setGeometry(QRect(QPoint(static_cast<int>(r.left), static_cast<int>(r.top)),
                                 QPoint(static_cast<int>(r.right), static_cast<int>(r.bottom))));
        band_->show();
        return;
    }
    const double oldX = view_.scrollX;
    const double oldY = view_.scrollY;
    dragScroll(view_, pressScrollX_, pressScrollY_, at.x() - pressAt_.x(), at.y() - pressAt_.y());
    if (view_.scrollX != oldX || view_.scrollY != oldY) {
        Q_EMIT viewScrolled();
    }
}

void GraphMouse::release() {
    pressed_ = false;
    updateCursor();
    if (selectArea_ && band_->isVisible()) {
        selection_ = band_->geometry();
        Q_EMIT selectionChanged();
    }
}

void GraphMouse::wheel(QEvent* event) {
    auto* wheelEvent = static_cast<QWheelEvent*>(event);
    if (!graphShown() || pressed_) {
        return;
    }
    // Some platforms turn a Shift+wheel into a horizontal turn.
    const QPoint delta = wheelEvent->angleDelta();
    pendingWheel_ += delta.y() != 0 ? delta.y() : delta.x();
    if (std::abs(pendingWheel_) < kLeastWheelStep) {
        return;
    }
    const Qt::KeyboardModifiers keys = wheelEvent->modifiers();
    const ZoomAxis axis = (keys & Qt::ControlModifier) ? ZoomAxis::kX
                          : (keys & Qt::ShiftModifier) ? ZoomAxis::kY
                                                       : ZoomAxis::kBoth;
    const double factor = std::pow(kWheelNotchFactor, pendingWheel_ / double(kNotch));
    pendingWheel_ = 0;
    const QPointF at = wheelEvent->position();
    if (zoomAbout(view_, axis, factor, at.x(), at.y())) {
        clearSelection();
        Q_EMIT viewZoomed();
    }
}

// Qt sends this once the mouse has rested, as tooltips should appear.
void GraphMouse::showTooltip(QEvent* event) {
    auto* help = static_cast<QHelpEvent*>(event);
    if (!curveTooltips_ || shownKind() != GraphKind::Function2D || !graphShown() || pressed_) {
        QToolTip::hideText();
        event->ignore();
        return;
    }
    const CurveHit hit = curveUnderMouse(graph_, view_, help->pos().x(), help->pos().y());
    if (hit.name.empty()) {
        QToolTip::hideText();
        event->ignore();
        return;
    }
    QToolTip::showText(help->globalPos(), QString::fromStdString(curveTooltip(hit)), &canvas_);
}

}  // namespace curvemill
