// The core on the largest project: saving and opening against plain stdio
// writing and reading the same bytes, and every form event an engineer
// triggers.
#include "LargestProject.h"

#include "core/drawing/BentDrawing.h"
#include "core/inputfile/InputFile.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace tw::bench {
namespace {

const std::string kPath = (std::filesystem::temp_directory_path() / "tarnwick-bench.ebnt").string();

std::string largestBytes() {
    test::Loaded app;
    fillLargestProject(*app);
    return composeInputFile(*app).bytes;
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
    test::Loaded app;
    fillLargestProject(*app);
    for (auto _ : state)
        benchmark::DoNotOptimize(writeInputFile(*app, kPath));
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
    test::Loaded app;
    for (auto _ : state) {
        resetForm(*app);
        benchmark::DoNotOptimize(readInputFile(*app, kPath));
    }
}

// One event on the largest project, the project rebuilt outside the timing.
template <class Event> void perEvent(benchmark::State& state, Event event) {
    test::Loaded app;
    fillLargestProject(*app);
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
        fillEntry(a, "A");
        a.bentRegister.erase(std::remove(a.bentRegister.begin(), a.bentRegister.end(), "A"), a.bentRegister.end());
        st.ResumeTiming();
        a.actions.click(CtlId(Ctl::cmdQuantity, 0));
        st.PauseTiming();
        fillEntry(a, "B");
        a.actions.selectRows(50, 50);
        st.ResumeTiming();
        a.actions.click(CtlId(Ctl::cmdQuantity, 2));
        st.PauseTiming();
        a.grid.setRows(100);
        st.ResumeTiming();
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
        fillLargestProject(a);
        st.ResumeTiming();
    });
}

// Reading the inputs and laying the bent out for a pane of the window's size.
void BM_Drawing_ReadAndLayOut(benchmark::State& state) {
    test::Loaded app;
    fillLargestProject(*app);
    drawing::DrawOptions o;
    for (auto _ : state)
        benchmark::DoNotOptimize(drawing::drawBentToFit(drawing::readBentInputs(*app), o, 260, 480));
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
BENCHMARK(BM_Drawing_ReadAndLayOut)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tw::bench

BENCHMARK_MAIN();
