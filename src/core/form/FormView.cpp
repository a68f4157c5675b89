// SPDX-License-Identifier: Apache-2.0
#include "core/form/FormView.h"

#include "core/Errors.h"
#include "core/form/Document.h"
#include "core/form/Forms.h"

#include <algorithm>

namespace tw {

namespace {

template <class T> T get(const PropValue& v) { return std::get<T>(v); }

} // namespace

FormView::FormView(Document& doc, UserPorts& user) : doc_(doc), user_(user) {
    for (auto& f : buildForms())
        forms_[static_cast<size_t>(f.id())] = std::move(f);
}

template <class T> void FormView::setProp(const Target& t, Prop p, T Control::*member, T value) {
    Control& c = mut(t);
    if (c.*member == value) return;
    doc_.mark(change::Property{t.form, t.id, p, PropValue(c.*member), PropValue(value)});
    c.*member = std::move(value);
}

void FormView::setControlText(const Target& t, const std::string& text) {
    setProp(t, Prop::Text, &Control::text, text);
    setCaret(t, {static_cast<int>(text.size()), 0});
}

void FormView::setControlListIndex(const Target& t, int index) {
    setProp(t, Prop::ListIndex, &Control::listIndex, index);
}

void FormView::setVisible(const Target& t, bool v) { setProp(t, Prop::Visible, &Control::visible, v); }
void FormView::setEnabled(const Target& t, bool v) { setProp(t, Prop::Enabled, &Control::enabled, v); }
void FormView::setLocked(const Target& t, bool v) { setProp(t, Prop::Locked, &Control::locked, v); }
void FormView::setColor(const Target& t, BackColor v) { setProp(t, Prop::Color, &Control::color, v); }
void FormView::setCaption(const Target& t, const std::string& v) { setProp(t, Prop::Caption, &Control::caption, v); }
void FormView::setTop(const Target& t, std::optional<int> v) { setProp(t, Prop::Top, &Control::top, v); }
void FormView::setLeft(const Target& t, std::optional<int> v) { setProp(t, Prop::Left, &Control::left, v); }
void FormView::setItems(const Target& t, std::vector<std::string> v) {
    setProp(t, Prop::Items, &Control::items, std::move(v));
}
void FormView::setValue(const Target& t, int v) { setProp(t, Prop::Value, &Control::value, v); }

void FormView::setCaret(const Target& t, Selection caret) {
    Control& c = mut(t);
    const Selection old{c.selStart, c.selLength};
    if (old == caret) return;
    doc_.mark(change::Property{t.form, t.id, Prop::Caret, old, caret});
    c.selStart = caret.start;
    c.selLength = caret.length;
}

void FormView::setScrollRange(const CtlId& bar, int min, int max, int largeChange, int smallChange) {
    Control& c = mut(bar);
    c.min = min;
    c.max = max;
    c.largeChange = largeChange;
    c.smallChange = smallChange;
}

void FormView::setFormCaption(FormId f, const std::string& caption) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (form.caption == caption) return;
    doc_.mark(change::FormProperty{f, Prop::Caption, form.caption, caption});
    form.caption = caption;
}

void FormView::placeForm(FormId f, int left, int top) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (form.left != left) doc_.mark(change::FormProperty{f, Prop::Left, form.left, left});
    if (form.top != top) doc_.mark(change::FormProperty{f, Prop::Top, form.top, top});
    form.left = left;
    form.top = top;
}

void FormView::load(FormId f) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (!form.loaded) doc_.mark(change::FormProperty{f, Prop::Visible, false, true});
    form.loaded = true;
}

void FormView::showForm(FormId f) {
    load(f);
    user_.windowShow(std::string(formName(f)), form(f).caption);
}

void FormView::closeForm(FormId f) {
    Form& form = forms_[static_cast<size_t>(f)];
    if (!form.loaded) return;
    doc_.mark(change::FormProperty{f, Prop::Visible, true, false});
    form.loaded = false;
    // The preview window is made anew each time it loads: its text goes with it.
    if (f == FormId::Preview) setControlText(Target(f, Ctl::rtOpen), "");
    user_.windowClose(std::string(formName(f)));
}

void FormView::setSelection(GridSelection s) {
    if (s == selection_) return;
    doc_.mark(change::Rows{selection_, s});
    selection_ = s;
}

void FormView::select(int row, int end) {
    const int rows = doc_.table().rows();
    if (row < 0 || row >= rows || end < 0 || end >= rows) throw RuntimeError(err::kGridInvalidRow, "Invalid Row value");
    setSelection({row, end});
}

void FormView::clampSelection() {
    const int last = doc_.table().rows() - 1;
    setSelection({std::min(selection_.row, last), std::min(selection_.end, last)});
}

void FormView::placeFocus(std::optional<CtlId> id) {
    if (focus_ == id) return;
    doc_.mark(change::Focus{focus_, id});
    focus_ = id;
}

void FormView::notice(const std::string& text) {
    status_ = text;
    hinting_ = false;
    user_.notice(text);
}

void FormView::hint(const std::string& text, std::optional<CtlId> field) {
    status_ = text;
    user_.note(text, field ? toString(*field) : std::string());
    hinting_ = true;
    hintField_ = field;
}

void FormView::clearHint(std::optional<CtlId> taken) {
    if (!hinting_ || (taken && hintField_ == taken)) return;
    notice("");
}

void FormView::putBackProperty(const change::Property& c, bool after) {
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
    case Prop::ListIndex: setControlListIndex(t, get<int>(v)); break;
    case Prop::Items: setItems(t, get<std::vector<std::string>>(v)); break;
    case Prop::Value: setValue(t, get<int>(v)); break;
    case Prop::Caret: setCaret(t, get<Selection>(v)); break;
    }
}

void FormView::putBackFormProperty(const change::FormProperty& c, bool after) {
    const PropValue& v = after ? c.after : c.before;
    Form& f = forms_[static_cast<size_t>(c.form)];
    switch (c.prop) {
    case Prop::Caption: setFormCaption(c.form, get<std::string>(v)); break;
    case Prop::Left: placeForm(c.form, get<int>(v), f.top); break;
    case Prop::Top: placeForm(c.form, f.left, get<int>(v)); break;
    default: break; // a window comes and goes only by its commands
    }
}

bool FormView::putBack(const ChangeEntry& e, bool after) {
    if (const auto* p = std::get_if<change::Property>(&e))
        putBackProperty(*p, after);
    else if (const auto* f = std::get_if<change::FormProperty>(&e))
        putBackFormProperty(*f, after);
    else if (const auto* c = std::get_if<change::Focus>(&e))
        placeFocus(after ? c->after : c->before);
    else
        return false;
    return true;
}

void FormView::putBackSelection(const ChangeLog& entries, bool after) {
    for (const auto& e : entries)
        if (const auto* rows = std::get_if<change::Rows>(&e)) {
            setSelection(after ? rows->after : rows->before);
            clampSelection();
        }
}

} // namespace tw
