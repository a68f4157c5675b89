// SPDX-License-Identifier: Apache-2.0
#include "render/ScenePainter.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPolygonF>
#include <QStaticText>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <numbers>
#include <tuple>

#include <fcntl.h>
#include <unistd.h>

namespace tw {

namespace {

using drawing::Shape;

constexpr double kPointsPerInch = 72.0;
constexpr double kMmPerInch = 25.4;
const QColor kHighlight(0, 120, 215);
const QColor kError(220, 0, 0);
const QColor kPlaceholder(128, 128, 128);

double deviceDpi(const QPainter& p) { return p.device() ? p.device()->logicalDpiY() : 96.0; }

QColor colorOf(const Shape& s, const PaintOptions& o) {
    if (!o.highlight.empty() && s.source == o.highlight) return kHighlight;
    if (s.mark == drawing::Mark::Error) return kError;
    if (s.mark == drawing::Mark::Placeholder) return kPlaceholder;
    return QColor(s.pen.color.r, s.pen.color.g, s.pen.color.b);
}

QPointF map(const QTransform& t, const drawing::Point& p) { return t.map(QPointF(p.x, p.y)); }

QPen qPen(const QColor& color, double width, drawing::LineStyle style) {
    QPen pen(color, width);
    pen.setCosmetic(true);
    pen.setJoinStyle(Qt::MiterJoin);
    switch (style) {
    case drawing::LineStyle::Solid: break;
    case drawing::LineStyle::Dashed: pen.setDashPattern({6, 4}); break;
    case drawing::LineStyle::Center: pen.setDashPattern({14, 4, 3, 4}); break;
    case drawing::LineStyle::Dotted: pen.setDashPattern({1.5, 3}); break;
    }
    return pen;
}

double deviceWidth(const drawing::Pen& pen, double dpi) { return std::max(1.0, pen.width * dpi / kMmPerInch); }

QColor qColor(const drawing::Color& c) { return QColor(c.r, c.g, c.b); }

void paintPolyline(QPainter& p, const drawing::Polylines& lines, std::size_t i, const QTransform& t, double dpi,
                   QPolygonF& poly) {
    const drawing::Polylines::Style& style = lines.style(i);
    poly.clear();
    for (const auto& pt : lines.points(i))
        poly << map(t, pt);
    p.setPen(qPen(qColor(style.pen.color), deviceWidth(style.pen, dpi), style.pen.style));
    p.setBrush(style.fill ? QBrush(qColor(*style.fill)) : QBrush(Qt::NoBrush));
    if (style.closed)
        p.drawPolygon(poly);
    else
        p.drawPolyline(poly);
}

// Levels are looked up once a line: the usual ones (a design file has 64) in a table.
class HiddenLevels {
  public:
    explicit HiddenLevels(const std::set<int>& hidden) : hidden_(hidden) {
        for (int level : hidden)
            if (level >= 0 && level < 64) table_[level] = true;
    }
    bool operator()(int level) const { return level >= 0 && level < 64 ? table_[level] : hidden_.count(level) > 0; }

  private:
    const std::set<int>& hidden_;
    bool table_[64] = {};
};

void paintPolylines(QPainter& p, const drawing::Polylines& lines, const QTransform& t, const PaintOptions& o,
                    double dpi) {
    const HiddenLevels hidden(o.hiddenLevels);
    QPolygonF poly;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (!hidden(lines.style(i).level)) paintPolyline(p, lines, i, t, dpi, poly);
}

// A view of a large drawing draws each line at the size it can show: lines
// a few pixels long as plain pixels on a layer of their own (a pen's width,
// dashes and antialiasing cannot show at that size), the largest with the
// painter, and nothing outside the view.
constexpr std::size_t kDetailedLines = 3000; // what the painter draws within a frame, with time to spare
constexpr double kPlainPixels = 16;          // lines at most this long may be drawn as pixels

class PixelLayer {
  public:
    PixelLayer(int width, int height)
        : image_(width, height, QImage::Format_ARGB32_Premultiplied), width_(width), height_(height) {
        image_.fill(Qt::transparent);
        bits_ = reinterpret_cast<quint32*>(image_.bits());
        stride_ = image_.bytesPerLine() / 4;
    }
    const QImage& image() const { return image_; }
    void plot(int x, int y, quint32 color) {
        if (x >= 0 && y >= 0 && x < width_ && y < height_) bits_[y * stride_ + x] = color;
    }
    // Bresenham's line, ends included.
    void line(int x0, int y0, int x1, int y1, quint32 color) {
        const int dx = std::abs(x1 - x0), dy = -std::abs(y1 - y0);
        const int sx = x0 < x1 ? 1 : -1, sy = y0 < y1 ? 1 : -1;
        int e = dx + dy;
        for (;;) {
            plot(x0, y0, color);
            if (x0 == x1 && y0 == y1) return;
            const int e2 = 2 * e;
            if (e2 >= dy) {
                e += dy;
                x0 += sx;
            }
            if (e2 <= dx) {
                e += dx;
                y0 += sy;
            }
        }
    }

