// The surface command of curvemill-cli: summaries, vertices, the window's messages, the image.
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CliRun.h"

namespace {

const std::string kSquare = " --x-begin -1 --x-end 1 --y-begin -1 --y-end 1";

TEST(SurfaceCli, SummaryOfLimitedAndUnlimitedSurfaces) {
    CliRun run = runCli(words("surface 1000*x --summary" + kSquare));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    // 2000 / (2 sqrt 8) = 353 steps, held at 10: the band is 10 diagonals either way of 0.
    EXPECT_NE(run.out.find("\nzLimits y\nzLimitStep 10\nsteps 10\nindefinite 0\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("zLow -28.28427124746"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("zHigh 28.28427124746"), std::string::npos) << run.out;

    run = runCli(words("surface x+y --summary" + kSquare));
    EXPECT_EQ(run.out.rfind("zMin -2\n", 0), 0u) << run.out;
    EXPECT_NE(run.out.find("\nzLow -2\nzHigh "), std::string::npos);
    EXPECT_NE(run.out.find("\nzLimits n\nzLimitStep 0\nsteps 0\n"), std::string::npos);

    run = runCli(words("surface Sqr(1-x^2-y^2) --nx 200 --ny 100 --summary" + kSquare));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out.find("indefinite 0\n"), std::string::npos) << run.out;
}

TEST(SurfaceCli, VerticesAsCsvWithAllDigits) {
    const CliRun run = runCli(words("surface x^2+y^2 --vertices" + kSquare));
    ASSERT_EQ(run.exitCode, 0);
    EXPECT_EQ(
        run.out.rfind("i,j,x,y,z,zShown,indefinite\n0,0,-1,-1,2,2,0\n0,1,-1,-0.97999999999999998,"
                      "1.9603999999999999,1.9603999999999999,0\n",
                      0),
        0u)
        << run.out.substr(0, 200);
    EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1 + 101 * 101);
    const CliRun hole = runCli(words("surface Sqr(0-x) --vertices" + kSquare));
    EXPECT_NE(hole.out.find("\n100,100,"), std::string::npos);
    EXPECT_NE(hole.out.find(",1\n"), std::string::npos);
}

TEST(SurfaceCli, WindowMessagesAndUsageErrors) {
    const struct {
        std::string line;
        const char* out;  // nullptr: any formula message
        int exitCode;
    } cases[] = {
        {"surface x --summary --x-begin 1 --x-end 1 --y-begin 0 --y-end 1",
         "X BEG MUST BE LESS THAN X END\n", 1},
        {"surface x --summary --nx 50" + kSquare, "", 2},
        {"surface x --summary --ny 501" + kSquare, "", 2},
        {"surface x --summary --mode dots" + kSquare, "", 2},
        {"surface x --summary --scheme q" + kSquare, "", 2},
        {"surface x --summary --vertices" + kSquare, "", 2},
        {"surface x --summary --x-begin 0", "", 2},
        {"surface x --summary --fog 11" + kSquare, "", 2},
        {"surface x --summary --ambient -1" + kSquare, "", 2},
        {"surface x --summary --light 1,2,0" + kSquare, "", 2},
        {"surface x --summary --light 0,0,0" + kSquare, "", 2},
        {"surface x --summary --light 1,1" + kSquare, "", 2},
        {"surface x --summary --light 1,1,1,1" + kSquare, "", 2},
        {"surface x --summary --shiny 1.5" + kSquare, "", 2},
        {"surface x --summary --grid --fog 0 --ambient 10 --light 0,-0.5,1 --shiny 0.3" + kSquare,
         nullptr, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const CliRun run = runCli(words(c.line));
        EXPECT_EQ(run.exitCode, c.exitCode);
        if (c.exitCode == 0) {
            EXPECT_EQ(run.err, "");
        } else if (c.out != nullptr) {
            EXPECT_EQ(run.out, c.out);
        } else {
            EXPECT_EQ(run.out.rfind("ERROR IN FORMULA EDIT BOX:\n", 0), 0u) << run.out;
        }
    }
}

TEST(SurfaceCli, WritesAPngOfTheRequestedSizeInEveryMode) {
    for (const char* mode : {"polygons", "lines", "pixels"}) {
        SCOPED_TRACE(mode);
        const std::string file = ::testing::TempDir() + "graph3d_cli_" + mode + ".png";
        std::remove(file.c_str());
        std::vector<std::string> args = words(
            "surface sin(x)*cos(y) --x-begin -3 --x-end 3 --y-begin -3 --y-end 3 --scheme "
            "g --size 640x480 --mode");
        args.push_back(mode);
        args.push_back("-o");
        args.push_back(file);
        ASSERT_EQ(runCli(args).exitCode, 0);
        const std::string header = contents(file).substr(0, 24);
        EXPECT_EQ(header.substr(1, 3), "PNG");
        EXPECT_EQ(header.substr(16, 8), std::string("\0\0\x02\x80\0\0\x01\xe0", 8));
    }
}

// The picture of `formula` over the square with `options`, as written to a file.
std::string pictureBytes(const std::string& options, const std::string& formula = "sin(x)*cos(y)") {
    // A file per formula: the tests that use it run in parallel.
    const std::string file = ::testing::TempDir() + "graph3d_cli_" +
                             std::to_string(std::hash<std::string>{}(formula)) + ".bmp";
    std::remove(file.c_str());
    const CliRun run =
        runCli(words("surface " + formula + " --size 240x200 -o " + file + kSquare + options));
    EXPECT_EQ(run.exitCode, 0) << options << run.err;
    return contents(file);
}

// --rotate and --view: a full turn or the default location draws the default picture, any other
// turn or location another; bad values are refused before anything is computed.
TEST(SurfaceCli, RotateAndViewPlaceTheFigure) {
    for (const char* bad :
         {"--rotate 1,2", "--rotate 1,2,3,4", "--rotate a,0,0", "--rotate 1,,3", "--rotate inf,0,0",
          "--view 0,3", "--view 21,3", "--view 5,21", "--view 5.5,3", "--view 5"}) {
        SCOPED_TRACE(bad);
        const CliRun run = runCli(words(std::string("surface x --summary ") + bad + kSquare));
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_NE(run.err.find(std::string(bad).substr(2, 4)), std::string::npos) << run.err;
    }
    const std::string plain = pictureBytes("");
    ASSERT_GT(plain.size(), 240u * 200u);
    const struct {
        const char* options;
        bool same;
    } cases[] = {{" --rotate 0,0,0", true},      {" --rotate 0,0,360", true},
                 {" --rotate -360,720,0", true}, {" --view 5,3", true},
                 {" --rotate 0,0,90", false},    {" --rotate 30,0,0", false},
                 {" --view 9,3", false},         {" --view 5,-2", false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.options);
        EXPECT_EQ(pictureBytes(c.options) == plain, c.same);
    }
}

// Each option of the look reaches the picture.
TEST(SurfaceCli, LookOptionsChangeThePicture) {
    const std::string plain = pictureBytes("", "x*y");
    ASSERT_FALSE(plain.empty());
    EXPECT_EQ(pictureBytes(" --fog 5 --ambient 5", "x*y"), plain);
    for (const char* options :
         {" --grid", " --fog 0", " --ambient 9", " --light 0,0,1", " --shiny 0.5"}) {
        EXPECT_NE(pictureBytes(options, "x*y"), plain) << options;
    }
}

}  // namespace
