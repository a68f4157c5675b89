// SPDX-License-Identifier: Apache-2.0
#include "core/form/Session.h"

#include "core/form/Events.h"
#include "core/form/Forms.h"

#include <algorithm>

namespace tw {

namespace {

int inputOf(const Target& t) { return t.form == FormId::Main ? inputIndex(t.id) : -1; }

template <class T> T get(const PropValue& v) { return std::get<T>(v); }

} // namespace

Session::Session(UserPorts& u, SystemPorts& s, std::string dir) : user(u), system(s), programDir(std::move(dir)) {
    for (auto& f : buildForms())
        forms_[static_cast<size_t>(f.id())] = std::move(f);
}

std::string Session::text(const Target& t) const {
    if (const int i = inputOf(t); i >= 0) return project_.value(i).text;
    return ctl(t).displayText();
}

int Session::listIndex(const Target& t) const {
    if (const int i = inputOf(t); i >= 0) return project_.value(i).listIndex;
    return ctl(t).listIndex;
}

template <class T> void Session::setProp(const Target& t, Prop p, T Control::*member, T value) {
    Control& c = mut(t);
    if (c.*member == value) return;
    log_.push_back(change::Property{t.form, t.id, p, PropValue(c.*member), PropValue(value)});
    c.*member = std::move(value);
}

void Session::setInput(int index, InputValue v) {
    const InputValue& old = project_.value(index);
    if (old == v) return;
    log_.push_back(change::Input{index, old, v});
    project_.setValue(index, std::move(v));
}

void Session::setText(const Target& t, const std::string& text) {
    if (const int i = inputOf(t); i >= 0)
        setInput(i, InputValue(text));
    else
        setProp(t, Prop::Text, &Control::text, text);
    setCaret(t, {static_cast<int>(text.size()), 0});
}

void Session::setListIndex(const Target& t, int index) {
    const Control& c = ctl(t);
    if (index < -1 || index >= static_cast<int>(c.items.size()))
        throw RuntimeError(err::kInvalidProperty, "Invalid property value");
    if (const int i = inputOf(t); i >= 0) {
        setInput(i, InputValue(index >= 0 ? c.items[static_cast<size_t>(index)] : std::string(), index));
        onChoiceChanged(*this, t.id);
        return;
    }
    setProp(t, Prop::ListIndex, &Control::listIndex, index);
}

void Session::setComboText(const Target& t, const std::string& text) {
    const auto& items = ctl(t).items;
    const auto it = std::find(items.begin(), items.end(), text);
    if (it == items.end()) throw RuntimeError(err::kTextReadOnly, "'Text' property is read-only");
    setListIndex(t, static_cast<int>(it - items.begin()));
}

void Session::showComboText(const Target& t, const std::string& text) {
    const auto& items = ctl(t).items;
    const auto it = std::find(items.begin(), items.end(), text);
    const int index = it == items.end() ? -1 : static_cast<int>(it - items.begin());
    if (const int i = inputOf(t); i >= 0) {
        setInput(i, InputValue(text, index));
        return;
    }
    setProp(t, Prop::ListIndex, &Control::listIndex, index);
    setProp(t, Prop::Text, &Control::text, text);
}

void Session::changeTable(const std::function<void(BentTable&)>& edit) {
    const BentTable before = project_.table();
    auto record = [&] {
        if (tableAt_) {
            std::get<change::Table>(log_[*tableAt_]).after = project_.table();
        } else if (!(before == project_.table())) {
            if (foldTable_) tableAt_ = log_.size();
            log_.push_back(change::Table{before, project_.table()});
        }
        clampSelection();
    };
    try {
        edit(project_.table());
    } catch (...) {
        record(); // the old grid kept what a failing operation had done
        throw;
    }
    record();
}

void Session::clampSelection() {
    const int last = project_.table().rows() - 1;
    GridSelection s = selection_;
    s.row = std::min(s.row, last);
    s.end = std::min(s.end, last);
    if (s == selection_) return;
    log_.push_back(change::Rows{selection_, s});
    selection_ = s;
}

void Session::select(int row, int end) {
    const int rows = project_.table().rows();
    if (row < 0 || row >= rows || end < 0 || end >= rows) throw RuntimeError(err::kGridInvalidRow, "Invalid Row value");
    const GridSelection s{row, end};
    if (s == selection_) return;
    log_.push_back(change::Rows{selection_, s});
    selection_ = s;
}

void Session::setBentCounter(std::int16_t n) {
    if (n == project_.bentCounter) return;
    log_.push_back(change::Counter{project_.bentCounter, n});
    project_.bentCounter = n;
}

void Session::setBentRegister(std::vector<std::string> numbers) {
    if (numbers == project_.bentRegister) return;
    log_.push_back(change::Register{project_.bentRegister, numbers});
    project_.bentRegister = std::move(numbers);
}

void Session::setSaveFailed(bool failed) {
    if (failed == project_.saveFailed) return;
    log_.push_back(change::Saved{project_.currentFile, project_.currentFile, project_.saveFailed, failed});
    project_.saveFailed = failed;
}

void Session::setCurrentFile(const std::string& path) {
    if (path == project_.currentFile) return;
    log_.push_back(change::Saved{project_.currentFile, path, project_.saveFailed, project_.saveFailed});
    project_.currentFile = path;
}

void Session::setVisible(const Target& t, bool v) { setProp(t, Prop::Visible, &Control::visible, v); }
void Session::setEnabled(const Target& t, bool v) { setProp(t, Prop::Enabled, &Control::enabled, v); }
void Session::setLocked(const Target& t, bool v) { setProp(t, Prop::Locked, &Control::locked, v); }
void Session::setColor(const Target& t, BackColor v) { setProp(t, Prop::Color, &Control::color, v); }
void Session::setCaption(const Target& t, const std::string& v) { setProp(t, Prop::Caption, &Control::caption, v); }
void Session::setTop(const Target& t, std::optional<int> v) { setProp(t, Prop::Top, &Control::top, v); }
void Session::setLeft(const Target& t, std::optional<int> v) { setProp(t, Prop::Left, &Control::left, v); }
void Session::setItems(const Target& t, std::vector<std::string> v) {
    setProp(t, Prop::Items, &Control::items, std::move(v));
}
void Session::setValue(const Target& t, int v) { setProp(t, Prop::Value, &Control::value, v); }

void Session::setCaret(const Target& t, Selection caret) {
    Control& c = mut(t);
    const Selection old{c.selStart, c.selLength};
    if (old == caret) return;
    log_.push_back(change::Property{t.form, t.id, Prop::Caret, old, caret});
    c.selStart = caret.start;
    c.selLength = caret.length;
}

void Session::selectAll(const Target& t) { setCaret(t, {0, static_cast<int>(text(t).size())}); }

void Session::setScrollRange(const CtlId& bar, int min, int max, int largeChange, int smallChange) {
    Control& c = mut(bar);
    c.min = min;
    c.max = max;
    c.largeChange = largeChange;
    c.smallChange = smallChange;
}

void Session::setFormCaption(FormId f, const std::string& caption) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (form.caption == caption) return;
    log_.push_back(change::FormProperty{f, Prop::Caption, form.caption, caption});
    form.caption = caption;
}

