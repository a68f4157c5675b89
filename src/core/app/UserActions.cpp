// SPDX-License-Identifier: Apache-2.0
#include "core/app/UserActions.h"

#include "core/app/App.h"
#include "core/form/BentCommands.h"
#include "core/form/Events.h"
#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"
#include "core/form/RecentFiles.h"
#include "core/form/Recovery.h"
#include "core/form/ShellCommands.h"
#include "core/model/Inputs.h"
#include "core/model/Numeric.h"
#include "core/model/Utf8.h"
#include "core/output/Outputs.h"
#include "core/run/Run.h"

#include <algorithm>

namespace tw {

const std::vector<std::string>& toolbarKeys() {
    static const std::vector<std::string> keys = {"New", "Open", "Save", "Run", "Print", "Exit", "Undo", "Redo"};
    return keys;
}

namespace {

constexpr int kBackspace = 8;
constexpr int kDeleteButton = 4; // cmdQuantity(4)

// The focus comes to a control of the main form (other forms keep their own).
void focusOn(Session& s, const Target& t) {
    if (t.form == FormId::Main) s.setFocus(t.id);
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

void clickMain(Session& s, const CtlId& id) {
    if (s.ctl(id).kind == Kind::Button) s.setFocus(id);
    switch (id.ctl) {
    case Ctl::mnuNew: newProject(s); break;
    case Ctl::mnuOpen: openProject(s); break;
    case Ctl::mnuRecentFile: openRecentFile(s, id.index); break;
    case Ctl::mnuSave:
    case Ctl::mnuSaveAs: saveProject(s); break;
    case Ctl::mnuPrint: printCommand(s); break;
    case Ctl::mnuRun: runProject(s); break;
    case Ctl::mnuExit: unloadMainForm(s); break;
    case Ctl::mnuTarnwickHelp: showHelp(s); break;
    case Ctl::mnuAbout: showAbout(s); break;
    case Ctl::cmdQuantity:
        s.clearHint();
        s.noteUnloweredCount(id.index == kDeleteButton);
        bentCommand(s, id.index);
        break;
    case Ctl::cmdMoveUp:
        s.clearHint();
        s.noteUnloweredCount(false);
        moveBentUp(s);
        break;
    case Ctl::cmdMoveDown:
        s.clearHint();
        s.noteUnloweredCount(false);
        moveBentDown(s);
        break;
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

// The menu item a toolbar button stands for: each does what the menu item of its name does.
std::optional<Ctl> toolbarMenu(const std::string& key) {
    const std::pair<const char*, Ctl> keys[] = {
        {"New", Ctl::mnuNew},     {"Open", Ctl::mnuOpen}, {"Save", Ctl::mnuSave}, {"Run", Ctl::mnuRun},
        {"Print", Ctl::mnuPrint}, {"Exit", Ctl::mnuExit}, {"Undo", Ctl::mnuUndo}, {"Redo", Ctl::mnuRedo}};
    for (const auto& [k, menu] : keys)
        if (key == k) return menu;
    return std::nullopt;
}

std::string bentNumberAt(const Session& s, int row) {
    return row >= 1 && row < s.table().rows() ? trim(s.table().cell(row, 0)) : std::string();
}

// What a bent-table button's step is called, and the row it touches.
std::pair<std::string, std::optional<int>> bentStep(const Session& s, const CtlId& id) {
    const int row = s.selection().row;
    const std::string entered = trim(s.text(Ctl::txtBentNoPI));
    switch (id.ctl) {
    case Ctl::cmdMoveUp: return {"Move Bent " + bentNumberAt(s, row) + " Up", row - 1};
    case Ctl::cmdMoveDown: return {"Move Bent " + bentNumberAt(s, row) + " Down", row + 1};
    default: break;
    }
    switch (id.index) {
    case 0: return {"Add Bent " + entered, s.table().rows()};
    case 1: return {"Insert Bent " + entered, s.selection().end};
    case 2: return {"Replace Bent " + bentNumberAt(s, std::max(row, 1)), std::max(row, 1)};
    case 3: return {"Edit Bent " + bentNumberAt(s, row), row};
    case 4: return {"Delete Bent " + bentNumberAt(s, row), row};
    default: return {"Delete All Bents", std::nullopt};
    }
}

template <class... F> struct Overloaded : F... { using F::operator()...; };
template <class... F> Overloaded(F...) -> Overloaded<F...>;

} // namespace

ChangeSet UserActions::apply(const Command& command) {
    App& a = app_;
    Session& s = a.session_;
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
                        s.leaveFocus();
                    else if (c.target.form == FormId::Main)
                        s.leave(c.target.id);
                });
            },
            [&](const cmd::Choose& c) {
                return a.perform(
                    [&] {
                        if (c.target.form == FormId::Main) {
                            s.setFocus(c.target.id);
                            s.setListIndex(c.target, c.index);
                            return;
                        }
                        s.setListIndex(c.target, c.index);
                        if (c.target == Target(FormId::Printer, Ctl::cmbFileTypes)) applyFileType(s);
                    },
                    c.target.form == FormId::Main ? label(c.target.id) : std::string(), c.target.id);
            },
            [&](const cmd::Click& c) {
                if (c.target.form == FormId::Main && c.target.id.ctl == Ctl::mnuUndo) return a.walkHistory(false);
                if (c.target.form == FormId::Main && c.target.id.ctl == Ctl::mnuRedo) return a.walkHistory(true);
                std::string stepLabel = "Pile Box Distances"; // what a save may exchange
                std::optional<int> row;
                const bool bentButton = c.target.form == FormId::Main &&
                                        (c.target.id.ctl == Ctl::cmdQuantity || c.target.id.ctl == Ctl::cmdMoveUp ||
                                         c.target.id.ctl == Ctl::cmdMoveDown);
                if (bentButton) std::tie(stepLabel, row) = bentStep(s, c.target.id);
                return a.perform([&] { tw::click(s, c.target); }, stepLabel, c.target.id, row);
            },
            [&](const cmd::DoubleClick& c) {
                return a.perform([&] {
                    if (c.target == Target(FormId::Picture, Ctl::picViewImage)) openFullSizeSketch(s);
                });
            },
            [&](const cmd::Toolbar& c) {
                const auto menu = toolbarMenu(c.key);
                if (!menu) return a.perform([] {});
                return apply(cmd::Click{Target(*menu)});
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
            [&](const cmd::Undo&) { return a.walkHistory(false); },
            [&](const cmd::Redo&) { return a.walkHistory(true); },
            [&](const cmd::Restore& c) { return a.perform([&] { restoreRecovery(s, c.recovery); }); },
            [&](const cmd::OpenPath& c) { return a.perform([&] { openPath(s, c.path); }); },
            [&](const cmd::PasteBents& c) {
                return a.perform(
                    [&] {
                        s.noteUnloweredCount(false);
                        tw::pasteBents(s, c.text);
                    },
                    "Paste Bents", CtlId(Ctl::txtBentNoPI), s.table().rows());
            },
        },
        command);
}

PasteOutcome UserActions::pasteBents(const std::string& text) {
    PasteOutcome outcome;
    Session& s = app_.session_;
    app_.perform(
        [&] {
            s.noteUnloweredCount(false);
            outcome = tw::pasteBents(s, text);
        },
        "Paste Bents", CtlId(Ctl::txtBentNoPI), s.table().rows());
    return outcome;
}

bool UserActions::restore(const std::string& recovery) {
    bool restored = false;
    app_.perform([&] {
        restoreRecovery(app_.session_, recovery);
        restored = true;
    });
    return restored;
}

void UserActions::reload() {
    app_.perform([&] { reloadProject(app_.session_); });
}

void UserActions::tell(const ChangeSet& changes) {
    for (const auto& listener : listeners_)
        listener(changes);
}

} // namespace tw
