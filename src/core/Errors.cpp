// SPDX-License-Identifier: Apache-2.0
#include "core/Errors.h"

namespace tw {

std::string standardErrorText(int number, const std::string& description) {
    return "Error Number:\t" + std::to_string(number) + "\r\nDescription:\t" + description +
           "\r\nPlease notify administrator.";
}

RuntimeError internalError(const std::string& what) {
    return RuntimeError(err::kInternalError, "Internal error: " + what);
}

} // namespace tw
