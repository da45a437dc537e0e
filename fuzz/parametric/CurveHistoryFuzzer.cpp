// Arbitrary bytes as the curves' history file: the reader must stop cleanly, keep at most its
// number of entries, accept only entries the window could have written, and whatever it accepted
// must survive a write and a second read unchanged.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "parametric/CurveHistory.h"

namespace {

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "curve history fuzzer: %s\n", what);
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace curvemill;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const CurveHistoryReading first = decodeCurveHistory(bytes);
    if (first.history.entries.size() > kMostCurveEntries) {
        fail("more entries than the history keeps");
    }
    CurveHistory recorded;
    for (auto it = first.history.entries.rbegin(); it != first.history.entries.rend(); ++it) {
        recorded.record(*it);
    }
    // record() refuses what the window could not have written and keeps each entry once: the
    // reader must have taken nothing else.
    if (recorded.entries.size() > first.history.entries.size()) {
        fail("recording the entries read added some");
    }
    const CurveHistoryReading second = decodeCurveHistory(encodeCurveHistory(first.history));
    if (second.history.entries != first.history.entries || second.skipped != 0 ||
        !second.problem.empty()) {
        fail("what was read does not read back the same");
    }
    return 0;
}
