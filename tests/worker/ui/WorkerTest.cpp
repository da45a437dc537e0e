#include <csignal>
#include <thread>

#include <QSignalSpy>
#include <QWidget>
#include <QtTest>

#include "failure/FaultTranslation.h"
#include "tests/support/RecordingReporter.h"
#include "worker/ui/WindowJob.h"
#include "worker/ui/Worker.h"

using namespace curvemill;
using namespace curvemill::testing;

namespace {
const char kStarter[] = "Starter Procedure";

// A job that runs until it is asked to stop, then says so in `ended`.
Job untilStopped(std::atomic<bool>* ended = nullptr) {
    return [ended](const JobContext& context) {
        while (!context.stopRequested()) {
            std::this_thread::yield();
        }
        if (ended != nullptr) {
            *ended = true;
        }
        return false;
    };
}
}  // namespace

class WorkerTest : public QObject {
    Q_OBJECT

    RecordingReporter reporter;
    std::atomic<bool> keepComputing{true};

  private Q_SLOTS:
    void initTestCase() { installFaultTranslation(); }
    void init() { reporter = RecordingReporter{}; }

    void progressArrivesOnTheInterfaceThreadBeforeTheEnd() {
        Worker worker(reporter);
        std::vector<int> seen;
        Qt::HANDLE seenOn = nullptr;
        connect(&worker, &Worker::progressChanged, [&](int percent) {
            seen.push_back(percent);
            seenOn = QThread::currentThreadId();
        });
        QSignalSpy finished(&worker, &Worker::finished);
        QSignalSpy busy(&worker, &Worker::busyChanged);
        QVERIFY(worker.start(kStarter, keepComputing, [](const JobContext& context) {
            for (int i = 0; i <= 1000; ++i) {
                context.progress(i / 10);
            }
            return true;
        }));
        QVERIFY(worker.isBusy());
        QCOMPARE(worker.starter(), kStarter);
        QVERIFY(finished.wait(5000));
        QCOMPARE(finished.first().first().toBool(), true);
        QCOMPARE(seen.size(), std::size_t(101));
        QCOMPARE(seen.back(), 100);
        QCOMPARE(seenOn, QThread::currentThreadId());
        QCOMPARE(busy.count(), 2);
        QVERIFY(!worker.isBusy());
    }

    // A second request is refused and Stop ends the first; a fault is reported under the
    // starter's name and ends its job.
    void aSecondRequestIsRefusedStopEndsTheFirstAndAFaultIsReported() {
        Worker worker(reporter);
        QSignalSpy finished(&worker, &Worker::finished);
        QVERIFY(worker.start(kStarter, keepComputing, untilStopped()));
        bool secondRan = false;
        QVERIFY(!worker.start(kStarter, keepComputing, [&](const JobContext&) {
            secondRan = true;
            return true;
        }));
        worker.stop();
        QVERIFY(finished.wait(5000));
        QCOMPARE(finished.first().first().toBool(), false);
        QVERIFY(!secondRan);
        // Evaluation elsewhere must not find the flag still cleared.
        QVERIFY(keepComputing.load());
        QVERIFY(reporter.names.empty());

        QVERIFY(worker.start(kStarter, keepComputing, [](const JobContext&) {
            std::raise(SIGFPE);
            return true;
        }));
        QVERIFY(finished.wait(5000));
        QCOMPARE(finished.last().first().toBool(), false);
        QCOMPARE(reporter.names, (std::vector<ProcedureName>{kStarter}));
        QCOMPARE(reporter.codes.size(), std::size_t(1));
    }

    void destroyingARunningWorkerStopsAndWaits() {
        std::atomic<bool> ended{false};
        {
            Worker worker(reporter);
            QVERIFY(worker.start(kStarter, keepComputing, untilStopped(&ended)));
        }
        QVERIFY(ended.load());
        QVERIFY(keepComputing.load());
    }

    // A window that goes stops its own job and waits for it; the end no longer reaches it, and
    // only a window's own job is its business.
    void aWindowGoingAwayStopsAndWaitsForItsJob() {
        Worker worker(reporter);
        QWidget window;
        int ends = 0;
        std::atomic<bool> jobReturned{false};
        {
            WindowJob other(worker, &window, {}, [&](bool) { ++ends; });
            WindowJob job(worker, &window, {}, [&](bool) { ++ends; });
            QVERIFY(job.start(kStarter, keepComputing, untilStopped(&jobReturned)));
            QVERIFY(job.running() && !other.running());
            QVERIFY(!other.start(kStarter, keepComputing, [](const JobContext&) { return true; }));
        }
        QVERIFY(jobReturned.load());
        QVERIFY(!worker.isBusy());
        QCOMPARE(ends, 0);
    }
};

QTEST_MAIN(WorkerTest)
#include "WorkerTest.moc"
