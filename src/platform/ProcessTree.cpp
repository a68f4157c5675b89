// SPDX-License-Identifier: Apache-2.0
#include "platform/ProcessTree.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tw::processtree {

namespace {

constexpr int kMaxProcesses = 32768; // the default pid_max: a machine with more still gets its first ones
constexpr int kRounds = 200;         // of scan and kill; a process in uninterruptible sleep may take a few
constexpr size_t kMarkLength = sizeof kMarkName - 1;

struct Proc {
    pid_t pid;
    pid_t parent;
    bool take;
};

// Mapped for the call rather than taken from the heap: the guard runs this
// after a fork, with no allocator to trust.
struct Memory {
    Proc procs[kMaxProcesses];
    pid_t killed[kMaxProcesses];
    char text[256 * 1024];
};
Memory* mem = nullptr;

long readFile(const char* path, char* buf, size_t size) {
    const int fd = ::open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) return -1;
    size_t got = 0;
    while (got < size) {
        const ssize_t n = ::read(fd, buf + got, size - got);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        got += static_cast<size_t>(n);
    }
    ::close(fd);
    return static_cast<long>(got);
}

void procPath(char* out, pid_t pid, const char* leaf) {
    char digits[16];
    int n = 0;
    for (unsigned v = static_cast<unsigned>(pid); v || !n; v /= 10)
        digits[n++] = static_cast<char>('0' + v % 10);
    char* p = out;
    for (const char* s = "/proc/"; *s;)
        *p++ = *s++;
    while (n)
        *p++ = digits[--n];
    *p++ = '/';
    while (*leaf)
        *p++ = *leaf++;
    *p = 0;
}

// The parent of a process that still runs; 0 for one that has ended (a zombie) or is gone.
pid_t parentOf(pid_t pid) {
    char path[64];
    procPath(path, pid, "stat");
    const long n = readFile(path, mem->text, 1024);
    if (n <= 0) return 0;
    // The command name may hold anything, ")" too: the fields follow the last one.
    long close = n - 1;
    while (close >= 0 && mem->text[close] != ')')
        --close;
    if (close < 0 || close + 4 >= n || mem->text[close + 2] == 'Z' || mem->text[close + 2] == 'X') return 0;
    pid_t parent = 0;
    for (long i = close + 4; i < n && mem->text[i] >= '0' && mem->text[i] <= '9'; ++i)
        parent = parent * 10 + (mem->text[i] - '0');
    return parent;
}

bool marked(pid_t pid, const char* entry, size_t entryLength, bool whole) {
    char path[64];
    procPath(path, pid, "environ");
    const long n = readFile(path, mem->text, sizeof mem->text);
    for (long i = 0; i < n;) {
        const char* e = mem->text + i;
        const size_t length = ::strnlen(e, static_cast<size_t>(n - i));
        if (length >= entryLength && std::memcmp(e, entry, entryLength) == 0 && (!whole || length == entryLength))
            return true;
        i += static_cast<long>(length) + 1;
    }
    return false;
}

// One look at every process: those to end this round.
int scan(pid_t root, const char* entry, size_t entryLength, bool whole, bool orphans, pid_t spare) {
    const int dir = ::open("/proc", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir < 0) return 0;
    const pid_t self = ::getpid();
    int count = 0;
    alignas(8) char buf[8192];
    for (long n; (n = ::syscall(SYS_getdents64, dir, buf, sizeof buf)) > 0;) {
        for (long off = 0; off < n;) {
            const auto* d = reinterpret_cast<const struct dirent64*>(buf + off);
            off += d->d_reclen;
            pid_t pid = 0;
            const char* name = d->d_name;
            for (; *name >= '0' && *name <= '9'; ++name)
                pid = pid * 10 + (*name - '0');
            if (*name || pid <= 0 || pid == self || count == kMaxProcesses) continue;
            const pid_t parent = parentOf(pid);
            if (parent == 0) continue;
            const bool orphan =
                orphans && parent == self && pid != spare && !marked(pid, kMarkName, kMarkLength, false);
            mem->procs[count++] = {pid, parent, pid == root || orphan || marked(pid, entry, entryLength, whole)};
        }
    }
    ::close(dir);
    // Descendants of those taken, whatever their environment.
    for (bool more = true; more;) {
        more = false;
        for (int i = 0; i < count; ++i) {
            if (mem->procs[i].take) continue;
            for (int j = 0; j < count; ++j)
                if (mem->procs[j].take && mem->procs[j].pid == mem->procs[i].parent) {
                    mem->procs[i].take = more = true;
                    break;
                }
        }
    }
    int taken = 0;
    for (int i = 0; i < count; ++i)
        if (mem->procs[i].take) mem->procs[taken++] = mem->procs[i];
    return taken;
}

} // namespace

void adoptOrphans() { ::prctl(PR_SET_CHILD_SUBREAPER, 1); }

void endTree(pid_t root, const char* markValue, bool whole, bool orphans, pid_t spare) {
    char entry[128];
    size_t length = 0;
    for (const char* s = kMarkName; *s && length < sizeof entry - 2;)
        entry[length++] = *s++;
    entry[length++] = '=';
    for (const char* s = markValue; *s && length < sizeof entry - 1;)
        entry[length++] = *s++;
    entry[length] = 0;

    if (root > 0) ::kill(-root, SIGKILL);
    void* got = ::mmap(nullptr, sizeof(Memory), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (got == MAP_FAILED) return;
    mem = static_cast<Memory*>(got);
    int nKilled = 0;
    for (int round = 0; round < kRounds; ++round) {
        const int n = scan(root, entry, length, whole, orphans, spare);
        if (n == 0) break;
        for (int i = 0; i < n; ++i) {
            ::kill(mem->procs[i].pid, SIGKILL);
            bool known = false;
            for (int k = 0; k < nKilled && !known; ++k)
                known = mem->killed[k] == mem->procs[i].pid;
            if (!known && nKilled < kMaxProcesses) mem->killed[nKilled++] = mem->procs[i].pid;
        }
        const timespec pause{0, 5'000'000};
        ::nanosleep(&pause, nullptr);
    }
    // Orphans we adopted are ours to reap; the root is its owner's to wait for.
    for (int k = 0; k < nKilled; ++k)
        if (mem->killed[k] != root) ::waitpid(mem->killed[k], nullptr, WNOHANG);
    ::munmap(mem, sizeof(Memory));
    mem = nullptr;
}

} // namespace tw::processtree
