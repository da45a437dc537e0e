// How the figure is turned: three angles about the grid's own axes through the figure's centre,
// the steps of the toolbar and the dialog, mouse drags and the continuous turn of an animation.
#pragma once

#include "graph3d/SurfaceView.h"

namespace curvemill {

enum class RotationAxis { kX, kY, kZ };

// Degrees, right-handed: a positive angle turns counter-clockwise as seen from the axis's positive
// end. z is the vertical axis of the picture.
struct RotationAngles {
    double x = 0;
    double y = 0;
    double z = 0;
};

// The toolbar's Rotate Right / Rotate Left and the dialog's default step: 24 presses make a turn,
// fine enough to follow the figure, coarse enough that a few presses show its other side.
inline constexpr double kRotationStepDegrees = 15.0;
// Mouse drags: a drag across a 720-pixel window turns the figure once around.
inline constexpr double kDragDegreesPerPixel = 0.5;

// An angle brought into (-180, 180].
double wrapDegrees(double degrees);

double angleAbout(const RotationAngles& angles, RotationAxis axis);
// The angles with `degrees` added about one axis, wrapped.
RotationAngles turnedAbout(RotationAngles angles, RotationAxis axis, double degrees);

// Sets the view's rotation: no angle leaves the figure unrotated; a single angle uses that axis's
// own mode and setAxisAngle, which is cheaper per point; more than one the matrix.
// Both routes give the same picture for a single angle.
void applyRotation(SurfaceView& view, const RotationAngles& angles);

// A drag of (dx, dy) pixels from where the button went down (right and down positive), from the
// angles the figure had then: sideways turns about the vertical axis so that the near side
// follows the mouse, up and down tilts about x.
RotationAngles draggedAngles(const RotationAngles& atPress, double dx, double dy);

// The continuous turn: the angle about the chosen axis grows with the time since the start, so
// frames may come late or early without the figure drifting off its path.
class RotationAnimation {
  public:
    // Turns of at most a full turn per frame stay visible; faster ones are held at this.
    static constexpr double kMaxDegreesPerSecond = 720.0;

    void start(const RotationAngles& from, RotationAxis axis, double degreesPerSecond);
    void stop() { running_ = false; }
    bool running() const { return running_; }
    RotationAxis axis() const { return axis_; }
    double degreesPerSecond() const { return speed_; }
    // The angles `seconds` after the start.
    RotationAngles anglesAt(double seconds) const;

  private:
    RotationAngles from_;
    RotationAxis axis_ = RotationAxis::kZ;
    double speed_ = 0;
    bool running_ = false;
};

}  // namespace curvemill
