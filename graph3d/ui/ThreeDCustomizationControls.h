// The control identifiers of the "ThreeD Customization" dialog and the slider its pages share.
#pragma once

#include <QString>

class QSlider;

namespace curvemill {

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

// A control's identifier as its objectName.
inline QString custom3dName(int id) {
    return QString::number(id);
}

// A horizontal slider that moves one step per page and marks every step.
QSlider* custom3dSlider(int id, int low, int high, int position);

}  // namespace curvemill
