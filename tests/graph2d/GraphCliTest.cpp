#include <sys/wait.h>
#include <array>
#include <cstdio>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace {

struct CliRun {
    std::string out;
    int status = -1;
};

// Runs curvemill-cli with `arguments` (already quoted for the shell); stderr is dropped.
CliRun cli(const std::string& arguments) {
    CliRun run;
    const std::string command = std::string(CURVEMILL_CLI_PATH) + " " + arguments + " 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return run;
    }
    std::array<char, 4096> buffer{};
    std::size_t n = 0;
    while ((n = fread(buffer.data(), 1, buffer.size(), pipe)) > 0) {
        run.out.append(buffer.data(), n);
    }
    const int status = pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

TEST(GraphCli, SummaryLines) {
    // dx = 1 exactly: 10001 regular samples, then the final record at X_END.
    CliRun run = cli("sample '2*x' --x-begin 0 --x-end 10000 --points 10000 --summary");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out,
              "pointCount 10002\nyMin 0\nyMax 20000\ndefinedSpan 0 10000\nviewY 0 20000\n");

    // 2000 high over a range 20 wide: the view is cut to 10 times 20 around the axis.
    run = cli("sample --points 10000 --summary -- 'x^3' --x-begin -10 --x-end 10");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("\nyMin -1000\nyMax 1000\ndefinedSpan -10 10\nviewY -100 100\n"),
              std::string::npos)
        << run.out;
}

TEST(GraphCli, RecordsAsCsv) {
    const CliRun run = cli("sample '2*x' --x-begin 0 --x-end 10000 --points 10000");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(
        run.out.rfind("x,y,isBreak,isIndefinite,isVertex,peakKind\n0,0,0,0,1,0\n1,2,0,0,0,0\n", 0),
        0u);
    EXPECT_NE(run.out.find("\n10,20,0,0,1,0\n"), std::string::npos);

    const CliRun sqrt = cli("sample 'Sqr(x)' --x-begin -1 --x-end 1 --points 10000");
    EXPECT_NE(sqrt.out.find("-1,0,0,1,1,0\n"), std::string::npos);
}

TEST(GraphCli, DialogMessagesAndExitCodes) {
    const struct {
        const char* arguments;
        const char* out;
        int status;
    } cases[] = {
        {"sample x --x-begin 1 --x-end 1", "X_BEG MUST BE LESS THAN X_END\n", 1},
        {"sample x --x-begin '2*x' --x-end 1",
         "ERROR IN X_BEG EDIT BOX:\nNUMBER IS NOT A CONSTANT\n", 1},
        {"sample x --x-begin 0 --x-end 'x'", "ERROR IN X_END EDIT BOX:\nNUMBER IS NOT A CONSTANT\n",
         1},
        {"plot 'sin(x)' --x-begin 0 --x-end 1 --second 'sin( x )' -o /nonexistent/a.png",
         "YOU MUST SELECT A DIFFERENT FUNCTION\n", 1},
        {"sample 'sin(' --x-begin 0 --x-end 1", nullptr, 1},
        {"sample x --x-begin 0 --x-end 1 --points 15000", "", 2},
        {"sample x --x-begin 0 --x-end 1 --points 410000", "", 2},
        {"sample x --x-begin 0", "", 2},
        {"plot x --x-begin 0 --x-end 1 --size 10x10 -o /tmp/never.png", "", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.arguments);
        const CliRun run = cli(c.arguments);
        EXPECT_EQ(run.status, c.status);
        if (c.out != nullptr) {
            EXPECT_EQ(run.out, c.out);
        } else {
            EXPECT_EQ(run.out.rfind("ERROR IN FORMULA EDIT BOX:\n", 0), 0u) << run.out;
        }
    }
}

TEST(GraphCli, PlotWritesAPngOfTheRequestedSize) {
    const std::string file = ::testing::TempDir() + "graph2d_cli_plot.png";
    std::remove(file.c_str());
    const CliRun run =
        cli("plot 'tan(x)' --x-begin -5 --x-end 5 --points 10000 --derivative --grid "
            "--size 640x480 -o '" +
            file + "'");
    ASSERT_EQ(run.status, 0);
    std::ifstream png(file, std::ios::binary);
    std::string header(24, '\0');
    png.read(header.data(), 24);
    ASSERT_EQ(header.substr(1, 3), "PNG");
    const auto be32 = [&](int at) {
        return (static_cast<unsigned char>(header[at]) << 24) |
               (static_cast<unsigned char>(header[at + 1]) << 16) |
               (static_cast<unsigned char>(header[at + 2]) << 8) |
               static_cast<unsigned char>(header[at + 3]);
    };
    EXPECT_EQ(be32(16), 640);
    EXPECT_EQ(be32(20), 480);
}

}  // namespace
