// The surface computation on the one worker, as the ThreeD window drives it: progress, the shown
// surface, and a Stop in the first row that leaves nothing drawn.
#include <QtTest>

// The engine's headers come before Qt's, whose "slots" macro would swallow a member name.
#include "graph3d/SurfaceComputation.h"
#include "tests/graph3d/SurfaceFixture.h"
#include "tests/support/RecordingReporter.h"
#include "worker/ui/Worker.h"

using namespace curvemill;

const char kStarter[] = "Equation Window Procedure";

class SurfaceComputationTest : public QObject {
    Q_OBJECT

    testing::RecordingReporter reporter;

  private Q_SLOTS:
    // A completed surface is shown, with its progress; a new computation discards it, and a
    // Stop in its first row leaves nothing drawn.
    void completedSurfaceIsShownAndAStopInTheFirstRowLeavesNothing() {
        Formula formula;
        // Slow enough per vertex that the Stop lands long before the first row of 501 ends.
        QVERIFY(prepareFormula(formula,
                               "sin(x)*cos(y)+sin(x*y)*cos(x-y)+Sqr(x^2+y^2+1)*sin(x+y)+cos(x*x)",
                               FormulaMode::TwoVariables));
        SurfaceScene scene;
        int shown = 0;
        int cleared = 0;
        SurfaceComputation first(formula, scene, {[&] { ++shown; }, [&] { ++cleared; }, {}});
        Worker worker(reporter);
        QSignalSpy finished(&worker, &Worker::finished);
        QSignalSpy progress(&worker, &Worker::progressChanged);
        first.discardPrevious();
        QVERIFY(worker.start(kStarter, formula.keepComputing,
                             first.makeJob({-3, 3, -3, 3, 200, 300, 0, {}})));
        QVERIFY(finished.wait(10000));
        QCOMPARE(finished.first().first().toBool(), true);
        first.show();
        QCOMPARE(std::tuple(shown, cleared, scene.complete, scene.grid.nx, scene.grid.ny),
                 std::tuple(1, 1, true, 200, 300));
        // The last row starts a hair before X_END, where x has been built by addition.
        QVERIFY(progress.last().first().toInt() >= 99);

        SurfaceComputation computation(formula, scene, {{}, [&] { ++cleared; }, {}});
        computation.discardPrevious();
        QVERIFY(worker.start(kStarter, formula.keepComputing,
                             computation.makeJob({-1, 1, -1, 1, 500, 500, 0, {}})));
        worker.stop();
        QVERIFY(finished.wait(10000));
        QCOMPARE(finished.last().first().toBool(), false);
        computation.abandoned();
        QCOMPARE(cleared, 3);
        QVERIFY(scene.grid.evaluatedCount < 501 && !scene.complete);
        QVERIFY(reporter.names.empty());
    }

    void gridThatCannotBeHadIsToldNotThrown() {
        Formula formula;
        QVERIFY(prepareFormula(formula, "x*y", FormulaMode::TwoVariables));
        SurfaceScene scene;
        std::string told;
        SurfaceComputation computation(
            formula, scene, {{}, {}, [&](const std::string& message) { told = message; }});
        Job job = computation.makeJob({-1, 1, -1, 1, 100, 100, 0, {}});
        // What a full memory looks like from here: the grid's storage is refused.
        scene.grid.requestedNx = -5;
        const std::atomic<bool> keep{true};
        QVERIFY(!job(JobContext{[](int) {}, keep}));
        computation.abandoned();
        QCOMPARE(told, std::string(kNoMemoryMessage));
        QVERIFY(!scene.grid.allocated());
    }
};

QTEST_GUILESS_MAIN(SurfaceComputationTest)
#include "SurfaceComputationTest.moc"
