// Form events on the largest project in the window: from the event to the
// repainted window, offscreen. One frame is 16 ms. The window's own events
// run with the drawing pane closed (the floor); the pane's cost is the same
// edit with the pane open, redrawing the bent.
#include "LargestProject.h"

#include "gui/DrawingPane.h"
#include "gui/MainWindow.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>

#include <benchmark/benchmark.h>

namespace tw::bench {
namespace {

struct Window {
    test::Loaded app;
    MainWindow window;
    explicit Window(bool pane = false) : window(*app) {
        app->actions.afterEach([this] { window.refresh(); });
        fillLargestProject(*app);
        window.resize(1366, 768);
        if (!pane) window.drawingPane()->close();
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

// One edit that changes the bent: a new cap length, formatted on leaving.
void editCapLength(Window& w, int i) {
    w.event([&] {
        w.app->setFocus(Ctl::txtCapLength);
        w.app->setText(Ctl::txtCapLength, i % 2 ? "95.5" : "96");
        w.app->leaveFocus();
    });
}

void BM_Window_EditCapLength_PaneClosed(benchmark::State& state) {
    Window w;
    int i = 0;
    for (auto _ : state)
        editCapLength(w, ++i);
}

void BM_Window_EditCapLength_PaneRedraws(benchmark::State& state) {
    Window w(true);
    // Both views, the most the pane draws.
    w.window.drawingPane()->findChild<QComboBox*>(QStringLiteral("drawingViews"))->setCurrentIndex(1);
    int i = 0;
    for (auto _ : state)
        editCapLength(w, ++i);
}

void BM_Window_EditCapLength_PaneAutomatic(benchmark::State& state) {
    Window w(true);
    int i = 0;
    for (auto _ : state)
        editCapLength(w, ++i);
}

BENCHMARK(BM_Window_KeyPress)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_EditCapLength_PaneClosed)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_EditCapLength_PaneRedraws)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_EditCapLength_PaneAutomatic)->Unit(benchmark::kMillisecond);
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
