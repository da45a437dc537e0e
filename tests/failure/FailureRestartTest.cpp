#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

namespace {

std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// A real fault in a real process: the report shows its box, starts the program again and ends
// this copy with exit code 0.
TEST(FailureRestart, RealFaultRestartsTheProgramAndExitsWithZero) {
    const std::filesystem::path marker = std::filesystem::temp_directory_path() /
                                         ("curvemill-restart-" + std::to_string(::getpid()));
    std::filesystem::remove(marker);
    std::filesystem::remove(marker.string() + ".box");

    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::setenv("CURVEMILL_TEST_MARKER", marker.c_str(), 1);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
        ::execl(FAILURE_RESTART_HELPER, FAILURE_RESTART_HELPER, "fault", nullptr);
        ::_exit(127);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0);

    for (int i = 0; i < 500 && !std::filesystem::exists(marker); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(readFile(marker), "restarted");
    EXPECT_EQ(readFile(marker.string() + ".box"),
              "ERROR MESSAGE|1|AN ERROR OCCURED IN <Main Window Procedure> FUNCTION.\n"
              "IT IS DUE TO <>\nTHE APPLICATION WILL RETURN TO TITLE PAGE.\n"
              "PLEASE REPORT THE ERROR TO THE AUTHORS AT\n<support@curvemill.org>");
    std::filesystem::remove(marker);
    std::filesystem::remove(marker.string() + ".box");
}

}  // namespace