  private:
    QImage image_;
    int width_ = 0, height_ = 0;
    quint32* bits_ = nullptr;
    qsizetype stride_ = 0;
};

void paintPolylinesByDetail(QPainter& p, const drawing::Polylines& lines, const drawing::SceneIndex& index,
                            const QTransform& t, const PaintOptions& o, double dpi) {
    const QSize size(p.device()->width(), p.device()->height());
    const double ratio = p.device()->devicePixelRatio();
    const double scale = std::abs(t.m11()), sx = t.m11() * ratio, sy = t.m22() * ratio, dx = t.dx() * ratio,
                 dy = t.dy() * ratio;
    const QRectF seen =
        t.inverted().mapRect(QRectF(QPointF(0, 0), size)).adjusted(-2 / scale, -2 / scale, 2 / scale, 2 / scale);
    drawing::Box view;
    view.add(drawing::Point{seen.left(), seen.top()});
    view.add(drawing::Point{seen.right(), seen.bottom()});
    const HiddenLevels hidden(o.hiddenLevels);
    std::vector<std::uint32_t> visible;
    index.visit(view, [&](std::uint32_t i) {
        if (!hidden(lines.style(i).level)) visible.push_back(i);
    });
    auto extent = [&](std::uint32_t i) {
        const auto& b = index.box(i);
        return std::max(b.maxX - b.minX, b.maxY - b.minY) * scale;
    };
    // The largest lines, up to what the painter draws in a frame, keep every
    // detail: a count of the lines by their length in pixels finds the cut.
    double plainUpTo = 0;
    if (visible.size() > kDetailedLines) {
        constexpr int kBins = 1024;
        std::vector<std::uint32_t> longer(kBins + 1, 0);
        for (const auto i : visible)
            ++longer[std::min(kBins, static_cast<int>(extent(i)))];
        std::size_t above = 0;
        int bin = kBins;
        while (bin > 0 && above + longer[bin] <= kDetailedLines)
            above += longer[bin--];
        plainUpTo = std::max(kPlainPixels, static_cast<double>(bin + 1));
    }
    std::vector<std::uint32_t> detailed;
    if (plainUpTo > 0) {
        PixelLayer layer(static_cast<int>(std::ceil(size.width() * ratio)),
                         static_cast<int>(std::ceil(size.height() * ratio)));
        for (const auto i : visible) {
            if (extent(i) > plainUpTo) {
                detailed.push_back(i);
                continue;
            }
            const auto& c = lines.style(i).pen.color;
            const quint32 color = qRgb(c.r, c.g, c.b);
            const auto points = lines.points(i);
            // Truncated, not floored: a pixel's difference only left of or above the view.
            int x0 = static_cast<int>(points[0].x * sx + dx), y0 = static_cast<int>(points[0].y * sy + dy);
            for (std::size_t k = 1; k < points.size(); ++k) {
                const int x1 = static_cast<int>(points[k].x * sx + dx), y1 = static_cast<int>(points[k].y * sy + dy);
                layer.line(x0, y0, x1, y1, color);
                x0 = x1;
                y0 = y1;
            }
            if (points.size() == 1) layer.plot(x0, y0, color);
        }
        QImage image = layer.image();
        image.setDevicePixelRatio(ratio);
        p.save();
        p.resetTransform();
        p.drawImage(QPointF(0, 0), image);
        p.restore();
    } else {
        detailed = std::move(visible);
    }
    QPolygonF poly;
    for (const auto i : detailed)
        paintPolyline(p, lines, i, t, dpi, poly);
}

// The points of an elliptical arc in device space, fine enough to look round.
QPolygonF arcPolygon(const Shape& s, const QTransform& t) {
    QPolygonF poly;
    const double rot = s.rotation * std::numbers::pi / 180;
    const int steps = std::clamp(static_cast<int>(std::abs(s.sweep) / 2), 8, 360);
    for (int i = 0; i <= steps; ++i) {
        const double a = (s.start + s.sweep * i / steps) * std::numbers::pi / 180;
        const double x = s.rx * std::cos(a), y = s.ry * std::sin(a);
        poly << t.map(QPointF(s.center.x + x * std::cos(rot) - y * std::sin(rot),
                              s.center.y + x * std::sin(rot) + y * std::cos(rot)));
    }
    return poly;
}

QFont fontFor(const Shape& s, const QTransform& t, double dpi) {
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setStyleHint(QFont::SansSerif);
    double px = s.screenSized ? s.height * dpi / kPointsPerInch : s.height * std::sqrt(std::abs(t.determinant()));
    f.setPixelSize(std::max(1, static_cast<int>(std::lround(px))));
    return f;
}

// Most texts of a drawing share a size: the painter keeps its font while it can.
void useFont(QPainter& p, const Shape& s, const QTransform& t, double dpi) {
    const QFont f = fontFor(s, t, dpi);
    if (p.font().pixelSize() != f.pixelSize() || p.font().family() != f.family()) p.setFont(f);
}

// Texts laid out once for each font: a drawing repainted, or laid out again
// after an edit, shows mostly the texts it showed, and shaping them is most
// of what painting text costs.
class TextCache {
  public:
    struct Text {
        QStaticText text;
        double width = 0;
    };
    struct Metrics {
        double ascent = 0, descent = 0, lineSpacing = 0;
    };

