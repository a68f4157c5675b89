// SPDX-License-Identifier: Apache-2.0
// Unsaved work survives the window's end: killed with SIGKILL after an
// edit, a new window offers the project back and restores all of it; a save
// that the pile-box check cut short, followed by a normal exit, loses nothing.
#include "../unit/FakePorts.h"

#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"
#include "core/form/Recovery.h"
#include "core/model/Inputs.h"
#include "gui/MainWindow.h"
#include "gui/RecoveryBar.h"
#include "gui/RecoveryKeeper.h"
#include "platform/Platform.h"
#include "platform/QuitOnSignals.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QTest>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tw {

namespace {

const QString kSample = QStringLiteral(TW_SOURCE_DIR "/samples/end-with-backwall.ebnt");

// The same edits in the killed window and in the one that tells what to expect.
// The project's file is a copy of the sample in `folder`; the edits reach
// the inputs of several pages and the bent table.
void edit(App& app, const QString& folder) {
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/project")));
    const QString copy = folder + QStringLiteral("/project/") + QFileInfo(kSample).fileName();
    QFile::remove(copy);
    QVERIFY(QFile::copy(kSample, copy));
    app.actions.apply(cmd::OpenPath{copy.toStdString()});
    QCOMPARE(app.project().currentFile, copy.toStdString());
    app.actions.edit(Ctl::txtCapLength, "41.2500");
    app.actions.edit(Ctl::txtCapWidth, "3.2500");
    app.actions.edit(CtlId(Ctl::txtCapStep, 1), "9.7500");
    app.actions.edit(Ctl::txtWingwallLength, "11.0000");
    app.actions.choose(Ctl::cboBatterPile, 1);
    app.actions.apply(cmd::PasteBents{"7,96.50,96.25,99.80,99.90,100.00,100.10,104.25,104.50,101.75,104.50,105.10,"
                                      "105.20,104.90,105.00,104.95\n"});
    QCOMPARE(app.project().bents(), 2);
    app.actions.type(CtlId(Ctl::txtProjectInfo, 2), " EDITED");
}

// A window as tarnwick's: the form, and the keeper of its unsaved work.
struct Window {
    test::FakePorts ports;
    Platform platform;
    App app{ports, platform, TW_PROGRAM_DIR};
    MainWindow window{app};
    RecoveryStore store;
    RecoveryKeeper keeper{app, store};

    explicit Window(const QString& folder) : store(folder) {
        app.loadMainForm();
        app.actions.onChange([this](const ChangeSet& changes) {
            window.refresh(changes);
            keeper.changed(changes);
        });
        store.open();
        window.refresh();
    }
    // The bars the window offers at its start.
    std::vector<RecoveryBar*> offered() { return offerLeftWork(app, store, window); }
};

QStringList recoveryFiles(const QString& folder) {
    return QDir(folder).entryList({QStringLiteral("recovery-*.ebnt")}, QDir::Files);
}

// The child: edits, says so, and waits to be killed.
int editAndWait(int argc, char** argv) {
    QApplication qapp(argc, argv);
    Window s(QString::fromLocal8Bit(argv[2]));
    s.window.show();
    edit(s.app, QString::fromLocal8Bit(argv[2]));
    // As tarnwick's window ends: a polite signal ends the loop, then the work is kept.
    QuitOnSignals quit;
    std::printf("edited\n");
    std::fflush(stdout);
    const int status = QApplication::exec();
    s.keeper.finish();
    return status;
}

} // namespace

class RecoveryWindowTest : public QObject {
    Q_OBJECT

    QString folder = QDir::tempPath() + QStringLiteral("/tw-recovery-window");

  private slots:
    void init() {
        QDir(folder).removeRecursively();
        QDir().mkpath(folder);
    }
    void cleanup() { QDir(folder).removeRecursively(); }

