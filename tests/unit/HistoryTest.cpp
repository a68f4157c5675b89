// SPDX-License-Identifier: Apache-2.0
// Undo and Redo against the recorded sessions of the replay cases: every
// step an engineer takes there, undone, gives back exactly the project and
// the form before it, redone gives back exactly what it made, and neither
// ever asks a question.
#include "TestFiles.h"

#include "cli/QuietProject.h"
#include "cli/Replay.h"
#include "core/inputfile/InputFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>

namespace tw {
namespace {

namespace fs = std::filesystem;

// What an undo must put back: the project, the bytes it saves as, and what the
// main form shows of it. Not the focus, the caret, the current tab or the
// table's selection: those are where the engineer is, not what was made.
struct Snapshot {
    Project project;
    std::string bytes;
    std::string form;
    friend bool operator==(const Snapshot&, const Snapshot&) = default;
};

std::string describeForm(const App& app) {
    std::ostringstream s;
    s << "caption " << app.main().caption << '\n';
    for (const auto& [id, c] : app.main().controls()) {
        if (id.ctl == Ctl::mnuUndo || id.ctl == Ctl::mnuRedo) continue;
        s << toString(id) << " [" << app.text(id) << "] [" << c.caption << "] v" << c.visible << " e" << c.enabled
          << " l" << c.locked << " c" << static_cast<int>(c.color) << " t" << c.top.value_or(-1) << " x"
          << c.left.value_or(-1);
        for (const auto& item : c.items)
            s << " |" << item;
        s << '\n';
    }
    return s.str();
}

Snapshot snap(const App& app) { return {app.project(), describeInputFile(app.project()), describeForm(app)}; }

// Lines that leave the form's logic (the engine, the end of the program).
bool outsideTheForm(const std::string& line) {
    for (const char* word : {"click mnuRun", "click mnuExit", "toolbar Run", "toolbar Exit", "click cmdExit"})
        if (line.rfind(word, 0) == 0) return true;
    return false;
}

std::vector<std::string> scriptOf(const std::string& fixture) {
    std::ifstream in(fs::path(TW_SOURCE_DIR) / "tests/replay" / fixture / "script.txt");
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        if (!outsideTheForm(line)) lines.push_back(line);
    return lines;
}

// One replay case played against the form's logic alone, line by line.
class Played {
  public:
    explicit Played(const std::string& fixture)
        : dir_(test::freshFolder("tarnwick-history-")), ports_(out_, dir_.string()), system_(out_, quiet_),
          app_(ports_, system_, "/nonexistent"), replay_(app_, ports_, out_, err_), lines_(scriptOf(fixture)) {
        const fs::path files = fs::path(TW_SOURCE_DIR) / "tests/replay" / fixture / "files";
        if (fs::exists(files)) fs::copy(files, dir_, fs::copy_options::recursive);
        app_.loadMainForm();
    }
    const std::vector<std::string>& lines() const { return lines_; }
    App& app() { return app_; }
    // Plays line `i`; false when the line could not be carried out.
    bool play(std::size_t i) { return replay_.runLine(lines_[i], static_cast<int>(i) + 1); }
    // What undo or redo printed: it must be nothing at all.
    std::string walk(bool forward) {
        out_.str({});
        forward ? app_.actions.redo() : app_.actions.undo();
        return out_.str();
    }

