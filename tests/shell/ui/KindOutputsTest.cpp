// Save, Print and Copy of an equation curve and of a surface: each is drawn again by its own
// painter at the target's size, and the clipboard text holds its points.
#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QtTest>

#include <cmath>

#include "engine/Formula.h"
#include "equation/EquationCurve.h"
#include "graph2d/GraphView.h"
#include "graph2d/TwoDGraph.h"
#include "graph3d/SurfaceScene.h"
#include "output/ui/GraphPrinting.h"
#include "output/ui/PictureRendering.h"
#include "shell/ui/CommandActions.h"
#include "shell/ui/EquationCommands.h"
#include "shell/ui/GraphOutputs.h"
#include "shell/ui/MainWindow.h"
#include "tests/graph3d/SurfaceFixture.h"
#include "tests/support/DialogControls.h"
#include "tests/support/MainWindowFixture.h"
#include "tests/support/RecordingReporter.h"
#include "twovar/TwoVariableSettings.h"
#include "twovar/ui/TwoVariableWindow.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

namespace {

qsizetype countPixels(const QImage& image, const std::function<bool(QRgb)>& wanted) {
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    qsizetype count = 0;
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        count += std::count_if(row, row + rgb.width(), wanted);
    }
    return count;
}

bool isDot(QRgb c) {
    return qRed(c) > 150 && qGreen(c) < 60 && qBlue(c) < 60;
}

QStringList csvLines(const std::string& csv) {
    return QString::fromStdString(csv).split(u"\r\n"_s, Qt::SkipEmptyParts);
}

}  // namespace

class KindOutputsTest : public MainWindowFixture {
    Q_OBJECT

    // The preview has laid out exactly one page.
    void expectOnePreviewPage(const GraphPicture& picture) {
        QPrinter printer(QPrinter::HighResolution);
        PrintPreviewWindow preview(printer, picture);
        int pages = -1;
        QTimer::singleShot(0, &preview, [&] {
            if (auto* widget = preview.findChild<QPrintPreviewWidget*>()) {
                widget->updatePreview();
                pages = widget->pageCount();
            }
            preview.reject();
        });
        preview.exec();
        QCOMPARE(pages, 1);
    }

  private Q_SLOTS:
    void init() { openWindow(); }
    void cleanup() { window.reset(); }

    void equationGoesOutAsItsDots() {
        action(40086)->trigger();
        TwoVariableWindow* input = window->equationCommands().window();
        QVERIFY(input != nullptr);
        const int ids[] = {twovar_ids::kXBegin, twovar_ids::kXEnd, twovar_ids::kYBegin,
                           twovar_ids::kYEnd, twovar_ids::kFormula};
        const QString texts[] = {u"-2"_s, u"2"_s, u"-2"_s, u"2"_s, u"x^2+y^2-1"_s};
        for (int i = 0; i < 5; ++i) {
            control<QLineEdit>(*input, ids[i])->setText(texts[i]);
        }
        control<QPushButton>(*input, twovar_ids::kOk)->click();
        QTRY_COMPARE(window->graphKind(), GraphKind::Equation);
        for (const int id : {40030, 40018, 40052}) {
            QVERIFY(action(id)->isEnabled());
        }

        const GraphPicture picture = window->outputs().picture();
        // The circle's dots, on the screen and on the document: a few hundred at least.
        for (const auto& [source, scale] :
             {std::pair{ExportSource::Screen, 2.0}, std::pair{ExportSource::Document, 0.5}}) {
            const QImage image = renderPicture(picture, source, scale);
            QVERIFY2(countPixels(image, isDot) > 200, qPrintable(QString::number(scale)));
        }

        // The copied text is the solution points, on the circle.
        action(40052)->trigger();
        const QStringList lines =
            QGuiApplication::clipboard()->text().split(u"\r\n"_s, Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 1 + curve.count());
        QCOMPARE(lines.first(), u"curve,x,y"_s);
        for (const QString& line : lines.mid(1)) {
            QVERIFY2(line.startsWith(u"x^2+y^2-1 = 0,"_s), qPrintable(line));
            const double x = line.section(u',', 1, 1).toDouble();
            const double y = line.section(u',', 2, 2).toDouble();
            QVERIFY2(std::fabs(x * x + y * y - 1.0) < 1e-3, qPrintable(line));
        }
        // A part of the screen holds only some of them.
        const QRect left(0, 0, picture.screenSize.width() / 2, picture.screenSize.height());
        const qsizetype inLeft = csvLines(picture.pointsCsv(left)).size();
        QVERIFY(inLeft > 10 && inLeft < lines.size() - 10);

        expectOnePreviewPage(picture);
    }

    void surfaceGoesOutAsAFigure() {
        QCOMPARE(computeFor(surface, "sin(x)*cos(y)", -3, 3, -3, 3, nullptr, 40),
                 SurfaceOutcome::Done);
        window->showSurface();
        QCOMPARE(window->graphKind(), GraphKind::Surface3D);
        GraphPicture picture = window->outputs().picture();
        QCOMPARE(picture.documentSize, picture.screenSize);

        const QImage screen = renderPicture(picture, ExportSource::Screen, 1.0);
        QCOMPARE(screen.size(), picture.screenSize);
        const QRgb background = screen.pixel(0, 0);
        const auto figure = [background](QRgb c) { return c != background; };
        QVERIFY(countPixels(screen, figure) > screen.width() * screen.height() / 10);

        // A selection is its part of the figure, in the same place as on the whole picture.
        const QSize size = picture.screenSize;
        const QRect middle(size.width() / 4, size.height() / 4, size.width() / 2,
                           size.height() / 2);
        picture.selection = middle;
        const QImage part = renderPicture(picture, ExportSource::Selection, 2.0);
        const QImage whole = renderPicture(picture, ExportSource::Screen, 2.0);
        QCOMPARE(part.size(), middle.size() * 2);
        const QImage sameArea = whole.copy(QRect(middle.topLeft() * 2, middle.size() * 2));
        qsizetype differing = 0;
        for (int y = 0; y < part.height(); y += 3) {
            for (int x = 0; x < part.width(); x += 3) {
                differing += part.pixel(x, y) != sameArea.pixel(x, y) ? 1 : 0;
            }
        }
        QVERIFY2(differing < part.width() * part.height() / 9 / 20,
                 qPrintable(u"%1 differ"_s.arg(differing)));
        QVERIFY(countPixels(part, figure) > part.width() * part.height() / 4);

        // The copied vertices: all 41 x 41 on the whole screen, fewer in the middle part.
        const QStringList all = csvLines(picture.pointsCsv(QRect(QPoint(0, 0), size)));
        QCOMPARE(all.first(), u"i,j,x,y,z"_s);
        QCOMPARE(all.size(), 1 + 41 * 41);
        for (const QString& line : all.mid(1)) {
            const QStringList f = line.split(u',');
            QCOMPARE(f.size(), 5);
            const double z = std::sin(f[2].toDouble()) * std::cos(f[3].toDouble());
            QVERIFY2(std::fabs(f[4].toDouble() - z) < 1e-9, qPrintable(line));
        }
        const qsizetype inMiddle = csvLines(picture.pointsCsv(middle)).size();
        QVERIFY(inMiddle > 20 && inMiddle < all.size() - 20);

        expectOnePreviewPage(picture);
    }
};

QTEST_MAIN(KindOutputsTest)
#include "KindOutputsTest.moc"
