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
