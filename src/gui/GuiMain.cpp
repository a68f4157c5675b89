#include "gui/GuiMain.h"

#include "core/form/ShellCommands.h"
#include "gui/FormWindows.h"
#include "gui/GuiPorts.h"
#include "gui/MainWindow.h"
#include "gui/WindowPlacement.h"
#include "platform/Platform.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QScreen>
#include <QTimer>

#include <map>
#include <memory>
#include <optional>
#include <utility>

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

// The old forms' places, for the real windows: the splash and the sketch
// centred on the screen, the printer window and the preview on the main
// window, the About box a little inside its corner.
void placeForm(const std::string& form, QWidget* w, const QWidget* main) {
    constexpr int kAboutOffset = 80;
    if (form == kFrmAbout && main->isVisible())
        placeAt(w, main->frameGeometry().topLeft() + QPoint(kAboutOffset, kAboutOffset));
    else if (form == kFrmIPrinter || form == kFrmViewTest)
        centre(w, main);
    else
        centre(w);
}

QIcon programIcon() {
    QIcon icon;
    for (const QFileInfo& png : QDir(QStringLiteral(":/icons")).entryInfoList(QDir::Files))
        icon.addFile(png.filePath());
    return icon;
}
} // namespace

int runGui(int& argc, char** argv, const std::string& programDir, const std::string& file) {
    std::optional<QApplication> ownApp; // a test brings its own
    if (!QCoreApplication::instance()) ownApp.emplace(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Norvale"));
    QApplication::setApplicationName(QStringLiteral("Tarnwick"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(programIcon());
    QGuiApplication::setDesktopFileName(QStringLiteral("example.norvale.Tarnwick"));

    StartPorts ports(file);
    GuiSystem platform;
    bool openPending = !file.empty();
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
    keepOnScreen(main.get());
    app.actions.afterEach(refreshAll);
    ports.setParent(main.get());
    windows[kFrmSplash] = makeSplashOrAbout(app, kFrmSplash, main.get());
    windows[kFrmAbout] = makeSplashOrAbout(app, kFrmAbout, main.get());
    windows[kFrmIPrinter] = makePrinterWindow(app, main.get());
    windows[kFrmViewTest] = makePreviewWindow(app, main.get());
    picture = new PictureWindow(app, main.get());
    windows[kFrmPicView] = picture;
    for (auto& [name, w] : windows)
        keepOnScreen(w);

    const bool quitWhenShown = qEnvironmentVariableIsSet("TARNWICK_QUIT_WHEN_SHOWN");
    ports.onShow = [&](const std::string& form, const std::string&) {
        if (form == kFrmMain) {
            main->refresh();
            main->resize(fittedSize(main.get(), MainWindow::preferredSize()));
            centre(main.get());
            main->show();
            if (openPending) { // `tarnwick FILE`: File > Open, its dialog answered with FILE
                openPending = false;
                QTimer::singleShot(0, main.get(), [&] {
                    if (auto* open = main->findChild<QAction*>(QStringLiteral("mnuOpen"))) open->trigger();
                });
            }
            if (quitWhenShown) QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
            return;
        }
        auto it = windows.find(form);
        if (it == windows.end()) return;
        FormWindow* w = it->second;
        w->refresh();
        if (!w->isVisible()) {
            w->resize(fittedSize(w, w->sizeHint().expandedTo(w->size())));
            placeForm(form, w, main.get());
        }
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
    platform.onMissingFile = drawnFullSizeSketch;

    // Quitting from the splash (its close button) ends the program.
    QObject::connect(windows[kFrmSplash], &QDialog::finished, qApp, [&] {
        if (!main->isVisible()) QCoreApplication::exit(0);
    });
    showSplash(app);
    if (quitWhenShown) // measuring start-up: go straight on to the main form
        QTimer::singleShot(0, qApp, [&] { app.actions.click(Target(kFrmSplash, Ctl::cmdOK)); });
    const int status = QApplication::exec();
    windows.clear();
    return status;
}

} // namespace tw
