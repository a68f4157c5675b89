// SPDX-License-Identifier: Apache-2.0
// The core on the largest project: saving and opening against plain stdio
// writing and reading the same bytes, and every form event an engineer
// triggers.
#include "LargestProject.h"

#include "TestFiles.h"

#include "core/benttable/BentRows.h"
#include "core/drawing/BentDrawing.h"
#include "core/drawing/BentInputs.h"
#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace tw::bench {
namespace {

const std::string kPath = (std::filesystem::temp_directory_path() / "tarnwick-bench.ebnt").string();

std::string largestBytes() {
    test::Loaded s;
    fillLargestProject(*s);
    writeInputFile(*s, kPath);
    return test::slurp(kPath);
}

void BM_Floor_WriteSameBytesWithStdio(benchmark::State& state) {
    const std::string bytes = largestBytes();
    for (auto _ : state) {
        FILE* f = std::fopen(kPath.c_str(), "wb");
        std::fwrite(bytes.data(), 1, bytes.size(), f);
        std::fclose(f);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes.size()));
}

void BM_SaveLargestProject(benchmark::State& state) {
    test::Loaded s;
    fillLargestProject(*s);
    for (auto _ : state)
        benchmark::DoNotOptimize(writeInputFile(*s, kPath));
}

void BM_Floor_ReadSameBytesWithStdio(benchmark::State& state) {
    std::ofstream(kPath, std::ios::binary) << largestBytes();
    std::string buf(1 << 16, '\0');
    for (auto _ : state) {
        FILE* f = std::fopen(kPath.c_str(), "rb");
        size_t n = 0;
        while ((n = std::fread(buf.data(), 1, buf.size(), f)) > 0)
            benchmark::DoNotOptimize(n);
        std::fclose(f);
    }
}

void BM_OpenLargestProject(benchmark::State& state) {
    std::ofstream(kPath, std::ios::binary) << largestBytes();
    test::Loaded s;
    for (auto _ : state) {
        resetForm(*s);
        benchmark::DoNotOptimize(readInputFile(*s, kPath));
    }
}

// One event on the largest project, the project rebuilt outside the timing.
template <class Event> void perEvent(benchmark::State& state, Event event) {
    test::Program app;
    loadLargestProject(*app);
    for (auto _ : state)
        event(*app, state);
}

void BM_Event_KeyPress(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State&) {
        a.actions.focus(CtlId(Ctl::txtCapStep, 3));
        a.actions.key(CtlId(Ctl::txtCapStep, 3), '7');
    });
}
void BM_Event_LeaveField(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State&) {
        a.actions.focus(CtlId(Ctl::txtCenterline, 3));
        a.actions.leave(CtlId(Ctl::txtCenterline, 3));
    });
}
void BM_Event_Beams1To20To1(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State&) {
        a.actions.choose(Ctl::cboNoBeam, 0);
        a.actions.choose(Ctl::cboNoBeam, 19);
    });
}
void BM_Event_SwitchBentType(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State&) {
        a.actions.choose(Ctl::cboTybent, 0); // without backwall
        a.actions.choose(Ctl::cboTybent, 1); // with backwall
    });
}
void BM_Event_AddInsertReplace(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State& st) {
        st.PauseTiming();
        loadLargestProject(a);
        fillEntry(a, "A");
        st.ResumeTiming();
        a.actions.click(CtlId(Ctl::cmdQuantity, 0));
        a.actions.selectRows(50, 50);
        a.actions.edit(Ctl::txtBentNoPI, "B");
        a.actions.click(CtlId(Ctl::cmdQuantity, 3)); // Edit: the row's values back into the fields
        a.actions.click(CtlId(Ctl::cmdQuantity, 2)); // Replace
    });
}
void BM_Event_MoveUpDown(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State&) {
        a.actions.selectRows(50, 50);
        a.actions.click(Ctl::cmdMoveUp);
        a.actions.click(Ctl::cmdMoveDown);
    });
}
void BM_Event_DeleteAllThenNew(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State& st) {
        a.actions.click(CtlId(Ctl::cmdQuantity, 5));
        a.actions.click(Ctl::mnuNew);
        st.PauseTiming();
        loadLargestProject(a);
        st.ResumeTiming();
    });
}

