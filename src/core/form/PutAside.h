// SPDX-License-Identifier: Apache-2.0
// The net under the legacy commands that discard work without asking (Open,
// New, Exit, a reload): before one of them throws away changes no file
// holds, a copy of the project goes aside, where one click brings it back.
#pragma once

#include <string>

namespace tw {

class Session;

// Puts the project aside when it holds unsaved changes, and tells the user
// (or why it could not be kept); the command then goes on whatever happened.
// `dialogFileName`: the file dialog's name before the command chose another.
void putAsideUnsaved(Session& s, const std::string& command);
void putAsideUnsaved(Session& s, const std::string& command, const std::string& dialogFileName);

// What the user is told of a copy kept, or not kept, of the project named
// by its file (empty for a project never saved).
std::string putAsideText(const std::string& currentFile, const std::string& time, const std::string& error);

} // namespace tw
