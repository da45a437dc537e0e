#include "graph3d/ui/SurfaceRotator.h"

#include "graph3d/ui/SurfaceRedraw.h"

namespace curvemill {

SurfaceRotator::SurfaceRotator(SurfaceScene& scene, QObject* parent)
    : QObject(parent), scene_(scene) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(kFrameMilliseconds);
    connect(&timer_, &QTimer::timeout, this, &SurfaceRotator::showFrame);
}

void SurfaceRotator::apply(const RotationAngles& angles) {
    angles_ = angles;
    applyRotation(scene_.view, angles_);
    Q_EMIT rotated();
}

void SurfaceRotator::setAngles(const RotationAngles& angles) {
    stopAnimation();
    apply({wrapDegrees(angles.x), wrapDegrees(angles.y), wrapDegrees(angles.z)});
}

void SurfaceRotator::turn(RotationAxis axis, double degrees) {
    stopAnimation();
    apply(turnedAbout(angles_, axis, degrees));
}

void SurfaceRotator::reset() {
    setAngles({});
}

void SurfaceRotator::startAnimation(RotationAxis axis, double degreesPerSecond) {
    animation_.start(angles_, axis, degreesPerSecond);
    clock_.start();
    timer_.start();
    Q_EMIT animationChanged(true);
}

void SurfaceRotator::stopAnimation() {
    if (!animation_.running()) {
        return;
    }
    animation_.stop();
    timer_.stop();
    Q_EMIT animationChanged(false);
}

void SurfaceRotator::showFrame() {
    if (!animation_.running() || (redraw_ != nullptr && redraw_->running())) {
        return;
    }
    apply(animation_.anglesAt(clock_.nsecsElapsed() / 1e9));
}

}  // namespace curvemill
