#include <QtTest>
#include <QtWidgets>

#include <tuple>
#include <vector>

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

// Every slider, box and choice that holds a setting of the scene.
const int kSettingControls[] = {
    ids::kFog,          ids::kAmbient,     ids::kLightX,     ids::kLightY,     ids::kLightZ,
    ids::kShiny,        ids::kSpecular,    ids::kShading,    ids::kHorizontal, ids::kVertical,
    ids::kSchemeRed,    ids::kSchemeGreen, ids::kSchemeBlue, ids::kSchemeCyan, ids::kSchemeMagenta,
    ids::kSchemeYellow, ids::kSchemeGrey,  ids::kSchemeOwn,  ids::kPolygons,   ids::kLines,
    ids::kPixels};

std::vector<int> shownSettings(const QWidget& dialog) {
    std::vector<int> shown;
    for (const int id : kSettingControls) {
        auto* slider = qobject_cast<QSlider*>(control(dialog, id));
        shown.push_back(slider ? slider->value()
                               : control<QAbstractButton>(dialog, id)->isChecked());
    }
    return shown;
}

// What the dialog sets, without the eye and light state derived from it.
auto look(const SurfaceScene& s) {
    const SurfaceLight& l = s.light;
    return std::tuple(l.fogIntensity, l.ambient, l.vector.x, l.vector.y, l.vector.z, l.shiny,
                      l.specularShare, l.scheme, s.drawing.mode, s.drawing.shading,
                      s.view.horizontalLocation, s.view.verticalLocation);
}

}  // namespace

class ThreeDCustomizationDialogTest : public QObject {
    Q_OBJECT
  private Q_SLOTS:
    // A look unlike the defaults in every setting, shown by one dialog and set by hand in
    // another on a new surface, arrives whole, with one redraw for each control moved. A light
    // component keeps its sign and a zero one turns positive: x and y stay negative, z was 0.
    // Shiny enables its slider. Default Settings brings back the look of a new surface, but
    // keeps the colours, the drawing mode and the viewer.
    void everySettingRoundTrips() {
        using enum ColourScheme;
        using enum DrawingMode;
        const std::pair<ColourScheme, DrawingMode> rows[] = {
            {kGreen, kLines},   {kBlue, kPixels},   {kCyan, kPolygons}, {kMagenta, kLines},
            {kYellow, kPixels}, {kGrey, kPolygons}, {kOwn, kLines},     {kRed, kPixels}};
        for (const auto& [scheme, mode] : rows) {
            const std::string row = std::to_string(int(scheme)) + ' ' + std::to_string(int(mode));
            Harness wanted;
            wanted.scene.light = {.vector = {-0.4, -0.3, 0.6},
                                  .shiny = true,
                                  .scheme = scheme,
                                  .ambient = 30,
                                  .fogIntensity = 7,
                                  .specularShare = 0.8f};
            wanted.scene.drawing = {.mode = mode, .shading = true};
            setViewerLocation(wanted.scene, 9, -2);
            const std::vector<int> shown = shownSettings(wanted.open());
            Harness h;
            const Vec3 eye = h.scene.view.eye;
            auto& dialog = h.open();
            QVERIFY(!control(dialog, ids::kSpecular)->isEnabled());
            int moved = 0;
            for (std::size_t k = 0; k < shown.size(); ++k) {
                auto* slider = qobject_cast<QSlider*>(control(dialog, kSettingControls[k]));
                auto* button = qobject_cast<QAbstractButton*>(control(dialog, kSettingControls[k]));
                if (slider && slider->value() != shown[k]) {
                    slider->setValue(shown[k]);
                    ++moved;
                } else if (button && shown[k] && !button->isChecked()) {  // none is unchecked
                    button->setChecked(true);
                    ++moved;
                }
            }
            QVERIFY2(moved >= 10 && h.redraws == moved, row.c_str());
            QVERIFY2(look(h.scene) == look(wanted.scene), row.c_str());
            QVERIFY(h.scene.view.eye.x > eye.x && h.scene.view.eye.z < h.scene.grid.zHigh);
            auto& again = h.open();
            QCOMPARE(shownSettings(again), shown);
            QVERIFY(control(again, ids::kSpecular)->isEnabled());

            control<QPushButton>(again, ids::kDefaults)->click();
            Harness fresh;
            fresh.scene.light.scheme = scheme;
            fresh.scene.drawing.mode = mode;
            setViewerLocation(fresh.scene, 9, -2);
            QVERIFY2(look(h.scene) == look(fresh.scene), row.c_str());
            QCOMPARE(shownSettings(again), shownSettings(fresh.open()));
        }
    }

