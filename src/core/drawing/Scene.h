// SPDX-License-Identifier: Apache-2.0
// A drawing as plain data: shapes in world coordinates (feet for the bent,
// design units for an engine drawing), y pointing up as on paper. The bent
// geometry and the engine's drawing both end up as a Scene; one painter
// draws a Scene on a widget, an SVG, a PDF or an image.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tw::drawing {

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Color {
    std::uint8_t r = 0, g = 0, b = 0;
    friend bool operator==(const Color&, const Color&) = default;
};

enum class LineStyle { Solid, Dashed, Center, Dotted };

struct Pen {
    Color color;
    // Width in millimetres on paper (a fraction of a point on screen); 0 is the thinnest line.
    double width = 0;
    LineStyle style = LineStyle::Solid;
};

enum class HAlign { Left, Center, Right };
enum class VAlign { Bottom, Middle, Top, Baseline };

// How a shape stands out: as drawn, a value not entered yet, or a value
// that cannot be (a negative closing distance, steps longer than the cap).
enum class Mark { Normal, Placeholder, Error };

struct Shape {
    enum class Kind {
        Polyline,  // points, open or closed, optionally filled
        Arc,       // an elliptical arc; a full ellipse when sweep is 360
        Text,      // text at points[0]
        Dimension, // the distance between points[0] and points[1], drawn `offset` away
    };
    Kind kind = Kind::Polyline;
    std::vector<Point> points;
    bool closed = false;
    std::optional<Color> fill;
    Pen pen;

    // Arc: centre, radii, rotation of the x radius, start and sweep (degrees, counter-clockwise).
    Point center;
    double rx = 0, ry = 0, rotation = 0, start = 0, sweep = 360;

    // Text and dimension labels. `height` is in world units, or in points
    // on the page when `screenSized` (annotation that stays readable at any zoom).
    std::string text;
    double height = 9;
    bool screenSized = true;
    double angle = 0; // degrees, counter-clockwise
    HAlign halign = HAlign::Left;
    VAlign valign = VAlign::Baseline;

    // Dimension: distance of the dimension line from the measured points,
    // to the left of the direction points[0] -> points[1] (negative: to the right).
    double offset = 0;

    // A label that stays where it is put (a number in its bubble): others make way for it.
    bool pinned = false;
    // A line from a label moved away from what it names back to it.
    bool leader = false;
    // A label's: the point it names, where a leader goes should it have to move away.
    std::optional<Point> names;

    int level = 0;      // the layer the shape belongs to (a DGN level)
    std::string source; // the input it shows, as a control name ("txtCapStep(3)"); empty for none
    Mark mark = Mark::Normal;
};

struct Box {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
    bool empty = true;
    void add(const Point& p);
    void add(const Box& b);
    double width() const { return empty ? 0 : maxX - minX; }
    double height() const { return empty ? 0 : maxY - minY; }
};

// Plain polylines in bulk, for drawings of a whole bridge (hundreds of
// thousands of lines): a few bytes of pen, level and place each, the points
// in blocks of their own, instead of a Shape and an allocation per line.
class Polylines {
  public:
    struct Style {
        Pen pen;
        std::optional<Color> fill; // a closed line filled
        int level = 0;
        bool closed = false;
    };

    void add(std::span<const Point> points, const Style& style);
    void reserve(std::size_t lines) { lines_.reserve(lines); }
    std::size_t size() const { return lines_.size(); }
    bool empty() const { return lines_.empty(); }
    const Style& style(std::size_t i) const { return lines_[i].style; }
    std::span<const Point> points(std::size_t i) const {
        const Line& l = lines_[i];
        return {blocks_[l.block].data() + l.first, l.count};
    }
    // Line i as a Shape, for code that wants one.
    Shape shape(std::size_t i) const;

  private:
    struct Line {
        Style style;
        std::uint32_t block = 0, first = 0, count = 0;
    };
    std::vector<Line> lines_;
    std::vector<std::vector<Point>> blocks_;
};

struct Scene {
    std::vector<Shape> shapes;
    // Drawn before the shapes, so texts, arcs and dimensions stay on top.
    Polylines polylines;
    // Room kept for what is sized in points (labels, and the margin of a
    // drawing laid out for a view), which the shapes' points alone do not give.
    Box room;
    // The scale its labels were placed for, in feet (world units) a point on
    // the page: a view shows it at that scale. 0 for a drawing of any scale.
    double feetPerPoint = 0;

    // The extent of the geometry and the room kept; screen-sized text counts only by its anchor.
    Box bounds() const;
    // The levels the shapes and polylines use, ascending.
    std::vector<int> levels() const;

    // Builders for the common cases; each returns the shape for further settings.
    Shape& line(Point a, Point b, const Pen& pen = {});
    Shape& polyline(std::vector<Point> points, bool closed, const Pen& pen = {});
    Shape& text(Point at, std::string text, double height, HAlign h = HAlign::Left, VAlign v = VAlign::Baseline);
    Shape& dimension(Point a, Point b, double offset, std::string label);
    Shape& arc(Point center, double rx, double ry, double start, double sweep, const Pen& pen = {});
};

} // namespace tw::drawing
