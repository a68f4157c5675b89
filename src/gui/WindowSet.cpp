// SPDX-License-Identifier: Apache-2.0
#include "gui/WindowSet.h"

#include "core/app/App.h"
#include "gui/FormWindows.h"
#include "gui/GuiPorts.h"
#include "gui/MainWindow.h"
#include "gui/WindowPlacement.h"

namespace tw {

namespace {

// The old forms' places, for the real windows: the splash and the sketch
// centred on the screen, the printer window and the preview on the main
// window, the About box a little inside its corner.
void placeForm(FormId form, QWidget* w, const QWidget* main) {
    constexpr int kAboutOffset = 80;
    if (form == FormId::About && main->isVisible())
        placeAt(w, main->frameGeometry().topLeft() + QPoint(kAboutOffset, kAboutOffset));
    else if (form == FormId::Printer || form == FormId::Preview)
        centre(w, main);
    else
        centre(w);
}

} // namespace

WindowSet::WindowSet(App& app, GuiPorts& ports) : app_(app), main_(std::make_unique<MainWindow>(app)) {
    keepOnScreen(main_.get());
    app_.actions.onChange([this](const ChangeSet& changes) { refreshAll(changes); });
    ports.setParent(main_.get());
    windows_[FormId::Splash] = makeSplashOrAbout(app, FormId::Splash, main_.get());
    windows_[FormId::About] = makeSplashOrAbout(app, FormId::About, main_.get());
    windows_[FormId::Printer] = makePrinterWindow(app, main_.get());
    windows_[FormId::Preview] = makePreviewWindow(app, main_.get());
    picture_ = new PictureWindow(app, main_.get());
    windows_[FormId::Picture] = picture_;
    for (auto& [name, w] : windows_)
        keepOnScreen(w);
    ports.onShow = [this](const std::string& form, const std::string&) {
        if (const auto f = formNamed(form)) show(*f);
    };
    ports.onClose = [this](const std::string& form) {
        if (const auto f = formNamed(form)) close(*f);
    };
    ports.onPicture = [this](const std::string&, const std::string& file) {
        picture_->showPicture(QString::fromStdString(file));
    };
}

WindowSet::~WindowSet() = default;

FormWindow* WindowSet::window(FormId form) const {
    auto it = windows_.find(form);
    return it == windows_.end() ? nullptr : it->second;
}

void WindowSet::refreshAll(const ChangeSet& changes) {
    if (main_->isVisible()) main_->refresh(changes);
    for (auto& [name, w] : windows_)
        if (w->isVisible()) w->refresh(changes);
}

void WindowSet::show(FormId form) {
    if (form == FormId::Main) {
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

void WindowSet::close(FormId form) {
    if (form != FormId::Main) {
        if (FormWindow* w = window(form)) w->hide();
        return;
    }
    for (auto& [name, w] : windows_)
        w->hide();
    main_->hide();
    if (onMainClosed) onMainClosed();
}

} // namespace tw
