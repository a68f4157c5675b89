// SPDX-License-Identifier: Apache-2.0
// What differs between two projects, as an engineer reads a revision: each
// input with its prompt, then the bents added, removed and changed.
#pragma once

#include <string>
#include <vector>

namespace tw {

class Project;

// One line a difference, in the model's order of inputs, then the bents
// (matched by bent number): added, removed, changed cell by cell. Empty
// when the two are the same.
std::vector<std::string> projectDifferences(const Project& a, const Project& b);

} // namespace tw
