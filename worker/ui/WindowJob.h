// One window's side of the worker: the window starts its jobs here, is refused with the one busy
// message while another computation runs, and, when it goes, its own job is stopped and waited for.
#pragma once

#include <atomic>
#include <functional>

#include <QMetaObject>

#include "failure/ProcedureNames.h"
#include "worker/JobRun.h"

class QWidget;

namespace curvemill {

class Worker;

// Our own: the one worker runs one computation at a time, and a second request is refused.
inline constexpr const char* kMsgWorkerBusy =
    "ANOTHER COMPUTATION IS RUNNING.\nWAIT FOR IT TO END OR STOP IT FIRST.";

class WindowJob {
  public:
    // `progress` (whole percent) and `ended` are called on the user-interface thread, for this
    // window's own job only.
    WindowJob(Worker& worker, QWidget* window, std::function<void(int percent)> progress,
              std::function<void(bool completed)> ended);
    // A job of the window still going on is stopped and waited for: it reads the window's data.
    // Its end no longer reaches the window (nor a shell half taken down behind it). Declare this
    // member after everything the job touches, so that it goes first.
    ~WindowJob();
    WindowJob(const WindowJob&) = delete;
    WindowJob& operator=(const WindowJob&) = delete;

    // True, after telling the user so on the window in a box captioned `caption`, when the worker
    // runs any computation (the caption belongs to the subsystems above).
    bool refuseWhileBusy(const char* caption);
    // Starts `job` for the window unless the worker is busy (then false, and nothing starts).
    bool start(ProcedureName starter, std::atomic<bool>& keepComputing, Job job);
    // Asks the window's own job to stop; it still ends through `ended`.
    void stop();
    bool running() const { return running_; }

  private:
    Worker& worker_;
    QWidget* window_;
    bool running_ = false;
    QMetaObject::Connection progressConnection_;
    QMetaObject::Connection endConnection_;
};

}  // namespace curvemill
