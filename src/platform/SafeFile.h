// SPDX-License-Identifier: Apache-2.0
// Writing a file the way an engineer expects a save to behave: a failure
// leaves the previous file as it was, and the file stays the user's.
#pragma once

#include "core/ports.h"

#include <string>

namespace tw {

// Puts `bytes` in the file at `path`. A symbolic link is followed to the
// file it names. The bytes go to a temporary sibling with a short name,
// which takes the old file's mode, owner and group and is then renamed over
// it. Where that cannot keep the file as it was -- the folder may not be
// written, the owner cannot be kept, the file has other names -- the file
// is written in place. A file the user may not write, a folder, a device or
// a pipe is refused and left alone. Descriptions name the cause.
WriteResult replaceFile(const std::string& path, const std::string& bytes);

} // namespace tw
