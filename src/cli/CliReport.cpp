// SPDX-License-Identifier: Apache-2.0
// tarnwick report FILE OUT: the checker's report of an input file as a PDF.
#include "cli/Cli.h"
#include "core/output/Report.h"
#include "platform/ProjectFile.h"
#include "platform/SafeFile.h"
#include "render/ReportPainter.h"

#include <QFileInfo>

#include <iostream>

namespace tw {

int cliReport(const CliOptions& opt, const std::string& file, const std::string& out) {
    if (QFileInfo(QString::fromStdString(out)).suffix().compare(QLatin1String("pdf"), Qt::CaseInsensitive) != 0) {
        std::cerr << "tarnwick: " << out << ": the report is a PDF, so its name ends in .pdf\n";
        return 2;
    }
    const ProjectRead read = readProjectFile(file);
    if (!read.ok()) {
        std::cerr << file << ": " << whyUnread(read) << '\n';
        return 1;
    }
    const std::string path = QFileInfo(QString::fromStdString(file)).absoluteFilePath().toStdString();
    Report report = buildReport(read.project, path);
    report.units = unitsOf(opt);
    QString error;
    if (!exportReport(report, read.project, QString::fromStdString(out), &error, replaceFile)) {
        std::cerr << "tarnwick: " << error.toStdString() << '\n';
        return 1;
    }
    return 0;
}

} // namespace tw
