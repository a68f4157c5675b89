// SPDX-License-Identifier: Apache-2.0
// Reading a file whole, carefully: only a regular file, only up to a size,
// and every failure described in words that name the cause.
#pragma once

#include "core/ports.h"

#include <cstdint>
#include <string>

namespace tw {

ReadResult readRegularFile(const std::string& path, std::uintmax_t maxBytes);

} // namespace tw
