#include "graph3d/SurfaceRotation.h"

#include <algorithm>
#include <cmath>

namespace curvemill {

double wrapDegrees(double degrees) {
    if (!std::isfinite(degrees)) {
        return 0;
    }
    double r = std::fmod(degrees, 360.0);
    if (r > 180.0) {
        r -= 360.0;
    } else if (r <= -180.0) {
        r += 360.0;
    }
    return r;
}

double angleAbout(const RotationAngles& angles, RotationAxis axis) {
    switch (axis) {
        case RotationAxis::kX:
            return angles.x;
        case RotationAxis::kY:
            return angles.y;
        case RotationAxis::kZ:
            break;
    }
    return angles.z;
}

RotationAngles turnedAbout(RotationAngles angles, RotationAxis axis, double degrees) {
    switch (axis) {
        case RotationAxis::kX:
            angles.x = wrapDegrees(angles.x + degrees);
            break;
        case RotationAxis::kY:
            angles.y = wrapDegrees(angles.y + degrees);
            break;
        case RotationAxis::kZ:
            angles.z = wrapDegrees(angles.z + degrees);
            break;
    }
    return angles;
}

// The view's modes turn the other way round about y and z, and the matrix's three
// parameters are z, -x and -y in that order; the signs here make all of them right-handed.
void applyRotation(SurfaceView& view, const RotationAngles& angles) {
    const int turned = (angles.x != 0) + (angles.y != 0) + (angles.z != 0);
    if (turned == 0) {
        view.mode = RotationMode::kNone;
    } else if (turned > 1) {
        setRotationMatrix(view, angles.z, -angles.x, -angles.y);
    } else if (angles.x != 0) {
        view.mode = RotationMode::kAboutX;
        setAxisAngle(view, angles.x);
    } else if (angles.y != 0) {
        view.mode = RotationMode::kAboutY;
        setAxisAngle(view, -angles.y);
    } else {
        view.mode = RotationMode::kAboutZ;
        setAxisAngle(view, -angles.z);
    }
}

// The eye looks from the (x, y) corner of greatest x and y: turning clockwise as seen from above
// (a negative z angle) carries the near side to the right.
RotationAngles draggedAngles(const RotationAngles& atPress, double dx, double dy) {
    RotationAngles angles = turnedAbout(atPress, RotationAxis::kZ, -dx * kDragDegreesPerPixel);
    return turnedAbout(angles, RotationAxis::kX, dy * kDragDegreesPerPixel);
}

void RotationAnimation::start(const RotationAngles& from, RotationAxis axis,
                              double degreesPerSecond) {
    from_ = from;
    axis_ = axis;
    speed_ = std::isfinite(degreesPerSecond)
                 ? std::clamp(degreesPerSecond, -kMaxDegreesPerSecond, kMaxDegreesPerSecond)
                 : 0;
    running_ = true;
}

RotationAngles RotationAnimation::anglesAt(double seconds) const {
    // Whole turns are taken out before the multiplication so that a long animation keeps its
    // precision.
    const double turn = 360.0 / std::max(std::abs(speed_), 1e-9);
    const double t = std::isfinite(seconds) ? std::fmod(seconds, turn) : 0;
    return turnedAbout(from_, axis_, speed_ * t);
}

}  // namespace curvemill
