// SPDX-License-Identifier: Apache-2.0
#include "core/drawing/Labels.h"

#include "core/drawing/PointMath.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

namespace tw::drawing {

namespace {

// In points on the page.
constexpr double kClearPt = 1.5; // between a label and anything else
constexpr double kStepPt = 2;    // the steps a label takes near its place
constexpr int kNearSteps = 9;    // so far it may go without a leader
constexpr double kFarPt = 200;   // how far it looks for room with a leader
constexpr double kFarStepPt = 5; // the rings it looks in, out there
constexpr double kArrowPt = 7;   // the painter's dimension arrowheads
constexpr double kLeaderHeadPt = 4;
constexpr double kRoomPt = 3;  // kept around each label in the bounds, for a small move at the edge
constexpr double kCellPt = 18; // the cells of the grid of what is drawn
constexpr int kMostCells = 96; // a side of the grid at most

const Color kLeaderInk{60, 60, 60};

struct Segment {
    Point a, b;
};

struct Disc {
    Point centre;
    double radius;
};

Box boxOf(Point a, Point b) {
    Box e;
    e.add(a);
    e.add(b);
    return e;
}

Box widened(Box e, double by) {
    e.minX -= by;
    e.minY -= by;
    e.maxX += by;
    e.maxY += by;
    return e;
}

// Everything drawn and every label placed, by the cells of a grid over the
// drawing, so that a label looks only at what lies near it. A place outside
// the grid counts in its edge cells, so nothing is ever missed.
class Grid {
  public:
    enum Kind : std::uint32_t { kSegment, kDisc, kLabel };

    Grid(const Box& world, double cell) {
        x0_ = world.minX;
        y0_ = world.minY;
        nx_ = std::clamp(static_cast<int>(std::ceil(world.width() / cell)), 1, kMostCells);
        ny_ = std::clamp(static_cast<int>(std::ceil(world.height() / cell)), 1, kMostCells);
        cw_ = std::max(world.width(), 1e-9) / nx_;
        ch_ = std::max(world.height(), 1e-9) / ny_;
        cells_.resize(static_cast<std::size_t>(nx_) * static_cast<std::size_t>(ny_));
    }

    void add(const Box& e, Kind kind, std::uint32_t index) {
        if (e.empty) return;
        const std::uint32_t code = kind << 30 | index;
        forCells(e, [&](std::vector<std::uint32_t>& c) {
            c.push_back(code);
            return true;
        });
        auto& seen = seen_[kind];
        if (seen.size() <= index) seen.resize(index + 1, 0);
    }

    // Calls `f(kind, index)` once for each item whose cells meet `e`, until it returns false.
    template <class F> bool each(const Box& e, F&& f) {
        ++query_;
        bool go = true;
        forCells(e, [&](std::vector<std::uint32_t>& c) {
            for (std::size_t k = 0; go && k < c.size(); ++k) {
                const auto kind = static_cast<Kind>(c[k] >> 30);
                const std::uint32_t index = c[k] & 0x3FFFFFFF;
                auto& stamp = seen_[kind][index];
                if (stamp == query_) continue;
                stamp = query_;
                go = f(kind, index);
            }
            return go;
        });
        return go;
    }

  private:
    int cell(double v, double v0, double size, int n) const {
        const double c = std::floor((v - v0) / size);
        return static_cast<int>(std::clamp(c, 0.0, static_cast<double>(n - 1)));
    }
    // Calls `f(cell)` for each cell `e` meets, until it returns false.
    template <class F> void forCells(const Box& e, F&& f) {
        const int cx0 = cell(e.minX, x0_, cw_, nx_), cx1 = cell(e.maxX, x0_, cw_, nx_);
        const int cy0 = cell(e.minY, y0_, ch_, ny_), cy1 = cell(e.maxY, y0_, ch_, ny_);
        for (int y = cy0; y <= cy1; ++y)
            for (int x = cx0; x <= cx1; ++x)
                if (!f(cells_[static_cast<std::size_t>(y * nx_ + x)])) return;
    }

