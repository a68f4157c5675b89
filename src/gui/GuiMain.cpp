#include "gui/GuiMain.h"

#include "core/form/ShellCommands.h"
#include "gui/FormWindows.h"
#include "gui/GuardedApplication.h"
#include "gui/GuiPorts.h"
#include "gui/MainWindow.h"
#include "gui/RecoveryBar.h"
#include "gui/RecoveryKeeper.h"
#include "gui/RunStatus.h"
#include "platform/Platform.h"

#include <QApplication>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include <map>
#include <memory>

namespace tw {

int runGui(int& argc, char** argv, const std::string& programDir) {
    GuardedApplication qapp(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Norvale"));
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QApplication::setQuitOnLastWindowClosed(false);

    GuiPorts ports;
    Platform platform;
    App app(ports, platform, programDir);
    std::unique_ptr<MainWindow> main;
    std::map<std::string, FormWindow*> windows;
    PictureWindow* picture = nullptr;

    auto refreshAll = [&] {
        if (main && main->isVisible()) main->refresh();
        for (auto& [name, w] : windows)
            if (w->isVisible()) w->refresh();
    };
    main = std::make_unique<MainWindow>(app);
    app.actions.afterEach(refreshAll);
    qapp.onFailure = [&](const std::string& what) {
        app.reportError(internalError(what));
        refreshAll();
    };

    // Run's waits and words that need no answer stand in the status bar.
    auto* runStatus = new RunStatus(main->statusBar());
    ports.onWaitBegins = [runStatus](const std::string& what, std::function<void()> cancel) {
        runStatus->begin(what, std::move(cancel));
    };
    ports.onWaitEnds = [runStatus] { runStatus->end(); };
    ports.onNotice = [runStatus](const std::string& text) { runStatus->notice(text); };

    // Unsaved work is kept safe while the window holds it.
    RecoveryStore store;
    if (!store.open())
        ports.notice("Unsaved changes cannot be kept safe: the folder " + store.folder().toStdString() +
                     " cannot be written");
    RecoveryKeeper keeper(app, store);
    app.actions.afterEach([&] { keeper.changed(); });
    bool offered = false;

    ports.setParent(main.get());
    windows[kFrmSplash] = makeSplashOrAbout(app, kFrmSplash, main.get());
    windows[kFrmAbout] = makeSplashOrAbout(app, kFrmAbout, main.get());
    windows[kFrmIPrinter] = makePrinterWindow(app, main.get());
    windows[kFrmViewTest] = makePreviewWindow(app, main.get());
    picture = new PictureWindow(app, main.get());
    windows[kFrmPicView] = picture;

    const bool quitWhenShown = qEnvironmentVariableIsSet("TARNWICK_QUIT_WHEN_SHOWN");
    ports.onShow = [&](const std::string& form, const std::string&) {
        if (form == kFrmMain) {
            const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
            main->resize(std::min(1280, screen.width()), std::min(760, screen.height()));
            main->move(screen.x() + (screen.width() - main->width()) / 2,
                       screen.y() + (screen.height() - main->height()) / 2);
            main->refresh();
            main->show();
            if (!offered)
                for (auto& left : store.claimLeft())
                    main->addNotice(new RecoveryBar(app, store, std::move(left)));
            offered = true;
            if (quitWhenShown) QTimer::singleShot(0, &qapp, [] { QCoreApplication::exit(0); });
            return;
        }
        auto it = windows.find(form);
        if (it == windows.end()) return;
        FormWindow* w = it->second;
        w->refresh();
        w->adjustSize();
        const Form& f = app.form(form);
        if (f.left || f.top) w->move(f.left / kTwipsPerPixel, f.top / kTwipsPerPixel);
        w->show();
        w->raise();
        w->activateWindow();
    };
    ports.onClose = [&](const std::string& form) {
        if (form == kFrmMain) {
            for (auto& [name, w] : windows)
                w->hide();
            main->hide();
            QCoreApplication::exit(0);
            return;
        }
        if (auto it = windows.find(form); it != windows.end()) it->second->hide();
    };
    ports.onPicture = [&](const std::string&, const std::string& file) {
        picture->showPicture(QString::fromStdString(file));
    };

    // Quitting from the splash (its close button) ends the program.
    QObject::connect(windows[kFrmSplash], &QDialog::finished, &qapp, [&] {
        if (!main->isVisible()) QCoreApplication::exit(0);
    });
    app.guarded([&] { showSplash(app); });
    if (quitWhenShown) // measuring start-up: go straight on to the main form
        QTimer::singleShot(0, &qapp, [&] { app.actions.click(Target(kFrmSplash, Ctl::cmdOK)); });
    const int status = qapp.exec();
    keeper.finish();
    windows.clear();
    return status;
}

} // namespace tw
