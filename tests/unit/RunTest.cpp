// Run after the save: names, emptied outputs, the engine call, the batch
// program and the final word, with the outside world faked.
#include "FakePorts.h"

#include "core/run/Run.h"

#include <gtest/gtest.h>

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
        app->dialogFileName = app->currentFile = p.string();
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
    app.ports.engineResult = {false, 51, "Internal error: the engine stopped unexpectedly"};
    runAfterSave(*app);
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
    EXPECT_NE(app.ports.messages[0].text.find("\t51\r\n"), std::string::npos);
    EXPECT_EQ(fs::file_size(base + ".egen"), 0u);
    EXPECT_TRUE(app.ports.started.empty()) << "no batch program after a failed engine";
    EXPECT_EQ(app.ports.log.back(), "default");

    // An empty batch setting fails only after the engine has run.
    app.ports.messages.clear();
    app.ports.engineResult = {true, 0, {}};
    app.ports.processResult = {false, 0, false, "no program"};
    runAfterSave(*app);
    EXPECT_EQ(app.ports.engineCalls.size(), 2u);
    ASSERT_EQ(app.ports.started.size(), 1u);
    EXPECT_EQ(app.ports.started[0].substr(0, 2), " \"");
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
}

TEST_F(RunAfterSave, ANameWithoutADotCannotBeRun) {
    app->dialogFileName = app->currentFile = (dir / "nodot").string();
    runAfterSave(*app);
    EXPECT_TRUE(app.ports.engineCalls.empty());
    ASSERT_EQ(app.ports.messages.size(), 1u);
    EXPECT_EQ(app.ports.messages[0].title, "Error Importing Input File");
}

} // namespace
} // namespace tw
