// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "core/ports.h"

#include <cstdint>
#include <string>

namespace tw {

// The engine's listings are text of a few hundred KiB at the most; a file
// far larger than this is no listing, and is not read.
inline constexpr std::uintmax_t kMaxListingBytes = 16 * 1024 * 1024;

// False when the engine's concrete data listing holds its error line, which is
// how the engine tells of input it could not use. A listing that is missing,
// or cannot be read, is clean: there is nothing in it to warn of.
bool concreteDataIsClean(SystemPorts& system, const std::string& concreteFile);

} // namespace tw
