// SPDX-License-Identifier: Apache-2.0
// Listings print one printed line per file line, pages breaking when full.
#include "Pdf.h"
#include "gui/GuiPorts.h"

#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace tw {

class PrintingTest : public QObject {
    Q_OBJECT

  private slots:
    void aLongListingFillsPagesInOrder() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        PrintDocument doc;
        doc.file = "listing.egen";
        for (int i = 1; i <= 150; ++i)
            doc.lines.push_back("LINE " + std::to_string(i) + std::string(100, '-') + " past the right margin");
        doc.lines.push_back("-1 starts no new page");

        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::Letter));
        const QString one = dir.filePath(QStringLiteral("one.pdf"));
        printer.setOutputFileName(one);
        doc.lines.resize(10);
        QVERIFY(printListing(printer, doc));
        QCOMPARE(test::pdfPages(one), 1);

        for (int i = 11; i <= 151; ++i)
            doc.lines.push_back("LINE " + std::to_string(i));
        const QString many = dir.filePath(QStringLiteral("many.pdf"));
        printer.setOutputFileName(many);
        QVERIFY(printListing(printer, doc));
        // 8-point lines: a letter page holds between 60 and 90 of them.
        const int n = test::pdfPages(many);
        QVERIFY2(n >= 2 && n <= 3, qPrintable(QString::number(n)));
    }
};

} // namespace tw

QTEST_MAIN(tw::PrintingTest)
#include "PrintingTest.moc"