    void aKilledWindowsProjectIsOfferedAndRestored() {
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--edit-and-wait"), folder});
        QVERIFY(child.waitForStarted());
        QVERIFY(child.waitForReadyRead(20000));
        QCOMPARE(child.readLine().trimmed(), QByteArray("edited"));
        // Kept within a moment of the last edit.
        auto kept = [&] {
            const auto files = recoveryFiles(folder);
            if (files.size() != 1) return std::string();
            QFile f(QDir(folder).filePath(files.first()));
            return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string();
        };
        QTRY_VERIFY_WITH_TIMEOUT(kept().find(" EDITED\"") != std::string::npos, 10000);
        child.kill();
        QVERIFY(child.waitForFinished());

        test::FakePorts reference;
        App expected(reference, reference, TW_PROGRAM_DIR);
        expected.loadMainForm();
        edit(expected, folder);

        Window next(folder);
        const auto bars = next.offered();
        QCOMPARE(bars.size(), size_t(1));
        QVERIFY(bars[0]
                    ->findChild<QLabel*>(QStringLiteral("recoveryText"))
                    ->text()
                    .startsWith(QStringLiteral("end-with-backwall.ebnt (\u201C")));
        QTest::mouseClick(bars[0]->restoreButton(), Qt::LeftButton);
        QVERIFY(next.app.project() == expected.project());
        QCOMPARE(next.app.main().caption, std::string("Norvale-Tarnwick - [end-with-backwall.ebnt]"));
        QVERIFY(next.app.modified());
        next.keeper.keep();
        // The restored file went; this session's own stands.
        QCOMPARE(recoveryFiles(folder).size(), qsizetype(1));
        QVERIFY(next.store.path().endsWith(recoveryFiles(folder).first()));
    }

    // A left file that cannot be restored (a bare row line) is no offer: a
    // bar says so once and where its bytes are kept; the next window says nothing.
    void anUnreadableLeftFileIsSaidOnceAndOfferedNoMore() {
        QFile bad(QDir(folder).filePath(QStringLiteral("recovery-7-7.ebnt")));
        QVERIFY(bad.open(QIODevice::WriteOnly));
        bad.write("A PROJECT\r\n[Tarnwick recovery 1]\r\nrow\r\n");
        bad.close();
        {
            Window s(folder);
            QVERIFY(s.offered().empty());
            const auto* said = s.window.findChild<QFrame*>(QStringLiteral("recoveryUnreadableBar"));
            QVERIFY(said);
            const QString text = said->findChild<QLabel*>(QStringLiteral("recoveryUnreadableText"))->text();
            QVERIFY2(text.contains(QStringLiteral("a row of the bent table comes before its columns")),
                     qPrintable(text));
            QVERIFY2(text.contains(bad.fileName() + QStringLiteral(".unreadable")), qPrintable(text));
        }
        Window next(folder);
        QVERIFY(next.offered().empty());
        QVERIFY(!next.window.findChild<QFrame*>(QStringLiteral("recoveryUnreadableBar")));
    }

