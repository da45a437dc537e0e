// Arbitrary bytes as the entries file: the loader must stop cleanly, keep the store's invariants,
// and whatever it accepted must survive a write and a second read unchanged.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "history/EntriesFormat.h"

namespace {

using curvemill::EntryKind;
using curvemill::HistoryEntry;
using curvemill::HistoryStore;

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "entries fuzzer: %s\n", what);
    std::abort();
}

void checkInvariants(const HistoryStore& store) {
    if (store.size() > HistoryStore::kCapacity) {
        fail("more entries than the capacity");
    }
    int counts[3] = {0, 0, 0};
    for (const HistoryEntry& e : store.entries()) {
        for (const std::string* field : {&e.formula, &e.xBegin, &e.xEnd, &e.yBegin, &e.yEnd}) {
            if (field->empty() || field->size() >= curvemill::kFieldLimit ||
                field->find_first_of(std::string_view(" &@\0", 4)) != std::string::npos) {
                fail("an accepted field the file could not hold");
            }
        }
        ++counts[static_cast<int>(curvemill::kindOf(e))];
    }
    if (counts[0] != store.twoDCount() || counts[1] != store.sectionYCount() ||
        counts[2] != store.sectionNCount()) {
        fail("counters disagree with the entries");
    }
    if (store.searchRing().count() > curvemill::SearchRing::kSize) {
        fail("too many search strings");
    }
}

// The sections are written one after the other, so only the order within each survives.
std::string sectionOrder(const HistoryStore& store) {
    std::string out;
    for (const auto section :
         {curvemill::EntrySection::Graphs, curvemill::EntrySection::Equations}) {
        for (const HistoryEntry& e : store.entries()) {
            if (e.section == section) {
                out += e.formula + '\n' + e.xBegin + '\n' + e.xEnd + '\n' + e.yBegin + '\n' +
                       e.yEnd + '\n' + (section == curvemill::EntrySection::Graphs ? 'y' : 'n') +
                       '\n';
            }
        }
    }
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static_assert(static_cast<int>(EntryKind::TwoD) == 0 &&
                  static_cast<int>(EntryKind::ThreeD) == 1);
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    curvemill::RecordChecker checker;
    for (const auto mode : {curvemill::kLoadAtStartup, curvemill::kLoadEntriesOnly}) {
        HistoryStore store;
        curvemill::readEntries(store, bytes, mode, checker);
        checkInvariants(store);

        HistoryStore again;
        const bool whole =
            curvemill::readEntries(again, curvemill::formatEntries(store, checker), mode, checker);
        checkInvariants(again);
        // Without entries of section 'y' the written file begins with '&', which the loader
        // does not take for the section mark: such a file loads nothing, by design.
        const bool readable = std::any_of(
            store.entries().begin(), store.entries().end(),
            [](const HistoryEntry& e) { return e.section == curvemill::EntrySection::Graphs; });
        if (!whole && (readable || store.size() == 0)) {
            fail("a written file did not load to its end");
        }
        if (sectionOrder(again) != (readable ? sectionOrder(store) : std::string())) {
            fail("written entries read back differently");
        }
        std::vector<std::string> slots;
        for (int i = 0; i < again.searchRing().count(); ++i) {
            slots.push_back(again.searchRing().at(i));
        }
        if (mode == curvemill::kLoadAtStartup && readable &&
            slots != store.searchRing().oldestFirst()) {
            fail("written search strings read back differently");
        }
    }
    return 0;
}
