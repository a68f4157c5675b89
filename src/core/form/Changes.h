// SPDX-License-Identifier: Apache-2.0
// What a user action changed, as it happened: every value of the project and
// every property of a form, before and after, in order, with marks where a
// field was typed into and where it was left. The history keeps these to
// undo and redo whole steps; the window redraws what they name.
#pragma once

#include "core/form/Form.h"
#include "core/model/Project.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tw {

// The grid's current row and the other end of its selection.
struct GridSelection {
    int row = 0;
    int end = 0;
    friend bool operator==(const GridSelection&, const GridSelection&) = default;
};

enum class Prop : std::uint8_t {
    Visible,
    Enabled,
    Locked,
    Color,
    Caption,
    Top,
    Left,
    Text,
    ListIndex,
    Items,
    Value,
    Caret
};

using PropValue =
    std::variant<bool, int, BackColor, std::string, std::optional<int>, std::vector<std::string>, Selection>;

namespace change {
struct Input {
    int index;
    InputValue before, after;
};
struct Table {
    BentTable before, after;
};
struct Counter {
    std::int16_t before, after;
};
struct Register {
    std::vector<std::string> before, after;
};
// The current file and the save-failed flag: what a save changes, never undone.
struct Saved {
    std::string fileBefore, fileAfter;
    bool failedBefore, failedAfter;
};
struct Property {
    FormId form;
    CtlId id;
    Prop prop;
    PropValue before, after;
};
// A form's own caption and place, and whether it is loaded (Visible).
struct FormProperty {
    FormId form;
    Prop prop;
    PropValue before, after;
};
struct Rows {
    GridSelection before, after;
};
struct Focus {
    std::optional<CtlId> before, after;
};
// The user typed into a field (a key, a paste) and its text changed.
struct Typed {
    CtlId id;
};
// A field was left, its leave handler done.
struct Left {
    CtlId id;
};
// The project as it stands is what its file holds (Saved: a save, an open,
// a new project) or what no file holds (Unsaved); Fresh: its history starts
// afresh (New, Open, a recovered project).
struct Checkpoint {
    enum Kind { Saved, Unsaved, Fresh } kind;
};
} // namespace change

using ChangeEntry =
    std::variant<change::Input, change::Table, change::Counter, change::Register, change::Saved, change::Property,
                 change::FormProperty, change::Rows, change::Focus, change::Typed, change::Left, change::Checkpoint>;
using ChangeLog = std::vector<ChangeEntry>;

// True for an entry that changes the engineer's work (what the history keeps a step for).
bool changesProject(const ChangeEntry& e);

// One entry a key, keeping the first value before and the last after; entries
// that end where they began go, and so do the marks.
ChangeLog condense(const ChangeLog& log);

// What a front end redraws: the inputs, the bent table, the controls and
// forms whose properties changed, the focus and the grid's selection.
struct ChangeSet {
    std::vector<CtlId> inputs;
    bool table = false;
    bool bookkeeping = false; // bent counter, register, current file, save-failed flag
    std::vector<Target> controls;
    std::vector<FormId> forms;
    bool focus = false;
    bool selection = false;
    // After an undo or redo: the control of the step and the bent row it touched.
    std::optional<CtlId> lookAt;
    std::optional<int> lookAtRow;

    static ChangeSet of(const ChangeLog& log);
    bool touchesProject() const { return !inputs.empty() || table || bookkeeping; }
    bool empty() const { return !touchesProject() && controls.empty() && forms.empty() && !focus && !selection; }
    // Whether a property of this control changed.
    bool names(const Target& t) const;
    void merge(const ChangeSet& other);
};

} // namespace tw
