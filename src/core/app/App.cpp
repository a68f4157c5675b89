// SPDX-License-Identifier: Apache-2.0
#include "core/app/App.h"

#include "core/form/FileCommands.h"
#include "core/form/MainForm.h"
#include "core/form/ShellCommands.h"

namespace tw {

App::App(UserPorts& user, SystemPorts& system, std::string programDir)
    : session_(user, system, std::move(programDir)) {}

bool App::modified() const {
    return !session_.savedProject() || !differing_.empty() || tableDiffers_ || bookkeepingDiffers_;
}

void App::start() {
    perform([&] { showSplash(session_); });
}

void App::loadMainForm() {
    perform([&] { tw::loadMainForm(session_); });
}

bool App::readFile(const std::string& path, std::vector<std::string>* notes) {
    bool read = false;
    perform([&] { read = readInputFile(session_, path, notes); });
    return read;
}

bool App::writeFile(const std::string& path) {
    bool written = false;
    perform([&] { written = writeInputFile(session_, path) && !session_.project().saveFailed; });
    return written;
}

void App::reportFailure(const std::string& what) {
    perform([&] { session_.reportError(internalError(what)); });
}

ChangeSet App::perform(const std::function<void()>& body, const std::string& label, std::optional<CtlId> control,
                       std::optional<int> row) {
    // The one place a command's failure is caught: whatever it did stands,
    // and the user sees the box.
    session_.guarded(body);
    ChangeLog log = session_.takeLog();
    history_.take(log, label, control, row);
    ChangeSet changes = finish(std::move(log));
    actions.tell(changes);
    return changes;
}

ChangeSet App::walkHistory(bool forward) {
    ChangeLog log;
    ChangeSet lookAt;
    session_.guarded([&] {
        auto step = forward ? history_.redo() : history_.undo();
        if (!step) return;
        session_.apply(step->entries, forward);
        // The engineer sees where the step was made.
        if (step->control && session_.ctl(*step->control).visible) session_.placeFocus(step->control);
        lookAt.lookAt = step->control;
        lookAt.lookAtRow = step->row;
    });
    ChangeSet changes = finish(session_.takeLog());
    changes.lookAt = lookAt.lookAt;
    changes.lookAtRow = lookAt.lookAtRow;
    actions.tell(changes);
    return changes;
}

void App::trackSaved(const ChangeLog& log) {
    const auto& saved = session_.savedProject();
    const Project& now = session_.project();
    for (const auto& e : log) {
        if (const auto* c = std::get_if<change::Checkpoint>(&e)) {
            if (c->kind == change::Checkpoint::Fresh) continue;
            differing_.clear();
            tableDiffers_ = bookkeepingDiffers_ = false;
            continue;
        }
        if (!saved) continue;
        if (const auto* i = std::get_if<change::Input>(&e)) {
            if (now.value(i->index) == saved->value(i->index))
                differing_.erase(i->index);
            else
                differing_.insert(i->index);
        } else if (std::holds_alternative<change::Table>(e)) {
            tableDiffers_ = !(now.table() == saved->table());
        } else if (std::holds_alternative<change::Counter>(e) || std::holds_alternative<change::Register>(e) ||
                   std::holds_alternative<change::Saved>(e)) {
            bookkeepingDiffers_ = now.bentCounter != saved->bentCounter || now.bentRegister != saved->bentRegister ||
                                  now.currentFile != saved->currentFile;
        }
    }
}

void App::showHistory() {
    // The Edit menu names the steps Undo and Redo would take.
    session_.setCaption(Ctl::mnuUndo, history_.canUndo() ? "Undo " + history_.undoLabel() : "Undo");
    session_.setEnabled(Ctl::mnuUndo, history_.canUndo());
    session_.setCaption(Ctl::mnuRedo, history_.canRedo() ? "Redo " + history_.redoLabel() : "Redo");
    session_.setEnabled(Ctl::mnuRedo, history_.canRedo());
}

ChangeSet App::finish(ChangeLog log) {
    trackSaved(log);
    showHistory();
    for (auto& e : session_.takeLog())
        log.push_back(std::move(e));
    return ChangeSet::of(log);
}

} // namespace tw
