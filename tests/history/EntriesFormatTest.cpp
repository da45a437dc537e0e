// The loader's reading of entries-file text, quirks included, and write/read round trips.
#include "history/EntriesFormat.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace curvemill {
namespace {

// Every entry, head first, as "section|xBegin|xEnd|yBegin|yEnd|formula", joined by "; ".
std::string describe(const HistoryStore& store) {
    std::string out;
    for (const HistoryEntry& e : store.entries()) {
        out += (out.empty() ? "" : "; ") +
               std::string(e.section == EntrySection::Graphs ? "y" : "n") + "|" + e.xBegin + "|" +
               e.xEnd + "|" + e.yBegin + "|" + e.yEnd + "|" + e.formula;
    }
    return out;
}

// The ring's slots from 0 up, joined by blanks.
std::string slots(const SearchRing& ring) {
    std::string out;
    for (int i = 0; i < ring.count(); ++i) {
        out += (i == 0 ? "" : " ") + ring.at(i);
    }
    return out;
}

// "w0 w1 ..." with `count` words. Appends rather than adds: "w" + std::to_string(i) trips a false
// -Wrestrict warning in GCC 12.
std::string wordList(int count, const char* prefix = "w") {
    std::string out;
    for (int i = 0; i < count; ++i) {
        out.append(i == 0 ? "" : " ").append(prefix).append(std::to_string(i));
    }
    return out;
}

// A formula of 98 or 99 characters.
std::string formulaOfLength(std::size_t length) {
    return std::string(length - 2, '1') + "+x";
}

TEST(EntriesFormatTest, LoaderReadsEveryQuirkOfTheFormat) {
    const std::string example = "-10 10 $ $ sin(x)/x*80 &-5 5 -5 5 x^2+y^2-16 @ sin ";
    const std::string exampleEntries = "y|-10|10|$|$|sin(x)/x*80; n|-5|5|-5|5|x^2+y^2-16";
    const std::string x1 = "y|-1|1|$|$|x";  // the one entry most rows keep
    // ring: the slots from 0 up; whole: everything in the text was taken.
    const std::tuple<const char*, std::string, std::string, std::string, char, bool> cases[] = {
        {"example file", example, exampleEntries, "sin", 'y', true},
        {"mode n leaves the search strings", example, exampleEntries, "", 'n', true},
        {"empty first section: its '&' joins the first X begin", "&-5 5 -5 5 x^2+y^2-16 @ sin ", "",
         "", 'y', false},
        {"'&' inside a field switches the section and is dropped", "-1 1 $ $ x -10 1&0 $ $ x^2 @ ",
         "y|-1|1|$|$|x; n|-10|10|$|$|x^2", "", 'y', true},
        {"the character after '&' is not tested again", "-1 1 $ $ x &&2 3 $ $ x @ s ", x1, "", 'y',
         false},
        {"'@' inside a field ends the records", "-1 1 $ $ x -2 2@ $ $ cos(x) ", x1, "$ $ cos(x)",
         'y', true},
        {"98 characters load", "-1 1 $ $ " + formulaOfLength(98) + " @ ",
         "y|-1|1|$|$|" + formulaOfLength(98), "", 'y', true},
        {"99 characters end the load", "-1 1 $ $ x -1 1 $ $ " + formulaOfLength(99) + " @ a ", x1,
         "", 'y', false},
        {"X begin equal to X end stops, earlier records stay",
         "-1 1 $ $ x 2 2 $ $ x^2 3 4 $ $ x @ ", x1, "", 'y', false},
        {"'$' with a real Y end is a two-range entry and fails", "-1 1 $ 5 x*y 0 1 $ $ x @ ", "",
         "", 'y', false},
        {"Y end not above Y begin fails", "-1 1 2 1 x*y @ ", "", "", 'y', false},
        {"range that is no constant fails", "0 x $ $ x @ ", "", "", 'y', false},
        {"bad formula stops before the search strings", "-1 1 $ $ x 0 1 $ $ sin( -1 1 $ $ x^2 @ s ",
         x1, "", 'y', false},
        {"an entry without Y range is checked as a function of x", "-1 1 $ $ x*y @ ", "", "", 'y',
         false},
        {"the same formula with a Y range passes", "-1 1 -1 1 x*y @ ", "y|-1|1|-1|1|x*y", "", 'y',
         true},
        {"a 2D entry in section n keeps its mark", "-1 1 $ $ x &-1 1 $ $ x^2 @ ",
         "y|-1|1|$|$|x; n|-1|1|$|$|x^2", "", 'y', true},
        {"trailing partial record is dropped", "-1 1 $ $ x -2 2 $ ", x1, "", 'y', false},
        {"no blank after the last field drops the record", "-1 1 $ $ x", "", "", 'y', false},
        {"no search strings at all", "-1 1 $ $ x ", x1, "", 'y', true},
        {"empty file", "", "", "", 'y', true},
        {"a NUL ends the text of its field", std::string("-1 1 $ $ x\0yz @ ", 16), x1, "", 'y',
         true},
        {"last word without its blank is dropped", "-1 1 $ $ x @ ab cd", x1, "ab", 'y', false},
        {"the byte after '@' is skipped whatever it is", "-1 1 $ $ x @ab cd ", x1, "b cd", 'y',
         true},
        {"at most twenty words", "-1 1 $ $ x @ " + wordList(25) + " ", x1, wordList(20), 'y',
         false},
        {"two blanks in a row take no slot", "-1 1 $ $ x @  w0  " + wordList(20).substr(3) + "  ",
         x1, wordList(20), 'y', true},
    };
    for (const auto& [name, text, entries, ring, mode, whole] : cases) {
        SCOPED_TRACE(name);
        HistoryStore store;
        RecordChecker checker;
        const LoadMode load = mode == 'y' ? kLoadAtStartup : kLoadEntriesOnly;
        EXPECT_EQ(readEntries(store, text, load, checker), whole);
        EXPECT_EQ(describe(store), entries);
        EXPECT_EQ(slots(store.searchRing()), ring);
        EXPECT_EQ(store.searchRing().newest(), 0);
        EXPECT_FALSE(store.changed());
        EXPECT_FALSE(store.searchRing().changed());
    }
}

// A string with blanks is written as it is; each of its words comes back as a string. The newest
// strings are kept up to the twenty words the loader reads, so what is written loads whole.
TEST(EntriesFormatTest, SearchStringsWithBlanksAreWrittenAndReadBackWhole) {
    std::vector<std::string> nineteen;
    for (int i = 0; i < 19; ++i) {
        nineteen.push_back(std::string("s").append(std::to_string(i)));
    }
    nineteen.push_back("a  b");
    // back: the slots loaded, from 0 up
    const std::tuple<const char*, std::vector<std::string>, std::string, std::string> cases[] = {
        // Slot 0 counts as the newest until the ring is full.
        {"a string with a blank", {"s0", "sin (x"}, "sin (x s0 ", "sin (x s0"},
        {"twenty words at most, the oldest left out", nineteen,
         "s2 s3 s4 s5 s6 s7 s8 s9 s10 s11 s12 s13 s14 s15 s16 s17 s18 a  b s0 ",
         "s2 s3 s4 s5 s6 s7 s8 s9 s10 s11 s12 s13 s14 s15 s16 s17 s18 a b s0"},
    };
    for (const auto& [name, added, written, back] : cases) {
        SCOPED_TRACE(name);
        HistoryStore store;
        for (const std::string& text : added) {
            store.searchRing().add(text);
        }
        RecordChecker checker;
        const std::string text = formatEntries(store, checker);
        EXPECT_EQ(text.substr(text.find('@') + 2), written);
        HistoryStore loaded;
        EXPECT_TRUE(readEntries(loaded, text, kLoadAtStartup, checker));
        EXPECT_EQ(slots(loaded.searchRing()), back);
    }
}

// Sections are written one after the other, so only the order within a section survives. The
// strings come back into slots 0 upward with slot 0 as the newest: the ring turns by one at
// every load, as the format has always done.
TEST(EntriesFormatTest, WrittenTextReadsBackInFileOrder) {
    HistoryStore original;
    original.addNewEntry({"x^2+y^2-16", "-5", "5", "-5", "5", EntrySection::Equations});
    original.addNewEntry({"sin(x)*cos(y)", "-3", "3", "-3", "3", EntrySection::Graphs});
    original.addNewEntry({"tan(x)", "-pi", "pi", "$", "$", EntrySection::Equations});
    original.addNewEntry({"sin(x)/x*80", "-10", "10", "$", "$", EntrySection::Graphs});
    for (const char* s : {"a", "b", "c"}) {
        original.searchRing().add(s);
    }
    RecordChecker checker;
    // Until the ring is full the string in slot 0 is written last.
    const std::string text = formatEntries(original, checker);
    EXPECT_EQ(text,
              "-10 10 $ $ sin(x)/x*80 -3 3 -3 3 sin(x)*cos(y) &-pi pi $ $ tan(x) -5 5 -5 5 "
              "x^2+y^2-16 @ b c a ");
    HistoryStore loaded;
    EXPECT_TRUE(readEntries(loaded, text, kLoadAtStartup, checker));
    EXPECT_EQ(describe(loaded),
              "y|-10|10|$|$|sin(x)/x*80; y|-3|3|-3|3|sin(x)*cos(y); "
              "n|-pi|pi|$|$|tan(x); n|-5|5|-5|5|x^2+y^2-16");
    const std::string loadedText = formatEntries(loaded, checker);
    EXPECT_EQ(loadedText.substr(0, loadedText.find('@')), text.substr(0, text.find('@')));
    for (int i = 0; i < 23; ++i) {
        loaded.searchRing().add(std::string("s").append(std::to_string(i)));
    }
    HistoryStore again;
    EXPECT_TRUE(readEntries(again, formatEntries(loaded, checker), kLoadAtStartup, checker));
    std::string oldestFirst;
    for (const std::string& s : loaded.searchRing().oldestFirst()) {
        oldestFirst += (oldestFirst.empty() ? "" : " ") + s;
    }
    EXPECT_EQ(slots(again.searchRing()), oldestFirst);
}

// Records a full store would drop are not even read: a huge file loads as fast as a full one,
// and the load is partial (writing the store would lose them), so the next save keeps the file
// first. The search strings after them are not reached either.
TEST(EntriesFormatTest, AFullStoreReadsNoFurther) {
    std::string text;
    for (int i = 1; i <= 300; ++i) {
        text.append("-").append(std::to_string(i)).append(" ").append(std::to_string(i));
        text.append(" $ $ x ");
    }
    text += "@ s ";
    std::size_t read = 0;
    HistoryStore store;
    RecordChecker checker;
    EXPECT_FALSE(readEntries(
        store, [&] { return read < text.size() ? static_cast<unsigned char>(text[read++]) : -1; },
        kLoadAtStartup, checker));
    ASSERT_EQ(store.size(), HistoryStore::kCapacity);
    EXPECT_EQ(store.entries().back().xEnd, "200");
    EXPECT_EQ(store.twoDCount(), HistoryStore::kCapacity);
    EXPECT_EQ(slots(store.searchRing()), "");
    EXPECT_LE(read, text.find(" -202 "));
}

}  // namespace
}  // namespace curvemill
