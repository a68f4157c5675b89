// SPDX-License-Identifier: Apache-2.0
// What a replay takes as its script, and which lines it refuses: only a
// regular file or standard input, lines of a bounded length, every line
// carried out whole or not at all; standard input is played live.
#include "RunTarnwick.h"

#include "cli/QuietProject.h"
#include "cli/Replay.h"
#include "cli/ScriptReader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <sys/stat.h>

namespace tw {
namespace {

namespace fs = std::filesystem;

// A replay of `script` against the form alone; its status, output and errors.
struct Played {
    int status;
    std::string out, err;
};
Played play(const std::string& script) {
    std::ostringstream out, err;
    ReplayPorts ports(out, "/nonexistent");
    QuietFilePorts quiet;
    ReplaySystem system(out, quiet);
    App app(ports, system, "/nonexistent");
    app.loadMainForm();
    Replay replay(app, ports, out, err);
    std::istringstream in(script);
    const int status = replay.run(in);
    return {status, out.str(), err.str()};
}

TEST(ReplayLines, EveryLineThatCannotBeCarriedOutWholeEndsTheReplay) {
    const char* refused[] = {
        "toolbar NoSuchKey",
        "toolbar Run Print",
        "grid extra args",
        "focus now",
        "counter 1",
        "register x",
        "setting LastTime",
        "leave txtCapWidth txtCapDepth",
        "click mnuNew mnuOpen",
        "dblclick picViewImage twice",
        "tab 1 2",
        "select 0 0 0",
        "answer Yes No",
        "printer ok ok",
        "show txtCapWidth txtCapDepth",
        "state txtCapWidth x",
    };
    for (const char* line : refused) {
        const Played p = play(std::string("show txtCapWidth\n") + line + "\nshow txtCapWidth\n");
        EXPECT_EQ(p.status, 2) << line;
        EXPECT_EQ(p.out, "txtCapWidth = \"3.0000\"\n") << line;
        EXPECT_EQ(p.err.rfind("replay: line 2: ", 0), 0u) << line << ": " << p.err;
    }
    // What the verbs do take still works.
    EXPECT_EQ(play("toolbar \"New\"\nselect 0 0\ntype txtProjectInfo(0) two words\nfile a b.ebnt\n").status, 0);
}

// A script from elsewhere may hold a terminal's control sequences: the error
// line shows them as escapes, never as commands to the terminal it lands on.
TEST(ReplayLines, AnErrorLineShowsTheScriptsControlCharactersAsEscapes) {
    const std::pair<std::string, std::string> cases[] = {
        {"\x1b[2J\x1b]0;owned\x07", "unknown verb \\x1B[2J\\x1B]0;owned\\x07"},
        {"choose cboNoBeam \"\x1b[31mred\"", "no item \"\\x1B[31mred\" in cboNoBeam"},
        // The one-byte and the UTF-8 form of a C1 control, a DEL, and letters that stay.
        {"show \x9b"
         "6n\xc2\x9b"
         "6n\x7f\xc3\xa4",
         "unknown control \\x9B"
         "6n\\xC2\\x9B"
         "6n\\x7F\xc3\xa4"},
    };
    for (const auto& [line, said] : cases) {
        const Played p = play(line + "\n");
        EXPECT_EQ(p.status, 2) << said;
        EXPECT_EQ(p.err, "replay: line 1: " + said + "\n");
    }
}

TEST(ReplayLines, ALineLongerThan64KiBIsRefusedWithItsNumber) {
    const std::string longest(kMaxScriptLine, 'x');
    Played p = play("show txtCapWidth\n" + longest + "\n");
    EXPECT_EQ(p.status, 2);
    EXPECT_EQ(p.err, "replay: line 2: unknown verb " + longest + "\n");
    p = play("show txtCapWidth\r\n# " + longest + "\nshow txtCapWidth\n");
    EXPECT_EQ(p.status, 2);
    EXPECT_EQ(p.out, "txtCapWidth = \"3.0000\"\n");
    EXPECT_EQ(p.err, "replay: line 2: the line is longer than 64 KiB\n");
    // The last line needs no line break.
    EXPECT_EQ(play("show txtCapWidth").out, "txtCapWidth = \"3.0000\"\n");
}

class ReplayScript : public ::testing::Test {
  protected:
    fs::path dir = test::freshFolder("tarnwick-script-");
    void TearDown() override { fs::remove_all(dir); }
};

// Nothing is read that is not a script file, and nothing waits for one that never comes.
TEST_F(ReplayScript, OnlyARegularFileOrStandardInputIsRead) {
    fs::create_directories(dir / "folder");
    ASSERT_EQ(mkfifo((dir / "pipe").c_str(), 0600), 0);
    const std::pair<std::string, std::string> refused[] = {
        {"/dev/zero", "it is not a file but a device, a pipe or a socket (\"-\" reads standard input)"},
        {"pipe", "it is not a file but a device, a pipe or a socket (\"-\" reads standard input)"},
        {"folder", "it is a folder, not a script"},
        {"missing.txt", "No such file or directory"},
    };
    for (const auto& [script, why] : refused) {
        const test::Ran ran = test::runTarnwick({"replay", script}, dir);
        EXPECT_EQ(ran.status, 2) << script;
        EXPECT_EQ(ran.out, "") << script;
        EXPECT_EQ(ran.err, "replay: cannot read " + script + ": " + why + "\n");
    }
    std::ofstream(dir / "long.txt") << "show txtCapWidth\n" << std::string(200000, 'x');
    const test::Ran ran = test::runTarnwick({"replay", "long.txt"}, dir);
    EXPECT_EQ(ran.status, 2);
    EXPECT_EQ(ran.out, "txtCapWidth = \"3.0000\"\n");
    EXPECT_EQ(ran.err, "replay: line 2: the line is longer than 64 KiB\n");
}

// Another program drives the form: each line's answer comes before the next line is sent.
TEST_F(ReplayScript, StandardInputIsPlayedLineByLineAsItArrives) {
    test::LiveReplay live(dir);
    live.send("show txtCapWidth\n");
    EXPECT_EQ(live.answer(), "txtCapWidth = \"3.0000\"\n");
    live.send("paste txtCapWidth 4.5\nshow txtCapWidth\n");
    EXPECT_EQ(live.answer(), "txtCapWidth = \"4.5\"\n");
    live.send("counter\n");
    EXPECT_EQ(live.answer(), "counter = 0\n");
    EXPECT_EQ(live.end(), 0);
}

} // namespace
} // namespace tw
