// The one worker thread of the program: runs one long computation at a time, off the
// user-interface thread, with whole-percent progress, Stop, and its end as a queued signal.
#pragma once

#include <atomic>
#include <thread>

#include <QObject>

#include "failure/FailureReporter.h"
#include "worker/JobRun.h"

namespace curvemill {

class Worker : public QObject {
    Q_OBJECT
  public:
    explicit Worker(FailureReporter& reporter, QObject* parent = nullptr);
    // Stops a running job and waits for it; its end is then no longer signalled.
    ~Worker() override;
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // Starts `job` on the worker thread unless one is running (then nothing starts and false is
    // returned: a second request is refused, not queued). `keepComputing` is set now, cleared by
    // stop(), and set again once the job has ended; the evaluator polls it too. A fault in the job
    // is reported under `starter`, the display name of the window that asked for the work.
    bool start(ProcedureName starter, std::atomic<bool>& keepComputing, Job job);
    // Asks the running job to stop at its next poll; it still ends through finished().
    void stop();
    bool isBusy() const { return busy_; }
    // Display name of the window whose job runs, or null.
    ProcedureName starter() const { return busy_ ? starter_ : nullptr; }

  Q_SIGNALS:
    void busyChanged(bool busy);
    // Whole percent done, on the user-interface thread, only when it changed.
    void progressChanged(int percent);
    // The job has ended and its thread is joined: `completed` is false when it was stopped or
    // failed. A failure is reported (under the starter's name) before this is emitted.
    void finished(bool completed);

  private:
    void end(JobOutcome outcome);

    FailureReporter& reporter_;
    std::thread thread_;
    // Touched only on the user-interface thread.
    bool busy_ = false;
    ProcedureName starter_ = nullptr;
    std::atomic<bool>* keepComputing_ = nullptr;
    PercentThrottle throttle_;
};

}  // namespace curvemill
