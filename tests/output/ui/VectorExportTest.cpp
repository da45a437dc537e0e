// A curve on screen saved as SVG and PDF: the file must hold the curve where the screen shows it.
#include <QPainter>
#include <QSet>
#include <QSvgRenderer>
#include <QTest>

#include <algorithm>

#include "output/ui/ImageFiles.h"
#include "output/ui/PictureRendering.h"
#include "shell/ui/GraphOutputs.h"
#include "tests/support/MainWindowFixture.h"

using namespace curvemill;

namespace {

// Whether a colour is of a clear hue: the curve, not the grey or black frame, axes, grid and
// labels, nor the title's dark blue. Channels from 0 to 1.
bool clearHue(double r, double g, double b) {
    return std::max({r, g, b}) - std::min({r, g, b}) > 0.6;
}

QPoint cellOf(double x, double y) {
    return QPoint(int(x) / 8, int(y) / 8);
}

// The cells of 8 by 8 pixels that hold a pixel of a clear hue.
QSet<QPoint> colouredCells(const QImage& image) {
    QSet<QPoint> cells;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (clearHue(c.redF(), c.greenF(), c.blueF())) {
                cells.insert(cellOf(x, y));
            }
        }
    }
    return cells;
}

// The cells, in screen pixels, of the points of the paths a PDF strokes in a clear hue. Its page
// streams are inflated; their units go to points by the page's "cm" scale, then to 96 per inch.
QSet<QPoint> strokedCells(const QByteArray& pdf) {
    QStringList lines;
    for (qsizetype at = pdf.indexOf("\nstream\n"); at >= 0;
         at = pdf.indexOf("\nstream\n", at + 1)) {
        const qsizetype object = pdf.lastIndexOf(" obj", at);
        if (!pdf.mid(object, at - object).contains("/FlateDecode")) {
            continue;
        }
        // qUncompress wants the size first; a guess is enough.
        const QByteArray packed = QByteArray::fromHex("00100000") +
                                  pdf.mid(at + 8, pdf.indexOf("endstream", at) - at - 8);
        lines += QString::fromLatin1(qUncompress(packed)).split(u'\n');
    }
    QSet<QPoint> cells;
    double scale = 0;
    bool hue = false;
    for (const QString& line : lines) {
        const QStringList w = line.split(u' ');
        if (w.last() == u"cm" && scale == 0) {
            scale = w[0].toDouble() / 0.75;
        } else if (w.size() == 4 && w[3] == u"SCN") {
            hue = clearHue(w[0].toDouble(), w[1].toDouble(), w[2].toDouble());
        } else if (hue && w.size() == 3 && (w[2] == u"m" || w[2] == u"l")) {
            cells.insert(cellOf(w[0].toDouble() * scale, w[1].toDouble() * scale));
        }
    }
    return cells;
}

// The share of `cells` that have a cell of `other` on them or beside them.
double nearShare(const QSet<QPoint>& cells, const QSet<QPoint>& other) {
    int near = 0;
    for (const QPoint& cell : cells) {
        bool found = false;
        for (int d = 0; d < 9; ++d) {
            found = found || other.contains(cell + QPoint(d % 3 - 1, d / 3 - 1));
        }
        near += found ? 1 : 0;
    }
    return cells.isEmpty() ? 0.0 : double(near) / cells.size();
}

}  // namespace

class VectorExportTest : public curvemill::testing::MainWindowFixture {
    Q_OBJECT
  private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { window.reset(); }

    void svgAndPdfHoldTheCurveShown() {
        QVERIFY(drawFunction(false, QStringLiteral("sin(x)*3")));
        const GraphPicture picture = window->outputs().picture();
        const QImage screen = picture.screenPixels();
        const PageDrawing draw = [&picture](QPainter& painter, QSize pixels) {
            drawSource(painter, picture, ExportSource::Screen, pixels);
        };
        const auto svg = encodeGraphFile(ImageFormat::Svg, draw, picture.screenSize);
        QVERIFY(svg.has_value());
        QImage back(screen.size(), QImage::Format_ARGB32);
        back.fill(Qt::white);
        QPainter painter(&back);
        QSvgRenderer(*svg).render(&painter);
        painter.end();
        const QSet<QPoint> shown = colouredCells(screen);
        QVERIFY(shown.size() > 100);
        const auto pdf = encodeGraphFile(ImageFormat::Pdf, draw, picture.screenSize);
        QVERIFY(pdf.has_value());
        // Qt has no PDF renderer here: the page's stroked path is compared instead.
        for (const auto& [format, cells] :
             {std::pair{"pdf", strokedCells(*pdf)}, std::pair{"svg", colouredCells(back)}}) {
            QVERIFY2(nearShare(shown, cells) > 0.98 && nearShare(cells, shown) > 0.98, format);
        }
    }
};

QTEST_MAIN(VectorExportTest)
#include "VectorExportTest.moc"
