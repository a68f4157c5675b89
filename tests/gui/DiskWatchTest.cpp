// SPDX-License-Identifier: Apache-2.0
// The project's file changed by another program while a window holds it:
// a bar tells of it (Reload / Keep mine) and a Save over the change asks
// first; a second window on the same file is told it is open twice.
#include "../unit/FakePorts.h"

#include "core/form/FileCommands.h"
#include "gui/DiskWatch.h"
#include "gui/MainWindow.h"
#include "gui/NoticeBar.h"
#include "platform/Platform.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace tw {

namespace {

struct Window {
    test::FakePorts ports;
    Platform platform;
    App app{ports, platform, TW_PROGRAM_DIR};
    MainWindow window{app};
    DiskWatch watch{app, window};

    explicit Window(const QString& file) {
        app.loadMainForm();
        app.actions.onChange([this](const ChangeSet& changes) {
            window.refresh(changes);
            watch.changed();
        });
        window.refresh();
        ports.files = {file.toStdString()};
        app.actions.click(Ctl::mnuOpen);
    }
    NoticeBar* bar(const char* name) {
        auto* b = window.findChild<NoticeBar*>(QString::fromLatin1(name) + QStringLiteral("Bar"));
        return b && b->isVisibleTo(&window) ? b : nullptr;
    }
    QPushButton* button(const char* bar, const char* suffix) {
        return window.findChild<QPushButton*>(QString::fromLatin1(bar) + QString::fromLatin1(suffix));
    }
};

// Another program writes its own first line.
void theirChange(const QString& file, const QByteArray& title) {
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QByteArray bytes = f.readAll();
    f.close();
    bytes.replace(0, bytes.indexOf('\r'), title);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

} // namespace

class DiskWatchTest : public QObject {
    Q_OBJECT

    QString folder = QDir::tempPath() + QStringLiteral("/tw-disk-watch");
    QString file = folder + QStringLiteral("/bent.ebnt");

  private slots:
    void init() {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
        QVERIFY(QFile::copy(QStringLiteral(TW_SOURCE_DIR "/samples/intermediate.ebnt"), file));
    }
    void cleanup() { QDir(folder).removeRecursively(); }

    void aChangeOnDiskIsToldReloadedOrKeptAndSavedOverOnlyWhenAsked() {
        Window w(file);
        QCOMPARE(w.app.text(CtlId(Ctl::txtProjectInfo, 0)), std::string("SR 12 OVER CEDAR CREEK"));
        QVERIFY(!w.bar("changedOnDisk"));

        theirChange(file, "THEIR TITLE");
        QTRY_VERIFY_WITH_TIMEOUT(w.bar("changedOnDisk"), 10000);
        QCOMPARE(w.bar("changedOnDisk")->text()->text(),
                 file + QStringLiteral(" was changed by another program since it was opened or saved here."));
        QTest::mouseClick(w.button("changedOnDisk", "Reload"), Qt::LeftButton);
        QCOMPARE(w.app.text(CtlId(Ctl::txtProjectInfo, 0)), std::string("THEIR TITLE"));
        QVERIFY(!w.bar("changedOnDisk"));

        theirChange(file, "THEIRS AGAIN");
        QTRY_VERIFY_WITH_TIMEOUT(w.bar("changedOnDisk"), 10000);
        QTest::mouseClick(w.button("changedOnDisk", "KeepMine"), Qt::LeftButton);
        QVERIFY(!w.bar("changedOnDisk"));
        QCOMPARE(w.app.text(CtlId(Ctl::txtProjectInfo, 0)), std::string("THEIR TITLE"));
        // Save: "Confirm Save" Yes, then the new question, No: their file stays.
        w.ports.answers = {MsgAnswer::Yes, MsgAnswer::No};
        w.app.actions.click(Ctl::mnuSave);
        QCOMPARE(w.ports.messages.back().title, std::string("File Changed"));
        QFile f(file);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QVERIFY(f.readAll().startsWith("THEIRS AGAIN\r\n"));
        // Our own save is no change of theirs: nothing is told, nothing more asked.
        w.ports.answers = {MsgAnswer::Yes, MsgAnswer::Yes};
        w.app.actions.click(Ctl::mnuSave);
        const auto asked = w.ports.messages.size();
        w.ports.answers = {MsgAnswer::Yes};
        w.app.actions.click(Ctl::mnuSave);
        QCOMPARE(w.ports.messages.size(), asked + 1);
        QTest::qWait(1000);
        QVERIFY(!w.bar("changedOnDisk"));
    }

    void aSecondWindowOnTheSameFileIsToldItIsOpenTwice() {
        Window first(file);
        QVERIFY(!first.bar("alreadyOpen"));
        Window second(file);
        QVERIFY(second.bar("alreadyOpen"));
        QVERIFY(second.bar("alreadyOpen")
                    ->text()
                    ->text()
                    .startsWith(file + QStringLiteral(" is open in another Tarnwick window too.")));
        QVERIFY(!first.bar("alreadyOpen"));
        QTest::mouseClick(second.button("alreadyOpen", "Close"), Qt::LeftButton);
        QVERIFY(!second.bar("alreadyOpen"));
    }
};

} // namespace tw

QTEST_MAIN(tw::DiskWatchTest)
#include "DiskWatchTest.moc"
