#include "shell/ui/ToolbarIcons.h"

#include <cmath>

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace curvemill {

namespace {

const QColor kInk(40, 60, 110);
const QColor kCurve(0, 0, 255);
const QColor kSecond(128, 0, 255);
const QColor kAccent(200, 40, 40);

// A curve y = f(x) across the 24 x 24 square.
template <class F>
void drawCurve(QPainter& p, const QColor& colour, F f, double x0 = 3, double x1 = 21) {
    QPainterPath path;
    for (double x = x0; x <= x1 + 1e-9; x += 0.5) {
        const QPointF point(x, f(x));
        if (x == x0) {
            path.moveTo(point);
        } else {
            path.lineTo(point);
        }
    }
    p.setPen(QPen(colour, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(path);
}

void drawAxes(QPainter& p) {
    p.setPen(QPen(QColor(120, 120, 120), 1));
    p.drawLine(QPointF(2, 12), QPointF(22, 12));
    p.drawLine(QPointF(12, 2), QPointF(12, 22));
}

void drawMagnifier(QPainter& p, bool plus) {
    p.setPen(QPen(kInk, 2));
    p.setBrush(QColor(230, 240, 255));
    p.drawEllipse(QPointF(10, 10), 6.5, 6.5);
    p.setPen(QPen(kInk, 3, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(15, 15), QPointF(21, 21));
    p.setPen(QPen(kInk, 1.8));
    p.drawLine(QPointF(7, 10), QPointF(13, 10));
    if (plus) {
        p.drawLine(QPointF(10, 7), QPointF(10, 13));
    }
}

void drawArrowArc(QPainter& p, bool clockwise) {
    p.setPen(QPen(kInk, 2, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    const QRectF box(4, 4, 16, 16);
    p.drawArc(box, clockwise ? 160 * 16 : 20 * 16, clockwise ? -250 * 16 : 250 * 16);
    const double angle = (clockwise ? 160.0 - 250.0 : 20.0 + 250.0) * M_PI / 180.0;
    const QPointF tip(12 + 8 * std::cos(angle), 12 - 8 * std::sin(angle));
    p.setBrush(kInk);
    p.drawEllipse(tip, 2.2, 2.2);
}

void paintIcon(QPainter& p, int id) {
    switch (id) {
        case 40009:  // a function
            drawAxes(p);
            drawCurve(p, kCurve, [](double x) { return 12 - 7 * std::sin((x - 12) / 3.0); });
            break;
        case 40051:  // add a second function
            drawAxes(p);
            drawCurve(
                p, kCurve, [](double x) { return 15 - 0.1 * (x - 12) * (x - 12); }, 3, 16);
            p.setPen(QPen(kAccent, 2.2));
            p.drawLine(QPointF(18, 3), QPointF(18, 11));
            p.drawLine(QPointF(14, 7), QPointF(22, 7));
            break;
        case 40054:  // switch functions
            drawCurve(p, kCurve, [](double x) { return 8 - 3 * std::sin(x / 3.0); });
            drawCurve(p, kSecond, [](double x) { return 16 + 3 * std::sin(x / 3.0); });
            p.setPen(QPen(kAccent, 1.8));
            p.drawLine(QPointF(12, 6), QPointF(12, 18));
            break;
        case 40086: {  // an equation curve
            p.setPen(QPen(kCurve, 1.8));
            QPainterPath lemniscate;
            for (int i = 0; i <= 64; ++i) {
                const double t = i * 2 * M_PI / 64;
                const double d = 1 + std::sin(t) * std::sin(t);
                const QPointF point(12 + 9 * std::cos(t) / d,
                                    12 + 9 * std::sin(t) * std::cos(t) / d);
                i == 0 ? lemniscate.moveTo(point) : lemniscate.lineTo(point);
            }
            p.drawPath(lemniscate);
            break;
        }
        case 40091: {  // a surface: a small mesh with a hump, seen at an angle
            const auto at = [](int i, int j) {
                const double x = (i - 2) / 2.0;
                const double y = (j - 2) / 2.0;
                const double height = 5.0 * std::exp(-(x * x + y * y));
                return QPointF(12 + (i - j) * 4.2, 15 + (i + j - 4) * 1.8 - height);
            };
            p.setPen(QPen(kInk, 1.1));
            for (int i = 0; i <= 4; ++i) {
                for (int j = 0; j < 4; ++j) {
                    p.drawLine(at(i, j), at(i, j + 1));
                    p.drawLine(at(j, i), at(j + 1, i));
                }
            }
            break;
        }
        case 40030:  // save to file
            p.setPen(QPen(kInk, 1.5));
            p.setBrush(QColor(200, 215, 240));
            p.drawRect(QRectF(4, 4, 16, 16));
            p.setBrush(Qt::white);
            p.drawRect(QRectF(7, 4, 10, 6));
            p.drawRect(QRectF(7, 13, 10, 7));
            break;
        case 40018:  // print
            p.setPen(QPen(kInk, 1.5));
            p.setBrush(Qt::white);
            p.drawRect(QRectF(7, 3, 10, 7));
            p.setBrush(QColor(190, 190, 200));
            p.drawRoundedRect(QRectF(3, 9, 18, 9), 2, 2);
            p.setBrush(Qt::white);
            p.drawRect(QRectF(7, 15, 10, 6));
            break;
        case 40052:  // copy the selection
            p.setPen(QPen(kInk, 1.5));
            p.setBrush(Qt::white);
            p.drawRect(QRectF(4, 4, 11, 13));
            p.setBrush(QColor(220, 230, 250));
            p.drawRect(QRectF(9, 8, 11, 13));
            break;
        case 40005:
            drawMagnifier(p, true);
            break;
        case 40008:
            drawMagnifier(p, false);
            break;
        case 40126:  // restore zoom
            p.setPen(QPen(kInk, 1.5, Qt::DashLine));
            p.setBrush(Qt::NoBrush);
            p.drawRect(QRectF(4, 4, 16, 16));
            p.setPen(QPen(kInk, 1.5));
            p.drawRect(QRectF(8, 8, 8, 8));
            break;
        case 40201: {  // fit to window: a tall wave between two bars, arrows to them
            p.setPen(QPen(kInk, 1.5));
            p.drawLine(QPointF(4, 3), QPointF(20, 3));
            p.drawLine(QPointF(4, 21), QPointF(20, 21));
            QPainterPath wave;
            for (int i = 0; i <= 24; ++i) {
                const double t = i / 24.0;
                const QPointF point(5 + 14 * t, 12 - 8 * std::sin(t * 6.283));
                i == 0 ? wave.moveTo(point) : wave.lineTo(point);
            }
            p.setPen(QPen(QColor(40, 90, 200), 1.6));
            p.drawPath(wave);
            break;
        }
        case 40010:  // grid: in ink, since a light grey grid reads as a disabled button
            p.setPen(QPen(QColor(110, 130, 175), 1));
            for (int i = 8; i <= 16; i += 4) {
                p.drawLine(QPointF(i, 4), QPointF(i, 20));
                p.drawLine(QPointF(4, i), QPointF(20, i));
            }
            p.setPen(QPen(kInk, 1.5));
            p.setBrush(Qt::NoBrush);
            p.drawRect(QRectF(4, 4, 16, 16));
            break;
        case 40012: {  // the math dialog: an integral sign
            QFont font(QStringLiteral("Serif"));
            font.setPixelSize(22);
            font.setItalic(true);
            p.setFont(font);
            p.setPen(kInk);
            p.drawText(QRectF(0, 0, 24, 24), Qt::AlignCenter, QString(QChar(0x222B)));
            break;
        }
        case 40140:  // calculator
            p.setPen(QPen(kInk, 1.5));
            p.setBrush(QColor(235, 235, 240));
            p.drawRoundedRect(QRectF(5, 2, 14, 20), 2, 2);
            p.setBrush(QColor(200, 230, 200));
            p.drawRect(QRectF(7, 4, 10, 5));
            p.setBrush(kInk);
            for (int row = 0; row < 3; ++row) {
                for (int col = 0; col < 3; ++col) {
                    p.drawRect(QRectF(7.5 + col * 3.5, 11 + row * 3.5, 2, 2));
                }
            }
            break;
        case 40130:  // show the drawing process
            p.setPen(QPen(kInk, 1.5));
            p.setBrush(Qt::NoBrush);
            p.drawRect(QRectF(3, 14, 18, 5));
            p.fillRect(QRectF(4, 15, 9, 3), kCurve);
            drawCurve(
                p, kCurve, [](double x) { return 8 - 4 * std::sin(x / 2.5); }, 3, 13);
            break;
        case 40111: {  // back to the title page
            p.setPen(QPen(kInk, 1.5));
            p.setBrush(QColor(220, 230, 250));
            QPolygonF house;
            house << QPointF(12, 3) << QPointF(21, 11) << QPointF(18, 11) << QPointF(18, 20)
                  << QPointF(6, 20) << QPointF(6, 11) << QPointF(3, 11);
            p.drawPolygon(house);
            break;
        }
        case 40063: {  // move with the mouse: a hand of four arrows
            p.setPen(QPen(kInk, 1.8));
            p.drawLine(QPointF(12, 3), QPointF(12, 21));
            p.drawLine(QPointF(3, 12), QPointF(21, 12));
            p.setBrush(kInk);
            for (const auto& tip :
                 {QPolygonF{{12, 2}, {9, 6}, {15, 6}}, QPolygonF{{12, 22}, {9, 18}, {15, 18}},
                  QPolygonF{{2, 12}, {6, 9}, {6, 15}}, QPolygonF{{22, 12}, {18, 9}, {18, 15}}}) {
                p.drawPolygon(tip);
            }
            break;
        }
        case 40064:  // select with the mouse
            p.setPen(QPen(kInk, 1.5, Qt::DashLine));
            p.setBrush(QColor(210, 225, 255, 160));
            p.drawRect(QRectF(4, 5, 16, 13));
            break;
        case 40101:
            drawArrowArc(p, true);
            break;
        case 40102:
            drawArrowArc(p, false);
            break;
        case 1033: {  // the failure demonstration: a warning sign
            p.setPen(QPen(QColor(150, 90, 0), 1.5));
            p.setBrush(QColor(255, 210, 60));
            QPolygonF sign;
            sign << QPointF(12, 3) << QPointF(22, 20) << QPointF(2, 20);
            p.drawPolygon(sign);
            p.setPen(QPen(Qt::black, 2.2));
            p.drawLine(QPointF(12, 9), QPointF(12, 14));
            p.drawPoint(QPointF(12, 17));
            break;
        }
        default:
            p.setPen(QPen(kInk, 1.5));
            p.drawEllipse(QPointF(12, 12), 5, 5);
            break;
    }
}

}  // namespace

QIcon programIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.scale(size / 64.0, size / 64.0);
        QLinearGradient background(0, 0, 0, 64);
        background.setColorAt(0, QColor(24, 44, 96));
        background.setColorAt(1, QColor(60, 110, 190));
        p.setPen(Qt::NoPen);
        p.setBrush(background);
        p.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
        p.setPen(QPen(QColor(255, 255, 255, 110), 1.5));
        p.drawLine(QPointF(8, 40), QPointF(56, 40));
        p.drawLine(QPointF(32, 8), QPointF(32, 56));
        QPainterPath wave;
        for (int i = 0; i <= 96; ++i) {
            const double x = -10.0 + 20.0 * i / 96.0;
            const double y = x == 0.0 ? 1.0 : std::sin(x * 1.6) / (x * 1.6);
            const QPointF point(8 + 48.0 * i / 96.0, 40 - 26 * y);
            i == 0 ? wave.moveTo(point) : wave.lineTo(point);
        }
        p.setPen(QPen(QColor(150, 215, 255), 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        p.drawPath(wave);
        p.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QIcon toolbarIcon(int id) {
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap pixmap(24 * scale, 24 * scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        paintIcon(painter, id);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace curvemill
