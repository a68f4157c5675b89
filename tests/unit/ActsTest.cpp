// SPDX-License-Identifier: Apache-2.0
// The engineer's acts: a click on a button or menu item is its act, step for
// step, under the act's own name in the history; and the form's setters
// only set, so a choice made by the program runs its handler only when it
// is chosen, not when a value is put back.
#include "FakePorts.h"
#include "cli/QuietProject.h"
#include "core/form/MainForm.h"
#include "core/form/Session.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tw {
namespace {

const std::string kSample = std::string(TW_SOURCE_DIR) + "/samples/twelve-beams.ebnt";

struct Opened {
    Opened() {
        EXPECT_TRUE(project.read(kSample)) << project.why();
        project.app.actions.selectRows(2, 2);
    }
    App& app() { return project.app; }
    QuietProject project{std::string(TW_SOURCE_DIR)};
};

TEST(Acts, AClickIsItsActUnderTheActsName) {
    const struct {
        Command act;
        CtlId control;
        std::string label;
    } cases[] = {
        {cmd::MoveBentUp{}, CtlId(Ctl::cmdMoveUp), "Move Bent 2 Up"},
        {cmd::MoveBentDown{}, CtlId(Ctl::cmdMoveDown), "Move Bent 2 Down"},
        {cmd::DeleteBent{}, CtlId(Ctl::cmdQuantity, 4), "Delete Bent 2"},
        {cmd::DeleteAllBents{}, CtlId(Ctl::cmdQuantity, 5), "Delete All Bents"},
    };
    for (const auto& c : cases) {
        Opened byAct, byClick;
        ASSERT_GT(byAct.app().project().table().rows(), 3);
        byAct.app().actions.apply(c.act);
        byClick.app().actions.click(c.control);
        EXPECT_EQ(byAct.app().history().undoLabel(), c.label);
        EXPECT_EQ(byClick.app().history().undoLabel(), c.label);
        EXPECT_EQ(byAct.app().project(), byClick.app().project()) << c.label;
        EXPECT_FALSE(byAct.app().project() == Opened().app().project()) << c.label << " changed nothing";
        // And back again, as one step.
        byAct.app().actions.undo();
        EXPECT_EQ(byAct.app().project(), Opened().app().project()) << c.label;
    }
}

TEST(Acts, EveryToolbarKeyStartsTheActOfItsMenuItem) {
    for (const std::string& key : toolbarKeys()) {
        const ActRow* row = actOfToolbarKey(key);
        ASSERT_NE(row, nullptr) << key;
        EXPECT_EQ(actOf(row->control), row) << key;
    }
    EXPECT_EQ(actOf(CtlId(Ctl::mnuRecentFile, 3))->act, Act::OpenRecent);
    EXPECT_EQ(actControl(Act::OpenRecent, 3), CtlId(Ctl::mnuRecentFile, 3));
    EXPECT_EQ(actOf(CtlId(Ctl::txtCapLength)), nullptr);
}

TEST(Acts, SettersRunNoHandlerAndAChoiceRunsItsOwn) {
    test::Loaded loaded;
    Session& s = *loaded;
    const bool endBent = s.ctl(Ctl::Frame3).visible;
    ASSERT_EQ(s.listIndex(Ctl::cboTybent), 0); // an end bent
    const int other = 2;                       // the intermediate bent: no wingwalls
    s.setListIndex(Ctl::cboTybent, other);
    EXPECT_EQ(s.ctl(Ctl::Frame3).visible, endBent) << "a setter ran the bent type's handler";
    choose(s, Ctl::cboTybent, other);
    EXPECT_NE(s.ctl(Ctl::Frame3).visible, endBent) << "the choice ran no handler";
}

} // namespace
} // namespace tw