  private:
    std::ostringstream out_, err_;
    fs::path dir_;
    ReplayPorts ports_;
    QuietFilePorts quiet_;
    ReplaySystem system_;
    App app_;
    Replay replay_;
    std::vector<std::string> lines_;
};

const char* const kFixtures[] = {
    "beam-rows",
    "bent-number-retyped",
    "bent-type-sections",
    "bents-add-and-repeat",
    "bents-refusals",
    "bents-row-operations",
    "bents-single-and-selection",
    "cap-length-and-closing",
    "numeric-entry",
    "options-sections",
    "paste-bents",
    "pile-box-check",
    "relayout",
    "sample-end-with-backwall",
    "sample-intermediate",
    "sample-twelve-beams",
};

class EveryStep : public ::testing::TestWithParam<const char*> {};
class WholeHistory : public ::testing::TestWithParam<const char*> {};

TEST_P(EveryStep, UndoneGivesBackWhatWasThereAndRedoneWhatItMade) {
    Played p(GetParam());
    int steps = 0;
    // A typing session is one step from its first key to its leave: it is
    // measured from the state before it began.
    std::optional<Snapshot> before;
    std::size_t depth = 0;
    for (std::size_t i = 0; i < p.lines().size(); ++i) {
        const History& h = p.app().history();
        if (!h.typing()) before = snap(p.app()), depth = h.undoDepth();
        if (!p.play(i)) break;
        // One line may close a typing session and take a step of its own.
        if (h.typing() || h.undoDepth() <= depth || h.canRedo()) continue;
        const std::size_t taken = h.undoDepth() - depth;
        const Snapshot after = snap(p.app());
        const std::string label = h.undoLabel();
        ASSERT_FALSE(label.empty()) << p.lines()[i];
        for (std::size_t k = 0; k < taken; ++k)
            ASSERT_EQ(p.walk(false), "") << "undo of line " << i + 1 << ": " << p.lines()[i];
        ASSERT_EQ(snap(p.app()), *before) << "undo of line " << i + 1 << ": " << p.lines()[i];
        for (std::size_t k = 0; k < taken; ++k)
            ASSERT_EQ(p.walk(true), "") << "redo of line " << i + 1 << ": " << p.lines()[i];
        EXPECT_EQ(h.undoLabel(), label);
        ASSERT_EQ(snap(p.app()), after) << "redo of line " << i + 1 << ": " << p.lines()[i];
        ++steps;
    }
    EXPECT_GT(steps, 0) << "the case takes no step the history keeps";
}

// A session cut at random points: all of it undone is where the history
// began, all of it redone is where it ended.
TEST_P(WholeHistory, WalksBackToItsStartAndForwardToItsEnd) {
    const std::size_t length = Played(GetParam()).lines().size();
    std::mt19937 random(7);
    for (int trial = 0; trial < 3; ++trial) {
        Played p(GetParam());
        const std::size_t cut = std::uniform_int_distribution<std::size_t>(1, length)(random);
        std::optional<Snapshot> start;
        for (std::size_t i = 0; i < cut; ++i) {
            if (!p.app().history().canUndo() && !p.app().history().canRedo()) start = snap(p.app());
            if (!p.play(i)) break;
        }
        if (!start) continue;
        // The field being typed into is left, as the window leaves it before Undo.
        if (const auto f = p.app().focus()) p.app().actions.leave(*f);
        const Snapshot end = snap(p.app());
        int taken = 0;
        while (p.app().history().canUndo()) {
            ASSERT_EQ(p.walk(false), "");
            ASSERT_LT(++taken, 1000);
        }
        if (taken == 0) continue;
        EXPECT_EQ(snap(p.app()).project, start->project) << "cut after line " << cut;
        EXPECT_EQ(snap(p.app()).bytes, start->bytes) << "cut after line " << cut;
        while (p.app().history().canRedo())
            ASSERT_EQ(p.walk(true), "");
        EXPECT_EQ(snap(p.app()), end) << "cut after line " << cut;
    }
}

std::string caseName(const ::testing::TestParamInfo<const char*>& info) {
    std::string name = info.param;
    std::erase(name, '-');
    return name;
}

INSTANTIATE_TEST_SUITE_P(ReplayCases, EveryStep, ::testing::ValuesIn(kFixtures), caseName);
// Opening files and starting afresh: the history begins again each time.
INSTANTIATE_TEST_SUITE_P(ReplayCases, WholeHistory,
                         ::testing::Values("file-commands", "bents-row-operations", "beam-rows",
                                           "cap-length-and-closing", "sample-twelve-beams", "relayout"),
                         caseName);

} // namespace
} // namespace tw

#include "FakePorts.h"
#include "core/form/PasteBents.h"

