// SPDX-License-Identifier: Apache-2.0
// Undo and Redo over whole steps: the typing in one field up to its leave
// (and the format the leave applies), a choice with everything its handler
// does, a bent-table command. A step keeps, for each value and property it
// changed, the value before and after; a step that changes nothing of the
// project is not kept. Past a thousand steps, or 64 MiB of kept values, the
// oldest steps go first: a long session's memory stays bounded, and each step
// costs what it changed.
#pragma once

#include "core/form/Changes.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace tw {

struct Step {
    std::string label;            // "Cap Length", "Add Bent 7"
    std::optional<CtlId> control; // where the engineer made it
    std::optional<int> row;       // the bent row it touched
    ChangeLog entries;
    std::size_t bytes = 0; // what its kept values hold, about
};

class History {
  public:
    static constexpr std::size_t kMostSteps = 1000;
    static constexpr std::size_t kMostBytes = std::size_t(64) << 20;

    // What one command changed, in order. `label`, `control` and `row` name
    // the step the command makes when it is not typing into a field.
    void take(const ChangeLog& log, const std::string& label, std::optional<CtlId> control, std::optional<int> row);
    void clear();

    bool canUndo() const { return !undo_.empty() || (open_ && !open_->entries.empty()); }
    // Typing in a field is a new step: what could be redone before it is gone.
    bool canRedo() const { return !redo_.empty() && !(open_ && !open_->entries.empty()); }
    // A field is being typed into: its step is still open until the field is left.
    bool typing() const { return open_.has_value(); }
    // Steps Undo can take back, the open one included.
    std::size_t undoDepth() const { return undo_.size() + (open_ && !open_->entries.empty() ? 1 : 0); }
    // The name of the step Undo (Redo) would take back (again); empty when none.
    std::string undoLabel() const;
    std::string redoLabel() const;

    // The step to undo: a field still being typed into first. It moves to
    // the redo list; none when there is nothing to undo.
    std::optional<Step> undo();
    std::optional<Step> redo();

    // Bytes the history holds, about: what its limit counts.
    std::size_t footprint() const;
    std::size_t steps() const { return undo_.size() + redo_.size(); }

  private:
    void closeOpen();
    void closeCurrent();
    void keep(Step step);

    std::deque<Step> undo_, redo_;
    std::size_t kept_ = 0;        // bytes of the steps in undo_ and redo_
    std::optional<Step> open_;    // a field being typed into, until it is left
    std::optional<Step> current_; // what the command makes besides typing
};

} // namespace tw
