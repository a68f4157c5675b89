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
