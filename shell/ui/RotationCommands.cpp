#include "shell/ui/RotationCommands.h"

#include "graph3d/SurfaceScene.h"
#include "graph3d/ui/RotationDialog.h"
#include "graph3d/ui/SurfaceMouse.h"
#include "graph3d/ui/SurfaceRotator.h"
#include "shell/CommandTable.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/GraphArea.h"
#include "shell/ui/KindWindows.h"

namespace curvemill {

RotationCommands::RotationCommands(SurfaceScene& scene, GraphCanvas& canvas,
                                   std::function<bool()> surfaceShown, QWidget* dialogParent)
    : QObject(dialogParent),
      canvas_(canvas),
      rotator_(new SurfaceRotator(scene, this)),
      mouse_(new SurfaceMouse(canvas, *rotator_, scene.view, std::move(surfaceShown))),
      dialogParent_(dialogParent) {
    rotator_->setRedraw(&canvas.surfaceRedraw());
    connect(rotator_, &SurfaceRotator::rotated, &canvas_, &GraphCanvas::invalidate);
    connect(mouse_, &SurfaceMouse::zoomed, &canvas_, &GraphCanvas::invalidate);
}

RotationCommands::~RotationCommands() {
    delete dialog_;
    delete mouse_;
}

void RotationCommands::bindCommands(CommandActions& actions) {
    actions.bind(Command::ThreeDRotation, [this] { openDialog(); });
    actions.bind(Command::RotateRight, [this] { rotateRight(); });
    actions.bind(Command::RotateLeft, [this] { rotateLeft(); });
}

void RotationCommands::openDialog() {
    if (dialog_ == nullptr) {
        dialog_ = new RotationDialog(*rotator_, dialogParent_);
        belongToGraphKind(*dialog_, GraphKind::Surface3D);
    }
    dialog_->show();
    dialog_->raise();
    dialog_->activateWindow();
}

// Turning clockwise as seen from above (a negative angle about z) carries the near side right.
void RotationCommands::rotateRight() {
    rotator_->turn(RotationAxis::kZ, -kRotationStepDegrees);
}

void RotationCommands::rotateLeft() {
    rotator_->turn(RotationAxis::kZ, kRotationStepDegrees);
}

void RotationCommands::stopAnimation() {
    rotator_->stopAnimation();
}

void RotationCommands::newFigure() {
    rotator_->setAngles({});
}

}  // namespace curvemill