    // Settings between slider steps show at the nearest one; the toolbar box only says so. The
    // Z limit spin runs over the available steps; a click on the wheel outside its circle does
    // nothing, one inside picks the own colour. Each change that sets something redraws once.
    void slidersZLimitSpinToolbarBoxAndColourWheel() {
        Harness h;
        h.scene.light.vector = {-0.76, 2.5, 0.05};
        h.scene.light.ambient = 47;
        auto& dialog = h.open();
        const std::vector<int> shown = shownSettings(dialog);  // ambient, then the light's x, y, z
        QCOMPARE(std::vector(shown.begin() + 1, shown.begin() + 5), std::vector({4, 7, 10, 0}));
        // The main window's test sees the toolbar go; the one redraw counted below is the spin's.
        control<QCheckBox>(dialog, ids::kDisplayToolbar)->click();

        auto* spin = control<QSpinBox>(dialog, ids::kZLimitSpin);
        QVERIFY(spin->isEnabled() && spin->minimum() == 1);
        QCOMPARE(spin->maximum(), h.scene.grid.limits.availableSteps);
        spin->setValue(2);
        const SurfaceGrid& grid = h.scene.grid;
        QCOMPARE(grid.limits.step, 2);
        QCOMPARE_LE(std::abs(grid.zHigh - grid.zLow - 4 * grid.diagonal), 1e-9);
        QCOMPARE(control<QLabel>(dialog, ids::kZMinLabel)->text() +
                     control<QLabel>(dialog, ids::kZMaxLabel)->text(),
                 QString::asprintf("Z min=%fZ max=%f", grid.zLow, grid.zHigh));
        QCOMPARE(h.redraws, 1);

        auto* wheel = control<ColourWheel>(dialog, ids::kColourWheel);
        wheel->resize(100, 100);
        QTest::mouseClick(wheel, Qt::LeftButton, {}, QPoint(2, 2));
        QVERIFY(h.scene.light.scheme == ColourScheme::kRed);
        QCOMPARE(h.redraws, 1);
        // Near the rim at three o'clock: a strong red.
        QTest::mouseClick(wheel, Qt::LeftButton, {}, QPoint(94, 50));
        QVERIFY(h.scene.light.scheme == ColourScheme::kOwn);
        QVERIFY(control<QRadioButton>(dialog, ids::kSchemeOwn)->isChecked());
        QCOMPARE(h.scene.light.ownRed, 255.0);
        QVERIFY(h.scene.light.ownGreen < 40 && h.scene.light.ownBlue < 40);
        // The centre is nearly white; twelve o'clock is a yellow-green hue.
        QCOMPARE(wheel->colourAt(QPointF(50, 50))->saturation() < 10, true);
        QCOMPARE(wheel->colourAt(QPointF(50, 6))->hue() / 10, 9);
        QVERIFY(!wheel->colourAt(QPointF(99, 99)).has_value());
        QCOMPARE(h.redraws, 2);

        Harness flat("x*y");
        auto& other = flat.open();
        QVERIFY(!control<QSpinBox>(other, ids::kZLimitSpin)->isEnabled());
        QCOMPARE(control<QLabel>(other, ids::kZMaxLabel)->text(), QStringLiteral("Z max=1.000000"));
    }

    // Each ball is painted by the cells' own colour rule, lit from the upper left.
    void samplesFollowTheColourRule() {
        SurfaceLight light{.ownRed = 20, .ownGreen = 40, .ownBlue = 200};
        using enum ColourScheme;
        for (const auto scheme : {kRed, kGreen, kBlue, kCyan, kMagenta, kYellow, kGrey, kOwn}) {
            light.scheme = scheme;
            QSet<QRgb> rule;
            for (int brightness = 0; brightness < 256; ++brightness) {
                const std::uint32_t c = schemeColour(light, brightness);
                rule.insert(qRgb(redOf(c), greenOf(c), blueOf(c)));
            }
            const QImage image = schemeSample(light, scheme, 24);
            int opaque = 0;
            for (int y = 0; y < 24; ++y) {
                for (int x = 0; x < 24; ++x) {
                    if (qAlpha(image.pixel(x, y)) == 255) {
                        ++opaque;
                        QVERIFY2(rule.contains(image.pixel(x, y)),
                                 std::to_string(int(scheme)).c_str());
                    }
                }
            }
            // A ball: about pi/4 of the square, the corners left clear.
            QVERIFY(opaque > 400 && opaque < 480);
            QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
        }
        const QImage grey = schemeSample(light, kGrey, 24);
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
