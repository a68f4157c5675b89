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
    Window() : window(*app, [this] { window.refresh(); }) {
        fillLargestProject(*app);
        window.resize(1366, 768);
        window.refresh();
        window.show();
        QApplication::processEvents();
    }
    void event(const std::function<void()>& body) {
        window.binder().run(body);
        window.repaint();
    }
};

void BM_Window_KeyPress(benchmark::State& state) {
    Window w;
    w.window.tabs()->setCurrentIndex(1);
    for (auto _ : state)
        w.event([&] {
            w.app->setFocus(CtlId(Ctl::txtCapStep, 3));
            w.app->typeKey(CtlId(Ctl::txtCapStep, 3), '7');
        });
}

void BM_Window_Beams1To20(benchmark::State& state) {
    Window w;
    for (auto _ : state) {
        w.event([&] { w.app->setComboText(Ctl::cboNoBeam, "1"); });
        w.event([&] { w.app->setComboText(Ctl::cboNoBeam, "20"); });
    }
}

void BM_Window_SwitchBentType(benchmark::State& state) {
    Window w;
    for (auto _ : state) {
        w.event([&] { w.app->setComboText(Ctl::cboTybent, "Pile End Bent without Backwall"); });
        w.event([&] { w.app->setComboText(Ctl::cboTybent, "Pile End Bent with Backwall"); });
    }
}

void BM_Window_MoveUpOnTheBentTable(benchmark::State& state) {
    Window w;
    w.window.tabs()->setCurrentIndex(5);
    for (auto _ : state) {
        w.app->grid.select(50, 50);
        w.event([&] { w.app->fire(Ctl::cmdMoveUp, Event::Click); });
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
