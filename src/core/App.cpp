#include "core/App.h"

#include "core/form/Forms.h"

namespace tw {

App::App(UserPorts& u, SystemPorts& s, std::string dir) : user(u), system(s), programDir(std::move(dir)) {
    for (auto& f : buildForms()) {
        std::string name = f.name();
        forms_.emplace(std::move(name), std::move(f));
    }
    installHandlers(*this);
}

Form& App::form(const std::string& name) {
    auto it = forms_.find(name);
    if (it == forms_.end()) throw std::out_of_range("no form " + name);
    return it->second;
}

void App::on(const std::string& form, Ctl ctl, Event ev, Handler h) { handlers_[{form, ctl, ev}] = std::move(h); }

bool App::fire(const std::string& form, const CtlId& id, Event ev, EventArgs& args) {
    auto it = handlers_.find({form, id.ctl, ev});
    if (it == handlers_.end()) return false;
    if (args.index < 0) args.index = id.index;
    // Copy: a handler may replace handlers while it runs.
    Handler h = it->second;
    h(*this, args);
    return true;
}

void App::setText(const CtlId& id, const std::string& t) {
    Control& c = ctl(id);
    c.text = t;
    c.selStart = static_cast<int>(t.size());
    c.selLength = 0;
}

void App::setListIndex(const CtlId& id, int index) {
    Control& c = ctl(id);
    if (index < -1 || index >= static_cast<int>(c.items.size()))
        throw RuntimeError(err::kInvalidProperty, "Invalid property value");
    c.listIndex = index;
    fire(id, Event::Change);
}

void App::setComboText(const CtlId& id, const std::string& t) {
    const Control& c = ctl(id);
    for (size_t i = 0; i < c.items.size(); ++i) {
        if (c.items[i] == t) {
            setListIndex(id, static_cast<int>(i));
            return;
        }
    }
    throw RuntimeError(err::kTextReadOnly, "'Text' property is read-only");
}

void App::selectAll(const CtlId& id) {
    Control& c = ctl(id);
    c.selStart = 0;
    c.selLength = static_cast<int>(c.text.size());
}

void App::setFocus(const CtlId& id) {
    if (focus_ && *focus_ == id) return;
    auto old = focus_;
    focus_.reset();
    if (old) fire(*old, Event::LostFocus);
    // A leave handler that keeps the focus (a refused value) wins.
    if (focus_) return;
    focus_ = id;
    fire(id, Event::GotFocus);
}

void App::leaveFocus() {
    auto old = focus_;
    focus_.reset();
    if (old) fire(*old, Event::LostFocus);
}

void App::reportError(const RuntimeError& e, const std::string& title) {
    if (e.number() == 0 || e.number() == err::kCancel) return;
    message(standardErrorText(e.number(), e.description()), title, MsgButtons::OK, MsgIcon::Critical);
}

void App::guarded(const std::function<void()>& body, const std::string& errorTitle) {
    try {
        body();
    } catch (const RuntimeError& e) {
        reportError(e, errorTitle);
    } catch (const std::exception& e) {
        // Nothing may escape a command: what the program did not foresee ends
        // in the same box, and the project stays as it is.
        reportError(internalError(e.what()), errorTitle);
    } catch (...) {
        reportError(internalError("an unknown failure"), errorTitle);
    }
}

void App::showForm(const std::string& name) {
    Form& f = form(name);
    f.loaded = true;
    user.windowShow(name, f.caption);
}

void App::closeForm(const std::string& name) {
    Form& f = form(name);
    if (!f.loaded) return;
    f.loaded = false;
    if (auto it = unloadHandlers_.find(name); it != unloadHandlers_.end()) it->second(*this);
    user.windowClose(name);
}

int App::currentTab() const { return ctl(Ctl::SSTab1).value; }

} // namespace tw
