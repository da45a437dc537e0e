// The "Other Features" page of the "ThreeD Customization" dialog: viewer location, drawing mode,
// Z limits and the toolbar.
#pragma once

#include <functional>

#include <QWidget>

#include "graph3d/SurfaceScene.h"

class QCheckBox;
class QLabel;
class QSlider;
class QSpinBox;

namespace curvemill {

class ThreeDOtherPage : public QWidget {
  public:
    // `changed` is called after each setting stored in `scene`; the toolbar is not part of the
    // scene, so its box reports to `toolbarToggled` instead.
    ThreeDOtherPage(SurfaceScene& scene, bool toolbarShown, std::function<void()> changed,
                    std::function<void(bool)> toolbarToggled);

    bool toolbarShown() const;

  private:
    void changeLocation();
    void changeZLimit(int step);
    void showZRange();

    SurfaceScene& scene_;
    std::function<void()> changed_;
    QSlider* vertical_ = nullptr;
    QSlider* horizontal_ = nullptr;
    QSpinBox* zLimit_ = nullptr;
    QLabel* zMin_ = nullptr;
    QLabel* zMax_ = nullptr;
    QCheckBox* toolbar_ = nullptr;
};

}  // namespace curvemill
