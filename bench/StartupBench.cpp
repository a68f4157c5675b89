// SPDX-License-Identifier: Apache-2.0
// Start-up, offscreen, as whole processes: tarnwick to the splash shown, to
// the main form's first frame, and to the bent drawn in the drawing pane,
// each against a bare Qt window shown (the floor). Each figure is the
// process's CPU time (user + system) from wait4; peak memory as a counter.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace {

struct Run {
    double cpuSeconds = 0;
    long peakKiB = 0;
};

// Runs the program once, to the moment named.
Run runOnce(const char* exe, const char* moment) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("QT_QPA_PLATFORMTHEME", "", 1);
    setenv("TARNWICK_QUIT_WHEN_SHOWN", moment, 1);
    setenv("XDG_CONFIG_HOME", "/tmp/tarnwick-bench-config", 1);
    pid_t pid = 0;
    char* argv[] = {const_cast<char*>(exe), nullptr};
    if (posix_spawn(&pid, exe, nullptr, nullptr, argv, environ) != 0) std::abort();
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) std::abort();
    auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + t.tv_usec / 1e6; };
    return {seconds(usage.ru_utime) + seconds(usage.ru_stime), usage.ru_maxrss};
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

// The program and the floor in turn, so a drift of the machine's speed
// touches both; the time shown is the program's CPU time.
void startup(benchmark::State& state, const char* moment) {
    std::vector<double> program, floor, ratio;
    long peak = 0, floorPeak = 0;
    for (auto _ : state) {
        const Run a = runOnce(TARNWICK_EXE, moment);
        const Run b = runOnce(BARE_EXE, "1");
        state.SetIterationTime(a.cpuSeconds);
        program.push_back(a.cpuSeconds);
        floor.push_back(b.cpuSeconds);
        ratio.push_back(a.cpuSeconds / b.cpuSeconds);
        peak = std::max(peak, a.peakKiB);
        floorPeak = std::max(floorPeak, b.peakKiB);
    }
    state.counters["cpu_ms"] = median(program) * 1e3;
    state.counters["floor_cpu_ms"] = median(floor) * 1e3;
    state.counters["cpu_ratio"] = median(ratio);
    state.counters["peak_MiB"] = peak / 1024.0;
    state.counters["floor_peak_MiB"] = floorPeak / 1024.0;
    state.counters["peak_ratio"] = static_cast<double>(peak) / static_cast<double>(floorPeak);
}

void BM_Startup_SplashShown(benchmark::State& state) { startup(state, "splash"); }
void BM_Startup_MainFormShown(benchmark::State& state) { startup(state, "1"); }
void BM_Startup_BentDrawn(benchmark::State& state) { startup(state, "drawn"); }

BENCHMARK(BM_Startup_SplashShown)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(15);
BENCHMARK(BM_Startup_MainFormShown)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(15);
BENCHMARK(BM_Startup_BentDrawn)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(15);

} // namespace

BENCHMARK_MAIN();
