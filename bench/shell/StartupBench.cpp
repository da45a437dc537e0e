// Time from starting the program to its title page painted, in a fresh process each time.
#include <spawn.h>
#include <sys/wait.h>

#include <chrono>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

extern char** environ;

namespace {

void BM_StartToTitlePage(benchmark::State& state) {
    std::vector<std::string> environment{"QT_QPA_PLATFORM=offscreen"};
    for (char** entry = environ; *entry != nullptr; ++entry) {
        if (std::string(*entry).rfind("QT_QPA_PLATFORM=", 0) != 0) {
            environment.emplace_back(*entry);
        }
    }
    std::vector<char*> envp;
    for (std::string& entry : environment) {
        envp.push_back(entry.data());
    }
    envp.push_back(nullptr);
    char program[] = STARTUP_PROBE;
    char* argv[] = {program, nullptr};

    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        pid_t child = 0;
        if (posix_spawn(&child, program, nullptr, nullptr, argv, envp.data()) != 0) {
            state.SkipWithError("cannot start the probe");
            return;
        }
        int status = 0;
        waitpid(child, &status, 0);
        const auto end = std::chrono::steady_clock::now();
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
            state.SkipWithError("the probe failed");
            return;
        }
        state.SetIterationTime(std::chrono::duration<double>(end - start).count());
    }
}
BENCHMARK(BM_StartToTitlePage)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace

BENCHMARK_MAIN();
