#include "worker/JobRun.h"

#include <algorithm>

namespace curvemill {

void PercentThrottle::report(int percent) {
    percent = std::clamp(percent, 0, 100);
    if (last_.exchange(percent, std::memory_order_relaxed) != percent && deliver_) {
        deliver_(percent);
    }
}

JobOutcome runJob(ProcedureName starter, const Job& job, const JobContext& context) {
    JobOutcome outcome;
    // Only read when no failure ended the job: after a jump its value is not to be trusted.
    bool completed = false;
    outcome.failure = catchFailure(starter, [&] { completed = job(context); });
    outcome.completed = completed && !outcome.failure;
    return outcome;
}

}  // namespace curvemill
