// The loader's reading of entries-file text, quirks included, and write/read round trips.
#include "history/EntriesFormat.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace curvemill {
namespace {

// Appends rather than adds: "w" + std::to_string(i) trips a false -Wrestrict warning in GCC 12.
std::string named(const char* prefix, int number) {
    return std::string(prefix).append(std::to_string(number));
}

// "section|xBegin|xEnd|yBegin|yEnd|formula" for each entry, head first.
std::vector<std::string> describe(const HistoryStore& store) {
    std::vector<std::string> out;
    for (const HistoryEntry& e : store.entries()) {
        out.push_back(std::string(1, e.section) + "|" + e.xBegin + "|" + e.xEnd + "|" + e.yBegin +
                      "|" + e.yEnd + "|" + e.formula);
    }
    return out;
}

std::vector<std::string> slots(const SearchRing& ring) {
    std::vector<std::string> out;
    for (int i = 0; i < ring.count(); ++i) {
        out.push_back(ring.at(i));
    }
    return out;
}

// A formula of exactly `length` characters (at least 4) that passes the check.
std::string formulaOfLength(std::size_t length) {
    std::string text = "x";
    while (text.size() + 2 < length - 1) {
        text += "+x";
    }
    text += length - text.size() == 2 ? "+1" : "+10";
    return text;
}

struct LoadCase {
    const char* name;
    std::string text;
    char mode;
    std::vector<std::string> entries;
    std::vector<std::string> ringSlots;
};

std::string twentyFiveWords() {
    std::string text = "-1 1 $ $ x @ ";
    for (int i = 0; i < 25; ++i) {
        text += named("w", i) + " ";
    }
    return text;
}

std::vector<std::string> firstTwentyWords() {
    std::vector<std::string> out;
    for (int i = 0; i < 20; ++i) {
        out.push_back(named("w", i));
    }
    return out;
}

const std::vector<LoadCase>& loadCases() {
    static const std::vector<LoadCase> cases = {
        {"example file",
         "-10 10 $ $ sin(x)/x*80 &-5 5 -5 5 x^2+y^2-16 @ sin ",
         'y',
         {"y|-10|10|$|$|sin(x)/x*80", "n|-5|5|-5|5|x^2+y^2-16"},
         {"sin"}},
        {"mode n leaves the search strings",
         "-10 10 $ $ sin(x)/x*80 &-5 5 -5 5 x^2+y^2-16 @ sin ",
         'n',
         {"y|-10|10|$|$|sin(x)/x*80", "n|-5|5|-5|5|x^2+y^2-16"},
         {}},
        {"empty first section: its '&' joins the first X begin",
         "&-5 5 -5 5 x^2+y^2-16 @ sin ",
         'y',
         {},
         {}},
        {"'&' inside a field switches the section and is dropped",
         "-1 1 $ $ x -10 1&0 $ $ x^2 @ ",
         'y',
         {"y|-1|1|$|$|x", "n|-10|10|$|$|x^2"},
         {}},
        {"the character after '&' is not tested again",
         "-1 1 $ $ x &&2 3 $ $ x @ s ",
         'y',
         {"y|-1|1|$|$|x"},
         {}},
        {"'@' inside a field ends the records",
         "-1 1 $ $ x -2 2@ $ $ cos(x) ",
         'y',
         {"y|-1|1|$|$|x"},
         {"$", "$", "cos(x)"}},
        {"98 characters load",
         "-1 1 $ $ " + formulaOfLength(98) + " @ ",
         'y',
         {"y|-1|1|$|$|" + formulaOfLength(98)},
         {}},
        {"99 characters end the load",
         "-1 1 $ $ x -1 1 $ $ " + formulaOfLength(99) + " @ a ",
         'y',
         {"y|-1|1|$|$|x"},
         {}},
        {"X begin equal to X end stops, earlier records stay",
         "-1 1 $ $ x 2 2 $ $ x^2 3 4 $ $ x @ ",
         'y',
         {"y|-1|1|$|$|x"},
         {}},
        {"'$' with a real Y end is a two-range entry and fails",
         "-1 1 $ 5 x*y 0 1 $ $ x @ ",
         'y',
         {},
         {}},
        {"Y end not above Y begin fails", "-1 1 2 1 x*y @ ", 'y', {}, {}},
        {"range that is no constant fails", "0 x $ $ x @ ", 'y', {}, {}},
        {"bad formula stops before the search strings",
         "-1 1 $ $ x 0 1 $ $ sin( -1 1 $ $ x^2 @ s ",
         'y',
         {"y|-1|1|$|$|x"},
         {}},
        {"an entry without Y range is checked as a function of x", "-1 1 $ $ x*y @ ", 'y', {}, {}},
        {"the same formula with a Y range passes",
         "-1 1 -1 1 x*y @ ",
         'y',
         {"y|-1|1|-1|1|x*y"},
         {}},
        {"a 2D entry in section n keeps its mark",
         "-1 1 $ $ x &-1 1 $ $ x^2 @ ",
         'y',
         {"y|-1|1|$|$|x", "n|-1|1|$|$|x^2"},
         {}},
        {"trailing partial record is dropped", "-1 1 $ $ x -2 2 $ ", 'y', {"y|-1|1|$|$|x"}, {}},
        {"no blank after the last field drops the record", "-1 1 $ $ x", 'y', {}, {}},
        {"empty file", "", 'y', {}, {}},
        {"a NUL ends the text of its field",
         std::string("-1 1 $ $ x\0yz @ ", 16),
         'y',
         {"y|-1|1|$|$|x"},
         {}},
        {"last word without its blank is dropped",
         "-1 1 $ $ x @ ab cd",
         'y',
         {"y|-1|1|$|$|x"},
         {"ab"}},
        {"the byte after '@' is skipped whatever it is",
         "-1 1 $ $ x @ab cd ",
         'y',
         {"y|-1|1|$|$|x"},
         {"b", "cd"}},
        {"at most twenty words", twentyFiveWords(), 'y', {"y|-1|1|$|$|x"}, firstTwentyWords()},
    };
    return cases;
}

TEST(EntriesFormatTest, LoaderReadsEveryQuirkOfTheFormat) {
    for (const LoadCase& c : loadCases()) {
        SCOPED_TRACE(c.name);
        HistoryStore store;
        RecordChecker checker;
        readEntries(store, c.text, c.mode, checker);
        EXPECT_EQ(describe(store), c.entries);
        EXPECT_EQ(slots(store.searchRing()), c.ringSlots);
        EXPECT_EQ(store.searchRing().newest(), 0);
        EXPECT_FALSE(store.changed());
        EXPECT_FALSE(store.searchRing().changed());
    }
}

TEST(EntriesFormatTest, RecordsBeyondCapacityAreReadAndDropped) {
    std::string text;
    for (int i = 1; i <= 203; ++i) {
        text += named("-", i) + " " + std::to_string(i) + " $ $ x ";
    }
    text += "@ kept ";
    HistoryStore store;
    RecordChecker checker;
    readEntries(store, text, 'y', checker);
    ASSERT_EQ(store.size(), HistoryStore::kCapacity);
    EXPECT_EQ(store.entries().back().xEnd, "200");
    EXPECT_EQ(store.twoDCount(), HistoryStore::kCapacity);
    // Dropping is silent: loading goes on to the search strings.
    EXPECT_EQ(slots(store.searchRing()), std::vector<std::string>{"kept"});
}

TEST(EntriesFormatTest, WriterPutsSectionsAndRingInFileOrder) {
    HistoryStore store;
    store.addNewEntry({"x^2+y^2-16", "-5", "5", "-5", "5", kSectionN});
    store.addNewEntry({"sin(x)*cos(y)", "-3", "3", "-3", "3", kSectionY});
    store.addNewEntry({"sin(x)/x*80", "-10", "10", "$", "$", kSectionY});
    for (const char* s : {"a", "b", "c"}) {
        store.searchRing().add(s);
    }
    // Until the ring is full the string in slot 0 is written last.
    EXPECT_EQ(formatEntries(store),
              "-10 10 $ $ sin(x)/x*80 -3 3 -3 3 sin(x)*cos(y) &-5 5 -5 5 x^2+y^2-16 @ b c a ");
}

TEST(EntriesFormatTest, WriterLeavesOutWhatTheLoaderCouldNotReadBack) {
    HistoryStore store;
    store.addLoadedEntry({"x", "-1", "1", "$", "$", kSectionY});
    store.addLoadedEntry({"x&2", "-1", "1", "$", "$", kSectionY});
    store.addLoadedEntry({"x", "", "1", "$", "$", kSectionY});
    store.addLoadedEntry({"x^3", "-1", "1", "$", "$", kSectionY});
    store.searchRing().add("two words");
    EXPECT_EQ(formatEntries(store), "-1 1 $ $ x -1 1 $ $ x^3 &@ ");
}

TEST(EntriesFormatTest, WrittenTextReadsBackToTheSameList) {
    HistoryStore original;
    original.addNewEntry({"e^(-(x^2+y^2))", "-2", "2", "-2", "2", kSectionY});
    original.addNewEntry({"x^3+y^3-3*x*y", "-3", "3", "-3", "3", kSectionN});
    original.addNewEntry({"tan(x)", "-pi", "pi", "$", "$", kSectionY});
    original.addNewEntry({"tan(x)", "-2*pi", "2*pi", "$", "$", kSectionY});
    original.addNewEntry({"ln(x)", "0.01", "10", "$", "$", kSectionN});
    for (int i = 0; i < 23; ++i) {
        original.searchRing().add(named("s", i));
    }
    const std::string text = formatEntries(original);

    HistoryStore loaded;
    RecordChecker checker;
    readEntries(loaded, text, 'y', checker);
    // Sections are written one after the other, so only the order within a section survives.
    std::vector<std::string> expected;
    for (char section : {kSectionY, kSectionN}) {
        for (const std::string& line : describe(original)) {
            if ((line[0] == kSectionY) == (section == kSectionY)) {
                expected.push_back(line);
            }
        }
    }
    EXPECT_EQ(describe(loaded), expected);
    // The strings come back into slots 0 upward with slot 0 as the newest: the ring turns by one
    // at every load, as the format has always done.
    EXPECT_EQ(slots(loaded.searchRing()), original.searchRing().oldestFirst());
    const std::string loadedText = formatEntries(loaded);
    EXPECT_EQ(loadedText.substr(0, loadedText.find('@')), text.substr(0, text.find('@')));
}

}  // namespace
}  // namespace curvemill
