#include "shell/ui/GraphArea.h"

#include <algorithm>

#include <QGridLayout>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include "graph2d/GridSteps.h"
#include "graph2d/ScrollBars.h"
#include "graph2d/ViewResize.h"
#include "graph2d/ViewZoom.h"
#include "graph2d/ui/GraphPens.h"
#include "shell/ui/GraphMouse.h"

namespace curvemill {

namespace {

// Frames of the drawing process and the time between them: about a second and a half, long
// enough to follow the curves being drawn, short enough not to be in the way.
constexpr int kProcessFrames = 50;
constexpr int kProcessFrameMs = 30;

}  // namespace

GraphCanvas::GraphCanvas(const TwoDGraph& graph, GraphView& view, QWidget* parent)
    : QWidget(parent), graph_(graph), view_(view), processTimer_(new QTimer(this)) {
    setObjectName(QStringLiteral("graphCanvas"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 150);
    processTimer_->setInterval(kProcessFrameMs);
    connect(processTimer_, &QTimer::timeout, this, &GraphCanvas::drawNextPart);
    connect(&surfaceRedraw_, &SurfaceRedraw::sliceDrawn, this, [this] { update(); });
}

void GraphCanvas::setShowDrawingProcess(bool on) {
    showProcess_ = on;
    if (!on && animating_) {
        frame_ = kProcessFrames - 1;
        drawNextPart();
    }
}

void GraphCanvas::redrawShowingProcess() {
    const bool curve = kind_ == GraphKind::Curve && curve_ != nullptr;
    if (!showProcess_ || !(curve ? curve_->exists() : graph_.main.exists()) ||
        surface_ != nullptr) {
        invalidate();
        return;
    }
    layOutView();
    // A curve in t is drawn along t by its painter; the function's curves are cut by the copy.
    partial_.start(curve ? TwoDGraph{} : graph_, view_);
    partial_.show(0.0);
    frame_ = 0;
    animating_ = true;
    processTimer_->start();
    Q_EMIT drawingProgress(0);
    invalidate();
}

void GraphCanvas::drawNextPart() {
    ++frame_;
    if (frame_ >= kProcessFrames) {
        animating_ = false;
        processTimer_->stop();
        Q_EMIT drawingProgress(-1);
    } else {
        partial_.show(static_cast<double>(frame_) / kProcessFrames);
        Q_EMIT drawingProgress(frame_ * 100 / kProcessFrames);
    }
    invalidate();
}

void GraphCanvas::showSurface(SurfaceScene* scene) {
    // A redraw still under way reads the old scene, which a new computation is about to refill.
    surfaceRedraw_.cancel();
    surface_ = scene;
    Q_EMIT surfaceShown(scene != nullptr);
    invalidate();
}

void GraphCanvas::invalidate() {
    stale_ = true;
    update();
}

void GraphCanvas::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    stale_ = true;
}

void GraphCanvas::layOutView() {
    if (laidOutSize_ != size()) {
        laidOutSize_ = size();
        resizeKeepingCentre(view_, width(), height());
        resetGridSteps(view_);
        Q_EMIT viewLaidOut();
    }
}

void GraphCanvas::render() {
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = size() * ratio;
    if (buffer_.size() != pixels) {
        buffer_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    }
    buffer_.setDevicePixelRatio(ratio);
    buffer_.fill(graph_colors::kBackground);
    if (surface_ != nullptr) {
        stale_ = false;
        surfaceRedraw_.setPaced(showProcess_);
        surfaceRedraw_.start(buffer_, *surface_);
        return;
    }
    surfaceRedraw_.cancel();
    QPainter painter(&buffer_);
    painter.setRenderHint(QPainter::Antialiasing);
    layOutView();
    if (kind_ == GraphKind::Equation && equation_ != nullptr && equationLook_ != nullptr) {
        equationPainter_.draw(painter_, painter, *equation_, view_, *equationLook_);
    } else if (kind_ == GraphKind::Curve && curve_ != nullptr) {
        CurveLook look;
        look.drawnPart = animating_ ? static_cast<double>(frame_) / kProcessFrames : 1.0;
        curvePainter_.draw(painter_, painter, *curve_, view_, look);
    } else if (kind_ == GraphKind::Function2D && graph_.main.exists()) {
        painter_.draw(painter, animating_ ? partial_.graph() : graph_, view_);
    }
    stale_ = false;
}

const QImage& GraphCanvas::renderedImage() {
    if (stale_ || buffer_.size() != size() * devicePixelRatioF()) {
        render();
    }
    return buffer_;
}

void GraphCanvas::paintEvent(QPaintEvent*) {
    if (stale_ || buffer_.size() != size() * devicePixelRatioF()) {
        render();
    }
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), buffer_);
}

