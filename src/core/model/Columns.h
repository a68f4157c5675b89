// SPDX-License-Identifier: Apache-2.0
// Column layouts of the bent table, one per bent type.
#pragma once

#include "core/model/Choices.h"

#include <cstdint>
#include <vector>

namespace tw {

class BentTable;

// Lays out the header and columns of `table` for `type` and `beams` beams.
// Rows are kept; cells of dropped columns go, new columns start empty.
void layoutColumns(BentTable& table, BentType type, std::int16_t beams);

// How many columns the layout of `type` with `beams` beams has.
int columnCount(BentType type, int beams);
// The entry field whose value a column holds: its number format is the cell's.
CtlId columnSource(BentType type, int beams, int column);

// The bent-table columns after the steps, in the input file's order (not
// ascending: the engine's order), as offsets from the number of beams.
const std::vector<int>& endBentFileColumns(bool withBackwall);

} // namespace tw
