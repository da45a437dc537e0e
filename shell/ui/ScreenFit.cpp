#include "shell/ui/ScreenFit.h"

#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QWidget>

namespace curvemill {

namespace {

// Before its first show a window's frame is not known yet: room for a title bar and borders.
constexpr int kFrameAllowanceWidth = 16;
constexpr int kFrameAllowanceHeight = 48;

}  // namespace

void fitToScreen(QWidget& window) {
    if (!window.isWindow() || window.isMaximized() || window.isFullScreen()) {
        return;
    }
    const QScreen* screen = window.screen();
    if (screen == nullptr) {
        return;
    }
    const QRect free = screen->availableGeometry();
    QSize frame = window.frameGeometry().size() - window.geometry().size();
    frame = frame.expandedTo(QSize(kFrameAllowanceWidth, kFrameAllowanceHeight));
    const QSize room = free.size() - frame;
    if (window.width() > room.width() || window.height() > room.height()) {
        window.resize(window.size().boundedTo(room));
    }
    const QSize outer = window.size() + frame;
    const QPoint at = window.frameGeometry().topLeft();
    const int x =
        std::clamp(at.x(), free.left(), std::max(free.left(), free.right() + 1 - outer.width()));
    const int y =
        std::clamp(at.y(), free.top(), std::max(free.top(), free.bottom() + 1 - outer.height()));
    if (QPoint(x, y) != at) {
        window.move(x, y);
    }
}

ScreenFitter::ScreenFitter(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool ScreenFitter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        // The main window is shown maximized and sizes itself.
        if (widget->isWindow() && widget != parent()) {
            fitToScreen(*widget);
        }
    }
    return false;
}

}  // namespace curvemill
