// SPDX-License-Identifier: Apache-2.0
// Every legacy road that discards unsaved work (Open, Revert, a recent
// project, a dropped file, New, Exit, a reload, a restore) first puts the
// project aside, byte for byte what the form held, and then runs exactly as
// it always has; a copy that cannot be kept never stops the road.
#include "FakePorts.h"
#include "TestFiles.h"

#include "core/form/PutAside.h"
#include "core/form/Recovery.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tw {
namespace {

namespace fs = std::filesystem;

struct Road {
    const char* name;
    const char* command; // what the copy is put aside for
    // Brings the program (with `a` and `b`, two project files, `a` open) down the road.
    std::function<void(test::Program&, const fs::path& a, const fs::path& b)> take;
    std::vector<std::string> titles; // the legacy boxes the road shows, in order
};

// gtest names a road by its name.
void PrintTo(const Road& road, std::ostream* os) { *os << road.name; }

void open(test::Program& p, const fs::path& file) { p->actions.apply(cmd::OpenPath{file.string()}); }

const std::vector<Road>& roads() {
    static const std::vector<Road> all = {
        {"Open",
         "Open",
         [](test::Program& p, const fs::path&, const fs::path& b) {
             p.ports.files.push_back(b.string());
             p->actions.click(Ctl::mnuOpen);
         },
         {}},
        {"Revert",
         "Revert",
         [](test::Program& p, const fs::path& a, const fs::path&) {
             p.ports.files.push_back(a.string());
             p->actions.click(Ctl::mnuOpen);
         },
         {"Open Confirmation"}},
        {"Recent",
         "Open",
         [](test::Program& p, const fs::path&, const fs::path&) {
             // The list holds a (newest) and b, opened before it.
             p->actions.click(CtlId(Ctl::mnuRecentFile, 1));
         },
         {}},
        {"Dropped", "Open", [](test::Program& p, const fs::path&, const fs::path& b) { open(p, b); }, {}},
        {"New",
         "New",
         [](test::Program& p, const fs::path&, const fs::path&) { p->actions.click(Ctl::mnuNew); },
         {"Clear Form Confirmation"}},
        {"Exit",
         "Exit",
         [](test::Program& p, const fs::path&, const fs::path&) { p->actions.click(Ctl::mnuExit); },
         {"Confirm Exit"}},
        {"Reload", "Reload", [](test::Program& p, const fs::path&, const fs::path&) { p->actions.reload(); }, {}},
        {"Restore",
         "Restore",
         [](test::Program& p, const fs::path&, const fs::path&) {
             test::Program other;
             p->actions.restore(composeRecovery(other->session()));
         },
         {}},
    };
    return all;
}

class PutAsideRoads : public ::testing::TestWithParam<Road> {
  protected:
    fs::path dir = test::freshFolder("tarnwick-aside-");
    fs::path a = dir / "bridge.ebnt";
    fs::path b = dir / "other.ebnt";
    test::Program p;

    void SetUp() override {
        fs::copy_file(fs::path(TW_SOURCE_DIR) / "samples" / "twelve-beams.ebnt", a);
        fs::copy_file(fs::path(TW_SOURCE_DIR) / "samples" / "intermediate.ebnt", b);
        open(p, b);
        open(p, a);
    }
    void TearDown() override { fs::remove_all(dir); }
    // An hour's work in a minute: a title, a cap width, a bent.
    void work() {
        p->actions.type(CtlId(Ctl::txtProjectInfo, 0), " REVISED");
        p->actions.type(Ctl::txtCapWidth, "3.5");
        p->actions.leave(Ctl::txtCapWidth);
        p->actions.apply(cmd::PasteBents{"42\t\t\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5"
                                         "\t301.5\t301.5\t301.5\t302\t302\t302\t302\n"});
        ASSERT_TRUE(p->modified());
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> t;
        for (const auto& m : p.ports.messages)
            t.push_back(m.title);
        return t;
    }
};

TEST_P(PutAsideRoads, UnsavedWorkIsPutAsideWholeBeforeTheRoadDiscardsIt) {
    const Road& road = GetParam();
    work();
    const std::string held = composeRecovery(p->session());
    const std::string file = p->project().currentFile;
    p.ports.messages.clear();
    road.take(p, a, b);

    ASSERT_EQ(p.ports.putAsides.size(), 1u);
    EXPECT_EQ(p.ports.putAsides[0].first, road.command);
    EXPECT_EQ(p.ports.putAsides[0].second, held);
    ASSERT_EQ(p.ports.putAsideTold.size(), 1u);
    EXPECT_EQ(p.ports.putAsideTold[0], "Unsaved changes to bridge.ebnt (12:34) were put aside @/put-aside/1");
    // The legacy road itself: its boxes, nothing more.
    EXPECT_EQ(titles(), road.titles);

    // One click brings back what the form held: inputs, bent table, counter, register, file.
    test::Program back;
    ASSERT_TRUE(back->actions.restore(p.ports.putAsides[0].second));
    EXPECT_EQ(composeRecovery(back->session()), held);
    EXPECT_EQ(back->project().currentFile, file);
    EXPECT_TRUE(back->modified());
}

TEST_P(PutAsideRoads, NothingIsPutAsideWhenNothingIsUnsaved) {
    GetParam().take(p, a, b);
    EXPECT_TRUE(p.ports.putAsides.empty());
    EXPECT_TRUE(p.ports.putAsideTold.empty());
}

TEST_P(PutAsideRoads, ACopyThatCannotBeKeptNeverStopsTheRoad) {
    const Road& road = GetParam();
    work();
    p.ports.putAsideFault = "Disk full: no space left on device";
    p.ports.messages.clear();
    road.take(p, a, b);
    ASSERT_EQ(p.ports.putAsideTold.size(), 1u);
    EXPECT_EQ(p.ports.putAsideTold[0],
              "Unsaved changes to bridge.ebnt could not be put aside: Disk full: no space left on device");
    EXPECT_EQ(titles(), road.titles);
    // The road ran all the same: the revised project left the form.
    if (std::string(road.name) == "Exit")
        EXPECT_TRUE(p->mainUnloaded());
    else
        EXPECT_EQ(p->text(CtlId(Ctl::txtProjectInfo, 0)).find("REVISED"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(EveryRoad, PutAsideRoads, ::testing::ValuesIn(roads()),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(PutAside, ARoadTheUserTurnsBackFromPutsNothingAside) {
    test::Program p;
    p->actions.type(Ctl::txtCapLength, "80");
    for (Ctl menu : {Ctl::mnuNew, Ctl::mnuExit}) {
        p.ports.answers.push_back(MsgAnswer::No);
        p->actions.click(menu);
    }
    p->actions.click(Ctl::mnuOpen); // its dialog cancelled
    EXPECT_TRUE(p.ports.putAsides.empty());
    EXPECT_EQ(p->text(Ctl::txtCapLength), "80");
}

TEST(PutAside, AProjectNeverSavedIsNamedAsSuch) {
    test::Program p;
    p->actions.type(Ctl::txtCapLength, "80");
    p->actions.click(Ctl::mnuNew);
    ASSERT_EQ(p.ports.putAsideTold.size(), 1u);
    EXPECT_EQ(p.ports.putAsideTold[0], "Unsaved changes to an untitled project (12:34) were put aside @/put-aside/1");
    EXPECT_EQ(p->text(Ctl::txtCapLength), "");
}

} // namespace
} // namespace tw
