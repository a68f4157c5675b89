// SPDX-License-Identifier: Apache-2.0
// File > Export Report… and File > Print Report…: the checker's report of
// the project in the window, as a PDF or through the platform's print dialog.
#pragma once

#include <QString>

class QPrinter;
class QWidget;

namespace tw {

class App;

// The report of what the window holds, written to `path`; false with the reason in `error`.
bool exportReportTo(const App& app, const QString& path, QString* error);
// The report of what the window holds, printed on `printer` as its page layout says.
bool printReportOn(const App& app, QPrinter& printer);
// The report on the paper of the locale and the margins the PDF has.
void setReportPage(QPrinter& printer);

// The commands: a save dialog, then the PDF (the path written, empty when
// none); the print dialog, then the printer.
QString exportReport(QWidget* parent, const App& app);
void printReport(QWidget* parent, const App& app);

} // namespace tw
