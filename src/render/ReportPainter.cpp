// SPDX-License-Identifier: Apache-2.0
#include "render/ReportPainter.h"

#include "core/drawing/BentDrawing.h"
#include "core/drawing/BentInputs.h"
#include "core/model/Project.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QLocale>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

namespace tw {

namespace {

QString q(const std::string& s) { return QString::fromStdString(s); }

// A project not saved yet has no file: the report says so where the name would be.
QString shownPath(const Report& r) { return r.path.empty() ? QStringLiteral("(not saved)") : q(r.path); }
QString shownName(const Report& r) {
    return r.path.empty() ? QStringLiteral("(not saved)") : QFileInfo(q(r.path)).fileName();
}
// The foot of every page says when the pages are not what the file holds.
QString footerName(const Report& r) {
    return r.source.empty() ? shownName(r) : shownName(r) + QStringLiteral(" \u2013 unsaved");
}

constexpr int kElevationsPerPage = 3;

// Pages are laid out first and painted afterwards, so that every footer
// knows how many pages there are. Lengths are in points until painted.
class Pages {
  public:
    using Op = std::function<void(QPainter&)>;

    explicit Pages(QPagedPaintDevice& device) : device_(device) {
        const QRect r = device.pageLayout().paintRectPixels(device.logicalDpiX());
        scale_ = device.logicalDpiY() / 72.0;
        width_ = r.width() / scale_;
        height_ = r.height() / scale_;
        body_ = font(9);
        small_ = font(8);
        bold_ = font(10.5, true);
        title_ = font(14, true);
        footerHeight_ = lineHeight(small_) * 2;
    }

    double width() const { return width_; }
    double bodyBottom() const { return height_ - footerHeight_; }
    double y = 0;

    QFont font(double pt, bool bold = false) const {
        QFont f(QStringLiteral("DejaVu Sans"));
        f.setStyleHint(QFont::SansSerif);
        f.setPointSizeF(pt);
        f.setBold(bold);
        // A checker's tools read the words back: no "fi" ligatures.
        f.setStyleStrategy(QFont::PreferNoShaping);
        return f;
    }
    const QFont& body() const { return body_; }
    const QFont& small() const { return small_; }
    const QFont& bold() const { return bold_; }
    const QFont& title() const { return title_; }

    double lineHeight(const QFont& f) const { return QFontMetricsF(f, &device_).height() / scale_ * 1.15; }
    double textWidth(const QFont& f, const QString& s) const {
        return QFontMetricsF(f, &device_).horizontalAdvance(s) / scale_;
    }

    void newPage() {
        pages_.emplace_back();
        y = 0;
    }
    // Starts a new page unless `height` more points fit on this one.
    void need(double height) {
        if (pages_.empty() || y + height > bodyBottom()) newPage();
    }

    QRectF px(const QRectF& pt) const {
        return {pt.x() * scale_, pt.y() * scale_, pt.width() * scale_, pt.height() * scale_};
    }
    double px(double pt) const { return pt * scale_; }

    // One line of text, its top at `top`; aligned within [x, x + w].
    void text(double x, double top, double w, const QFont& f, const QString& s, Qt::Alignment align = Qt::AlignLeft) {
        const QRectF r = px(QRectF(x, top, w, lineHeight(f)));
        add([r, f, s, align](QPainter& p) {
            p.setFont(f);
            p.drawText(r, static_cast<int>(align | Qt::AlignVCenter) | Qt::TextDontClip, s);
        });
    }
    // Text broken at blanks within `w`, from the bottom of a box `h` high.
    int wrappedLines(const QFont& f, const QString& s, double w) const {
        const QRectF r = QFontMetricsF(f, &device_).boundingRect(QRectF(0, 0, px(w), 1e6), Qt::TextWordWrap, s);
        return std::max(1, static_cast<int>(std::lround(r.height() / QFontMetricsF(f, &device_).lineSpacing())));
    }
    void wrapped(double x, double top, double w, double h, const QFont& f, const QString& s) {
        const QRectF r = px(QRectF(x, top, w, h));
        add([r, f, s](QPainter& p) {
            p.setFont(f);
            p.drawText(r, Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap, s);
        });
    }
    void line(double x0, double y0, double x1, double y1, double widthPt = 0.5) {
        const QLineF l(px(x0), px(y0), px(x1), px(y1));
        const double w = px(widthPt);
        add([l, w](QPainter& p) {
            p.setPen(QPen(Qt::black, w));
            p.drawLine(l);
        });
    }
    void add(Op op) { pages_.back().push_back(std::move(op)); }

