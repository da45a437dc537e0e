#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QtTest>

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
    // Slider position to setting, each move redrawing once.
    void slidersStoreTheirSetting_data() {
        QTest::addColumn<int>("id");
        QTest::addColumn<int>("position");
        QTest::addColumn<double>("expected");
        QTest::newRow("fog") << ids::kFog << 7 << 7.0;
        QTest::newRow("ambient in tens") << ids::kAmbient << 3 << 30.0;
        QTest::newRow("light x keeps its sign") << ids::kLightX << 4 << -0.4;
        QTest::newRow("light y keeps its sign") << ids::kLightY << 3 << -0.3;
        QTest::newRow("zero light z turns positive") << ids::kLightZ << 6 << 0.6;
        QTest::newRow("shine in tenths") << ids::kSpecular << 8 << 0.8;
    }
    void slidersStoreTheirSetting() {
        QFETCH(int, id);
        QFETCH(int, position);
        QFETCH(double, expected);
        Harness h;
        auto& dialog = h.open();
        control<QSlider>(dialog, id)->setValue(position);
        const SurfaceLight& light = h.scene.light;
        const double stored = id == ids::kFog       ? light.fogIntensity
                              : id == ids::kAmbient ? light.ambient
                              : id == ids::kLightX  ? light.vector.x
                              : id == ids::kLightY  ? light.vector.y
                              : id == ids::kLightZ  ? light.vector.z
                                                    : double(light.specularShare);
        QCOMPARE_LE(std::abs(stored - expected), 1e-6);
        QCOMPARE(h.redraws, 1);
    }

    // Setting to position when the dialog opens.
    void slidersShowTheSettings() {
        Harness h;
        h.scene.light.ambient = 47;
        h.scene.light.vector = {-0.76, 2.5, 0.05};
        h.scene.light.specularShare = 0.7f;
        h.scene.light.fogIntensity = 9;
        auto& dialog = h.open();
        const std::pair<int, int> expected[] = {{ids::kAmbient, 4},
                                                {ids::kLightX, 7},
                                                {ids::kLightY, 10},
                                                {ids::kLightZ, 0},
                                                {ids::kSpecular, 7},
                                                {ids::kFog, 9},
                                                {ids::kHorizontal, 5 - kHorizontalLocationLow},
                                                {ids::kVertical, 3 - kVerticalLocationLow}};
        for (const auto& [id, position] : expected) {
            QCOMPARE(control<QSlider>(dialog, id)->value(), position);
        }
        QCOMPARE(h.redraws, 0);
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

    void schemesAndDrawingModes() {
        Harness h;
        auto& dialog = h.open();
        QVERIFY(control<QRadioButton>(dialog, ids::kSchemeRed)->isChecked());
        const std::pair<int, char> schemes[] = {
            {ids::kSchemeGreen, 'g'},   {ids::kSchemeBlue, 'b'},   {ids::kSchemeCyan, 'c'},
            {ids::kSchemeMagenta, 'm'}, {ids::kSchemeYellow, 'y'}, {ids::kSchemeGrey, '1'},
            {ids::kSchemeOwn, 'o'},     {ids::kSchemeRed, 'r'}};
        for (const auto& [id, letter] : schemes) {
            control<QRadioButton>(dialog, id)->click();
            QCOMPARE(h.scene.light.scheme, letter);
        }
        const std::pair<int, char> modes[] = {
            {ids::kLines, 'l'}, {ids::kPixels, 'p'}, {ids::kPolygons, 'a'}};
        for (const auto& [id, letter] : modes) {
            control<QRadioButton>(dialog, id)->click();
            QCOMPARE(h.scene.drawing.mode, letter);
        }
        QCOMPARE(h.redraws, 11);
    }

    void viewerLocationSetsTheViewUp() {
        Harness h;
        auto& dialog = h.open();
        const Vec3 before = h.scene.view.eye;
        control<QSlider>(dialog, ids::kHorizontal)->setValue(9 - kHorizontalLocationLow);
        QCOMPARE(h.scene.view.horizontalLocation, 9);
        QVERIFY(h.scene.view.eye.x > before.x);
        control<QSlider>(dialog, ids::kVertical)->setValue(-2 - kVerticalLocationLow);
        QCOMPARE(h.scene.view.verticalLocation, -2);
        QVERIFY(h.scene.view.eye.z < h.scene.grid.zHigh);
        QCOMPARE(h.redraws, 2);
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
        QCOMPARE(slices[0], 1);
        // One line per slice: the grid has fewer lines than the paced slices.
        QVERIFY(lines > 10);
        QCOMPARE(slices[1], lines);
        QCOMPARE(pictures[0], pictures[1]);
    }

    void toolbarBoxReports() {
        Harness h;
        auto& dialog = h.open();
        QSignalSpy spy(&dialog, &ThreeDCustomizationDialog::toolbarToggled);
        control<QCheckBox>(dialog, ids::kDisplayToolbar)->click();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toBool(), false);
        QVERIFY(!dialog.toolbarShown());
    }
};

QTEST_MAIN(ThreeDCustomizationDialogTest)
#include "ThreeDCustomizationDialogTest.moc"