// Undo of Delete All on 99 bents: the grid, the counter, the register and
// the entry fields put back in one step.
void BM_Event_UndoDeleteAll(benchmark::State& s) {
    perEvent(s, [](App& a, benchmark::State& st) {
        st.PauseTiming();
        a.actions.click(CtlId(Ctl::cmdQuantity, 5));
        st.ResumeTiming();
        a.actions.undo();
    });
}

// What a long session's history holds: edits of the cap length, each
// formatted on leaving, beside the 99 bents. The figure is the counter: 1000
// steps are the floor of 10,000, which the history's limit keeps to its size.
void historySteps(benchmark::State& s, int steps) {
    for (auto _ : s) {
        s.PauseTiming();
        test::Program app;
        loadLargestProject(*app);
        s.ResumeTiming();
        for (int i = 0; i < steps; ++i) {
            app->actions.edit(Ctl::txtCapLength, i % 2 ? "95.5" : "96");
            app->actions.leave(Ctl::txtCapLength);
        }
        s.counters["steps"] = static_cast<double>(app->history().steps());
        s.counters["MiB"] = static_cast<double>(app->history().footprint()) / (1024.0 * 1024.0);
    }
}
void BM_History_1000Steps(benchmark::State& s) { historySteps(s, 1000); }
void BM_History_10000Steps(benchmark::State& s) { historySteps(s, 10000); }

// A spreadsheet's 99 bents pasted into the largest project's emptied table:
// each row through the entry fields and Add's checks, one step of Undo.
void BM_Paste99Bents(benchmark::State& s) {
    test::Program app;
    loadLargestProject(*app);
    const std::string rows = tableTsv(app->project().table(), 1, 99);
    for (auto _ : s) {
        s.PauseTiming();
        app->actions.click(CtlId(Ctl::cmdQuantity, 5)); // Delete All
        s.ResumeTiming();
        app->actions.apply(cmd::PasteBents{rows});
    }
    s.counters["bents"] = app->project().table().rows() - 1;
    s.counters["historyKiB"] = static_cast<double>(app->history().footprint()) / 1024.0;
}

// Its floor: the same rows read from the text and put in a table as they
// are, with no fields, no checks and no history.
void BM_Floor_Read99RowsIntoATable(benchmark::State& s) {
    test::Program app;
    loadLargestProject(*app);
    const BentTable& full = app->project().table();
    const std::string rows = tableTsv(full, 1, 99);
    for (auto _ : s) {
        BentTable t;
        t.setCols(full.cols());
        t.setRows(1);
        const auto records = readDelimited(rows, separatorOf(rows));
        for (size_t r = 1; r < records.size(); ++r) {
            std::string line;
            for (const auto& cell : records[r].cells)
                line += (line.empty() ? "" : "\t") + cell;
            t.addItem(line);
        }
        benchmark::DoNotOptimize(t);
    }
}

// Reading the inputs and laying the bent out for a pane of the window's size.
void BM_Drawing_ReadAndLayOut(benchmark::State& state) {
    test::Loaded s;
    fillLargestProject(*s);
    drawing::DrawOptions o;
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing::drawBentToFit(drawing::readBentInputs(s->project()), o, 260, 480));
}

BENCHMARK(BM_Floor_WriteSameBytesWithStdio);
BENCHMARK(BM_SaveLargestProject);
BENCHMARK(BM_Floor_ReadSameBytesWithStdio);
BENCHMARK(BM_OpenLargestProject);
BENCHMARK(BM_Event_KeyPress);
BENCHMARK(BM_Event_LeaveField);
BENCHMARK(BM_Event_Beams1To20To1);
BENCHMARK(BM_Event_SwitchBentType);
BENCHMARK(BM_Event_AddInsertReplace);
BENCHMARK(BM_Event_MoveUpDown);
BENCHMARK(BM_Event_DeleteAllThenNew);
BENCHMARK(BM_Event_UndoDeleteAll);
BENCHMARK(BM_History_1000Steps)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_History_10000Steps)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_Floor_Read99RowsIntoATable)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Paste99Bents)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Drawing_ReadAndLayOut)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tw::bench

BENCHMARK_MAIN();
