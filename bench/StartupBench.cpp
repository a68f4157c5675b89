// SPDX-License-Identifier: Apache-2.0
// From process start to the main form shown, offscreen, against a bare Qt
// window; peak memory of each as a counter.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

// Runs the program once; its peak resident memory in KiB.
long runOnce(const char* exe) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_QPA_PLATFORMTHEME", "", 1);
    setenv("TARNWICK_QUIT_WHEN_SHOWN", "1", 1);
    setenv("XDG_CONFIG_HOME", "/tmp/tarnwick-bench-config", 1);
    pid_t pid = 0;
    char* argv[] = {const_cast<char*>(exe), nullptr};
    if (posix_spawn(&pid, exe, nullptr, nullptr, argv, environ) != 0) return -1;
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    return usage.ru_maxrss;
}

void startup(benchmark::State& state, const char* exe) {
    long peak = 0;
    for (auto _ : state)
        peak = std::max(peak, runOnce(exe));
    state.counters["peak_KiB"] = static_cast<double>(peak);
}

void BM_Floor_BareQtWindow(benchmark::State& state) { startup(state, BARE_EXE); }
void BM_TarnwickMainFormShown(benchmark::State& state) { startup(state, TARNWICK_EXE); }

BENCHMARK(BM_Floor_BareQtWindow)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);
BENCHMARK(BM_TarnwickMainFormShown)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(20);

} // namespace

BENCHMARK_MAIN();
