// SPDX-License-Identifier: Apache-2.0
#include "gui/ReportCommands.h"

#include "core/app/App.h"
#include "core/output/Report.h"
#include "core/output/UnitsSetting.h"
#include "platform/SafeFile.h"
#include "render/ReportPainter.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

namespace tw {

namespace {

const QString kTitle = QStringLiteral("Report");

// The form, not the file: when the two differ the report says so in words.
Report reportOf(const App& app) {
    const std::string& path = app.project().currentFile;
    Report r = buildReport(app.project(), path);
    r.units = lengthUnits(app.session().system);
    if (app.modified() || path.empty()) {
        const QFileInfo file(QString::fromStdString(path));
        QString saved;
        if (!path.empty() && file.exists()) {
            const QDateTime at = file.lastModified();
            saved = QLocale().toString(at, at.date() == QDate::currentDate() ? QStringLiteral("HH:mm")
                                                                             : QStringLiteral("yyyy-MM-dd HH:mm"));
        }
        r.source = unsavedSource(path, saved.toStdString());
    }
    return r;
}

} // namespace

bool exportReportTo(const App& app, const QString& path, QString* error) {
    return tw::exportReport(reportOf(app), app.project(), path, error, replaceFile);
}

void setReportPage(QPrinter& printer) {
    printer.setPageLayout(QPageLayout(reportPageSize(QLocale()), QPageLayout::Portrait, QMarginsF(15, 15, 15, 12),
                                      QPageLayout::Millimeter));
}

bool printReportOn(const App& app, QPrinter& printer) { return paintReport(reportOf(app), app.project(), printer); }

QString exportReport(QWidget* parent, const App& app) {
    const QString current = QString::fromStdString(app.project().currentFile);
    const QString suggested =
        current.isEmpty()
            ? QDir::home().filePath(QStringLiteral("report.pdf"))
            : QFileInfo(current).dir().filePath(QFileInfo(current).completeBaseName() + QStringLiteral(".pdf"));
    QString path = QFileDialog::getSaveFileName(parent, QStringLiteral("Export Report"), suggested,
                                                QStringLiteral("PDF document (*.pdf)"));
    if (path.isEmpty()) return {};
    if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".pdf");
    QString error;
    if (exportReportTo(app, path, &error)) return path;
    QMessageBox::warning(parent, kTitle, error);
    return {};
}

void printReport(QWidget* parent, const App& app) {
    QPrinter printer(QPrinter::HighResolution);
    setReportPage(printer);
    const QString current = QString::fromStdString(app.project().currentFile);
    printer.setDocName(current.isEmpty() ? QStringLiteral("Report") : QFileInfo(current).fileName());
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (dialog.exec() != QDialog::Accepted) return;
    if (!printReportOn(app, printer))
        QMessageBox::warning(parent, kTitle,
                             QStringLiteral("The report could not be printed on %1.").arg(printer.printerName()));
}

} // namespace tw
