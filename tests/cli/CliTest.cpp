// Runs the built curvemill-cli on argument lists and pins its output and exit status.
#include <sys/stat.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "CliRun.h"

namespace {

class CliTest : public ::testing::TestWithParam<CliCase> {};

TEST_P(CliTest, PrintsAndExitsAsScriptsExpect) {
    EXPECT_EQ(checkCliCase(GetParam()), "");
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
        CliCase{{"check", "x+2*x"}, "(x+(2*x))\n", 0},
        CliCase{{"check", "--", "-x^2"}, "(-(x^2))\n", 0},
        CliCase{{"check", "--mode", "e", "x*y"}, "(x*y)\n", 0},
        CliCase{{"check", "--mode=n", "pi/2"}, "(p/2)\n", 0},
        CliCase{{"check", "--lenient", "()"}, "(())\n", 0},
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
        CliCase{{"eval", "x*y", "2", "3"}, "6\n", 0},
        CliCase{{"eval", "--mode", "f", "x", "2", "3"}, "2\n", 0},
        CliCase{{"eval", "--mode", "e", "x+y", "2"}, "2\n", 0},
        CliCase{{"eval", "--log-base", "100", "log(10000)", "0"}, "2\n", 0},
        CliCase{{"eval", "--log-base=0", "log(10)", "0"}, "-0\n", 0},
        CliCase{{"eval", "e^1000-e^1000", "1"}, "INDEFINITE\n", 0},
        CliCase{{"eval", "x", "2*x"}, "ERROR IN X EDIT BOX:\nNUMBER IS NOT A CONSTANT\n", 1},
        CliCase{{"eval", "x*y", "1", "log(5)"},
                "ERROR IN Y EDIT BOX:\nNUMBER MAY NOT BE A VALID CONSTANT\n",
                1},
        CliCase{{"eval", "--log-base", "abc", "x", "1"}, "ENTER A VALID NUMBER\n", 1},
        CliCase{{"eval", "x"}, "", 2}, CliCase{{"eval", "x", "1", "2", "3"}, "", 2},
        CliCase{{"eval", "--mode", "n", "x", "1"}, "", 2}, CliCase{{"eval", "--log-base"}, "", 2},
        CliCase{{"eval", "x", std::string("2").append(120, ' ')}, "2\n", 0},
        CliCase{{"eval", "x", kLongestNumber}, "7\n", 0},
        CliCase{{"eval", "x", kTooLongNumber}, "", 2}, CliCase{{"eval", "x", kHuge}, "", 2},
        CliCase{{"eval", "x*y", "1", kHuge}, "", 2},
        CliCase{{"eval", "--log-base", kHuge, "log(10)", "1"}, "", 2}));

const std::string kRange = "x --x-begin 0 --x-end 1 ";

INSTANTIATE_TEST_SUITE_P(
    Graph, CliTest,
    ::testing::Values(
        CliCase{words("sample x --x-begin 0 --x-end " + kHuge), "", 2},
        CliCase{words("sample x --x-end 1 --x-begin " + kHuge), "", 2},
        CliCase{{"sample", "x", "--x-begin", "0", "--x-end", "1", "--points", " 10000"}, "", 2},
        CliCase{{"sample", "x", "--x-begin", "0", "--x-end", "1", "--points", "10000 "}, "", 2},
        CliCase{words("sample " + kRange + "--points +10000"), "", 2},
        CliCase{{"plot", "x", "--x-begin", "0", "--x-end", "1", "--size", "300x 300"}, "", 2},
        CliCase{words("plot " + kRange + "-o /none/a.png --second " + kTooLong), "", 2},
        CliCase{{"plot", "x", "--x-begin", "0", "--x-end", "1", "--points", "10000", "-o", ""},
                "CANNOT WRITE '': No such file or directory\n",
                1},
        CliCase{{"plot", "x", "--x-begin=0", "--x-end=1", "--points=10000", "-o", "/none/\x1b.png"},
                "CANNOT WRITE '/none/\\x1b.png': No such file or directory\n",
                1}));

// Help goes to stdout with status 0; its wording is free, its presence is not.
TEST(CliHelp, EveryCommandAndTheProgramHaveHelp) {
    for (const char* call : {"--help", "check --help", "eval --help", "eval --mode e --help",
                             "sample x --help", "plot x --help", "render --help", "integral --help",
                             "value --help", "extremes --help", "roots --help"}) {
        SCOPED_TRACE(call);
        const CliRun r = runCli(words(call));
        EXPECT_EQ(r.exitCode, 0);
        EXPECT_EQ(r.out.rfind("usage: curvemill-cli", 0), 0u) << r.out;
    }
    const std::string list = runCli({"--help"}).out;
    for (const char* command : {"check", "eval", "integral", "value", "extremes", "roots"}) {
        EXPECT_NE(list.find(command), std::string::npos) << command;
    }
}

