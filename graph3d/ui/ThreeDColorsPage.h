// The "Colors" page of the "ThreeD Customization" dialog: the colour schemes with their samples
// and the wheel that picks the own colour.
#pragma once

#include <array>
#include <functional>

#include <QWidget>

#include "graph3d/SurfaceScene.h"

class QLabel;
class QRadioButton;

namespace curvemill {

class ColourWheel;

class ThreeDColorsPage : public QWidget {
  public:
    // `changed` is called after each setting stored in `scene`.
    ThreeDColorsPage(SurfaceScene& scene, std::function<void()> changed);

    // Repaints the samples, which follow the light as well as the colours.
    void refreshSamples();

  private:
    struct SchemeButton {
        ColourScheme scheme;
        QRadioButton* button;
        QLabel* sample;
    };
    void pickScheme(ColourScheme scheme);
    void pickOwnColour(const QColor& colour);

    SurfaceScene& scene_;
    std::function<void()> changed_;
    std::array<SchemeButton, 8> schemes_{};
    ColourWheel* wheel_ = nullptr;
};

}  // namespace curvemill
