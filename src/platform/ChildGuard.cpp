// SPDX-License-Identifier: Apache-2.0
#include "platform/ChildGuard.h"
#include "platform/ProcessTree.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <mutex>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tw::childguard {

namespace {

constexpr int kMaxGroups = 256;
std::atomic<pid_t> guardPid{0};

void closeAllBut(int keep) {
#ifdef SYS_close_range
    if (keep > 3) ::syscall(SYS_close_range, 3U, static_cast<unsigned>(keep - 1), 0U);
    if (::syscall(SYS_close_range, static_cast<unsigned>(keep + 1), UINT_MAX, 0U) == 0) return;
#endif
    const long limit = ::sysconf(_SC_OPEN_MAX);
    for (int fd = 3; fd < (limit > 0 ? limit : 1024); ++fd)
        if (fd != keep) ::close(fd);
}

bool readWord(int fd, std::int32_t& word) {
    auto* p = reinterpret_cast<char*>(&word);
    size_t got = 0;
    while (got < sizeof word) {
        const ssize_t n = ::read(fd, p + got, sizeof word - got);
        if (n > 0)
            got += static_cast<size_t>(n);
        else if (n < 0 && errno == EINTR)
            continue;
        else
            return false;
    }
    return true;
}

// The guard itself: only calls that are safe after a fork of a threaded process.
[[noreturn]] void guard(int in, pid_t owner) {
    // Out of our process group, so that Ctrl+C in a terminal does not end the guard before it has done its work.
    ::setpgid(0, 0);
    // Nor may it hold our output open: whoever reads it waits for its end.
    const int null = ::open("/dev/null", O_RDWR);
    for (int fd = 0; fd < 3 && null >= 0; ++fd)
        ::dup2(null, fd);
    closeAllBut(in);
    std::array<pid_t, kMaxGroups> groups{};
    int n = 0;
    std::int32_t word = 0;
    while (readWord(in, word)) {
        if (word > 0 && n < kMaxGroups) {
            groups[n++] = word;
        } else if (word < 0) {
            for (int i = 0; i < n; ++i)
                if (groups[i] == -word) groups[i] = groups[--n];
        }
    }
    for (int i = 0; i < n; ++i)
        ::kill(-groups[i], SIGKILL);
    // And what they started that left their groups: every process marked as started by the owner.
    char prefix[24];
    int length = 0;
    char digits[16];
    int d = 0;
    for (unsigned v = static_cast<unsigned>(owner); v || !d; v /= 10)
        digits[d++] = static_cast<char>('0' + v % 10);
    while (d)
        prefix[length++] = digits[--d];
    prefix[length++] = '-';
    prefix[length] = 0;
    processtree::endTree(0, prefix, false);
    ::_exit(0);
}

int startGuard() {
    // A socket rather than a pipe: a send to a guard that is gone must not end us with SIGPIPE.
    int fds[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, fds) != 0) return -1;
    const pid_t owner = ::getpid();
    const pid_t pid = ::fork();
    if (pid == 0) guard(fds[0], owner);
    ::close(fds[0]);
    if (pid > 0) guardPid = pid;
    if (pid < 0) {
        ::close(fds[1]);
        return -1;
    }
    return fds[1];
}

void tell(std::int32_t word) {
    static std::once_flag once;
    static int out = -1;
    std::call_once(once, [] { out = startGuard(); });
    if (out < 0) return;
    while (::send(out, &word, sizeof word, MSG_NOSIGNAL) < 0 && errno == EINTR) {
    }
}

} // namespace

void watch(pid_t group) {
    if (group > 0) tell(static_cast<std::int32_t>(group));
}

void release(pid_t group) {
    if (group > 0) tell(-static_cast<std::int32_t>(group));
}

pid_t guardProcess() { return guardPid; }

} // namespace tw::childguard
