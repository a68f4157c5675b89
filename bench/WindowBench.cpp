// Form events on the largest project in the window: from the event to the
// repainted window, offscreen. One frame is 16 ms.
#include "LargestProject.h"

#include "gui/MainWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QTabWidget>

#include <benchmark/benchmark.h>

namespace tw::bench {
namespace {

struct Window {
    test::Loaded app;
    MainWindow window;
    Window() : window(*app) {
        app->actions.afterEach([this] { window.refresh(); });
        fillLargestProject(*app);
        window.resize(1366, 768);
        window.refresh();
        window.show();
        QApplication::processEvents();
    }
    // One user action, which refreshes the window, then the repaint.
    void event(const std::function<void()>& body) {
        body();
        window.repaint();
    }
};

void BM_Window_KeyPress(benchmark::State& state) {
    Window w;
    w.window.tabs()->setCurrentIndex(1);
    for (auto _ : state)
        w.event([&] {
            w.app->actions.focus(CtlId(Ctl::txtCapStep, 3));
            w.app->actions.key(CtlId(Ctl::txtCapStep, 3), '7');
        });
}

void BM_Window_Beams1To20(benchmark::State& state) {
    Window w;
    for (auto _ : state) {
        w.event([&] { w.app->actions.choose(Ctl::cboNoBeam, 0); });
        w.event([&] { w.app->actions.choose(Ctl::cboNoBeam, 19); });
    }
}

void BM_Window_SwitchBentType(benchmark::State& state) {
    Window w;
    for (auto _ : state) {
        w.event([&] { w.app->actions.choose(Ctl::cboTybent, 0); }); // without backwall
        w.event([&] { w.app->actions.choose(Ctl::cboTybent, 1); }); // with backwall
    }
}

void BM_Window_MoveUpOnTheBentTable(benchmark::State& state) {
    Window w;
    w.window.tabs()->setCurrentIndex(5);
    for (auto _ : state) {
        w.app->actions.selectRows(50, 50);
        w.event([&] { w.app->actions.click(Ctl::cmdMoveUp); });
    }
}

BENCHMARK(BM_Window_KeyPress)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_Beams1To20)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_SwitchBentType)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_MoveUpOnTheBentTable)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tw::bench

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
