// SPDX-License-Identifier: Apache-2.0
#include "platform/SafeFile.h"

#include "core/Errors.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace tw {

namespace {

constexpr int kMaxLinks = 40; // as the kernel allows in one path
constexpr int kFreshSeconds = 2;

WriteResult failure(int number, const std::string& description) { return {number, description}; }

std::string folderOf(const std::string& path) {
    const auto slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

// The file a chain of symbolic links ends at (the path itself when it is none).
std::string linkTarget(const std::string& path) {
    std::string target = path;
    for (int hops = 0; hops < kMaxLinks; ++hops) {
        struct stat st {};
        if (::lstat(target.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) break;
        char buf[PATH_MAX];
        const ssize_t n = ::readlink(target.c_str(), buf, sizeof buf);
        if (n <= 0) break;
        const std::string link(buf, static_cast<size_t>(n));
        target = link.front() == '/' ? link : folderOf(target) + "/" + link;
    }
    return target;
}

// The mode a new file gets: the user's umask applied to rw-rw-rw-. Read
// from /proc, since setting the mask to read it is not safe beside threads.
mode_t newFileMode() {
    mode_t mask = 022;
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("Umask:", 0) == 0) mask = static_cast<mode_t>(std::strtoul(line.c_str() + 6, nullptr, 8));
    return 0666 & ~mask;
}

FileWrites::Write writeCall = ::pwrite;
FileWrites::Flush flushCall = ::fsync;

// From the start of the file, then flushed to the disk.
bool writeAll(int fd, const std::string& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = writeCall(fd, bytes.data() + done, bytes.size() - done, static_cast<off_t>(done));
        if (n < 0 && errno == EINTR) continue;
        if (n == 0) errno = ENOSPC;
        if (n <= 0) return false;
        done += static_cast<size_t>(n);
    }
    return flushCall(fd) == 0 || errno == EINVAL;
}

std::string reason(int e) { return std::strerror(e); }

// What was there before stays, and the words say what that was.
WriteResult notWritten(const std::string& path, int e, bool existed) {
    const std::string left = existed ? "the previous file was left as it was" : "no file was made";
    if (e == ENOSPC || e == EDQUOT)
        return failure(err::kDiskFull, "Disk full: " + path + " could not be written (" + reason(e) + "); " + left);
    return failure(err::kDeviceIo, "Device I/O error while writing " + path + " (" + reason(e) + "); " + left);
}

bool readAll(int fd, std::string& bytes) {
    bytes.clear();
    char buf[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buf, sizeof buf);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) return true;
        bytes.append(buf, static_cast<size_t>(n));
    }
}

