// SPDX-License-Identifier: Apache-2.0
#include "platform/OutputFiles.h"

#include "core/Errors.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

namespace {

// What a file is, when it is not a plain file of its own; nothing when it is.
std::optional<std::string> notPlain(const std::string& path, const struct stat& st) {
    if (S_ISLNK(st.st_mode)) {
        char target[PATH_MAX];
        const ssize_t n = ::readlink(path.c_str(), target, sizeof target);
        return "a symbolic link" + (n > 0 ? " to " + std::string(target, static_cast<size_t>(n)) : std::string());
    }
    if (S_ISDIR(st.st_mode)) return std::string("a folder");
    if (S_ISFIFO(st.st_mode)) return std::string("a pipe");
    if (S_ISCHR(st.st_mode) || S_ISBLK(st.st_mode)) return std::string("a device");
    if (S_ISSOCK(st.st_mode)) return std::string("a socket");
    if (!S_ISREG(st.st_mode)) return std::string("not a plain file");
    if (st.st_nlink > 1) return "a file with " + std::to_string(st.st_nlink - 1) + " other name(s) (hard links)";
    return std::nullopt;
}

WriteResult refused(const std::string& path, const std::string& what, const char* outcome) {
    return {err::kFileAccess, "Path/File access error: the output " + path + " is " + what +
                                  "; Run empties and writes only plain files of their own, so " + outcome};
}

WriteResult cannotWrite(const std::string& path, int e) {
    const bool denied = e == EACCES || e == EPERM || e == EROFS;
    return {denied ? err::kPermissionDenied : err::kFileAccess,
            std::string(denied ? "Permission denied" : "Path/File access error") + ": cannot write " + path + " (" +
                std::strerror(e) + ")"};
}

} // namespace

WriteResult emptyOutputFiles(const std::vector<std::string>& paths) {
    for (const auto& path : paths) {
        struct stat st {};
        if (::lstat(path.c_str(), &st) != 0) continue; // made below, or its failure told there
        if (const auto what = notPlain(path, st)) return refused(path, *what, "no output was emptied");
    }
    for (const auto& path : paths) {
        // Not through a link, and never waiting for a reader of a pipe; the
        // file is looked at once more as opened, in case it changed meanwhile.
        const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
        if (fd < 0) {
            const int e = errno;
            struct stat st {};
            if (::lstat(path.c_str(), &st) == 0)
                if (const auto what = notPlain(path, st)) return refused(path, *what, "it was left as it is");
            return cannotWrite(path, e);
        }
        struct stat st {};
        const auto what = ::fstat(fd, &st) == 0 ? notPlain(path, st) : std::optional<std::string>("not readable");
        const bool emptied = !what && ::ftruncate(fd, 0) == 0;
        const int e = errno;
        ::close(fd);
        if (what) return refused(path, *what, "it was left as it is");
        if (!emptied) return cannotWrite(path, e);
    }
    return {};
}

} // namespace tw
