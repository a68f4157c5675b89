// SPDX-License-Identifier: Apache-2.0
#include "gui/ListingPrinter.h"

#include "platform/QtText.h"

#include <QDate>
#include <QFileInfo>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLocale>
#include <QPageLayout>
#include <QPrinter>

namespace tw {

namespace {

QFont listingFont() {
    QFont f(QStringLiteral("Courier New"), 8);
    f.setStyleHint(QFont::Monospace);
    if (!QFontInfo(f).fixedPitch()) {
        f = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        f.setPointSize(8);
    }
    return f;
}

} // namespace

ListingPrinter::ListingPrinter(QPrinter& printer) : printer_(printer) {
    printer_.setPageMargins(QMarginsF(0.5, 0.5, 0.5, 0.5), QPageLayout::Inch);
}

ListingPrinter::~ListingPrinter() { finish(); }

void ListingPrinter::header(const QString& file, int page) {
    const QRect area = painter_.viewport();
    QFont font = painter_.font();
    font.setBold(true);
    painter_.save();
    painter_.setFont(font);
    const QFontMetrics m(font, &printer_);
    const int y = m.ascent();
    painter_.drawText(0, y, file);
    const QString right =
        QStringLiteral("Page %1    %2").arg(page).arg(QLocale().toString(QDate::currentDate(), QLocale::ShortFormat));
    painter_.drawText(area.width() - m.horizontalAdvance(right), y, right);
    const int rule = m.height() + m.descent();
    painter_.drawLine(0, rule, area.width(), rule);
    painter_.restore();
}

bool ListingPrinter::print(const PrintDocument& doc) {
    if (failed_) return false;
    if (!started_) {
        printer_.setDocName(q(doc.file));
        if (!painter_.begin(&printer_)) {
            failed_ = true;
            return false;
        }
        started_ = true;
    } else {
        printer_.newPage();
    }
    painter_.setFont(listingFont());
    const QFontMetrics metrics(painter_.font(), &printer_);
    const int lineHeight = metrics.lineSpacing();
    const int pageHeight = painter_.viewport().height();
    // The header takes two lines and a gap at the top of each page.
    const int top = 3 * lineHeight + metrics.ascent();
    const QString name = QFileInfo(q(doc.file)).fileName();
    int page = 1;
    header(name, page);
    int y = top;
    for (const auto& line : doc.lines) {
        if (y + metrics.descent() > pageHeight) {
            printer_.newPage();
            header(name, ++page);
            y = top;
        }
        painter_.drawText(0, y, q(line));
        y += lineHeight;
    }
    return true;
}

bool ListingPrinter::finish() {
    if (!started_) return !failed_;
    started_ = false;
    return painter_.end();
}

bool printListing(QPrinter& printer, const PrintDocument& doc) {
    ListingPrinter job(printer);
    return job.print(doc) && job.finish();
}

} // namespace tw
