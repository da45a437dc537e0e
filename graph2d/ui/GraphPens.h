// The colours of the 2D drawing: curves, painted area, grid, axes, frame and title.
#pragma once

#include <QColor>

namespace curvemill {

namespace graph_colors {
inline const QColor kMainFunction{0, 0, 255};
inline const QColor kDerivative{255, 0, 0};
inline const QColor kIntegral{0, 255, 0};
inline const QColor kSecondFunction{128, 0, 255};
inline const QColor kAreaAbove{210, 230, 255};
inline const QColor kAreaBelow{230, 210, 255};
// The marks over stretches without a value: a light grey wash under a grey hatch, both see-through
// enough to keep the grid readable.
inline const QColor kIndefiniteFill{128, 128, 128, 28};
inline const QColor kIndefiniteHatch{150, 150, 150};
inline const QColor kTitle{0, 0, 120};
inline const QColor kGrid{215, 215, 215};
inline const QColor kAxis{0, 0, 0};
inline const QColor kFrame{128, 128, 128};
inline const QColor kLabel{0, 0, 0};
inline const QColor kBackground{230, 230, 230};
}  // namespace graph_colors

}  // namespace curvemill
