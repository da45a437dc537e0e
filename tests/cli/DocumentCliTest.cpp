// render draws a saved graph document again, pixel for pixel what the command that saved it drew;
// a document it cannot draw is refused with the reader's message and nothing is written.
#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "CliRun.h"

namespace {

const std::string kRange = " --x-begin -2 --x-end 2 --y-begin -2 --y-end 2";

TEST(CliDocuments, RenderDrawsWhatTheSavingCommandDrew) {
    const std::string dir = freshFolder(::testing::TempDir());
    ASSERT_FALSE(dir.empty());
    // picture: the extension of both pictures; the command draws it and saves the document.
    const std::tuple<std::string, const char*> cases[] = {
        {"plot sin(x)/x*80 --x-begin -20 --x-end 20 --second x^2 --derivative --integral-curve "
         "--grid --zoom-x 2 --zoom-y 0.5 --scroll 300,40 --ratio 4 --order Ffdi --points 40000",
         "png"},
        {"plot x^3-3*x --x-begin -3 --x-end 3 --no-optimize --size 300x200 --depth 8", "bmp"},
        {"equation x^2+y^2-1" + kRange + " --nx 300 --ny 200 --precision 4 --grid", "png"},
        {"surface 1/(x*y)" + kRange +
             " --rotate 10,20,45 --view 8,2 --grid --light 0,-0.5,1 "
             "--shiny 0.4 --scheme o --fog 3 --ambient 7 --mode lines --nx 200",
         "png"},
        {"surface x*y" + kRange, "png"},  // no Z limits: the step is a new figure's
        {"parametric sin(3*t) sin(2*t) --t-begin 0 --t-end 2*pi", "svg"},
        {"polar sin(8*t) --t-begin -pi --t-end pi --points 20000 --no-arrow", "png"},
    };
    for (const auto& [line, extension] : cases) {
        SCOPED_TRACE(line);
        const std::string drawn = dir + "drawn." + extension;
        const std::string again = dir + "again." + extension;
        std::vector<std::string> args = words(line + " -o " + drawn);
        args.insert(args.end(), {"--save-graph", dir + "d.curvemill"});
        const CliRun saved = runCli(args);
        ASSERT_EQ(saved.exitCode, 0) << saved.out << saved.err;
        const bool small = line.find("--size") != std::string::npos;
        std::vector<std::string> render{"render", dir + "d.curvemill", "-o", again};
        if (small) {
            render.insert(render.end(), {"--size", "300x200", "--depth", "8"});
        }
        const CliRun rendered = runCli(render);
        ASSERT_EQ(rendered.exitCode, 0) << rendered.out << rendered.err;
        EXPECT_EQ(rendered.out + rendered.err, "");
        EXPECT_TRUE(contents(drawn) == contents(again));
    }
}

TEST(CliDocuments, RefusalsNameTheFieldAndWriteNothing) {
    const std::string dir = freshFolder(::testing::TempDir());
    ASSERT_FALSE(dir.empty());
    const std::string plot = "plot x --x-begin 0 --x-end 1 --save-graph " + dir + "d.curvemill";
    ASSERT_EQ(runCli(words(plot)).exitCode, 0);
    std::string valid = contents(dir + "d.curvemill");
    const std::string range = "\"begin\": \"0\"";
    ASSERT_NE(valid.find(range), std::string::npos) << valid;
    std::string integral = valid;
    for (const auto& [from, to] : {std::pair{"\"shown\": false", "\"shown\": true"},
                                   {"\"begin\": \"\"", "\"begin\": \"0.25\""},
                                   {"\"end\": \"\"", "\"end\": \"0.5\""}}) {
        integral.replace(integral.find(from), std::string(from).size(), to);
    }
    std::ofstream(dir + "integral.curvemill") << integral;
    std::ofstream(dir + "bad.curvemill")
        << valid.replace(valid.find(range), range.size(), "\"begin\": \"1\"");
    std::ofstream(dir + "text.curvemill") << "x^2";
    // says: on stdout for a refused document (1), on stderr for a usage error (2)
    const std::string png = " -o " + dir + "a.png";
    const std::tuple<std::string, int, const char*> cases[] = {
        {"render " + dir + "bad.curvemill" + png, 1,
         "function.x.begin: X_BEG MUST BE LESS THAN X_END"},
        {"render " + dir + "text.curvemill" + png, 1, "not JSON"},
        {"render " + dir + "none.curvemill" + png, 1, "No such file"},
        {"render " + dir + "d.curvemill " + dir + "d.curvemill" + png, 2, "no more arguments"},
        {"equation x-y" + kRange + " --nx 37" + png + " --save-graph " + dir + "e.curvemill", 2,
         "equation.xPoints"},
        {"polar t --t-begin 0 --t-end 1 --summary --save-graph " + dir + "no/c.curvemill", 1,
         "CANNOT WRITE"},
    };
    for (const auto& [line, exitCode, says] : cases) {
        SCOPED_TRACE(line);
        const CliRun run = runCli(words(line));
        EXPECT_EQ(run.exitCode, exitCode);
        EXPECT_NE((exitCode == 2 ? run.err : run.out).find(says), std::string::npos)
            << run.out << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists(dir + "a.png"));
    EXPECT_FALSE(std::filesystem::exists(dir + "e.curvemill"));
    // The area of an integral is painted: the picture is not the plain graph's.
    for (const char* name : {"d", "integral"}) {
        ASSERT_EQ(runCli({"render", dir + name + ".curvemill", "-o", dir + name + ".png"}).exitCode,
                  0);
    }
    EXPECT_NE(contents(dir + "d.png"), contents(dir + "integral.png"));
    const CliRun noOutput = runCli({"render", dir + "d.curvemill"});
    EXPECT_EQ(noOutput.exitCode, 2);
    EXPECT_NE(noOutput.err.find("-o FILE is required"), std::string::npos);
}

}  // namespace
