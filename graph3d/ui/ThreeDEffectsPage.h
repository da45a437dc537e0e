// The "Visual Effects" page of the "ThreeD Customization" dialog: fog, light and shine.
#pragma once

#include <array>
#include <functional>

#include <QWidget>

#include "graph3d/SurfaceScene.h"

class QCheckBox;
class QSlider;

namespace curvemill {

class ThreeDEffectsPage : public QWidget {
  public:
    // `changed` is called after each setting stored in `scene`; `lookReset` after "Default
    // Settings", before `changed`, so that the other pages can show the fresh light.
    ThreeDEffectsPage(SurfaceScene& scene, std::function<void()> changed,
                      std::function<void()> lookReset);

  private:
    void showSettings();
    void changeLight(int axis, int position);
    void restoreDefaults();

    SurfaceScene& scene_;
    std::function<void()> changed_;
    std::function<void()> lookReset_;
    QSlider* fog_ = nullptr;
    QSlider* ambient_ = nullptr;
    std::array<QSlider*, 3> light_{};
    QCheckBox* shiny_ = nullptr;
    QSlider* specular_ = nullptr;
    QCheckBox* shading_ = nullptr;
};

}  // namespace curvemill
