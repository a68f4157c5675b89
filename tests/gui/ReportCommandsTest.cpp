// SPDX-License-Identifier: Apache-2.0
// The window's report commands: Export Report and Print Report beside the
// legacy Print, and the same report on a printer as in the exported PDF.
#include "Pdf.h"
#include "ShownWindow.h"

#include "gui/ReportCommands.h"

#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace tw {

namespace {

QString pdfText(const QString& pdf) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    if (!p.waitForFinished(20000)) return {};
    return QString::fromUtf8(p.readAllStandardOutput()).simplified();
}

} // namespace

class ReportCommandsTest : public QObject, public test::ShownWindow {
    Q_OBJECT

  private slots:
    void init() { openWindow(); }
    void cleanup() { closeWindow(); }

    void theReportCommandsFollowTheLegacyPrintAndLeaveTheRestInOrder() {
        QMenu* file = window->menuBar()->actions().first()->menu();
        QStringList names;
        for (QAction* a : file->actions())
            if (!a->isSeparator()) names << a->objectName();
        QStringList expected{"mnuNew",
                             "mnuOpen",
                             "mnuSave",
                             "mnuSaveAs",
                             "actionCompareWith",
                             "actionPutAsideWork",
                             "mnuPrint",
                             "actionExportReport",
                             "actionPrintReport",
                             "mnuRun"};
        for (int i = 0; i < 8; ++i)
            expected << QStringLiteral("mnuRecentFile(%1)").arg(i);
        expected << QStringLiteral("mnuExit");
        QCOMPARE(names, expected);
    }

    void aProjectNotSavedYetIsReportedAsSuch() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString pdf = dir.filePath(QStringLiteral("new.pdf"));
        QString error;
        QVERIFY2(exportReportTo(**app, pdf, &error), qPrintable(error));
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty()) return;
        const QString text = pdfText(pdf);
        QVERIFY(text.contains(QStringLiteral("Project file: (not saved)")));
        QVERIFY(text.contains(QStringLiteral("Form not saved to a file")));
        QVERIFY(text.contains(QStringLiteral("Pile End Bent without Backwall")));
    }

    // A checker must not sign a form's unsaved values under the name of a
    // file that holds others: the title block says so, and every page's foot.
    void aFormWithChangesNotSavedIsReportedAsSuchOnEveryPage() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        app->ports.files = {TW_SOURCE_DIR "/samples/twelve-beams.ebnt"};
        (*app)->actions.click(Ctl::mnuOpen);
        (*app)->actions.type(Ctl::txtCapLength, "84");
        (*app)->actions.leave(Ctl::txtCapLength);
        const QString pdf = dir.filePath(QStringLiteral("changed.pdf"));
        QString error;
        QVERIFY2(exportReportTo(**app, pdf, &error), qPrintable(error));
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty()) return;
        const QString text = pdfText(pdf);
        QVERIFY2(text.contains(QRegularExpression(
                     QStringLiteral("Form with changes not saved to twelve-beams\\.ebnt, last saved [0-9: -]+"))),
                 qPrintable(text.left(600)));
        QCOMPARE(text.count(QStringLiteral("twelve-beams.ebnt \u2013 unsaved")), test::pdfPages(pdf));
    }

    void thePrinterGetsTheReportThatIsExported() {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        app->ports.files = {TW_SOURCE_DIR "/samples/twelve-beams.ebnt"};
        (*app)->actions.click(Ctl::mnuOpen);
        const QString exported = dir.filePath(QStringLiteral("exported.pdf"));
        QString error;
        QVERIFY2(exportReportTo(**app, exported, &error), qPrintable(error));

        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        const QString printed = dir.filePath(QStringLiteral("printed.pdf"));
        printer.setOutputFileName(printed);
        setReportPage(printer);
        QVERIFY(printReportOn(**app, printer));

        const int pages = test::pdfPages(exported);
        QVERIFY(pages > 3);
        QCOMPARE(test::pdfPages(printed), pages);
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty()) return;
        for (const QString& pdf : {exported, printed}) {
            const QString text = pdfText(pdf);
            QVERIFY2(text.contains(QStringLiteral("twelve-beams.ebnt")), qPrintable(pdf));
            QVERIFY(text.contains(QStringLiteral("Checked by ______ Date ______")));
            QVERIFY(text.contains(QStringLiteral("Cap Steps 12")));
            QVERIFY(!text.contains(QStringLiteral("Cap Steps 13")));
            QVERIFY(text.contains(QStringLiteral("page %1 of %1").arg(pages)));
            QVERIFY(!text.contains(QStringLiteral("unsaved")));
        }
        // An output that cannot be written is told and leaves nothing.
        const QString nowhere = dir.filePath(QStringLiteral("no such folder/report.pdf"));
        QVERIFY(!exportReportTo(**app, nowhere, &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(!QFileInfo::exists(nowhere));
    }
};

} // namespace tw

QTEST_MAIN(tw::ReportCommandsTest)
#include "ReportCommandsTest.moc"
