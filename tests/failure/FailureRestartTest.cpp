#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "failure/FailureMessage.h"

namespace {

std::string readFile(const std::filesystem::path& path) {
    std::stringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

// A real fault in a real process: the report shows its box, starts the program again and ends
// this copy with exit code 0.
TEST(FailureRestart, RealFaultRestartsTheProgramAndExitsWithZero) {
    const std::filesystem::path marker = std::filesystem::temp_directory_path() /
                                         ("curvemill-restart-" + std::to_string(::getpid()));
    const std::string box = marker.string() + ".box";
    std::filesystem::remove(marker);
    std::filesystem::remove(box);
    const std::string command = "CURVEMILL_TEST_MARKER='" + marker.string() +
                                "' QT_QPA_PLATFORM=offscreen '" FAILURE_RESTART_HELPER "' fault";
    const int status = std::system(command.c_str());
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0);

    for (int i = 0; i < 500 && !std::filesystem::exists(marker); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(readFile(marker), "restarted");
    EXPECT_EQ(readFile(box),
              "ERROR MESSAGE|1|" + curvemill::failureMessage(curvemill::kProcMainWindow,
                                                             curvemill::kCodeAccessViolation));
    std::filesystem::remove(marker);
    std::filesystem::remove(box);
}

}  // namespace
