// SPDX-License-Identifier: Apache-2.0
#include "cli/Replay.h"

#include "core/benttable/BentRows.h"

#include "cli/Printing.h"
#include "cli/ReplayArguments.h"
#include "cli/ScriptReader.h"
#include "core/form/FileCommands.h"
#include "core/form/Forms.h"
#include "core/form/MainForm.h"

#include <algorithm>

namespace tw {

namespace {

const char* colorName(BackColor c) {
    static const char* const names[] = {"normal", "yellow", "red"};
    return names[static_cast<int>(c)];
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

const std::vector<std::pair<std::string, Replay::Verb>>& Replay::verbs() {
    static const std::vector<std::pair<std::string, Verb>> table = {
        {"type", &Replay::type},         {"paste", &Replay::paste},     {"leave", &Replay::leave},
        {"choose", &Replay::choose},     {"click", &Replay::click},     {"dblclick", &Replay::dblclick},
        {"toolbar", &Replay::toolbar},   {"tab", &Replay::tab},         {"select", &Replay::select},
        {"answer", &Replay::answer},     {"file", &Replay::file},       {"printer", &Replay::printer},
        {"show", &Replay::show},         {"state", &Replay::state},     {"focus", &Replay::focus},
        {"grid", &Replay::grid},         {"counter", &Replay::counter}, {"register", &Replay::registerLine},
        {"setting", &Replay::setting},   {"undo", &Replay::undo},       {"redo", &Replay::redo},
        {"modified", &Replay::modified}, {"status", &Replay::status},   {"paste-bents", &Replay::pasteBents},
        {"copy", &Replay::copy},         {"recent", &Replay::recent},   {"bring-up-to-date", &Replay::bringUpToDate},
    };
    return table;
}

std::vector<std::string> Replay::verbNames() {
    std::vector<std::string> names;
    for (const auto& [name, verb] : verbs())
        names.push_back(name);
    return names;
}

bool Replay::fail(const Line& l, const std::string& why) {
    out_.flush();
    // The reason may quote the script, and the script may hold what a terminal takes for commands.
    err_ << "replay: line " << l.number << ": " << printableText(why) << '\n';
    return false;
}

bool Replay::need(const Line& l, size_t words) {
    if (l.words.size() >= words) return true;
    return fail(l, l.words[0].text + " needs " + std::to_string(words - 1) + " argument(s)");
}

std::string Replay::textFrom(const Line& l, size_t from) {
    std::string s;
    for (size_t i = from; i < l.words.size(); ++i) {
        if (i > from) s += ' ';
        std::string t = l.words[i].text;
        if (!l.words[i].quoted)
            for (size_t p; (p = t.find("\\b")) != std::string::npos;)
                t.replace(p, 2, 1, '\b');
        s += t;
    }
    return s;
}

bool Replay::resolve(const Line& l, Named& n) {
    if (!need(l, 2)) return false;
    const std::string& word = l.words[1].text;
    std::optional<FormId> form;
    std::string name = word;
    if (auto dot = word.find('.'); dot != std::string::npos) {
        form = formNamed(word.substr(0, dot));
        name = word.substr(dot + 1);
        if (!form) return fail(l, "unknown form " + word.substr(0, dot));
    }
    auto id = parseCtlId(name);
    if (!id) return fail(l, "unknown control " + word);
    if (!form && app_.main().has(*id)) form = FormId::Main;
    if (!form) {
        // In the order of the forms' names, as the old forms were listed.
        for (FormId f : {FormId::About, FormId::Printer, FormId::Picture, FormId::Splash, FormId::Preview}) {
            if (!app_.form(f).has(*id)) continue;
            if (form) return fail(l, "control " + word + " is on more than one form; name the form");
            form = f;
        }
    }
    if (!form || !app_.form(*form).has(*id)) return fail(l, "unknown control " + word);
    n.target = Target(*form, *id);
    n.written = word;
    return true;
}

bool Replay::onControl(const Line& l, const std::function<void(const Target&)>& action) {
    Named n;
    if (!resolve(l, n)) return false;
    action(n.target);
    return true;
}

bool Replay::type(const Line& l) {
    Named n;
    if (!resolve(l, n) || !need(l, 3)) return false;
    if (n.target.form != FormId::Main || control(n).kind != Kind::TextBox)
        return fail(l, n.written + " is not a text box on frmMain");
    app_.actions.type(n.target, textFrom(l, 2));
    return true;
}

bool Replay::paste(const Line& l) {
    Named n;
    if (!resolve(l, n) || !need(l, 3)) return false;
    app_.actions.edit(n.target, textFrom(l, 2));
    return true;
}

bool Replay::leave(const Line& l) {
    return onControl(l, [&](const Target& t) { app_.actions.leave(t); });
}

bool Replay::choose(const Line& l) {
    Named n;
    if (!resolve(l, n) || !need(l, 3)) return false;
    const Control& c = control(n);
    if (c.kind != Kind::ComboBox) return fail(l, n.written + " is not a combo box");
    const std::string item = textFrom(l, 2);
    int index = -1;
    for (size_t i = 0; i < c.items.size(); ++i)
        if (c.items[i] == item) index = static_cast<int>(i);
    if (index < 0) return fail(l, "no item " + quote(item) + " in " + n.written);
    app_.actions.choose(n.target, index);
    return true;
}

bool Replay::click(const Line& l) {
    return onControl(l, [&](const Target& t) { app_.actions.click(t); });
}

bool Replay::dblclick(const Line& l) {
    return onControl(l, [&](const Target& t) { app_.actions.doubleClick(t); });
}

bool Replay::toolbar(const Line& l) {
    if (!need(l, 2)) return false;
    const std::string key = textFrom(l, 1);
    if (std::find(toolbarKeys().begin(), toolbarKeys().end(), key) == toolbarKeys().end())
        return fail(l, "no toolbar button " + quote(key));
    app_.actions.toolbar(key);
    return true;
}

bool Replay::tab(const Line& l) {
    int tab = 0;
    if (!need(l, 2) || !parseInt(l.words[1].text, tab)) return fail(l, "tab needs a tab number");
    if (tab < 0 || tab >= static_cast<int>(tabCaptions().size())) return fail(l, "no tab " + l.words[1].text);
    app_.actions.selectTab(tab);
    return true;
}

bool Replay::select(const Line& l) {
    int row = 0;
    if (!need(l, 2) || !parseInt(l.words[1].text, row)) return fail(l, "select needs a row");
    int end = row;
    if (l.words.size() > 2 && !parseInt(l.words[2].text, end)) return fail(l, "select: bad selection end");
    const int rows = app_.project().table().rows();
    if (row < 0 || row >= rows || end < 0 || end >= rows) return fail(l, "row outside the grid");
    app_.actions.selectRows(row, end);
    return true;
}

bool Replay::answer(const Line& l) {
    if (!need(l, 2)) return false;
    const auto answer = answerNamed(l.words[1].text);
    if (!answer) return fail(l, "unknown button " + l.words[1].text);
    ports_.queueAnswer(*answer);
    return true;
}

bool Replay::file(const Line& l) {
    if (!need(l, 2)) return false;
    if (l.words[1].text == "cancel" && !l.words[1].quoted)
        ports_.queueFile(std::nullopt);
    else
        ports_.queueFile(textFrom(l, 1));
    return true;
}

bool Replay::printer(const Line& l) {
    if (!need(l, 2) || (l.words[1].text != "ok" && l.words[1].text != "cancel"))
        return fail(l, "printer takes ok or cancel");
    ports_.queuePrinter(l.words[1].text == "ok");
    return true;
}

bool Replay::show(const Line& l) {
    if (!need(l, 2)) return false;
    if (const auto form = formNamed(l.words[1].text)) {
        printShow(out_, l.words[1].text, app_.form(*form).caption);
        return true;
    }
    Named n;
    if (!resolve(l, n)) return false;
    printShow(out_, n.written, app_.text(n.target));
    return true;
}

bool Replay::state(const Line& l) {
    Named n;
    if (!resolve(l, n)) return false;
    const Control& c = control(n);
    auto pos = [](const std::optional<int>& v) { return v ? std::to_string(*v) : std::string("-"); };
    out_ << n.written << " visible=" << c.visible << " enabled=" << c.enabled << " locked=" << c.locked
         << " color=" << colorName(c.color) << " caption=" << quote(c.caption) << " top=" << pos(c.top)
         << " left=" << pos(c.left) << '\n';
    return true;
}

bool Replay::focus(const Line&) {
    auto f = app_.focus();
    out_ << "focus = " << (f ? toString(*f) : std::string("none")) << '\n';
    return true;
}

bool Replay::grid(const Line&) {
    printGrid(out_, app_.project().table(), app_.selection());
    return true;
}

bool Replay::counter(const Line&) {
    out_ << "counter = " << app_.project().bentCounter << '\n';
    return true;
}

bool Replay::registerLine(const Line&) {
    out_ << "register =";
    for (const auto& r : app_.project().bentRegister)
        out_ << ' ' << quote(r);
    out_ << '\n';
    return true;
}

bool Replay::setting(const Line&) {
    out_ << "setting LastTime = " << quote(app_.system().readSetting("Usage", "UsageInfo", "LastTime")) << '\n';
    return true;
}

bool Replay::pasteBents(const Line& l) {
    if (!need(l, 2)) return false;
    app_.actions.apply(cmd::PasteBents{textFrom(l, 1)});
    return true;
}

bool Replay::copy(const Line&) {
    // What Edit > Copy puts on the clipboard: the selected bent rows, heading first.
    const GridSelection sel = app_.selection();
    const auto& table = app_.project().table();
    const int from = std::min(sel.row, sel.end), to = std::max(sel.row, sel.end);
    out_ << "clipboard text/plain " << quote(tableTsv(table, from, to)) << '\n';
    out_ << "clipboard text/csv " << quote(tableCsv(table, from, to)) << '\n';
    return true;
}

bool Replay::recent(const Line&) {
    // The File menu's recent projects: caption and the path its status tip shows.
    for (int i = 0; i < ctlArraySize(Ctl::mnuRecentFile); ++i) {
        const Control& c = app_.ctl(CtlId(Ctl::mnuRecentFile, i));
        if (c.visible) out_ << "recent " << i << ' ' << quote(c.caption) << ' ' << quote(c.text) << '\n';
    }
    return true;
}

bool Replay::bringUpToDate(const Line&) {
    app_.actions.apply(cmd::BringUpToDate{});
    return true;
}

bool Replay::undo(const Line&) {
    app_.actions.undo();
    return true;
}

bool Replay::redo(const Line&) {
    app_.actions.redo();
    return true;
}

bool Replay::modified(const Line&) {
    out_ << "modified = " << (app_.modified() ? 1 : 0) << '\n';
    return true;
}

bool Replay::status(const Line&) {
    out_ << "status = " << quote(statusBarText(app_.session())) << '\n';
    return true;
}

bool Replay::runLine(const std::string& raw, int number) {
    std::string text = raw;
    if (!text.empty() && text.back() == '\r') text.pop_back();
    Line l;
    l.number = number;
    std::string why;
    auto words = splitScriptLine(text, why);
    if (!words) return fail(l, why);
    l.words = std::move(*words);
    if (l.words.empty() || (!l.words[0].quoted && l.words[0].text[0] == '#')) return true;
    for (const auto& [name, verb] : verbs()) {
        if (l.words[0].text != name) continue;
        if (const auto most = mostArguments(name); most && l.words.size() > *most + 1)
            return fail(l, name + " takes " + (*most ? "at most " + std::to_string(*most) : "no") + " argument(s)");
        return (this->*verb)(l);
    }
    return fail(l, "unknown verb " + l.words[0].text);
}

void Replay::tellChangesOnDisk() {
    const auto now = changedOnDiskNow(app_.session());
    if (!now || now->bytes == told_) return;
    told_ = now->bytes;
    if (ports_.message(changedOnDiskText(now->path) + "  Reload it?", kChangedOnDiskTitle, MsgButtons::YesNo,
                       MsgIcon::None) == MsgAnswer::Yes)
        app_.actions.reload();
}

void Replay::holdOpenFile() {
    const auto& known = app_.session().onDisk();
    if (!known) {
        hold_.release();
        return;
    }
    if (hold_.hold(known->path)) ports_.note(openTwiceText(known->path), {});
}

int Replay::run(std::istream& script) {
    std::string line;
    int n = 0;
    for (ScriptLine got; (got = nextScriptLine(script, line)) != ScriptLine::End;) {
        ++n;
        if (got == ScriptLine::TooLong) {
            fail(Line{{}, n}, "the line is longer than " + std::to_string(kMaxScriptLine / 1024) + " KiB");
            return 2;
        }
        tellChangesOnDisk();
        if (!runLine(line, n)) return 2;
        holdOpenFile();
        // Whoever drives the replay line by line sees each line's output before sending the next.
        out_.flush();
        if (app_.mainUnloaded()) break;
    }
    out_.flush();
    return 0;
}

ReplaySession::ReplaySession(std::ostream& out, std::ostream& err, const std::string& scriptDir,
                             const std::string& programDir)
    : user(out, scriptDir, &err), system(out, platform), app(user, system, programDir), replay(app, user, out, err) {
    app.loadMainForm();
}

} // namespace tw
