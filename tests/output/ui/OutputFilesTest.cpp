// Pictures and files: rendering per source, BMP and PNG read back, SVG and PDF validity, clipboard,
// print.
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "output/Palette256.h"
#include "output/ui/ClipboardCopy.h"
#include "output/ui/GraphPrinting.h"
#include "output/ui/ImageFiles.h"
#include "output/ui/PictureRendering.h"
#include "tests/output/ui/FakePicture.h"

using namespace curvemill;
using curvemill::testing::DrawCall;
using curvemill::testing::fakePicture;

namespace {

int pageCount(const QByteArray& pdf) {
    return static_cast<int>(pdf.count("/Type /Page\n") + pdf.count("/Type /Page ") +
                            pdf.count("/Type /Page/") + pdf.count("/Type /Page>"));
}

}  // namespace

class OutputFilesTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:

    void sourcesAreCopiedOrDrawnAtTheirScale() {
        auto calls = std::make_shared<std::vector<DrawCall>>();
        const GraphPicture picture =
            fakePicture(calls, QSize(200, 100), QSize(400, 300), QRect(120, 10, 40, 20));
        // The screen as shown: its own pixels, no drawing.
        const QImage shown = renderPicture(picture, ExportSource::Screen, 1.0);
        QCOMPARE(shown.size(), QSize(200, 100));
        QCOMPARE(shown.pixelColor(150, 50), QColor(Qt::green));
        QVERIFY(calls->empty());
        // Enlarged: drawn again at the target size, not scaled up.
        const QImage large = renderPicture(picture, ExportSource::Screen, 2.0);
        QCOMPARE(large.size(), QSize(400, 200));
        QCOMPARE(calls->back().pixels, QSize(400, 200));
        QCOMPARE(calls->back().extent, PictureExtent::Screen);
        // The document is drawn whole.
        QCOMPARE(renderPicture(picture, ExportSource::Document, 0.5).size(), QSize(200, 150));
        QCOMPARE(calls->back().extent, PictureExtent::Document);
        // A selection on the right half is its part of the screen drawn at the scale: all blue.
        const QImage part = renderPicture(picture, ExportSource::Selection, 2.0);
        QCOMPARE(part.size(), QSize(80, 40));
        QCOMPARE(calls->back().pixels, QSize(400, 200));
        QCOMPARE(part.pixelColor(79, 0), QColor(Qt::blue));
        QCOMPARE(part.pixelColor(0, 39), QColor(Qt::blue));
    }

    void rasterFilesReadBackAsDrawn() {
        // 37 pixels pad a bitmap's rows at both depths; at 8 bits each pixel is its nearest in
        // the palette. The larger picture deflates to more than one block of the PNG encoder's
        // output.
        const Palette256 palette;
        for (const QSize size : {QSize(37, 21), QSize(400, 300)}) {
            QImage image(size, QImage::Format_RGB32);
            image.setDotsPerMeterX(4000);
            QImage eightBits = image;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    const QRgb drawn = qRgb(x * 97 % 256, y * 53 % 256, (x * y * 31 + 7) % 256);
                    image.setPixel(x, y, drawn);
                    eightBits.setPixel(x, y, palette.colour(palette.nearest(drawn & 0xffffff)));
                }
            }
            for (const int bits : {24, 8}) {
                ImageFileOptions options;
                options.bitsPerPixel = bits;
                const auto bytes = encodeRasterFile(ImageFormat::Bmp, image, options);
                QVERIFY(bytes.has_value());
                QCOMPARE(QImage::fromData(*bytes, "BMP").convertToFormat(QImage::Format_RGB32),
                         bits == 24 ? image : eightBits);
            }
            const auto png = encodeRasterFile(ImageFormat::Png, image);
            QVERIFY(png.has_value());
            const QImage read = QImage::fromData(*png, "PNG");
            QCOMPARE(read.convertToFormat(QImage::Format_RGB32), image);
            QCOMPARE(read.dotsPerMeterX(), 4000);
        }
    }

    void vectorFilesAreValid() {
        auto calls = std::make_shared<std::vector<DrawCall>>();
        const GraphPicture picture = fakePicture(calls, QSize(300, 200), QSize(300, 200));
        const PageDrawing draw = [&picture](QPainter& painter, QSize pixels) {
            drawSource(painter, picture, ExportSource::Screen, pixels);
        };
        // That an SVG renders back as the screen shows it is the vector export test's.
        const auto svg = encodeGraphFile(ImageFormat::Svg, draw, QSize(300, 200));
        QVERIFY(svg.has_value());
        QVERIFY(svg->contains("<text"));    // text stays text
        QVERIFY(!svg->contains("<image"));  // and nothing is a bitmap

        const auto pdf = encodeGraphFile(ImageFormat::Pdf, draw, QSize(300, 200));
        QVERIFY(pdf.has_value());
        QVERIFY(pdf->startsWith("%PDF-"));
        QCOMPARE(pageCount(*pdf), 1);
        // 300 by 200 pixels at 96 per inch is 225 by 150 points.
        QVERIFY(QRegularExpression(QStringLiteral("/MediaBox \\[0 0 225(\\.0+)? 150(\\.0+)?\\]"))
                    .match(QString::fromLatin1(*pdf))
                    .hasMatch());
    }

    void clipboardHoldsImageAndPoints() {
        auto calls = std::make_shared<std::vector<DrawCall>>();
        const auto whole = clipboardData(fakePicture(calls, QSize(200, 100), QSize(200, 100)));
        QCOMPARE(qvariant_cast<QImage>(whole->imageData()).size(), QSize(200, 100));
        QCOMPARE(whole->text(), QStringLiteral("curve,x,y\r\nall\r\n"));
        const auto part = clipboardData(
            fakePicture(calls, QSize(200, 100), QSize(200, 100), QRect(30, 5, 50, 40)));
        QCOMPARE(qvariant_cast<QImage>(part->imageData()).size(), QSize(50, 40));
        QCOMPARE(part->data(QStringLiteral("text/csv")), QByteArray("curve,x,y\r\npart,30,50\r\n"));
    }

    void printingDrawsAtThePrintersResolutionAndPreviewsOnePage() {
        QTemporaryDir folder;
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(QStringLiteral("printed.pdf")));
        auto calls = std::make_shared<std::vector<DrawCall>>();
        printPicture(printer, fakePicture(calls, QSize(400, 300), QSize(400, 300)));
        QCOMPARE(calls->size(), std::size_t{1});
        // The whole printable area, whatever the screen's proportions, in printer pixels.
        QCOMPARE(calls->back().pixels,
                 printer.pageLayout().paintRectPixels(printer.resolution()).size());
        QVERIFY(calls->back().pixels.width() > 4 * 400);
        QCOMPARE(calls->back().extent, PictureExtent::PrintedPage);
        QFile file(printer.outputFileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray pdf = file.readAll();
        QVERIFY(pdf.startsWith("%PDF-"));
        QCOMPARE(pageCount(pdf), 1);

        PrintPreviewWindow preview(printer, fakePicture(calls, QSize(400, 300), QSize(400, 300)));
        QCOMPARE(printer.pageLayout().orientation(), QPageLayout::Landscape);
        QTimer::singleShot(0, &preview, [&preview] {
            auto* pages = preview.findChild<QPrintPreviewWidget*>();
            QVERIFY(pages != nullptr);
            pages->updatePreview();
            QCOMPARE(pages->pageCount(), 1);
            preview.reject();
        });
        preview.exec();
    }
};

QTEST_MAIN(OutputFilesTest)
#include "OutputFilesTest.moc"
