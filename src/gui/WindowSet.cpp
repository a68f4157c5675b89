#include "gui/WindowSet.h"

#include "core/App.h"
#include "gui/FormWindows.h"
#include "gui/GuiPorts.h"
#include "gui/MainWindow.h"
#include "gui/WindowPlacement.h"

namespace tw {

namespace {

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

} // namespace

WindowSet::WindowSet(App& app, GuiPorts& ports) : app_(app), main_(std::make_unique<MainWindow>(app)) {
    keepOnScreen(main_.get());
    app_.actions.afterEach([this] { refreshAll(); });
    ports.setParent(main_.get());
    windows_[kFrmSplash] = makeSplashOrAbout(app, kFrmSplash, main_.get());
    windows_[kFrmAbout] = makeSplashOrAbout(app, kFrmAbout, main_.get());
    windows_[kFrmIPrinter] = makePrinterWindow(app, main_.get());
    windows_[kFrmViewTest] = makePreviewWindow(app, main_.get());
    picture_ = new PictureWindow(app, main_.get());
    windows_[kFrmPicView] = picture_;
    for (auto& [name, w] : windows_)
        keepOnScreen(w);
    ports.onShow = [this](const std::string& form, const std::string&) { show(form); };
    ports.onClose = [this](const std::string& form) { close(form); };
    ports.onPicture = [this](const std::string&, const std::string& file) {
        picture_->showPicture(QString::fromStdString(file));
    };
}

WindowSet::~WindowSet() = default;

FormWindow* WindowSet::window(const std::string& form) const {
    auto it = windows_.find(form);
    return it == windows_.end() ? nullptr : it->second;
}

void WindowSet::refreshAll() {
    if (main_->isVisible()) main_->refresh();
    for (auto& [name, w] : windows_)
        if (w->isVisible()) w->refresh();
}

void WindowSet::show(const std::string& form) {
    if (form == kFrmMain) {
        main_->refresh();
        main_->resize(fittedSize(main_.get(), MainWindow::preferredSize()));
        centre(main_.get());
        main_->show();
        if (onMainShown) std::exchange(onMainShown, nullptr)();
        return;
    }
    FormWindow* w = window(form);
    if (!w) return;
    w->refresh();
    if (!w->isVisible()) {
        w->resize(fittedSize(w, w->sizeHint().expandedTo(w->size())));
        placeForm(form, w, main_.get());
    }
    w->show();
    w->raise();
    w->activateWindow();
}

void WindowSet::close(const std::string& form) {
    if (form != kFrmMain) {
        if (FormWindow* w = window(form)) w->hide();
        return;
    }
    for (auto& [name, w] : windows_)
        w->hide();
    main_->hide();
    if (onMainClosed) onMainClosed();
}

} // namespace tw
