// SPDX-License-Identifier: Apache-2.0
#include "gui/GuiMain.h"

#include "core/form/PutAside.h"
#include "gui/DiskWatch.h"
#include "gui/DrawingPane.h"
#include "gui/FormWindows.h"
#include "gui/GuardedApplication.h"
#include "gui/GuiPorts.h"
#include "gui/LaidOutView.h"
#include "gui/MainWindow.h"
#include "gui/RecoveryBar.h"
#include "gui/RecoveryKeeper.h"
#include "gui/RunStatus.h"
#include "gui/StatusMessages.h"
#include "gui/StylePictures.h"
#include "gui/ViewerMain.h"
#include "gui/WindowSet.h"
#include "platform/Platform.h"
#include "platform/PutAsideStore.h"
#include "platform/QuitOnSignals.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLocale>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <cctype>

#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tw {

namespace {
// Answers the first Open dialog with the file named on the command line.
class StartPorts : public GuiPorts {
  public:
    explicit StartPorts(std::string file) : file_(std::move(file)) {}
    std::optional<std::string> fileDialog(const FileDialogRequest& request) override {
        if (request.kind == FileDialogKind::Open && !file_.empty()) return std::exchange(file_, {});
        return GuiPorts::fileDialog(request);
    }

  private:
    std::string file_;
};

// Ends the program once the widget has painted (and `ready` holds): the
// moment start-up is measured to.
class QuitAfterPaint : public QObject {
  public:
    QuitAfterPaint(QWidget* w, std::function<bool()> ready = {}) : QObject(w), ready_(std::move(ready)) {
        w->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Paint && !quitting_ && (!ready_ || ready_())) {
            quitting_ = true;
            QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
        }
        return false;
    }

  private:
    std::function<bool()> ready_;
    bool quitting_ = false;
};

// Runs `then` once, when the widget has first painted.
class OnFirstPaint : public QObject {
  public:
    OnFirstPaint(QWidget* w, std::function<void()> then) : QObject(w), then_(std::move(then)) {
        w->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* o, QEvent* e) override {
        if (e->type() == QEvent::Paint && then_) {
            o->removeEventFilter(this);
            std::exchange(then_, nullptr)();
        }
        return false;
    }

  private:
    std::function<void()> then_;
};

// When a copy was kept: the time alone today, with the day before that.
std::string keptAt(const QDateTime& kept) {
    const bool today = kept.date() == QDate::currentDate();
    return QLocale().toString(kept, today ? QStringLiteral("HH:mm") : QStringLiteral("d MMM HH:mm")).toStdString();
}

QIcon programIcon() {
    // The resource holds the title-bar and task-switcher sizes only: the
    // larger pictures (for launchers) come from the installed icon theme, and
    // decoding them here took a twentieth of the start-up.
    QIcon icon;
    for (const QFileInfo& png : QDir(QStringLiteral(":/icons")).entryInfoList(QDir::Files))
        icon.addPixmap(readPixmap(png.filePath(), "png"));
    return icon;
}
} // namespace

