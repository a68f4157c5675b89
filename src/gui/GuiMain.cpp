#include "gui/GuiMain.h"

#include "core/form/ShellCommands.h"
#include "gui/FormWindows.h"
#include "gui/GuiPorts.h"
#include "gui/MainWindow.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

#include <map>
#include <memory>

namespace tw {

namespace {
constexpr int kTwipsPerPixel = 15;
} // namespace

int runGui(int& argc, char** argv, const std::string& programDir) {
    QApplication qapp(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Norvale"));
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QApplication::setQuitOnLastWindowClosed(false);

    GuiPorts ports;
    App app(ports, programDir);
    std::unique_ptr<MainWindow> main;
    std::map<std::string, FormWindow*> windows;
    PictureWindow* picture = nullptr;

    auto refreshAll = [&] {
        if (main && main->isVisible()) main->refresh();
        for (auto& [name, w] : windows)
            if (w->isVisible()) w->refresh();
    };
    main = std::make_unique<MainWindow>(app, refreshAll);
    ports.setParent(main.get());
    windows[kFrmSplash] = makeSplashOrAbout(app, kFrmSplash, refreshAll, main.get());
    windows[kFrmAbout] = makeSplashOrAbout(app, kFrmAbout, refreshAll, main.get());
    windows[kFrmIPrinter] = makePrinterWindow(app, refreshAll, main.get());
    windows[kFrmViewTest] = makePreviewWindow(app, refreshAll, main.get());
    picture = new PictureWindow(app, refreshAll, main.get());
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
    ports.onMissingFile = drawnFullSizeSketch;

    // Quitting from the splash (its close button) ends the program.
    QObject::connect(windows[kFrmSplash], &QDialog::finished, &qapp, [&] {
        if (!main->isVisible()) QCoreApplication::exit(0);
    });
    showSplash(app);
    if (quitWhenShown) // measuring start-up: go straight on to the main form
        QTimer::singleShot(0, &qapp, [&] {
            EventArgs a;
            app.fire(kFrmSplash, Ctl::cmdOK, Event::Click, a);
        });
    const int status = qapp.exec();
    windows.clear();
    return status;
}

} // namespace tw