    const Text& text(const QFont& font, const QString& s) {
        if (texts_.size() > 4096) texts_.clear();
        auto [it, added] = texts_.try_emplace({font.key(), s});
        if (added) {
            it->second.text.setText(s);
            it->second.text.setTextFormat(Qt::PlainText);
            it->second.text.prepare(QTransform(), font);
            it->second.width = QFontMetricsF(font).horizontalAdvance(s);
        }
        return it->second;
    }
    const Metrics& metrics(const QFont& font) {
        auto [it, added] = metrics_.try_emplace(font.key());
        if (added) {
            const QFontMetricsF fm(font);
            it->second = {fm.ascent(), fm.descent(), fm.lineSpacing()};
        }
        return it->second;
    }

  private:
    std::map<std::pair<QString, QString>, Text> texts_;
    std::map<QString, Metrics> metrics_;
};

TextCache& textCache() {
    static TextCache cache;
    return cache;
}

// Draws text anchored at `at` (device), turned by `degrees` counter-clockwise.
void drawAnchoredText(QPainter& p, const QString& text, const QPointF& at, double degrees, drawing::HAlign h,
                      drawing::VAlign v) {
    const auto& m = textCache().metrics(p.font());
    const auto& laid = textCache().text(p.font(), text);
    const double w = laid.width;
    double x = 0;
    if (h == drawing::HAlign::Center) x = -w / 2;
    if (h == drawing::HAlign::Right) x = -w;
    double y = 0; // the baseline
    switch (v) {
    case drawing::VAlign::Baseline: break;
    case drawing::VAlign::Bottom: y = -m.descent; break;
    case drawing::VAlign::Middle: y = (m.ascent - m.descent) / 2; break;
    case drawing::VAlign::Top: y = m.ascent; break;
    }
    p.save();
    p.translate(at);
    p.rotate(-degrees);
    p.drawStaticText(QPointF(x, y - m.ascent), laid.text);
    p.restore();
}

void paintText(QPainter& p, const Shape& s, const QTransform& t, double dpi) {
    if (s.points.empty() || s.text.empty()) return;
    useFont(p, s, t, dpi);
    const QString text = QString::fromStdString(s.text);
    // Multi-line text stacks downwards from the anchor's line.
    const QStringList lines = text.split(QLatin1Char('\n'));
    const double step = textCache().metrics(p.font()).lineSpacing;
    QPointF at = map(t, s.points.front());
    const double rad = -s.angle * std::numbers::pi / 180;
    for (const QString& line : lines) {
        drawAnchoredText(p, line, at, s.angle, s.halign, s.valign);
        at += QPointF(-std::sin(rad) * step, std::cos(rad) * step);
    }
}

void arrowHead(QPainter& p, const QPointF& tip, const QPointF& dir, double size) {
    const QPointF n(-dir.y(), dir.x());
    QPolygonF head;
    head << tip << tip - dir * size + n * size * 0.3 << tip - dir * size - n * size * 0.3;
    p.drawPolygon(head);
}

void paintDimension(QPainter& p, const Shape& s, const QTransform& t, double dpi) {
    if (s.points.size() != 2) return;
    const drawing::Point a = s.points[0], b = s.points[1];
    const double dx = b.x - a.x, dy = b.y - a.y, len = std::hypot(dx, dy);
    if (len <= 0) return;
    const drawing::Point n{-dy / len * s.offset, dx / len * s.offset};
    const QPointF pa = map(t, a), pb = map(t, b);
    const QPointF da = map(t, {a.x + n.x, a.y + n.y}), db = map(t, {b.x + n.x, b.y + n.y});
    const double px = dpi / kPointsPerInch;

    // Extension lines leave a small gap at the object and run a little past the dimension line.
    auto extension = [&](QPointF from, QPointF to) {
        const QPointF d = to - from;
        const double l = std::hypot(d.x(), d.y());
        if (l < 1) return;
        const QPointF u = d / l;
        p.drawLine(from + u * std::min(2 * px, l / 2), to + u * 3 * px);
    };
    if (s.offset != 0) {
        extension(pa, da);
        extension(pb, db);
    }
    p.drawLine(da, db);
    const QPointF d = db - da;
    const double dl = std::hypot(d.x(), d.y());
    if (dl < 1) return;
    const QPointF u = d / dl;
    const double arrow = 7 * px;
    p.save();
    p.setBrush(p.pen().color());
    if (dl > 2.5 * arrow) {
        arrowHead(p, da, -u, arrow);
        arrowHead(p, db, u, arrow);
    } else { // too short for arrows inside: they point in from outside
        arrowHead(p, da, u, arrow);
        arrowHead(p, db, -u, arrow);
        p.drawLine(da - u * arrow * 1.5, da);
        p.drawLine(db, db + u * arrow * 1.5);
    }
    p.restore();
    if (s.text.empty()) return;
    // The label sits on the far side of the dimension line, read from below or from the right.
    double degrees = -std::atan2(d.y(), d.x()) * 180 / std::numbers::pi;
    if (degrees > 90.5 || degrees < -89.5) degrees += degrees > 0 ? -180 : 180;
    useFont(p, s, t, dpi);
    const QPointF mid = (da + db) / 2;
    QPointF away = (da - pa);
    const double al = std::hypot(away.x(), away.y());
    // The label grows away from the measured object: toward the text's top
    // when that is the side away from the object, else from its top down.
    const double r = degrees * std::numbers::pi / 180;
    const QPointF textUp(-std::sin(r), -std::cos(r));
    const bool textAbove = al < 1 || QPointF::dotProduct(textUp, away) >= 0;
    drawAnchoredText(p, QString::fromStdString(s.text), mid + (al < 1 ? QPointF() : away / al * 2 * px), degrees,
                     drawing::HAlign::Center, textAbove ? drawing::VAlign::Bottom : drawing::VAlign::Top);
}

// The PNG writer's own complaints (out of memory) stay off standard error
// while it writes: the caller's message says once that the picture could not
// be made. libpng prints some itself, before Qt's handlers are set.
class QuietStandardError {
  public:
    QuietStandardError() {
        std::fflush(stderr);
        saved_ = ::dup(STDERR_FILENO);
        const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (saved_ >= 0 && null >= 0) ::dup2(null, STDERR_FILENO);
        if (null >= 0) ::close(null);
    }
    // Also when the writer runs out of memory and throws.
    ~QuietStandardError() {
        std::fflush(stderr);
        if (saved_ < 0) return;
        ::dup2(saved_, STDERR_FILENO);
        ::close(saved_);
    }
    QuietStandardError(const QuietStandardError&) = delete;
    QuietStandardError& operator=(const QuietStandardError&) = delete;

