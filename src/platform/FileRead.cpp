// SPDX-License-Identifier: Apache-2.0
#include "platform/FileRead.h"

#include "core/Errors.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace tw {

namespace {

ReadResult refused(int number, const std::string& why) { return {{}, number, why}; }

} // namespace

ReadResult readRegularFile(const std::string& path, std::uintmax_t maxBytes) {
    namespace fs = std::filesystem;
    std::error_code ec;
    const fs::file_status st = fs::status(path, ec);
    if (st.type() == fs::file_type::not_found) return refused(err::kFileNotFound, "File not found: " + path);
    if (ec)
        return refused(err::kFileAccess, "Path/File access error: cannot reach " + path + " (" + ec.message() + ")");
    if (fs::is_directory(st)) return refused(err::kFileAccess, "Path/File access error: " + path + " is a folder");
    // A device, a pipe or a socket may never end or never answer.
    if (!fs::is_regular_file(st))
        return refused(err::kFileAccess,
                       "Path/File access error: " + path + " is not a file but a device, a pipe or a socket");
    const auto tooLarge = [&] {
        return refused(err::kFileAccess, "Path/File access error: " + path + " is larger than an input file can be (" +
                                             std::to_string(maxBytes / 1024) + " KiB)");
    };
    if (const auto size = fs::file_size(path, ec); !ec && size > maxBytes) return tooLarge();

    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        if (errno == EACCES) return refused(err::kPermissionDenied, "Permission denied: cannot read " + path);
        return refused(err::kFileAccess, "Path/File access error: cannot open " + path +
                                             (errno ? std::string(" (") + std::strerror(errno) + ")" : ""));
    }
    // Read in pieces: some files tell no size (those under /proc), and a read
    // error must end here as an error, not as an exception of the stream.
    ReadResult r;
    char buffer[65536];
    while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
        r.bytes.append(buffer, static_cast<size_t>(in.gcount()));
        if (r.bytes.size() > maxBytes) return tooLarge();
    }
    if (in.bad()) return refused(err::kDeviceIo, "Device I/O error: " + path + " could not be read to its end");
    return r;
}

} // namespace tw
