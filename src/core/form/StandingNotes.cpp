// SPDX-License-Identifier: Apache-2.0
#include "core/form/StandingNotes.h"

#include "core/form/Session.h"

namespace tw {

std::string unloweredCountNote(const Session& s) {
    const int listed = s.project().bentCounter;
    const int held = s.project().bents();
    if (listed <= held) return {};
    return "After Delete the file will still list " + std::to_string(listed) + " bents while it holds " +
           std::to_string(held) + ", until Delete All or a reopen (Tarnwick reads such a file with the bents it holds)";
}

std::vector<std::string> standingNotes(const Session& s) {
    std::vector<std::string> notes;
    for (std::string n : {unloweredCountNote(s)})
        if (!n.empty()) notes.push_back(std::move(n));
    return notes;
}

} // namespace tw
