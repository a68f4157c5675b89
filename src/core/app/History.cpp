// SPDX-License-Identifier: Apache-2.0
#include "core/app/History.h"

#include "core/model/Inputs.h"

#include <algorithm>
#include <unordered_set>

namespace tw {

namespace {

// What a step puts back: the project's values and the main form's look.
// Not the caret, the focus, the forms' own captions and places, nor what a
// save records (the current file, the save-failed flag): an undo does not
// unsave.
bool restored(const ChangeEntry& e) {
    if (changesProject(e) || std::holds_alternative<change::Rows>(e)) return true;
    // The recent projects are the user's, not the project's.
    if (const auto* p = std::get_if<change::Property>(&e))
        return p->form == FormId::Main && p->prop != Prop::Caret && p->id.ctl != Ctl::mnuRecentFile;
    return false;
}

std::size_t textBytes(const std::string& s) { return sizeof(std::string) + (s.size() > 15 ? s.capacity() : 0); }

std::size_t rowBytes(const BentTable::Row& row) {
    std::size_t n = sizeof(row) + 2 * sizeof(void*); // and the shared pointer's count
    for (const auto& cell : row)
        n += textBytes(cell);
    return n;
}

// The rows of a table are shared with the project and the steps beside it:
// what a step holds of its own is the rows it changed, on either side.
std::size_t tableBytes(const change::Table& t) {
    std::size_t n = static_cast<std::size_t>(t.before.rows() + t.after.rows()) * 2 * sizeof(void*);
    const auto rowsOf = [](const BentTable& table) {
        std::unordered_set<const BentTable::Row*> rows;
        for (int r = 0; r < table.rows(); ++r)
            rows.insert(&table.rowCells(r));
        return rows;
    };
    const auto before = rowsOf(t.before), after = rowsOf(t.after);
    for (const auto* row : before)
        if (!after.contains(row)) n += rowBytes(*row);
    for (const auto* row : after)
        if (!before.contains(row)) n += rowBytes(*row);
    return n;
}

std::size_t entryBytes(const ChangeEntry& e) {
    std::size_t n = sizeof(ChangeEntry);
    if (const auto* i = std::get_if<change::Input>(&e)) n += textBytes(i->before.text) + textBytes(i->after.text);
    if (const auto* t = std::get_if<change::Table>(&e)) n += tableBytes(*t);
    if (const auto* r = std::get_if<change::Register>(&e))
        for (const auto* numbers : {&r->before, &r->after})
            for (const auto& number : *numbers)
                n += textBytes(number);
    if (const auto* p = std::get_if<change::Property>(&e))
        for (const PropValue* v : {&p->before, &p->after}) {
            if (const auto* s = std::get_if<std::string>(v)) n += textBytes(*s);
            if (const auto* items = std::get_if<std::vector<std::string>>(v))
                for (const auto& item : *items)
                    n += textBytes(item);
        }
    return n;
}

std::size_t stepBytes(const Step& step) {
    std::size_t n = sizeof(Step) + textBytes(step.label);
    for (const auto& e : step.entries)
        n += entryBytes(e);
    return n;
}

} // namespace

void History::keep(Step step) {
    ChangeLog kept = condense(step.entries);
    std::erase_if(kept, [](const ChangeEntry& e) { return !restored(e); });
    if (std::none_of(kept.begin(), kept.end(), changesProject)) return;
    step.entries = std::move(kept);
    step.bytes = stepBytes(step);
    for (const auto& gone : redo_)
        kept_ -= gone.bytes;
    redo_.clear();
    kept_ += step.bytes;
    undo_.push_back(std::move(step));
    // Past the limits the oldest steps go first; the newest is always kept.
    while (undo_.size() > kMostSteps || (kept_ > kMostBytes && undo_.size() > 1)) {
        kept_ -= undo_.front().bytes;
        undo_.pop_front();
    }
}

void History::closeOpen() {
    if (open_) keep(std::move(*open_));
    open_.reset();
}

void History::closeCurrent() {
    if (current_) keep(std::move(*current_));
    current_.reset();
}

void History::take(const ChangeLog& log, const std::string& label, std::optional<CtlId> control,
                   std::optional<int> row) {
    bool fresh = false;
    // A command of its own (a button, a menu, a choice) that does not touch
    // the field being typed into ends that field's step before it makes its own.
    if (open_) {
        const auto ofOpenField = [&](const ChangeEntry& e) {
            const auto* typed = std::get_if<change::Typed>(&e);
            const auto* left = std::get_if<change::Left>(&e);
            return (typed && typed->id == open_->control) || (left && left->id == open_->control);
        };
        const auto changes = [](const ChangeEntry& e) {
            return changesProject(e) || std::holds_alternative<change::Rows>(e);
        };
        if (std::none_of(log.begin(), log.end(), ofOpenField) && std::any_of(log.begin(), log.end(), changes))
            closeOpen();
    }
    for (const auto& e : log) {
        if (const auto* typed = std::get_if<change::Typed>(&e)) {
            if (open_ && open_->control == typed->id) continue;
            closeOpen();
            closeCurrent();
            open_ = Step{inputLabel(typed->id), typed->id, std::nullopt, {}};
            continue;
        }
        if (const auto* left = std::get_if<change::Left>(&e)) {
            if (open_ && open_->control == left->id)
                closeOpen();
            else if (current_ && current_->label.empty() && isInput(left->id.ctl))
                // What leaving a field changed is that field's step.
                current_->label = inputLabel(left->id), current_->control = left->id;
            continue;
        }
        if (const auto* c = std::get_if<change::Checkpoint>(&e)) {
            fresh = fresh || c->kind == change::Checkpoint::Fresh;
            continue;
        }
        if (open_) {
            open_->entries.push_back(e);
            // Long typing in one field keeps, every few keys, only each value's first and last.
            if (open_->entries.size() >= 16) open_->entries = condense(open_->entries);
            continue;
        }
        if (!current_) current_ = Step{label, control, row, {}};
        current_->entries.push_back(e);
    }
    if (current_ && current_->label.empty()) current_->label = "Change";
    closeCurrent();
    // New, Open and a recovered project start afresh.
    if (fresh) clear();
}

void History::clear() {
    undo_.clear();
    redo_.clear();
    kept_ = 0;
    open_.reset();
    current_.reset();
}

std::string History::undoLabel() const {
    if (open_ && !open_->entries.empty()) return open_->label;
    return undo_.empty() ? std::string() : undo_.back().label;
}

std::string History::redoLabel() const { return canRedo() ? redo_.back().label : std::string(); }

std::optional<Step> History::undo() {
    closeOpen();
    if (undo_.empty()) return std::nullopt;
    Step step = std::move(undo_.back());
    undo_.pop_back();
    redo_.push_back(step);
    return step;
}

std::optional<Step> History::redo() {
    closeOpen();
    if (redo_.empty()) return std::nullopt;
    Step step = std::move(redo_.back());
    redo_.pop_back();
    undo_.push_back(step);
    return step;
}

std::size_t History::footprint() const { return sizeof(*this) + kept_ + (open_ ? stepBytes(*open_) : 0); }

} // namespace tw
