// SPDX-License-Identifier: Apache-2.0
// Emptying the files the engine is about to write: only plain files of
// their own, so that Run never empties a file it was not meant to touch
// and never waits on a pipe or a device.
#pragma once

#include "core/ports.h"

#include <string>
#include <vector>

namespace tw {

// Empties each file, creating the ones that do not exist. When one of them
// is a symbolic link, has other names (hard links), or is a folder, a pipe,
// a device or a socket, nothing is emptied and the description names the
// file and what it is. Links are not followed and nothing blocks.
WriteResult emptyOutputFiles(const std::vector<std::string>& paths);

} // namespace tw