    bool paint(const QString& fileName) {
        QPainter p;
        if (!p.begin(&device_)) return false;
        const int count = static_cast<int>(pages_.size());
        for (int i = 0; i < count; ++i) {
            if (i > 0 && !device_.newPage()) return false;
            for (const auto& op : pages_[static_cast<size_t>(i)]) {
                p.save();
                op(p);
                p.restore();
            }
            // The footer: the file name and the page number.
            const double top = bodyBottom() + footerHeight_ * 0.4;
            p.setPen(QPen(Qt::black, px(0.5)));
            p.drawLine(QLineF(0, px(top), px(width_), px(top)));
            p.setFont(small_);
            const QRectF r = px(QRectF(0, top, width_, footerHeight_ * 0.6));
            p.drawText(r, Qt::AlignLeft | Qt::AlignBottom, fileName);
            p.drawText(r, Qt::AlignRight | Qt::AlignBottom, QStringLiteral("page %1 of %2").arg(i + 1).arg(count));
        }
        return p.end();
    }

  private:
    QPagedPaintDevice& device_;
    double scale_ = 1, width_ = 0, height_ = 0, footerHeight_ = 0;
    QFont body_, small_, bold_, title_;
    std::vector<std::vector<Op>> pages_;
};

void titleBlock(Pages& pg, const Report& r, const QDate& date) {
    pg.newPage();
    const double w = pg.width();
    const double pad = 6;
    double y = pad;
    pg.text(pad, y, w - 2 * pad, pg.title(), QStringLiteral("Pile Bent Report"));
    pg.text(pad, y, w - 2 * pad, pg.body(), q(r.program), Qt::AlignRight);
    y += pg.lineHeight(pg.title()) + 2;
    for (const auto& line : r.projectInfo) {
        pg.text(pad, y, w - 2 * pad, pg.bold(), q(line));
        y += pg.lineHeight(pg.bold());
    }
    y += 4;
    const double lh = pg.lineHeight(pg.body());
    // A long path is broken anywhere rather than cut off.
    const QString path = QStringLiteral("Project file: ") + shownPath(r);
    const double avail = w - 2 * pad;
    const int lines = std::max(1, static_cast<int>(std::ceil(pg.textWidth(pg.body(), path) / avail)));
    {
        const QRectF rect = pg.px(QRectF(pad, y, avail, lh * lines + 2));
        const QFont f = pg.body();
        pg.add([rect, f, path](QPainter& p) {
            p.setFont(f);
            p.drawText(rect, Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere, path);
        });
    }
    y += lh * lines + 2;
    if (!r.source.empty()) {
        pg.text(pad, y, avail, pg.bold(), q(r.source));
        y += pg.lineHeight(pg.bold()) + 2;
    }
    pg.text(pad, y, avail, pg.body(), QStringLiteral("Date: ") + date.toString(Qt::ISODate));
    y += lh + 8;
    pg.text(pad, y, avail, pg.body(), QStringLiteral("Checked by ______ Date ______"));
    y += lh + pad;
    const double top = 0, bottom = y;
    pg.line(0, top, w, top);
    pg.line(0, bottom, w, bottom);
    pg.line(0, top, 0, bottom);
    pg.line(w, top, w, bottom);
    pg.y = bottom + 12;
}

void inputs(Pages& pg, const Report& r) {
    const double w = pg.width();
    const double unitW = 34, valueW = 170;
    const double valueX = w - unitW - valueW;
    const double lh = pg.lineHeight(pg.body());
    for (const auto& sec : r.sections) {
        if (!sec.shown) continue;
        pg.need(pg.lineHeight(pg.bold()) + lh * 2 + 6);
        pg.y += 4;
        pg.text(0, pg.y, w, pg.bold(), q(sec.title));
        pg.y += pg.lineHeight(pg.bold());
        pg.line(0, pg.y, w, pg.y, 0.3);
        pg.y += 2;
        for (const auto& row : sec.rows) {
            if (!row.shown) continue;
            const QString prompt = q(row.prompt);
            // A prompt too long for its column keeps its line; the value goes under it.
            const bool below = pg.textWidth(pg.body(), prompt) > valueX - 6;
            pg.need(below ? 2 * lh : lh);
            pg.text(0, pg.y, w, pg.body(), prompt);
            if (below) pg.y += lh;
            pg.text(valueX, pg.y, valueW - 4, pg.body(), q(row.value), Qt::AlignLeft);
            pg.text(w - unitW, pg.y, unitW, pg.body(), q(row.unit));
            pg.y += lh;
        }
    }
}

// The bent table, as many columns as fit across a page each time, the bent
// number first on every page, the headings on top of every page.
void bentTable(Pages& pg, const Report& r) {
    if (r.headings.empty()) return;
    const QFont& f = pg.small();
    const double pad = 6, lh = pg.lineHeight(f);
    const int cols = static_cast<int>(r.headings.size());
    std::vector<double> widths(static_cast<size_t>(cols));
    // A heading wraps onto a few lines, so that a column is about as wide as its numbers; its unit
    // stands on a line of its own under it.
    std::vector<QString> headings(static_cast<size_t>(cols));
    for (int c = 0; c < cols; ++c) {
        const QString unit =
            c < static_cast<int>(r.headingUnits.size()) ? q(r.headingUnits[static_cast<size_t>(c)]) : QString();
        const QString heading = q(r.headings[static_cast<size_t>(c)]);
        headings[static_cast<size_t>(c)] = unit.isEmpty() ? heading : heading + QStringLiteral("\n(%1)").arg(unit);
        double m = pg.textWidth(f, heading) / 2.5;
        for (const QString& word :
             headings[static_cast<size_t>(c)].split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts))
            m = std::max(m, pg.textWidth(f, word));
        for (const auto& row : r.bents)
            if (c < static_cast<int>(row.size())) m = std::max(m, pg.textWidth(f, q(row[static_cast<size_t>(c)])));
        widths[static_cast<size_t>(c)] = m + 2 * pad;
    }
    std::vector<std::pair<int, int>> groups; // [first, last] after the bent number
    for (int c = 1; c < cols;) {
        double used = widths[0];
        int last = c;
        while (last < cols && (last == c || used + widths[static_cast<size_t>(last)] <= pg.width()))
            used += widths[static_cast<size_t>(last++)];
        groups.emplace_back(c, last - 1);
        c = last;
    }
    if (groups.empty()) groups.emplace_back(1, 0);
    const double headingH = pg.lineHeight(pg.bold());
    const int rowsPerPage = std::max(1, static_cast<int>((pg.bodyBottom() - headingH - 4 * lh) / lh));
    const int bents = static_cast<int>(r.bents.size());
    for (std::size_t g = 0; g < groups.size(); ++g) {
        const auto [first, last] = groups[g];
        for (int start = 0; start == 0 || start < bents; start += rowsPerPage) {
            pg.newPage();
            QString heading = QStringLiteral("Bent Table");
            if (groups.size() > 1)
                heading += QStringLiteral(" (part %1 of %2)").arg(static_cast<int>(g) + 1).arg(groups.size());
            pg.text(0, 0, pg.width(), pg.bold(), heading);
            double y = headingH;
            std::vector<int> shown = {0};
            for (int c = first; c <= last; ++c)
                shown.push_back(c);
            double x = 0;
            int headingLines = 1;
            for (int c : shown)
                headingLines = std::max(headingLines, pg.wrappedLines(f, headings[static_cast<size_t>(c)],
                                                                      widths[static_cast<size_t>(c)] - 2 * pad));
            for (int c : shown) {
                const double cw = widths[static_cast<size_t>(c)];
                pg.wrapped(x + pad, y, cw - 2 * pad, lh * headingLines, f, headings[static_cast<size_t>(c)]);
                x += cw;
            }
            y += lh * headingLines;
            pg.line(0, y, x, y, 0.4);
            auto rowAt = [&](const std::vector<std::string>& cells) {
                double cx = 0;
                for (int c : shown) {
                    const double cw = widths[static_cast<size_t>(c)];
                    const std::string cell = c < static_cast<int>(cells.size()) ? cells[static_cast<size_t>(c)] : "";
                    pg.text(cx + pad, y, cw - 2 * pad, f, q(cell), Qt::AlignRight);
                    cx += cw;
                }
                y += lh;
            };
            const int end = std::min(bents, start + rowsPerPage);
            for (int i = start; i < end; ++i)
                rowAt(r.bents[static_cast<size_t>(i)]);
            if (bents == 0) {
                pg.text(0, y + 2, pg.width(), f, QStringLiteral("The bent table holds no bents."));
            }
        }
    }
}

void scene(Pages& pg, const drawing::Scene& s, const QRectF& targetPt) {
    const QRectF target = pg.px(targetPt);
    auto shared = std::make_shared<drawing::Scene>(s);
    pg.add([shared, target](QPainter& p) { paintScene(p, *shared, fitTransform(shared->bounds(), target)); });
}

// The plan once, as large as a page allows; then the elevation of each bent, several to a page.
void drawings(Pages& pg, const Report& r, const Project& project) {
    const int bents = project.bents();
    const double headingH = pg.lineHeight(pg.bold());
    pg.newPage();
    pg.text(0, 0, pg.width(), pg.bold(), QStringLiteral("Plan"));
    // Each drawing says what its lengths read in and carries a scale bar: the page gives its scale.
    drawing::DrawOptions plan;
    plan.elevation = false;
    plan.title = false;
    plan.legend = true;
    plan.units = r.units;
    const double planH = pg.bodyBottom() - headingH - 4;
    const drawing::BentInputs first = drawing::readBentInputs(project, bents > 0 ? 1 : 0);
    // A long cap is drawn larger across the page's length, turned a quarter to read from the right.
    drawing::LayoutReport upright, turned;
    drawing::Scene along = drawing::drawBentToFit(first, plan, pg.width(), planH, &upright);
    drawing::Scene across = drawing::drawBentToFit(first, plan, planH, pg.width(), &turned);
    const QRectF area(0, headingH + 4, pg.width(), planH);
    if (turned.feetPerPoint > 0 && turned.feetPerPoint < upright.feetPerPoint) {
        const QRectF target = pg.px(QRectF(0, 0, area.height(), area.width()));
        const QPointF corner(pg.px(area.right()), pg.px(area.top()));
        auto shared = std::make_shared<drawing::Scene>(std::move(across));
        pg.add([shared, target, corner](QPainter& p) {
            p.translate(corner);
            p.rotate(90);
            paintScene(p, *shared, fitTransform(shared->bounds(), target));
        });
    } else {
        scene(pg, along, area);
    }

    drawing::DrawOptions elevation;
    elevation.plan = false;
    elevation.title = false;
    elevation.textPt = 8;
    elevation.legend = true;
    elevation.units = r.units;
    const double cellH = pg.bodyBottom() / kElevationsPerPage;
    const double drawH = cellH - headingH - 8;
    for (int i = 0; i < bents; ++i) {
        if (i % kElevationsPerPage == 0) pg.newPage();
        const double top = (i % kElevationsPerPage) * cellH;
        const auto& cells = r.bents[static_cast<size_t>(i)];
        pg.text(0, top, pg.width(), pg.bold(), QStringLiteral("Bent ") + q(cells.empty() ? std::string() : cells[0]));
        const drawing::BentInputs in = drawing::readBentInputs(project, i + 1);
        scene(pg, drawing::drawBentToFit(in, elevation, pg.width(), drawH),
              QRectF(0, top + headingH, pg.width(), drawH));
        if (i % kElevationsPerPage != kElevationsPerPage - 1 && i + 1 < bents)
            pg.line(0, top + cellH - 3, pg.width(), top + cellH - 3, 0.2);
    }
}

} // namespace

