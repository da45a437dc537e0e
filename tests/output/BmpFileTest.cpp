// The bitmap file layout, its palette and the staged writer with its progress and cancel flag.
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "output/BmpExport.h"
#include "output/BmpLayout.h"
#include "output/BmpPixels.h"
#include "output/Palette256.h"
#include "tests/support/TempDirectory.h"

namespace curvemill {
namespace {

std::uint32_t le(const std::string& bytes, std::size_t at, int size) {
    std::uint32_t value = 0;
    for (int i = size - 1; i >= 0; --i) {
        value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
    }
    return value;
}

// A small picture of random colours in the 32-bit layout of an RGB32 image, rows unpadded.
struct Picture {
    int width, height;
    std::vector<std::uint32_t> words;
    Picture(int w, int h) : width(w), height(h) {
        std::mt19937 random(7);
        for (int i = 0; i < w * h; ++i) {
            words.push_back(0xff000000u | (random() & 0xffffff));
        }
    }
    RgbPixels pixels() const {
        return {reinterpret_cast<const std::uint8_t*>(words.data()), width, height, width * 4};
    }
};

TEST(BmpLayout, RowsArePaddedToFourBytes) {
    const std::tuple<int, int, std::int64_t> cases[] = {{3, 24, 12}, {3, 8, 4},  {4, 24, 12},
                                                        {5, 8, 8},   {0, 24, 0}, {1921, 24, 5764}};
    for (const auto& [width, bits, row] : cases) {
        SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(bits));
        EXPECT_EQ(bmpRowSize(width, bits), row);
        EXPECT_EQ(bmpPixelSize(width, 7, bits), row * 7);
        // Headers, and for 8 bits exactly 1024 bytes of palette on top.
        EXPECT_EQ(bmpFileSize(width, 7, bits), row * 7 + (bits == 8 ? 1078 : 54));
    }
}

// The sizes, offsets and depth in the header, for both depths.
TEST(BmpLayout, HeaderFieldsFollowTheLayout) {
    for (const int bits : {24, 8}) {
        SCOPED_TRACE(bits);
        const Picture picture(3, 2);
        const std::string file = encodeBmp(picture.pixels(), bits);
        const std::uint32_t palette = bits == 8 ? 1024 : 0;
        const std::uint32_t image = bits == 8 ? 4 * 2 : 12 * 2;
        // The rest of the header is read back by an image reader in the output files test.
        ASSERT_EQ(file.size(), image + palette + 54);
        EXPECT_EQ(file.substr(0, 2), "BM");
        EXPECT_EQ(le(file, 2, 4), file.size());
        EXPECT_EQ(le(file, 10, 4), palette + 54);
        EXPECT_EQ(le(file, 28, 2), static_cast<std::uint32_t>(bits));
        EXPECT_EQ(le(file, 34, 4), image);
        EXPECT_EQ(le(file, 46, 4), bits == 8 ? 256u : 0u);
    }
}

TEST(Palette256, EntriesMapToThemselvesAndAnyColourToTheClosest) {
    const Palette256 palette;
    const auto bytes = palette.fileBytes();
    for (int index = 0; index < 256; ++index) {
        const std::uint32_t rgb = palette.colour(index);
        EXPECT_EQ(palette.colour(palette.nearest(rgb)), rgb) << index;
        // Blue, green, red, 0: the colour's own bytes, little-endian.
        EXPECT_EQ(le(std::string(bytes.begin(), bytes.end()), 4 * index, 4), rgb) << index;
    }
    // Pure hues, white, black and the drawing surface's grey are exact.
    for (const std::uint32_t exact : {0x0000ffu, 0xff0000u, 0x00ff00u, 0xffffffu, 0u, 0xe6e6e6u}) {
        EXPECT_EQ(palette.colour(palette.nearest(exact)), exact);
    }
    // The cache answers as the search does, also when colours share its slots.
    NearestColourCache cached(palette);
    std::mt19937 random(3);
    for (int i = 0; i < 20000; ++i) {
        const std::uint32_t rgb = random() & 0xffffff;
        const std::uint8_t index = cached(rgb | 0xff000000u);
        ASSERT_EQ(index, palette.nearest(rgb));
    }
}

class BmpExportTest : public ::testing::Test {
  protected:
    ExportOutcome run(int bits, int cancelAt = -1) {
        BmpExportSteps steps;
        steps.makePicture = [this] { return picture_.pixels(); };
        steps.progress = [this, cancelAt](int percent) {
            stages_.push_back(percent);
            if (percent == cancelAt) {
                cancel_ = true;
            }
        };
        steps.cancel = &cancel_;
        return exportBmp(path_.string(), bits, steps);
    }

    testing::TempDirectory folder_;
    std::filesystem::path path_ = folder_.path() / "Graph.bmp";
    Picture picture_{5, 4};
    std::atomic<bool> cancel_{false};
    std::vector<int> stages_;
};

TEST_F(BmpExportTest, WritesTheSameBytesAsTheEncoderWithEveryStage) {
    for (const int bits : {24, 8}) {
        SCOPED_TRACE(bits);
        stages_.clear();
        ASSERT_EQ(run(bits), ExportOutcome::Written);
        EXPECT_EQ(stages_, (std::vector<int>{10, 20, 30, 40, 50, 100}));
        EXPECT_EQ(folder_.read("Graph.bmp"), encodeBmp(picture_.pixels(), bits));
    }
}

TEST_F(BmpExportTest, CancellingAtAnyStageLeavesAnEmptyFile) {
    for (const int stage : {0, 10, 20, 30, 40, 50, 100}) {
        SCOPED_TRACE(stage);
        std::ofstream(path_) << "an older picture";
        cancel_ = stage == 0;  // pressed before the first stage ended
        stages_.clear();
        EXPECT_EQ(run(24, stage), ExportOutcome::Cancelled);
        ASSERT_TRUE(std::filesystem::exists(path_));
        EXPECT_EQ(std::filesystem::file_size(path_), 0u);
        // Nothing runs after the stage that saw the flag.
        if (stage != 0) {
            EXPECT_EQ(stages_.back(), stage);
        }
    }
}

TEST_F(BmpExportTest, FailuresLeaveNoPictureBehind) {
    // A picture that could not be made: the file is emptied, not half-written.
    BmpExportSteps steps;
    steps.makePicture = [] { return RgbPixels{}; };
    std::ofstream(path_) << "old";
    EXPECT_EQ(exportBmp(path_.string(), 24, steps), ExportOutcome::Failed);
    EXPECT_EQ(std::filesystem::file_size(path_), 0u);
    // A folder that does not exist: nothing is written anywhere.
    steps.makePicture = [this] { return picture_.pixels(); };
    const auto missing = folder_.path() / "none" / "Graph.bmp";
    EXPECT_EQ(exportBmp(missing.string(), 8, steps), ExportOutcome::Failed);
    EXPECT_FALSE(std::filesystem::exists(missing));
}

}  // namespace
}  // namespace curvemill
