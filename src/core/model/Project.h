// SPDX-License-Identifier: Apache-2.0
// The engineer's work as one value: every input, the bent table and its
// bookkeeping, and the file it belongs to. Texts stay as the form shows them
// (the file writes them); a number is parsed once, when its text changes.
// Two projects compare equal when saving one or the other would make no
// difference to the engineer.
#pragma once

#include "core/model/BentTable.h"
#include "core/model/Controls.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tw {

struct InputValue {
    std::string text;   // a choice's item text, or what a text box holds
    int listIndex = -1; // a choice's item; -1 when none is selected
    // The number the text begins with (0 when none: "12ft" is 12), and
    // whether the whole text is one number.
    double leading = 0;
    bool numeric = false;

    InputValue() = default;
    explicit InputValue(std::string t, int index = -1);
    std::optional<double> number() const { return numeric ? std::optional<double>(leading) : std::nullopt; }
    friend bool operator==(const InputValue& a, const InputValue& b) {
        return a.text == b.text && a.listIndex == b.listIndex;
    }
};

// The position of an input among projectInputs(); -1 for a control that is none.
int inputIndex(const CtlId& id);
int inputCount();

class Project {
  public:
    Project();

    const InputValue& value(int index) const { return inputs_[static_cast<size_t>(index)]; }
    const InputValue& value(const CtlId& id) const;
    const std::string& text(const CtlId& id) const { return value(id).text; }
    // The value of the number the text begins with (0 when none).
    double leading(const CtlId& id) const { return value(id).leading; }
    void setValue(int index, InputValue v) { inputs_[static_cast<size_t>(index)] = std::move(v); }

    const BentTable& table() const { return table_; }
    BentTable& table() { return table_; }
    // Bents in the table (its rows but the heading).
    int bents() const { return table_.rows() - 1; }
    // The integer value of the number of beams as the form shows it (0 when empty).
    int beams() const;

    // How many bents the file says it holds: Add and Insert raise it, Delete leaves it.
    std::int16_t bentCounter = 0;
    // The bent numbers the repeated-number check knows.
    std::vector<std::string> bentRegister;
    // The last save was cut short by the pile-box check.
    bool saveFailed = false;
    // The input file last opened or saved; empty when there is none.
    std::string currentFile;

    friend bool operator==(const Project&, const Project&) = default;
    // The same work for the engineer: what a save writes and where, whatever
    // the last save's pile-box check said.
    bool sameWork(const Project& o) const {
        return inputs_ == o.inputs_ && table_ == o.table_ && bentCounter == o.bentCounter &&
               bentRegister == o.bentRegister && currentFile == o.currentFile;
    }

  private:
    std::vector<InputValue> inputs_;
    BentTable table_;
};

} // namespace tw
