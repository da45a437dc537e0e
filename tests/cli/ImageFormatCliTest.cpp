// plot writes the format of the output file's extension, and refuses what it cannot write.
#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "CliRun.h"

namespace {

std::vector<std::string> plot(const std::string& path, std::vector<std::string> extra = {}) {
    std::vector<std::string> args{"plot",     "x^2",   "--x-begin", "-1",      "--x-end", "1",
                                  "--points", "10000", "--size",    "203x200", "-o",      path};
    args.insert(args.end(), extra.begin(), extra.end());
    return args;
}

TEST(CliImageFormats, TheExtensionChoosesTheFormat) {
    const std::string dir = freshFolder(::testing::TempDir());
    ASSERT_FALSE(dir.empty());
    // bits: at byte 28 of a bitmap; the layout itself is the core's to test
    const std::tuple<const char*, std::vector<std::string>, const char*, char> cases[] = {
        {"a.png", {}, "\x89PNG", 0},
        {"a.BMP", {}, "BM", 24},
        {"b.bmp", {"--depth", "8"}, "BM", 8},
        {"a.svg", {}, "<?xml", 0},
        {"a.pdf", {}, "%PDF-", 0},
    };
    for (const auto& [name, extra, start, bits] : cases) {
        SCOPED_TRACE(name);
        const CliRun run = runCli(plot(dir + name, extra));
        ASSERT_EQ(run.exitCode, 0) << run.out << run.err;
        const std::string file = contents(dir + name);
        EXPECT_EQ(file.rfind(start, 0), 0u);
        // The width is 203: --size reaches the picture.
        EXPECT_TRUE(bits == 0 || (file.at(28) == bits && file.at(18) == char(203)));
    }
}

TEST(CliImageFormats, RefusesUnknownTypesDepthsAndFolders) {
    const std::string dir = freshFolder(::testing::TempDir());
    ASSERT_FALSE(dir.empty());
    // says: in stderr for usage errors, stdout otherwise
    const std::tuple<std::string, std::vector<std::string>, int, const char*> cases[] = {
        {dir + "a.jpg", {}, 2, "use .png, .bmp, .svg or .pdf"},
        {dir + "a.bmp", {"--depth", "16"}, 2, "--depth must be 24 or 8"},
        {dir + "none/a.pdf", {}, 1, "CANNOT WRITE"},
    };
    for (const auto& [path, extra, exitCode, says] : cases) {
        SCOPED_TRACE(path);
        const CliRun run = runCli(plot(path, extra));
        EXPECT_EQ(run.exitCode, exitCode);
        EXPECT_NE((exitCode == 2 ? run.err : run.out).find(says), std::string::npos)
            << run.out << run.err;
    }
    EXPECT_TRUE(std::filesystem::is_empty(dir));  // nothing written, nothing temporary left
}

}  // namespace
