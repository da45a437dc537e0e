// The entries file on disk: which file is read, saving with its question, read-only cycle and
// crash safety.
#include "history/EntriesFile.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "TempDirectory.h"

namespace curvemill {
namespace {

using testing::TempDirectory;
namespace fs = std::filesystem;

const char* const kDat = "-1 1 $ $ x @ d ";
const char* const kTxt = "-2 2 $ $ x @ t ";
const char* const kDat0 = "-3 3 $ $ x @ zero ";

bool isReadOnly(const fs::path& path) {
    const fs::perms p = fs::status(path).permissions();
    constexpr fs::perms write =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (p & write) == fs::perms::none && (p & fs::perms::owner_read) != fs::perms::none;
}

TEST(EntriesFileTest, LoadTakesTheFirstFileThatOpens) {
    struct Case {
        const char* name;
        std::vector<const char*> present;
        bool datIsDirectory;
        int result;
        char source;
        const char* xEnd;
    };
    const Case cases[] = {
        {"Graph.dat first", {"Graph.dat", "Graph.txt", "Graph0.dat"}, false, 0, kSourceDat, "1"},
        {"then Graph.txt", {"Graph.txt", "Graph0.dat"}, false, 0, kSourceTxt, "2"},
        {"then Graph0.dat", {"Graph0.dat"}, false, 0, kSourceDat0, "3"},
        {"a folder is no file", {"Graph0.dat"}, true, 0, kSourceDat0, "3"},
        {"none", {}, false, 1, kSourceNone, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TempDirectory dir;
        for (const char* name : c.present) {
            const std::string n = name;
            dir.write(n, n == "Graph.dat" ? kDat : n == "Graph.txt" ? kTxt : kDat0);
        }
        if (c.datIsDirectory) {
            fs::create_directory(dir.path() / "Graph.dat");
        }
        HistoryStore store;
        EXPECT_EQ(loadEntries(store, kLoadAtStartup, dir.path()), c.result);
        EXPECT_EQ(store.sourceKind(), c.source);
        if (c.xEnd) {
            ASSERT_EQ(store.size(), 1);
            EXPECT_EQ(store.entries()[0].xEnd, c.xEnd);
            EXPECT_EQ(store.searchRing().count(), 1);
        } else {
            EXPECT_EQ(store.size(), 0);
        }
    }
}

HistoryStore storeWithNewEntries() {
    HistoryStore store;
    store.addNewEntry({"x^2+y^2-16", "-5", "5", "-5", "5", kSectionN});
    store.addNewEntry({"sin(x)/x*80", "-10", "10", "$", "$", kSectionY});
    store.searchRing().add("sin");
    return store;
}

TEST(EntriesFileTest, SaveAsksOnlyAtExitAndOnlyWhenSomethingChanged) {
    using enum SaveOutcome;
    const struct {
        const char* name;
        bool entriesChanged;
        bool ringChanged;
        char reason;
        bool answer;
        int questions;
        SaveOutcome outcome;
    } cases[] = {
        {"command saves without asking", true, false, kSaveOnCommand, false, 0, Saved},
        {"exit asks, Yes saves", true, false, kSaveAtExit, true, 1, Saved},
        {"exit asks, No keeps the file", true, false, kSaveAtExit, false, 1, Declined},
        {"a new search string is a change", false, true, kSaveAtExit, true, 1, Saved},
        {"nothing changed: no question", false, false, kSaveAtExit, true, 0, NothingToSave},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TempDirectory dir;
        dir.write("Graph.dat", "old");
        HistoryStore store = storeWithNewEntries();
        store.setChanged(c.entriesChanged);
        store.searchRing().setChanged(c.ringChanged);
        int questions = 0;
        const SaveResult result = saveEntries(
            store, c.reason,
            [&] {
                ++questions;
                return c.answer;
            },
            dir.path());
        EXPECT_EQ(result.outcome, c.outcome);
        EXPECT_EQ(questions, c.questions);
        const bool saved = c.outcome == Saved;
        EXPECT_EQ(dir.read("Graph.dat"),
                  saved ? "-10 10 $ $ sin(x)/x*80 &-5 5 -5 5 x^2+y^2-16 @ sin " : "old");
        EXPECT_EQ(store.changed(), c.entriesChanged && !saved);
    }
}

TEST(EntriesFileTest, SavedFileIsReadOnlyAndASecondSaveSucceeds) {
    TempDirectory dir;
    HistoryStore store = storeWithNewEntries();
    ASSERT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path()).outcome, SaveOutcome::Saved);
    EXPECT_TRUE(isReadOnly(dir.path() / "Graph.dat"));
    EXPECT_FALSE(store.changed());
    EXPECT_FALSE(store.searchRing().changed());

