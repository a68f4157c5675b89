// SPDX-License-Identifier: Apache-2.0
#include "cli/Printing.h"

#include "core/Quoting.h"

namespace tw {

void printShow(std::ostream& out, const std::string& name, const std::string& text) {
    out << name << " = " << quote(text) << '\n';
}

void printGrid(std::ostream& out, const BentTable& g, GridSelection selection) {
    out << "grid rows=" << g.rows() << " cols=" << g.cols() << " row=" << selection.row << " end=" << selection.end
        << '\n';
    for (int r = 0; r < g.rows(); ++r) {
        out << "  " << r << ':';
        for (const auto& cell : g.rowCells(r))
            out << ' ' << quote(cell);
        out << '\n';
    }
}

} // namespace tw
