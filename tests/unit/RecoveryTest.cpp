// SPDX-License-Identifier: Apache-2.0
// The recovery file: it brings back the whole project, opens as an input
// file, is composed without touching the form, and a damaged one changes nothing.
#include "FakePorts.h"
#include "ProjectMaker.h"

#include "core/form/Recovery.h"
#include "core/inputfile/InputFile.h"
#include "core/model/Inputs.h"

#include <gtest/gtest.h>

namespace tw {
namespace {

using test::Loaded;

// What the user sees of every control of the main form.
std::vector<std::string> looks(const Form& main) {
    std::vector<std::string> v;
    for (const auto& [id, c] : main.controls())
        v.push_back(toString(id) + (c.visible ? " shown" : " hidden") + (c.enabled ? "" : " disabled") + " \"" +
                    c.caption + "\"");
    return v;
}

TEST(Recovery, BringsBackEveryInputTheBentTableAndTheCurrentFile) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        Loaded first;
        test::ProjectMaker(seed).fill(*first);
        // What the input file does not hold: entry fields, texts that are no numbers, hidden sections.
        first->setText(Ctl::txtBentNoPI, "7");
        first->setText(CtlId(Ctl::txtEStepPI, 19), "12.3x");
        first->setText(CtlId(Ctl::txtProjectInfo, 1), "quote \" backslash \\ tab \t end");
        if (seed % 3) {
            first->setDialogFileName("/projects/sr " + std::to_string(seed) + ".ebnt");
            setMainCaption(*first, true);
        }

        test::Program second;
        second->actions.type(Ctl::txtCapLength, "99");
        ASSERT_TRUE(second->actions.restore(composeRecovery(*first))) << "seed " << seed;
        EXPECT_TRUE(second.ports.messages.empty());
        EXPECT_TRUE(second->project() == first->project()) << "seed " << seed;
        EXPECT_EQ(second->main().caption, first->main().caption);
        EXPECT_EQ(second->session().dialogFileName(), first->dialogFileName());
        EXPECT_EQ(looks(second->main()), looks(first->main())) << "seed " << seed;
        EXPECT_TRUE(second->modified()) << "no file holds the restored project";
    }
}

TEST(Recovery, OpensAsTheInputFileAndIsComposedWithoutAWord) {
    Loaded app;
    test::ProjectMaker(5).fill(*app);
    // Parallel wingwalls with three equal pile boxes: a save would stop with a message.
    app->setComboText(Ctl::cboTybent, "Pile End Bent with Backwall");
    app->setComboText(Ctl::cboWingParallel, "Yes");
    app->setComboText(Ctl::cboWingwallPileBox, "3");
    app->setText(Ctl::txtPileBoxDistance1, "5.0000");
    app->setText(Ctl::txtPileBoxDistance2, "5.0000");
    app->setText(Ctl::txtCapWidth, "123.4567"); // too wide for its field
    app->setBentCounter(120);
    const Project before = app->project();
    const std::string recovery = composeRecovery(*app);
    EXPECT_TRUE(app.ports.messages.empty());
    EXPECT_TRUE(app->project() == before);

    app->setText(Ctl::txtCapWidth, "3.0000");
    app->setBentCounter(static_cast<std::int16_t>(app->table().rows() - 1));
    const std::string withPlainValues = composeRecovery(*app);
    Loaded reader;
    ASSERT_NO_THROW(parseProject(*reader, withPlainValues));
    EXPECT_EQ(reader->table().rows(), app->table().rows());
    EXPECT_EQ(reader->text(Ctl::txtPileBoxDistance2), "5.0000");
    EXPECT_EQ(summarizeRecovery(recovery).title, app->text(CtlId(Ctl::txtProjectInfo, 0)));
}

