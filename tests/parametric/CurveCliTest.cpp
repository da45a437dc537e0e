// curvemill-cli parametric and polar: the window's messages, the records, the summary, the picture.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "CliRun.h"

namespace {

TEST(CurveCli, PrintsAndExitsAsScriptsExpect) {
    const std::string range = " --t-begin 0 --t-end 1 --points 10000";
    const std::pair<std::string, CliCase> cases[] = {
        {"parametric t 2*t --summary" + range,
         {{}, "pointCount 10000\nbox 0 1 0 2\nbreaks 1\n", 0}},
        {"parametric x t --csv" + range, {{}, "ERROR IN X(T) EDIT BOX:\nINVALID ENTRY\n", 1}},
        {"polar t --summary --t-begin 1 --t-end 0", {{}, "T_BEG MUST BE LESS THAN T_END\n", 1}},
        {"polar t --summary --t-begin 0", {{}, "", 2}},
        {"polar t --summary --csv" + range, {{}, "", 2}},
        {"parametric t --csv" + range, {{}, "", 2}},
        {"polar t t --csv" + range, {{}, "", 2}},
    };
    for (auto [line, c] : cases) {
        c.args = words(line);
        EXPECT_EQ(checkCliCase(c), "") << line;
    }
    const CliRun csv = runCli(words("polar 2 --csv" + range));
    EXPECT_EQ(csv.out.substr(0, 22), "t,x,y,isBreak\n0,2,0,1\n");
    EXPECT_EQ(std::count(csv.out.begin(), csv.out.end(), '\n'), 10001);
}

TEST(CurveCli, WritesAPngOfTheRose) {
    const std::string path = "curve_cli_test.png";
    std::remove(path.c_str());
    const CliRun r =
        runCli(words("polar sin(8*t) --t-begin 0 --t-end 2*pi -o " + path + " --size 400x300"));
    ASSERT_EQ(r.exitCode, 0) << r.out << r.err;
    const std::string bytes = contents(path);
    EXPECT_EQ(bytes.substr(1, 3), "PNG");
    EXPECT_GT(bytes.size(), 2000u);
    const CliRun bare = runCli(words("polar Sqr(t-100) --t-begin 0 --t-end 1 -o " + path));
    EXPECT_TRUE(bare.exitCode == 0 && bare.err.find("nothing to draw") != std::string::npos);
}

}  // namespace
