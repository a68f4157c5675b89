// SPDX-License-Identifier: Apache-2.0
#include "platform/ProjectFile.h"

#include "core/Quoting.h"
#include "core/inputfile/InputFile.h"
#include "platform/FileRead.h"

namespace tw {

ProjectRead readProjectFile(const std::string& path) {
    const ReadResult r = readRegularFile(path, kMaxInputFileBytes);
    if (!r.errorNumber) return readProject(r.bytes);
    ProjectRead unread{defaultProject(), {}, {}, RuntimeError(r.errorNumber, r.error)};
    return unread;
}

std::string whyUnread(const ProjectRead& read) { return oneLine(read.errorText()); }

} // namespace tw
