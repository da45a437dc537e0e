// The surface command of curvemill-cli: what the command adds to the core: its options, its
// refusals and exit codes, the summary and vertex formats, the picture file.
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CliRun.h"

namespace {

const std::string kSquare = " --x-begin -1 --x-end 1 --y-begin -1 --y-end 1";

TEST(SurfaceCli, SummaryAndVerticesKeepEveryDigit) {
    CliRun run = runCli(words("surface 1000*x --summary" + kSquare));
    ASSERT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("\nzLimits y\nzLimitStep 10\nsteps 10\nindefinite 0\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("zHigh 28.28427124746"), std::string::npos) << run.out;

    run = runCli(words("surface x^2+y^2 --vertices" + kSquare));
    ASSERT_EQ(run.exitCode, 0);
    EXPECT_EQ(
        run.out.rfind("i,j,x,y,z,zShown,indefinite\n0,0,-1,-1,2,2,0\n0,1,-1,-0.97999999999999998,"
                      "1.9603999999999999,1.9603999999999999,0\n",
                      0),
        0u)
        << run.out.substr(0, 200);
    EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 1 + 101 * 101);
    EXPECT_NE(runCli(words("surface Sqr(0-x) --vertices" + kSquare)).out.find(",1\n"),
              std::string::npos);
}

// Every refusal names what it refuses, before anything is computed; the window's own messages go
// to stdout with exit code 1. A refused value is quoted on stderr with exit code 2.
TEST(SurfaceCli, RefusalsAndTheirExitCodes) {
    const CliRun equal =
        runCli(words("surface x --summary --x-begin 1 --x-end 1 --y-begin 0 --y-end 1"));
    EXPECT_EQ(equal.exitCode, 1);
    EXPECT_EQ(equal.out, "X BEG MUST BE LESS THAN X END\n");
    // What the run said when it was refused with exit code 2, else nothing.
    const auto refusal = [](const std::string& options) {
        const CliRun run = runCli(words("surface x --summary " + options));
        return run.exitCode == 2 && run.out.empty() ? run.err : std::string();
    };
    EXPECT_NE(refusal("--x-begin 0").find("--y-end"), std::string::npos);
    EXPECT_NE(refusal("--vertices" + kSquare).find("--vertices"), std::string::npos);
    for (const std::string value :
         {"--nx 50",          "--ny 501",        "--mode dots",   "--scheme q",
          "--fog 11",         "--ambient -1",    "--light 1,2,0", "--light 0,0,0",
          "--light 1,1",      "--light 1,1,1,1", "--shiny 1.5",   "--rotate 1,2",
          "--rotate 1,2,3,4", "--rotate a,0,0",  "--rotate 1,,3", "--rotate inf,0,0",
          "--view 0,3",       "--view 21,3",     "--view 5,21",   "--view 5.5,3",
          "--view 5"}) {
        std::string quoted(1, '\'');
        quoted.append(value, value.find(' ') + 1).push_back('\'');
        EXPECT_NE(refusal(value + kSquare).find(quoted), std::string::npos) << value;
    }
    const CliRun all = runCli(words(
        "surface x --summary --grid --fog 0 --ambient 10 --light 0,-0.5,1 --shiny 0.3" + kSquare));
    EXPECT_EQ(all.exitCode, 0);
    EXPECT_EQ(all.err, "");
    EXPECT_EQ(runCli(words("surface x+ --summary" + kSquare))
                  .out.rfind("ERROR IN FORMULA EDIT BOX:\n", 0),
              0u);
}

// The picture as written to a file, of the requested size.
std::string pictureBytes(const std::string& options, const std::string& file) {
    std::remove(file.c_str());
    const CliRun run =
        runCli(words("surface sin(x)*cos(y) --size 640x480 -o " + file + kSquare + " " + options));
    EXPECT_EQ(run.exitCode, 0) << options << run.err;
    return contents(file);
}

// A PNG of the requested size; each option of the look and the view reaches the picture; the
// defaults given as options draw the default picture.
TEST(SurfaceCli, PictureOfTheRequestedSizeAndLookAndViewOptionsReachIt) {
    const std::string png = pictureBytes("--scheme g", ::testing::TempDir() + "graph3d_cli.png");
    ASSERT_GE(png.size(), 24u);
    EXPECT_EQ(png.substr(1, 3), "PNG");
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\x02\x80\0\0\x01\xe0", 8));
    const std::string file = ::testing::TempDir() + "graph3d_cli_look.bmp";
    const std::string plain = pictureBytes("", file);
    ASSERT_GT(plain.size(), 640u * 480u);
    for (const char* same : {"--fog 5 --ambient 5 --mode polygons", "--view 5,3",
                             "--rotate 0,0,360", "--rotate -360,720,0"}) {
        EXPECT_EQ(pictureBytes(same, file), plain) << same;
    }
    for (const char* other : {"--grid", "--fog 0", "--ambient 9", "--light 0,0,1", "--shiny 0.5",
                              "--scheme g", "--mode lines", "--mode pixels", "--rotate 0,0,90",
                              "--rotate 30,0,0", "--view 9,3", "--view 5,-2"}) {
        EXPECT_NE(pictureBytes(other, file), plain) << other;
    }
}

}  // namespace
