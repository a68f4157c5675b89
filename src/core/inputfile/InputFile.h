// SPDX-License-Identifier: Apache-2.0
// The input file: card-like fixed-column records the engine reads by column.
// Composing and parsing bytes only; reading and writing files is the
// platform's, through the ports.
#pragma once

#include "core/model/Controls.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tw {

class Project;

// A numeric field of the file: the value without its points, left-justified
// in `width` columns; blanks for text that is no number. A value wider than
// its field is a run-time error.
std::string numericField(int width, const std::string& text);
// A two-character count, right-justified; a longer one stands as it is.
std::string countField(const std::string& text);

// What a save asks of whoever saves, at its place in the file.
class SaveHooks {
  public:
    virtual ~SaveHooks() = default;
    // The bent count has three digits or more; it is written as it stands.
    virtual void tooManyBents() = 0;
    // Parallel wingwalls with three pile boxes: the two distances are checked
    // (and may be exchanged in the project) before record "800" is written;
    // false stops the file there.
    virtual bool pileBoxCheck() = 0;
};

// The file's bytes for `project` (Windows-1252, CR LF) as a save writes
// them: a value too wide for its field is a run-time error, and the hooks
// are asked at their place; `aborted` says the pile-box check stopped it
// before record "800".
struct InputFileText {
    std::string bytes;
    bool aborted = false;
};
InputFileText composeInputFile(const Project& project, SaveHooks& hooks);
// The same file as a description of the project, for keeping it safe: no
// check, and a value too wide for its field written as it stands.
std::string describeInputFile(const Project& project);

// The largest input file read; the largest project's file is about 20 KB.
inline constexpr std::uintmax_t kMaxInputFileBytes = 1024 * 1024;

// Where the reader puts what it reads, in the order the file holds it.
class ReadSink {
  public:
    virtual ~ReadSink() = default;
    // The project as read so far: the lines after record "100" follow the
    // bent type and the number of beams read there.
    virtual const Project& project() const = 0;
    virtual void setText(const CtlId& id, const std::string& text) = 0;
    // The item of this text; false when the list holds none.
    virtual bool setChoice(Ctl ctl, const std::string& text) = 0;
    // A bent row from its tab-separated cells, its number joining the register.
    virtual void addBent(const std::string& tabbedCells, const std::string& number) = 0;
    // A cell of a bent row read before (row 1 is the first bent).
    virtual void setCell(int row, int column, const std::string& text) = 0;
    virtual void setBentCounter(std::int16_t count) = 0;
    // The file lists more bents than it holds; it is read with those it holds.
    virtual void fewerBents(int /*listed*/, int /*held*/) {}
};

// What the engineer is told of a file that lists more bents than it holds.
std::string fewerBentsText(int listed, int held);

// Reads the file's bytes into `sink`, which should hold the defaults;
// run-time errors escape, naming the line. A number field whose text is no
// number is kept as it is and, with `notes`, told there.
void parseInputFile(const std::string& bytes, ReadSink& sink, std::vector<std::string>* notes = nullptr);

} // namespace tw
