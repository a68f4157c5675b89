// SPDX-License-Identifier: Apache-2.0
// A name is one argument, whatever it holds: the drawing batch program and
// the drawing's program get the file as one word, never a command line
// split again; only the user's own setting is split into its words.
#include "FakePorts.h"
#include "TestFiles.h"

#include "core/output/Outputs.h"
#include "core/run/Run.h"
#include "platform/Platform.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace tw {
namespace {

namespace fs = std::filesystem;

// A name that a command line split again would take for two arguments and an option.
const std::string kTricky = "a\" \"--x";

class ProgramArguments : public ::testing::Test {
  protected:
    fs::path dir = test::freshFolder("tarnwick-args-");
    test::Loaded app{"/opt/tarnwick"};

    void SetUp() override {
        const std::string file = (dir / (kTricky + ".ebnt")).string();
        app->setDialogFileName(file);
        app->setCurrentFile(file);
        std::ofstream(file) << "input";
    }
    void TearDown() override { fs::remove_all(dir); }
};

TEST_F(ProgramArguments, TheDrawingScriptIsOneArgumentOfTheBatchProgram) {
    app.ports.ini["microstation/dgnbatch"] = "/opt/cad/batch -x";
    runAfterSave(*app);
    ASSERT_EQ(app.ports.calls.size(), 1u);
    EXPECT_EQ(app.ports.calls[0].program, "/opt/cad/batch -x");
    EXPECT_EQ(app.ports.calls[0].arguments, std::vector<std::string>{(dir / kTricky).string() + "e.sif"});
    // The command line as the replay shows it stays as it always read.
    EXPECT_EQ(app.ports.started[0], "/opt/cad/batch -x \"" + (dir / kTricky).string() + "e.sif\"");
}

TEST_F(ProgramArguments, TheDrawingIsOneArgumentOfItsProgram) {
    std::ofstream(dir / (kTricky + ".ebntc")) << "results";
    app.ports.association = {AssociatedProgram::Status::Found, "/usr/bin/viewer --new \"%1\""};
    printCommand(*app);
    app->setListIndex(Target(FormId::Printer, Ctl::cmbFileTypes), 1);
    applyFileType(*app);
    previewOutput(*app);
    ASSERT_EQ(app.ports.calls.size(), 1u);
    EXPECT_EQ(app.ports.calls[0].program, "/usr/bin/viewer --new");
    EXPECT_EQ(app.ports.calls[0].arguments, std::vector<std::string>{(dir / kTricky).string() + "e.dgn"});
}

// The platform splits the setting into the program and its options and
// hands each argument over untouched.
TEST_F(ProgramArguments, ThePlatformPassesEachArgumentAsItStands) {
    static int argc = 1;
    static char name[] = "unit_tests";
    static char* argv[] = {name, nullptr};
    static QCoreApplication qapp(argc, argv);
    const fs::path script = dir / "record.sh";
    std::ofstream(script) << "printf '%s\\n' \"$#\" \"$@\" > \"" << (dir / "args.txt").string() << "\"\n";
    const std::vector<std::string> arguments = {kTricky, "two words", "$HOME", "'quoted'", "-", ""};
    Platform platform;
    const ProcessResult r = platform.startAndWait({"/bin/sh \"" + script.string() + "\" --first", arguments});
    ASSERT_TRUE(r.started) << r.error;
    std::string expected = std::to_string(arguments.size() + 1) + "\n--first\n";
    for (const auto& a : arguments)
        expected += a + "\n";
    EXPECT_EQ(test::slurp(dir / "args.txt"), expected);
}

} // namespace
} // namespace tw
