// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/Labels.h"

#include "core/drawing/PointMath.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tw::drawing {

namespace {

bool apart(const Box& a, const Box& b, double clearance) {
    return a.maxX + clearance <= b.minX || b.maxX + clearance <= a.minX || a.maxY + clearance <= b.minY ||
           b.maxY + clearance <= a.minY;
}

// A line a label should keep clear of, and the input it is drawn for.
struct Segment {
    Point a, b;
    std::size_t shape; // whose source it is drawn for
    Box extent;
};

void addSegment(std::vector<Segment>& out, Point a, Point b, std::size_t shape) {
    Segment s{a, b, shape, {}};
    s.extent.add(a);
    s.extent.add(b);
    if (!s.extent.empty) out.push_back(s);
}

// The lines of every shape that is not a label.
std::vector<Segment> linesOf(const Scene& scene, double feetPerPoint) {
    std::vector<Segment> out;
    for (std::size_t k = 0; k < scene.shapes.size(); ++k) {
        const Shape& s = scene.shapes[k];
        switch (s.kind) {
        case Shape::Kind::Polyline:
            for (std::size_t i = 0; i + 1 < s.points.size(); ++i)
                addSegment(out, s.points[i], s.points[i + 1], k);
            if ((s.closed || s.fill) && s.points.size() > 2) addSegment(out, s.points.back(), s.points.front(), k);
            break;
        case Shape::Kind::Arc: {
            const int steps = std::clamp(static_cast<int>(std::abs(s.sweep) / 20), 4, 18);
            const double rot = s.rotation * std::numbers::pi / 180;
            Point last;
            for (int i = 0; i <= steps; ++i) {
                const double t = (s.start + s.sweep * i / steps) * std::numbers::pi / 180;
                const double x = s.rx * std::cos(t), y = s.ry * std::sin(t);
                const Point p{s.center.x + x * std::cos(rot) - y * std::sin(rot),
                              s.center.y + x * std::sin(rot) + y * std::cos(rot)};
                if (i > 0) addSegment(out, last, p, k);
                last = p;
            }
            break;
        }
        case Shape::Kind::Dimension: {
            if (s.points.size() != 2) break;
            const Point a = s.points[0], b = s.points[1];
            const double len = std::hypot(b.x - a.x, b.y - a.y);
            if (len <= 0) break;
            const Point n = leftNormal((b - a) * (1 / len)) * s.offset;
            addSegment(out, a + n, b + n, k);
            if (s.offset == 0) break;
            // The extension lines run a little past the dimension line.
            const Point past = n * ((std::abs(s.offset) + 3 * feetPerPoint) / std::abs(s.offset));
            addSegment(out, a, a + past, k);
            addSegment(out, b, b + past, k);
            break;
        }
        case Shape::Kind::Text: break;
        }
    }
    return out;
}

// Lines or labels by the columns of the drawing they cross, so that a label
// looks only at those near it.
class ColumnIndex {
  public:
    ColumnIndex(const Box& world, std::size_t expected) {
        x0_ = world.empty ? 0 : world.minX;
        columns_.resize(std::clamp<std::size_t>(expected / 4, 1, 256));
        width_ = std::max(world.width(), 1e-9) / static_cast<double>(columns_.size());
    }

    void add(const Box& e, std::size_t i) {
        for (std::size_t c = column(e.minX); c <= column(e.maxX); ++c)
            columns_[c].push_back(i);
        if (seen_.size() <= i) seen_.resize(i + 1, 0);
    }

    // Calls `f` once for each item that may lie within `e` (widened by `clearance`), until it returns false.
    template <class F> bool each(const Box& e, double clearance, F f) {
        ++query_;
        for (std::size_t c = column(e.minX - clearance); c <= column(e.maxX + clearance); ++c)
            for (std::size_t i : columns_[c]) {
                if (seen_[i] == query_) continue;
                seen_[i] = query_;
                if (!f(i)) return false;
            }
        return true;
    }

  private:
    std::size_t column(double x) const {
        const double c = std::floor((x - x0_) / width_);
        return static_cast<std::size_t>(std::clamp(c, 0.0, static_cast<double>(columns_.size() - 1)));
    }
    double x0_ = 0, width_ = 1;
    std::vector<std::vector<std::size_t>> columns_;
    std::vector<std::size_t> seen_;
    std::size_t query_ = 0;
};

} // namespace

