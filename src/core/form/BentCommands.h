// SPDX-License-Identifier: Apache-2.0
// The bent table's buttons: Add, Insert, Replace, Edit, Delete, Delete All
// (cmdQuantity 0 to 5), Move up and Move down.
#pragma once

namespace tw {

class Session;

// cmdQuantity(index); an index outside 0 to 5 does nothing.
void bentCommand(Session& s, int index);
void moveBentUp(Session& s);
void moveBentDown(Session& s);

} // namespace tw
