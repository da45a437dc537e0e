// The entries file on disk: which file is read, saving with its question, read-only cycle and
// crash safety.
#include "history/EntriesFile.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "tests/support/TempDirectory.h"

namespace curvemill {
namespace {

using testing::TempDirectory;
namespace fs = std::filesystem;

const char* const kDat = "-1 1 $ $ x @ d ";
const char* const kTxt = "-2 2 $ $ x @ t ";
const char* const kDat0 = "-3 3 $ $ x @ zero ";
const std::string kOld = "-1 1 $ $ x @ old ";

// How many files a folder holds: a temporary left behind counts.
long fileCount(const fs::path& folder) {
    const auto entries = fs::directory_iterator(folder);
    return std::distance(begin(entries), end(entries));
}

bool isReadOnly(const fs::path& path) {
    using enum fs::perms;
    const fs::perms seen = owner_read | owner_write | group_write | others_write;
    return (fs::status(path).permissions() & seen) == owner_read;
}

TEST(EntriesFileTest, LoadTakesTheFirstFileThatOpens) {
    // "Graph.dat/" is a folder.
    const std::tuple<const char*, std::vector<const char*>, EntriesSource, const char*> cases[] = {
        {"Graph.dat first", {"Graph.dat", "Graph.txt", "Graph0.dat"}, EntriesSource::GraphDat, "1"},
        {"then Graph.txt", {"Graph.txt", "Graph0.dat"}, EntriesSource::GraphTxt, "2"},
        {"then Graph0.dat", {"Graph0.dat"}, EntriesSource::Graph0Dat, "3"},
        {"a folder is no file", {"Graph.dat/", "Graph0.dat"}, EntriesSource::Graph0Dat, "3"},
        {"none", {}, EntriesSource::None, nullptr},
    };
    for (const auto& [name, present, source, xEnd] : cases) {
        SCOPED_TRACE(name);
        TempDirectory dir;
        for (const std::string n : present) {
            if (n.back() == '/') {
                fs::create_directory(dir.path() / "Graph.dat");
            } else {
                dir.write(n, n == "Graph.dat" ? kDat : n == "Graph.txt" ? kTxt : kDat0);
            }
        }
        HistoryStore store;
        EXPECT_EQ(loadEntries(store, kLoadAtStartup, dir.path()), xEnd ? 0 : 1);
        EXPECT_EQ(store.sourceKind(), source);
        ASSERT_EQ(store.size(), xEnd ? 1 : 0);
        EXPECT_TRUE(!xEnd || store.entries()[0].xEnd == xEnd);
    }
}

HistoryStore storeWithNewEntries() {
    HistoryStore store;
    store.addNewEntry({"x^2+y^2-16", "-5", "5", "-5", "5", EntrySection::Equations});
    store.addNewEntry({"sin(x)/x*80", "-10", "10", "$", "$", EntrySection::Graphs});
    store.searchRing().add("sin");
    return store;
}

TEST(EntriesFileTest, SaveAsksOnlyAtExitAndOnlyWhenSomethingChanged) {
    using enum SaveOutcome;
    const std::tuple<const char*, bool, bool, SaveReason, bool, int, SaveOutcome> cases[] = {
        {"command saves without asking", true, false, kSaveOnCommand, false, 0, Saved},
        {"exit asks, Yes saves", true, false, kSaveAtExit, true, 1, Saved},
        {"exit asks, No keeps the file", true, false, kSaveAtExit, false, 1, Declined},
        {"a new search string is a change", false, true, kSaveAtExit, true, 1, Saved},
        {"nothing changed: no question", false, false, kSaveAtExit, true, 0, NothingToSave},
    };
    for (const auto& [name, entriesChanged, ringChanged, reason, answer, asked, outcome] : cases) {
        SCOPED_TRACE(name);
        TempDirectory dir;
        dir.write("Graph.dat", "old");
        HistoryStore store = storeWithNewEntries();
        store.setChanged(entriesChanged);
        store.searchRing().setChanged(ringChanged);
        int questions = 0;
        const SaveResult result = saveEntries(
            store, reason,
            [&] {
                ++questions;
                return answer;
            },
            dir.path());
        EXPECT_EQ(result.outcome, outcome);
        EXPECT_EQ(questions, asked);
        const bool saved = outcome == Saved;
        EXPECT_EQ(dir.read("Graph.dat"),
                  saved ? "-10 10 $ $ sin(x)/x*80 &-5 5 -5 5 x^2+y^2-16 @ sin " : "old");
        EXPECT_EQ(store.changed(), entriesChanged && !saved);
        EXPECT_EQ(store.searchRing().changed(), ringChanged && !saved);
        EXPECT_EQ(isReadOnly(dir.path() / "Graph.dat"), saved);
    }
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

// What the tester did: draw a formula the file cannot hold (it used to be recorded), save, start
// again. Neither it nor any other bad record may cut the next load short.
TEST(EntriesFileTest, RecordsTheLoaderWouldRefuseAreNotWrittenAndTheRestSurvives) {
    const HistoryEntry refused[] = {
        {"cos(x", "-1", "1", "$", "$"},
        {"x+1)", "-1", "1", "$", "$"},
        {"()", "-1", "1", "$", "$"},
        {"x^2+y^2-(1", "-5", "5", "-5", "5", EntrySection::Equations},
        {"x", "2", "2", "$", "$"},
        {"x", "3", "-3", "$", "$"},
        {"x", "-1", "x", "$", "$"},
        {"x*y", "-1", "1", "$", "5"},
        {std::string(97, '1') + "+x", "-1", "1", "$", "$"},
        {"x", "-" + std::string(98, '1'), "1", "$", "$"},
        {"x", "-1", "1&", "$", "$"},
    };
    for (const HistoryEntry& bad : refused) {
        SCOPED_TRACE(bad.formula + " " + bad.xBegin + " " + bad.xEnd + " " + bad.yEnd);
        TempDirectory dir;
        HistoryStore store = storeWithNewEntries();
        ASSERT_TRUE(store.addNewEntry(bad));
        ASSERT_TRUE(
            store.addNewEntry({"x^2-y^2-1", "-3", "3", "-3", "3", EntrySection::Equations}));
        ASSERT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path()).outcome, SaveOutcome::Saved);
        HistoryStore loaded;
        ASSERT_EQ(loadEntries(loaded, kLoadAtStartup, dir.path()), 0);
        EXPECT_FALSE(loaded.partialLoad());
        EXPECT_EQ(loaded.size(), 3);
        EXPECT_EQ(loaded.searchRing().newestFirst(), std::vector<std::string>{"sin"});
    }
}

TEST(EntriesFileTest, FirstSaveAfterAPartialLoadKeepsTheOldFile) {
    const std::tuple<const char*, std::string, bool> cases[] = {
        {"bad record", "-1 1 $ $ x 0 1 $ $ cos(x -2 2 $ $ x^2 @ s ", true},
        {"cut at the end", "-1 1 $ $ x -2 2 $ ", true},
        {"whole file: no copy", kDat, false},
    };
    for (const auto& [name, old, partial] : cases) {
        SCOPED_TRACE(name);
        TempDirectory dir;
        dir.write("Graph.dat", old);
        HistoryStore store;
        ASSERT_EQ(loadEntries(store, kLoadAtStartup, dir.path()), 0);
        EXPECT_EQ(store.partialLoad(), partial);
        // A second save must not copy the file the first one wrote over the kept one.
        for (const char* formula : {"x^3", "x^4"}) {
            store.addNewEntry({formula, "-1", "1", "$", "$"});
            ASSERT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path()).outcome,
                      SaveOutcome::Saved);
            EXPECT_EQ(fs::exists(dir.path() / "Graph.dat.bak"), partial);
            EXPECT_TRUE(isReadOnly(dir.path() / "Graph.dat"));
            if (partial) {
                EXPECT_EQ(dir.read("Graph.dat.bak"), old);
            }
        }
        EXPECT_NE(dir.read("Graph.dat"), old);
    }
    // Without its copy the file is not replaced.
    TempDirectory dir;
    dir.write("Graph.dat", std::get<1>(cases[0]));
    fs::create_directory(dir.path() / "Graph.dat.bak");
    HistoryStore store;
    loadEntries(store, kLoadAtStartup, dir.path());
    store.addNewEntry({"x^3", "-1", "1", "$", "$"});
    EXPECT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path()).outcome, SaveOutcome::Failed);
    EXPECT_EQ(dir.read("Graph.dat"), std::get<1>(cases[0]));
}

