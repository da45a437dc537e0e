// The "ThreeD Customization" dialog: colours, light and fog, viewer location, drawing mode and
// Z limits of the surface on screen.
#pragma once

#include <array>
#include <functional>

#include <QDialog>

#include "failure/ProcedureNames.h"
#include "graph3d/SurfaceScene.h"

class QAbstractButton;
class QCheckBox;
class QLabel;
class QRadioButton;
class QSlider;
class QSpinBox;
class QTabWidget;

namespace curvemill {

class ColourWheel;

// Control identifiers (each widget's objectName).
namespace custom3d_ids {
inline constexpr int kSchemeRed = 1236;
inline constexpr int kSchemeGreen = 1237;
inline constexpr int kSchemeBlue = 1231;
inline constexpr int kSchemeCyan = 1232;
inline constexpr int kSchemeMagenta = 1233;
inline constexpr int kSchemeYellow = 1234;
inline constexpr int kSchemeGrey = 1235;
inline constexpr int kSchemeOwn = 1087;
inline constexpr int kColourWheel = 1295;
inline constexpr int kFog = 1157;
inline constexpr int kAmbient = 1166;
inline constexpr int kLightX = 1163;
inline constexpr int kLightY = 1164;
inline constexpr int kLightZ = 1165;
inline constexpr int kShiny = 1169;
inline constexpr int kSpecular = 1170;
inline constexpr int kShading = 1173;
inline constexpr int kDefaults = 1168;
inline constexpr int kVertical = 1290;
inline constexpr int kHorizontal = 1291;
inline constexpr int kPolygons = 1143;
inline constexpr int kLines = 1144;
inline constexpr int kPixels = 1145;
inline constexpr int kZLimitEdit = 1153;
inline constexpr int kZLimitSpin = 1155;
inline constexpr int kZMinLabel = 1251;
inline constexpr int kZMaxLabel = 1254;
inline constexpr int kDisplayToolbar = 1150;
}  // namespace custom3d_ids

// Works on the live scene: each change is stored and `redraw` is called at once, so the figure
// behind the dialog follows every slider (nothing is computed again). There is therefore nothing
// to take back, and the dialog has a single "Close" button.
class ThreeDCustomizationDialog : public QDialog, public FailureScope {
    Q_OBJECT
  public:
    ThreeDCustomizationDialog(SurfaceScene& scene, bool toolbarShown, std::function<void()> redraw,
                              QWidget* parent = nullptr);

    // The page on show names the failures: each page is its own procedure.
    ProcedureName procedureName() const override;
    bool toolbarShown() const;

  Q_SIGNALS:
    void toolbarToggled(bool shown);

  private:
    struct SchemeButton {
        char letter;
        QRadioButton* button;
        QLabel* sample;
    };
    QWidget* buildColorsPage();
    QWidget* buildEffectsPage();
    QWidget* buildOtherPage();
    QSlider* addSlider(int id, int low, int high, int position);
    void pickScheme(char letter);
    void pickOwnColour(const QColor& colour);
    void refreshSamples();
    void showEffects();
    void changeLight(int axis, int position);
    void restoreDefaults();
    void changeLocation();
    void changeZLimit(int step);
    void showZRange();
    void changed();

    SurfaceScene& scene_;
    std::function<void()> redraw_;
    QTabWidget* tabs_ = nullptr;
    std::array<SchemeButton, 8> schemes_{};
    ColourWheel* wheel_ = nullptr;
    QSlider* fog_ = nullptr;
    QSlider* ambient_ = nullptr;
    std::array<QSlider*, 3> light_{};
    QCheckBox* shiny_ = nullptr;
    QSlider* specular_ = nullptr;
    QCheckBox* shading_ = nullptr;
    QSlider* vertical_ = nullptr;
    QSlider* horizontal_ = nullptr;
    QRadioButton* polygons_ = nullptr;
    QRadioButton* lines_ = nullptr;
    QRadioButton* pixels_ = nullptr;
    QSpinBox* zLimit_ = nullptr;
    QLabel* zMin_ = nullptr;
    QLabel* zMax_ = nullptr;
    QCheckBox* toolbar_ = nullptr;
    // Set while the controls are being moved to the settings, so that their signals store nothing.
    bool showing_ = false;
};

}  // namespace curvemill
