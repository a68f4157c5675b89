// SPDX-License-Identifier: Apache-2.0
// Lines the headless front end prints about the form, shared by the replay
// and `dump`.
#pragma once

#include "core/form/Changes.h"
#include "core/model/BentTable.h"

#include <ostream>
#include <string>

namespace tw {

// CTRL = "TEXT"
void printShow(std::ostream& out, const std::string& name, const std::string& text);
// grid rows=R cols=C row=CUR end=END, then one line per row.
void printGrid(std::ostream& out, const BentTable& g, GridSelection selection);

} // namespace tw