// Runs `body` in a child process as the user "nobody", since root writes whatever the permission
// bits say; returns its exit status, or nothing when the user cannot be changed here or cannot
// reach `place` (a temporary folder under a private parent, as with a strict umask or TMPDIR).
std::optional<int> runAsNobody(const fs::path& place, const std::function<int()>& body) {
    const passwd* nobody = ::getpwnam("nobody");
    if (::geteuid() != 0 || nobody == nullptr) {
        return std::nullopt;
    }
    const pid_t child = fork();
    if (child == 0) {
        const gid_t group = nobody->pw_gid;
        if (::setgroups(1, &group) != 0 || ::setgid(group) != 0 || ::setuid(nobody->pw_uid) != 0 ||
            ::access(place.c_str(), X_OK) != 0) {
            _exit(125);
        }
        _exit(body());
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status) ||
        WEXITSTATUS(status) == 125) {
        return std::nullopt;
    }
    return WEXITSTATUS(status);
}

TEST(EntriesFileTest, SaveRespectsFoldersLinksAndOtherUsersFiles) {
    // link: Graph.dat is a link to the file in another folder; folderWritable: of the file itself.
    const std::tuple<const char*, bool, bool, bool, bool> cases[] = {
        {"read-only folder: the file is written in place", false, false, true, true},
        {"another user's read-only file is not replaced", false, true, false, false},
        {"a link stays a link, its file is replaced", true, true, true, true},
        {"a link into a read-only folder", true, false, true, true},
    };
    const passwd* nobody = ::getpwnam("nobody");
    for (const auto& [name, link, folderWritable, ownFile, saved] : cases) {
        SCOPED_TRACE(name);
        TempDirectory dir;
        // Created under the process's umask, which may shut other users out.
        ::chmod(dir.path().c_str(), 0755);
        const fs::path home = dir.path() / "home";
        const fs::path folder = link ? dir.path() / "data" : home;
        fs::create_directories(home);
        fs::create_directories(folder);
        std::ofstream(folder / "Graph.dat") << kOld;
        if (link) {
            fs::create_symlink("../data/Graph.dat", home / "Graph.dat");
        }
        if (nobody != nullptr) {
            for (const fs::path& path : {home, folder}) {
                ASSERT_EQ(::chown(path.c_str(), nobody->pw_uid, nobody->pw_gid), 0);
            }
            if (ownFile) {
                ASSERT_EQ(::chown((folder / "Graph.dat").c_str(), nobody->pw_uid, 0), 0);
            }
        }
        ::chmod((folder / "Graph.dat").c_str(), 0444);
        ::chmod(folder.c_str(), folderWritable ? 0755 : 0555);
        HistoryStore store = storeWithNewEntries();
        const std::optional<int> status = runAsNobody(home, [&] {
            return saveEntries(store, kSaveOnCommand, {}, home).outcome == SaveOutcome::Saved;
        });
        if (!status) {
            GTEST_SKIP() << "needs root, a user \"nobody\" to switch to and a temporary folder "
                            "that user can reach: root writes regardless of permissions";
        }
        EXPECT_EQ(*status == 1, saved);
        EXPECT_EQ(dir.read(fs::relative(folder / "Graph.dat", dir.path()).string()) != kOld, saved);
        EXPECT_EQ(fs::is_symlink(home / "Graph.dat"), link);
        EXPECT_TRUE(isReadOnly(folder / "Graph.dat"));
        EXPECT_FALSE(fs::exists(folder / "Graph.dat.tmp"));
    }
}