  private:
    int saved_ = -1;
};

bool savedQuietly(const QImage& image, QBuffer& buffer) {
    const QuietStandardError quiet;
    return image.save(&buffer, "PNG");
}

} // namespace

QTransform fitTransform(const drawing::Box& box, const QRectF& target, double marginFraction) {
    const double w = std::max(box.width(), 1e-9), h = std::max(box.height(), 1e-9);
    const QRectF inner = target.adjusted(target.width() * marginFraction, target.height() * marginFraction,
                                         -target.width() * marginFraction, -target.height() * marginFraction);
    double scale = std::min(inner.width() / w, inner.height() / h);
    if (box.empty || !std::isfinite(scale) || scale <= 0) scale = 1;
    const double cx = box.empty ? 0 : (box.minX + box.maxX) / 2, cy = box.empty ? 0 : (box.minY + box.maxY) / 2;
    QTransform t;
    t.translate(inner.center().x(), inner.center().y());
    t.scale(scale, -scale);
    t.translate(-cx, -cy);
    return t;
}

void paintScene(QPainter& p, const drawing::Scene& scene, const QTransform& t, const PaintOptions& o,
                const drawing::SceneIndex* index) {
    const double dpi = deviceDpi(p);
    // A drawing laid out for a scale keeps its picture at any other: its text, arrowheads
    // and gaps grow and shrink with it, as a zoom on paper would, so nothing comes to overlap.
    const double textDpi = scene.feetPerPoint > 0 ? std::abs(t.m11()) * scene.feetPerPoint * kPointsPerInch : dpi;
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    // Pixels of our own only where the painter's are pixels, and the view is not turned.
    const bool byDetail = index && index->size() == scene.polylines.size() && p.paintEngine() &&
                          p.paintEngine()->type() == QPaintEngine::Raster && t.type() <= QTransform::TxScale &&
                          p.transform().isIdentity();
    if (byDetail)
        paintPolylinesByDetail(p, scene.polylines, *index, t, o, dpi);
    else
        paintPolylines(p, scene.polylines, t, o, dpi);
    // Highlighted shapes last, so they stay on top.
    std::vector<const Shape*> order;
    order.reserve(scene.shapes.size());
    for (const auto& s : scene.shapes)
        if (!o.hiddenLevels.count(s.level)) order.push_back(&s);
    if (!o.highlight.empty())
        std::stable_partition(order.begin(), order.end(), [&](const Shape* s) { return s->source != o.highlight; });
    // What the device shows, in the drawing's units: a shape wholly outside it is not drawn
    // (a drawing running on below a small view, a zoomed view).
    const QRectF shown =
        t.inverted().mapRect(p.transform().inverted().mapRect(QRectF(0, 0, p.device()->width(), p.device()->height())));
    const double pointInWorld = textDpi / kPointsPerInch / std::max(std::abs(t.m11()), 1e-12);
    auto outside = [&](const Shape& s) {
        double reach = 0; // of text beyond its anchor
        if (s.kind == Shape::Kind::Text || s.kind == Shape::Kind::Dimension)
            reach = (s.screenSized ? s.height * pointInWorld : s.height) * (static_cast<double>(s.text.size()) + 2);
        if (s.kind == Shape::Kind::Arc) reach = std::max(s.rx, s.ry);
        if (s.kind == Shape::Kind::Dimension) reach += std::abs(s.offset);
        double x0 = 1e300, y0 = 1e300, x1 = -1e300, y1 = -1e300;
        for (const auto& pt : s.kind == Shape::Kind::Arc ? std::vector<drawing::Point>{s.center} : s.points) {
            x0 = std::min(x0, pt.x);
            y0 = std::min(y0, pt.y);
            x1 = std::max(x1, pt.x);
            y1 = std::max(y1, pt.y);
        }
        return x1 + reach < shown.left() || x0 - reach > shown.right() || y1 + reach < shown.top() ||
               y0 - reach > shown.bottom();
    };
    // Most shapes share a pen: each one made once.
    std::map<std::tuple<QRgb, double, int>, QPen> pens;
    for (const Shape* sp : order) {
        const Shape& s = *sp;
        if (outside(s)) continue;
        const QColor color = colorOf(s, o);
        const bool highlighted = !o.highlight.empty() && s.source == o.highlight;
        const auto style = s.mark == drawing::Mark::Placeholder ? drawing::LineStyle::Dashed : s.pen.style;
        const double width = highlighted ? std::max(deviceWidth(s.pen, dpi) * 2.0, 2.5) : deviceWidth(s.pen, dpi);
        auto [pen, added] = pens.try_emplace({color.rgba(), width, static_cast<int>(style)});
        if (added) pen->second = qPen(color, width, style);
        p.setPen(pen->second);
        p.setBrush(Qt::NoBrush);
        switch (s.kind) {
        case Shape::Kind::Polyline: {
            QPolygonF poly;
            for (const auto& pt : s.points)
                poly << map(t, pt);
            if (s.fill) {
                const QColor fill(s.fill->r, s.fill->g, s.fill->b);
                p.setBrush(!o.highlight.empty() && s.source == o.highlight ? fill.darker(115) : fill);
            }
            if (s.closed || s.fill)
                p.drawPolygon(poly);
            else
                p.drawPolyline(poly);
            break;
        }
        case Shape::Kind::Arc: {
            const bool full = std::abs(s.sweep) >= 360;
            if (full && s.fill) p.setBrush(QColor(s.fill->r, s.fill->g, s.fill->b));
            // Unturned, in a view that only scales and mirrors: the painter's own ellipse.
            if (s.rotation == 0 && t.type() <= QTransform::TxScale && t.m11() > 0 && t.m22() < 0) {
                const QPointF c = map(t, s.center);
                const QRectF r(c.x() - s.rx * t.m11(), c.y() + s.ry * t.m22(), 2 * s.rx * t.m11(), -2 * s.ry * t.m22());
                if (full)
                    p.drawEllipse(r);
                else
                    p.drawArc(r, static_cast<int>(std::lround(s.start * 16)),
                              static_cast<int>(std::lround(s.sweep * 16)));
                break;
            }
            QPolygonF poly = arcPolygon(s, t);
            if (s.fill && full)
                p.drawPolygon(poly);
            else
                p.drawPolyline(poly);
            break;
        }
        case Shape::Kind::Text: paintText(p, s, t, textDpi); break;
        case Shape::Kind::Dimension: paintDimension(p, s, t, textDpi); break;
        }
    }
    p.restore();
}

QString exportSuffixes() { return QStringLiteral(".svg, .pdf or .png"); }

bool exportScene(const drawing::Scene& scene, const QString& path, QString* error, const FileWriter& write,
                 const QString& title, const PaintOptions& options) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    auto fail = [&](const QString& why) {
        if (error) *error = why;
        return false;
    };
    const drawing::Box box = scene.bounds();
    // Pictures keep the drawing's proportions, within sensible limits.
    const double aspect = box.width() > 0 && box.height() > 0 ? std::clamp(box.height() / box.width(), 0.3, 1.5) : 0.6;
    auto paintInto = [&](QPaintDevice& device, const QRectF& target) {
        QPainter p;
        if (!p.begin(&device)) return false;
        p.fillRect(target, options.background);
        paintScene(p, scene, fitTransform(box, target), options);
        return p.end();
    };
    // The whole picture is made in memory first, so a failure leaves no part of it on disk.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const QString notDrawn = QStringLiteral("%1: the picture cannot be drawn.").arg(path);
    if (suffix == QLatin1String("svg")) {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        const QSize size(1600, static_cast<int>(1600 * aspect));
        svg.setSize(size);
        svg.setViewBox(QRect(QPoint(0, 0), size));
        svg.setResolution(96);
        svg.setTitle(title);
        if (!paintInto(svg, QRectF(QPointF(0, 0), size))) return fail(notDrawn);
    } else if (suffix == QLatin1String("pdf")) {
        QPdfWriter pdf(&buffer);
        pdf.setTitle(title);
        pdf.setCreator(QStringLiteral("Tarnwick"));
        pdf.setResolution(300);
        pdf.setPageLayout(QPageLayout(QPageSize(QPageSize::A4),
                                      aspect > 1 ? QPageLayout::Portrait : QPageLayout::Landscape,
                                      QMarginsF(12, 12, 12, 12), QPageLayout::Millimeter));
        const QRect page = pdf.pageLayout().paintRectPixels(pdf.resolution());
        if (!paintInto(pdf, QRectF(0, 0, page.width(), page.height()))) return fail(notDrawn);
    } else if (suffix == QLatin1String("png")) {
        QImage image(1600, static_cast<int>(1600 * aspect), QImage::Format_ARGB32_Premultiplied);
        if (image.isNull()) return fail(notDrawn);
        image.setDotsPerMeterX(3780); // 96 dpi
        image.setDotsPerMeterY(3780);
        if (!paintInto(image, QRectF(image.rect())) || !savedQuietly(image, buffer)) return fail(notDrawn);
    } else {
        return fail(
            QStringLiteral("%1: the picture's type is told by its suffix, one of %2.").arg(path, exportSuffixes()));
    }
    buffer.close();
    if (bytes.isEmpty()) return fail(notDrawn);
    const WriteResult written = write(path.toStdString(), std::string(bytes.constData(), bytes.size()));
    if (written.errorNumber != 0) return fail(QString::fromStdString(written.error) + QLatin1Char('.'));
    return true;
}

} // namespace tw
