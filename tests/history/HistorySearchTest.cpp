// Find with its wrap-around question, and locating the input's entry.
#include "history/HistorySearch.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace curvemill {
namespace {

HistoryStore sampleStore() {
    HistoryStore store;
    // Head first: three 2D entries around one 3D entry, and an equation at the tail.
    store.addLoadedEntry({"sin(x)", "-1", "1", "$", "$", EntrySection::Graphs});
    store.addLoadedEntry({"sin(x)*cos(y)", "-1", "1", "-1", "1", EntrySection::Graphs});
    store.addLoadedEntry({"cos(x)", "-1", "1", "$", "$", EntrySection::Graphs});
    store.addLoadedEntry({"sin(2*x)", "-1", "1", "$", "$", EntrySection::Graphs});
    store.addLoadedEntry({"x*sin(y)", "-1", "1", "-1", "1", EntrySection::Equations});
    return store;
}

TEST(HistorySearchTest, FindWalksEntriesOfTheShownKindAndWrapsOnRequest) {
    const HistoryStore store = sampleStore();
    using enum EntryKind;
    using enum FindStatus;
    const std::tuple<const char*, std::string, EntryKind, std::size_t, bool, FindStatus,
                     std::size_t, int>
        cases[] = {
            {"first hit from the head", "sin", TwoD, 0, false, Found, 0, 0},
            {"hit at the start entry counts", "sin", TwoD, 3, false, Found, 3, 0},
            {"other kinds are passed over", "sin", TwoD, 1, false, Found, 3, 0},
            {"3D kind", "cos", ThreeD, 0, false, Found, 1, 0},
            {"equation kind", "sin", Equation, 0, false, Found, 4, 0},
            {"only above the start: Yes finds it", "cos", TwoD, 3, true, Found, 2, 1},
            {"only above the start: No ends", "cos", TwoD, 3, false, Declined, 0, 1},
            {"case-sensitive", "SIN", TwoD, 0, true, NotFound, 0, 1},
            {"nowhere", "tan", TwoD, 0, true, NotFound, 0, 1},
            {"start past the tail", "sin", TwoD, 9, true, Found, 0, 1},
        };
    for (const auto& [name, text, kind, start, answerWrap, status, index, asked] : cases) {
        SCOPED_TRACE(name);
        int questions = 0;
        const FindResult result = findWithWrap(store, text, kind, start, [&] {
            ++questions;
            return answerWrap;
        });
        EXPECT_EQ(result.status, status);
        if (status == Found) {
            EXPECT_EQ(result.index, index);
        }
        EXPECT_EQ(questions, asked);
    }
}

TEST(HistorySearchTest, LocateNeedsAllFiveStringsAndTheKind) {
    const HistoryStore store = sampleStore();
    EXPECT_EQ(locateEntry(store, {"cos(x)", "-1", "1", "$", "$"}, EntryKind::TwoD), 2u);
    EXPECT_EQ(locateEntry(store, {"x*sin(y)", "-1", "1", "-1", "1"}, EntryKind::Equation), 4u);
    EXPECT_FALSE(locateEntry(store, {"cos(x)", "-1", "2", "$", "$"}, EntryKind::TwoD));
    EXPECT_FALSE(locateEntry(store, {"x*sin(y)", "-1", "1", "-1", "1"}, EntryKind::ThreeD));
}

}  // namespace
}  // namespace curvemill

#include "history/ListLine.h"

namespace curvemill {
namespace {

TEST(ListLineTest, LineAndItsThreePiecesAroundAHit) {
    const HistoryEntry entry{"sin(x)/x*80", "-10", "10", "$", "$"};
    EXPECT_EQ(listLine(entry), "(sin(x)/x*80)  From:-10  To:10");
    const std::tuple<std::size_t, std::size_t, std::string> cases[] = {
        {0, 3, "(|sin|(x)/x*80)  From:-10  To:10"},
        {9, 2, "(sin(x)/x*|80|)  From:-10  To:10"},
        {10, 2, "(sin(x)/x*80)  From:-10  To:10||"},  // runs past the formula
        {3, 0, "(sin(x)/x*80)  From:-10  To:10||"},
    };
    for (const auto& [position, length, pieces] : cases) {
        const ListLinePieces p = splitAtHit(entry, position, length);
        EXPECT_EQ(p.before + "|" + p.hit + "|" + p.after, pieces) << position;
    }
}

}  // namespace
}  // namespace curvemill