// Unreadable for its owner (mode 000 or 200): loaded as no file, it is never replaced, and both
// the load and the save say why. Root reads anything, so it runs as "nobody" there.
TEST(EntriesFileTest, AFileThatCannotBeReadIsNeverReplaced) {
    const passwd* nobody = ::getpwnam("nobody");
    for (const mode_t mode : {0000, 0200}) {
        SCOPED_TRACE(mode);
        TempDirectory dir;
        ::chmod(dir.path().c_str(), 0777);
        const fs::path file = dir.path() / "Graph.dat";
        dir.write("Graph.dat", kOld);
        if (::geteuid() == 0 && nobody != nullptr) {
            ASSERT_EQ(::chown(file.c_str(), nobody->pw_uid, nobody->pw_gid), 0);
        }
        ::chmod(file.c_str(), mode);
        const std::function<int()> body = [&] {
            HistoryStore store;
            std::string problem;
            const int found = loadEntries(store, kLoadAtStartup, dir.path(), &problem);
            store.addNewEntry({"x^3", "-1", "1", "$", "$"});
            const SaveResult saved = saveEntries(store, kSaveOnCommand, {}, dir.path());
            return int(found == 1 && problem == "Permission denied" &&
                       saved.outcome == SaveOutcome::Failed &&
                       saved.detail.find("Permission denied") != std::string::npos);
        };
        const std::optional<int> status =
            ::geteuid() == 0 ? runAsNobody(dir.path(), body) : std::optional<int>(body());
        if (!status) {
            GTEST_SKIP() << "as root, needs a user \"nobody\" who cannot read the file";
        }
        EXPECT_EQ(*status, 1);
        ::chmod(file.c_str(), 0644);
        EXPECT_EQ(dir.read("Graph.dat"), kOld);
        EXPECT_FALSE(fs::exists(dir.path() / "Graph.dat.bak"));
    }
}

