// SPDX-License-Identifier: Apache-2.0
// The closing values: what the entered rows of a family leave of the cap
// length. The form works them out only when a field of the family is left
// or the tab changes, so between those moments the project may hold values
// worked out for an older cap length or older rows.
#pragma once

#include "core/model/Controls.h"

#include <optional>
#include <string>
#include <vector>

namespace tw {

class Project;

struct ClosingFamily {
    CtlId closing;
    std::vector<CtlId> entered;
};

// Cap steps, centerline distances, battered piles: the order a tab change
// brings them up to date in.
std::vector<ClosingFamily> closingFamilies(const Project& p);

// What the family leaves of the cap length (single precision, as the form
// sums it); none without a cap length, when nothing is worked out.
std::optional<float> closingRest(const Project& p, const ClosingFamily& f);
// The closing value as its field shows it: four decimals, at most 9 characters.
std::string closingText(float rest);

// The closing field as the form labels it ("Cap Step 4 (the last)").
std::string closingLabel(const CtlId& id);

// A closing value that differs from what its family gives now.
struct StaleClosing {
    CtlId field;
    std::string holds;
    std::string now;
};
std::vector<StaleClosing> staleClosings(const Project& p);

// What `check` warns of: closing values that hold a number other than what
// the file's cap length and rows give (an empty one was never worked out).
std::vector<std::string> closingMismatches(const Project& p);

} // namespace tw
