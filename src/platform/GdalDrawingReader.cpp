// SPDX-License-Identifier: Apache-2.0
#include "platform/GdalDrawingReader.h"

#include "platform/QtText.h"

#include <QLibrary>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace tw {

using drawing::DgnElement;

namespace {

// The signature of a compound document, the container of a version 8 drawing.
const std::string kCompoundFile("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8);

// The reader's entry; once loaded, the library stays (QLibrary does not unload it).
drawing::ReadDgnEntry* readerEntry(const std::string& programDir, std::string& why) {
    QLibrary library(q(programDir + "/" + drawing::kDrawingReaderLibrary));
    auto* entry = reinterpret_cast<drawing::ReadDgnEntry*>(library.resolve(drawing::kReadDgnEntry));
    if (!entry) why = library.errorString().toStdString();
    return entry;
}

std::string whatItIs(mode_t mode) {
    if (S_ISDIR(mode)) return "a folder";
    if (S_ISCHR(mode)) return "a character device";
    if (S_ISBLK(mode)) return "a block device";
    if (S_ISFIFO(mode)) return "a pipe";
    if (S_ISSOCK(mode)) return "a socket";
    return "not a plain file";
}

std::string mib(unsigned long long bytes) { return std::to_string(bytes >> 20) + " MiB"; }

struct Descriptor {
    int fd = -1;
    ~Descriptor() {
        if (fd >= 0) ::close(fd);
    }
};

} // namespace

bool GdalDrawingReader::read(const std::string& path, const drawing::DgnElementSink& each, std::string& error) {
    chainElements_ = 0;
    auto refuse = [&](const std::string& why) {
        error = path + why;
        return false;
    };
    auto cannotRead = [&](int e) { return refuse(" cannot be read: " + std::string(std::strerror(e)) + "."); };
    // Only a plain file of bounded size is read: a device, a pipe or a socket
    // may never end or never answer. Opened without waiting for a writer, and
    // looked at through the descriptor, so it cannot be swapped meanwhile.
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return errno == ENOENT ? refuse(": no such file.") : cannotRead(errno);
    if (!S_ISREG(st.st_mode)) return refuse(" is " + whatItIs(st.st_mode) + ", not a drawing.");
    Descriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK)};
    if (file.fd < 0 || ::fstat(file.fd, &st) != 0) return cannotRead(errno);
    if (!S_ISREG(st.st_mode)) return refuse(" is " + whatItIs(st.st_mode) + ", not a drawing.");
    const auto tooLarge = [&] {
        return refuse(" is larger than a drawing can be (" + mib(kMaxDrawingBytes) +
                      "): " + mib(static_cast<unsigned long long>(st.st_size)) + ".");
    };
    if (static_cast<unsigned long long>(st.st_size) > kMaxDrawingBytes) return tooLarge();

    // The element chain, walked as the bytes stream past.
    drawing::DgnChainWalk walk;
    unsigned long long total = 0;
    std::string head; // the first bytes, which tell a version 8 drawing
    char buffer[65536];
    while (!walk.ended()) {
        const ssize_t n = ::read(file.fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return cannotRead(errno);
        if (n == 0) break;
        total += static_cast<unsigned long long>(n);
        if (total > kMaxDrawingBytes) return tooLarge();
        if (head.size() < kCompoundFile.size())
            head.append(buffer, std::min(static_cast<size_t>(n), kCompoundFile.size() - head.size()));
        walk.feed(std::string_view(buffer, static_cast<size_t>(n)));
    }
    if (total == 0) return refuse(" is empty, not a drawing.");
    // Version 8 keeps its elements in a compound file, which only a proprietary driver reads.
    if (head == kCompoundFile)
        return refuse(" is a DGN version 8 drawing. DGN version 8 drawings need a driver this machine does not "
                      "have; V7 drawings open.");

    std::string why;
    auto* entry = readerEntry(programDir_, why);
    if (!entry)
        return refuse(" cannot be read: the program's drawing reader (" + std::string(drawing::kDrawingReaderLibrary) +
                      " in " + programDir_ + ") cannot be loaded: " + why + ".");
    // GDAL reads the file this descriptor holds open, whatever the name means by now.
    const std::string opened = "/proc/self/fd/" + std::to_string(file.fd);
    const auto problem = walk.problem();
    if (problem) {
        if (!entry(opened, {})) return refuse(" is not a MicroStation drawing (a DGN file of version 7 or earlier).");
        return refuse(" is damaged: " + *problem + ".");
    }
    chainElements_ = walk.elements();
    if (!entry(opened, each)) return refuse(" is not a MicroStation drawing (a DGN file of version 7 or earlier).");
    return true;
}

bool loadDrawing(const std::string& programDir, const std::string& path, LoadedDrawing& drawing, std::string& error) {
    GdalDrawingReader reader(programDir);
    drawing::DgnSceneBuilder builder;
    size_t elements = 0;
    try {
        const bool read = reader.read(
            path,
            [&](const DgnElement& e) {
                if (elements++ == 0) builder.reserve(static_cast<size_t>(reader.chainElements()));
                builder.add(e);
            },
            error);
        if (!read) return false;
        drawing.scene = builder.take();
    } catch (const std::bad_alloc&) {
        error = path + " cannot be read: it needs more memory than the program may use.";
        return false;
    }
    drawing.elements = elements;
    return true;
}

} // namespace tw
