// The rotation of the surface on screen: the angles the dialog, the toolbar and the mouse set, and
// the animation, whose frames a timer in the user-interface thread draws one after another.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include "graph3d/SurfaceRotation.h"
#include "graph3d/SurfaceScene.h"

namespace curvemill {

class SurfaceRedraw;

class SurfaceRotator : public QObject {
    Q_OBJECT
  public:
    // 50 frames a second: smooth to the eye, and half the time of a frame is left for events.
    static constexpr int kFrameMilliseconds = 20;

    explicit SurfaceRotator(SurfaceScene& scene, QObject* parent = nullptr);
    // While this redraw is still drawing the last frame, the animation skips a frame instead of
    // starting over (a large grid would otherwise never be seen whole).
    void setRedraw(const SurfaceRedraw* redraw) { redraw_ = redraw; }

    const RotationAngles& angles() const { return angles_; }
    bool animating() const { return animation_.running(); }
    const RotationAnimation& animation() const { return animation_; }

    // Whoever sets the angles takes the figure over from a running animation.
    void setAngles(const RotationAngles& angles);
    void turn(RotationAxis axis, double degrees);
    void reset();
    void startAnimation(RotationAxis axis, double degreesPerSecond);
    void stopAnimation();
    // Draws the frame the animation has reached now; the timer calls it.
    void showFrame();

  Q_SIGNALS:
    // The view turned: the picture is drawn again.
    void rotated();
    void animationChanged(bool running);

  private:
    void apply(const RotationAngles& angles);

    SurfaceScene& scene_;
    const SurfaceRedraw* redraw_ = nullptr;
    RotationAngles angles_;
    RotationAnimation animation_;
    QTimer timer_;
    QElapsedTimer clock_;
};

}  // namespace curvemill
