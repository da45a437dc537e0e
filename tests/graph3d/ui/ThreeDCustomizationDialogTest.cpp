#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QtTest>

#include <functional>

#include "graph3d/SurfaceLookRules.h"
#include "graph3d/ui/ColourWheel.h"
#include "graph3d/ui/SchemeSample.h"
#include "graph3d/ui/SurfaceRedraw.h"
#include "graph3d/ui/ThreeDCustomizationDialog.h"
#include "tests/graph3d/SurfaceFixture.h"
#include "tests/support/DialogControls.h"

using namespace curvemill;
using namespace curvemill::testing;
namespace ids = curvemill::custom3d_ids;

namespace {

// Counts the redraws the dialog asks for.
struct Harness {
    SurfaceScene scene;
    int redraws = 0;
    std::unique_ptr<ThreeDCustomizationDialog> dialog;

    explicit Harness(const char* formula = "50*x*y") {
        computeFor(scene, formula, -1, 1, -1, 1, nullptr, 20);
    }
    ThreeDCustomizationDialog& open() {
        dialog = std::make_unique<ThreeDCustomizationDialog>(scene, true, [this] { ++redraws; });
        return *dialog;
    }
};

}  // namespace

class ThreeDCustomizationDialogTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // Each control stores its setting with one redraw, and a dialog opened again shows it.
    void everyControlRoundTrips() {
        Harness h;
        const SurfaceLight& light = h.scene.light;
        const SurfaceView& view = h.scene.view;
        struct Row {
            int id, value;
            std::function<double()> stored;
            double expected;
        };
        const Row sliders[] = {
            {ids::kFog, 7, [&] { return light.fogIntensity; }, 7},
            {ids::kAmbient, 3, [&] { return light.ambient; }, 30},    // in tens
            {ids::kLightX, 4, [&] { return light.vector.x; }, -0.4},  // keeps its sign
            {ids::kLightY, 3, [&] { return light.vector.y; }, -0.3},
            {ids::kLightZ, 6, [&] { return light.vector.z; }, 0.6},  // zero turns positive
            {ids::kSpecular, 8, [&] { return light.specularShare; }, 0.8},
            {ids::kHorizontal, 9 - kHorizontalLocationLow, [&] { return view.horizontalLocation; },
             9},
            {ids::kVertical, -2 - kVerticalLocationLow, [&] { return view.verticalLocation; }, -2},
        };
        const Vec3 eye = view.eye;
        int redraws = 0;
        for (const Row& row : sliders) {
            control<QSlider>(h.open(), row.id)->setValue(row.value);
            QVERIFY2(std::abs(row.stored() - row.expected) < 1e-6,
                     qPrintable(QString::number(row.id)));
            QCOMPARE(h.redraws, ++redraws);
            QCOMPARE(control<QSlider>(h.open(), row.id)->value(), row.value);
        }
        // The viewer's location moves the eye.
        QVERIFY(view.eye.x > eye.x && view.eye.z < h.scene.grid.zHigh);
        const std::tuple<int, char, const char*> radios[] = {
            {ids::kSchemeGreen, 'g', &light.scheme},     {ids::kSchemeBlue, 'b', &light.scheme},
            {ids::kSchemeCyan, 'c', &light.scheme},      {ids::kSchemeMagenta, 'm', &light.scheme},
            {ids::kSchemeYellow, 'y', &light.scheme},    {ids::kSchemeGrey, '1', &light.scheme},
            {ids::kSchemeOwn, 'o', &light.scheme},       {ids::kSchemeRed, 'r', &light.scheme},
            {ids::kLines, 'l', &h.scene.drawing.mode},   {ids::kPixels, 'p', &h.scene.drawing.mode},
            {ids::kPolygons, 'a', &h.scene.drawing.mode}};
        for (const auto& [id, letter, field] : radios) {
            control<QRadioButton>(h.open(), id)->click();
            QCOMPARE(*field, letter);
            QCOMPARE(h.redraws, ++redraws);
            QVERIFY(control<QRadioButton>(h.open(), id)->isChecked());
        }
        // Settings between slider steps show at the nearest one.
        h.scene.light.vector = {-0.76, 2.5, 0.05};
        h.scene.light.ambient = 47;
        auto& dialog = h.open();
        QCOMPARE(control<QSlider>(dialog, ids::kAmbient)->value(), 4);
        QCOMPARE(control<QSlider>(dialog, ids::kLightX)->value(), 7);
        QCOMPARE(control<QSlider>(dialog, ids::kLightY)->value(), 10);
        QCOMPARE(control<QSlider>(dialog, ids::kLightZ)->value(), 0);
        QSignalSpy toolbar(&dialog, &ThreeDCustomizationDialog::toolbarToggled);
        control<QCheckBox>(dialog, ids::kDisplayToolbar)->click();
        QCOMPARE(toolbar.count(), 1);
        QVERIFY(!toolbar.at(0).at(0).toBool() && !dialog.toolbarShown());
        QCOMPARE(h.redraws, redraws);
    }

    void shinyEnablesItsSliderAndDefaultsRestore() {
        Harness h;
        h.scene.light.scheme = 'g';
        auto& dialog = h.open();
        auto* specular = control<QSlider>(dialog, ids::kSpecular);
        QVERIFY(!specular->isEnabled());
        control<QCheckBox>(dialog, ids::kShiny)->setChecked(true);
        QVERIFY(specular->isEnabled());
        QVERIFY(h.scene.light.shiny);
        control<QCheckBox>(dialog, ids::kShading)->setChecked(true);
        QVERIFY(h.scene.drawing.shading);
        control<QSlider>(dialog, ids::kFog)->setValue(0);
        control<QSlider>(dialog, ids::kLightX)->setValue(2);
        control<QSlider>(dialog, ids::kAmbient)->setValue(9);

        control<QPushButton>(dialog, ids::kDefaults)->click();
        const SurfaceLight& light = h.scene.light;
        QVERIFY(!light.shiny && !h.scene.drawing.shading);
        QCOMPARE(light.ambient, 50);
        QCOMPARE(light.fogIntensity, 5);
        QCOMPARE(light.vector.x, -1.0);
        QCOMPARE(light.scheme, 'g');
        QVERIFY(!specular->isEnabled());
        QVERIFY(!control<QCheckBox>(dialog, ids::kShiny)->isChecked());
        QCOMPARE(control<QSlider>(dialog, ids::kFog)->value(), 5);
        QCOMPARE(control<QSlider>(dialog, ids::kAmbient)->value(), 5);
        QCOMPARE(control<QSlider>(dialog, ids::kLightX)->value(), 10);
    }

    void zLimitSpinRangeAndLabels() {
        Harness h;
        auto& dialog = h.open();
        auto* spin = control<QSpinBox>(dialog, ids::kZLimitSpin);
        QVERIFY(spin->isEnabled());
        QCOMPARE(spin->minimum(), 1);
        QCOMPARE(spin->maximum(), h.scene.grid.limits.availableSteps);
        spin->setValue(2);
        const SurfaceGrid& grid = h.scene.grid;
        QCOMPARE(grid.limits.step, 2);
        QCOMPARE_LE(std::abs(grid.zHigh - grid.zLow - 4 * grid.diagonal), 1e-9);
        QCOMPARE(grid.zc, (grid.zLow + grid.zHigh) / 2);
        QCOMPARE(control<QLabel>(dialog, ids::kZMinLabel)->text(),
                 QString::asprintf("Z min=%f", grid.zLow));
        QCOMPARE(control<QLabel>(dialog, ids::kZMaxLabel)->text(),
                 QString::asprintf("Z max=%f", grid.zHigh));
        QCOMPARE(h.redraws, 1);

        Harness flat("x*y");
        auto& other = flat.open();
        QVERIFY(!control<QSpinBox>(other, ids::kZLimitSpin)->isEnabled());
        QCOMPARE(control<QLabel>(other, ids::kZMaxLabel)->text(), QStringLiteral("Z max=1.000000"));
    }

    void colourWheelInsideAndOutside() {
        Harness h;
        auto& dialog = h.open();
        auto* wheel = control<ColourWheel>(dialog, ids::kColourWheel);
        wheel->resize(100, 100);
        // Outside the circle, in a corner: nothing changes.
        QTest::mouseClick(wheel, Qt::LeftButton, {}, QPoint(2, 2));
        QCOMPARE(h.scene.light.scheme, 'r');
        QCOMPARE(h.redraws, 0);
        // Near the rim at three o'clock: a strong red.
        QTest::mouseClick(wheel, Qt::LeftButton, {}, QPoint(94, 50));
        QCOMPARE(h.scene.light.scheme, 'o');
        QVERIFY(control<QRadioButton>(dialog, ids::kSchemeOwn)->isChecked());
        QVERIFY(!control<QRadioButton>(dialog, ids::kSchemeRed)->isChecked());
        QCOMPARE(h.scene.light.ownRed, 255.0);
        QVERIFY(h.scene.light.ownGreen < 40 && h.scene.light.ownBlue < 40);
        // The centre is nearly white; twelve o'clock is a yellow-green hue.
        QCOMPARE(wheel->colourAt(QPointF(50, 50))->saturation() < 10, true);
        QCOMPARE(wheel->colourAt(QPointF(50, 6))->hue() / 10, 9);
        QVERIFY(!wheel->colourAt(QPointF(99, 99)).has_value());
        QCOMPARE(h.redraws, 1);
    }

    // Each ball is painted by the cells' own colour rule: one channel held, or grey, or the blend.
    void samplesFollowTheColourRule() {
        SurfaceLight light;
        light.ownRed = 20;
        light.ownGreen = 40;
        light.ownBlue = 200;
        const struct {
            char scheme;
            bool (*holds)(QColor);
        } cases[] = {
            {'r', [](QColor c) { return c.red() == 255 && c.green() == c.blue(); }},
            {'g', [](QColor c) { return c.green() == 255 && c.red() == c.blue(); }},
            {'1', [](QColor c) { return c.red() == c.green() && c.green() == c.blue(); }},
            {'y', [](QColor c) { return c.red() == c.green() && c.blue() < c.red(); }},
            {'o', [](QColor c) { return c.blue() >= c.red() && c.red() >= 20; }},
        };
        for (const auto& entry : cases) {
            const QImage image = schemeSample(light, entry.scheme, 24);
            int opaque = 0;
            for (int y = 0; y < 24; ++y) {
                for (int x = 0; x < 24; ++x) {
                    const QColor c = image.pixelColor(x, y);
                    if (c.alpha() == 255) {
                        ++opaque;
                        QVERIFY2(entry.holds(c), qPrintable(QString(QChar(entry.scheme))));
                    }
                }
            }
            // A ball: about pi/4 of the square, the corners left clear.
            QVERIFY(opaque > 400 && opaque < 480);
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
        }
        // Lit from the upper left: that side is brighter.
        const QImage grey = schemeSample(light, '1', 24);
        QVERIFY(grey.pixelColor(7, 7).red() > grey.pixelColor(17, 17).red() + 40);
    }

    // "Show Drawing Process" on a surface: the redraw comes in many small slices, far side first,
    // instead of one; either way the same picture results.
    void pacedRedrawShowsTheProcess() {
        QImage pictures[2];
        int slices[2] = {0, 0};
        int lines = 0;
        for (int paced = 0; paced < 2; ++paced) {
            Harness h;
            h.scene.drawing.gridBox = true;
            QImage& image = pictures[paced];
            image = QImage(300, 240, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::white);
            SurfaceRedraw redraw;
            redraw.setPaced(paced == 1);
            QSignalSpy sliceSpy(&redraw, &SurfaceRedraw::sliceDrawn);
            QSignalSpy doneSpy(&redraw, &SurfaceRedraw::finished);
            redraw.start(image, h.scene);
            QVERIFY(doneSpy.count() == 1 || doneSpy.wait(5000));
            slices[paced] = static_cast<int>(sliceSpy.count());
            lines = lineCount(h.scene, choosePass(h.scene.view, h.scene.grid));
        }
        // Unpaced, as many lines as the time allows, at least four a slice; paced, one a slice.
        QVERIFY(lines > 10);
        QVERIFY2(slices[0] <= (lines + 3) / 4, qPrintable(QString::number(slices[0])));
        QCOMPARE(slices[1], lines);
        QCOMPARE(pictures[0], pictures[1]);
    }

    // A new computation discards the scene while a paced redraw of it is half done: the rest of
    // that picture is dropped, not drawn from a grid the worker is refilling.
    void aDiscardedSceneEndsItsRedraw() {
        Harness h;
        QImage image(300, 240, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        SurfaceRedraw redraw;
        redraw.setPaced(true);
        QSignalSpy doneSpy(&redraw, &SurfaceRedraw::finished);
        redraw.start(image, h.scene);
        h.scene.complete = false;
        h.scene.grid.release();
        QVERIFY(doneSpy.wait(5000));
    }
};

QTEST_MAIN(ThreeDCustomizationDialogTest)
#include "ThreeDCustomizationDialogTest.moc"
