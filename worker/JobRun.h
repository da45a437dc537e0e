// One long computation run under a failure guard, and the whole-percent progress it reports.
#pragma once

#include <atomic>
#include <functional>
#include <optional>

#include "failure/FailureGuard.h"

namespace curvemill {

// Hands a computation's progress on only when the whole percentage changed, so that the receiver
// on the user-interface thread sees at most 101 updates per run however often the work reports.
class PercentThrottle {
  public:
    explicit PercentThrottle(std::function<void(int percent)> deliver)
        : deliver_(std::move(deliver)) {}
    // Thread-safe; values outside 0..100 are clamped.
    void report(int percent);
    void reset() { last_.store(-1, std::memory_order_relaxed); }

  private:
    std::function<void(int percent)> deliver_;
    std::atomic<int> last_{-1};
};

// How a job ended. `completed` is the job's own answer: false when it was stopped.
struct JobOutcome {
    bool completed = false;
    std::optional<Failure> failure;
};

// What a job is handed: progress in whole percent, and the flag Stop clears.
struct JobContext {
    std::function<void(int percent)> progress;
    const std::atomic<bool>& keepComputing;
    bool stopRequested() const { return !keepComputing.load(std::memory_order_relaxed); }
};

using Job = std::function<bool(const JobContext& context)>;

// Runs `job` inside a guard named `starter`: a fault or a throw becomes the outcome's failure.
// A fault leaves the job with siglongjmp, so the frames between this guard and the fault are
// abandoned without running destructors: jobs keep what they own outside those frames (in the
// objects they were given), never in automatic variables of the computation itself.
JobOutcome runJob(ProcedureName starter, const Job& job, const JobContext& context);

}  // namespace curvemill