    double x0_ = 0, y0_ = 0, cw_ = 1, ch_ = 1;
    int nx_ = 1, ny_ = 1;
    std::vector<std::vector<std::uint32_t>> cells_;
    std::array<std::vector<std::uint32_t>, 3> seen_;
    std::uint32_t query_ = 0;
};

// The lines of a dimension as the painter draws them: the dimension line,
// the extension lines running a little past it, and the arrowheads.
void dimensionStrokes(const Shape& s, double pt, std::vector<Segment>& out) {
    if (s.points.size() != 2) return;
    const Point a = s.points[0], b = s.points[1];
    const double len = length(b - a);
    if (len <= 0) return;
    const Point u = (b - a) * (1 / len), n = leftNormal(u) * s.offset;
    const Point da = a + n, db = b + n;
    if (std::abs(s.offset) > 0) {
        const Point un = unitOf(n);
        const double gap = std::min(2 * pt, std::abs(s.offset) / 2);
        out.push_back({a + un * gap, da + un * (3 * pt)});
        out.push_back({b + un * gap, db + un * (3 * pt)});
    }
    const double arrow = kArrowPt * pt, half = 0.3 * arrow;
    const Point across = leftNormal(u) * half;
    auto head = [&](Point tip, Point back) {
        const Point base = tip + back * arrow;
        out.push_back({tip, base + across});
        out.push_back({tip, base - across});
        out.push_back({base + across, base - across});
    };
    if (len > 2.5 * arrow) {
        out.push_back({da, db});
        head(da, u);
        head(db, u * -1);
    } else { // too short for arrows inside: they point in from outside
        out.push_back({da - u * (1.5 * arrow), db + u * (1.5 * arrow)});
        head(da, u * -1);
        head(db, u);
    }
}

// What a shape that is not a label puts in a label's way.
void obstaclesOf(const Shape& s, double pt, std::vector<Segment>& segments, std::vector<Disc>& discs) {
    switch (s.kind) {
    case Shape::Kind::Polyline:
        for (std::size_t i = 0; i + 1 < s.points.size(); ++i)
            segments.push_back({s.points[i], s.points[i + 1]});
        if ((s.closed || s.fill) && s.points.size() > 2) segments.push_back({s.points.back(), s.points.front()});
        break;
    case Shape::Kind::Arc: {
        if (std::abs(s.sweep) >= 360 && s.rotation == 0 && std::abs(s.rx - s.ry) <= 1e-9 * s.rx) {
            discs.push_back({s.center, s.rx});
            break;
        }
        const int steps = std::clamp(static_cast<int>(std::abs(s.sweep) / 12), 3, 30);
        const double rot = radians(s.rotation);
        Point last;
        for (int i = 0; i <= steps; ++i) {
            const double t = radians(s.start + s.sweep * i / steps);
            const double x = s.rx * std::cos(t), y = s.ry * std::sin(t);
            const Point p{s.center.x + x * std::cos(rot) - y * std::sin(rot),
                          s.center.y + x * std::sin(rot) + y * std::cos(rot)};
            if (i > 0) segments.push_back({last, p});
            last = p;
        }
        break;
    }
    case Shape::Kind::Dimension: dimensionStrokes(s, pt, segments); break;
    case Shape::Kind::Text: break;
    }
}

// The point of a box nearest to `p`.
Point nearestOf(const LabelBox& b, Point p) {
    const Point d = p - b.origin;
    return b.origin + b.along * std::clamp(dot(d, b.along), 0.0, b.width) +
           b.up * std::clamp(dot(d, b.up), 0.0, b.height);
}

LabelBox shifted(LabelBox b, Point by) {
    b.origin = b.origin + by;
    return b;
}

class Placer {
  public:
    Placer(Scene& scene, double pt)
        : scene_(scene), pt_(pt), clear_(kClearPt * pt), grid_(world(scene, pt), kCellPt * pt) {
        for (const auto& s : scene.shapes)
            if (s.kind != Shape::Kind::Text) obstaclesOf(s, pt, segments_, discs_);
        for (std::size_t i = 0; i < segments_.size(); ++i)
            grid_.add(boxOf(segments_[i].a, segments_[i].b), Grid::kSegment, static_cast<std::uint32_t>(i));
        for (std::size_t i = 0; i < discs_.size(); ++i)
            grid_.add(widened(boxOf(discs_[i].centre, discs_[i].centre), discs_[i].radius), Grid::kDisc,
                      static_cast<std::uint32_t>(i));
    }

