#include "core/UserActions.h"

#include "core/App.h"
#include "core/form/MainForm.h"
#include "core/form/Recovery.h"
#include "core/model/Utf8.h"

namespace tw {

namespace {
constexpr int kBackspace = 8;
} // namespace

// Every action stands on its own, also one that arrives while another waits
// (typing while Run waits for the batch program): its errors end in the box,
// and the window shows its outcome at once.
template <class Body> void UserActions::act(Body&& body) {
    app_.guarded(body);
    for (const auto& f : after_)
        f();
}

void UserActions::focus(const Target& t) {
    act([&] { focusOn(t); });
}

void UserActions::focusOn(const Target& t) {
    if (t.form == kFrmMain) app_.setFocus(t.id);
}

void UserActions::key(const Target& t, int key, std::optional<Selection> at) {
    act([&] { keyInto(t, key, at); });
}

void UserActions::keyInto(const Target& t, int key, std::optional<Selection> at) {
    Control& c = app_.form(t.form).at(t.id);
    if (at) {
        c.selStart = at->start;
        c.selLength = at->length;
    }
    EventArgs a;
    a.index = t.id.index;
    a.key = key;
    app_.fire(t.form, t.id, Event::KeyPress, a);
    if (a.key == 0 || c.locked || c.kind != Kind::TextBox) return;
    std::string text = c.text;
    int start = std::min<int>(std::max(c.selStart, 0), static_cast<int>(text.size()));
    const int len = std::min<int>(std::max(c.selLength, 0), static_cast<int>(text.size()) - start);
    if (a.key == kBackspace) {
        if (len > 0) {
            text.erase(start, len);
        } else if (start > 0) {
            // One character back, however many bytes it takes.
            int from = start - 1;
            while (from > 0 && (static_cast<unsigned char>(text[from]) & 0xC0) == 0x80)
                --from;
            text.erase(from, start - from);
            start = from;
        }
    } else if (a.key >= 32) {
        const std::string typed = utf8Encode(static_cast<char32_t>(a.key));
        std::string replaced = text.substr(0, start) + typed + text.substr(start + len);
        if (c.maxLength > 0 && static_cast<int>(utf8Decode(replaced).size()) > c.maxLength) return;
        text = std::move(replaced);
        start += static_cast<int>(typed.size());
    } else {
        return; // Enter and other control keys insert nothing in a one-line field
    }
    c.text = std::move(text);
    c.selStart = start;
    c.selLength = 0;
}

void UserActions::type(const Target& t, std::string_view utf8) {
    act([&] {
        focusOn(t);
        for (char32_t cp : utf8Decode(std::string(utf8)))
            keyInto(t, static_cast<int>(cp), std::nullopt);
    });
}

void UserActions::edit(const Target& t, const std::string& text, std::optional<Selection> at) {
    act([&] {
        Control& c = app_.form(t.form).at(t.id);
        if (c.kind == Kind::ComboBox) {
            c.listIndex = -1;
            for (size_t i = 0; i < c.items.size(); ++i)
                if (c.items[i] == text) c.listIndex = static_cast<int>(i);
        }
        c.text = text;
        c.selStart = at ? at->start : static_cast<int>(text.size());
        c.selLength = at ? at->length : 0;
    });
}

void UserActions::leave(const Target& t) {
    act([&] {
        if (t.form == kFrmMain && app_.focus() == std::optional<CtlId>(t.id)) {
            app_.leaveFocus();
            return;
        }
        EventArgs a;
        app_.fire(t.form, t.id, Event::LostFocus, a);
    });
}

void UserActions::choose(const Target& t, int index) {
    act([&] {
        if (t.form == kFrmMain) {
            app_.setFocus(t.id);
            app_.setListIndex(t.id, index);
            return;
        }
        app_.form(t.form).at(t.id).listIndex = index;
        EventArgs a;
        app_.fire(t.form, t.id, Event::Change, a);
    });
}

void UserActions::click(const Target& t) {
    act([&] {
        if (t.form == kFrmMain && app_.ctl(t.id).kind == Kind::Button) app_.setFocus(t.id);
        EventArgs a;
        a.index = t.id.index;
        app_.fire(t.form, t.id, Event::Click, a);
    });
}

void UserActions::doubleClick(const Target& t) {
    act([&] {
        EventArgs a;
        a.index = t.id.index;
        app_.fire(t.form, t.id, Event::DblClick, a);
    });
}

void UserActions::toolbar(const std::string& key) {
    act([&] {
        EventArgs a;
        a.text = key;
        app_.fire(kFrmMain, Ctl::Toolbar1, Event::Click, a);
    });
}

void UserActions::selectTab(int tab) {
    act([&] {
        app_.ctl(Ctl::SSTab1).value = tab;
        EventArgs a;
        a.index = tab;
        app_.fire(kFrmMain, Ctl::SSTab1, Event::Click, a);
    });
}

void UserActions::selectRows(int row, int end) {
    act([&] { app_.grid.select(row, end); });
}

void UserActions::closeWindow(const std::string& form) {
    act([&] {
        if (form == kFrmMain)
            unloadMainForm(app_);
        else
            app_.closeForm(form);
    });
}

bool UserActions::restore(const std::string& recovery) {
    bool restored = false;
    act([&] {
        restoreRecovery(app_, recovery);
        restored = true;
    });
    return restored;
}

} // namespace tw
