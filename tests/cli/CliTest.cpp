// Runs the built curvemill-cli on argument lists and pins its output and exit status.
#include <gtest/gtest.h>

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
}

// Names the cases in test lists and failure messages.
void PrintTo(const CliCase& c, std::ostream* os) {
    for (const std::string& a : c.args) {
        *os << '[' << a << "] ";
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
        CliCase{{"frobnicate", "x"}, "", 2}));

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
        CliCase{{"eval", "--mode", "n", "x", "1"}, "", 2}, CliCase{{"eval", "--log-base"}, "", 2}));

// Help goes to stdout with status 0; its wording is free, its presence is not.
TEST(CliHelp, EveryCommandAndTheProgramHaveHelp) {
    const std::vector<std::vector<std::string>> calls{
        {"--help"}, {"check", "--help"}, {"eval", "--help"}, {"eval", "--mode", "e", "--help"}};
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

}  // namespace
