// SPDX-License-Identifier: Apache-2.0
#include "platform/FileRead.h"

#include "core/Errors.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

namespace {

ReadResult refused(int number, const std::string& why) { return {{}, number, why}; }

std::string sizeText(std::uintmax_t bytes) {
    constexpr std::uintmax_t kMiB = 1024 * 1024;
    return bytes >= kMiB && bytes % kMiB == 0 ? std::to_string(bytes / kMiB) + " MiB"
                                              : std::to_string(bytes / 1024) + " KiB";
}

// What a file is when it is not a regular file: nothing when it is one.
ReadResult notRegular(const std::string& path, const struct stat& st) {
    if (S_ISDIR(st.st_mode)) return refused(err::kFileAccess, "Path/File access error: " + path + " is a folder");
    // A device, a pipe or a socket may never end or never answer.
    if (!S_ISREG(st.st_mode))
        return refused(err::kFileAccess,
                       "Path/File access error: " + path + " is not a file but a device, a pipe or a socket");
    return {};
}

} // namespace

ReadResult readRegularFile(const std::string& path, std::uintmax_t maxBytes) {
    const auto tooLarge = [&] {
        return refused(err::kFileAccess, "Path/File access error: " + path +
                                             " is larger than a file of its kind can be (" + sizeText(maxBytes) + ")");
    };
    // Looked at before it is opened, so that no device is opened at all; then
    // opened without waiting (a pipe put there meanwhile) and looked at again.
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) {
        const int e = errno;
        if (e == ENOENT) return refused(err::kFileNotFound, "File not found: " + path);
        if (e == EACCES) return refused(err::kPermissionDenied, "Permission denied: cannot reach " + path);
        return refused(err::kFileAccess,
                       "Path/File access error: cannot reach " + path + " (" + std::strerror(e) + ")");
    }
    if (ReadResult r = notRegular(path, st); r.errorNumber) return r;
    if (static_cast<std::uintmax_t>(st.st_size) > maxBytes) return tooLarge();

    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        const int e = errno;
        if (e == EACCES) return refused(err::kPermissionDenied, "Permission denied: cannot read " + path);
        if (e == ENOENT) return refused(err::kFileNotFound, "File not found: " + path);
        return refused(err::kFileAccess, "Path/File access error: cannot open " + path + " (" + std::strerror(e) + ")");
    }
    ReadResult r;
    if (::fstat(fd, &st) != 0 || (r = notRegular(path, st)).errorNumber) {
        ::close(fd);
        return r.errorNumber ? r : refused(err::kDeviceIo, "Device I/O error: " + path + " could not be read");
    }
    // Read in pieces: some files tell no size (those under /proc), and one may grow while it is read.
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) {
            ::close(fd);
            return refused(err::kDeviceIo, "Device I/O error: " + path + " could not be read to its end");
        }
        if (n == 0) break;
        r.bytes.append(buffer, static_cast<size_t>(n));
        if (r.bytes.size() > maxBytes) {
            ::close(fd);
            return tooLarge();
        }
    }
    ::close(fd);
    return r;
}

} // namespace tw
