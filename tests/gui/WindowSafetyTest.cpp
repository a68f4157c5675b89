// SPDX-License-Identifier: Apache-2.0
// The window while Run waits for a real drawing batch program: what the
// user types is shown and kept in order, a Save writes what is shown, Cancel
// ends the program; afterwards the status bar tells of a missing drawing;
// and a failure that escapes an event ends in the error box, not in a crash.
// Run under Xvfb where it is installed.
#include "../unit/FakePorts.h"

#include "gui/GuardedApplication.h"
#include "gui/MainWindow.h"
#include "gui/RunStatus.h"
#include "gui/StatusMessages.h"
#include "platform/Platform.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <cstring>
#include <fstream>

namespace tw {

namespace {

// The user's side of the window: boxes answered from the queue, waits and
// notices shown by the status bar's Run part.
class WindowPorts : public test::FakePorts {
  public:
    RunStatus* status = nullptr;
    StatusMessages* words = nullptr;
    std::function<void(const std::string&)> onWait;
    void waitBegins(const std::string& what, std::function<void()> cancel) override {
        FakePorts::waitBegins(what, cancel);
        status->begin(what, std::move(cancel));
        if (onWait) onWait(what);
    }
    void waitEnds() override {
        FakePorts::waitEnds();
        status->end();
    }
    void notice(const std::string& text) override {
        FakePorts::notice(text);
        words->notice(QString::fromStdString(text));
    }
};

// Fails on the first event it gets.
class Faulty : public QObject {
  public:
    bool event(QEvent*) override { throw std::runtime_error("the handler of an event failed"); }
};

std::string slurp(const QString& path) {
    std::ifstream in(path.toStdString(), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

const char* kWaitingForBatch = "Waiting for the drawing batch program\u2026";

} // namespace

class WindowSafetyTest : public QObject {
    Q_OBJECT

    // No "." in the folder: Run cuts names at the first one.
    QString dir = QDir::tempPath() + QStringLiteral("/tw-window-safety");
    QString project = dir + QStringLiteral("/bent.ebnt");
    WindowPorts ports;
    Platform platform;
    std::unique_ptr<App> app;
    std::unique_ptr<MainWindow> window;

    template <class W> W* find(const char* name) {
        window->buildAllPages();
        auto* w = window->findChild<W*>(QString::fromLatin1(name));
        if (!w) qFatal("no widget %s", name);
        return w;
    }
    void batchProgram(const std::string& command) {
        std::ofstream((dir + QStringLiteral("/Ebent.ini")).toStdString())
            << "[microstation]\ndgnbatch=" << command << "\n";
    }
    // The batch program: tells its id, waits to be released, then draws.
    void waitingBatchProgram() {
        const QString script = dir + QStringLiteral("/wait-batch.sh");
        std::ofstream(script.toStdString()) << "base=\"${1%e.sif}\"\n"
                                               "echo $$ > \"$base.pids\"\n"
                                               "n=0\n"
                                               "while [ ! -e \"$base.release\" ] && [ $n -lt 600 ]; do\n"
                                               "  sleep 0.1; n=$((n+1))\n"
                                               "done\n"
                                               "echo drawing > \"${base}e.dgn\"\n";
        batchProgram("/bin/sh " + script.toStdString());
    }
    void release() { std::ofstream((dir + QStringLiteral("/bent.release")).toStdString()) << "go"; }
    void run() {
        ports.answers.push_front(MsgAnswer::Yes); // "Save file as ..."
        window->findChild<QAction*>(QStringLiteral("mnuRun"))->trigger();
    }

  private slots:
    void init() {
        QDir(dir).removeRecursively();
        QDir().mkpath(dir);
        QFile::link(QStringLiteral(TW_PROGRAM_DIR "/libcalbnt.so"), dir + QStringLiteral("/libcalbnt.so"));
        QFile::copy(QStringLiteral(TW_SOURCE_DIR "/samples/intermediate.ebnt"), project);
        ports = WindowPorts();
        app = std::make_unique<App>(ports, platform, dir.toStdString());
        app->loadMainForm();
        window = std::make_unique<MainWindow>(*app);
        ports.status = window->runStatus();
        ports.words = window->messages();
        app->actions.onChange([this](const ChangeSet& changes) {
            if (window) window->refresh(changes);
        });
        window->resize(1366, 768);
        window->refresh();
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        ports.files = {project.toStdString()};
        app->actions.click(Ctl::mnuOpen);
        QCOMPARE(app->text(Ctl::txtCapLength), std::string("36.5000"));
    }
    void cleanup() {
        release();
        window.reset();
        app.reset();
        QDir(dir).removeRecursively();
    }

    void typingWhileTheBatchProgramRunsIsShownInOrderAndSaveWritesWhatIsShown() {
        waitingBatchProgram();
        bool typed = false;
        ports.onWait = [&](const std::string& what) {
            if (what != kWaitingForBatch) return;
            QTimer::singleShot(0, this, [&] {
                auto* title = find<QLineEdit>("txtProjectInfo(0)");
                QTest::mouseClick(title, Qt::LeftButton);
                QTest::keyClick(title, Qt::Key_End);
                QTest::keyClicks(title, QStringLiteral(" Y3"));
                QCOMPARE(title->text(), QStringLiteral("SR 12 OVER CEDAR CREEK Y3"));
                QCOMPARE(app->text(CtlId(Ctl::txtProjectInfo, 0)), std::string("SR 12 OVER CEDAR CREEK Y3"));

                auto* cap = find<QLineEdit>("txtCapLength");
                QTest::mouseClick(cap, Qt::LeftButton);
                QTest::keyClick(cap, Qt::Key_End);
                QTest::keyClicks(cap, QStringLiteral("\b\b12"));
                QCOMPARE(cap->text(), QStringLiteral("36.5012"));

                // Saved while the program still runs: the file holds what the screen shows.
                ports.answers.push_front(MsgAnswer::Yes);
                window->findChild<QAction*>(QStringLiteral("mnuSave"))->trigger();
                const std::string saved = slurp(project);
                QCOMPARE(saved.substr(0, 27), std::string("SR 12 OVER CEDAR CREEK Y3\r\n"));
                QVERIFY(saved.find("100 2 1 5 1   100001365012 ") != std::string::npos);
                QCOMPARE(ports.status->waitText().toStdString(), std::string(kWaitingForBatch));
                typed = true;
                release();
            });
        };
        run();
        QVERIFY(typed);
        QCOMPARE(ports.messages.back().text.substr(0, 33), std::string("The program has finished running."));
        QCOMPARE(find<QLineEdit>("txtCapLength")->text(), QStringLiteral("36.5012"));
        QVERIFY(ports.status->waitText().isEmpty());
        QVERIFY2(ports.words->noticeText().isEmpty(), qPrintable(ports.words->noticeText()));
    }

    void cancelEndsTheBatchProgramAndRunInItsBox() {
        waitingBatchProgram();
        ports.onWait = [&](const std::string& what) {
            if (what != kWaitingForBatch) return;
            QTimer::singleShot(0, this, [&] {
                // Cancelled once it runs, so that it can be seen to end.
                QTRY_VERIFY(QFile(dir + QStringLiteral("/bent.pids")).size() > 0);
                QVERIFY(ports.status->cancelButton()->isVisible());
                QTest::mouseClick(ports.status->cancelButton(), Qt::LeftButton);
            });
        };
        run();
        QCOMPARE(ports.messages.back().title, std::string("Error Importing Input File"));
        QVERIFY(ports.messages.back().text.find("User interrupt occurred: Run was cancelled, and the drawing batch "
                                                "program was ended before it finished") != std::string::npos);
        QVERIFY(!ports.status->cancelButton()->isVisible());
        const int pid = std::stoi(slurp(dir + QStringLiteral("/bent.pids")));
        QVERIFY(kill(pid, 0) != 0 || slurp(QStringLiteral("/proc/%1/stat").arg(pid)).find(") Z ") != std::string::npos);
    }

    // Told after the final message; a newer passing message shows alone, and the word comes back after it.
    void aMissingDrawingStaysInTheStatusBar() {
        batchProgram("/bin/false");
        run();
        QCOMPARE(ports.messages.back().text.substr(0, 33), std::string("The program has finished running."));
        const QString said =
            QStringLiteral("The drawing batch program ended with exit status 1 and left no drawing: ") + dir +
            QStringLiteral("/bente.dgn");
        QCOMPARE(ports.words->shownText(), said);
        ports.words->say(QStringLiteral("something else"), 50);
        QCOMPARE(ports.words->shownText(), QStringLiteral("something else"));
        QTRY_COMPARE(ports.words->shownText(), said);
    }

    void aFailureThatEscapesAnEventEndsInTheErrorBox() {
        auto* guarded = qobject_cast<GuardedApplication*>(qApp);
        QVERIFY(guarded);
        guarded->onFailure = [&](const std::string& what) { app->reportFailure(what); };
        Faulty faulty;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&faulty, &event);
        QCOMPARE(ports.messages.back().title, std::string("Error"));
        QCOMPARE(ports.messages.back().text, standardErrorText(51, "Internal error: the handler of an event failed"));
        QVERIFY(window->isVisible());
        QCOMPARE(app->text(Ctl::txtCapLength), std::string("36.5000"));
        guarded->onFailure = nullptr;
    }
};

} // namespace tw

int main(int argc, char** argv) {
    // Run calls the engine in a child of this program, as tarnwick does.
    if (const auto engine = tw::engineCall(argc, argv)) return *engine;
    tw::GuardedApplication app(argc, argv);
    tw::WindowSafetyTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "WindowSafetyTest.moc"
