// The commands that turn the surface on screen: the ThreeD Rotation dialog, Rotate Right and
// Rotate Left, and the mouse over the figure.
#pragma once

#include <functional>

#include <QObject>
#include <QPointer>

#include "graph3d/ui/RotationDialog.h"
#include "graph3d/ui/SurfaceMouse.h"

namespace curvemill {

class CommandActions;
class GraphCanvas;
class SurfaceRotator;
struct SurfaceScene;

class RotationCommands : public QObject {
    Q_OBJECT
  public:
    // `surfaceShown` tells whether the canvas shows the surface now; `dialogParent` owns the
    // dialog.
    RotationCommands(SurfaceScene& scene, GraphCanvas& canvas, std::function<bool()> surfaceShown,
                     QWidget* dialogParent);
    // The mouse watches the canvas and the dialog drives the rotator, and both may outlive these
    // commands while their owner is torn down: they go with them, so that no event reaches a
    // `surfaceShown` or a rotator that is gone.
    ~RotationCommands() override;

    // Binds the group's rows of the command table.
    void bindCommands(CommandActions& actions);
    SurfaceRotator& rotator() const { return *rotator_; }
    RotationDialog* dialog() const { return dialog_; }
    void openDialog();
    // The toolbar's buttons: a step about the vertical axis, the near side going right or left.
    void rotateRight();
    void rotateLeft();
    // A zoom command, another graph or the title page takes over: the animation ends.
    void stopAnimation();
    // A newly computed figure is shown unrotated.
    void newFigure();

  private:
    GraphCanvas& canvas_;
    SurfaceRotator* rotator_;
    QPointer<SurfaceMouse> mouse_;
    QWidget* dialogParent_;
    QPointer<RotationDialog> dialog_;
};

}  // namespace curvemill
