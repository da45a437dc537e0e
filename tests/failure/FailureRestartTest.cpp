#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "failure/FailureMessage.h"
#include "tests/support/TempDirectory.h"

namespace {

// A real fault in a real process: the report shows its box, starts the program again and ends
// this copy with exit code 0.
TEST(FailureRestart, RealFaultRestartsTheProgramAndExitsWithZero) {
    const curvemill::testing::TempDirectory dir;
    const std::filesystem::path marker = dir.path() / "marker";
    const std::string command = "CURVEMILL_TEST_MARKER='" + marker.string() +
                                "' QT_QPA_PLATFORM=offscreen '" FAILURE_RESTART_HELPER "' fault";
    const int status = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0);

    for (int i = 0; i < 500 && !std::filesystem::exists(marker); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(dir.read("marker"), "restarted");
    EXPECT_EQ(dir.read("marker.box"),
              "ERROR MESSAGE|1|" + curvemill::failureMessage(curvemill::kProcMainWindow,
                                                             curvemill::kCodeAccessViolation));
}

}  // namespace
