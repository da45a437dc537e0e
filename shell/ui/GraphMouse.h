// The mouse over the graph canvas: wheel zoom, Move Screen drags, Select Area rubber band,
// curve tooltips and the coordinates under the mouse.
#pragma once

#include <functional>

#include <QObject>
#include <QPointF>
#include <QRect>

#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "shell/GraphKind.h"

class QRubberBand;
class QWidget;

namespace curvemill {

class GraphMouse : public QObject {
    Q_OBJECT
  public:
    // Watches `canvas`, whose pixels are the view's.
    GraphMouse(QWidget& canvas, const TwoDGraph& graph, GraphView& view);

    void setSelectArea(bool on);
    bool selectArea() const { return selectArea_; }
    void setCurveTooltips(bool on) { curveTooltips_ = on; }
    // What the canvas shows: the mouse scrolls and reports coordinates on a flat graph (a function
    // or an equation) and names curves only on a function graph; a surface has a mouse of its own.
    void setKindSource(std::function<GraphKind()> kind) { kind_ = std::move(kind); }
    // The selected rectangle in canvas pixels; empty when there is none.
    QRect selection() const { return selection_; }
    void clearSelection();

  Q_SIGNALS:
    // The wheel zoomed or a drag scrolled: the scroll bars, the menus and the picture follow.
    void viewZoomed();
    void viewScrolled();
    void selectionChanged();
    // "x = ..   y = .." while the mouse is over the plotting area, empty otherwise.
    void coordinatesChanged(const QString& text);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    GraphKind shownKind() const { return kind_ ? kind_() : GraphKind::Function2D; }
    bool graphShown() const { return flatGraphShown(shownKind(), graph_.main.exists()); }
    void press(QPointF at);
    void move(QPointF at);
    void release();
    void wheel(QEvent* event);
    void showTooltip(QEvent* event);
    void updateCursor();

    QWidget& canvas_;
    const TwoDGraph& graph_;
    GraphView& view_;
    QRubberBand* band_;
    bool selectArea_ = false;
    bool curveTooltips_ = true;
    std::function<GraphKind()> kind_;
    bool pressed_ = false;
    QPointF pressAt_;
    double pressScrollX_ = 0.0;
    double pressScrollY_ = 0.0;
    QRect selection_;
    // Wheel turns of less than a notch (touchpads) add up here until they make a zoom.
    int pendingWheel_ = 0;
};

}  // namespace curvemill
