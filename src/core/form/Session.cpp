// SPDX-License-Identifier: Apache-2.0
#include "core/form/Session.h"

#include <algorithm>

namespace tw {

namespace {

int inputOf(const Target& t) { return t.form == FormId::Main ? inputIndex(t.id) : -1; }

} // namespace

bool holdsInput(const Target& t) { return inputOf(t) >= 0; }

Session::Session(UserPorts& u, SystemPorts& s, std::string dir)
    : FormView(static_cast<Document&>(*this), u), user(u), system(s), programDir(std::move(dir)) {}

std::string Session::text(const Target& t) const {
    if (const int i = inputOf(t); i >= 0) return project().value(i).text;
    return ctl(t).displayText();
}

int Session::listIndex(const Target& t) const {
    if (const int i = inputOf(t); i >= 0) return project().value(i).listIndex;
    return ctl(t).listIndex;
}

void Session::setText(const Target& t, const std::string& text) {
    if (const int i = inputOf(t); i >= 0) {
        setInput(i, InputValue(text));
        setCaret(t, {static_cast<int>(text.size()), 0});
    } else {
        setControlText(t, text);
    }
}

void Session::setListIndex(const Target& t, int index) {
    const Control& c = ctl(t);
    if (index < -1 || index >= static_cast<int>(c.items.size()))
        throw RuntimeError(err::kInvalidProperty, "Invalid property value");
    if (const int i = inputOf(t); i >= 0)
        setInput(i, InputValue(index >= 0 ? c.items[static_cast<size_t>(index)] : std::string(), index));
    else
        setControlListIndex(t, index);
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
    setControlListIndex(t, index);
    setControlText(t, text);
}

void Session::selectAll(const Target& t) { setCaret(t, {0, static_cast<int>(text(t).size())}); }

void Session::changeTable(const std::function<void(BentTable&)>& edit) {
    try {
        Document::changeTable(edit);
    } catch (...) {
        clampSelection();
        throw;
    }
    clampSelection();
}

void Session::markSaved() {
    noteUnloweredCount(false);
    Document::markSaved();
}

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

void Session::apply(const ChangeLog& entries, bool after) {
    auto one = [&](const ChangeEntry& e) {
        if (const auto* t = std::get_if<change::Table>(&e))
            changeTable([&](BentTable& table) { table = after ? t->after : t->before; });
        else if (!Document::putBack(e, after))
            FormView::putBack(e, after);
    };
    if (after)
        for (const auto& e : entries)
            one(e);
    else
        for (auto it = entries.rbegin(); it != entries.rend(); ++it)
            one(*it);
    putBackSelection(entries, after);
}

} // namespace tw