GraphArea::GraphArea(const TwoDGraph& graph, GraphView& view, QWidget* parent)
    : QWidget(parent),
      canvas_(new GraphCanvas(graph, view, this)),
      mouse_(new GraphMouse(*canvas_, graph, view)),
      horizontal_(new QScrollBar(Qt::Horizontal, this)),
      vertical_(new QScrollBar(Qt::Vertical, this)) {
    mouse_->setKindSource([this] { return canvas_->kind(); });
    horizontal_->setObjectName(QStringLiteral("horizontalScrollBar"));
    vertical_->setObjectName(QStringLiteral("verticalScrollBar"));
    horizontal_->setRange(0, 0);
    vertical_->setRange(0, 0);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(canvas_, 0, 0);
    layout->addWidget(vertical_, 0, 1);
    layout->addWidget(horizontal_, 1, 0);
    connect(canvas_, &GraphCanvas::surfaceShown, this, [this](bool shown) {
        horizontal_->setVisible(!shown);
        vertical_->setVisible(!shown);
    });
    connect(canvas_, &GraphCanvas::viewLaidOut, this, [this] {
        clearSelection();
        updateScrollBars();
    });
    // Lines, pages and the dragged thumb all arrive as a new value.
    connect(horizontal_, &QScrollBar::valueChanged, this, [this, &view](int value) {
        view.scrollX = value;
        clampScroll(view);
        clearSelection();
        canvas_->invalidate();
    });
    connect(vertical_, &QScrollBar::valueChanged, this, [this, &view](int value) {
        view.scrollY = value;
        clampScroll(view);
        clearSelection();
        canvas_->invalidate();
    });
    connect(mouse_, &GraphMouse::viewScrolled, this, &GraphArea::followView);
    connect(mouse_, &GraphMouse::viewZoomed, this, &GraphArea::followView);
    view_ = &view;
}

QRect GraphArea::selectedRect() const {
    return mouse_->selection();
}

void GraphArea::clearSelection() {
    mouse_->clearSelection();
}

void GraphArea::redraw() {
    clearSelection();
    updateScrollBars();
    canvas_->redrawShowingProcess();
}

void GraphArea::followView() {
    updateScrollBars();
    canvas_->invalidate();
}

void GraphArea::showNewGraph() {
    canvas_->layOutView();
    restoreZoom(*view_);
    Q_EMIT newGraphShown();
    redraw();
}

void GraphArea::updateScrollBars() {
    // A bar's range runs to the content size with a page of the visible size; Qt counts the
    // range to the last page's start instead.
    const auto setUp = [](QScrollBar* bar, const ScrollBarState& state) {
        const QSignalBlocker block(bar);
        bar->setRange(0, std::max(0, state.maximum - state.page));
        bar->setPageStep(std::max(1, state.page));
        bar->setSingleStep(2);
        bar->setValue(state.position);
        bar->setEnabled(state.enabled);
    };
    const bool shown = canvas_->graphShown();
    setUp(horizontal_, horizontalScrollBar(*view_, shown));
    setUp(vertical_, verticalScrollBar(*view_, shown));
}

}  // namespace curvemill