std::vector<std::string> plotTo(const std::string& path) {
    return {"plot",     "x^2",   "--x-begin", "-1",      "--x-end", "1",
            "--points", "10000", "--size",    "200x200", "-o",      path};
}

// Needs no window system, says nothing when all goes well, keeps the name's bytes and writes
// through a FIFO.
TEST(CliPlotOutput, KeepsTheNameBytesAndWritesThroughAFifo) {
    const std::string folder = freshFolder(::testing::TempDir());
    ASSERT_FALSE(folder.empty());
    const std::string latin1 = folder + "graph-\xe9\xff.png";  // not UTF-8
    const CliRun quiet = runCli(
        plotTo(latin1), {{"QT_QPA_PLATFORM", "XDG_RUNTIME_DIR", "DISPLAY", "WAYLAND_DISPLAY"}});
    ASSERT_EQ(quiet.exitCode, 0);
    EXPECT_EQ(quiet.err, "");
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
    const std::string folder = freshFolder(::testing::TempDir());
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

// -o FILE stands anywhere; a bad option value is echoed escaped, whichever option it is.
const std::string kBad = "1\x1b[2J";
const std::string kNoFile = "CANNOT WRITE '/none/a.png': No such file or directory\n";

std::vector<std::string> with(const std::string& line, const std::string& option) {
    std::vector<std::string> args = words(line);
    args.push_back(option);
    args.push_back(kBad);
    return args;
}

const std::string kPlot = "plot x --x-begin 0 --x-end 1 --points 10000 -o /none/a.png";
const std::string kSurface =
    "surface x*y --x-begin -1 --x-end 1 --y-begin -1 --y-end 1 --nx 100 --ny 100 -o /none/a.png";

INSTANTIATE_TEST_SUITE_P(
    Options, CliTest,
    ::testing::Values(
        CliCase{words("plot -o /none/a.png x --x-begin 0 --x-end 1 --points 10000"), kNoFile, 1},
        CliCase{words("equation -o /none/a.png x --x-begin 0 --x-end 1 --y-begin 0 --y-end 1"),
                kNoFile, 1},
        CliCase{words("surface -o /none/a.png x*y --x-begin 0 --x-end 1 --y-begin 0 --y-end 1"),
                kNoFile, 1},
        CliCase{with(kPlot, "--zoom-x"), "", 2}, CliCase{with(kPlot, "--scroll"), "", 2},
        CliCase{with(kPlot, "--ratio"), "", 2}, CliCase{with(kPlot, "--order"), "", 2},
        CliCase{with(kSurface, "--rotate"), "", 2}, CliCase{with(kSurface, "--light"), "", 2},
        CliCase{with(kSurface, "--shiny"), "", 2},
        CliCase{with("roots x-y --y 1 --x-begin 0 --x-end 2 --y-begin 0 --y-end 2", "--steps"), "",
                2}));

// Output that cannot be written is not lost without a word: stdout full or closed fails the run.
TEST(CliStdout, AFailedWriteIsToldAndFailsTheRun) {
    const std::string range = " --x-begin 0 --x-end 1 --y-begin 0 --y-end 1";
    const std::vector<std::string> lines{"check x",
                                         "sample x --x-begin 0 --x-end 1",
                                         "equation x-y --points --nx 4 --ny 4" + range,
                                         "surface x*y --vertices --nx 100 --ny 100" + range,
                                         "roots x-y --y 1" + range,
                                         "--help"};
    for (const std::string& line : lines) {
        for (const char* target : {"/dev/full", ""}) {
            SCOPED_TRACE(line + " > '" + target + "'");
            const CliRun r = runCli(words(line), {{}, -1, -1, target});
            EXPECT_EQ(r.exitCode, 1);
            EXPECT_NE(r.err.find("cannot write the output"), std::string::npos) << r.err;
        }
    }
}

// A picture the memory cannot hold is refused with a message, not an abort.
TEST(CliPlotOutput, ASizeBeyondTheMemoryIsRefused) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the address sanitizer needs more address space than the limit leaves";
#endif
    std::vector<std::string> args = plotTo(freshFolder(::testing::TempDir()) + "big.png");
    args[9] = "16384x16384";
    const CliRun r = runCli(args, {{}, -1, 700L << 20});
    EXPECT_EQ(r.exitCode, 1) << r.err;
    EXPECT_NE(r.out.find("not enough memory for a 16384x16384 picture"), std::string::npos)
        << r.out;
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
