// The ThreeD Rotation dialog, the animation's timer and the mouse over a surface, offscreen.
#include <QtTest>
#include <QtWidgets>

#include "graph3d/SurfaceScene.h"
#include "graph3d/ui/RotationDialog.h"
#include "graph3d/ui/SurfaceMouse.h"
#include "graph3d/ui/SurfaceRotator.h"

using namespace curvemill;

namespace {

void setAxis(QComboBox* combo, RotationAxis axis) {
    combo->setCurrentIndex(combo->findData(int(axis)));
}

void compareAngles(const RotationAngles& a, double x, double y, double z) {
    QCOMPARE((QList<double>{a.x, a.y, a.z}), (QList<double>{x, y, z}));
}

}  // namespace

class RotationDialogTest : public QObject {
    Q_OBJECT

    SurfaceScene scene;
    std::unique_ptr<SurfaceRotator> rotator;
    std::unique_ptr<RotationDialog> dialog;

    template <typename T>
    T* find(const QString& name) {
        T* w = dialog->findChild<T*>(name);
        return w != nullptr ? w : (qFatal("no control %s", qPrintable(name)), nullptr);
    }

  private Q_SLOTS:
    void init() {
        scene = SurfaceScene{};
        rotator = std::make_unique<SurfaceRotator>(scene);
        dialog = std::make_unique<RotationDialog>(*rotator);
        dialog->show();
    }
    void cleanup() {
        dialog.reset();
        rotator.reset();
    }

    // The step buttons turn about the chosen axis and Reset undoes all. Slider and spin of each
    // axis: moving one sets the angle, the view and the other control; a rotation from elsewhere
    // moves both.
    void stepsResetAndAnglesFollowSlidersSpinsAndTheFigure() {
        setAxis(find<QComboBox>("stepAxisCombo"), RotationAxis::kX);
        find<QDoubleSpinBox>("stepSpin")->setValue(100);
        find<QPushButton>("stepForwardButton")->click();
        find<QPushButton>("stepForwardButton")->click();
        compareAngles(rotator->angles(), -160, 0, 0);
        setAxis(find<QComboBox>("stepAxisCombo"), RotationAxis::kZ);
        find<QPushButton>("stepBackButton")->click();
        compareAngles(rotator->angles(), -160, 0, -100);
        find<QPushButton>("resetButton")->click();
        compareAngles(rotator->angles(), 0, 0, 0);
        QCOMPARE(find<QSlider>("angleXSlider")->value(), 0);
        for (const char* axis : {"X", "Y", "Z"}) {
            auto* slider = find<QSlider>(QStringLiteral("angle%1Slider").arg(axis));
            auto* spin = find<QDoubleSpinBox>(QStringLiteral("angle%1Spin").arg(axis));
            slider->setValue(-1255);
            QCOMPARE(spin->value(), -125.5);
            spin->setValue(40);
            QCOMPARE(slider->value(), 400);
        }
        compareAngles(rotator->angles(), 40, 40, 40);
        find<QSlider>("angleXSlider")->setValue(0);
        find<QSlider>("angleYSlider")->setValue(0);
        compareAngles(rotator->angles(), 0, 0, 40);

        rotator->turn(RotationAxis::kY, -100);
        QCOMPARE(find<QDoubleSpinBox>("angleYSpin")->value(), -100.0);
        QCOMPARE(find<QSlider>("angleYSlider")->value(), -1000);
    }

    // Start turns the figure frame by frame about the chosen axis; Stop and any typed angle end
    // it. The buttons show which of the two makes sense.
    void animationRunsOnTheTimerUntilStopped() {
        auto* start = find<QPushButton>("startButton");
        auto* stop = find<QPushButton>("stopButton");
        QVERIFY(start->isEnabled() && !stop->isEnabled());
        setAxis(find<QComboBox>("animationAxisCombo"), RotationAxis::kY);
        find<QDoubleSpinBox>("speedSpin")->setValue(90);
        QSignalSpy frames(rotator.get(), &SurfaceRotator::rotated);
        start->click();
        QVERIFY(rotator->animating() && !start->isEnabled() && stop->isEnabled());
        QCOMPARE(rotator->animation().axis(), RotationAxis::kY);
        QTRY_VERIFY(frames.size() >= 3);
        QVERIFY(rotator->angles().y > 0);
        QCOMPARE(rotator->angles().x, 0.0);
        QCOMPARE(find<QDoubleSpinBox>("angleYSpin")->value(),
                 std::round(rotator->angles().y * 10) / 10);
        stop->click();
        QVERIFY(!rotator->animating() && start->isEnabled());
        const int count = frames.size();
        QTest::qWait(3 * SurfaceRotator::kFrameMilliseconds);
        QCOMPARE(frames.size(), count);

        start->click();
        find<QDoubleSpinBox>("angleXSpin")->setValue(10);
        QVERIFY(!rotator->animating());
    }

    // A drag of known length turns the figure by its angles and a drag back restores it; the
    // wheel zooms; with another graph shown the mouse is left alone.
    void mouseDragsTurnAndTheWheelZooms() {
        QWidget canvas;
        canvas.resize(400, 300);
        bool shown = true;
        SurfaceMouse mouse(canvas, *rotator, scene.view, [&shown] { return shown; });
        canvas.show();
        rotator->setAngles({0, 0, 10});
        rotator->startAnimation(RotationAxis::kZ, 30);
        QTest::mousePress(&canvas, Qt::LeftButton, {}, {100, 100});
        QVERIFY(!rotator->animating());
        QTest::mouseMove(&canvas, {160, 120});
        compareAngles(rotator->angles(), 10, 0, -20);
        QTest::mouseMove(&canvas, {100, 100});
        compareAngles(rotator->angles(), 0, 0, 10);
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, {100, 100});

        QSignalSpy zoomed(&mouse, &SurfaceMouse::zoomed);
        QWheelEvent notch({200, 150}, canvas.mapToGlobal(QPointF(200, 150)), {}, {0, 240},
                          Qt::NoButton, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&canvas, &notch);
        QCOMPARE(zoomed.size(), 1);
        QVERIFY(qAbs(scene.view.zoom - 1.5625) < 1e-12);

        shown = false;
        QTest::mousePress(&canvas, Qt::LeftButton, {}, {100, 100});
        QTest::mouseMove(&canvas, {200, 200});
        QTest::mouseRelease(&canvas, Qt::LeftButton, {}, {200, 200});
        compareAngles(rotator->angles(), 0, 0, 10);
    }

    // Closing the dialog by its button, Escape or the title bar takes the animation with it.
    void closingStopsTheAnimation() {
        const std::function<void()> ways[] = {
            [this] { find<QPushButton>("closeButton")->click(); },
            [this] { QTest::keyClick(dialog.get(), Qt::Key_Escape); },
            [this] { dialog->close(); },
        };
        for (const auto& close : ways) {
            dialog->show();
            find<QPushButton>("startButton")->click();
            QVERIFY(rotator->animating());
            close();
            QVERIFY2(!rotator->animating(), qPrintable(QString::number(&close - ways)));
        }
    }
};

QTEST_MAIN(RotationDialogTest)
#include "RotationDialogTest.moc"