    // Ended by a logout, Ctrl+C or a closed terminal, the window keeps its
    // work, lets go of its lock and ends normally: its project is offered.
    void aPoliteSignalKeepsTheWorkAndLeavesNoLock() {
        for (const int sig : {SIGTERM, SIGINT, SIGHUP}) {
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--edit-and-wait"), folder});
            QVERIFY(child.waitForStarted());
            QVERIFY(child.waitForReadyRead(20000));
            QCOMPARE(child.readLine().trimmed(), QByteArray("edited"));
            ::kill(static_cast<pid_t>(child.processId()), sig);
            QVERIFY(child.waitForFinished(20000));
            QCOMPARE(child.exitStatus(), QProcess::NormalExit);
            QCOMPARE(child.exitCode(), 0);
            const auto files = recoveryFiles(folder);
            QCOMPARE(files.size(), qsizetype(1));
            QFile kept(QDir(folder).filePath(files.first()));
            QVERIFY(kept.open(QIODevice::ReadOnly));
            QVERIFY(kept.readAll().contains(" EDITED\""));
            QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden), files);
            QCOMPARE(Window(folder).offered().size(), size_t(1));
            QDir(folder).removeRecursively();
            QDir().mkpath(folder);
        }
    }

    // At its start a session removes what ended sessions left and no longer
    // need, and nothing else: a running session's lock, a project to offer,
    // files not of ours stay.
    void aStartRemovesOnlyStaleLeftovers() {
        const QDir dir(folder);
        auto make = [&](const QString& name) {
            QFile f(dir.filePath(name));
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.setFileTime(QDateTime::currentDateTime().addSecs(-600), QFileDevice::FileModificationTime);
        };
        const QStringList gone = {QStringLiteral("recovery-1-1.lock"), QStringLiteral(".tarnwick-save-Ab12Cd")};
        const QStringList kept = {QStringLiteral("recovery-2-2.ebnt"), QStringLiteral("recovery-2-2.lock"),
                                  QStringLiteral("recovery-3-3.lock"), QStringLiteral("notes.lock"),
                                  QStringLiteral(".tw-notes"),         QStringLiteral(".twAb12Cd")};
        for (const auto& name : gone + kept)
            make(name);
        const int running = ::open(QFile::encodeName(dir.filePath(kept[2])).constData(), O_RDONLY);
        QCOMPARE(::flock(running, LOCK_EX), 0);
        {
            RecoveryStore store(folder);
            QVERIFY(store.open());
            QStringList left = dir.entryList(QDir::Files | QDir::Hidden);
            left.removeAll(QFileInfo(store.path()).completeBaseName() + QStringLiteral(".lock"));
            QStringList want = kept;
            left.sort();
            want.sort();
            QCOMPARE(left, want);
        }
        ::close(running);
    }

    void aSaveCutShortThenANormalExitLosesNothing() {
        const QString file = folder + QStringLiteral("/boxes.ebnt");
        std::optional<Project> before;
        {
            Window s(folder);
            s.app.actions.choose(Ctl::cboWingParallel, 0);
            s.app.actions.choose(Ctl::cboWingwallPileBox, 3);
            s.app.actions.type(CtlId(Ctl::txtProjectInfo, 0), "THREE EQUAL BOXES");
            s.ports.files = {file.toStdString()};
            s.app.actions.click(Ctl::mnuSave);
            QVERIFY(s.app.project().saveFailed);
            QCOMPARE(s.ports.messages.back().title, std::string("Warning"));
            before = s.app.project();
            s.keeper.finish(); // Exit, answered Yes
        }
        QCOMPARE(recoveryFiles(folder).size(), qsizetype(1));
        {
            Window s(folder);
            const auto bars = s.offered();
            QCOMPARE(bars.size(), size_t(1));
            QTest::mouseClick(bars[0]->restoreButton(), Qt::LeftButton);
            // A restored project is one no file holds: its save-failed flag is its own again.
            Project restored = s.app.project();
            QCOMPARE(restored.currentFile, before->currentFile);
            QVERIFY(restored.table() == before->table());
            for (int i = 0; i < inputCount(); ++i)
                QVERIFY(restored.value(i) == before->value(i));
            // Saved properly this time: nothing is left to offer.
            s.app.actions.edit(Ctl::txtPileBoxDistance2, "5.0000");
            s.ports.answers = {MsgAnswer::Yes};
            s.app.actions.click(Ctl::mnuSave);
            QVERIFY(!s.app.project().saveFailed);
            s.keeper.keep();
            QVERIFY(recoveryFiles(folder).isEmpty());
            s.keeper.finish();
        }
        {
            Window s(folder);
            s.app.actions.type(CtlId(Ctl::txtProjectInfo, 1), "NOT WANTED");
            s.keeper.finish();
        }
        {
            Window s(folder);
            const auto bars = s.offered();
            QCOMPARE(bars.size(), size_t(1));
            QTest::mouseClick(bars[0]->discardButton(), Qt::LeftButton);
            QVERIFY(recoveryFiles(folder).isEmpty());
            QCOMPARE(s.app.text(CtlId(Ctl::txtProjectInfo, 1)), std::string());
        }
        QVERIFY(Window(folder).offered().empty());
    }
};

} // namespace tw

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--edit-and-wait") == 0) return tw::editAndWait(argc, argv);
    QApplication app(argc, argv);
    tw::RecoveryWindowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "RecoveryWindowTest.moc"
