// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/SceneIndex.h"

#include <algorithm>
#include <cmath>

namespace tw::drawing {

namespace {
// About this many lines a cell: few enough that a view at the edge of a cell
// visits little that it does not show.
constexpr double kLinesPerCell = 8;
constexpr int kMaxCellsPerSide = 1024;
} // namespace

SceneIndex::SceneIndex(const Polylines& lines) {
    const std::size_t n = lines.size();
    boxes_.resize(n);
    Box all;
    for (std::size_t i = 0; i < n; ++i) {
        Box b;
        for (const auto& p : lines.points(i))
            b.add(p);
        boxes_[i] = b.empty ? LineBox{NAN, NAN, NAN, NAN}
                            : LineBox{static_cast<float>(b.minX), static_cast<float>(b.minY),
                                      static_cast<float>(b.maxX), static_cast<float>(b.maxY)};
        all.add(b);
    }
    if (n == 0 || all.empty) return;
    const int side = std::clamp(static_cast<int>(std::sqrt(n / kLinesPerCell)), 1, kMaxCellsPerSide);
    const double w = std::max(all.width(), 1e-9), h = std::max(all.height(), 1e-9);
    const std::size_t none = static_cast<std::size_t>(side) * side;
    // An empty cell reaches nowhere: its box is inside out.
    cells_.assign(none + 1, LineBox{INFINITY, INFINITY, -INFINITY, -INFINITY});
    cellOf_.resize(n);
    for (std::size_t i = 0; i < n; ++i) {
        const LineBox& b = boxes_[i];
        if (std::isnan(b.minX)) {
            cellOf_[i] = static_cast<std::uint32_t>(none);
            continue;
        }
        const double cx = (0.5 * b.minX + 0.5 * b.maxX - all.minX) / w,
                     cy = (0.5 * b.minY + 0.5 * b.maxY - all.minY) / h;
        const int x = std::clamp(static_cast<int>(cx * side), 0, side - 1);
        const int y = std::clamp(static_cast<int>(cy * side), 0, side - 1);
        const std::size_t c = static_cast<std::size_t>(y) * side + x;
        cellOf_[i] = static_cast<std::uint32_t>(c);
        LineBox& r = cells_[c];
        r = {std::min(r.minX, b.minX), std::min(r.minY, b.minY), std::max(r.maxX, b.maxX), std::max(r.maxY, b.maxY)};
    }
}

} // namespace tw::drawing
