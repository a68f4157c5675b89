// SPDX-License-Identifier: Apache-2.0
// Edit > Paste Over Bents: a revision of bents from a spreadsheet. A row
// whose bent number is in the table replaces that row through Replace's
// checks; any other row is added through Add's.
#pragma once

#include "core/form/PasteBents.h"

#include <string>

namespace tw {

// As pasteBents, but rows of bents the table holds replace them. Before any
// row goes in, the rows are refused as a whole for what pasteBents refuses
// them, for a bent that comes twice, or for more than 99 bents once the new
// ones are added. The grid's selection is as it was afterwards.
PasteOutcome pasteOverBents(Session& s, const std::string& text);

} // namespace tw
