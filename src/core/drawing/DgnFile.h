// SPDX-License-Identifier: Apache-2.0
// The engine's drawing (a MicroStation V7 design file) as plain records, one
// per element, and the turn of those records into a Scene. Reading the file
// itself is the platform's business, behind DrawingFileReader.
#pragma once

#include "core/drawing/Scene.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tw::drawing {

// An elliptical arc as the file gives it, when a reader knows it (angles in
// degrees, counter-clockwise).
struct DgnArc {
    Point center;
    double rx = 0, ry = 0, rotation = 0, start = 0, sweep = 360;
};

struct DgnElement {
    enum class Kind { Line, LineString, Shape, Arc, Ellipse, Text, Curve, ComplexChain, ComplexShape, Point, Other };
    Kind kind = Kind::Other;
    int type = 0; // the element type number of the file

    // The outline: one path for most elements, several for a shape with holes
    // or a chain of pieces. A text stands at paths[0][0].
    std::vector<std::vector<Point>> paths;
    bool closed = false; // the paths are rings

    int level = 0;
    int colorIndex = -1;       // into the file's colour table; -1: none
    std::optional<Color> rgb;  // the colour itself, when the reader knows it
    int weight = -1;           // 0..31; -1: none
    int style = -1;            // 0..7; -1: none
    std::optional<Color> fill; // the fill colour of a filled shape

    std::string text;
    std::optional<double> textSize;  // height of capitals in design units
    std::optional<double> textAngle; // degrees, counter-clockwise

    std::optional<DgnArc> arc;

    // The reader's feature style string (PEN, BRUSH, LABEL), as given.
    std::string styleString;
};

// What a reader hands each record to, one at a time.
using DgnElementSink = std::function<void(const DgnElement&)>;

// Reads a drawing file record by record. False with one sentence in `error`
// (naming the file) when the file is missing, not a drawing or damaged; the
// records handed over until then are to be dropped.
class DrawingFileReader {
  public:
    virtual ~DrawingFileReader() = default;
    virtual bool read(const std::string& path, const DgnElementSink& each, std::string& error) = 0;
    // All records at once, for small drawings.
    bool read(const std::string& path, std::vector<DgnElement>& elements, std::string& error);
};

// The entry of the loadable drawing reader (libtarnwick-dgn.so in the program
// folder): the records of a file already known to be a whole chain of
// elements. False when GDAL's DGN driver does not take it for a drawing.
using ReadDgnEntry = bool(const std::string& path, const DgnElementSink& each);
inline constexpr char kReadDgnEntry[] = "tarnwick_read_dgn";
inline constexpr char kDrawingReaderLibrary[] = "tarnwick-dgn";

// The element chain of a V7 design file walked as its bytes come, piece by
// piece: what stands wrong with it (elements running past the end, or no
// end-of-design mark), and how many elements it holds.
class DgnChainWalk {
  public:
    void feed(std::string_view bytes);
    // Whether the end-of-design mark was seen: later bytes do not count.
    bool ended() const { return ended_; }
    long elements() const { return elements_; }
    // After the last bytes: nothing when the chain is whole.
    std::optional<std::string> problem() const;

  private:
    size_t size_ = 0;  // bytes fed before the end mark
    size_t skip_ = 0;  // bytes of the current element still to come
    size_t start_ = 0; // where the current element starts
    unsigned char head_[4] = {};
    int headLength_ = 0;
    long elements_ = 0;
    bool ended_ = false;
};

// The chain of a whole file's bytes: nothing when it is whole.
std::optional<std::string> dgnChainProblem(std::string_view bytes);

// The colour of an index in the standard colour table of a design file.
Color dgnColor(int index);

// Turns records into a drawing one at a time, so that a reader need not
// hold them all: each path a polyline (Scene::polylines), a text or an arc a
// Shape; on the element's level, in its colour, weight and line style.
class DgnSceneBuilder {
  public:
    void reserve(std::size_t elements) { scene_.polylines.reserve(elements); }
    void add(const DgnElement& element);
    Scene take() { return std::move(scene_); }

  private:
    Scene scene_;
    std::vector<Point> points_;
};

// The drawing, one polyline per path (a text: one shape), on the element's
// level, in its colour, weight and line style. Points that are not numbers
// are left out; an element with nothing left to draw is skipped.
Scene sceneFromDgn(const std::vector<DgnElement>& elements);

} // namespace tw::drawing
