// curvemill-cli equation: the window's messages, exact points, the summary, the picture.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <utility>

#include "CliRun.h"

namespace {

TEST(EquationCli, PrintsAndExitsAsScriptsExpect) {
    const std::string small = " --x-begin -2 --x-end 2 --y-begin -2 --y-end 2 --nx 4 --ny 4";
    const std::pair<std::string, CliCase> cases[] = {
        // Exact grid points, sorted by x, 17 digits.
        {"equation x+y --points" + small, {{}, "-2,2\n-1,1\n0,0\n1,-1\n2,-2\n", 0}},
        {"equation x-0.25 --summary" + small, {{}, "count 5\nyMin -2\nyMax 2\n", 0}},
        {"equation x^2+y^2+1 --summary" + small, {{}, "count 0\nyMin 1e+100\nyMax -1e+100\n", 0}},
        {"equation x --summary --x-begin pi --x-end pi --y-begin 0 --y-end 1",
         {{}, "X BEG MUST BE LESS THAN X END\n", 1}},
        {"equation x" + small, {{}, "", 2}},
        {"equation x --points --summary" + small, {{}, "", 2}},
        {"equation x --points --nx 0 --x-begin -2 --x-end 2 --y-begin -2 --y-end 2", {{}, "", 2}},
    };
    for (auto [line, c] : cases) {
        c.args = words(line);
        EXPECT_EQ(checkCliCase(c), "") << line;
    }
}

// An equation that holds everywhere: the run stops at its bound and says so, and a vector file
// holds the dots as merged rows, not an element per dot.
TEST(EquationCliPicture, SolutionsFillingTheGridAreBoundedAndCompact) {
    const std::string range = " --x-begin -1 --x-end 1 --y-begin -1 --y-end 1";
    const CliRun bound = runCli(words("equation x-x --summary --nx 1100 --ny 1000" + range));
    EXPECT_EQ(bound.exitCode, 0);
    EXPECT_EQ(bound.out.rfind("count 1000000\n", 0), 0u) << bound.out;
    EXPECT_NE(bound.err.find("stopped at 1000000 solution points"), std::string::npos);

    const std::string path = "equation_cli_full.svg";
    std::remove(path.c_str());
    const CliRun svg =
        runCli(words("equation x-x --nx 500 --ny 500 --size 400x300 -o " + path + range));
    ASSERT_EQ(svg.exitCode, 0) << svg.out << svg.err;
    const std::string text = contents(path);
    EXPECT_EQ(text.rfind("<?xml", 0), 0u);
    EXPECT_LT(text.size(), 300000u);  // an element per dot: 53 MB
}

}  // namespace
