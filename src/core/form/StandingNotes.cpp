// SPDX-License-Identifier: Apache-2.0
#include "core/form/StandingNotes.h"

#include "core/form/Session.h"
#include "core/model/Closing.h"
#include "core/model/Inputs.h"

namespace tw {

std::string unloweredCountNote(const Session& s) {
    const int listed = s.project().bentCounter;
    const int held = s.project().bents();
    if (listed <= held || !s.unloweredCountNoted()) return {};
    return "After Delete the file will still list " + std::to_string(listed) + " bents while it holds " +
           std::to_string(held) + ", until Delete All or a reopen (Tarnwick reads such a file with the bents it holds)";
}

namespace {

// A family in the words of one of its rows.
const char* familyRow(Ctl c) {
    switch (c) {
    case Ctl::txtCapStep: return "a cap step";
    case Ctl::txtCenterline: return "a centerline distance";
    default: return "a battered-pile spacing";
    }
}

} // namespace

std::string staleClosingNote(const Session& s) {
    const auto stale = staleClosings(s.project());
    if (stale.empty()) return {};
    std::string text = "Closing values out of date: ";
    std::string rows;
    for (size_t i = 0; i < stale.size(); ++i) {
        const auto& c = stale[i];
        if (i) text += "; ";
        text += closingLabel(c.field) + " shows " + (c.holds.empty() ? "nothing" : c.holds) + ", the form now gives " +
                c.now;
        rows += std::string(i == 0 ? "" : i + 1 == stale.size() ? " or " : ", ") + familyRow(c.field.ctl);
    }
    return text + ". They are brought up to date when the tab changes or " + rows + " is left";
}

std::vector<std::string> standingNotes(const Session& s) {
    std::vector<std::string> notes;
    for (std::string n : {staleClosingNote(s), unloweredCountNote(s)})
        if (!n.empty()) notes.push_back(std::move(n));
    return notes;
}

} // namespace tw
