// SPDX-License-Identifier: Apache-2.0
// Writing a file the way an engineer expects a save to behave: a failure
// leaves the previous file as it was, and the file stays the user's.
#pragma once

#include "core/ports.h"

#include <string>
#include <sys/types.h>

namespace tw {

// Puts `bytes` in the file at `path`. A symbolic link is followed to the
// file it names. The bytes go to a temporary sibling named .tarnwick-save-XXXXXX,
// which takes the old file's mode, owner and group and is then renamed over
// it. Where that cannot keep the file as it was -- the folder may not be
// written, the owner cannot be kept, the file has other names -- the file
// is written in place, its previous bytes kept in a copy until the new ones
// are on the disk and put back when they cannot be. A file the user may not write, a folder, a device or
// a pipe is refused and left alone. Descriptions name the cause.
WriteResult replaceFile(const std::string& path, const std::string& bytes);
// The same, but only while the file holds `expected` (and at most `maxBytes`):
// looked at under an exclusive lock (flock) held through the rename, so that
// two saves of one file, from two windows, never both pass. Otherwise
// `changed`, and nothing is written.
WriteResult replaceFileIfUnchanged(const std::string& path, const std::string& bytes, const std::string& expected,
                                   std::uintmax_t maxBytes);
// The same for a file that is the user's alone (0600), whatever mode it had before.
WriteResult replacePrivateFile(const std::string& path, const std::string& bytes);

// Removes the temporary files of saves that were cut short (a crash, a
// kill, a power cut) from `folder`: only names this program gives its
// temporaries, only this user's plain files, and none a save still writes.
void removeStaleTemporaries(const std::string& folder);

// The calls that put bytes on the disk, so that a test can make them fail
// as a full disk does; null puts the system's calls back.
struct FileWrites {
    using Write = ssize_t (*)(int fd, const void* bytes, size_t count, off_t offset);
    using Flush = int (*)(int fd);
    static void use(Write write, Flush flush = nullptr);
};

} // namespace tw
