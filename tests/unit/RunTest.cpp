// SPDX-License-Identifier: Apache-2.0
// Run after the save: names, emptied outputs, the engine call, the batch
// program and the final word, with the outside world faked.
#include "FakePorts.h"

#include "core/run/Run.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>

namespace tw {
namespace {

namespace fs = std::filesystem;

class RunAfterSave : public ::testing::Test {
  protected:
    // One folder a test: the tests may run in parallel processes.
    fs::path dir = fs::temp_directory_path() /
                   (std::string("tarnwick-run-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    test::Loaded app{"/opt/tarnwick"};

    void SetUp() override {
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string input(const std::string& name) {
        const auto p = dir / name;
        fs::create_directories(p.parent_path());
        std::ofstream(p) << "input";
        app->setDialogFileName(p.string());
        app->setCurrentFile(p.string());
        return p.string();
    }
    static std::string unpadded(std::string s) {
        while (!s.empty() && s.back() == ' ')
            s.pop_back();
        return s;
    }
};

TEST_F(RunAfterSave, NamesTheOutputsAndCallsTheEngineThenTheBatchProgram) {
    const std::string in = input("sr12.ebnt");
    const std::string base = (dir / "sr12").string();
    std::ofstream(base + ".ebntc") << "old results";
    app.ports.ini["microstation/dgnbatch"] = "/opt/cad/batch -x";
    runAfterSave(*app);

    ASSERT_EQ(app.ports.engineCalls.size(), 1u);
    const auto& names = app.ports.engineCalls[0];
    const char* suffixes[] = {"e.sif", ".ebntc", ".ebntr", ".egen", ".ebent", ".eelev", ".ebeam", ".epile", ".equan"};
    EXPECT_EQ(unpadded(names[0]), in);
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(unpadded(names[i + 1]), base + suffixes[i]) << i;
    for (const auto& n : names)
        EXPECT_EQ(n.size(), 128u);

    ASSERT_EQ(app.ports.started.size(), 1u);
    EXPECT_EQ(app.ports.started[0], "/opt/cad/batch -x \"" + base + "e.sif\"");
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].text,
              "The program has finished running.\r\n\r\nClick the printer icon to preview or print the files.");
    EXPECT_EQ(app.ports.messages[0].icon, MsgIcon::None);
    EXPECT_EQ(app.ports.log, (std::vector<std::string>{"busy", "default"}));
    // The old results are gone, the outputs stand empty, the drawing script is deleted.
    EXPECT_EQ(fs::file_size(base + ".ebntc"), 0u);
    EXPECT_EQ(fs::file_size(base + ".equan"), 0u);
    EXPECT_FALSE(fs::exists(base + "e.sif"));
}

TEST_F(RunAfterSave, AFolderWithADotCutsTheNameThere) {
    input("v1.2/sr12.ebnt");
    runAfterSave(*app);
    ASSERT_EQ(app.ports.engineCalls.size(), 1u);
    EXPECT_EQ(unpadded(app.ports.engineCalls[0][2]), (dir / "v1").string() + ".ebntc");
    EXPECT_TRUE(fs::exists((dir / "v1").string() + ".ebntc"));
}

TEST_F(RunAfterSave, LongNamesGoUnpadded) {
    const std::string in = input(std::string(150, 'a') + ".ebnt");
    runAfterSave(*app);
    ASSERT_EQ(app.ports.engineCalls.size(), 1u);
    EXPECT_EQ(app.ports.engineCalls[0][0], in);
    EXPECT_EQ(padName("x").size(), 128u);
    EXPECT_EQ(padName(std::string(128, 'y')), std::string(128, 'y'));
}

TEST_F(RunAfterSave, FailuresEndInTheErrorBoxWithTheOutputsEmptied) {
    const std::string base = (dir / "p").string();
    input("p.ebnt");
    std::ofstream(base + ".egen") << "old";
    app.ports.engineResult = {false, 51, "Internal error: the engine stopped unexpectedly", {}};
    runAfterSave(*app);
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
    EXPECT_NE(app.ports.messages[0].text.find("\t51\r\n"), std::string::npos);
    EXPECT_EQ(fs::file_size(base + ".egen"), 0u);
    EXPECT_TRUE(app.ports.started.empty()) << "no batch program after a failed engine";
    EXPECT_EQ(app.ports.log.back(), "default");

    // A batch program that cannot start fails after the engine has run.
    app.ports.messages.clear();
    app.ports.engineResult = {true, 0, {}, {}};
    app.ports.ini["microstation/dgnbatch"] = "/opt/cad/batch";
    app.ports.processResult = {false, 0, false, "no program", {}};
    runAfterSave(*app);
    EXPECT_EQ(app.ports.engineCalls.size(), 2u);
    ASSERT_EQ(app.ports.started.size(), 1u);
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
    EXPECT_NE(app.ports.messages[0].text.find("could not be started (no program)"), std::string::npos);
}

// Ebent.ini missing, empty, without the key or with a blank value: the box
// names the setting, after the engine has run, and nothing is started.
TEST_F(RunAfterSave, ABatchProgramNotSetIsNamedAfterTheEngineRan) {
    input("p.ebnt");
    const std::string expected = "Error Number:\t53\r\nDescription:\tThe drawing batch program is not set: "
                                 "[microstation] dgnbatch in /opt/tarnwick/Ebent.ini\r\nPlease notify administrator.";
    for (const char* setting : std::initializer_list<const char*>{"", "   ", nullptr}) {
        app.ports.messages.clear();
        app.ports.ini.clear();
        if (setting) app.ports.ini["microstation/dgnbatch"] = setting;
        runAfterSave(*app);
        ASSERT_EQ(app.ports.messages.size(), 1u);
        EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
        EXPECT_EQ(app.ports.messages[0].text, expected);
    }
    EXPECT_EQ(app.ports.engineCalls.size(), 3u);
    EXPECT_TRUE(app.ports.started.empty());
}

// While Run waits the user sees what for and may cancel; a cancel or the time
// limit ends Run in its error box, and the drawing script is not deleted.
TEST_F(RunAfterSave, AWaitEndedEarlyEndsRunInItsBox) {
    input("p.ebnt");
    app.ports.ini["microstation/dgnbatch"] = "/opt/cad/batch";
    runAfterSave(*app);
    EXPECT_EQ(app.ports.waits, (std::vector<std::string>{"begin Running the engine\u2026", "end",
                                                         "begin Waiting for the drawing batch program\u2026", "end"}));

    struct Case {
        bool engine;
        WaitEnd end;
        const char* text;
    } cases[] = {
        {true, {true, 0}, "\t18\r\nDescription:\tUser interrupt occurred: Run was cancelled, and the engine was ended"},
        {false,
         {true, 0},
         "\t18\r\nDescription:\tUser interrupt occurred: Run was cancelled, and the drawing batch "
         "program was ended"},
        {false,
         {false, 5},
         "\t286\r\nDescription:\tTimeout occurred: the drawing batch program was still running "
         "after 5 seconds and was ended"},
    };
    for (const auto& c : cases) {
        app.ports.messages.clear();
        app.ports.engineResult = {!c.engine, 0, {}, c.engine ? c.end : WaitEnd{}};
        app.ports.processResult = {true, 0, false, {}, c.engine ? WaitEnd{} : c.end};
        runAfterSave(*app);
        ASSERT_EQ(app.ports.messages.size(), 1u) << c.text;
        EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
        EXPECT_NE(app.ports.messages[0].text.find(c.text), std::string::npos) << app.ports.messages[0].text;
        EXPECT_EQ(app.ports.log.back(), "default");
        EXPECT_TRUE(fs::exists(dir / "pe.sif"));
    }
}

// Exit while Run waits ends the program waited for, and Run ends without a word.
TEST_F(RunAfterSave, ExitDuringTheWaitEndsTheProgramAndRunQuietly) {
    input("p.ebnt");
    app.ports.ini["microstation/dgnbatch"] = "/opt/cad/batch";
    app.ports.duringWait = [&] {
        app.ports.answers = {MsgAnswer::Yes};
        unloadMainForm(*app);
        app.ports.processResult.end.cancelled = app.ports.cancels > 0;
    };
    runAfterSave(*app);
    EXPECT_TRUE(app->mainUnloaded());
    EXPECT_EQ(app.ports.cancels, 1);
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Confirm Exit");
}

// A batch program that failed or drew nothing is told after the final
// message, without a box of its own.
TEST_F(RunAfterSave, ABatchProgramThatDrewNothingIsToldWithoutABox) {
    input("p.ebnt");
    const std::string drawing = (dir / "pe.dgn").string();
    app.ports.ini["microstation/dgnbatch"] = "/opt/cad/batch";
    struct Case {
        ProcessResult result;
        bool draws;
        std::string notice;
    } cases[] = {
        {{true, 0, false, {}, {}}, true, ""},
        {{true, 0, false, {}, {}}, false, "The drawing batch program left no new drawing: " + drawing},
        {{true, 3, false, {}, {}},
         false,
         "The drawing batch program ended with exit status 3 and left no new drawing: " + drawing},
        {{true, 3, false, {}, {}},
         true,
         "The drawing batch program ended with exit status 3; the drawing " + drawing + " may be incomplete"},
        {{true, 0, true, {}, {}},
         false,
         "The drawing batch program stopped unexpectedly (it crashed) and left no new drawing: " + drawing},
    };
    int round = 0;
    for (const auto& c : cases) {
        app.ports.messages.clear();
        app.ports.notices.clear();
        app.ports.processResult = c.result;
        // The drawing of an earlier Run stands; a batch program that draws replaces it.
        std::ofstream(drawing) << "earlier";
        fs::last_write_time(drawing, fs::file_time_type::clock::now() - std::chrono::hours(1));
        app.ports.duringWait = [&] {
            if (c.draws) std::ofstream(drawing) << "drawing " << round;
        };
        runAfterSave(*app);
        ++round;
        ASSERT_EQ(app.ports.messages.size(), 1u);
        EXPECT_EQ(app.ports.messages[0].text.substr(0, 33), "The program has finished running.");
        EXPECT_EQ(app.ports.notices.back(), c.notice);
    }
    fs::remove(drawing);
    app.ports.duringWait = nullptr;
    app.ports.processResult = {true, 0, false, {}, {}};
    runAfterSave(*app);
    EXPECT_EQ(app.ports.notices.back(), "The drawing batch program left no drawing: " + drawing);
}

TEST_F(RunAfterSave, ANameWithoutADotCannotBeRun) {
    app->setDialogFileName((dir / "nodot").string());
    app->setCurrentFile((dir / "nodot").string());
    runAfterSave(*app);
    EXPECT_TRUE(app.ports.engineCalls.empty());
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
}

std::string contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A project named like one of its own outputs (p.ebntc, p.ebent, ...) would
// be emptied and overwritten with a listing: Run stops before anything is
// emptied and says why.
TEST_F(RunAfterSave, AnOutputThatIsTheProjectItselfIsRefusedBeforeAnyIsEmptied) {
    for (const char* name : {"p.ebntc", "q.ebent", "r.equan"}) {
        app.ports.messages.clear();
        const std::string in = input(name);
        const std::string other = (dir / name).replace_extension(".egen").string();
        std::ofstream(other) << "results";
        runAfterSave(*app);
        EXPECT_TRUE(app.ports.engineCalls.empty()) << name;
        EXPECT_EQ(contents(in), "input") << name;
        EXPECT_EQ(contents(other), "results") << name;
        ASSERT_EQ(app.ports.messages.size(), 1u);
        EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
        EXPECT_NE(app.ports.messages[0].text.find("is the project itself (" + in + "), which Run reads"),
                  std::string::npos)
            << app.ports.messages[0].text;
    }
}

// The name cut at the folder's dot sends the outputs to the parent folder,
// where another project's files may lie: they are put aside before Run
// empties them, and the status bar says where the outputs went.
TEST_F(RunAfterSave, OutputsOutsideTheProjectsFolderPutAsideWhatWasThere) {
    input("proj.v2/bridge.ebnt");
    const std::string base = (dir / "proj").string();
    std::ofstream(base + ".ebent") << "another project's bent listing";
    std::ofstream(base + "e.sif") << "another project's drawing script";
    runAfterSave(*app);
    ASSERT_EQ(app.ports.engineCalls.size(), 1u);
    EXPECT_EQ(app.ports.filesPutAside,
              (std::vector<std::pair<std::string, std::string>>{{base + "e.sif", "another project's drawing script"},
                                                                {base + ".ebent", "another project's bent listing"}}));
    ASSERT_FALSE(app.ports.notices.empty());
    EXPECT_EQ(app.ports.notices.back(), "The engine's outputs are in " + dir.string() +
                                            ", where the project's name is cut at its first \".\"; the files there "
                                            "before were put aside in /put-aside/outputs");

    // A copy that cannot be made stops Run before anything is emptied.
    app.ports.engineCalls.clear();
    app.ports.messages.clear();
    std::ofstream(base + ".ebent") << "listing again";
    app.ports.putAsideFault = "the disk is full";
    runAfterSave(*app);
    EXPECT_TRUE(app.ports.engineCalls.empty());
    EXPECT_EQ(contents(base + ".ebent"), "listing again");
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_NE(app.ports.messages[0].text.find("could not be put aside before Run empties it (the disk is full); no "
                                              "output was emptied"),
              std::string::npos)
        << app.ports.messages[0].text;
}

// The engine takes names without their padding blanks: "bridge.ebnt " would
// compute the "bridge.ebnt" beside it.
TEST_F(RunAfterSave, AProjectNameEndingInABlankIsRefused) {
    std::ofstream(dir / "bridge.ebnt") << "the other project";
    std::ofstream(dir / "bridge.ebntc") << "its listing";
    input("bridge.ebnt ");
    runAfterSave(*app);
    EXPECT_TRUE(app.ports.engineCalls.empty());
    EXPECT_EQ(contents((dir / "bridge.ebntc").string()), "its listing");
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_NE(app.ports.messages[0].text.find("ends in a blank; the engine reads names without their trailing blanks "
                                              "and would compute \"" +
                                              (dir / "bridge.ebnt").string() + "\" instead"),
              std::string::npos)
        << app.ports.messages[0].text;
}

} // namespace
} // namespace tw
