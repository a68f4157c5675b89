// SPDX-License-Identifier: Apache-2.0
// A drawing of a whole bridge (bench/make-big-drawing.sh: 200,000 line
// strings, 15.6 MB). `view DRAWING --export OUT.png` against GDAL's own full
// read of the same file (`ogrinfo -al`), run in turn, whole processes, with
// peak memory from wait4; then frames of the viewer's window on it, offscreen:
// a pan and a zoom step, each from the event to the repainted view, against
// the same frames of the window showing nothing.
#include "gui/DrawingViewer.h"
#include "gui/SceneView.h"
#include "platform/GdalDrawingReader.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <vector>

extern char** environ;

namespace tw::bench {
namespace {

const std::string kFolder = "/tmp/tarnwick-bench-drawing";

// The drawing, made once and kept for later runs.
const std::string& bigDrawing() {
    static const std::string path = [] {
        const std::string p = kFolder + "/big.dgn";
        if (!std::filesystem::exists(p)) {
            std::filesystem::create_directories(kFolder);
            const std::string make = "bash " TW_SOURCE_DIR "/bench/make-big-drawing.sh " + p;
            if (std::system(make.c_str()) != 0) std::abort();
        }
        return p;
    }();
    return path;
}

struct Run {
    double seconds = 0;
    double peakMiB = 0;
};

// One whole process, its output thrown away.
Run runOnce(std::vector<std::string> args) {
    std::vector<char*> argv;
    for (auto& a : args)
        argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t pid = 0;
    if (posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) std::abort();
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    posix_spawn_file_actions_destroy(&actions);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) std::abort();
    return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), usage.ru_maxrss / 1024.0};
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

// In turn, so that a machine whose speed drifts moves both alike.
void BM_ViewExportAgainstOgrinfo(benchmark::State& state) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const std::string drawing = bigDrawing();
    std::vector<double> floorTime, viewTime, floorPeak, viewPeak;
    for (auto _ : state) {
        const Run floor = runOnce({"ogrinfo", "-al", drawing});
        const Run view = runOnce({TARNWICK_EXE, "view", drawing, "--export", kFolder + "/big.png"});
        floorTime.push_back(floor.seconds);
        viewTime.push_back(view.seconds);
        floorPeak.push_back(floor.peakMiB);
        viewPeak.push_back(view.peakMiB);
    }
    state.counters["ogrinfo_s"] = median(floorTime);
    state.counters["view_s"] = median(viewTime);
    state.counters["time_ratio"] = median(viewTime) / median(floorTime);
    state.counters["ogrinfo_MiB"] = median(floorPeak);
    state.counters["view_MiB"] = median(viewPeak);
    state.counters["memory_ratio"] = median(viewPeak) / median(floorPeak);
}
BENCHMARK(BM_ViewExportAgainstOgrinfo)->Unit(benchmark::kSecond)->UseRealTime()->Iterations(5);

// The viewer as `tarnwick view` opens it, on the big drawing or on nothing (the floor).
struct Viewer {
    std::unique_ptr<DrawingViewer> window;
    explicit Viewer(bool big) {
        LoadedDrawing loaded;
        std::string error;
        if (big && !loadDrawing(TW_PROGRAM_DIR, bigDrawing(), loaded, error)) std::abort();
        window = std::make_unique<DrawingViewer>(std::move(loaded.scene), QString::fromStdString(bigDrawing()),
                                                 loaded.elements);
        window->resize(1100, 700);
        window->show();
        QApplication::processEvents();
    }
    SceneView& view() { return *window->view(); }
    void frame() { view().repaint(); }
};

// A drag of 40 pixels, back and forth over the whole drawing in view.
void BM_ViewerFrame_Pan(benchmark::State& state) {
    Viewer v(state.range(0) == 1);
    SceneView& view = v.view();
    const QPointF at(view.width() / 2.0, view.height() / 2.0);
    QMouseEvent press(QEvent::MouseButtonPress, at, view.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(&view, &press);
    int step = 0;
    for (auto _ : state) {
        const QPointF to = at + QPointF(step++ % 2 == 0 ? 40 : 0, 0);
        QMouseEvent move(QEvent::MouseMove, to, view.mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&view, &move);
        v.frame();
    }
}

// One step of the wheel, ten in from the whole drawing and ten out again.
void BM_ViewerFrame_Zoom(benchmark::State& state) {
    Viewer v(state.range(0) == 1);
    SceneView& view = v.view();
    const QPointF at(view.width() * 0.4, view.height() * 0.6);
    int step = 0;
    for (auto _ : state) {
        const int delta = step++ % 20 < 10 ? 120 : -120;
        QWheelEvent wheel(at, view.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view, &wheel);
        v.frame();
    }
}

// Argument 0: the window showing nothing (the floor); 1: the big drawing.
BENCHMARK(BM_ViewerFrame_Pan)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(200);
BENCHMARK(BM_ViewerFrame_Zoom)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(200);

} // namespace
} // namespace tw::bench

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