void placeLabels(Scene& scene, double feetPerPoint) {
    const double pt = feetPerPoint;
    const double clearance = 1 * pt;
    std::vector<Segment> lines = linesOf(scene, pt);
    Box world = scene.bounds();
    for (const auto& l : lines)
        world.add(l.extent);
    ColumnIndex index(world, lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i)
        index.add(lines[i].extent, i);

    struct Label {
        std::size_t shape;
        int rank;
    };
    std::vector<Label> labels;
    for (std::size_t i = 0; i < scene.shapes.size(); ++i) {
        const Shape& s = scene.shapes[i];
        if (!labelBox(s, pt)) continue;
        labels.push_back({i, s.pinned ? 0 : s.kind == Shape::Kind::Dimension ? 1 : 2});
    }
    std::stable_sort(labels.begin(), labels.end(), [](const Label& a, const Label& b) { return a.rank < b.rank; });

    std::vector<LabelBox> placed;
    std::vector<Box> placedExtent;
    std::vector<int> placedLevel;
    // Circles (the numbers' bubbles, round piles) are kept clear of as labels are, but for
    // the text drawn for their own input (the number inside).
    struct Solid {
        Point centre;
        double radius;
        Box extent;
        std::size_t shape;
    };
    std::vector<Solid> solids;
    for (std::size_t i = 0; i < scene.shapes.size(); ++i) {
        const Shape& s = scene.shapes[i];
        if (s.kind != Shape::Kind::Arc || std::abs(s.sweep) < 360) continue;
        const double r = std::max(s.rx, s.ry);
        Box e;
        e.add(s.center + Point{-r, -r});
        e.add(s.center + Point{r, r});
        solids.push_back({s.center, r, e, i});
    }
    auto clearOfSolids = [&](const LabelBox& b, const Box& e, const std::string& source) {
        for (const auto& c : solids) {
            if (apart(e, c.extent, clearance)) continue;
            if (!source.empty() && scene.shapes[c.shape].source == source) continue;
            const Point d = c.centre - b.origin;
            const Point near = b.origin + b.along * std::clamp(dot(d, b.along), 0.0, b.width) +
                               b.up * std::clamp(dot(d, b.up), 0.0, b.height);
            if (std::hypot(near.x - c.centre.x, near.y - c.centre.y) < c.radius + clearance) return false;
        }
        return true;
    };
    ColumnIndex placedIndex(world, scene.shapes.size());
    auto clearOfLabels = [&](const LabelBox& b, const Box& e, const std::string& source = {}) {
        const bool clear = placedIndex.each(e, clearance, [&](std::size_t i) {
            return apart(e, placedExtent[i], clearance) || !overlaps(b, placed[i], clearance);
        });
        return clear && clearOfSolids(b, e, source);
    };
    auto clearOfLines = [&](const LabelBox& b, const Box& e, const std::string& source) {
        return index.each(e, clearance, [&](std::size_t i) {
            const Segment& l = lines[i];
            if (apart(e, l.extent, clearance)) return true;
            // A label may touch the lines drawn for its own input (its dimension, its
            // bubble), never an outline.
            const Shape& drawn = scene.shapes[l.shape];
            const bool outline = drawn.kind == Shape::Kind::Polyline && (drawn.closed || drawn.fill);
            if (!outline && !source.empty() && drawn.source == source) return true;
            return !crosses(b, l.a, l.b, clearance);
        });
    };
    auto shifted = [](LabelBox b, Point by) {
        b.origin = b.origin + by;
        return b;
    };

    for (const Label& label : labels) {
        // Copies: moving a dimension's label adds a shape, and the vector may move.
        const Shape shape = scene.shapes[label.shape];
        const LabelBox box = *labelBox(shape, pt);
        const Box home = extent(box);
        Point move{0, 0};
        // A pinned label stands where it is drawn for (a number in its bubble) whatever line passes.
        auto linesClear = [&](const LabelBox& b, const Box& e) {
            return shape.pinned || clearOfLines(b, e, shape.source);
        };
        if (!clearOfLabels(box, home, shape.source) || !linesClear(box, home)) {
            // The nearest free place in small steps around it: across the text first, then along it.
            const double step = 3 * pt;
            const Point u = box.up, a = box.along;
            const double r = std::numbers::sqrt2 / 2;
            const std::array<Point, 8> ways = {u,           u * -1,      a,           a * -1,
                                               (u + a) * r, (u - a) * r, (a - u) * r, (u + a) * -r};
            std::optional<Point> free, clearLabels;
            for (int k = 1; k <= 10 && !free; ++k)
                for (const Point w : ways) {
                    const Point by = w * (k * step);
                    const LabelBox b = shifted(box, by);
                    const Box e = extent(b);
                    if (!clearOfLabels(b, e, shape.source)) continue;
                    if (!clearLabels) clearLabels = by;
                    if (linesClear(b, e)) {
                        free = by;
                        break;
                    }
                }
            if (free)
                move = *free;
            else if (clearOfLabels(box, home, shape.source))
                move = {0, 0};
            else if (clearLabels)
                move = *clearLabels;
            else {
                // Out past every label and circle in its way, across the text: each step clears one for good.
                Point by{0, 0};
                for (std::size_t guard = 0; guard <= placed.size() + solids.size(); ++guard) {
                    const LabelBox b = shifted(box, by);
                    const Box e = extent(b);
                    if (clearOfLabels(b, e, shape.source)) break;
                    double reach = -1e300;
                    for (std::size_t i = 0; i < placed.size(); ++i)
                        if (!apart(e, placedExtent[i], clearance) && overlaps(b, placed[i], clearance))
                            for (int c = 0; c < 4; ++c)
                                reach = std::max(reach, dot(placed[i].corner(c), u));
                    for (const auto& c : solids)
                        if (!apart(e, c.extent, clearance)) reach = std::max(reach, dot(c.centre, u) + c.radius);
                    double from = 1e300;
                    for (int c = 0; c < 4; ++c)
                        from = std::min(from, dot(b.corner(c), u));
                    by = by + u * (std::max(reach - from, 0.0) + 2 * clearance);
                }
                move = by;
            }
        }
        const LabelBox at = shifted(box, move);
        placed.push_back(at);
        placedExtent.push_back(extent(at));
        placedLevel.push_back(shape.level);
        placedIndex.add(placedExtent.back(), placed.size() - 1);
        if (move.x == 0 && move.y == 0) continue;

        // Moved: a dimension's label becomes a text of its own beside its line.
        Point from = shape.points.front();
        if (shape.kind == Shape::Kind::Dimension) {
            const auto d = *dimensionLabel(shape, pt);
            from = d.mid;
            Shape& t = scene.text(d.anchor + move, shape.text, shape.height, HAlign::Center, d.valign);
            t.angle = d.degrees;
            t.screenSized = shape.screenSized;
            t.source = shape.source;
            t.mark = shape.mark;
            t.level = shape.level;
            t.pen.color = shape.pen.color;
            scene.shapes[label.shape].text.clear();
        } else {
            scene.shapes[label.shape].points.front() = shape.points.front() + move;
        }
        // Gone far from what it names: a leader back to it, from the nearest point of its box.
        if (std::hypot(move.x, move.y) > 12 * pt) {
            const Point local{std::clamp(dot(from - at.origin, at.along), 0.0, at.width),
                              std::clamp(dot(from - at.origin, at.up), 0.0, at.height)};
            const Point near = at.origin + at.along * local.x + at.up * local.y;
            Shape& leader = scene.line(near, from, {{60, 60, 60}, 0, LineStyle::Dotted});
            leader.source = shape.source;
            leader.mark = shape.mark;
            leader.level = shape.level;
            addSegment(lines, near, from, scene.shapes.size() - 1);
            index.add(lines.back().extent, lines.size() - 1);
        }
    }

    // Screen-sized text counts in the bounds only by its anchor: keep room for each label.
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const Box& e = placedExtent[i];
        const int level = placedLevel[i];
        Shape& room = scene.text({e.minX, e.minY}, "", 1);
        room.points.push_back({e.maxX, e.maxY});
        room.level = level;
    }
}

} // namespace tw::drawing
