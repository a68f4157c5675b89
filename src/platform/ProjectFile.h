// SPDX-License-Identifier: Apache-2.0
// A project read from its file with nobody watching, as check, dump, diff,
// table, draw and report read it and the template list reads each template:
// no form, the file read as the window reads it, and a failure kept as the
// one line the error box would have shown.
#pragma once

#include "core/inputfile/ProjectReader.h"

#include <string>

namespace tw {

ProjectRead readProjectFile(const std::string& path);
// The error box's text of a failed read, in one line.
std::string whyUnread(const ProjectRead& read);

} // namespace tw