    int run() {
        struct Label {
            std::size_t shape;
            int rank;
        };
        std::vector<Label> labels;
        for (std::size_t i = 0; i < scene_.shapes.size(); ++i) {
            const Shape& s = scene_.shapes[i];
            if (!labelBox(s, pt_)) continue;
            labels.push_back({i, s.pinned ? 0 : s.kind == Shape::Kind::Dimension ? 1 : 2});
        }
        std::stable_sort(labels.begin(), labels.end(), [](const Label& a, const Label& b) { return a.rank < b.rank; });
        int leaders = 0;
        for (const Label& l : labels)
            leaders += place(l.shape) ? 1 : 0;
        for (const auto& b : placed_)
            scene_.room.add(widened(extent(b), kRoomPt * pt_));
        return leaders;
    }

  private:
    static Box world(const Scene& scene, double pt) {
        Box w = scene.bounds();
        for (const auto& s : scene.shapes)
            if (auto b = labelBox(s, pt)) w.add(extent(*b));
        return widened(w, kFarPt * pt);
    }

    bool clearOf(const LabelBox& b) {
        const Box e = widened(extent(b), clear_);
        return grid_.each(e, [&](Grid::Kind kind, std::uint32_t i) {
            switch (kind) {
            case Grid::kSegment: return !crosses(b, segments_[i].a, segments_[i].b, clear_);
            case Grid::kDisc: {
                const Disc& d = discs_[i];
                return length(nearestOf(b, d.centre) - d.centre) >= d.radius + clear_;
            }
            case Grid::kLabel: return !overlaps(b, placed_[i], clear_);
            }
            return true;
        });
    }

    // A leader from the box to `to` passes no label and no bubble.
    bool leaderClear(const LabelBox& b, Point to) {
        const Point from = nearestOf(b, to);
        const Box e = widened(boxOf(from, to), clear_ + kLeaderHeadPt * pt_);
        return grid_.each(e, [&](Grid::Kind kind, std::uint32_t i) {
            if (kind == Grid::kLabel) return !crosses(placed_[i], from, to, clear_);
            if (kind == Grid::kDisc) {
                const Disc& d = discs_[i];
                const Point v = to - from;
                const double l2 = dot(v, v);
                const double t = l2 > 0 ? std::clamp(dot(d.centre - from, v) / l2, 0.0, 1.0) : 0;
                return length(from + v * t - d.centre) >= d.radius;
            }
            return true;
        });
    }

    void add(const LabelBox& b) {
        placed_.push_back(b);
        grid_.add(extent(b), Grid::kLabel, static_cast<std::uint32_t>(placed_.size() - 1));
    }

    void addSegment(Point a, Point b) {
        segments_.push_back({a, b});
        grid_.add(boxOf(a, b), Grid::kSegment, static_cast<std::uint32_t>(segments_.size() - 1));
    }

    // The ways a label may move: across its text and along it, then aslant; a
    // dimension's label first along its line, then away from what it measures.
    static std::vector<Point> ways(const LabelBox& box, bool dimension, int count) {
        const Point u = box.up, a = box.along;
        std::vector<Point> out;
        if (dimension)
            out = {a, a * -1, u, (u + a) * std::sqrt(0.5), (u - a) * std::sqrt(0.5), u * -1};
        else
            out = {u, u * -1, a, a * -1};
        for (int k = 0; k < count; ++k) {
            const Point w = unitAt(degreesOf(a) + 360.0 * (k + 0.5) / count);
            out.push_back(w);
        }
        return out;
    }

    // Places the label of shape `index`; true when it went to a leader.
    bool place(std::size_t index) {
        const Shape shape = scene_.shapes[index]; // a copy: moving a dimension's label adds a shape
        const LabelBox box = *labelBox(shape, pt_);
        if (shape.pinned || clearOf(box)) {
            add(box);
            return false;
        }
        const bool dimension = shape.kind == Shape::Kind::Dimension;
        const auto d = dimension ? dimensionLabel(shape, pt_) : std::nullopt;
        const Point home = shape.names ? *shape.names : d ? d->mid : shape.points.front();
        for (int k = 1; k <= kNearSteps; ++k)
            for (const Point w : ways(box, dimension, 8)) {
                const Point by = w * (k * kStepPt * pt_);
                if (clearOf(shifted(box, by))) return move(index, shape, box, by, home, false);
            }
        const auto far = ways(box, dimension, 16);
        for (double r = (kNearSteps + 1) * kStepPt; r <= kFarPt; r += kFarStepPt)
            for (const Point w : far) {
                const Point by = w * (r * pt_);
                const LabelBox b = shifted(box, by);
                if (clearOf(b) && leaderClear(b, home)) return move(index, shape, box, by, home, true);
            }
        return move(index, shape, box, outside(box, home), home, true);
    }

