// The plot and sample commands of curvemill-cli: what the command line adds to the core (formats,
// options, exit codes and the image file).
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CliRun.h"

namespace {

TEST(GraphCli, SummaryLinesAndRecordsAsCsv) {
    const std::string sample = "sample 2*x --x-begin 0 --x-end 10000 --points 10000";
    // dx = 1 exactly: 10001 regular samples, then the final record at X_END.
    CliRun run = runCli(words(sample + " --summary"));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out,
              "pointCount 10002\nyMin 0\nyMax 20000\ndefinedSpan 0 10000\nviewY 0 20000\n");
    const std::string header = "x,y,isBreak,isIndefinite,isVertex,peakKind\n";
    EXPECT_EQ(runCli(words(sample)).out.rfind(header + "0,0,0,0,1,0\n1,2,0,0,0,0\n", 0), 0u);
    // The integral curve of 2*x is x^2: its records replace the function's, and it widens the
    // view up to the cap.
    run = runCli(words(sample + " --integral-curve"));
    EXPECT_EQ(run.out.rfind(header + "0,0,0,0,1,0\n1,1,0,0,1,0\n", 0), 0u);
    run = runCli(words(sample + " --integral-curve --summary"));
    EXPECT_NE(run.out.find("\nviewY 0 100000\nintegralY 0 100000000\n"), std::string::npos);
    run = runCli(words("sample Sqr(x) --x-begin -1 --x-end 1 --points 10000"));
    EXPECT_NE(run.out.find("-1,0,0,1,1,0\n"), std::string::npos);  // the indefinite column
}

// The entry checks are the core's; one refusal shows they are wired, with the second function's
// own text kept whole. Everything else is a usage error.
TEST(GraphCli, RefusalsAndUsageErrors) {
    EXPECT_EQ(checkCliCase({{"plot", "sin(x)", "--x-begin", "0", "--x-end", "1", "--second",
                             "sin( x )", "-o", "/nonexistent/a.png"},
                            "YOU MUST SELECT A DIFFERENT FUNCTION\n",
                            1}),
              "");
    const std::string plot = "plot x --x-begin 0 --x-end 1 -o /tmp/never.png ";
    for (const std::string& line :
         {std::string("sample x --x-begin 0 --x-end 1 --points 15000"),
          std::string("sample x --x-begin 0 --x-end 1 --points 410000"),
          std::string("sample x --x-begin 0"), plot + "--size 10x10", plot + "--zoom-x 70000",
          plot + "--zoom-y 0", plot + "--scroll 5", plot + "--scroll 5,-1", plot + "--ratio 21",
          plot + "--order fdf", plot + "--order fx"}) {
        EXPECT_EQ(checkCliCase({words(line), "", 2}), "") << line;
    }
}

// A script renders the views the screen shows: --fit is the whole-height picture plot draws by
// default, while a zoom lays the view out as the screen does, around the x axis.
TEST(GraphCli, PlotWritesThePictureItsOptionsAskFor) {
    const std::string file = ::testing::TempDir() + "graph2d_cli_plot.png";
    const auto plot = [&file](const std::string& line) {
        std::remove(file.c_str());
        std::vector<std::string> args = words("plot " + line + " -o");
        args.push_back(file);
        EXPECT_EQ(runCli(args).exitCode, 0) << line;
        return contents(file);
    };
    const auto view = [&plot](const std::string& options) {
        return plot("sin(x)/x*80 --x-begin -20 --x-end 20 --points 10000 --size 400x300 " +
                    options);
    };
    const std::string whole = view("");
    ASSERT_FALSE(whole.empty());
    EXPECT_TRUE(view("--fit") == whole);
    EXPECT_TRUE(view("--zoom-x 1 --fit") == whole);
    const std::string screen = view("--zoom-x 1");
    EXPECT_TRUE(screen != whole);
    EXPECT_TRUE(view("--zoom-y 1") == screen);
    EXPECT_TRUE(view("--zoom-x 2 --fit") != whole);
    EXPECT_TRUE(view("--ratio 1 --fit") != whole);
    // The file's format and size are the image tests'; here, that the drawing options are read.
    EXPECT_FALSE(view("--order Ffid --no-optimize --derivative --grid --no-smooth").empty());
    // A range where the function has no value still gives the file asked for, and says so.
    std::vector<std::string> args = words("plot Sqr(x-100) --x-begin 0 --x-end 1 -o");
    args.push_back(file);
    const CliRun bare = runCli(args);
    EXPECT_EQ(bare.exitCode, 0);
    EXPECT_EQ(bare.err,
              "curvemill-cli plot: nothing to draw: no value for x from 0 to 1; the "
              "picture shows the axes only\n");
}

}  // namespace
