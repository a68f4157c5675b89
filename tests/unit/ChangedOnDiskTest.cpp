// SPDX-License-Identifier: Apache-2.0
// Another program changes the open project's file: the user is told at
// once and may read it again, and a Save over that change asks first --
// and only then.
#include "FakePorts.h"
#include "RunTarnwick.h"

#include <gtest/gtest.h>

#include <fstream>

namespace tw {
namespace {

namespace fs = std::filesystem;

class ChangedOnDisk : public ::testing::Test {
  protected:
    fs::path dir = test::freshFolder("tarnwick-changed-");
    fs::path file = dir / "bent.ebnt";
    std::string said; // what a change on disk is told as, for `file`

    void SetUp() override {
        fs::copy_file(fs::path(TW_SOURCE_DIR) / "samples" / "intermediate.ebnt", file);
        said = file.string() + " was changed by another program since it was opened or saved here.";
    }
    void TearDown() override { fs::remove_all(dir); }
    // Another program writes a first line of its own.
    void theirChange(const std::string& title) {
        std::string bytes = test::slurp(file);
        bytes.replace(0, bytes.find('\r'), title);
        std::ofstream(file, std::ios::binary | std::ios::trunc) << bytes;
    }
};

TEST_F(ChangedOnDisk, TheChangeIsToldAndReadAgainOnYes) {
    test::LiveReplay live(dir);
    live.send("file bent.ebnt\nclick mnuOpen\nanswer Yes\n");
    EXPECT_NE(live.answer().find("dialog open"), std::string::npos);
    theirChange("THEIR TITLE");
    live.send("show txtProjectInfo(0)\n");
    EXPECT_EQ(live.answer(), "message \"File Changed\" \"" + said + "  Reload it?\" YesNo none -> Yes\n");
    EXPECT_EQ(live.answer(), "txtProjectInfo(0) = \"THEIR TITLE\"\n");
    // Told once a change: the same bytes are not told again.
    live.send("modified\n");
    EXPECT_EQ(live.answer(), "modified = 0\n");
    EXPECT_EQ(live.end(), 0);
}

TEST_F(ChangedOnDisk, ASaveOverTheirChangeAsksFirstAndOnlyThen) {
    test::LiveReplay live(dir);
    // Our own save, with nothing changed on disk: no new question.
    live.send("file bent.ebnt\nclick mnuOpen\ntype txtProjectInfo(1) X\nanswer Yes\nclick mnuSave\n");
    EXPECT_NE(live.answer().find("dialog open"), std::string::npos);
    EXPECT_NE(live.answer().find("\"Confirm Save\""), std::string::npos);
    // The answer to what the change will be told as, queued before it happens.
    live.send("answer No\nfocus\n");
    EXPECT_EQ(live.answer(), "focus = txtProjectInfo(1)\n");
    theirChange("THEIR TITLE");
    // Keep mine, then Save: asked, and No leaves their file as they wrote it.
    live.send("type txtProjectInfo(1) Y\nanswer Yes\nanswer No\nclick mnuSave\nmodified\n");
    EXPECT_EQ(live.answer(), "message \"File Changed\" \"" + said + "  Reload it?\" YesNo none -> No\n");
    EXPECT_NE(live.answer().find("\"Confirm Save\""), std::string::npos);
    EXPECT_EQ(live.answer(), "message \"File Changed\" \"" + said + "  Save over it?\" YesNo none -> No\n");
    EXPECT_EQ(live.answer(), "modified = 1\n");
    EXPECT_EQ(test::slurp(file).rfind("THEIR TITLE\r\n", 0), 0u);
    // Yes writes ours over theirs; the next save asks nothing more.
    live.send("answer Yes\nanswer Yes\nclick mnuSave\nanswer Yes\nclick mnuSave\nmodified\n");
    EXPECT_NE(live.answer().find("\"Confirm Save\""), std::string::npos);
    EXPECT_EQ(live.answer(), "message \"File Changed\" \"" + said + "  Save over it?\" YesNo none -> Yes\n");
    EXPECT_NE(live.answer().find("\"Confirm Save\""), std::string::npos);
    EXPECT_EQ(live.answer(), "modified = 0\n");
    EXPECT_EQ(test::slurp(file).rfind("SR 12 OVER CEDAR CREEK\r\n", 0), 0u);
    EXPECT_EQ(live.end(), 0);
}

// A second program that opens the project while the first holds it is told
// so, as the window tells it in a bar: a note, which takes no answer.
TEST_F(ChangedOnDisk, ASecondOpenOfAnOpenProjectIsTold) {
    const fs::path errors = dir / "second-errors.txt";
    test::LiveReplay first(dir), second(dir, errors);
    first.send("file bent.ebnt\nclick mnuOpen\n");
    EXPECT_NE(first.answer().find("dialog open"), std::string::npos);
    second.send("answer No\nfile bent.ebnt\nclick mnuOpen\nfocus\n");
    EXPECT_NE(second.answer().find("dialog open"), std::string::npos);
    EXPECT_EQ(second.answer(), "focus = none\n");
    EXPECT_EQ(test::slurp(errors), "tarnwick: note: " + file.string() +
                                       " is open in another Tarnwick window too. A save in one would write over "
                                       "what was saved in the other; Save asks before it does.\n");
    // The queued answer is still there for the next box.
    second.send("click mnuNew\n");
    EXPECT_NE(second.answer().find("\"Clear Form Confirmation\" \"Do you want to clear the form and start over?\" "
                                   "YesNo none -> No"),
              std::string::npos);
    EXPECT_EQ(second.end(), 0);
    EXPECT_EQ(first.end(), 0);
}

// Two windows save one project a moment apart: the second save's look at the
// file and its write are one step, so it sees the first save and asks.
TEST_F(ChangedOnDisk, OfTwoSavesAtOnceTheSecondSeesTheFirst) {
    test::Loaded mine, theirs;
    ASSERT_TRUE(readInputFile(*mine, file.string()));
    ASSERT_TRUE(readInputFile(*theirs, file.string()));
    mine->setText(Target(CtlId(Ctl::txtProjectInfo, 1)), "MINE");
    theirs->setText(Target(CtlId(Ctl::txtProjectInfo, 1)), "THEIRS");
    // Their save lands after mine has looked and before it writes.
    mine.ports.beforeWrite = [&] { ASSERT_TRUE(writeInputFile(*theirs, file.string())); };
    mine.ports.answers = {MsgAnswer::No};
    EXPECT_FALSE(writeInputFile(*mine, file.string()));
    ASSERT_EQ(mine.ports.messages.size(), 1u);
    EXPECT_EQ(mine.ports.messages[0].text, said + "  Save over it?");
    EXPECT_NE(test::slurp(file).find("THEIRS"), std::string::npos);
    // Yes writes mine over theirs.
    mine.ports.answers = {MsgAnswer::Yes};
    EXPECT_TRUE(writeInputFile(*mine, file.string()));
    EXPECT_NE(test::slurp(file).find("MINE"), std::string::npos);
}

// A file grown past what a project can be is not read to compare: it counts
// as changed, and a save asks before it writes over it.
TEST_F(ChangedOnDisk, AFileGrownPastAProjectsSizeCountsAsChanged) {
    test::Loaded mine;
    ASSERT_TRUE(readInputFile(*mine, file.string()));
    const std::string theirs(2 << 20, 'x');
    std::ofstream(file, std::ios::binary | std::ios::trunc) << theirs;
    mine.ports.answers = {MsgAnswer::No};
    EXPECT_FALSE(writeInputFile(*mine, file.string()));
    ASSERT_EQ(mine.ports.messages.size(), 1u);
    EXPECT_EQ(mine.ports.messages[0].text, said + "  Save over it?");
    EXPECT_EQ(test::slurp(file), theirs);
    // It grows between the look and the write: the write looks again.
    std::ofstream(file, std::ios::binary | std::ios::trunc) << "small";
    mine.ports.beforeWrite = [&] { std::ofstream(file, std::ios::binary | std::ios::trunc) << theirs; };
    mine.ports.answers = {MsgAnswer::Yes, MsgAnswer::No};
    EXPECT_FALSE(writeInputFile(*mine, file.string()));
    EXPECT_EQ(mine.ports.messages.size(), 3u);
    EXPECT_EQ(test::slurp(file), theirs);
}

} // namespace
} // namespace tw
