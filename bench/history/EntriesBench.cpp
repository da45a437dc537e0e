// Start-up load, save text and recording an entry with the history at its capacity of 200.
#include <benchmark/benchmark.h>

#include <string>

#include "history/EntriesFormat.h"

namespace {

using namespace curvemill;

// A full file of the three kinds, with the twenty search strings.
std::string fullFile() {
    std::string text;
    // Appended piece by piece: "-" + std::string trips a false -Wrestrict warning in GCC 12.
    for (int i = 1; i <= HistoryStore::kCapacity; ++i) {
        const std::string n = std::to_string(i);
        text.append("-").append(n).append(" ").append(n);
        if (i % 3 == 0) {
            text.append(" -").append(n).append(" ").append(n).append(" sin(x)*cos(y)/");
            text.append(n).append(" ");
        } else {
            text.append(" $ $ sin(x)/x*").append(n).append("+e^(-x^2) ");
        }
    }
    text += "&@ ";
    for (int i = 0; i < SearchRing::kSize; ++i) {
        text.append("s").append(std::to_string(i)).append(" ");
    }
    return text;
}

void BM_LoadFullFile(benchmark::State& state) {
    const std::string text = fullFile();
    RecordChecker checker;
    for (auto _ : state) {
        HistoryStore store;
        readEntries(store, text, kLoadAtStartup, checker);
        benchmark::DoNotOptimize(store.size());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_LoadFullFile);

// A file of valid records far beyond the capacity (about 4 MB): only the first 200 count.
void BM_LoadLongFile(benchmark::State& state) {
    std::string text;
    for (int i = 0; text.size() < 4'000'000; ++i) {
        text.append("-1 1 $ $ sin(x)/x*").append(std::to_string(i)).append("+e^(-x^2) ");
    }
    text += "@ ";
    RecordChecker checker;
    for (auto _ : state) {
        HistoryStore store;
        readEntries(store, text, kLoadAtStartup, checker);
        benchmark::DoNotOptimize(store.size());
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_LoadLongFile)->Unit(benchmark::kMillisecond);

void BM_FormatFullStore(benchmark::State& state) {
    HistoryStore store;
    RecordChecker checker;
    readEntries(store, fullFile(), kLoadAtStartup, checker);
    for (auto _ : state) {
        benchmark::DoNotOptimize(formatEntries(store, checker));
    }
}
BENCHMARK(BM_FormatFullStore);

// The duplicate scan, the formula search and the capacity rule all walk the whole list.
void BM_AddNewEntryAtCapacity(benchmark::State& state) {
    HistoryStore full;
    RecordChecker checker;
    readEntries(full, fullFile(), kLoadAtStartup, checker);
    int i = 0;
    for (auto _ : state) {
        state.PauseTiming();
        HistoryStore store = full;
        state.ResumeTiming();
        store.addNewEntry({"sin(x)/x*7+e^(-x^2)", "-1", std::to_string(1000 + ++i), "$", "$"});
        benchmark::DoNotOptimize(store.size());
    }
}
BENCHMARK(BM_AddNewEntryAtCapacity);

}  // namespace

BENCHMARK_MAIN();
