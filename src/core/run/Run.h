// SPDX-License-Identifier: Apache-2.0
// Run: save the project, empty the old outputs, hand every name to the
// engine, start the drawing batch program on the drawing script and wait.
#pragma once

#include <array>
#include <string>

namespace tw {

class Session;

// The suffixes of the engine's outputs, in the order Run empties them; the
// drawing script's has no dot of its own.
inline constexpr std::array<const char*, 9> kOutputSuffixes = {"e.sif",  ".ebntc", ".ebntr", ".egen", ".ebent",
                                                               ".eelev", ".ebeam", ".epile", ".equan"};

// The path cut before the first "." anywhere in it (a dotted folder cuts there too).
std::string runBaseName(const std::string& inputPath);
// A name padded with blanks to 128 characters; a longer one stays as it is.
std::string padName(const std::string& name);

// The whole command: save first, then the rest when the save went through.
void runProject(Session& s);
// Everything after the save, on the file the dialog names.
void runAfterSave(Session& s);

} // namespace tw
