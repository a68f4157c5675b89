// SPDX-License-Identifier: Apache-2.0
// The input file described once: its lines in order and the fields of each.
// The writer walks it formatting every field into its columns, the reader
// walks it cutting every field out of them, so the two cannot disagree on
// where a value stands. Widths and implied decimals of numbers come from the
// table of inputs, codes from the choices.
#pragma once

#include "core/model/Controls.h"

#include <string>

namespace tw {

class Project;

class FileWalk {
  public:
    virtual ~FileWalk() = default;

    // A free-text title line: txtProjectInfo(item).
    virtual void title(int item) = 0;
    // A line beginning with its record code; end() completes it.
    virtual void record(const std::string& code) = 0;
    virtual void end() = 0;

    // A number in fileWidth(id) columns, its point left out.
    virtual void number(const CtlId& id) = 0;
    // The code of a choice.
    virtual void code(Ctl ctl) = 0;
    // The text of a choice that is a count (the number of beams), right-justified in two columns.
    virtual void count(Ctl ctl) = 0;
    virtual void blanks(int n) = 0;

    // Record "100": the number of bents, and the number of battered piles when they are drawn.
    virtual void bentCount() = 0;
    virtual void batteredCount() = 0;
    // The number of bent rows the file holds.
    virtual int bents() = 0;
    // A bent row's group of lines ("400", "401"), and one cell of the row:
    // the bent number right-justified in two columns, elevations as numbers
    // formatted like the entry field `source`.
    virtual void beginRow(int row) = 0;
    virtual void bentNumber(int row) = 0;
    virtual void cell(int row, int column, const CtlId& source) = 0;
    virtual void endRow(int row) = 0;

    // Record "700": how many battered-pile spacings follow.
    virtual int batteredSpacings() = 0;
    // Record "800": the number of pile boxes, and the check of the two
    // distances of parallel wingwalls; false stops the file there.
    virtual void pileBoxCount() = 0;
    virtual bool pileBoxCheck() = 0;
};

// Walks the whole file against the project as it stands (the reader fills it
// as it goes, so later lines follow the bent type and beams read before).
// False when the pile-box check stopped it.
bool walkInputFile(const Project& project, FileWalk& walk);

} // namespace tw
