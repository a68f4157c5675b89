// SPDX-License-Identifier: Apache-2.0
#include "core/EngineListing.h"

#include <fstream>

namespace tw {

bool concreteDataIsClean(const std::string& concreteFile) {
    std::ifstream in(concreteFile, std::ios::binary);
    if (!in) return true;
    // Read as comma-separated items, as the listing is; the marker holds
    // neither a comma nor a line break, so it never spans two items.
    std::string item;
    while (std::getline(in, item, ','))
        if (item.find("ERROR LINE") != std::string::npos) return false;
    return true;
}

} // namespace tw
