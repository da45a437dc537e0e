// The curves' own history file: what it keeps, in which order, and what a foreign or damaged
// file does (nothing of it is taken, and it is never replaced).
#include <fstream>

#include <gtest/gtest.h>

#include "parametric/CurveHistory.h"
#include "tests/support/TempDirectory.h"

namespace curvemill {
namespace {

const CurveEntry kRose{CurveForm::Polar, "sin(8*t)", "", "0", "2*pi"};
const CurveEntry kLissajous{CurveForm::Parametric, "sin(3*t)", "sin(2*t)", "0", "2*pi"};

TEST(CurveHistory, KeepsTheNewestFirstOnceEachAndReadsBackWhatItWrote) {
    CurveHistory history;
    history.record(kRose);
    history.record(kLissajous);
    history.record(kRose);
    history.record({CurveForm::Polar, "t", "t", "0", "1"});  // a polar entry has no y(t)
    history.record({CurveForm::Parametric, "a\tb", "t", "0", "1"});
    ASSERT_EQ(history.entries, (std::vector{kRose, kLissajous}));
    for (std::size_t n = 0; n < kMostCurveEntries + 5; ++n) {
        history.record({CurveForm::Polar, "t+" + std::to_string(n), "", "0", "1"});
    }
    EXPECT_EQ(history.entries.size(), kMostCurveEntries);
    EXPECT_EQ(history.entries.front().first, "t+204");

    testing::TempDirectory folder;
    const auto path = folder.path() / kCurveHistoryFileName;
    EXPECT_TRUE(loadCurveHistory(path).problem.empty());  // none yet: an empty history
    ASSERT_FALSE(saveCurveHistory(path, history));
    const CurveHistoryReading back = loadCurveHistory(path);
    EXPECT_EQ(back.history.entries, history.entries);
    EXPECT_EQ(back.skipped, 0);
}

TEST(CurveHistory, ForeignDamagedAndHugeFilesAreNotTaken) {
    EXPECT_FALSE(decodeCurveHistory("GRAPH DATA\nP\t0\t1\tt\tt\n").problem.empty());
    const CurveHistoryReading damaged = decodeCurveHistory(
        "curvemill-curves "
        "1\nP\t0\t1\tt\tt\nX\t0\t1\tt\tt\nR\t0\t1\tt\nR\t0\t1\tt\ty\nR\t0\t1\tt\t");
    EXPECT_EQ(damaged.history.entries.size(), 2U);
    EXPECT_EQ(damaged.skipped, 3);

    testing::TempDirectory folder;
    const auto path = folder.path() / kCurveHistoryFileName;
    std::ofstream(path) << "curvemill-curves 1\n" << std::string(kMostCurveHistoryBytes, 'P');
    const CurveHistoryReading huge = loadCurveHistory(path);
    EXPECT_FALSE(huge.problem.empty());
    EXPECT_TRUE(huge.history.entries.empty());
}

}  // namespace
}  // namespace curvemill