// The message stays the same for every failed save; the detail says what really happened, and
// the old file, the entries and their changed marks stay. Another save's temporary file (a
// second copy writing at the same moment) is not touched.
TEST(EntriesFileTest, AFailedSaveSaysWhyAndTemporaryNamesAreNotShared) {
    // where: empty for the test's folder
    const std::tuple<const char*, std::string, bool, ChunkWriter, const char*> cases[] = {
        // Root may write a read-only file, but nobody can replace a folder by a file.
        {"a folder named Graph.dat", "", true, {}, "\"Graph.dat\": Is a directory"},
        {"a full disk", "", false, halfWriter([] {}), "\"Graph.dat\": No space left on device"},
        {"no such folder", "/proc/curvemill-no-such-dir", false, {}, "\"Graph.dat\": "},
    };
    for (const auto& [what, where, folder, writer, detail] : cases) {
        SCOPED_TRACE(what);
        TempDirectory dir;
        if (folder) {
            fs::create_directory(dir.path() / "Graph.dat");
        } else {
            dir.write("Graph.dat", kOld);
        }
        HistoryStore store = storeWithNewEntries();
        const fs::path place = where.empty() ? dir.path() : fs::path(where);
        const SaveResult result = saveEntries(store, kSaveOnCommand, {}, place, writer);
        EXPECT_EQ(result.outcome, SaveOutcome::Failed);
        EXPECT_EQ(result.message, "The file is being used by another application");
        EXPECT_EQ(result.detail.rfind(detail, 0), 0u) << result.detail;
        EXPECT_TRUE(store.changed() && store.searchRing().changed());
        EXPECT_EQ(folder ? "" : dir.read("Graph.dat"), folder ? "" : kOld);
        EXPECT_EQ(fileCount(dir.path()), 1);  // no temporary left
    }
    // A save killed before its rename left its temporary file: that one goes once it is old and
    // its writer is gone; a running writer's, or a fresh one, may still be renamed.
    const pid_t gone = fork();
    if (gone == 0) {
        _exit(0);
    }
    ::waitpid(gone, nullptr, 0);
    const auto temporary = [](pid_t pid, int serial = 0) {
        return ".curvemill-" + std::to_string(pid) + "-" + std::to_string(serial) + "-1.tmp";
    };
    TempDirectory dir;
    dir.write("Graph.dat.tmp", "another save's half");
    for (const pid_t pid : {gone, ::getppid()}) {
        dir.write(temporary(pid), "killed save");
        fs::last_write_time(dir.path() / temporary(pid),
                            fs::file_time_type::clock::now() - std::chrono::hours(1));
    }
    dir.write(temporary(gone, 1), "a save under way elsewhere");
    HistoryStore store = storeWithNewEntries();
    EXPECT_EQ(saveEntries(store, kSaveOnCommand, {}, dir.path()).outcome, SaveOutcome::Saved);
    EXPECT_EQ(dir.read("Graph.dat.tmp"), "another save's half");
    EXPECT_FALSE(fs::exists(dir.path() / temporary(gone)));
    EXPECT_EQ(fileCount(dir.path()), 4);  // and no temporary left of ours
}

// The starter history loads whole (writing what was read gives the file back), and the seed that
// starts the fuzzer on the over-capacity path stays whole in its corpus.
TEST(EntriesFileTest, ShippedFilesLoadAsMeant) {
    const auto text = [](const char* name) {
        std::ifstream in(fs::path(CURVEMILL_RESOURCES_DIR) / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    RecordChecker checker;
    HistoryStore starter;
    EXPECT_TRUE(readEntries(starter, text("Graph.dat"), kLoadAtStartup, checker));
    EXPECT_GE(starter.sectionNCount(), 4);
    EXPECT_EQ(formatEntries(starter, checker), text("Graph.dat"));
    HistoryStore full;
    EXPECT_FALSE(
        readEntries(full, text("../fuzz/corpus/history/capacity"), kLoadAtStartup, checker));
    EXPECT_EQ(full.size(), HistoryStore::kCapacity);
}

}  // namespace
}  // namespace curvemill
