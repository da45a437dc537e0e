// The mouse over a surface: a drag with the left button turns the figure, the wheel zooms it.
// Watches the canvas ahead of the 2D graph's mouse and takes the events only while a surface is
// shown.
#pragma once

#include <functional>

#include <QObject>
#include <QPointF>

#include "graph3d/SurfaceRotation.h"

class QWidget;

namespace curvemill {

class SurfaceRotator;
struct SurfaceView;

class SurfaceMouse : public QObject {
    Q_OBJECT
  public:
    // One wheel notch zooms by this factor, as on the 2D graph.
    static constexpr double kWheelNotchFactor = 1.25;

    SurfaceMouse(QWidget& canvas, SurfaceRotator& rotator, SurfaceView& view,
                 std::function<bool()> surfaceShown);

  Q_SIGNALS:
    // The wheel zoomed the figure: the picture is drawn again.
    void zoomed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void wheel(QEvent* event);

    QWidget& canvas_;
    SurfaceRotator& rotator_;
    SurfaceView& view_;
    std::function<bool()> surfaceShown_;
    bool dragging_ = false;
    QPointF pressAt_;
    RotationAngles anglesAtPress_;
    // Wheel turns of less than a notch (touchpads) add up here until they make a zoom.
    int pendingWheel_ = 0;
};

}  // namespace curvemill
