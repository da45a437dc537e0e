// The main window's graph: painted from a back buffer by the 2D graph painter, with scroll bars.
#pragma once

#include <QImage>
#include <QWidget>

#include "equation/ui/EquationPainter.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/GraphPainter.h"
#include "shell/GraphKind.h"

class QScrollBar;

namespace curvemill {

// The drawing surface itself; the scroll bars sit beside it in GraphArea.
class GraphCanvas : public QWidget {
    Q_OBJECT
  public:
    GraphCanvas(const TwoDGraph& graph, GraphView& view, QWidget* parent = nullptr);
    // The graph or the view changed: draw the buffer again before the next paint.
    void invalidate();
    // Lays the view out for the canvas's size now, as the next paint would.
    void layOutView();
    const QImage& backBuffer() const { return buffer_; }
    // Which graph the canvas draws, and the equation curve it draws while an equation is shown.
    void setKind(GraphKind kind) {
        kind_ = kind;
        invalidate();
    }
    void setEquation(const EquationCurve* curve, const EquationLook* look) {
        equation_ = curve;
        equationLook_ = look;
    }

  Q_SIGNALS:
    // The view was laid out again: the scroll bars follow its content size.
    void viewLaidOut();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void render();

    const TwoDGraph& graph_;
    GraphView& view_;
    // Keeps the fonts between repaints, as the screen's drawing set.
    GraphPainter painter_;
    GraphKind kind_ = GraphKind::Function2D;
    const EquationCurve* equation_ = nullptr;
    const EquationLook* equationLook_ = nullptr;
    EquationPainter equationPainter_;
    // Sized in device pixels, so the graph is sharp on high-density screens.
    QImage buffer_;
    bool stale_ = true;
    // The size the view was last laid out for; a new size chooses the grid steps again.
    QSize laidOutSize_;
};

class GraphArea : public QWidget {
    Q_OBJECT
  public:
    GraphArea(const TwoDGraph& graph, GraphView& view, QWidget* parent = nullptr);
    GraphCanvas* canvas() const { return canvas_; }
    QScrollBar* horizontalBar() const { return horizontal_; }
    QScrollBar* verticalBar() const { return vertical_; }
    void redraw();
    // After a new graph: lays the view out for the canvas and, when the graph is taller than the
    // window, scrolls so the x axis is in the middle, where most curves are read.
    void showNewGraph();

  private:
    void updateScrollBars();

    GraphCanvas* canvas_;
    GraphView* view_ = nullptr;
    // Present from the start; zooming and scrolling give them a range.
    QScrollBar* horizontal_;
    QScrollBar* vertical_;
};

}  // namespace curvemill
