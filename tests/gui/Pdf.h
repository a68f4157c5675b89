// SPDX-License-Identifier: Apache-2.0
// What a printed PDF holds, for the printing tests.
#pragma once

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QString>

namespace tw::test {

// The number of pages: pdfinfo's count where poppler-utils is installed, else the page objects.
inline int pdfPages(const QString& pdf) {
    QProcess info;
    info.start(QStringLiteral("pdfinfo"), {pdf});
    if (info.waitForFinished(10000) && info.exitCode() == 0) {
        const auto m = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(info.readAllStandardOutput());
        if (m.hasMatch()) return m.captured(1).toInt();
    }
    QFile f(pdf);
    return f.open(QIODevice::ReadOnly) ? static_cast<int>(f.readAll().count("/Type /Page\n")) : -1;
}

} // namespace tw::test
