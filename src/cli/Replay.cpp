#include "cli/Replay.h"

#include "cli/Printing.h"
#include "cli/Quoting.h"
#include "core/form/Forms.h"
#include "core/model/Utf8.h"

#include <sstream>

namespace tw {

namespace {

const char* colorName(BackColor c) {
    switch (c) {
    case BackColor::Normal: return "normal";
    case BackColor::Yellow: return "yellow";
    case BackColor::Red: return "red";
    }
    return "normal";
}

std::string joinFrom(const std::vector<ScriptWord>& w, size_t from) {
    std::string s;
    for (size_t i = from; i < w.size(); ++i) {
        if (i > from) s += ' ';
        std::string t = w[i].text;
        if (!w[i].quoted) { // "\b" stands for Backspace in plain words too
            for (size_t p; (p = t.find("\\b")) != std::string::npos;)
                t.replace(p, 2, 1, '\b');
        }
        s += t;
    }
    return s;
}

bool parseInt(const std::string& s, int& v) {
    if (s.empty()) return false;
    try {
        size_t used = 0;
        v = std::stoi(s, &used);
        return used == s.size();
    } catch (...) {
        return false;
    }
}

} // namespace

bool Replay::fail(int lineNumber, const std::string& why) {
    out_.flush();
    err_ << "replay: line " << lineNumber << ": " << why << '\n';
    return false;
}

bool Replay::resolve(const std::string& word, Target& t, std::string& why) const {
    std::string form;
    std::string name = word;
    if (auto dot = word.find('.'); dot != std::string::npos) {
        form = word.substr(0, dot);
        name = word.substr(dot + 1);
        if (!app_.hasForm(form)) {
            why = "unknown form " + form;
            return false;
        }
    }
    auto id = parseCtlId(name);
    if (!id) {
        why = "unknown control " + word;
        return false;
    }
    if (form.empty()) {
        if (app_.main().has(*id)) {
            form = kFrmMain;
        } else {
            for (const auto& [n, f] : app_.forms()) {
                if (!f.has(*id)) continue;
                if (!form.empty()) {
                    why = "control " + word + " is on more than one form; name the form";
                    return false;
                }
                form = n;
            }
        }
    }
    if (form.empty() || !app_.forms().at(form).has(*id)) {
        why = "unknown control " + word;
        return false;
    }
    t.form = form;
    t.id = *id;
    t.written = word;
    return true;
}

void Replay::showState(const Target& t) {
    const Control& c = app_.forms().at(t.form).at(t.id);
    auto pos = [](const std::optional<int>& v) { return v ? std::to_string(*v) : std::string("-"); };
    bool visible = c.visible;
    if (t.form == kFrmMain && t.id.ctl == Ctl::MSFlexGrid1) visible = app_.grid.visible;
    out_ << t.written << " visible=" << visible << " enabled=" << c.enabled << " locked=" << c.locked
         << " color=" << colorName(c.color) << " caption=" << quote(c.caption) << " top=" << pos(c.top)
         << " left=" << pos(c.left) << '\n';
}

bool Replay::runLine(const std::string& raw, int n) {
    std::string line = raw;
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::string why;
    auto parsed = splitScriptLine(line, why);
    if (!parsed) return fail(n, why);
    const auto& w = *parsed;
    if (w.empty() || (!w[0].quoted && w[0].text[0] == '#')) return true;
    const std::string& verb = w[0].text;
    auto need = [&](size_t count) {
        if (w.size() >= count) return true;
        fail(n, verb + " needs " + std::to_string(count - 1) + " argument(s)");
        return false;
    };
    Target t;
    auto target = [&]() {
        if (!need(2)) return false;
        if (resolve(w[1].text, t, why)) return true;
        fail(n, why);
        return false;
    };
    auto onMain = [&](Kind kind, const char* what) {
        if (t.form == kFrmMain && app_.ctl(t.id).kind == kind) return true;
        fail(n, t.written + " is not " + what);
        return false;
    };

    try {
        if (verb == "type") {
            if (!target() || !need(3) || !onMain(Kind::TextBox, "a text box on frmMain")) return false;
            app_.setFocus(t.id);
            for (char32_t cp : utf8Decode(joinFrom(w, 2)))
                app_.typeKey(t.id, static_cast<int>(cp));
        } else if (verb == "paste") {
            if (!target() || !need(3)) return false;
            Control& c = app_.form(t.form).at(t.id);
            std::string text = joinFrom(w, 2);
            if (c.kind == Kind::ComboBox) {
                c.listIndex = -1;
                for (size_t i = 0; i < c.items.size(); ++i)
                    if (c.items[i] == text) c.listIndex = static_cast<int>(i);
            }
            c.text = text;
            c.selStart = static_cast<int>(text.size());
            c.selLength = 0;
        } else if (verb == "leave") {
            if (!target()) return false;
            if (app_.focus() == std::optional<CtlId>(t.id) && t.form == kFrmMain) {
                app_.leaveFocus();
            } else {
                EventArgs a;
                app_.fire(t.form, t.id, Event::LostFocus, a);
            }
        } else if (verb == "choose") {
            if (!target() || !need(3)) return false;
            Control& c = app_.form(t.form).at(t.id);
            if (c.kind != Kind::ComboBox) return fail(n, t.written + " is not a combo box");
            const std::string item = joinFrom(w, 2);
            int index = -1;
            for (size_t i = 0; i < c.items.size(); ++i)
                if (c.items[i] == item) index = static_cast<int>(i);
            if (index < 0) return fail(n, "no item " + quote(item) + " in " + t.written);
            if (t.form == kFrmMain) {
                app_.setFocus(t.id);
                app_.setListIndex(t.id, index);
            } else {
                c.listIndex = index;
                EventArgs a;
                app_.fire(t.form, t.id, Event::Change, a);
            }
        } else if (verb == "click" || verb == "dblclick") {
            if (!target()) return false;
            const Kind kind = app_.form(t.form).at(t.id).kind;
            if (verb == "click" && t.form == kFrmMain && kind == Kind::Button) app_.setFocus(t.id);
            EventArgs a;
            a.index = t.id.index;
            app_.fire(t.form, t.id, verb == "click" ? Event::Click : Event::DblClick, a);
        } else if (verb == "toolbar") {
            if (!need(2)) return false;
            EventArgs a;
            a.text = joinFrom(w, 1);
            app_.fire(kFrmMain, Ctl::Toolbar1, Event::Click, a);
        } else if (verb == "tab") {
            int tab = 0;
            if (!need(2) || !parseInt(w[1].text, tab)) return fail(n, "tab needs a tab number");
            if (tab < 0 || tab >= static_cast<int>(tabCaptions().size())) return fail(n, "no tab " + w[1].text);
            app_.ctl(Ctl::SSTab1).value = tab;
            EventArgs a;
            a.index = tab;
            app_.fire(kFrmMain, Ctl::SSTab1, Event::Click, a);
        } else if (verb == "select") {
            int row = 0, end = 0;
            if (!need(2) || !parseInt(w[1].text, row)) return fail(n, "select needs a row");
            end = row;
            if (w.size() > 2 && !parseInt(w[2].text, end)) return fail(n, "select: bad selection end");
            if (row < 0 || row >= app_.grid.rows() || end < 0 || end >= app_.grid.rows())
                return fail(n, "row outside the grid");
            app_.grid.select(row, end);
        } else if (verb == "answer") {
            if (!need(2)) return false;
            const std::string& b = w[1].text;
            if (b == "OK")
                ports_.queueAnswer(MsgAnswer::OK);
            else if (b == "Cancel")
                ports_.queueAnswer(MsgAnswer::Cancel);
            else if (b == "Yes")
                ports_.queueAnswer(MsgAnswer::Yes);
            else if (b == "No")
                ports_.queueAnswer(MsgAnswer::No);
            else
                return fail(n, "unknown button " + b);
        } else if (verb == "file") {
            if (!need(2)) return false;
            if (w[1].text == "cancel" && !w[1].quoted)
                ports_.queueFile(std::nullopt);
            else
                ports_.queueFile(joinFrom(w, 1));
        } else if (verb == "printer") {
            if (!need(2) || (w[1].text != "ok" && w[1].text != "cancel")) return fail(n, "printer takes ok or cancel");
            ports_.queuePrinter(w[1].text == "ok");
        } else if (verb == "show") {
            if (!need(2)) return false;
            if (app_.hasForm(w[1].text)) {
                printShow(out_, w[1].text, app_.form(w[1].text).caption);
            } else {
                if (!target()) return false;
                printShow(out_, t.written, app_.form(t.form).at(t.id).displayText());
            }
        } else if (verb == "state") {
            if (!target()) return false;
            showState(t);
        } else if (verb == "focus") {
            auto f = app_.focus();
            out_ << "focus = " << (f ? toString(*f) : std::string("none")) << '\n';
        } else if (verb == "grid") {
            printGrid(out_, app_.grid);
        } else if (verb == "counter") {
            out_ << "counter = " << app_.bentCounter << '\n';
        } else if (verb == "register") {
            out_ << "register =";
            for (const auto& r : app_.bentRegister)
                out_ << ' ' << quote(r);
            out_ << '\n';
        } else if (verb == "setting") {
            out_ << "setting LastTime = " << quote(app_.ports.readSetting("Usage", "UsageInfo", "LastTime")) << '\n';
        } else {
            return fail(n, "unknown verb " + verb);
        }
    } catch (const RuntimeError& e) {
        // What the old program would have met as an unhandled run-time error.
        app_.reportError(e);
    }
    return true;
}

int Replay::run(std::istream& script) {
    std::string line;
    int n = 0;
    while (std::getline(script, line)) {
        ++n;
        if (!runLine(line, n)) return 2;
        if (app_.mainUnloaded) break;
    }
    out_.flush();
    return 0;
}

} // namespace tw
