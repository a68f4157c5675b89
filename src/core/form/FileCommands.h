// SPDX-License-Identifier: Apache-2.0
// The File menu: New, Open, Save and Save As, and the one save routine that
// Save, Save As, the toolbar and Run share; reading and writing the input
// file through the platform.
#pragma once

#include "core/form/Session.h"
#include "core/inputfile/InputFile.h"

#include <optional>
#include <string>
#include <vector>

namespace tw {

void newProject(Session& s);
void openProject(Session& s);
// What Open does once its dialog gave `path`: the revert question when it is
// the current file, then the read (a recent project, a file dropped on the window).
void openPath(Session& s, const std::string& path);
// Writes the project to its file (asking for a name when it has none).
// True when the file was written without the pile-box abort. Its errors end
// in its own box ("Error Importing Input File(save)").
bool saveProject(Session& s);

// The bytes a save writes, its checks asked at their place in the file (the
// message about too many bents, the pile-box check); run-time errors escape.
InputFileText composeSave(Session& s);
// Writes the project to `path`; a run-time error is shown in the standard
// error box and gives false.
bool writeInputFile(Session& s, const std::string& path);
// The project's file as it now is on disk when it changed since it was
// read or written here, else nothing. The title and words of what the user
// is told.
std::optional<Session::OnDisk> changedOnDiskNow(const Session& s);
inline constexpr char kChangedOnDiskTitle[] = "File Changed";
std::string changedOnDiskText(const std::string& path);
// The project's file is held open by another window or program too.
std::string openTwiceText(const std::string& path);
// Reads the project's file again, as it now is on disk.
void reloadProject(Session& s);
// Reads `path` onto a form at its defaults; a failure is shown in the
// standard error box and gives false. A number field whose text is no
// number is kept and, with `notes`, told there.
bool readInputFile(Session& s, const std::string& path, std::vector<std::string>* notes = nullptr);
// The same from the file's bytes; run-time errors escape.
void parseProject(Session& s, const std::string& bytes, std::vector<std::string>* notes = nullptr);

} // namespace tw
