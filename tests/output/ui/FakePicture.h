// Test helper: a graph picture whose drawing is simple to predict and records how it was asked.
#pragma once

#include <memory>
#include <vector>

#include <QPainter>

#include "output/ui/GraphPicture.h"

namespace curvemill::testing {

struct DrawCall {
    QSize pixels;
    PictureExtent extent;
};

// Draws the left half of its target red and the right half blue, a black line and a label; the
// screen's own pixels are green, so a copy is told from a drawing.
inline GraphPicture fakePicture(std::shared_ptr<std::vector<DrawCall>> calls, QSize screen,
                                QSize document, std::optional<QRect> selection = std::nullopt) {
    GraphPicture picture;
    picture.draw = [calls](QPainter& painter, QSize pixels, PictureExtent extent) {
        calls->push_back({pixels, extent});
        const int half = pixels.width() / 2;
        painter.fillRect(QRect(0, 0, half, pixels.height()), Qt::red);
        painter.fillRect(QRect(half, 0, pixels.width() - half, pixels.height()), Qt::blue);
        painter.setPen(Qt::black);
        painter.drawLine(QPointF(0, 0), QPointF(pixels.width(), pixels.height()));
        painter.drawText(QPointF(4, 16), QStringLiteral("y = x"));
    };
    picture.screenPixels = [screen] {
        QImage shown(screen, QImage::Format_ARGB32_Premultiplied);
        shown.fill(Qt::green);
        return shown;
    };
    picture.screenSize = screen;
    picture.documentSize = document;
    picture.selection = selection;
    picture.pointsCsv = [](const std::optional<QRect>& part) {
        return part ? "curve,x,y\r\npart," + std::to_string(part->x()) + "," +
                          std::to_string(part->width()) + "\r\n"
                    : std::string("curve,x,y\r\nall\r\n");
    };
    return picture;
}

}  // namespace curvemill::testing
