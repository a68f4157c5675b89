// SPDX-License-Identifier: Apache-2.0
// Every input of the main form in one table: what it holds, which keys it
// takes, how it is formatted when the user leaves it, its default, and how
// many columns the input file gives it. The reset, the key filter, the leave
// formatting, the file's writer and reader and `dump` all read this table;
// the items of choices and their file codes are in Choices.h.
#pragma once

#include "core/model/Controls.h"

#include <string>
#include <vector>

namespace tw {

enum class InputKind {
    Text,       // free text, as typed
    Number,     // digits with, per field, a point and a leading minus; formatted when left
    BentNumber, // the digits 1 to 9 only
    Choice,     // one item of a list
};

struct InputRule {
    Ctl ctl;
    int item = -1; // the item of a control array this row is for; -1 for all (or a single control)
    InputKind kind = InputKind::Text;
    // Keys a number takes besides the digits.
    bool minus = false;
    bool point = false;
    // The format applied when the field is left: digits before the point,
    // decimals after it. The input file stores the value in digits +
    // decimals columns, the point left out.
    int digits = 0;
    int decimals = 0;
    // Entering the field selects its whole text, so typing replaces it.
    bool selectsOnFocus = false;
    // The reset's value: a text, or a choice's list position.
    std::string defaultText;
    int defaultIndex = -1;
    int maxLength = 0; // characters the field takes; 0: no limit
    // One of the fields a bent of the bent table is entered in.
    bool bentEntry = false;
    // What the engineer calls it in a word or two ("Cap Length"); "#" stands
    // for the row number of an item of a repeated input.
    const char* label = "";
};

// The rule of an input; the row for its item when there is one.
const InputRule& inputRule(const CtlId& id);
bool isInput(Ctl ctl);
// A field a bent is entered in (bent number, bottom of cap, step and other elevations).
bool isBentEntry(const CtlId& id);
// Every input of the project model, item by item, in the model's order.
const std::vector<CtlId>& projectInputs();
// The distinct controls of the table, in the model's order.
const std::vector<Ctl>& inputControls();

// Columns of a number in the input file, and the decimals the file leaves implied.
int fileWidth(const CtlId& id);
int fileDecimals(const CtlId& id);

// The input's name in a word or two, its row number filled in ("Cap Step 3").
std::string inputLabel(const CtlId& id);

} // namespace tw
