// SPDX-License-Identifier: Apache-2.0
#include "core/EngineListing.h"

namespace tw {

bool concreteDataIsClean(SystemPorts& system, const std::string& concreteFile) {
    const ReadResult listing = system.readFile(concreteFile, kMaxListingBytes);
    // Read as comma-separated items, as the listing is; the marker holds
    // neither a comma nor a line break, so it never spans two items.
    return listing.errorNumber || listing.bytes.find("ERROR LINE") == std::string::npos;
}

} // namespace tw