    // Beyond everything drawn and placed: on the side nearest to where the label belongs
    // where its leader can reach it crossing no label, else on the next side.
    Point outside(const LabelBox& box, Point home) {
        Box all = scene_.bounds();
        for (const auto& b : placed_)
            all.add(extent(b));
        const Box e = extent(box);
        const double gap = 6 * pt_;
        struct Side {
            double distance;
            Point by, slide;
        };
        std::array<Side, 4> sides = {Side{home.y - all.minY, {0, all.minY - gap - e.maxY}, {1, 0}},
                                     Side{all.maxY - home.y, {0, all.maxY + gap - e.minY}, {1, 0}},
                                     Side{home.x - all.minX, {all.minX - gap - e.maxX, 0}, {0, 1}},
                                     Side{all.maxX - home.x, {all.maxX + gap - e.minX, 0}, {0, 1}}};
        std::stable_sort(sides.begin(), sides.end(),
                         [](const Side& a, const Side& b) { return a.distance < b.distance; });
        // Along a side, away from the labels already sent there.
        const double step = 0.5 * std::max(e.width(), e.height()) + 2 * gap;
        std::optional<Point> first;
        for (const Side& side : sides)
            for (int k = 0; k < 200; ++k) {
                const Point by = side.by + side.slide * (step * ((k + 1) / 2) * (k % 2 ? 1 : -1));
                const LabelBox b = shifted(box, by);
                if (!clearOf(b)) continue;
                if (leaderClear(b, home)) return by;
                if (!first) first = by;
            }
        return first.value_or(sides.front().by);
    }

    bool move(std::size_t index, const Shape& shape, const LabelBox& box, Point by, Point home, bool leader) {
        const LabelBox at = shifted(box, by);
        add(at);
        if (shape.kind == Shape::Kind::Dimension) {
            // A dimension's label that leaves its line becomes a text of its own.
            const auto d = *dimensionLabel(shape, pt_);
            Shape& t = scene_.text(d.anchor + by, shape.text, shape.height, HAlign::Center, d.valign);
            t.angle = d.degrees;
            t.screenSized = shape.screenSized;
            t.source = shape.source;
            t.mark = shape.mark;
            t.level = shape.level;
            t.pen.color = shape.pen.color;
            scene_.shapes[index].text.clear();
        } else {
            scene_.shapes[index].points.front() = shape.points.front() + by;
        }
        if (!leader) return false;
        // A thin line from the nearest point of the label to what it names, an arrowhead at that end.
        const Point from = nearestOf(at, home);
        const Point dir = unitOf(home - from);
        const double head = std::min(kLeaderHeadPt * pt_, length(home - from) / 2);
        const Point base = home - dir * head, side = leftNormal(dir) * (0.35 * head);
        auto tag = [&](Shape& s) -> Shape& {
            s.source = shape.source;
            s.mark = shape.mark;
            s.level = shape.level;
            s.leader = true;
            return s;
        };
        tag(scene_.line(from, base, {kLeaderInk, 0, LineStyle::Solid}));
        tag(scene_.polyline({home, base + side, base - side}, true, {kLeaderInk, 0, LineStyle::Solid})).fill =
            kLeaderInk;
        addSegment(from, home);
        addSegment(base + side, base - side);
        return true;
    }

    Scene& scene_;
    double pt_, clear_;
    Grid grid_;
    std::vector<Segment> segments_;
    std::vector<Disc> discs_;
    std::vector<LabelBox> placed_;
};

} // namespace

int placeLabels(Scene& scene, double feetPerPoint) { return Placer(scene, feetPerPoint).run(); }

void keepLabelRoom(Scene& scene, double feetPerPoint) {
    for (const auto& s : scene.shapes)
        if (auto b = labelBox(s, feetPerPoint)) scene.room.add(widened(extent(*b), kRoomPt * feetPerPoint));
}

} // namespace tw::drawing
