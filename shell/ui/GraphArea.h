// The main window's graph: painted from a back buffer by the 2D graph painter, with scroll bars.
#pragma once

#include <QImage>
#include <QWidget>

#include "equation/ui/EquationPainter.h"
#include "graph2d/GraphView.h"
#include "graph2d/PartialGraph.h"
#include "graph2d/TwoDGraph.h"
#include "graph2d/ui/GraphPainter.h"
#include "graph3d/ui/SurfaceRedraw.h"
#include "parametric/ui/CurvePainter.h"
#include "shell/GraphKind.h"

class QScrollBar;
class QTimer;

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
    bool graphShown() const { return flatGraphShown(kind_, graph_.main.exists()); }
    const QImage& backBuffer() const { return buffer_; }
    // The back buffer as the next paint shows it, drawn now if it is out of date.
    const QImage& renderedImage();
    // "Show Drawing Process": while on, redrawShowingProcess() reveals the curves as they are
    // drawn, from left to right, over about a second.
    void setShowDrawingProcess(bool on);
    bool showsDrawingProcess() const { return showProcess_; }
    bool drawingInProgress() const { return animating_; }
    // A redraw asked for by a command; scrolling and wheel zooms use invalidate() and stay quick.
    void redrawShowingProcess();
    // The canvas shows this surface instead of the 2D graph; null goes back to the 2D graph.
    void showSurface(SurfaceScene* scene);
    SurfaceRedraw& surfaceRedraw() { return surfaceRedraw_; }
    // Which graph the canvas draws, and the equation curve it draws while an equation is shown.
    void setKind(GraphKind kind) {
        kind_ = kind;
        invalidate();
    }
    GraphKind kind() const { return kind_; }
    void setCurve(const CurveGraph* curve) { curve_ = curve; }
    void setEquation(const EquationCurve* curve, const EquationLook* look) {
        equation_ = curve;
        equationLook_ = look;
    }

  Q_SIGNALS:
    // A surface came or went: the 2D view's scroll bars mean nothing beside a surface.
    void surfaceShown(bool shown);
    // The view was laid out again: the scroll bars follow its content size.
    void viewLaidOut();
    // Percent of the curves drawn while the drawing process is shown; -1 once it is done.
    void drawingProgress(int percent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void render();
    void drawNextPart();

    const TwoDGraph& graph_;
    GraphView& view_;
    // Keeps the fonts between repaints, as the screen's drawing set.
    GraphPainter painter_;
    GraphKind kind_ = GraphKind::Function2D;
    const EquationCurve* equation_ = nullptr;
    const EquationLook* equationLook_ = nullptr;
    EquationPainter equationPainter_;
    const CurveGraph* curve_ = nullptr;
    CurvePainter curvePainter_;
    // Sized in device pixels, so the graph is sharp on high-density screens.
    QImage buffer_;
    bool stale_ = true;
    SurfaceScene* surface_ = nullptr;
    SurfaceRedraw surfaceRedraw_;
    // The size the view was last laid out for; a new size chooses the grid steps again.
    QSize laidOutSize_;
    bool showProcess_ = false;
    bool animating_ = false;
    int frame_ = 0;
    QTimer* processTimer_;
    // The curves cut where the drawing has got to; drawn instead of graph_ while animating_.
    PartialGraph partial_;
};

class GraphMouse;

class GraphArea : public QWidget {
    Q_OBJECT
  public:
    GraphArea(const TwoDGraph& graph, GraphView& view, QWidget* parent = nullptr);
    GraphCanvas* canvas() const { return canvas_; }
    QScrollBar* horizontalBar() const { return horizontal_; }
    QScrollBar* verticalBar() const { return vertical_; }
    GraphMouse& mouse() const { return *mouse_; }
    // The rectangle selected in "Select Area" mode, in canvas logical pixels (the view's);
    // empty when there is none.
    QRect selectedRect() const;
    void clearSelection();
    // The view changed by a command: scroll bars, selection and picture follow.
    void redraw();
    // After a new graph: lays the view out for the canvas and opens it as Restore does.
    void showNewGraph();
    // A zoom or another page is about to change what the view shows: whatever moves the picture
    // on its own (the turning of a surface) lets go first.
    void beforeViewChange() { Q_EMIT viewChanging(); }

  Q_SIGNALS:
    void viewChanging();
    // A new graph replaced the view's zoom: stretches made on the old one no longer apply.
    void newGraphShown();

  private:
    void updateScrollBars();
    // The view moved by the mouse or the scroll bars: no drawing process, no menu change.
    void followView();

    GraphCanvas* canvas_;
    GraphMouse* mouse_;
    GraphView* view_ = nullptr;
    // Present from the start; zooming and scrolling give them a range.
    QScrollBar* horizontal_;
    QScrollBar* vertical_;
};

}  // namespace curvemill