namespace tw {
namespace {

// A paste's record of what it changed holds the table as it was and as it
// became, not the table again after every row: rows times rows would make a
// long paste's memory grow with its square.
TEST(HistoryMemory, APasteRecordsTheTableOnceBeforeAndOnceAfter) {
    test::FakePorts ports;
    Session s(ports, ports, "/nonexistent");
    loadMainForm(s);
    s.takeLog();
    std::string rows;
    for (int i = 1; i <= 99; ++i)
        rows += std::to_string(i) + ",,,1,2,3,4,5,6,7,8\n";
    ASSERT_EQ(pasteBents(s, rows).added, 99);
    std::size_t tables = 0, rowsHeld = 0;
    for (const auto& e : s.takeLog())
        if (const auto* t = std::get_if<change::Table>(&e)) {
            ++tables;
            rowsHeld += static_cast<std::size_t>(t->before.rows() + t->after.rows());
        }
    EXPECT_EQ(tables, 1u);
    EXPECT_EQ(rowsHeld, 1u + 100u);
}

// A paste of a spreadsheet's thousands of rows is refused before it begins:
// nothing goes in, and nothing is kept of it.
TEST(HistoryMemory, APasteOfMoreThan99BentsIsRefusedBeforeAnythingGoesIn) {
    test::Program app;
    std::string rows;
    for (int i = 1; i <= 150; ++i)
        rows += std::to_string(i % 90 + 10) + ",,,1,2,3,4,5,6,7,8\n";
    app->actions.apply(cmd::PasteBents{rows});
    EXPECT_EQ(app->project().table().rows(), 1);
    EXPECT_EQ(app->history().undoDepth(), 0u);
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].text, "Line 100, the bent table would hold 150 bents, and a project holds 99 at "
                                          "the most. Nothing was pasted.");
}

// The history keeps the newest steps up to its limits (History::kMostSteps,
// kMostBytes): past them the oldest go first, so a long session's memory
// stays bounded, and the steps it keeps still walk back to the oldest kept.
TEST(HistoryMemory, TheOldestStepsGoFirstPastTheLimits) {
    test::Program app;
    for (int i = 0; i < 1100; ++i) {
        app->actions.edit(Ctl::txtCapLength, std::to_string(100 + i));
        app->actions.leave(Ctl::txtCapLength);
    }
    EXPECT_EQ(app->history().undoDepth(), History::kMostSteps);
    const std::string last = app->text(Ctl::txtCapLength);
    while (app->history().canUndo())
        app->actions.undo();
    EXPECT_EQ(app->text(Ctl::txtCapLength), "199.0000") << "the first hundred steps went";
    ASSERT_TRUE(app->history().canRedo());
    app->actions.redo();
    EXPECT_EQ(app->text(Ctl::txtCapLength), "200.0000") << "redo walks forward again";
    while (app->history().canRedo())
        app->actions.redo();
    EXPECT_EQ(app->text(Ctl::txtCapLength), last);
    EXPECT_EQ(app->history().undoDepth(), History::kMostSteps);

    // Steps of two megabytes each (the text before and after): the kept values stay within their budget.
    const std::string line(1 << 20, 'x');
    for (int i = 0; i < 80; ++i) {
        const CtlId field(Ctl::txtProjectInfo, i % 2);
        app->actions.edit(field, line + std::to_string(i));
        app->actions.leave(field);
    }
    EXPECT_LE(app->history().footprint(), History::kMostBytes);
    EXPECT_GT(app->history().undoDepth(), 20u);
    app->actions.undo();
    EXPECT_EQ(app->text(CtlId(Ctl::txtProjectInfo, 1)), line + "77");
}

// Typing on and on in one field is one step that keeps the field's first
// text and its last, not every text between.
TEST(HistoryMemory, LongTypingInOneFieldKeepsItsFirstAndLastText) {
    test::Program app;
    const CtlId field(Ctl::txtProjectInfo, 0);
    const std::string start = app->text(field);
    std::string text;
    for (int i = 0; i < 3000; ++i)
        app->actions.edit(field, text += 'a');
    EXPECT_LT(app->history().footprint(), 256u * 1024) << "3,000 texts of up to 3,000 bytes would hold 9 MB";
    app->actions.leave(field);
    app->actions.undo();
    EXPECT_EQ(app->text(field), start);
    app->actions.redo();
    EXPECT_EQ(app->text(field), text);
}

} // namespace
} // namespace tw
