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
    if (form == FormId::About && main && main->isVisible())
        placeAt(w, main->frameGeometry().topLeft() + QPoint(kAboutOffset, kAboutOffset));
    else if (form == FormId::Printer || form == FormId::Preview)
        centre(w, main);
    else
        centre(w);
}

} // namespace

WindowSet::WindowSet(App& app, GuiPorts& ports) : app_(app), ports_(ports) {
    app_.actions.onChange([this](const ChangeSet& changes) { refreshAll(changes); });
    ports.onShow = [this](const std::string& form, const std::string&) {
        if (const auto f = formNamed(form)) show(*f);
    };
    ports.onClose = [this](const std::string& form) {
        if (const auto f = formNamed(form)) close(*f);
    };
    ports.onPicture = [this](const std::string&, const std::string& file) {
        static_cast<PictureWindow*>(window(FormId::Picture))->showPicture(QString::fromStdString(file));
    };
    ports.onBalloon = [this](const std::string& text, const std::string& field) {
        if (const auto id = parseCtlId(field)) main().showBalloon(QString::fromStdString(text), *id);
    };
    ports.onPutAside = [this](const std::string& text, const std::string& copy) {
        main().tellPutAside(QString::fromStdString(text), QString::fromStdString(copy));
    };
}

WindowSet::~WindowSet() {
    // A window made before the main window has no parent to take it down.
    for (auto& [form, w] : windows_)
        if (!w->parent()) delete w;
}

MainWindow& WindowSet::main() {
    if (!main_) {
        main_ = std::make_unique<MainWindow>(app_);
        keepOnScreen(main_.get());
        ports_.setParent(main_.get());
        if (onMainBuilt) std::exchange(onMainBuilt, nullptr)(*main_);
    }
    return *main_;
}

FormWindow* WindowSet::window(FormId form) {
    if (auto it = windows_.find(form); it != windows_.end()) return it->second;
    // Each small window is made when first wanted: most sessions never open the preview or the printer window.
    FormWindow* w = nullptr;
    switch (form) {
    case FormId::Splash: w = makeSplashOrAbout(app_, form, main_.get()); break; // first of all, on its own
    case FormId::About: w = makeSplashOrAbout(app_, form, &main()); break;
    case FormId::Printer: w = makePrinterWindow(app_, &main()); break;
    case FormId::Preview: w = makePreviewWindow(app_, &main()); break;
    case FormId::Picture: w = new PictureWindow(app_, &main()); break;
    case FormId::Main: return nullptr;
    }
    keepOnScreen(w);
    windows_[form] = w;
    return w;
}

void WindowSet::refreshAll(const ChangeSet& changes) {
    if (main_ && main_->isVisible()) main_->refresh(changes);
    for (auto& [name, w] : windows_)
        if (w->isVisible()) w->refresh(changes);
}

void WindowSet::show(FormId form) {
    if (form == FormId::Main) {
        MainWindow& m = main();
        m.refresh();
        m.resize(fittedSize(&m, MainWindow::preferredSize()));
        centre(&m);
        m.show();
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
    if (main_) main_->hide();
    if (onMainClosed) onMainClosed();
}

} // namespace tw