TEST(Recovery, ADamagedFileIsToldAndChangesNothing) {
    Loaded source;
    test::ProjectMaker(9).fill(*source);
    const std::string good = composeRecovery(*source);
    const std::string marker = "[Tarnwick recovery 1]\r\n";
    const auto extras = good.find(marker) + marker.size();
    const std::string damaged[] = {
        "",
        good.substr(0, extras - marker.size()),                    // no extras at all
        good.substr(0, extras) + "row \"1\" \"2\"\r\n",            // a row before its columns
        good.substr(0, extras) + "input txtNoSuchField \"1\"\r\n", // an unknown input
        good.substr(0, extras) + "counter \"many\"\r\n",           // no count
        good.substr(0, extras) + "file \"open quote\r\n",          // broken quoting
    };
    for (const auto& bytes : damaged) {
        test::Program app;
        app->actions.type(Ctl::txtCapLength, "42");
        const Project before = app->project();
        EXPECT_FALSE(app->actions.restore(bytes));
        ASSERT_EQ(app.ports.messages.size(), 1u);
        EXPECT_NE(app.ports.messages[0].text.find("Invalid file format: the recovery file cannot be read"),
                  std::string::npos);
        EXPECT_TRUE(app->project() == before);
    }
    EXPECT_EQ(summarizeRecovery("not one").currentFile, "");
}

} // namespace
} // namespace tw

namespace tw {
namespace {

// A recovery file someone changed by hand, or a disk spoiled: every line
// is checked against what a session writes before any of it reaches the
// form, so a tampered file is refused with its line, never half restored.
TEST(Recovery, ATamperedFileIsRefusedBeforeAnythingChanges) {
    Loaded source;
    test::ProjectMaker(9).fill(*source);
    source->setComboText(Ctl::cboTybent, "Pile End Bent with Backwall");
    const std::string good = composeRecovery(*source);
    const std::string marker = "[Tarnwick recovery 1]\r\n";
    const std::string head = good.substr(0, good.find(marker) + marker.size());
    const std::string columns = "columns " + std::to_string(source->table().cols()) + "\r\n";
    std::string inputs;
    for (size_t at = good.find("\r\ninput "); at != std::string::npos; at = good.find("\r\ninput ", at + 2))
        inputs += good.substr(at + 2, good.find("\r\n", at + 2) - at);
    const std::pair<std::string, std::string> tampered[] = {
        {head + "row\r\n", "line 2: a row of the bent table comes before its columns"},
        {head + "columns 3\r\nrow \"1\" \"\" \"\"\r\n" + inputs,
         "line 2: the bent table of a Pile End Bent with Backwall with " + source->text(Ctl::cboNoBeam) +
             " beams has " + std::to_string(source->table().cols()) + " columns, not 3"},
        {head + "columns 0\r\n", "line 2: the bent table has no columns"},
        {head + "columns 2000000000\r\n", "line 2: the bent table of"},
        {head + columns + columns, "line 3: the bent table's columns are given twice"},
        {head + columns + "row \"1\"\r\n", "line 3: a row of the bent table is not whole"},
        {head + "input cboNoBeam \"99\"\r\n", "line 2: \"99\" is not an item of cboNoBeam"},
        {head + "input cboTybent \"Pile Bridge\"\r\n", "line 2: \"Pile Bridge\" is not an item of cboTybent"},
        {head + "counter 40000\r\n", "line 2: the bent counter is out of range"},
        {head + "counter\r\n", "line 2: counter takes 1 word(s)"},
        {head + "register\r\nfile\r\n", "line 3: file takes 1 word(s)"},
    };
    for (const auto& [bytes, said] : tampered) {
        test::Program app;
        app->actions.type(Ctl::txtCapLength, "42");
        const Project before = app->project();
        const std::string caption = app->main().caption;
        EXPECT_FALSE(app->actions.restore(bytes)) << said;
        ASSERT_EQ(app.ports.messages.size(), 1u) << said;
        EXPECT_NE(app.ports.messages[0].text.find("Invalid file format: the recovery file cannot be read (" + said),
                  std::string::npos)
            << app.ports.messages[0].text;
        EXPECT_TRUE(app->project() == before) << said;
        EXPECT_EQ(app->main().caption, caption);
        EXPECT_NE(summarizeRecovery(bytes).problem, "") << said;
    }
    EXPECT_EQ(summarizeRecovery(good).problem, "");
}

} // namespace
} // namespace tw
