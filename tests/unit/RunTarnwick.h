// SPDX-License-Identifier: Apache-2.0
// The real executable, run to its end in a folder of the test's own.
#pragma once

#include "TestFiles.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tw::test {

// In a forked child: becomes the program args[0] with its arguments; 127 when it cannot.
[[noreturn]] inline void execArgs(std::vector<std::string>& args) {
    std::vector<char*> argv;
    for (auto& a : args)
        argv.push_back(a.data());
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
}

struct Ran {
    int status = -1; // the exit status; 128 + N for signal N; -1 when it had to be ended
    std::string out, err;
};

// tarnwick ARGS in `dir` with `input` on its standard input. One that has
// not ended after `limit` is ended: a bound against hanging, not a measure.
inline Ran runTarnwick(std::vector<std::string> args, const std::filesystem::path& dir, const std::string& input = {},
                       std::chrono::seconds limit = std::chrono::seconds(60)) {
    args.insert(args.begin(), TW_TARNWICK_EXE);
    const auto outFile = dir / "stdout.txt", errFile = dir / "stderr.txt";
    int in[2];
    if (pipe(in) != 0) return {};
    const pid_t pid = fork();
    if (pid == 0) {
        close(in[1]);
        const int out = open(outFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int err = open(errFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (chdir(dir.c_str()) != 0 || out < 0 || err < 0) _exit(126);
        dup2(in[0], 0);
        dup2(out, 1);
        dup2(err, 2);
        execArgs(args);
    }
    close(in[0]);
    signal(SIGPIPE, SIG_IGN);
    for (size_t done = 0; done < input.size();) {
        const ssize_t n = write(in[1], input.data() + done, input.size() - done);
        if (n <= 0) break;
        done += static_cast<size_t>(n);
    }
    close(in[1]);
    Ran ran;
    int status = 0;
    for (auto end = std::chrono::steady_clock::now() + limit; waitpid(pid, &status, WNOHANG) == 0;) {
        if (std::chrono::steady_clock::now() > end) {
            kill(pid, SIGKILL);
            waitpid(pid, &status, 0);
            status = -1;
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    ran.status = status == -1 ? -1 : WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    ran.out = slurp(outFile);
    ran.err = slurp(errFile);
    return ran;
}

// `tarnwick replay -` in `dir`, driven line by line as another program would.
class LiveReplay {
  public:
    // `errors`: a file that takes its standard error.
    explicit LiveReplay(const std::filesystem::path& dir, const std::filesystem::path& errors = {}) {
        int in[2], out[2];
        if (pipe(in) != 0 || pipe(out) != 0) return;
        pid_ = fork();
        if (pid_ == 0) {
            dup2(in[0], 0);
            dup2(out[1], 1);
            if (!errors.empty()) {
                const int err = open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
                if (err >= 0) dup2(err, 2);
            }
            close(in[1]);
            close(out[0]);
            if (chdir(dir.c_str()) != 0) _exit(126);
            execl(TW_TARNWICK_EXE, TW_TARNWICK_EXE, "replay", "-", nullptr);
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        in_ = in[1];
        out_ = out[0];
    }
    ~LiveReplay() { end(); }
    void send(const std::string& lines) {
        if (write(in_, lines.data(), lines.size()) != ssize_t(lines.size())) ADD_FAILURE() << "not sent: " << lines;
    }
    // One line of output, waiting at most 20 seconds for it (a bound against hanging).
    std::string answer() {
        std::string line;
        for (char c = 0; c != '\n';) {
            pollfd p{out_, POLLIN, 0};
            if (poll(&p, 1, 20000) != 1 || read(out_, &c, 1) != 1) return line + "<no answer>";
            line += c;
        }
        return line;
    }
    // Ends the script; the exit status.
    int end() {
        if (pid_ <= 0) return -1;
        close(in_);
        int status = 0;
        waitpid(pid_, &status, 0);
        close(out_);
        pid_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

  private:
    pid_t pid_ = -1;
    int in_ = -1, out_ = -1;
};

} // namespace tw::test
