#include "render/ScenePainter.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPolygonF>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>
#include <numbers>

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

QPen penOf(const Shape& s, const PaintOptions& o, double dpi) {
    double width = deviceWidth(s.pen, dpi);
    if (!o.highlight.empty() && s.source == o.highlight) width = std::max(width * 2.0, 2.5);
    return qPen(colorOf(s, o), width, s.mark == drawing::Mark::Placeholder ? drawing::LineStyle::Dashed : s.pen.style);
}

QColor qColor(const drawing::Color& c) { return QColor(c.r, c.g, c.b); }

void paintPolylines(QPainter& p, const drawing::Polylines& lines, const QTransform& t, const PaintOptions& o,
                    double dpi) {
    QPolygonF poly;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const drawing::Polylines::Style& style = lines.style(i);
        if (o.hiddenLevels.count(style.level)) continue;
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

// Draws text anchored at `at` (device), turned by `degrees` counter-clockwise.
void drawAnchoredText(QPainter& p, const QString& text, const QPointF& at, double degrees, drawing::HAlign h,
                      drawing::VAlign v) {
    const QFontMetricsF fm(p.font());
    const double w = fm.horizontalAdvance(text);
    double x = 0;
    if (h == drawing::HAlign::Center) x = -w / 2;
    if (h == drawing::HAlign::Right) x = -w;
    double y = 0;
    switch (v) {
    case drawing::VAlign::Baseline: break;
    case drawing::VAlign::Bottom: y = -fm.descent(); break;
    case drawing::VAlign::Middle: y = (fm.ascent() - fm.descent()) / 2; break;
    case drawing::VAlign::Top: y = fm.ascent(); break;
    }
    p.save();
    p.translate(at);
    p.rotate(-degrees);
    p.drawText(QPointF(x, y), text);
    p.restore();
}

void paintText(QPainter& p, const Shape& s, const QTransform& t, double dpi) {
    if (s.points.empty() || s.text.empty()) return;
    useFont(p, s, t, dpi);
    const QString text = QString::fromStdString(s.text);
    // Multi-line text stacks downwards from the anchor's line.
    const QStringList lines = text.split(QLatin1Char('\n'));
    const double step = QFontMetricsF(p.font()).lineSpacing();
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

void paintScene(QPainter& p, const drawing::Scene& scene, const QTransform& t, const PaintOptions& o) {
    const double dpi = deviceDpi(p);
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    paintPolylines(p, scene.polylines, t, o, dpi);
    // Highlighted shapes last, so they stay on top.
    std::vector<const Shape*> order;
    order.reserve(scene.shapes.size());
    for (const auto& s : scene.shapes)
        if (!o.hiddenLevels.count(s.level)) order.push_back(&s);
    if (!o.highlight.empty())
        std::stable_partition(order.begin(), order.end(), [&](const Shape* s) { return s->source != o.highlight; });
    for (const Shape* sp : order) {
        const Shape& s = *sp;
        p.setPen(penOf(s, o, dpi));
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
            QPolygonF poly = arcPolygon(s, t);
            if (s.fill && std::abs(s.sweep) >= 360) {
                p.setBrush(QColor(s.fill->r, s.fill->g, s.fill->b));
                p.drawPolygon(poly);
            } else {
                p.drawPolyline(poly);
            }
            break;
        }
        case Shape::Kind::Text: paintText(p, s, t, dpi); break;
        case Shape::Kind::Dimension: paintDimension(p, s, t, dpi); break;
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
        if (!paintInto(image, QRectF(image.rect())) || !image.save(&buffer, "PNG")) return fail(notDrawn);
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
