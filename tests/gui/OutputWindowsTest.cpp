// SPDX-License-Identifier: Apache-2.0
// The output windows show file text as it is, never as markup.
#include "../unit/FakePorts.h"

#include "gui/FormWindows.h"

#include <fstream>

#include <QDir>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

namespace tw {

class OutputWindowsTest : public QObject {
    Q_OBJECT
  private slots:
    void aListingWithMarkupShowsTheMarkup() {
        // A listing beside a project, previewed from the printer window.
        QTemporaryDir dir;
        const std::string base = QDir(dir.path()).filePath(QStringLiteral("job")).toStdString();
        std::ofstream(base + ".ebntc", std::ios::binary) << "<b>CAP</b> &amp; <i>BENT</i>\r\nLINE 2\r\n";
        test::Program app;
        QVERIFY(test::openAs(*app, defaultProject(), base + ".ebnt"));
        auto* preview = makePreviewWindow(*app, nullptr);
        app->actions.click(Ctl::mnuPrint);
        app->actions.click(Target(FormId::Printer, Ctl::printPreview));
        preview->refresh();
        auto* text = preview->findChild<QPlainTextEdit*>(QStringLiteral("rtOpen"));
        QVERIFY(text);
        QCOMPARE(text->toPlainText(), QStringLiteral("<b>CAP</b> &amp; <i>BENT</i>\nLINE 2\n"));
        QVERIFY(text->isReadOnly());
        delete preview;
    }
};

} // namespace tw

QTEST_MAIN(tw::OutputWindowsTest)
#include "OutputWindowsTest.moc"
