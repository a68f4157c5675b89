// SPDX-License-Identifier: Apache-2.0
// Form events on the largest project in the window: from the event to the
// repainted window, offscreen. One frame is 16 ms. The window's own events
// run with the drawing pane closed (the floor); the pane's cost is the same
// edit with the pane open, redrawing the bent.
#include "LargestProject.h"

#include "gui/BentTable.h"

#include "gui/DrawingPane.h"
#include "gui/LaidOutView.h"
#include "gui/MainWindow.h"
#include "gui/RecoveryKeeper.h"
#include "gui/RunStatus.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QStatusBar>
#include <QTabWidget>

#include <memory>

#include <benchmark/benchmark.h>

namespace tw::bench {
namespace {

// With `safeguards` (the benchmark's argument 1), the window as tarnwick
// shows it: the keeper of unsaved work hears of every action, and Run's part
// of the status bar stands.
struct Window {
    test::Program app;
    MainWindow window;
    RecoveryStore store{QDir::tempPath() + QStringLiteral("/tw-bench-recovery")};
    std::unique_ptr<RecoveryKeeper> keeper;
    // With `pane`, the drawing pane stays open and redraws the bent after each action.
    explicit Window(const benchmark::State& state, bool pane = false) : window(*app) {
        // As the program wires it: the window updates what each change names.
        app->actions.onChange([this](const ChangeSet& changes) { window.refresh(changes); });
        if (state.range(0) == 1) {
            store.open();
            keeper = std::make_unique<RecoveryKeeper>(*app, store);
            app->actions.onChange([this](const ChangeSet& changes) { keeper->changed(changes); });
            new RunStatus(window.statusBar());
        }
        loadLargestProject(*app);
        window.resize(1366, 768);
        if (!pane) window.drawingPane()->close();
        window.refresh();
        window.show();
        QApplication::processEvents();
        // The pane draws the bent a turn after the window's first frame.
        while (pane && window.drawingPane()->view()->scene().shapes.empty())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    ~Window() {
        store.close();
        QDir(store.folder()).removeRecursively();
    }
    // One user action, which refreshes what it changed, then the repaint.
    void event(const std::function<void()>& body) {
        body();
        window.repaint();
    }
};

// The floor of every event below: the same window repainted with nothing changed.
void BM_Window_Floor_Repaint(benchmark::State& state) {
    Window w(state);
    w.window.tabs()->setCurrentIndex(1);
    for (auto _ : state)
        w.event([] {});
}

void BM_Window_KeyPress(benchmark::State& state) {
    Window w(state);
    w.window.tabs()->setCurrentIndex(1);
    for (auto _ : state)
        w.event([&] {
            w.app->actions.focus(CtlId(Ctl::txtCapStep, 3));
            w.app->actions.key(CtlId(Ctl::txtCapStep, 3), '7');
        });
}

void BM_Window_Beams1To20(benchmark::State& state) {
    Window w(state);
    for (auto _ : state) {
        w.event([&] { w.app->actions.choose(Ctl::cboNoBeam, 0); });
        w.event([&] { w.app->actions.choose(Ctl::cboNoBeam, 19); });
    }
}

void BM_Window_SwitchBentType(benchmark::State& state) {
    Window w(state);
    for (auto _ : state) {
        w.event([&] { w.app->actions.choose(Ctl::cboTybent, 0); }); // without backwall
        w.event([&] { w.app->actions.choose(Ctl::cboTybent, 1); }); // with backwall
    }
}

void BM_Window_MoveUpOnTheBentTable(benchmark::State& state) {
    Window w(state);
    w.window.tabs()->setCurrentIndex(5);
    for (auto _ : state) {
        w.app->actions.selectRows(50, 50);
        w.event([&] { w.app->actions.click(Ctl::cmdMoveUp); });
    }
}

// One edit that changes the bent: a new cap length, formatted on leaving (two
// actions, each refreshing the window).
void editCapLength(Window& w, int i) {
    w.event([&] {
        w.app->actions.edit(Ctl::txtCapLength, i % 2 ? "95.5" : "96");
        w.app->actions.leave(Ctl::txtCapLength);
    });
}

void BM_Window_EditCapLength_PaneClosed(benchmark::State& state) {
    Window w(state);
    int i = 0;
    for (auto _ : state)
        editCapLength(w, ++i);
}

void BM_Window_EditCapLength_PaneRedraws(benchmark::State& state) {
    Window w(state, true);
    // Both views, the most the pane draws.
    w.window.drawingPane()->findChild<QComboBox*>(QStringLiteral("drawingViews"))->setCurrentIndex(1);
    int i = 0;
    for (auto _ : state)
        editCapLength(w, ++i);
}

void BM_Window_EditCapLength_PaneAutomatic(benchmark::State& state) {
    Window w(state, true);
    int i = 0;
    for (auto _ : state)
        editCapLength(w, ++i);
}

// Undo of Delete All on the largest project, the table's page in front:
// 99 rows back in the grid and the entry fields as they were.
void BM_Window_UndoDeleteAll(benchmark::State& state) {
    Window w(state);
    w.window.tabs()->setCurrentIndex(5);
    for (auto _ : state) {
        state.PauseTiming();
        w.event([&] { w.app->actions.click(CtlId(Ctl::cmdQuantity, 5)); });
        state.ResumeTiming();
        w.event([&] { w.app->actions.undo(); });
    }
}

// Keeping the largest project safe, once a second at most while it changes:
// the recovery file composed and written through a temporary file.
// A tab's page is built when it is first shown: that first show, from the
// click to the repainted window, on a window fresh each time.
void BM_Window_FirstShowOfPage(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto w = std::make_unique<Window>(state);
        state.ResumeTiming();
        w->event([&] { w->window.tabs()->setCurrentIndex(static_cast<int>(state.range(1))); });
        state.PauseTiming();
        w.reset();
        state.ResumeTiming();
    }
}

void BM_Window_KeepUnsavedWork(benchmark::State& state) {
    Window w(state);
    int n = 0;
    for (auto _ : state) {
        state.PauseTiming();
        w.app->actions.edit(Ctl::txtCapLength, std::to_string(40 + n++ % 2) + ".0000");
        state.ResumeTiming();
        w.keeper->keep();
    }
}

BENCHMARK(BM_Window_Floor_Repaint)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_KeyPress)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_EditCapLength_PaneClosed)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_EditCapLength_PaneRedraws)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_EditCapLength_PaneAutomatic)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_Beams1To20)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_SwitchBentType)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_MoveUpOnTheBentTable)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_UndoDeleteAll)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_FirstShowOfPage)->ArgsProduct({{0}, {1, 2, 3, 4, 5}})->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Window_KeepUnsavedWork)->Arg(1)->Unit(benchmark::kMillisecond);

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
