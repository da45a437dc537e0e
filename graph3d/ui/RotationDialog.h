// "ThreeD Rotation": angles about x, y and z typed or dragged, a step about one axis, the
// animation with its axis and speed, and the way back to the unrotated figure. Modeless: the
// figure turns as the controls move, and the controls follow the mouse, the toolbar and the
// animation.
#pragma once

#include <QDialog>

#include "failure/ProcedureNames.h"
#include "graph3d/SurfaceRotation.h"

class QComboBox;
class QDoubleSpinBox;
class QPushButton;
class QSlider;

namespace curvemill {

class SurfaceRotator;

class RotationDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    RotationDialog(SurfaceRotator& rotator, QWidget* parent = nullptr);
    ProcedureName procedureName() const override { return kProcThreeDRotationDialog; }
    // Closing (Close, Escape or the title bar) also stops the animation, whose Stop goes with it.
    void reject() override;

  private:
    struct AxisControls {
        QSlider* slider = nullptr;
        QDoubleSpinBox* spin = nullptr;
    };
    void showAngles();
    void showAnimationState(bool running);
    void takeAngles();
    void step(double sign);

    SurfaceRotator& rotator_;
    AxisControls axes_[3];
    QComboBox* stepAxis_ = nullptr;
    QDoubleSpinBox* stepSize_ = nullptr;
    QComboBox* animationAxis_ = nullptr;
    QDoubleSpinBox* speed_ = nullptr;
    QPushButton* start_ = nullptr;
    QPushButton* stop_ = nullptr;
};

}  // namespace curvemill
