// SPDX-License-Identifier: Apache-2.0
// What differs between two projects, as an engineer reads a revision: each
// input by its name with both values as a drawing shows them, then the bents
// added, removed and changed.
#pragma once

#include "core/model/Measures.h"

#include <string>
#include <vector>

namespace tw {

class Project;

struct DiffOptions {
    LengthUnits units = LengthUnits::FeetInches;
    bool names = false; // the control names after the inputs' names, for scripts
};

// One line a difference, in the model's order of inputs (an angle's three
// fields on one line), then the bents (matched by bent number): added and
// removed with every cell, changed cell by cell. Empty when the two are the
// same. Lengths read in `units`, elevations as "EL. 300.77", angles as
// 90°00'00"; a blank reads "(blank)", free text and what is no number quoted:
//     Cap length: 80'-0" -> 82'-6"
//     Bent 3, 2Step: EL. 99.90 -> EL. 99.95
std::vector<std::string> projectDifferences(const Project& a, const Project& b, const DiffOptions& options = {});

} // namespace tw
