// The plot and sample commands of curvemill-cli: exact outputs, dialog messages and the image.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CliRun.h"

namespace {

TEST(GraphCli, SummaryLinesAndRecordsAsCsv) {
    // dx = 1 exactly: 10001 regular samples, then the final record at X_END.
    CliRun run = runCli(words("sample 2*x --x-begin 0 --x-end 10000 --points 10000 --summary"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out,
              "pointCount 10002\nyMin 0\nyMax 20000\ndefinedSpan 0 10000\nviewY 0 20000\n");

    run = runCli(words("sample 2*x --x-begin 0 --x-end 10000 --points 10000"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(
        run.out.rfind("x,y,isBreak,isIndefinite,isVertex,peakKind\n0,0,0,0,1,0\n1,2,0,0,0,0\n", 0),
        0u);
    EXPECT_NE(run.out.find("\n10,20,0,0,1,0\n"), std::string::npos);
    // The integral curve of 2*x is x^2, exact for trapezoids; it widens the view up to the cap.
    run = runCli(words("sample 2*x --x-begin 0 --x-end 10000 --points 10000 --integral-curve"));
    EXPECT_EQ(
        run.out.rfind("x,y,isBreak,isIndefinite,isVertex,peakKind\n0,0,0,0,1,0\n1,1,0,0,1,0\n", 0),
        0u);
    EXPECT_NE(run.out.find("\n10000,100000000,0,0,1,0\n"), std::string::npos);
    run =
        runCli(words("sample 2*x --x-begin 0 --x-end 10000 --points 10000 --integral-curve "
                     "--summary"));
    EXPECT_NE(run.out.find("\nviewY 0 100000\nintegralY 0 100000000\n"), std::string::npos)
        << run.out;
    const CliRun sqrt = runCli(words("sample Sqr(x) --x-begin -1 --x-end 1 --points 10000"));
    EXPECT_NE(sqrt.out.find("-1,0,0,1,1,0\n"), std::string::npos);
}

TEST(GraphCli, DialogMessagesAndExitCodes) {
    const struct {
        std::vector<std::string> args;
        const char* out;
        int exitCode;
    } cases[] = {
        {words("sample x --x-begin 1 --x-end 1"), "X_BEG MUST BE LESS THAN X_END\n", 1},
        {{"plot", "sin(x)", "--x-begin", "0", "--x-end", "1", "--second", "sin( x )", "-o",
          "/nonexistent/a.png"},
         "YOU MUST SELECT A DIFFERENT FUNCTION\n",
         1},
        {words("sample x --x-begin 0 --x-end 1 --points 15000"), "", 2},
        {words("sample x --x-begin 0 --x-end 1 --points 410000"), "", 2},
        {words("sample x --x-begin 0"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --size 10x10 -o /tmp/never.png"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --zoom-x 70000 -o /tmp/never.png"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --zoom-y 0 -o /tmp/never.png"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --scroll 5 -o /tmp/never.png"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --scroll 5,-1 -o /tmp/never.png"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --ratio 21 -o /tmp/never.png"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --order fdf -o /tmp/never.png"), "", 2},
        {words("plot x --x-begin 0 --x-end 1 --order fx -o /tmp/never.png"), "", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.args[1]);
        const CliRun run = runCli(c.args);
        EXPECT_EQ(run.exitCode, c.exitCode);
        EXPECT_EQ(run.out, c.out);
    }
}

TEST(GraphCli, PlotWritesAPngOfTheRequestedSize) {
    const std::string file = ::testing::TempDir() + "graph2d_cli_plot.png";
    std::remove(file.c_str());
    std::vector<std::string> args = words(
        "plot tan(x) --x-begin -5 --x-end 5 --points 10000 --derivative --grid --no-smooth --size "
        "640x480 -o");
    args.push_back(file);
    ASSERT_EQ(runCli(args).exitCode, 0);
    const std::string header = contents(file).substr(0, 24);
    ASSERT_EQ(header.substr(1, 3), "PNG");
    EXPECT_EQ(header.substr(16, 8), std::string("\0\0\x02\x80\0\0\x01\xe0", 8));  // 640x480
}

// A script renders the views the screen shows: --fit is the whole-height picture plot draws by
// default, while a zoom lays the view out as the screen does, around the x axis.
TEST(GraphCli, PlotViewOptionsChangeThePicture) {
    const auto plotBytes = [](const std::string& options) {
        const std::string file = ::testing::TempDir() + "graph2d_cli_view.png";
        std::remove(file.c_str());
        std::vector<std::string> args =
            words("plot sin(x)/x*80 --x-begin -20 --x-end 20 --points 10000 --size 400x300 " +
                  options + " -o");
        args.push_back(file);
        EXPECT_EQ(runCli(args).exitCode, 0) << options;
        return contents(file);
    };
    const std::string whole = plotBytes("");
    ASSERT_FALSE(whole.empty());
    EXPECT_TRUE(plotBytes("--fit") == whole);
    EXPECT_TRUE(plotBytes("--zoom-x 1 --fit") == whole);
    const std::string screen = plotBytes("--zoom-x 1");
    EXPECT_TRUE(screen != whole);
    EXPECT_TRUE(plotBytes("--zoom-y 1") == screen);
    EXPECT_TRUE(plotBytes("--zoom-x 2 --fit") != whole);
    EXPECT_TRUE(plotBytes("--ratio 1 --fit") != whole);
    EXPECT_FALSE(plotBytes("--order Ffid --no-optimize").empty());
}

}  // namespace