std::string fileName(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// A copy of the previous bytes on disk, where the user can find it: beside
// the file when its folder can be written, else in the user's cache folder.
// Empty when neither can take it; the bytes are still kept in memory then.
std::string keepCopy(const std::string& folder, const std::string& target, const std::string& old) {
    std::vector<std::string> places = {folder};
    if (const char* cache = std::getenv("XDG_CACHE_HOME"); cache && *cache)
        places.push_back(cache);
    else if (const char* home = std::getenv("HOME"); home && *home)
        places.push_back(std::string(home) + "/.cache");
    places.push_back("/tmp");
    for (const auto& place : places) {
        std::string copy = place + "/" + fileName(target) + ".before-save-XXXXXX";
        const int fd = ::mkostemp(copy.data(), O_CLOEXEC);
        if (fd < 0) continue;
        const bool ok = ::fchmod(fd, 0600) == 0 && writeAll(fd, old);
        ::close(fd);
        if (ok) return copy;
        ::unlink(copy.c_str());
    }
    return {};
}

// Gives `fd` every extended attribute of the file at `from`, its access
// control list among them; false when one of them cannot be given.
bool copyAttributes(const std::string& from, int fd) {
    std::vector<char> names(4096);
    ssize_t size = ::listxattr(from.c_str(), names.data(), names.size());
    if (size < 0 && errno == ERANGE) {
        names.resize(static_cast<size_t>(std::max<ssize_t>(::listxattr(from.c_str(), nullptr, 0), 0)) + 4096);
        size = ::listxattr(from.c_str(), names.data(), names.size());
    }
    if (size < 0) return errno == ENOTSUP; // a file system without them has none to keep
    std::vector<char> value;
    for (ssize_t i = 0; i < size; i += static_cast<ssize_t>(std::strlen(names.data() + i)) + 1) {
        const char* name = names.data() + i;
        const ssize_t length = ::getxattr(from.c_str(), name, nullptr, 0);
        if (length < 0) return false;
        value.resize(static_cast<size_t>(length) + 1);
        const ssize_t got = ::getxattr(from.c_str(), name, value.data(), value.size());
        if (got < 0 || ::fsetxattr(fd, name, value.data(), static_cast<size_t>(got), 0) != 0) return false;
    }
    return true;
}

// Over the old bytes, keeping the file itself (its owner, mode, links). The
// previous bytes stay in memory and in a copy on disk until the new ones are
// on the disk, and go back into the file when the write fails.
WriteResult writeInPlace(const std::string& path, const std::string& target, const std::string& bytes, mode_t mode) {
    const int fd = ::open(target.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY);
    if (fd < 0)
        return failure(err::kPermissionDenied, "Permission denied: cannot write " + path + " (" + reason(errno) + ")");
    if (mode) ::fchmod(fd, mode); // first: the new bytes may be private
    std::string old;
    if (!readAll(fd, old)) {
        const int e = errno;
        ::close(fd);
        return failure(err::kDeviceIo, "Device I/O error: " + path + " could not be read before it was written over (" +
                                           reason(e) + "); it was left as it was");
    }
    const std::string copy = keepCopy(folderOf(target), target, old);
    if (writeAll(fd, bytes) && ::ftruncate(fd, static_cast<off_t>(bytes.size())) == 0 &&
        (flushCall(fd) == 0 || errno == EINVAL)) {
        ::close(fd);
        if (!copy.empty()) ::unlink(copy.c_str());
        return {};
    }
    const int e = errno;
    const bool restored = writeAll(fd, old) && ::ftruncate(fd, static_cast<off_t>(old.size())) == 0 &&
                          (flushCall(fd) == 0 || errno == EINVAL);
    ::close(fd);
    const bool full = e == ENOSPC || e == EDQUOT;
    const int number = full ? err::kDiskFull : err::kDeviceIo;
    const std::string what = full ? "Disk full: " : "Device I/O error: ";
    const std::string failed = what + path + " could not be written over (" + reason(e) + ")";
    if (restored) {
        if (!copy.empty()) ::unlink(copy.c_str());
        return failure(number, failed + "; its previous bytes were put back, so it is as it was before the save");
    }
    return failure(number, failed + " and its previous bytes could not be put back, so it is left half-written; " +
                               (copy.empty() ? std::string("no copy of the previous file could be kept")
                                             : "a copy of the previous file is at " + copy));
}

// The temporary file of a save: a name no user gives a file, and the six characters mkostemp puts in.
constexpr char kTemporaryPrefix[] = ".tarnwick-save-";
constexpr size_t kTemporaryPrefixLength = sizeof kTemporaryPrefix - 1;

bool temporaryName(const char* name) {
    if (std::strncmp(name, kTemporaryPrefix, kTemporaryPrefixLength) != 0 ||
        std::strlen(name) != kTemporaryPrefixLength + 6)
        return false;
    for (const char* c = name + kTemporaryPrefixLength; *c; ++c)
        if (!std::isalnum(static_cast<unsigned char>(*c))) return false;
    return true;
}

} // namespace

void removeStaleTemporaries(const std::string& folder) {
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) return;
    const int dfd = ::dirfd(dir);
    const time_t now = ::time(nullptr);
    while (const dirent* e = ::readdir(dir)) {
        if (!temporaryName(e->d_name)) continue;
        const int fd = ::openat(dfd, e->d_name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
        if (fd < 0) continue;
        struct stat st {};
        // Ours: a plain file of this user's, not locked by a save under way, and not
        // one a save has only just made (it takes the lock right after).
        if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && st.st_uid == ::geteuid() &&
            now - st.st_mtime >= kFreshSeconds && ::flock(fd, LOCK_EX | LOCK_NB) == 0)
            ::unlinkat(dfd, e->d_name, 0);
        ::close(fd);
    }
    ::closedir(dir);
}

