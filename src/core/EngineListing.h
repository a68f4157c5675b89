// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace tw {

// False when the engine's concrete data listing holds its error line, which is
// how the engine tells of input it could not use. A missing listing is clean:
// there is nothing in it to warn of.
bool concreteDataIsClean(const std::string& concreteFile);

} // namespace tw
