// SPDX-License-Identifier: Apache-2.0
#include "core/app/ProjectDiff.h"

#include "core/Quoting.h"
#include "core/drawing/BentInputs.h"
#include "core/drawing/Prompts.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Project.h"

#include <optional>

namespace tw {

namespace {

std::string promptFor(const CtlId& id, const drawing::BentInputs& in) {
    std::string prompt = drawing::promptOf(id, in);
    return prompt == toString(id) ? inputLabel(id) : prompt;
}

std::string cellsOf(const BentTable::Row& row) {
    std::string out;
    for (const auto& c : row)
        out += ' ' + quote(c);
    return out;
}

// The rows of `t` by bent number, the first row of a repeated number taken first.
std::optional<int> rowNumbered(const BentTable& t, const std::string& number, std::vector<bool>& taken) {
    for (int r = 1; r < t.rows(); ++r)
        if (!taken[static_cast<size_t>(r)] && trim(t.cell(r, 0)) == number) {
            taken[static_cast<size_t>(r)] = true;
            return r;
        }
    return std::nullopt;
}

std::string heading(const BentTable& a, const BentTable& b, int c) {
    return c < b.cols() ? b.cell(0, c) : a.cell(0, c);
}

} // namespace

std::vector<std::string> projectDifferences(const Project& a, const Project& b) {
    std::vector<std::string> lines;
    const drawing::BentInputs inputs = drawing::readBentInputs(b);
    for (const auto& id : projectInputs())
        if (a.text(id) != b.text(id))
            lines.push_back(promptFor(id, inputs) + "  " + toString(id) + ": " + quote(a.text(id)) + " -> " +
                            quote(b.text(id)));

    const BentTable& ta = a.table();
    const BentTable& tb = b.table();
    std::vector<std::optional<int>> partner(static_cast<size_t>(tb.rows())); // row of a for each row of b
    std::vector<bool> takenA(static_cast<size_t>(ta.rows())), matchedA(static_cast<size_t>(ta.rows()));
    for (int r = 1; r < tb.rows(); ++r)
        if (auto ra = rowNumbered(ta, trim(tb.cell(r, 0)), takenA)) {
            partner[static_cast<size_t>(r)] = ra;
            matchedA[static_cast<size_t>(*ra)] = true;
        }
    for (int r = 1; r < tb.rows(); ++r)
        if (!partner[static_cast<size_t>(r)])
            lines.push_back("Bent " + trim(tb.cell(r, 0)) + " added:" + cellsOf(tb.rowCells(r)));
    for (int r = 1; r < ta.rows(); ++r)
        if (!matchedA[static_cast<size_t>(r)])
            lines.push_back("Bent " + trim(ta.cell(r, 0)) + " removed:" + cellsOf(ta.rowCells(r)));
    for (int r = 1; r < tb.rows(); ++r) {
        const auto ra = partner[static_cast<size_t>(r)];
        if (!ra) continue;
        const int cols = std::max(ta.cols(), tb.cols());
        for (int c = 1; c < cols; ++c) {
            const std::string before = c < ta.cols() ? ta.cell(*ra, c) : std::string();
            const std::string after = c < tb.cols() ? tb.cell(r, c) : std::string();
            if (before != after)
                lines.push_back("Bent " + trim(tb.cell(r, 0)) + " changed  " + heading(ta, tb, c) + ": " +
                                quote(before) + " -> " + quote(after));
        }
    }
    return lines;
}

} // namespace tw
