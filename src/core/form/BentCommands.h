// SPDX-License-Identifier: Apache-2.0
// The bent table's buttons: Add, Insert, Replace, Edit, Delete, Delete All
// (cmdQuantity 0 to 5), Move up and Move down.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tw {

class Session;

// cmdQuantity(index); an index outside 0 to 5 does nothing.
void bentCommand(Session& s, int index);
void moveBentUp(Session& s);
void moveBentDown(Session& s);

// Puts the cells of one bent row into the entry fields, as Edit does: the
// bottom-of-cap choice is "No" when `bottomGiven` holds for either of its
// cells, a wingwall is level when its two cells are the same.
void loadBentFields(Session& s, const std::vector<std::string>& cells,
                    const std::function<bool(const std::string&)>& bottomGiven);

} // namespace tw