QPageSize reportPageSize(const QLocale& locale) {
    return QPageSize(locale.measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter : QPageSize::A4);
}

bool paintReport(const Report& report, const Project& project, QPagedPaintDevice& device, const QDate& date) {
    Pages pg(device);
    titleBlock(pg, report, date);
    inputs(pg, report);
    bentTable(pg, report);
    drawings(pg, report, project);
    return pg.paint(footerName(report));
}

bool exportReport(const Report& report, const Project& project, const QString& path, QString* error,
                  const FileWriter& write) {
    auto fail = [&](const QString& why) {
        if (error) *error = why;
        return false;
    };
    // Made in memory first, so a failure leaves no part of it on disk.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter pdf(&buffer);
        pdf.setTitle(QStringLiteral("Report of %1").arg(shownName(report)));
        pdf.setCreator(QStringLiteral("Tarnwick"));
        pdf.setResolution(300);
        pdf.setPageLayout(QPageLayout(reportPageSize(QLocale()), QPageLayout::Portrait, QMarginsF(15, 15, 15, 12),
                                      QPageLayout::Millimeter));
        if (!paintReport(report, project, pdf)) return fail(QStringLiteral("%1: the report cannot be made.").arg(path));
    }
    buffer.close();
    const WriteResult written = write(path.toStdString(), std::string(bytes.constData(), bytes.size()));
    if (written.errorNumber != 0) return fail(QString::fromStdString(written.error) + QLatin1Char('.'));
    return true;
}

} // namespace tw