void Session::placeForm(FormId f, int left, int top) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (form.left != left) log_.push_back(change::FormProperty{f, Prop::Left, form.left, left});
    if (form.top != top) log_.push_back(change::FormProperty{f, Prop::Top, form.top, top});
    form.left = left;
    form.top = top;
}

void Session::load(FormId f) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (!form.loaded) log_.push_back(change::FormProperty{f, Prop::Visible, false, true});
    form.loaded = true;
}

void Session::showForm(FormId f) {
    load(f);
    user.windowShow(std::string(formName(f)), form(f).caption);
}

void Session::closeForm(FormId f) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (!form.loaded) return;
    log_.push_back(change::FormProperty{f, Prop::Visible, true, false});
    form.loaded = false;
    // The preview window is made anew each time it loads: its text goes with it.
    if (f == FormId::Preview) setText(Target(f, Ctl::rtOpen), "");
    user.windowClose(std::string(formName(f)));
}

void Session::setFocusTo(std::optional<CtlId> id) {
    if (focus_ == id) return;
    log_.push_back(change::Focus{focus_, id});
    focus_ = id;
}

void Session::setFocus(const CtlId& id) {
    if (focus_ && *focus_ == id) return;
    const auto old = focus_;
    setFocusTo(std::nullopt);
    if (old) {
        onLostFocus(*this, *old);
        mark(change::Left{*old});
    }
    // A leave handler that keeps the focus (a refused value) wins.
    if (focus_) return;
    setFocusTo(id);
    onGotFocus(*this, id);
}

void Session::leaveFocus() {
    const auto old = focus_;
    setFocusTo(std::nullopt);
    if (!old) return;
    onLostFocus(*this, *old);
    mark(change::Left{*old});
}

void Session::leave(const CtlId& id) {
    onLostFocus(*this, id);
    mark(change::Left{id});
}

void Session::placeFocus(std::optional<CtlId> id) { setFocusTo(id); }

void Session::reportError(const RuntimeError& e, const std::string& title) {
    if (e.number() == 0 || e.number() == err::kCancel) return;
    message(standardErrorText(e.number(), e.description()), title, MsgButtons::OK, MsgIcon::Critical);
}

