// SPDX-License-Identifier: Apache-2.0
#include "core/app/UserActions.h"

#include "core/app/Funnel.h"
#include "core/form/BentCommands.h"
#include "core/form/Events.h"
#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"
#include "core/form/PasteOver.h"
#include "core/form/RecentFiles.h"
#include "core/form/Recovery.h"
#include "core/form/Session.h"
#include "core/form/ShellCommands.h"
#include "core/form/Templates.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Utf8.h"
#include "core/output/Outputs.h"
#include "core/run/Run.h"

#include <algorithm>

namespace tw {

namespace {

constexpr int kBackspace = 8;

// The focus comes to a control of the main form (other forms keep their own).
void focusOn(Session& s, const Target& t) {
    if (t.form == FormId::Main) moveFocus(s, t.id);
}

// One key into a text box: the key filter first, then the key replaces the
// selection or goes in at the caret, within the field's maximum length.
void keyInto(Session& s, const Target& t, int key, std::optional<Selection> at) {
    if (at) s.setCaret(t, *at);
    if (t.form == FormId::Main) key = onKeyPress(s, t.id, key);
    const Control& c = s.ctl(t);
    if (key == 0 || c.locked || c.kind != Kind::TextBox) return;
    std::string text = s.text(t);
    int start = std::min<int>(std::max(c.selStart, 0), static_cast<int>(text.size()));
    const int len = std::min<int>(std::max(c.selLength, 0), static_cast<int>(text.size()) - start);
    if (key == kBackspace) {
        if (len > 0) {
            text.erase(static_cast<size_t>(start), static_cast<size_t>(len));
        } else if (start > 0) {
            // One character back, however many bytes it takes.
            int from = start - 1;
            while (from > 0 && (static_cast<unsigned char>(text[static_cast<size_t>(from)]) & 0xC0) == 0x80)
                --from;
            text.erase(static_cast<size_t>(from), static_cast<size_t>(start - from));
            start = from;
        }
    } else if (key >= 32) {
        const std::string typed = utf8Encode(static_cast<char32_t>(key));
        std::string replaced =
            text.substr(0, static_cast<size_t>(start)) + typed + text.substr(static_cast<size_t>(start + len));
        if (c.maxLength > 0 && static_cast<int>(utf8Decode(replaced).size()) > c.maxLength) return;
        text = std::move(replaced);
        start += static_cast<int>(typed.size());
    } else {
        return; // Enter and other control keys insert nothing in a one-line field
    }
    if (t.form == FormId::Main && text != s.text(t)) s.mark(change::Typed{t.id});
    s.setText(t, text);
    s.setCaret(t, {start, 0});
}

void editText(Session& s, const Target& t, const std::string& text, std::optional<Selection> at) {
    const bool input = t.form == FormId::Main && isInput(t.id.ctl);
    if (input && text != s.text(t)) s.mark(change::Typed{t.id});
    if (s.ctl(t).kind == Kind::ComboBox) {
        s.showComboText(t, text);
    } else {
        s.setText(t, text);
    }
    s.setCaret(t, at.value_or(Selection{static_cast<int>(text.size()), 0}));
}

// What an act does on the form, as its menu item or button did.
void runAct(Session& s, Act act, int index) {
    const CtlId id = actControl(act, index);
    if (s.ctl(id).kind == Kind::Button) moveFocus(s, id);
    if (isBentAct(act)) {
        s.clearHint();
        s.noteUnloweredCount(act == Act::DeleteBent);
    }
    switch (act) {
    case Act::New: newProject(s); break;
    case Act::Open: openProject(s); break;
    case Act::OpenRecent: openRecentFile(s, index); break;
    case Act::Save:
    case Act::SaveAs: saveProject(s); break;
    case Act::Print: printCommand(s); break;
    case Act::Run: runProject(s); break;
    case Act::Exit: unloadMainForm(s); break;
    case Act::Help: showHelp(s); break;
    case Act::About: showAbout(s); break;
    case Act::MoveBentUp: moveBentUp(s); break;
    case Act::MoveBentDown: moveBentDown(s); break;
    case Act::Undo:
    case Act::Redo: break; // the history's, not the form's
    default: bentCommand(s, id.index); break;
    }
}

void clickMain(Session& s, const CtlId& id) {
    if (const ActRow* row = actOf(id)) {
        runAct(s, row->act, id.index);
        return;
    }
    switch (id.ctl) {
    case Ctl::lblBearingView:
    case Ctl::lblCenterlineView:
    case Ctl::lblElevationView:
    case Ctl::lblViewCenterLine:
    case Ctl::lblViewDimension: showSketch(s, id.ctl); break;
    default: break;
    }
}

void click(Session& s, const Target& t) {
    switch (t.form) {
    case FormId::Main: clickMain(s, t.id); break;
    case FormId::Splash:
        if (t.id.ctl == Ctl::cmdOK) closeSplash(s);
        break;
    case FormId::About:
        if (t.id.ctl == Ctl::cmdOK) s.closeForm(FormId::About);
        break;
    case FormId::Printer:
        if (t.id.ctl == Ctl::printPreview) previewOutput(s);
        if (t.id.ctl == Ctl::PrintIt) printOutputs(s);
        if (t.id.ctl == Ctl::printCancel) s.closeForm(FormId::Printer);
        break;
    case FormId::Preview:
        if (t.id.ctl == Ctl::cmdQuit) s.closeForm(FormId::Preview);
        break;
    case FormId::Picture: break;
    }
}

std::string bentNumberAt(const Session& s, int row) {
    return row >= 1 && row < s.table().rows() ? trim(s.table().cell(row, 0)) : std::string();
}

// What an act's step in the history is called, and the row it touches.
std::pair<std::string, std::optional<int>> actStep(const Session& s, Act act) {
    const int row = s.selection().row;
    const std::string entered = trim(s.text(Ctl::txtBentNoPI));
    switch (act) {
    case Act::MoveBentUp: return {"Move Bent " + bentNumberAt(s, row) + " Up", row - 1};
    case Act::MoveBentDown: return {"Move Bent " + bentNumberAt(s, row) + " Down", row + 1};
    case Act::AddBent: return {"Add Bent " + entered, s.table().rows()};
    case Act::InsertBent: return {"Insert Bent " + entered, s.selection().end};
    case Act::ReplaceBent: return {"Replace Bent " + bentNumberAt(s, std::max(row, 1)), std::max(row, 1)};
    case Act::EditBent: return {"Edit Bent " + bentNumberAt(s, row), row};
    case Act::DeleteBent: return {"Delete Bent " + bentNumberAt(s, row), row};
    case Act::DeleteAllBents: return {"Delete All Bents", std::nullopt};
    default: return {"Pile Box Distances", std::nullopt}; // what a save may exchange
    }
}

PasteOutcome pasteInto(Session& s, const std::string& text, bool over) {
    s.noteUnloweredCount(false);
    return over ? pasteOverBents(s, text) : pasteBents(s, text);
}

template <class... F> struct Overloaded : F... { using F::operator()...; };
template <class... F> Overloaded(F...) -> Overloaded<F...>;

} // namespace

ChangeSet UserActions::apply(const Command& command) {
    Funnel& a = funnel_;
    Session& s = a.working();
    const auto label = [](const CtlId& id) { return isInput(id.ctl) ? inputLabel(id) : std::string(); };
    return std::visit(
        Overloaded{
            [&](const cmd::Focus& c) { return a.perform([&] { focusOn(s, c.target); }); },
            [&](const cmd::Key& c) { return a.perform([&] { keyInto(s, c.target, c.key, c.at); }); },
            [&](const cmd::Type& c) {
                return a.perform([&] {
                    focusOn(s, c.target);
                    for (char32_t cp : utf8Decode(c.text))
                        keyInto(s, c.target, static_cast<int>(cp), std::nullopt);
                });
            },
            [&](const cmd::Edit& c) { return a.perform([&] { editText(s, c.target, c.text, c.at); }); },
            [&](const cmd::Leave& c) {
                return a.perform([&] {
                    if (c.target.form == FormId::Main && s.focus() == std::optional<CtlId>(c.target.id))
                        leaveFocus(s);
                    else if (c.target.form == FormId::Main)
                        leaveField(s, c.target.id);
                });
            },
            [&](const cmd::Choose& c) {
                return a.perform(
                    [&] {
                        if (c.target.form == FormId::Main) {
                            moveFocus(s, c.target.id);
                            tw::choose(s, c.target, c.index);
                            return;
                        }
                        s.setListIndex(c.target, c.index);
                        if (c.target == Target(FormId::Printer, Ctl::cmbFileTypes)) applyFileType(s);
                    },
                    c.target.form == FormId::Main ? label(c.target.id) : std::string(), c.target.id);
            },
            [&](const cmd::Click& c) {
                if (c.target.form == FormId::Main)
                    if (const ActRow* row = actOf(c.target.id)) return act(row->act, c.target.id.index);
                return a.perform([&] { tw::click(s, c.target); }, "Pile Box Distances", c.target.id);
            },
            [&](const cmd::DoubleClick& c) {
                return a.perform([&] {
                    if (c.target == Target(FormId::Picture, Ctl::picViewImage)) openFullSizeSketch(s);
                });
            },
            [&](const cmd::Toolbar& c) {
                const ActRow* row = actOfToolbarKey(c.key);
                return row ? act(row->act, 0) : a.perform([] {});
            },
            [&](const cmd::Tab& c) { return a.perform([&] { tw::selectTab(s, c.tab); }, "Closing Values"); },
            [&](const cmd::BringUpToDate&) {
                return a.perform([&] { applyTab(s, s.currentTab()); }, "Bring Closing Values Up to Date");
            },
            [&](const cmd::SelectRows& c) { return a.perform([&] { s.select(c.row, c.end); }); },
            [&](const cmd::Close& c) {
                return a.perform([&] {
                    if (c.form == FormId::Main)
                        unloadMainForm(s);
                    else
                        s.closeForm(c.form);
                });
            },
            [&]<Act A>(const cmd::Do<A>& c) { return act(A, c.index); },
            [&](const cmd::Reload&) { return a.perform([&] { reloadProject(s); }, "Reload"); },
            [&](const cmd::Restore& c) { return a.perform([&] { restoreRecovery(s, c.recovery); }); },
            [&](const cmd::OpenPath& c) { return a.perform([&] { openPath(s, c.path); }); },
            [&](const cmd::PasteBents& c) {
                return a.perform([&] { pasteInto(s, c.text, c.over); }, c.over ? "Paste Over Bents" : "Paste Bents",
                                 CtlId(Ctl::txtBentNoPI), s.table().rows());
            },
            [&](const cmd::NewFromTemplate& c) { return a.perform([&] { newFromTemplate(s, c.name, c.path); }); },
            [&](const cmd::SaveAsTemplate& c) { return a.perform([&] { saveAsTemplate(s, c.name, c.path); }); },
        },
        command);
}

PasteOutcome UserActions::pasteBents(const std::string& text, bool over) {
    PasteOutcome outcome;
    Session& s = funnel_.working();
    funnel_.perform([&] { outcome = pasteInto(s, text, over); }, over ? "Paste Over Bents" : "Paste Bents",
                    CtlId(Ctl::txtBentNoPI), s.table().rows());
    return outcome;
}

bool UserActions::restore(const std::string& recovery) {
    bool restored = false;
    funnel_.perform([&] {
        restoreRecovery(funnel_.working(), recovery);
        restored = true;
    });
    return restored;
}

ChangeSet UserActions::act(Act act, int index) {
    if (act == Act::Undo) return funnel_.walkHistory(false);
    if (act == Act::Redo) return funnel_.walkHistory(true);
    Session& s = funnel_.working();
    const auto [label, row] = actStep(s, act);
    return funnel_.perform([&] { runAct(s, act, index); }, label, actControl(act, index), row);
}

void UserActions::tell(const ChangeSet& changes) {
    for (const auto& listener : listeners_)
        listener(changes);
}

} // namespace tw
