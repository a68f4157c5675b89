// SPDX-License-Identifier: Apache-2.0
// Programs Run waits for end with tarnwick, however it ends, and a time
// limit ends one that hangs: the real executable, engines and batch
// programs that never end, and a look at the processes afterwards.
#include "RunTarnwick.h"
#include "TestFiles.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tw {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::slurp;

// A process that still runs (a zombie has ended; only its parent's wait is missing).
bool running(pid_t pid) {
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string line;
    if (!std::getline(stat, line)) return false;
    const auto close = line.rfind(')');
    return close != std::string::npos && close + 2 < line.size() && line[close + 2] != 'Z';
}

// Polls until `done` holds, for at most `limit`: a bound against hanging, not a measure.
template <class Done> bool eventually(Done done, std::chrono::seconds limit = 20s) {
    for (auto end = std::chrono::steady_clock::now() + limit; std::chrono::steady_clock::now() < end;) {
        if (done()) return true;
        std::this_thread::sleep_for(50ms);
    }
    return done();
}

class ProcessEnd : public ::testing::Test {
  protected:
    // No "." in the folder: Run cuts names at the first one.
    fs::path dir = test::freshFolder("tarnwick-end-");

    void SetUp() override {
        fs::copy_file(fs::path(TW_SOURCE_DIR) / "samples" / "intermediate.ebnt", dir / "bent.ebnt");
    }
    void TearDown() override { fs::remove_all(dir); }

    // tarnwick with `args`, its output in dir/out.txt and dir/err.txt.
    pid_t start(const std::string& engines, std::vector<std::string> args) {
        args.insert(args.begin(), {TW_TARNWICK_EXE, "--program-dir", std::string(TW_ENGINES_DIR) + "/" + engines});
        const pid_t pid = fork();
        if (pid == 0) {
            if (chdir(dir.c_str()) != 0) _exit(126);
            if (!freopen("out.txt", "w", stdout) || !freopen("err.txt", "w", stderr)) _exit(126);
            test::execArgs(args);
        }
        return pid;
    }
    static int wait(pid_t pid) {
        int status = 0;
        waitpid(pid, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    // The processes of the engine or batch program, once they have told their ids.
    std::vector<pid_t> programs(const std::string& pidsFile) {
        std::vector<pid_t> pids;
        eventually([&] { return fs::exists(dir / pidsFile) && fs::file_size(dir / pidsFile) > 0; });
        std::istringstream in(slurp(dir / pidsFile));
        for (pid_t p; in >> p;)
            pids.push_back(p);
        return pids;
    }
    void expectAllEnd(const std::vector<pid_t>& pids) {
        ASSERT_EQ(pids.size(), 2u) << "the program and the one it started";
        for (pid_t p : pids)
            EXPECT_TRUE(eventually([&] { return !running(p); })) << "process " << p << " still runs";
    }
};

// A hung batch program, and a hung engine, are ended at the time limit with
// everything they started; Run ends in its error box and the command fails.
TEST_F(ProcessEnd, TheTimeLimitEndsAHungProgramAndWhatItStarted) {
    struct Case {
        const char* engines;
        const char* pids;
        const char* said;
    } cases[] = {
        {"hang-batch", "bent.pids", "Timeout occurred: the drawing batch program was still running after 1 second"},
        {"hang", "bent.ebnt.pids", "Timeout occurred: the engine was still running after 1 second"},
        {"setsid-batch", "bent.pids", "Timeout occurred: the drawing batch program was still running after 1 second"},
        {"env-i-batch", "bent.pids", "Timeout occurred: the drawing batch program was still running after 1 second"},
    };
    for (const auto& c : cases) {
        fs::remove(dir / c.pids);
        const pid_t tarnwick = start(c.engines, {"run", "bent.ebnt", "--timeout", "1"});
        EXPECT_EQ(wait(tarnwick), 1) << c.engines;
        const std::string out = slurp(dir / "out.txt");
        EXPECT_NE(out.find("message \"Error Importing Input File\" \"Error Number:\\t286\\r\\nDescription:\\t" +
                           std::string(c.said)),
                  std::string::npos)
            << out;
        EXPECT_EQ(out.find("The program has finished running."), std::string::npos);
        expectAllEnd(programs(c.pids));
    }
}

// Killed outright, tarnwick cannot end anything itself: the programs end all the same.
TEST_F(ProcessEnd, AKillOfTarnwickEndsTheProgramsItWaitedFor) {
    std::ofstream(dir / "run.txt") << "file bent.ebnt\nclick mnuOpen\nanswer Yes\nclick mnuRun\n";
    for (const auto& [engines, pids] : {std::pair{"hang-batch", "bent.pids"}, std::pair{"hang", "bent.ebnt.pids"},
                                        std::pair{"setsid-batch", "bent.pids"}}) {
        fs::remove(dir / pids);
        const pid_t tarnwick = start(engines, {"replay", "run.txt"});
        const auto started = programs(pids);
        ASSERT_TRUE(running(tarnwick)) << slurp(dir / "err.txt");
        kill(tarnwick, SIGKILL);
        EXPECT_EQ(wait(tarnwick), 128 + SIGKILL);
        expectAllEnd(started);
    }
}

// A batch program that ends at once but leaves a program running in a
// session of its own: the run finishes as before, and the program ends
// with tarnwick.
// So does one that emptied its environment in a subshell that ended at once
// (`( env -i setsid sleep & )`): orphaned, it came to tarnwick, marked by nothing.
TEST_F(ProcessEnd, WhatABatchProgramLeftRunningEndsWithTarnwick) {
    for (const char* engines : {"setsid-leave", "env-i-leave"}) {
        fs::remove(dir / "bent.pids");
        const pid_t tarnwick = start(engines, {"run", "bent.ebnt"});
        EXPECT_EQ(wait(tarnwick), 0) << slurp(dir / "err.txt");
        EXPECT_NE(slurp(dir / "out.txt").find("The program has finished running."), std::string::npos);
        expectAllEnd(programs("bent.pids"));
    }
}

// A batch program that fails and draws nothing: the run finishes as before,
// and a warning on standard error says what is missing.
TEST_F(ProcessEnd, ABatchProgramThatDrewNothingIsAWarning) {
    const pid_t tarnwick = start("fail-batch", {"run", "bent.ebnt"});
    EXPECT_EQ(wait(tarnwick), 0);
    EXPECT_NE(slurp(dir / "out.txt").find("The program has finished running."), std::string::npos);
    EXPECT_EQ(slurp(dir / "err.txt"), "tarnwick: warning: The drawing batch program ended with exit status 1 and left "
                                      "no drawing: " +
                                          (dir / "bente.dgn").string() + "\n");
}

} // namespace
} // namespace tw
