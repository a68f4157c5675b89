// SPDX-License-Identifier: Apache-2.0
// The checker's report laid out on pages: the title block and the inputs,
// the bent table (wide tables split across pages, the bent number on each),
// the plan and the elevation of every bent, with "page N of M" and the file
// name at the foot of every page. Text is text and drawings are vectors, on
// a PDF writer or a printer alike.
#pragma once

#include "core/output/Report.h"
#include "render/ScenePainter.h"

#include <QDate>
#include <QPageSize>

class QLocale;
class QPagedPaintDevice;

namespace tw {

class Project;

// The paper of the locale: Letter where it measures in US units, A4 elsewhere.
QPageSize reportPageSize(const QLocale& locale);

// Paints the report of `project` on `device`, whose page layout the caller
// has set; the date is the day the report is made. False when the device
// cannot be painted on.
bool paintReport(const Report& report, const Project& project, QPagedPaintDevice& device,
                 const QDate& date = QDate::currentDate());

// The report as a PDF on the locale's paper, made in memory and handed to
// `write` for `path`. False with a sentence in `error` when it cannot be
// made or written; then nothing new stands at `path`.
bool exportReport(const Report& report, const Project& project, const QString& path, QString* error,
                  const FileWriter& write);

} // namespace tw
