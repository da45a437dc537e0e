#include <csignal>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "failure/FaultTranslation.h"
#include "worker/JobRun.h"

namespace curvemill {
namespace {

TEST(PercentThrottle, DeliversEachWholePercentOnceAndClamps) {
    std::vector<int> delivered;
    PercentThrottle throttle([&](int percent) { delivered.push_back(percent); });
    for (int percent : {0, 0, 1, 1, 1, 2, 250, 100, -3, -3}) {
        throttle.report(percent);
    }
    EXPECT_EQ(delivered, (std::vector<int>{0, 1, 2, 100, 0}));
    throttle.reset();
    throttle.report(0);
    EXPECT_EQ(delivered.back(), 0);
    EXPECT_EQ(delivered.size(), 6u);
}

TEST(RunJob, EndsInTheJobsAnswerOrInAFailureUnderTheStartersName) {
    installFaultTranslation();
    static const char kStarter[] = "Starter";
    std::atomic<bool> keep{true};
    const JobContext context{{}, keep};
    struct Row {
        const char* what;
        Job job;
        bool completed;
        bool failed;
        FailureCode code;
    };
    const std::vector<Row> rows{
        {"completed", [](const JobContext&) { return true; }, true, false, 0},
        {"stopped", [](const JobContext& c) { return !c.stopRequested(); }, true, false, 0},
        {"throw", [](const JobContext&) -> bool { throw std::runtime_error("x"); }, false, true, 0},
        {"fault",
         [](const JobContext&) -> bool {
             std::raise(SIGSEGV);
             return true;
         },
         false, true, kCodeAccessViolation},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const JobOutcome outcome = runJob(kStarter, row.job, context);
        EXPECT_EQ(outcome.completed, row.completed);
        ASSERT_EQ(outcome.failure.has_value(), row.failed);
        if (row.failed) {
            EXPECT_EQ(outcome.failure->name, kStarter);
            EXPECT_EQ(outcome.failure->code, row.code);
        }
    }
    // The guard is gone again: nothing is left on the thread's chain.
    EXPECT_EQ(innermostGuard(), nullptr);
    keep = false;
    EXPECT_TRUE(context.stopRequested());
}

}  // namespace
}  // namespace curvemill
