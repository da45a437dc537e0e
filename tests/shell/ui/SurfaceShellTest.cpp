// A surface through the main window: computed and drawn, zoomed, boxed, customized, turned by the
// toolbar, the dialog and the mouse, and sent out by Copy and Print.
#include <QClipboard>
#include <QDoubleSpinBox>
#include <QMimeData>
#include <QToolBar>
#include <QtTest>

#include <cmath>

#include "graph3d/SurfaceRotation.h"
#include "graph3d/ui/ThreeDCustomizationControls.h"
#include "tests/support/MainWindowFixture.h"

using namespace curvemill;
using namespace curvemill::testing;
using namespace Qt::Literals::StringLiterals;

class SurfaceShellTest : public MainWindowFixture {
    Q_OBJECT

    // The back buffer once the sliced redraw is over.
    QImage drawn() {
        canvas()->repaint();
        if (!QTest::qWaitFor([this] { return !canvas()->surfaceRedraw().running(); }, 10000)) {
            return {};
        }
        return canvas()->backBuffer();
    }
    QDoubleSpinBox* zAngle() {
        return named<QDialog>(u"rotationDialog"_s)->findChild<QDoubleSpinBox*>(u"angleZSpin"_s);
    }

  private Q_SLOTS:
    void init() {
        openWindow({1000, 700});
        QVERIFY(enterTwoVariables(40091, u"sin(x)*cos(y)"_s, u"3"_s) != nullptr);
        QTRY_COMPARE_WITH_TIMEOUT(window->graphKind(), GraphKind::Surface3D, 20000);
    }
    void cleanup() { window.reset(); }

    // Drawn in scheme 'r' on white without scroll bars, half as wide after Zoom Out; Copy gives
    // the figure at the screen's size with every vertex, and Print lays out one page.
    void surfaceIsDrawnZoomedAndSentOut() {
        const QImage image = drawn();
        QCOMPARE(status(), u"Ready"_s);
        const QRgb middle = image.pixel(image.width() / 2, image.height() / 2);
        QVERIFY(qRed(middle) == 255 && qGreen(middle) < 255);
        QVERIFY(bar(Qt::Horizontal)->isHidden() && bar(Qt::Vertical)->isHidden());
        // Half as wide and high: a quarter of the red figure's pixels.
        const auto red = [](QRgb c) { return qRed(c) == 255 && qGreen(c) < 200; };
        const qsizetype before = countPixels(image, red);
        action(40008)->trigger();
        const qsizetype after = countPixels(drawn(), red);
        QVERIFY2(std::abs(after * 4 - before) < before / 10, qPrintable(QString::number(after)));

        action(40052)->trigger();
        const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
        const QImage picture = qvariant_cast<QImage>(copied->imageData());
        QCOMPARE(picture.size(), canvas()->size() * canvas()->devicePixelRatioF());
        const QRgb background = picture.pixel(0, 0);
        QVERIFY(countPixels(picture, [&](QRgb c) { return c != background; }) >
                picture.width() * picture.height() / 20);
        const QStringList lines = copied->text().split(u"\r\n"_s, Qt::SkipEmptyParts);
        QCOMPARE(lines.first(), u"i,j,x,y,z"_s);
        QCOMPARE(lines.size(), 1 + 101 * 101);
        for (const QString& line : lines.mid(1)) {
            const QStringList f = line.split(u',');
            const double z = std::sin(f.value(2).toDouble()) * std::cos(f.value(3).toDouble());
            QVERIFY2(f.size() == 5 && std::fabs(f[4].toDouble() - z) < 1e-9, qPrintable(line));
        }
        QCOMPARE(printedPages(), 1);
    }

    // Draw Grid puts the box (ink) round the figure and takes it off again; ThreeD
    // Customization is modeless and one, and its scheme and toolbar reach the window at once.
    void gridBoxCustomizationAndASurfaceWithoutValues() {
        const auto ink = [](QRgb c) { return qRed(c) < 60 && qGreen(c) < 60 && qBlue(c) < 60; };
        const qsizetype bare = countPixels(drawn(), ink);
        action(40010)->trigger();
        QVERIFY(action(40010)->isChecked());
        QCOMPARE_GT(countPixels(drawn(), ink), bare + 200);
        action(40010)->trigger();
        QCOMPARE(countPixels(drawn(), ink), bare);

        action(40139)->trigger();
        action(40139)->trigger();
        QCOMPARE(window->findChildren<QDialog*>(u"ThreeDCustomizationDialog"_s).size(), 1);
        auto* dialog = named<QDialog>(u"ThreeDCustomizationDialog"_s);
        QVERIFY(dialog->isVisible() && !dialog->isModal());
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
        control<QAbstractButton>(*dialog, custom3d_ids::kSchemeGreen)->click();
        const QImage green = drawn();
        const QRgb middle = green.pixel(green.width() / 2, green.height() / 2);
        QVERIFY(qGreen(middle) == 255 && qRed(middle) < 255);
        control<QAbstractButton>(*dialog, custom3d_ids::kDisplayToolbar)->click();
        QVERIFY(named<QToolBar>(u"toolbar"_s)->isHidden());

        // A surface with no value anywhere is said, the dialog still fits, and a 2D graph
        // afterwards takes the canvas (and its scroll bars) back.
        QVERIFY(enterTwoVariables(40091, u"ln(0-1-x^2-y^2)"_s) != nullptr);
        QTRY_VERIFY2(status().contains(u"has no value on the grid"_s), qPrintable(status()));
        action(40139)->trigger();
        QCOMPARE_LT(named<QDialog>(u"ThreeDCustomizationDialog"_s)->width(), 700);
        QVERIFY(drawFunction(false, u"x"_s));
        QVERIFY(bar(Qt::Horizontal)->isVisible());
    }

    // The toolbar steps about the vertical axis and the mouse turns the figure; a new figure
    // starts unrotated; every zoom command ends the animation before it zooms.
    void turnedByToolbarMouseAndDialog() {
        action(40114)->trigger();
        action(40101)->trigger();
        QCOMPARE(zAngle()->value(), -kRotationStepDegrees);
        QVERIFY(surface.view.mode == RotationMode::kAboutZ);
        action(40102)->trigger();
        action(40102)->trigger();
        QCOMPARE(zAngle()->value(), kRotationStepDegrees);
        QVERIFY(enterTwoVariables(40091, u"sin(x)*cos(y)"_s, u"3"_s) != nullptr);
        QTRY_COMPARE(zAngle()->value(), 0.0);
        QVERIFY(surface.view.mode == RotationMode::kNone);
        drag({300, 300}, {340, 300});
        QCOMPARE(zAngle()->value(), -20.0);

        auto* dialog = named<QDialog>(u"rotationDialog"_s);
        auto* stop = dialog->findChild<QPushButton*>(u"stopButton"_s);
        for (int id : {40008, 40126, 40005}) {
            const double zoom = surface.view.zoom;
            dialog->findChild<QPushButton*>(u"startButton"_s)->click();
            QVERIFY(stop->isEnabled());
            action(id)->trigger();
            QVERIFY2(!stop->isEnabled(), qPrintable(QString::number(id)));
            if (id == 40005) {
                QCOMPARE(surface.view.zoom, zoom * 2);
            }
        }
    }
};

QTEST_MAIN(SurfaceShellTest)
#include "SurfaceShellTest.moc"