void FileWrites::use(Write write, Flush flush) {
    writeCall = write ? write : ::pwrite;
    flushCall = flush ? flush : ::fsync;
}

namespace {

// What a save on condition expects the file to hold.
struct Expected {
    const std::string& bytes;
    std::uintmax_t maxBytes;
};

// An exclusive lock on the file a name leads to, held until it goes out of
// scope. Taken again when the name was given another file (another save's
// rename) while this one waited. A lock of the open file description
// (F_OFD_SETLK), which the shared flock of an open project does not meet.
class SaveLock {
  public:
    SaveLock() = default;
    SaveLock(const SaveLock&) = delete;
    SaveLock& operator=(const SaveLock&) = delete;
    ~SaveLock() {
        if (fd_ >= 0) ::close(fd_);
    }
    int fd() const { return fd_; }

    // Empty once held, with `st` the locked file's; else why not.
    std::string take(const std::string& target, struct stat& st) {
        constexpr int kWaitMs = 5000, kStepMs = 10;
        for (int waited = 0; waited < kWaitMs;) {
            fd_ = ::open(target.c_str(), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
            if (fd_ < 0) return "it cannot be opened to be looked at (" + reason(errno) + ")";
            struct flock whole {};
            whole.l_type = F_WRLCK;
            whole.l_whence = SEEK_SET;
            bool locked = false;
            for (;;) {
                locked = ::fcntl(fd_, F_OFD_SETLK, &whole) == 0;
                // A file system without such locks: the save goes on as it did before them.
                if (locked || (errno != EAGAIN && errno != EACCES) || waited >= kWaitMs) break;
                ::usleep(kStepMs * 1000);
                waited += kStepMs;
            }
            struct stat held {
            }, named{};
            if ((locked || waited < kWaitMs) && ::fstat(fd_, &held) == 0 && ::stat(target.c_str(), &named) == 0 &&
                held.st_dev == named.st_dev && held.st_ino == named.st_ino) {
                st = held;
                return {};
            }
            ::close(fd_);
            fd_ = -1;
            waited += kStepMs; // a name given one new file after another ends the wait too
        }
        return "another save of it has held it for more than 5 seconds";
    }

  private:
    int fd_ = -1;
};

// Whether the locked file holds what the save expects.
bool holds(int fd, const struct stat& st, const Expected& expected) {
    if (static_cast<std::uintmax_t>(st.st_size) > expected.maxBytes) return false;
    std::string now;
    return readAll(fd, now) && now == expected.bytes;
}

// With a `mode`, the file has that one; else it keeps its own (a new one takes the umask's).
WriteResult replace(const std::string& path, const std::string& bytes, mode_t mode,
                    const Expected* expected = nullptr) {
    const std::string target = linkTarget(path);
    const std::string folder = folderOf(target);
    struct stat st {};
    const bool exists = ::stat(target.c_str(), &st) == 0;
    if (!exists && errno != ENOENT) {
        if (errno == ELOOP)
            return failure(err::kFileAccess, "Path/File access error: " + path +
                                                 " cannot be reached: a symbolic link on the way leads round in a "
                                                 "loop; nothing was saved");
        if (errno == ENAMETOOLONG)
            return failure(err::kFileAccess, "Path/File access error: the name " + path + " is too long");
        if (errno == EACCES)
            return failure(err::kPermissionDenied, "Permission denied: the folder " + folder + " cannot be reached");
        return failure(err::kPathNotFound, "Path not found: " + folder + " is not a folder that can hold " + path);
    }
    if (exists && S_ISDIR(st.st_mode))
        return failure(err::kFileAccess,
                       "Path/File access error: " + path + " is a folder, not a file; nothing was saved");
    if (exists && !S_ISREG(st.st_mode))
        return failure(err::kFileAccess, "Path/File access error: " + path +
                                             " is not a file but a device, a pipe or a socket; nothing was saved");
    if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
        return failure(err::kPermissionDenied,
                       "Permission denied: you may not write to " + path +
                           (errno == EROFS ? " (its file system is read-only)" : " (it is read-only for you)") +
                           "; it was left as it is");

    // From the look at the file to the rename, no other save of it comes between.
    SaveLock lock;
    if (exists && expected) {
        if (const std::string why = lock.take(target, st); !why.empty())
            return failure(err::kFileAccess,
                           "Path/File access error: " + path + " cannot be saved over: " + why + "; nothing was saved");
        if (!holds(lock.fd(), st, *expected)) return {0, {}, true};
    }

    // Other names of the file would keep the old bytes after a rename.
    if (exists && st.st_nlink > 1) return writeInPlace(path, target, bytes, mode);

    // What an interrupted save left here goes before this one adds its own.
    removeStaleTemporaries(folder);
    // Of its own length, whatever the name it stands in for.
    std::string temp = folder + "/" + kTemporaryPrefix + "XXXXXX";
    const int fd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (fd >= 0) ::flock(fd, LOCK_EX | LOCK_NB); // a save under way
    if (fd < 0) {
        const int e = errno;
        if (exists && (e == EACCES || e == EPERM || e == EROFS)) return writeInPlace(path, target, bytes, mode);
        if (e == ENOENT || e == ENOTDIR)
            return failure(err::kPathNotFound, "Path not found: the folder " + folder + " does not exist");
        if (e == EACCES || e == EPERM || e == EROFS)
            return failure(err::kPermissionDenied, "Permission denied: cannot create " + path + ", since the folder " +
                                                       folder + " cannot be written");
        return failure(err::kFileAccess, "Path/File access error: cannot write in " + folder + " (" + reason(e) + ")");
    }
    bool keepsOwner = true;
    if (exists) {
        struct stat mine {};
        ::fstat(fd, &mine);
        if ((mine.st_uid != st.st_uid || mine.st_gid != st.st_gid) && ::fchown(fd, st.st_uid, st.st_gid) != 0)
            keepsOwner = false;
    }
    if (!keepsOwner) {
        // Only the owner's own process may give a file away: keep the file and write over it.
        ::close(fd);
        ::unlink(temp.c_str());
        return writeInPlace(path, target, bytes, mode);
    }
    const mode_t kept = mode ? mode : exists ? (st.st_mode & 07777) : newFileMode();
    // Who may read and write it beyond its mode, and what the user attached to it, go with it; where
    // the user may not give the new file one of them, the file itself is kept and written over.
    if (::fchmod(fd, kept) != 0 || (exists && !mode && !copyAttributes(target, fd))) {
        ::close(fd);
        ::unlink(temp.c_str());
        if (exists) return writeInPlace(path, target, bytes, mode);
        return failure(err::kPermissionDenied, "Permission denied: cannot create " + path + " (" + reason(errno) + ")");
    }
    const bool written = writeAll(fd, bytes);
    const int writeError = errno;
    ::close(fd);
    if (!written) {
        ::unlink(temp.c_str());
        return notWritten(path, writeError, exists);
    }
    if (::rename(temp.c_str(), target.c_str()) != 0) {
        const int e = errno;
        ::unlink(temp.c_str());
        // A folder with the sticky bit lets only the owner replace a file.
        if (exists && (e == EACCES || e == EPERM)) return writeInPlace(path, target, bytes, mode);
        if (e == ENAMETOOLONG)
            return failure(err::kFileAccess, "Path/File access error: the name " + path + " is too long");
        return failure(err::kPermissionDenied, "Permission denied: cannot replace " + path + " (" + reason(e) + ")");
    }
    // The new name itself must survive a power cut too.
    if (const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return {};
}

} // namespace

WriteResult replaceFile(const std::string& path, const std::string& bytes) { return replace(path, bytes, 0); }

WriteResult replaceFileIfUnchanged(const std::string& path, const std::string& bytes, const std::string& expected,
                                   std::uintmax_t maxBytes) {
    const Expected e{expected, maxBytes};
    return replace(path, bytes, 0, &e);
}

WriteResult replacePrivateFile(const std::string& path, const std::string& bytes) { return replace(path, bytes, 0600); }

} // namespace tw
