// Column layouts of the bent table, one per bent type.
#pragma once

#include "core/model/Choices.h"

#include <cstdint>
#include <vector>

namespace tw {

class App;
class Grid;

// Lays out the header and columns of `grid` for `type` and `beams` beams.
// Rows are kept; cells of dropped columns go, new columns start empty.
void layoutColumns(Grid& grid, BentType type, std::int16_t beams);

// Reads the bent type and the number of beams from the form and lays out
// the columns; a text that names no bent type lays out nothing.
void relayoutColumns(App& app);

// The entry field whose value a column holds: its number format is the cell's.
CtlId columnSource(BentType type, int beams, int column);

// The bent-table columns after the steps, in the input file's order (not
// ascending: the engine's order), as offsets from the number of beams.
const std::vector<int>& endBentFileColumns(bool withBackwall);

} // namespace tw
