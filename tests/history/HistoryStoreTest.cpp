// Adding, grouping, capacity, deleting and moving entries, and the search-string ring.
#include "history/HistoryStore.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "history/RecordChecker.h"

namespace curvemill {
namespace {

// Appends rather than adds: "w" + std::to_string(i) trips a false -Wrestrict warning in GCC 12.
std::string named(const char* prefix, int number) {
    return std::string(prefix).append(std::to_string(number));
}

HistoryEntry twoD(const std::string& formula, int range) {
    return {formula, std::to_string(-range), std::to_string(range), "$", "$", EntrySection::Graphs};
}

std::vector<std::string> formulasAndEnds(const HistoryStore& store) {
    std::vector<std::string> out;
    for (const HistoryEntry& e : store.entries()) {
        out.push_back(e.formula + ":" + e.xEnd);
    }
    return out;
}

TEST(HistoryStoreTest, NewEntriesGroupByFormulaNewestFirst) {
    HistoryStore store;
    for (const auto& [formula, range] :
         {std::pair{"a", 1}, {"b", 1}, {"a", 2}, {"c", 1}, {"a", 3}}) {
        EXPECT_TRUE(store.addNewEntry(twoD(formula, range)));
    }
    EXPECT_EQ(formulasAndEnds(store),
              (std::vector<std::string>{"c:1", "b:1", "a:3", "a:2", "a:1"}));
    EXPECT_TRUE(store.changed());
    EXPECT_EQ(store.twoDCount(), 5);
}

// An equal entry changes nothing; nor does one the file cannot hold.
TEST(HistoryStoreTest, EqualOrUnwritableEntriesAreNotRecorded) {
    HistoryStore store;
    RecordChecker checker;
    const auto writable = [&](const HistoryEntry& e) { return checker.accepts(e); };
    store.addLoadedEntry(twoD("sin(x)", 5));
    HistoryEntry same = twoD("sin(x)", 5);
    same.section = EntrySection::Equations;  // the section is not one of the five strings
    EXPECT_FALSE(store.addNewEntry(same));
    // Blanks typed in a box are not part of the entry.
    EXPECT_FALSE(store.addNewEntry({"sin (x)", "-5", " 5", "$", "$", EntrySection::Graphs}));
    EXPECT_FALSE(store.addNewEntry(twoD("cos(x", 1), writable));
    EXPECT_FALSE(store.changed());
    EXPECT_EQ(store.size(), 1);
    // The blanks go before the check.
    EXPECT_TRUE(store.addNewEntry(twoD("cos (x)", 1), writable));
    EXPECT_EQ(store.entries().at(0).formula, "cos(x)");
}

// A full store makes room in the new entry's own formula run when it has one, else at the tail.
TEST(HistoryStoreTest, OverCapacityDropsFromTheFormulasRunOrTheTail) {
    const auto full = [](auto formulaOf, bool loaded) {
        HistoryStore store;
        for (int i = 1; i <= HistoryStore::kCapacity; ++i) {
            loaded ? (void)store.addLoadedEntry(twoD(formulaOf(i), i))
                   : (void)store.addNewEntry(twoD(formulaOf(i), i));
        }
        return store;
    };
    // The tail is f0:200; f7 is at 7, 57, 107, 157 in load order. The run after the new entry
    // held only f7:7, so that one goes; the later f7 entries stay.
    HistoryStore store = full([](int i) { return named("f", i % 50); }, true);
    ASSERT_TRUE(store.addNewEntry(twoD("f7", 1000)));
    ASSERT_EQ(store.size(), HistoryStore::kCapacity);
    EXPECT_EQ(store.entries().back().xEnd, "200");
    EXPECT_EQ(store.entries()[6].xEnd, "1000");
    std::vector<std::string> f7 = formulasAndEnds(store);
    std::erase_if(f7, [](const std::string& e) { return !e.starts_with("f7:"); });
    EXPECT_EQ(f7, (std::vector<std::string>{"f7:1000", "f7:57", "f7:107", "f7:157"}));
    // Three g entries grouped at the tail, newest first: the run loses its last entry.
    store = full([](int i) { return i <= 3 ? std::string("g") : named("h", i); }, false);
    store.addNewEntry(twoD("g", 99));
    const std::vector<std::string> all = formulasAndEnds(store);
    EXPECT_EQ(std::vector<std::string>(all.end() - 3, all.end()),
              (std::vector<std::string>{"g:99", "g:3", "g:2"}));
    // A new formula drops the tail, and the counters follow.
    store = full([](int i) { return named("f", i); }, true);
    store.addNewEntry({"x*y", "-1", "1", "-1", "1", EntrySection::Graphs});
    EXPECT_EQ(store.size(), HistoryStore::kCapacity);
    EXPECT_EQ(store.entries().front().formula, "x*y");
    EXPECT_EQ(store.entries().back().formula, "f199");
    EXPECT_EQ(store.twoDCount(), HistoryStore::kCapacity - 1);
    EXPECT_EQ(store.sectionYCount(), 1);
}

TEST(HistoryStoreTest, DeleteListOfOneKindKeepsTheOthers) {
    HistoryStore store;
    store.addNewEntry(twoD("x", 1));
    store.addNewEntry({"x^2+y^2-1", "-2", "2", "-2", "2", EntrySection::Equations});
    store.addNewEntry({"x*y", "-1", "1", "-1", "1", EntrySection::Graphs});
    store.addNewEntry({"x^2-y^2", "-2", "2", "-2", "2", EntrySection::Equations});
    // Counts left afterwards: 2D, equation, 3D.
    const std::pair<EntryKind, std::vector<int>> cases[] = {{EntryKind::Equation, {1, 0, 1}},
                                                            {EntryKind::ThreeD, {1, 2, 0}},
                                                            {EntryKind::TwoD, {0, 2, 1}}};
    for (const auto& [kind, countsAfter] : cases) {
        SCOPED_TRACE(static_cast<int>(kind));
        HistoryStore copy = store;
        const int removed = copy.removeKind(kind);
        EXPECT_EQ((std::vector<int>{copy.twoDCount(), copy.sectionNCount(), copy.sectionYCount()}),
                  countsAfter);
        EXPECT_EQ(removed, 4 - copy.size());
        for (const HistoryEntry& e : copy.entries()) {
            EXPECT_NE(kindOf(e), kind);
        }
    }
}

TEST(HistoryStoreTest, MoveToTopAndRemoveKeepOrderAndCounters) {
    HistoryStore store;
    for (const char* f : {"d", "c", "b", "a"}) {
        store.addNewEntry(twoD(f, 1));
    }
    store.setMarked(2, true);
    store.moveToTop(2);
    EXPECT_EQ(formulasAndEnds(store), (std::vector<std::string>{"c:1", "a:1", "b:1", "d:1"}));
    EXPECT_TRUE(store.entries()[0].marked);
    store.removeAt(1);
    store.removeAt(10);  // out of range: ignored
    EXPECT_EQ(formulasAndEnds(store), (std::vector<std::string>{"c:1", "b:1", "d:1"}));
    EXPECT_EQ(store.twoDCount(), 3);
}

TEST(SearchRingTest, FillsSlotsInOrderThenWrapsFromTheNewest) {
    SearchRing ring;
    EXPECT_FALSE(ring.add(""));
    for (int i = 0; i < SearchRing::kSize; ++i) {
        ring.add(named("s", i));
    }
    EXPECT_FALSE(ring.add("s3"));  // already held
    EXPECT_EQ(ring.newest(), 0);   // a filling ring leaves its newest index alone
    ring.add("t1");
    ring.add("t2");
    EXPECT_EQ(ring.newest(), 2);
    EXPECT_EQ(ring.at(2), "t2");
    const std::vector<std::string> order = ring.newestFirst();
    EXPECT_EQ(std::vector<std::string>(order.begin(), order.begin() + 4),
              (std::vector<std::string>{"t2", "t1", "s0", "s19"}));
    EXPECT_EQ(order.back(), "s3");
}

}  // namespace
}  // namespace curvemill
