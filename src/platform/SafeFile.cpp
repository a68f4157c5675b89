// SPDX-License-Identifier: Apache-2.0
#include "platform/SafeFile.h"

#include "core/Errors.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

namespace {

constexpr int kMaxLinks = 40; // as the kernel allows in one path

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

bool writeAll(int fd, const std::string& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += static_cast<size_t>(n);
    }
    return ::fsync(fd) == 0 || errno == EINVAL;
}

std::string reason(int e) { return std::strerror(e); }

WriteResult notWritten(const std::string& path, int e) {
    if (e == ENOSPC || e == EDQUOT)
        return failure(err::kDiskFull, "Disk full: " + path + " could not be written (" + reason(e) +
                                           "); the previous file was "
                                           "left as it was");
    return failure(err::kDeviceIo, "Device I/O error while writing " + path + " (" + reason(e) + ")");
}

// Over the old bytes, keeping the file itself (its owner, mode, links).
WriteResult writeInPlace(const std::string& path, const std::string& target, const std::string& bytes) {
    const int fd = ::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
    if (fd < 0)
        return failure(err::kPermissionDenied, "Permission denied: cannot write " + path + " (" + reason(errno) + ")");
    const bool ok = writeAll(fd, bytes) && ::ftruncate(fd, static_cast<off_t>(bytes.size())) == 0;
    const int e = errno;
    ::close(fd);
    return ok ? WriteResult{} : notWritten(path, e);
}

} // namespace

WriteResult replaceFile(const std::string& path, const std::string& bytes) {
    const std::string target = linkTarget(path);
    const std::string folder = folderOf(target);
    struct stat st {};
    const bool exists = ::stat(target.c_str(), &st) == 0;
    if (!exists && errno != ENOENT) {
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

    // Other names of the file would keep the old bytes after a rename.
    if (exists && st.st_nlink > 1) return writeInPlace(path, target, bytes);

    // Short, so that it fits beside any name the folder can hold.
    std::string temp = folder + "/.twXXXXXX";
    const int fd = ::mkostemp(temp.data(), O_CLOEXEC);
    if (fd < 0) {
        const int e = errno;
        if (exists && (e == EACCES || e == EPERM || e == EROFS)) return writeInPlace(path, target, bytes);
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
        return writeInPlace(path, target, bytes);
    }
    const bool written = ::fchmod(fd, exists ? (st.st_mode & 07777) : newFileMode()) == 0 && writeAll(fd, bytes);
    const int writeError = errno;
    ::close(fd);
    if (!written) {
        ::unlink(temp.c_str());
        return notWritten(path, writeError);
    }
    if (::rename(temp.c_str(), target.c_str()) != 0) {
        const int e = errno;
        ::unlink(temp.c_str());
        // A folder with the sticky bit lets only the owner replace a file.
        if (exists && (e == EACCES || e == EPERM)) return writeInPlace(path, target, bytes);
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

} // namespace tw