int runGui(int& argc, char** argv, const std::string& programDir, const std::string& file) {
    std::optional<GuardedApplication> ownApp; // a test brings its own
    if (!QCoreApplication::instance()) ownApp.emplace(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Norvale"));
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new LazyStyleIcons);
    prepareStylePictures();
    QApplication::setWindowIcon(programIcon());
    QGuiApplication::setDesktopFileName(QStringLiteral("example.norvale.Tarnwick"));

    StartPorts ports(file);
    GuiSystem platform;
    App app(ports, platform, programDir);
    WindowSet windows(app, ports);
    platform.onMissingFile = drawnFullSizeSketch;
    if (ownApp) ownApp->onFailure = [&](const std::string& what) { app.reportFailure(what); };

    // Words that need no answer stand in the status bar; those said before
    // the main window stands wait for it.
    StatusMessages* messages = nullptr;
    std::vector<std::string> early;
    ports.onNotice = [&](const std::string& text) {
        if (messages)
            messages->notice(QString::fromStdString(text));
        else
            early.push_back(text);
    };
    platform.onWarning = [&ports](const std::string& text) {
        ports.notice(text.empty()
                         ? text
                         : static_cast<char>(std::toupper(static_cast<unsigned char>(text[0]))) + text.substr(1));
    };

    // Unsaved work is kept safe while the window holds it.
    RecoveryStore store;
    if (!store.open())
        ports.notice("Unsaved changes cannot be kept safe: the folder " + store.folder().toStdString() +
                     " cannot be written");
    RecoveryKeeper keeper(app, store);
    std::unique_ptr<DiskWatch> diskWatch;
    app.actions.onChange([&](const ChangeSet& changes) {
        keeper.changed(changes);
        if (diskWatch) diskWatch->changed();
    });

    // Measuring start-up: the program ends when a moment is on the screen:
    // "splash" the splash, "drawn" the main form with the bent drawn in its
    // pane, anything else the main form's first frame.
    const bool quitWhenShown = qEnvironmentVariableIsSet("TARNWICK_QUIT_WHEN_SHOWN");
    const QByteArray quitMoment = qgetenv("TARNWICK_QUIT_WHEN_SHOWN");
    if (quitMoment == "splash") new QuitAfterPaint(windows.window(FormId::Splash));

    // What stands in the main window and speaks through it is wired once it is built.
    windows.onMainBuilt = [&](MainWindow& main) {
        // Run's waits stand in the status bar.
        RunStatus* runStatus = main.runStatus();
        ports.onWaitBegins = [runStatus](const std::string& what, std::function<void()> cancel) {
            runStatus->begin(what, std::move(cancel));
        };
        ports.onWaitEnds = [runStatus] { runStatus->end(); };
        messages = main.messages();
        for (const std::string& text : std::exchange(early, {}))
            messages->notice(QString::fromStdString(text));
        ports.onOfferViewer = [m = messages](const std::string& drawing) { m->offerViewer(drawing); };
        messages->openViewer = [&main, programDir](const std::string& drawing) {
            openDrawingViewer(programDir, drawing, &main);
        };
        diskWatch = std::make_unique<DiskWatch>(app, main);
        diskWatch->changed();
        if (quitMoment == "drawn") {
            LaidOutView* view = main.drawingPane()->view();
            new QuitAfterPaint(view, [view] { return !view->scene().shapes.empty(); });
        } else if (quitWhenShown && quitMoment != "splash") {
            new QuitAfterPaint(&main);
        }
    };
    // The splash is the engineer's first sight; the main window is built
    // while it is read, or at its OK if that comes first.
    if (quitMoment != "splash")
        new OnFirstPaint(windows.window(FormId::Splash),
                         [&windows] { QTimer::singleShot(0, qApp, [&windows] { windows.main(); }); });
    windows.onMainShown = [&] {
        MainWindow& main = windows.main();
        offerLeftWork(app, store, main);
        // What Exit put aside last time, offered once; old copies go.
        PutAsideStore aside;
        aside.prune();
        for (const auto& copy : aside.claimLeftByExit())
            main.tellPutAside(QString::fromStdString(putAsideText(copy.currentFile, keptAt(copy.kept), {})) +
                                  QStringLiteral(" when Tarnwick last exited"),
                              copy.path);
        if (!file.empty()) // `tarnwick FILE`: File > Open, its dialog answered with FILE
            QTimer::singleShot(0, &main, [&] {
                if (auto* open = windows.main().findChild<QAction*>(QStringLiteral("mnuOpen"))) open->trigger();
            });
    };
    windows.onMainClosed = [] { QCoreApplication::exit(0); };

    // Quitting from the splash (its close button) ends the program.
    QObject::connect(windows.window(FormId::Splash), &QDialog::finished, qApp, [&] {
        if (!windows.mainBuilt() || !windows.main().isVisible()) QCoreApplication::exit(0);
    });
    app.start();
    if (quitWhenShown && quitMoment != "splash") // go straight on to the main form
        QTimer::singleShot(0, qApp, [&] { app.actions.click(Target(FormId::Splash, Ctl::cmdOK)); });
    // A logout, Ctrl+C or a closed terminal ends the window as Exit does, the unsaved work kept.
    QuitOnSignals quitOnSignals;
    const int status = QApplication::exec();
    keeper.finish();
    ports.onNotice = nullptr; // the status bar goes with the windows
    return status;
}

} // namespace tw
