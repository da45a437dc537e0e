// Runs the built curvemill-cli on argument lists and pins its output and exit status.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "CliRun.h"

namespace {

struct CliCase {
    std::vector<std::string> args;
    std::string out;  // exact stdout; for exit 2 stdout must be empty and stderr not
    int exitCode;
};

class CliTest : public ::testing::TestWithParam<CliCase> {};

TEST_P(CliTest, PrintsAndExitsAsScriptsExpect) {
    const CliCase& c = GetParam();
    const CliRun r = runCli(c.args);
    EXPECT_EQ(r.exitCode, c.exitCode) << r.err;
    EXPECT_EQ(r.out, c.out);
    EXPECT_EQ(r.err.empty(), c.exitCode != 2) << r.err;
    // Words echoed in messages must not reach the terminal as control bytes.
    EXPECT_EQ(std::count_if(r.err.begin(), r.err.end(),
                            [](char b) { return (b >= 0 && b < ' ' && b != '\n') || b == 0x7f; }),
              0)
        << r.err;
}

// Names the cases in test lists and failure messages: bytes escaped, long words shortened.
void PrintTo(const CliCase& c, std::ostream* os) {
    for (const std::string& a : c.args) {
        *os << '[';
        for (const char b : a.substr(0, 24)) {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02x", static_cast<unsigned char>(b));
            *os << (b > ' ' && b < 0x7f ? std::string(1, b) : std::string(hex));
        }
        if (a.size() > 24) {
            *os << "...(" << a.size() << ')';
        }
        *os << "] ";
    }
}

// n terms "x" joined by '+', 2n-1 characters.
std::string sumOfX(int n) {
    std::string text = "x";
    for (int i = 1; i < n; ++i) {
        text += "+x";
    }
    return text;
}

// 99 characters are what an edit box holds; blanks do not count.
const std::string kLongest = sumOfX(50) + "        ";
const std::string kTooLong = sumOfX(51);
const std::string kLongestNumber = std::string(98, '0') + "7";
const std::string kTooLongNumber = std::string(99, '0') + "7";
const std::string kHuge = std::string("1").append(308, '0');

INSTANTIATE_TEST_SUITE_P(
    Check, CliTest,
    ::testing::Values(
        CliCase{{"check", "x+2*x"}, "(x+(2*x))\n", 0}, CliCase{{"check", "2.5*pi"}, "(2.5*p)\n", 0},
        CliCase{{"check", "--", "-x^2"}, "(-(x^2))\n", 0},
        CliCase{{"check", "--mode", "e", "x*y"}, "(x*y)\n", 0},
        CliCase{{"check", "--mode=n", "pi/2"}, "(p/2)\n", 0},
        CliCase{{"check", "--lenient", "()"}, "(())\n", 0},
        CliCase{{"check", "sin x"}, "INVALID ENTRY\n", 1},
        CliCase{{"check", "()"}, "A WRONG CHARACTER BEFORE A BRACKET\n", 1},
        CliCase{{"check", "--mode", "n", "x"}, "NUMBER IS NOT A CONSTANT\n", 1},
        CliCase{{"check", "!x"}, "\n", 1}, CliCase{{"check", "-x"}, "", 2},
        CliCase{{"check", "--mode", "z", "x"}, "", 2}, CliCase{{"check", "--mode"}, "", 2},
        CliCase{{"check", "--bogus", "x"}, "", 2}, CliCase{{"check", "--lenient=1", "x"}, "", 2},
        CliCase{{"check"}, "", 2}, CliCase{{"check", "x", "y"}, "", 2},
        CliCase{{"check", kLongest}, std::string("(").append(sumOfX(50)).append(")\n"), 0},
        CliCase{{"check", kTooLong}, "", 2}, CliCase{{}, "", 2},
        CliCase{{"frobnicate", "x"}, "", 2}, CliCase{{"\x1b]0;owned\x07\x9b"}, "", 2},
        CliCase{{"check", "--\x1b[2J", "x"}, "", 2},
        CliCase{{"check", "--mode", "\r", "x"}, "", 2}));

INSTANTIATE_TEST_SUITE_P(
    Eval, CliTest,
    ::testing::Values(
        CliCase{{"eval", "x^2", "-3"}, "9\n", 0},
        CliCase{{"eval", "x", "pi/2"}, "1.5707963267948966\n", 0},
        CliCase{{"eval", "1/0", "0"}, "10000000000\n", 0},
        CliCase{{"eval", "--", "-x^2", "3"}, "-9\n", 0},
        CliCase{{"eval", "x*y", "2", "3"}, "6\n", 0},
        CliCase{{"eval", "--mode", "f", "x", "2", "3"}, "2\n", 0},
        CliCase{{"eval", "--mode", "e", "x+y", "2"}, "2\n", 0},
        CliCase{{"eval", "--log-base", "100", "log(10000)", "0"}, "2\n", 0},
        CliCase{{"eval", "--log-base=0", "log(10)", "0"}, "-0\n", 0},
        CliCase{{"eval", "(-2)^x", "2"}, "INDEFINITE\n", 0},
        CliCase{{"eval", "e^1000-e^1000", "1"}, "nan\n", 0},
        CliCase{{"eval", "2x", "1"}, "INVALID ENTRY\n", 1},
        CliCase{{"eval", "x", "2*x"}, "ERROR IN X EDIT BOX:\nNUMBER IS NOT A CONSTANT\n", 1},
        CliCase{{"eval", "x", ""}, "ERROR IN X EDIT BOX:\nBOX IS EMPTY\n", 1},
        CliCase{{"eval", "x*y", "1", "log(5)"},
                "ERROR IN Y EDIT BOX:\nNUMBER MAY NOT BE A VALID CONSTANT\n",
                1},
        CliCase{{"eval", "--log-base", "abc", "x", "1"}, "ENTER A VALID NUMBER\n", 1},
        CliCase{{"eval", "--log-base", "-2", "x", "1"}, "LOG BASE MUST BE A POSITIVE NUMBER\n", 1},
        CliCase{{"eval", "x"}, "", 2}, CliCase{{"eval", "x", "1", "2", "3"}, "", 2},
        CliCase{{"eval", "--mode", "n", "x", "1"}, "", 2}, CliCase{{"eval", "--log-base"}, "", 2},
        CliCase{{"eval", "x", std::string("2").append(120, ' ')}, "2\n", 0},
        CliCase{{"eval", "x", kLongestNumber}, "7\n", 0},
        CliCase{{"eval", "x", kTooLongNumber}, "", 2}, CliCase{{"eval", "x", kHuge}, "", 2},
        CliCase{{"eval", "x*y", "1", kHuge}, "", 2},
        CliCase{{"eval", "--log-base", kHuge, "log(10)", "1"}, "", 2}));

const std::string kSummaryOf01 = "pointCount 10002\nyMin 0\nyMax 1\ndefinedSpan 0 1\nviewY 0 1\n";

INSTANTIATE_TEST_SUITE_P(
    Graph, CliTest,
    ::testing::Values(
        CliCase{{"sample", "x", "--x-begin", "0", "--x-end", "1", "--points", "10000", "--summary"},
                kSummaryOf01,
                0},
        CliCase{{"sample", "x", "--x-begin", "0", "--x-end", kHuge}, "", 2},
        CliCase{{"sample", "x", "--x-begin", kHuge, "--x-end", "1"}, "", 2},
        CliCase{{"sample", "x", "--x-begin", "0", "--x-end", "1", "--points", " 10000"}, "", 2},
        CliCase{{"sample", "x", "--x-begin", "0", "--x-end", "1", "--points", "10000 "}, "", 2},
        CliCase{{"sample", "x", "--x-begin", "0", "--x-end", "1", "--points", "+10000"}, "", 2},
        CliCase{{"plot", "x", "--x-begin", "0", "--x-end", "1", "--size", "300x 300", "-o",
                 "/none/a.png"},
                "",
                2},
        CliCase{{"plot", "x", "--x-begin", "0", "--x-end", "1", "--second", kTooLong, "-o",
                 "/none/a.png"},
                "",
                2},
        CliCase{{"plot", "x", "--x-begin", "0", "--x-end", "1", "--points", "10000", "-o", ""},
                "CANNOT WRITE '': No such file or directory\n",
                1},
        CliCase{{"plot", "x", "--x-begin=0", "--x-end=1", "--points=10000", "-o", "/none/\x1b.png"},
                "CANNOT WRITE '/none/\\x1b.png': No such file or directory\n",
                1}));

// Help goes to stdout with status 0; its wording is free, its presence is not.
TEST(CliHelp, EveryCommandAndTheProgramHaveHelp) {
    const std::vector<std::vector<std::string>> calls{{"--help"},
                                                      {"check", "--help"},
                                                      {"eval", "--help"},
                                                      {"eval", "--mode", "e", "--help"},
                                                      {"sample", "x", "--help"},
                                                      {"plot", "x", "--help"}};
    for (const auto& call : calls) {
        SCOPED_TRACE(call.back());
        const CliRun r = runCli(call);
        EXPECT_EQ(r.exitCode, 0);
        EXPECT_EQ(r.out.rfind("usage: curvemill-cli", 0), 0u) << r.out;
    }
    const std::string list = runCli({"--help"}).out;
    EXPECT_NE(list.find("check"), std::string::npos);
    EXPECT_NE(list.find("eval"), std::string::npos);
}

// A fresh folder under the test's temporary directory.
std::string freshFolder() {
    std::string name = ::testing::TempDir() + "cli_test_XXXXXX";
    return mkdtemp(name.data()) != nullptr ? name + "/" : std::string();
}

std::vector<std::string> plotTo(const std::string& path) {
    return {"plot",     "x^2",   "--x-begin", "-1",      "--x-end", "1",
            "--points", "10000", "--size",    "200x200", "-o",      path};
}

std::string contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(CliPlotOutput, KeepsTheNameBytesAndWritesThroughAFifo) {
    const std::string folder = freshFolder();
    ASSERT_FALSE(folder.empty());
    const std::string latin1 = folder + "graph-\xe9\xff.png";  // not UTF-8
    ASSERT_EQ(runCli(plotTo(latin1)).exitCode, 0);
    EXPECT_EQ(contents(latin1).substr(1, 3), "PNG");

    // A FIFO (like /dev/null) stays what it is and gets the bytes; renaming would replace it.
    const std::string fifo = folder + "fifo";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const int reader = open(fifo.c_str(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    EXPECT_EQ(runCli(plotTo(fifo)).exitCode, 0);
    EXPECT_EQ(readAll(reader).substr(1, 3), "PNG");
    struct stat status {};
    ASSERT_EQ(stat(fifo.c_str(), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST(CliPlotOutput, AFailedWriteLeavesTheOldFileAndNoPartialOne) {
    const std::string folder = freshFolder();
    ASSERT_FALSE(folder.empty());
    const std::string file = folder + "graph.png";
    std::ofstream(file) << "old";
    // Far below any PNG: the write fails halfway with EFBIG.
    const CliRun run = runCli(plotTo(file), {{}, 1000});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.out, "CANNOT WRITE '" + file + "': File too large\n");
    EXPECT_EQ(contents(file), "old");
    const auto entries = std::filesystem::directory_iterator(folder);
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);  // no temporary left behind
}

TEST(CliPlotOutput, NeedsNoWindowSystemAndSaysNothingWhenAllGoesWell) {
    const std::string file = freshFolder() + "quiet.png";
    const CliRun run = runCli(
        plotTo(file), {{"QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "DISPLAY", "WAYLAND_DISPLAY"}});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.err, "");
}

// "-" is stdout, as for other tools; a file that refuses the bytes names its real reason.
TEST(CliPlotOutput, DashIsStdoutAndRefusalsGiveTheirReason) {
    std::filesystem::remove("-");
    const CliRun piped = runCli(plotTo("-"));
    EXPECT_EQ(piped.exitCode, 0);
    EXPECT_EQ(piped.out.substr(0, 4), "\x89PNG");
    EXPECT_FALSE(std::filesystem::exists("-"));
    const CliRun proc = runCli(plotTo("/proc/self/status"));
    EXPECT_EQ(proc.exitCode, 1);
    EXPECT_EQ(proc.out.find("No such file"), std::string::npos) << proc.out;
    EXPECT_NE(proc.out.find(geteuid() == 0 ? "Invalid argument" : "Permission denied"),
              std::string::npos)
        << proc.out;
}

}  // namespace
