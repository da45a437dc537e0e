#include "shell/ui/GraphArea.h"

#include <algorithm>

#include <QGridLayout>
#include <QPainter>
#include <QScrollBar>

#include "graph2d/GridSteps.h"
#include "graph2d/ui/GraphPens.h"

namespace curvemill {

GraphCanvas::GraphCanvas(const TwoDGraph& graph, GraphView& view, QWidget* parent)
    : QWidget(parent), graph_(graph), view_(view) {
    setObjectName(QStringLiteral("graphCanvas"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(200, 150);
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
        setViewSize(view_, width(), height());
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
    QPainter painter(&buffer_);
    painter.setRenderHint(QPainter::Antialiasing);
    layOutView();
    if (kind_ == GraphKind::Equation && equation_ != nullptr && equationLook_ != nullptr) {
        equationPainter_.draw(painter_, painter, *equation_, view_, *equationLook_);
    } else if (graph_.main.exists()) {
        painter_.draw(painter, graph_, view_);
    }
    stale_ = false;
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
      horizontal_(new QScrollBar(Qt::Horizontal, this)),
      vertical_(new QScrollBar(Qt::Vertical, this)) {
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
    connect(canvas_, &GraphCanvas::viewLaidOut, this, &GraphArea::updateScrollBars);
    connect(horizontal_, &QScrollBar::valueChanged, this, [this, &view](int value) {
        view.scrollX = value;
        clampScroll(view);
        canvas_->invalidate();
    });
    connect(vertical_, &QScrollBar::valueChanged, this, [this, &view](int value) {
        view.scrollY = value;
        clampScroll(view);
        canvas_->invalidate();
    });
    view_ = &view;
}

void GraphArea::redraw() {
    updateScrollBars();
    canvas_->invalidate();
}

void GraphArea::showNewGraph() {
    canvas_->layOutView();
    GraphView& view = *view_;
    if (view.contentHeight > view.visibleHeight()) {
        const double axisRow = (view.graphHeight + view.yBase * view.ppu) * view.yZoom;
        view.scrollY = axisRow - view.visibleHeight() / 2;
        clampScroll(view);
    }
    redraw();
}

void GraphArea::updateScrollBars() {
    const auto setUp = [](QScrollBar* bar, double content, double visible, double offset) {
        const QSignalBlocker block(bar);
        bar->setRange(0, static_cast<int>(std::max(0.0, content - visible)));
        bar->setPageStep(static_cast<int>(std::max(1.0, visible)));
        bar->setSingleStep(static_cast<int>(std::max(1.0, visible / 20)));
        bar->setValue(static_cast<int>(offset));
    };
    setUp(horizontal_, view_->contentWidth, view_->visibleWidth(), view_->scrollX);
    setUp(vertical_, view_->contentHeight, view_->visibleHeight(), view_->scrollY);
}

}  // namespace curvemill
