// The title page's pictures, drawn with the program's own drawing code at start-up.
#pragma once

#include <QPixmap>

namespace curvemill {

// The large picture of the product (command 117).
QPixmap productPicture(QSize size, qreal pixelRatio);
// A 2D graph drawn by the graph painter from a sampled formula.
QPixmap twoDGraphPicture(QSize size, qreal pixelRatio);
// The curve of an equation in two variables (a lemniscate inside a circle).
QPixmap equationPicture(QSize size, qreal pixelRatio);
// A Lissajous figure, x = sin(3t), y = sin(2t), drawn by the curve painter.
QPixmap parametricCurvePicture(QSize size, qreal pixelRatio);
// A rose, r = sin(4t), drawn by the curve painter.
QPixmap polarCurvePicture(QSize size, qreal pixelRatio);
// A shaded surface z = f(x, y) seen from above at an angle.
QPixmap threeDGraphPicture(QSize size, qreal pixelRatio);

}  // namespace curvemill
