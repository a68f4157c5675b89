// SPDX-License-Identifier: Apache-2.0
// Text between the program's logic (UTF-8 in std::string) and Qt.
#pragma once

#include <QString>

#include <string>

namespace tw {

inline QString q(const std::string& s) { return QString::fromStdString(s); }

} // namespace tw