bool Session::guarded(const std::function<void()>& body, const std::string& errorTitle) {
    try {
        body();
        return true;
    } catch (const RuntimeError& e) {
        reportError(e, errorTitle);
    } catch (const std::exception& e) {
        // Nothing may escape a command: what the program did not foresee ends
        // in the same box, and the project stays as it is.
        reportError(internalError(e.what()), errorTitle);
    } catch (...) {
        reportError(internalError("an unknown failure"), errorTitle);
    }
    return false;
}

void Session::notice(const std::string& text) {
    status_ = text;
    hinting_ = false;
    user.notice(text);
}

void Session::hint(const std::string& text, std::optional<CtlId> field) {
    status_ = text;
    user.note(text, field ? toString(*field) : std::string());
    hinting_ = true;
    hintField_ = field;
}

void Session::clearHint(std::optional<CtlId> taken) {
    if (!hinting_ || (taken && hintField_ == taken)) return;
    notice("");
}

void Session::markSaved() {
    countNoted_ = false; // what it said of the file a save writes is past
    savedProject_ = project_;
    mark(change::Checkpoint{change::Checkpoint::Saved});
}

void Session::markUnsaved() {
    savedProject_.reset();
    mark(change::Checkpoint{change::Checkpoint::Unsaved});
}

ChangeLog Session::takeLog() {
    tableAt_.reset();
    return std::exchange(log_, {});
}

void Session::applyProperty(const change::Property& c, bool after) {
    const PropValue& v = after ? c.after : c.before;
    const Target t(c.form, c.id);
    switch (c.prop) {
    case Prop::Visible: setVisible(t, get<bool>(v)); break;
    case Prop::Enabled: setEnabled(t, get<bool>(v)); break;
    case Prop::Locked: setLocked(t, get<bool>(v)); break;
    case Prop::Color: setColor(t, get<BackColor>(v)); break;
    case Prop::Caption: setCaption(t, get<std::string>(v)); break;
    case Prop::Top: setTop(t, get<std::optional<int>>(v)); break;
    case Prop::Left: setLeft(t, get<std::optional<int>>(v)); break;
    case Prop::Text: setProp(t, Prop::Text, &Control::text, get<std::string>(v)); break;
    case Prop::ListIndex: setProp(t, Prop::ListIndex, &Control::listIndex, get<int>(v)); break;
    case Prop::Items: setItems(t, get<std::vector<std::string>>(v)); break;
    case Prop::Value: setValue(t, get<int>(v)); break;
    case Prop::Caret: setCaret(t, get<Selection>(v)); break;
    }
}

void Session::applyFormProperty(const change::FormProperty& c, bool after) {
    const PropValue& v = after ? c.after : c.before;
    Form& f = forms_[static_cast<size_t>(c.form)];
    switch (c.prop) {
    case Prop::Caption: setFormCaption(c.form, get<std::string>(v)); break;
    case Prop::Left: placeForm(c.form, get<int>(v), f.top); break;
    case Prop::Top: placeForm(c.form, f.left, get<int>(v)); break;
    default: break; // a window comes and goes only by its commands
    }
}

void Session::apply(const ChangeLog& entries, bool after) {
    auto one = [&](const ChangeEntry& e) {
        std::visit(
            [&](const auto& c) {
                using T = std::decay_t<decltype(c)>;
                if constexpr (std::is_same_v<T, change::Input>)
                    setInput(c.index, after ? c.after : c.before);
                else if constexpr (std::is_same_v<T, change::Table>)
                    changeTable([&](BentTable& t) { t = after ? c.after : c.before; });
                else if constexpr (std::is_same_v<T, change::Counter>)
                    setBentCounter(after ? c.after : c.before);
                else if constexpr (std::is_same_v<T, change::Register>)
                    setBentRegister(after ? c.after : c.before);
                else if constexpr (std::is_same_v<T, change::Saved>) {
                    setCurrentFile(after ? c.fileAfter : c.fileBefore);
                    setSaveFailed(after ? c.failedAfter : c.failedBefore);
                } else if constexpr (std::is_same_v<T, change::Property>)
                    applyProperty(c, after);
                else if constexpr (std::is_same_v<T, change::FormProperty>)
                    applyFormProperty(c, after);
                else if constexpr (std::is_same_v<T, change::Focus>)
                    setFocusTo(after ? c.after : c.before);
            },
            e);
    };
    if (after)
        for (const auto& e : entries)
            one(e);
    else
        for (auto it = entries.rbegin(); it != entries.rend(); ++it)
            one(*it);
    // The selection last, once the table it selects in stands.
    for (const auto& e : entries)
        if (const auto* rows = std::get_if<change::Rows>(&e)) {
            const GridSelection s = after ? rows->after : rows->before;
            if (s == selection_) continue;
            log_.push_back(change::Rows{selection_, s});
            selection_ = s;
            clampSelection();
        }
}

} // namespace tw
