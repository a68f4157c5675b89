// SPDX-License-Identifier: Apache-2.0
// Where a scene's polylines lie, for views that show a part of a large
// drawing: a grid of cells over the drawing, each with the extent its lines
// reach (a line belongs to the cell of its middle), and each line's box.
#pragma once

#include "core/drawing/Scene.h"

#include <cstdint>
#include <vector>

namespace tw::drawing {

class SceneIndex {
  public:
    struct LineBox {
        float minX, minY, maxX, maxY;
    };

    SceneIndex() = default;
    explicit SceneIndex(const Polylines& lines);

    // Calls `each(line)` for every line whose box meets `view`, in the
    // drawing's order. The lines are walked in the order they are stored,
    // which memory serves far faster than a jump from cell to cell.
    template <typename Each> void visit(const Box& view, Each&& each) const {
        if (view.empty) return;
        std::vector<char> seen(cells_.size());
        for (std::size_t c = 0; c < cells_.size(); ++c)
            seen[c] = meets(cells_[c], view);
        for (std::uint32_t i = 0; i < cellOf_.size(); ++i)
            if (seen[cellOf_[i]] && meets(boxes_[i], view)) each(i);
    }

    const LineBox& box(std::uint32_t line) const { return boxes_[line]; }
    std::size_t size() const { return boxes_.size(); }

  private:
    static bool meets(const LineBox& b, const Box& view) {
        return b.maxX >= view.minX && b.minX <= view.maxX && b.maxY >= view.minY && b.minY <= view.maxY;
    }
    std::vector<LineBox> boxes_;
    std::vector<std::uint32_t> cellOf_; // a line's cell; the last cell holds the lines with no point
    std::vector<LineBox> cells_;        // the extent of each cell's lines
};

} // namespace tw::drawing