    store.addNewEntry({"x^3-3*x", "-3", "3", "$", "$", kSectionY});
    ASSERT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path()).outcome, SaveOutcome::Saved);
    EXPECT_TRUE(isReadOnly(dir.path() / "Graph.dat"));
    EXPECT_FALSE(fs::exists(dir.path() / "Graph.dat.tmp"));

    HistoryStore loaded;
    ASSERT_EQ(loadEntries(loaded, kLoadAtStartup, dir.path()), 0);
    ASSERT_EQ(loaded.size(), 3);
    EXPECT_EQ(loaded.entries()[0].formula, "x^3-3*x");
    EXPECT_EQ(loaded.searchRing().newestFirst(), std::vector<std::string>{"sin"});
}

TEST(EntriesFileTest, UnwritableFileReportsAndKeepsEverything) {
    TempDirectory dir;
    // Root may write a read-only file, but nobody can replace a folder by a file.
    fs::create_directory(dir.path() / "Graph.dat");
    for (const fs::path& place : {dir.path(), fs::path("/proc/curvemill-no-such-dir")}) {
        SCOPED_TRACE(place.string());
        HistoryStore store = storeWithNewEntries();
        const SaveResult result = saveEntries(store, kSaveOnCommand, {}, place);
        EXPECT_EQ(result.outcome, SaveOutcome::Failed);
        EXPECT_EQ(result.message, "The file is being used by another application");
        EXPECT_TRUE(store.changed());
        EXPECT_TRUE(store.searchRing().changed());
        EXPECT_EQ(store.size(), 2);
    }
    EXPECT_TRUE(fs::is_directory(dir.path() / "Graph.dat"));
    EXPECT_FALSE(fs::exists(dir.path() / "Graph.dat.tmp"));
}

// Writes half of what it is given, then lets `afterHalf` decide how the save ends.
ChunkWriter halfWriter(void (*afterHalf)()) {
    return [afterHalf](int fd, const char* data, std::size_t size) -> long {
        const std::size_t half = size / 2;
        if (::write(fd, data, half) != static_cast<ssize_t>(half)) {
            return -1;
        }
        afterHalf();
        errno = ENOSPC;
        return -1;
    };
}

TEST(EntriesFileTest, InterruptedSaveLeavesTheOldFileIntact) {
    const std::string old = "-1 1 $ $ x @ old ";
    TempDirectory dir;
    dir.write("Graph.dat", old);
    HistoryStore store = storeWithNewEntries();
    // Disk full half way.
    EXPECT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path(), halfWriter([] {})).outcome,
              SaveOutcome::Failed);
    EXPECT_EQ(dir.read("Graph.dat"), old);
    EXPECT_FALSE(fs::exists(dir.path() / "Graph.dat.tmp"));

    // Process killed half way.
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        saveEntries(store, kSaveOnCommand, {}, dir.path(), halfWriter([] { raise(SIGKILL); }));
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(dir.read("Graph.dat"), old);
    // The next save in a new run clears the leftover and succeeds.
    EXPECT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path()).outcome, SaveOutcome::Saved);
    EXPECT_FALSE(fs::exists(dir.path() / "Graph.dat.tmp"));
}

TEST(EntriesFileTest, StarterHistoryLoadsCompletely) {
    HistoryStore store;
    ASSERT_EQ(loadEntries(store, kLoadAtStartup, CURVEMILL_RESOURCES_DIR), 0);
    EXPECT_EQ(store.sourceKind(), kSourceDat);
    EXPECT_GE(store.twoDCount(), 8);
    EXPECT_GE(store.sectionNCount(), 4);
    EXPECT_GE(store.sectionYCount(), 4);
    // Writing what was read gives the file back: no record was refused or cut.
    TempDirectory copy;
    fs::copy_file(fs::path(CURVEMILL_RESOURCES_DIR) / "Graph.dat", copy.path() / "Graph.dat");
    EXPECT_EQ(formatEntries(store), copy.read("Graph.dat"));
}

}  // namespace
}  // namespace curvemill
